// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

// A tool built against an installed ovt-common: it loads the plug-ins of one directory, gathers
// their elements, and reads the first folder's content through the plug-in's task on a worker.
// Both include styles of the installed headers work.
#include <ovt-common/plugin/plugincontainer.h>

#include <QApplication>
#include <QDeadlineTimer>
#include <QWidget>

#include <cstdio>
#include <element/element.h>
#include <element/elementcontainer.h>
#include <task/taskobserver.h>
#include <task/thread.h>
#include <treenode/confroottreenode.h>

int main(int argc, char **argv)
{
    QApplication app(argc, argv);
    if (argc != 2)
        return 2; // usage: consumer PLUGIN_DIR
    // Under a Russian locale this shows whether the library found its catalogue.
    ConfRootTreeNode conf;
    std::printf("header=%s\n", qPrintable(conf.headerData(0, Qt::Horizontal).toString()));
    Thread workers[2];
    for (Thread &worker : workers)
        worker.start();
    QWidget window;
    TaskObserver::instance(&window);
    auto *plugins = new PluginContainer(&window);
    auto *elements = new ElementContainer(&window);
    QObject::connect(plugins, &NodeContainer::nodeContainerReset, elements,
                     &ElementContainer::pluginContainerReset);
    plugins->loadPlugins(QString::fromLocal8Bit(argv[1]));
    const QList<TreeNode *> top = elements->rootNode()->childNodes();
    std::printf("plugins=%d modules=%d elements=%d\n", int(plugins->plugins().size()),
                int(plugins->modules().size()), int(top.size()));
    auto *folder = top.isEmpty() ? nullptr : qobject_cast<Element *>(top.first());
    if (folder) {
        folder->performOperation(ReadContentOperation, nullptr, 0);
        // A bound, not a measurement: a task that never comes back fails the check.
        const QDeadlineTimer deadline(60000);
        while (folder->childNodesCount() == 0 && !deadline.hasExpired())
            QCoreApplication::processEvents(QEventLoop::AllEvents, 50);
        std::printf("items=%d\n", folder->childNodesCount());
    }
    const int status = folder && folder->childNodesCount() > 0 ? 0 : 1;
    delete plugins; // while the window is whole
    return status;
}
