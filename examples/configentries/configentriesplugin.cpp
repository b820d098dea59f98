// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "configentriesplugin.h"

#include "configentriestasks.h"
#include "configentrieswidget.h"
#include "element/elementdata.h"
#include "task/taskobserver.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSettings>
#include <QStandardPaths>

ConfigEntriesPlugin::ConfigEntriesPlugin()
{
    _name = tr("Configuration entries");
    _description = tr("Key=value entries of a configuration file, by default a private copy");
    _modules << new ConfigEntriesModule(this);
}

ConfigEntriesModule::ConfigEntriesModule(QObject *parent)
    : Module(QStringLiteral("configEntries"), parent, false)
{
    _expectedDepth = 1;
    // The tool shows the title in its module tree; the id stays the settings key.
    _moduleData->insert(QStringLiteral("title"), tr("Configuration entries"));
    _moduleData->insert(QStringLiteral("description"), tr("Key=value lines of one file"));
    QString error;
    const QString path = configFilePath(&error);
    auto *file = new ConfigFileElement(*this, path);
    if (path.isEmpty())
        file->elementData()->insert(QStringLiteral("error"), error);
    _elementNodes << file;
    insertElementWidget(new ConfigEntriesWidget(*this));
    connectElementWidgets();
}

QString ConfigEntriesModule::configFilePath(QString *error)
{
    const QString chosen = qEnvironmentVariableIsSet("OVT_DEMO_CONFIG_FILE")
        ? qEnvironmentVariable("OVT_DEMO_CONFIG_FILE")
        : QSettings().value(QStringLiteral("configEntries/file")).toString();
    if (!chosen.isEmpty())
        return QFileInfo(chosen).absoluteFilePath();

    const QString dir = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
    // The machine's own release description: a key=value file that every Debian system has
    // with live entries (adduser.conf ships with all of them commented out).
    const QString copy = dir + QStringLiteral("/os-release");
    const QFileInfo info(copy);
    // Never write through a link someone else may have put there.
    if (info.isSymLink()) {
        *error = tr("%1 is a symbolic link; it is not used.").arg(copy);
        return QString();
    }
    if (info.exists())
        return copy;
    if (!QDir().mkpath(dir)) {
        *error = tr("Cannot create the directory %1.").arg(dir);
        return QString();
    }
    if (QFile::copy(QStringLiteral("/etc/os-release"), copy)) {
        QFile::setPermissions(copy, QFileDevice::ReadOwner | QFileDevice::WriteOwner);
        return copy;
    }
    QFile sample(copy);
    if (!sample.open(QIODevice::WriteOnly | QIODevice::NewOnly)
        || sample.write("# A sample for the configuration entries plug-in\nDSHELL=/bin/bash\n"
                        "DHOME=/home\nFIRST_UID=1000\t# the first ordinary account\n")
            < 0) {
        *error = tr("Cannot create %1: %2").arg(copy, sample.errorString());
        return QString();
    }
    return copy;
}

void ConfigEntriesModule::performOperation(ContextOperation *context, OperationType type,
                                           ElementData *data, int)
{
    auto *file = context ? qobject_cast<ConfigFileElement *>(context->elementContext()) : nullptr;
    if (file && type == ReadOperation) {
        TaskObserver::instance()->performTask(new ReadEntriesTask(file));
        return;
    }
    if (file && type == UpdateOperation && data) {
        TaskObserver::instance()->performTask(new WriteEntriesTask(file, data));
        return;
    }
    // Whatever reaches the module is its own: no data may leak.
    delete data;
}

ConfigFileElement::ConfigFileElement(Module &module, const QString &path)
    : OrdinaryElement(module, &Module::defaultTrue)
{
    _elementType = QStringLiteral("configFile");
    _title = _id = QStringLiteral("ConfigFile");
    // The tool narrows its element tree to the chosen module by this group.
    _groupElementType = module.id();
    _expectedDepth = 1;
    _elementData = new ElementData;
    _elementData->insert(QStringLiteral("filePath"), path);
}

QString ConfigFileElement::caption() const
{
    return tr("Configuration file %1").arg(elementData()->value("filePath").toString());
}

QVariant ConfigFileElement::data(int column, int role) const
{
    if (column == 0 && role == Qt::DisplayRole) {
        const QString name = QFileInfo(elementData()->value("filePath").toString()).fileName();
        return name.isEmpty() ? tr("Configuration file") : name;
    }
    if (column == 0 && role == Qt::DecorationRole)
        return QIcon::fromTheme(QStringLiteral("text-x-generic"));
    return OrdinaryElement::data(column, role);
}
