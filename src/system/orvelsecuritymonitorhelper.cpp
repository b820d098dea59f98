#include "system/orvelsecuritymonitorhelper.h"

#include "system/switchwidget.h"
#include "system/switchwidgetbuilder.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QJsonParseError>
#include <QJsonValue>
#include <QMessageBox>
#include <QObject>
#include <QProcess>

#include <cmath>
#include <stdexcept>

namespace {

const QString monitorProgram = QStringLiteral("/usr/sbin/orvel-security-monitor");
constexpr int switchesTimeoutMs = 10000;

[[noreturn]] void fail(const QString &message)
{
    throw std::runtime_error(message.toUtf8().toStdString());
}

QJsonDocument parseDocument(const QByteArray &json)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(json, &error);
    if (error.error != QJsonParseError::NoError)
        fail(QObject::tr("Json parse error:\n%1").arg(error.errorString()));
    return document;
}

QJsonArray documentAsArray(const QJsonDocument &document)
{
    if (!document.isArray())
        fail(QObject::tr("Expected json array"));
    return document.array();
}

QJsonObject valueAsObject(const QJsonValue &value)
{
    if (!value.isObject())
        fail(QObject::tr("Expected json object"));
    return value.toObject();
}

QJsonValue requiredValue(const QJsonObject &object, const QString &key)
{
    if (!object.contains(key))
        fail(QObject::tr("Json object should contain key '%1'").arg(key));
    return object.value(key);
}

double valueAsNumber(const QJsonValue &value)
{
    if (!value.isDouble())
        fail(QObject::tr("Expected double"));
    return value.toDouble();
}

bool valueAsBool(const QJsonValue &value)
{
    // The tool writes flags as numbers; JSON true/false is not accepted.
    if (!value.isDouble())
        fail(QObject::tr("Expected bool (0/1)"));
    return std::round(value.toDouble()) != 0.0;
}

QString valueAsString(const QJsonValue &value)
{
    if (!value.isString())
        fail(QObject::tr("Expected string"));
    return value.toString();
}

QString requiredId(const QJsonObject &object, const QString &key)
{
    return QString::number(valueAsNumber(requiredValue(object, key)), 'g', 6);
}

QString requiredString(const QJsonObject &object, const QString &key)
{
    return valueAsString(requiredValue(object, key));
}

bool requiredBool(const QJsonObject &object, const QString &key)
{
    return valueAsBool(requiredValue(object, key));
}

QString optionalString(const QJsonObject &object, const QString &key)
{
    return object.contains(key) ? requiredString(object, key) : QString();
}

bool optionalBool(const QJsonObject &object, const QString &key)
{
    return object.contains(key) && requiredBool(object, key);
}

} // namespace

OrvelSecurityMonitorHelper &OrvelSecurityMonitorHelper::instance()
{
    static OrvelSecurityMonitorHelper helper;
    return helper;
}

OrvelSecurityMonitorHelper::OrvelSecurityMonitorHelper()
{
    try {
        reloadSwitches();
    } catch (const std::exception &e) {
        QMessageBox::critical(
            nullptr, QObject::tr("Security options"),
            QObject::tr("Failed to load security options .\n%1").arg(QString::fromUtf8(e.what())),
            QMessageBox::Ok);
    }
}

OrvelSecurityMonitorHelper::~OrvelSecurityMonitorHelper()
{
    delete _builder;
}

QByteArray OrvelSecurityMonitorHelper::call(const QStringList &arguments, int timeoutMs) const
{
    QProcess process;
    process.start(monitorProgram, arguments, QIODevice::ReadWrite);
    // Nothing is ever sent to the tool; a tool that reads its input must not wait for it.
    process.closeWriteChannel();
    if (!process.waitForFinished(timeoutMs))
        fail(QObject::tr("orvel-security-monitor finished with error:\n%1")
                 .arg(process.errorString()));
    if (process.exitStatus() != QProcess::NormalExit)
        fail(QObject::tr("Process crashed"));
    if (process.exitCode() != 0)
        fail(QObject::tr("orvel-security-monitor finished with unexpected code: %1")
                 .arg(process.exitCode()));
    return process.readAllStandardOutput();
}

QMap<SwitchGroup, SwitchWidget *> OrvelSecurityMonitorHelper::switches()
{
    delete _builder;
    _builder = new SwitchWidgetBuilder;

    QMultiMap<SwitchGroup, SwitchWidget *> widgets;
    try {
        const QJsonArray array
            = documentAsArray(parseDocument(call({QStringLiteral("switches")}, switchesTimeoutMs)));
        for (const QJsonValue &value : array) {
            const QJsonObject object = valueAsObject(value);
            const QString id = requiredId(object, QStringLiteral("id"));
            const QString name = requiredString(object, QStringLiteral("name"));
            const QString longName = requiredString(object, QStringLiteral("longname"));
            const QString script = requiredString(object, QStringLiteral("script"));
            const QString extra = optionalString(object, QStringLiteral("extra"));
            const QString tooltip = optionalString(object, QStringLiteral("tooltip"));
            const bool hasSlave = object.contains(QStringLiteral("slave"));
            const QString slave
                = hasSlave ? requiredId(object, QStringLiteral("slave")) : QString();
            const SwitchGroup group
                = optionalString(object, QStringLiteral("group")) == QLatin1String("console")
                ? SwitchGroup::Console
                : SwitchGroup::System;
            const bool gray = optionalBool(object, QStringLiteral("gray"));
            const bool enableNeedReboot = optionalBool(object, QStringLiteral("enableNeedReboot"));
            const bool disableNeedReboot
                = optionalBool(object, QStringLiteral("disableNeedReboot"));

            _builder->setId(id);
            _builder->setName(name);
            _builder->setLongName(longName);
            if (!extra.isEmpty())
                _builder->setExtraText(extra);
            _builder->setTooltip(tooltip.isEmpty() ? longName : tooltip);
            if (hasSlave)
                _builder->setSlave(slave);
            _builder->setScript(script);
            if (gray)
                _builder->setGray(true);
            _builder->setGroup(group);
            if (enableNeedReboot || disableNeedReboot)
                _builder->setRebootCase(enableNeedReboot, disableNeedReboot);
            widgets.insert(group, _builder->buildAndClear());
        }
    } catch (...) {
        // Nobody else holds the widgets of an abandoned list.
        qDeleteAll(widgets);
        throw;
    }
    return widgets;
}

void OrvelSecurityMonitorHelper::reloadSwitches()
{
    _switchWidgets = switches();
}

QList<SwitchWidget *> OrvelSecurityMonitorHelper::getSwitches() const
{
    return _switchWidgets.values();
}

QList<SwitchWidget *> OrvelSecurityMonitorHelper::getSwitches(const SwitchGroup &group) const
{
    return _switchWidgets.values(group);
}

namespace {

QStringList scriptsOf(const QList<SwitchWidget *> &widgets)
{
    QStringList scripts;
    for (const SwitchWidget *widget : widgets) {
        if (widget)
            scripts.append(widget->getScript());
    }
    return scripts;
}

} // namespace

QStringList OrvelSecurityMonitorHelper::getScripts() const
{
    return scriptsOf(getSwitches());
}

QStringList OrvelSecurityMonitorHelper::getScripts(const SwitchGroup &group) const
{
    return scriptsOf(getSwitches(group));
}
