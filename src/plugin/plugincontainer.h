// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "plugin/nodecontainer.h"

#include <QList>
#include <QPair>
#include <QPoint>
#include <QString>

class QPluginLoader;
class QWidget;
class Module;
class Plugin;
class PluginDialog;
class PluginModel;

/**
 * Loads the plug-ins of one directory and hangs all their modules under one
 * ModuleRootTreeNode, published through treeNodeModel().
 *
 * Every "*.so" file tried keeps a record in plugins(), in the order the directory iterator
 * delivered it: the live plug-in, a SimplePlugin record (a plug-in without modules, or one
 * that failed its validity check, with the reason), or null (no plug-in of this interface, or
 * a library that did not load). Loading re-enters the event loop once per file and per module.
 *
 * Security guarantees: a process running with effective user id 0 never loads a plug-in file
 * that is, or that lies below a directory (from the plug-in directory down, the plug-in
 * directory included) that is, owned by another user than root or writable by group or others;
 * the file's record is then a SimplePlugin that is not available and says why in one sentence.
 * A world-writable directory with the sticky bit above the plug-in directory (such as /tmp)
 * does not count. A file reached through a link is judged by its real path. Several names of
 * one file (links) load it once: only the first name the iterator delivers gets a record.
 */
class OVTCOMMON_EXPORT PluginContainer : public NodeContainer
{
    Q_OBJECT

public:
    using PluginEntry = QPair<QPluginLoader *, Plugin *>;

    /** A widget @p parent also parents the message boxes and the plug-in dialog. */
    explicit PluginContainer(QObject *parent = nullptr);
    /** Unloads every plug-in, and with them their modules and elements. */
    ~PluginContainer() override;

    /**
     * Unloads what is loaded, then loads every plug-in found under @p path, subdirectories
     * included. A missing directory is reported in a critical message box and loads nothing.
     * Listeners see nodeContainerAboutToBeReset() twice and nodeContainerReset() once before
     * anything is loaded, then one final nodeContainerReset() unless the directory is missing.
     *
     * A load or unload started from the event loop while this one runs (the plug-in dialog
     * reloads when the user picks another directory) supersedes it: this call then returns at
     * once and leaves the container as the newer call made it.
     */
    void loadPlugins(const QString &path);
    /** Unloads every plug-in and empties the module tree (modules detached, not deleted). */
    void unloadPlugins();

    /** The OR of the valid plug-ins' operation classes; 0 when nothing is loaded. */
    quint64 availableOperationsClass() const;
    QString pluginPath() const;
    const QList<PluginEntry> &plugins() const;
    const QList<Module *> &modules() const;
    PluginModel *pluginModel() const;

public Q_SLOTS:
    /** Shows the plug-in dialog without blocking. */
    void showPluginDialog() const;

Q_SIGNALS:
    void contentElementWidgetChanged(int state);
    void customContextMenuRequested(const QPoint &pos);

private:
    quint64 _availableOperationsClass;
    QWidget *_parentWidget; // not owned
    QString _pluginPath;
    QList<PluginEntry> _plugins; // loaders owned; records owned when they have no modules
    QList<Module *> _modules; // owned by their plug-ins
    PluginModel *_pluginModel; // child
    PluginDialog *_pluginDialog; // owned by the parent widget if any, else by the container
    quint64 _loadGeneration; // bumped by every unload; a load that sees it change stops
};
