// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "templateplugin.h"

#include <ovt-common/element/ordinaryelement.h>
#include <ovt-common/task/taskobserver.h>

#include <QDir>

namespace {

/** One item: an ordinary, read-only element. It has no ElementData: elementData() is null. */
class TemplateItemElement : public OrdinaryElement
{
public:
    TemplateItemElement(Module &module, const QString &name)
        : OrdinaryElement(module, &Module::defaultFalse)
    {
        _elementType = QStringLiteral("templateItem");
        setTitle(name);
    }
    QString caption() const override { return title(); }
};

} // namespace

TemplatePlugin::TemplatePlugin()
{
    _name = tr("Template");
    _description = tr("Starting point of a plug-in");
    _modules << new TemplateModule(this); // deleted with the plug-in
}

TemplateModule::TemplateModule(QObject *parent)
    : Module(QStringLiteral("template"), parent, false)
{
    // Depth 1 makes it a top-level module; 0 (the default) hangs it nowhere: invisible.
    _expectedDepth = 1;
    _elementNodes << new TemplateFolderElement(*this);
}

void TemplateModule::performOperation(ContextOperation *context, OperationType type, ElementData *,
                                      int)
{
    auto *folder
        = context ? qobject_cast<TemplateFolderElement *>(context->elementContext()) : nullptr;
    if (folder && type == ReadContentOperation)
        TaskObserver::instance()->performTask(new ReadTemplateItemsTask(folder));
}

TemplateFolderElement::TemplateFolderElement(Module &module)
    : ContainerElement(module, &Module::defaultFalse)
{
    _elementType = QStringLiteral("templateFolder");
    _groupElementType = QStringLiteral("template");
    _title = _id = QStringLiteral("Template");
    _expectedDepth = 1;
}

QString TemplateFolderElement::caption() const
{
    return tr("Icon themes installed");
}

ReadTemplateItemsTask::ReadTemplateItemsTask(ContainerElement *folder)
    : AbstractTask(nullptr)
    , _folder(folder)
{
    taskDescription().setDescription(tr("Read the icon themes"));
}

void ReadTemplateItemsTask::run()
{
    // Worker thread: read the system, touch no element.
    _items = QDir(QStringLiteral("/usr/share/icons")).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    // Every path sets a status: a task without one stays "processing" in the observer.
    taskDescription().setStatus(TaskDescription::Success);
    AbstractTask::run(); // last: the task may be deleted from here on
}

void ReadTemplateItemsTask::afterRun()
{
    if (!_folder)
        return;
    _folder->clearDelete();
    QList<TreeNode *> items;
    for (const QString &name : qAsConst(_items))
        items << new TemplateItemElement(_folder->module(), name);
    _folder->append(items);
}
