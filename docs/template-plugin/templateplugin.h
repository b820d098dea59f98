// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <ovt-common/element/containerelement.h>
#include <ovt-common/plugin/module.h>
#include <ovt-common/plugin/plugin.h>
#include <ovt-common/task/abstracttask.h>

#include <QCoreApplication>
#include <QPointer>
#include <QStringList>

/** The plug-in's root object: it names itself and owns its one module. */
class TemplatePlugin : public Plugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID OVT_PLUGIN_IID FILE "template.json")
    Q_INTERFACES(Plugin)

public:
    TemplatePlugin();
};

/** A top-level module with one folder whose content is read by a task. */
class TemplateModule : public Module
{
    Q_OBJECT

public:
    explicit TemplateModule(QObject *parent);
    void performOperation(ContextOperation *context, OperationType type, ElementData *data,
                          int alternative) override;
};

/** The folder: its children are read on first expansion. */
class TemplateFolderElement : public ContainerElement
{
    Q_OBJECT

public:
    explicit TemplateFolderElement(Module &module);
    QString caption() const override;
};

/** Reads the folder's items on a worker, hangs them under the folder on the UI thread. */
class ReadTemplateItemsTask : public AbstractTask
{
    Q_DECLARE_TR_FUNCTIONS(ReadTemplateItemsTask)

public:
    explicit ReadTemplateItemsTask(ContainerElement *folder);
    void run() override;
    void afterRun() override;

private:
    QPointer<ContainerElement> _folder; // the user may unload the plug-in meanwhile
    QStringList _items;
};
