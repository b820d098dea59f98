// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "accountelement.h"

#include "element/elementdata.h"
#include "plugin/module.h"

#include <QIcon>

AccountElement::AccountElement(Module &module, const ElementData &record)
    // Only root may change accounts; everyone may read them.
    : LoginElement(module, &Module::isAdministrator)
{
    _elementType = QStringLiteral("account");
    // After the type: the id of a run-time element is made from its type and title.
    setTitle(record.value(QStringLiteral("user")).toString());
    // Accounts have no children to read; without this every row would show an expander.
    _requireLoad = false;
    *elementData() = record;
}

OperationType AccountElement::availableOperations() const
{
    return isEditable() ? LoginElement::availableOperations() | UpdateOperation
                        : LoginElement::availableOperations();
}

void AccountElement::performOperation(OperationType operation, ElementData *data, int alternative)
{
    // An element does no work itself: what it offers goes to its module.
    if (operation == UpdateOperation && isEditable())
        module().performOperation(this, operation, data, alternative);
    else
        LoginElement::performOperation(operation, data, alternative);
}

QString AccountElement::caption() const
{
    const ElementData *record = elementData();
    return tr("%1: uid %2, home %3, shell %4")
        .arg(title(), record->value(QStringLiteral("uid")).toString(),
             record->value(QStringLiteral("home")).toString(),
             record->value(QStringLiteral("shell")).toString());
}

QVariant AccountElement::data(int column, int role) const
{
    if (column == 0 && role == Qt::DecorationRole) {
        // People and services look different at a glance.
        static const QIcon person = QIcon::fromTheme(QStringLiteral("avatar-default"));
        static const QIcon system = QIcon::fromTheme(QStringLiteral("emblem-system"));
        return elementData()->value(QStringLiteral("isLogin")).toBool() ? person : system;
    }
    return LoginElement::data(column, role);
}
