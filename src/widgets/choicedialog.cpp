// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "choicedialog.h"

#include "widgets/choicewidget.h"

ChoiceDialog::ChoiceDialog(QWidget *parent)
    : ChoiceDialog(0, parent)
{ }

ChoiceDialog::ChoiceDialog(int nameColumn, QWidget *parent)
    : AbstractChoiceDialog(parent)
    , _choiceWidget(new ChoiceWidget(nameColumn, this))
{
    _choiceWidget->setObjectName(QStringLiteral("_choiceWidget"));
    setContentWidget(_choiceWidget);
    resize(560, 400);
}

ChoiceTreeNodeProxyModel *ChoiceDialog::choiceModel() const
{
    return _choiceWidget->choiceModel();
}

void ChoiceDialog::setSourceModel(QAbstractItemModel *model)
{
    _choiceWidget->setSourceModel(model);
}

ChoiceWidget *ChoiceDialog::choiceWidget() const
{
    return _choiceWidget;
}
