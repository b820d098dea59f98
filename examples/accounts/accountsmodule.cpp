// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "accountsmodule.h"

#include "accountelement.h"
#include "accountfolderelement.h"
#include "accountwidget.h"
#include "element/elementdata.h"
#include "readaccountstask.h"
#include "task/taskobserver.h"
#include "updateaccounttask.h"

AccountsModule::AccountsModule(QObject *parent)
    // Not paranoid by default: after a change the form trusts what it wrote. Ticked, the
    // account is read back from the system instead.
    : Module(QStringLiteral("accounts"), parent, false)
{
    // Depth 1: a top-level node of the module tree, under no other plug-in's module.
    _expectedDepth = 1;
    _moduleData->insert(QStringLiteral("title"), tr("Accounts"));
    _moduleData->insert(QStringLiteral("description"), tr("Users and groups"));
    // The folders are QObject children of the module; the element container places them.
    _elementNodes << new AccountFolderElement(*this, AccountFolderElement::Users)
                  << new AccountFolderElement(*this, AccountFolderElement::Groups);
    // The module owns its widgets; one widget serves every account, rebound on each show.
    insertElementWidget(new AccountWidget(*this));
    connectElementWidgets();
}

void AccountsModule::performOperation(ContextOperation *context, OperationType type,
                                      ElementData *data, int)
{
    Element *element = context ? context->elementContext() : nullptr;
    if (auto *folder = qobject_cast<AccountFolderElement *>(element);
        folder && type == ReadContentOperation) {
        // Never read the databases on the user-interface thread: a directory service may be
        // slow. The observer runs the task on a worker and calls afterRun() back here.
        TaskObserver::instance()->performTask(new ReadAccountsTask(folder));
        return;
    }
    auto *account = qobject_cast<AccountElement *>(element);
    if (!account)
        return;
    if (type == ReadOperation) {
        // The record was read with the list (or written back by the last change).
        if (auto *form = qobject_cast<AccountWidget *>(elementWidget(account->elementType()));
            form && form->element() == account)
            form->afterSuccessfulRead(account, account->elementData());
    } else if (type == UpdateOperation && data) {
        // The form's record is the receiver's from here on; the task owns and deletes it.
        TaskObserver::instance()->performTask(new UpdateAccountTask(account, data));
    }
}
