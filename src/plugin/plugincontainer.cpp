// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "plugincontainer.h"

#include "plugin/module.h"
#include "plugin/moduleroottreenode.h"
#include "plugin/plugin.h"
#include "plugin/plugindialog.h"
#include "plugin/pluginmodel.h"
#include "plugin/simpleplugin.h"
#include "treenode/treenodemodel.h"

#include <QApplication>
#include <QDir>
#include <QDirIterator>
#include <QJsonObject>
#include <QMessageBox>
#include <QPluginLoader>
#include <QSet>

#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace {

// A file or directory root may trust: root's, and writable by nobody else. A directory above
// the plug-in directory may also be world-writable with the sticky bit (like /tmp): there,
// nobody can replace what root put in it.
bool trusted(const QString &path, bool aboveStickyAllowed)
{
    struct stat status;
    if (::lstat(QFile::encodeName(path).constData(), &status) != 0)
        return false;
    if (status.st_uid == 0 && (status.st_mode & (S_IWGRP | S_IWOTH)) == 0)
        return true;
    return aboveStickyAllowed && status.st_uid == 0 && S_ISDIR(status.st_mode)
        && (status.st_mode & S_ISVTX);
}

// For a process running as root: the first path on the way from the plug-in directory down to
// the real plug-in file that another user could have put there or can change; empty when there
// is none. A file whose real path lies outside the plug-in directory is judged by every
// directory above it.
QString untrustedPathOnTheWay(const QString &pluginDir, const QString &realFile)
{
    const QString realDir = QFileInfo(pluginDir).canonicalFilePath();
    const bool inside = !realDir.isEmpty() && realFile.startsWith(realDir + QLatin1Char('/'));
    QString path = inside ? realDir : QString();
    if (inside && !trusted(path, false))
        return path;
    const QStringList parts = realFile.mid(path.size()).split(QLatin1Char('/'), Qt::SkipEmptyParts);
    for (const QString &part : parts) {
        path += QLatin1Char('/') + part;
        if (!trusted(path, !inside && path != realFile))
            return path;
    }
    return QString();
}

} // namespace

PluginContainer::PluginContainer(QObject *parent)
    : NodeContainer(parent)
    , _availableOperationsClass(0)
    , _parentWidget(qobject_cast<QWidget *>(parent))
    , _pluginModel(nullptr)
    , _pluginDialog(nullptr)
    , _loadGeneration(0)
{
    // The order matters: the dialog shows both models, and the plug-in model must be
    // connected to the reset signals before anybody else loads.
    _pluginModel = new PluginModel(this, this);
    auto *root = new ModuleRootTreeNode(this);
    _rootNode = root;
    connect(root, &TreeNode::setCurrentNode, this, &NodeContainer::setCurrentNode);
    _treeNodeModel = new TreeNodeModel(root, this);
    _pluginDialog = new PluginDialog(this, _parentWidget);
}

PluginContainer::~PluginContainer()
{
    unloadPlugins();
    if (!_parentWidget)
        delete _pluginDialog;
}

void PluginContainer::loadPlugins(const QString &path)
{
    emit nodeContainerAboutToBeReset();
    unloadPlugins();
    _pluginPath = path;
    // Each processEvents() below may run a slot that loads or unloads again (the dialog's
    // "Change" button does); that call deletes the loaders and plug-ins this loop holds and
    // owns the container from then on, so this loop stops at once without touching them.
    // Listeners still get one reset for this call's about-to-be-reset.
    const quint64 generation = _loadGeneration;
    const auto superseded = [this, generation] {
        if (_loadGeneration == generation)
            return false;
        emit nodeContainerReset(_rootNode);
        return true;
    };

    if (!QDir(path).exists()) {
        // The caller set a wait cursor for the load; the message must not show it.
        QApplication::restoreOverrideCursor();
        QMessageBox::critical(_parentWidget, QString(),
                              tr("Plugin directory '%1' not exist.").arg(path), QMessageBox::Ok);
        return;
    }

    const QString iid = QStringLiteral(OVT_PLUGIN_IID);
    const bool asRoot = ::geteuid() == 0;
    QSet<QString> realFiles;
    QDirIterator it(path, QStringList {QStringLiteral("*.so")}, QDir::Files,
                    QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString filePath = QFileInfo(it.next()).absoluteFilePath();
        QCoreApplication::processEvents();
        if (superseded())
            return;
        // Another name (a link) of a file already tried would load the same instance again.
        const QString realFile = QFileInfo(filePath).canonicalFilePath();
        if (!realFile.isEmpty() && realFiles.contains(realFile))
            continue;
        realFiles.insert(realFile);

        auto *loader = new QPluginLoader(filePath, this);
        loader->setLoadHints(QLibrary::ResolveAllSymbolsHint | QLibrary::PreventUnloadHint);
        _plugins.append(PluginEntry(loader, nullptr));
        const int entry = _plugins.size() - 1;

        // Code that another user could have planted or changed never runs as root.
        const QString untrusted
            = asRoot && !realFile.isEmpty() ? untrustedPathOnTheWay(path, realFile) : QString();
        if (!untrusted.isEmpty()) {
            const QString why = tr("Not loaded because '%1' is not owned by root or is writable "
                                   "by group or others.")
                                    .arg(untrusted);
            auto *record = new SimplePlugin(QFileInfo(filePath).fileName(), why);
            record->setErrorDescription(why);
            record->setAvailable(false);
            _plugins[entry].second = record;
            continue;
        }

        // Checked before loading, so that foreign libraries never run any code here.
        if (loader->metaData().value(QStringLiteral("IID")).toString() != iid)
            continue;
        if (!loader->load())
            continue;
        Plugin *plugin = qobject_cast<Plugin *>(loader->instance());
        if (!plugin) {
            loader->unload();
            continue;
        }

        if (!plugin->isValid()) {
            auto *record = new SimplePlugin(plugin->name(), plugin->description());
            QString error = tr("Failed to load plugin.");
            const QStringList packages = plugin->requiredPackageNames();
            if (!packages.isEmpty())
                error += QLatin1Char(' ')
                    + tr("The error can be caused by missing package(s): %1.")
                          .arg(packages.join(QStringLiteral(", ")));
            record->setErrorDescription(error);
            record->setAvailable(false);
            _plugins[entry].second = record;
            plugin->setParent(loader);
            loader->unload();
            continue;
        }

        if (plugin->modules().isEmpty()) {
            _plugins[entry].second = new SimplePlugin(plugin->name(), plugin->description());
            loader->unload();
            continue;
        }

        _plugins[entry].second = plugin;
        plugin->setParent(loader);
        const QList<TreeNode *> pluginModules = plugin->modules();
        for (TreeNode *node : pluginModules) {
            QCoreApplication::processEvents();
            if (superseded())
                return;
            auto *module = qobject_cast<Module *>(node);
            if (!module)
                continue;
            connect(module, &Module::contentElementWidgetChanged, this,
                    &PluginContainer::contentElementWidgetChanged);
            connect(module, &Module::customContextMenuRequested, this,
                    &PluginContainer::customContextMenuRequested);
            _modules.append(module);
        }
        _availableOperationsClass |= plugin->availableOperationsClass();
    }

    QList<TreeNode *> nodes;
    nodes.reserve(_modules.size());
    for (Module *module : qAsConst(_modules))
        nodes.append(module);
    _rootNode->loadTreeFromList(nodes);
    emit nodeContainerReset(_rootNode);
}

void PluginContainer::unloadPlugins()
{
    ++_loadGeneration;
    emit nodeContainerAboutToBeReset();
    _availableOperationsClass = 0;
    _pluginPath.clear();
    _modules.clear();
    _rootNode->clear();

    // Taken out first: a plug-in's destructor must not find half-deleted entries.
    const QList<PluginEntry> plugins = std::exchange(_plugins, QList<PluginEntry>());
    for (const PluginEntry &entry : plugins) {
        if (entry.second) {
            if (!entry.second->modules().isEmpty())
                entry.first->unload();
            else
                delete entry.second;
        }
        delete entry.first;
    }
    emit nodeContainerReset(_rootNode);
}

quint64 PluginContainer::availableOperationsClass() const
{
    return _availableOperationsClass;
}

QString PluginContainer::pluginPath() const
{
    return _pluginPath;
}

const QList<PluginContainer::PluginEntry> &PluginContainer::plugins() const
{
    return _plugins;
}

const QList<Module *> &PluginContainer::modules() const
{
    return _modules;
}

PluginModel *PluginContainer::pluginModel() const
{
    return _pluginModel;
}

void PluginContainer::showPluginDialog() const
{
    _pluginDialog->show();
}
