// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "system/orvelsecuritymonitorhelper.h"

#include "system/switchwidget.h"
#include "system/switchwidgetbuilder.h"
#include "system/systemparsers_p.h"

#include <QMessageBox>
#include <QObject>
#include <QProcess>

#include <stdexcept>

namespace {

const QString monitorProgram = QStringLiteral("/usr/sbin/orvel-security-monitor");
constexpr int switchesTimeoutMs = 10000;

[[noreturn]] void fail(const QString &message)
{
    throw std::runtime_error(message.toUtf8().toStdString());
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

    // The whole list is validated before the first widget exists, so a fault builds nothing.
    const QList<Ovt::Internal::SwitchRecord> records
        = Ovt::Internal::parseSwitches(call({QStringLiteral("switches")}, switchesTimeoutMs));
    QMultiMap<SwitchGroup, SwitchWidget *> widgets;
    for (const Ovt::Internal::SwitchRecord &r : records) {
        // A record the builder rejected leaves its fields behind; none may reach this one.
        _builder->clearFields();
        _builder->setId(r.id);
        _builder->setName(r.name);
        _builder->setLongName(r.longName);
        if (!r.extra.isEmpty())
            _builder->setExtraText(r.extra);
        _builder->setTooltip(r.tooltip.isEmpty() ? r.longName : r.tooltip);
        if (r.hasSlave)
            _builder->setSlave(r.slave);
        _builder->setScript(r.script);
        if (r.gray)
            _builder->setGray(true);
        _builder->setGroup(r.group);
        if (r.enableNeedReboot || r.disableNeedReboot)
            _builder->setRebootCase(r.enableNeedReboot, r.disableNeedReboot);
        widgets.insert(r.group, _builder->buildAndClear());
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
