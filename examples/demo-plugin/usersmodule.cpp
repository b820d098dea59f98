#include "usersmodule.h"

#include "element/elementdata.h"
#include "readaccountstask.h"
#include "task/taskobserver.h"
#include "usersfolderelement.h"

UsersModule::UsersModule(QObject *parent)
    // Not paranoid: after a read the elements are trusted until the next one.
    : Module(QStringLiteral("users"), parent, false)
{
    // Depth 1: a top-level node of the module tree, under no other plug-in's module.
    _expectedDepth = 1;
    _moduleData->insert(QStringLiteral("description"), tr("Local user accounts"));
    // The folder is a QObject child of the module; the element container places it.
    _elementNodes << new UsersFolderElement(*this);
}

void UsersModule::performOperation(ContextOperation *context, OperationType type, ElementData *,
                                   int)
{
    // Inserted and Removed notifications arrive here too; there is nothing to do for them.
    auto *folder
        = context ? qobject_cast<UsersFolderElement *>(context->elementContext()) : nullptr;
    if (folder && type == ReadContentOperation) {
        // Never read files on the user-interface thread: the observer runs the task on a
        // worker and calls its afterRun() back here, where the tree may be changed.
        TaskObserver::instance()->performTask(new ReadAccountsTask(folder));
    }
}
