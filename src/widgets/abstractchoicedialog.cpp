// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "abstractchoicedialog.h"

#include "treenode/choicetreenodeproxymodel.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

AbstractChoiceDialog::AbstractChoiceDialog(QWidget *parent)
    : QDialog(parent)
    , _textLabel(new QLabel(this))
    , _layout(new QVBoxLayout(this))
    , _buttonBox(new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this))
{
    setWindowTitle(tr("Choice"));
    _textLabel->setObjectName(QStringLiteral("_textLabel"));
    _textLabel->setTextFormat(Qt::PlainText); // names and prompts may come from the system
    _textLabel->setWordWrap(true);
    _textLabel->hide();
    _buttonBox->setObjectName(QStringLiteral("_buttonBox"));
    _buttonBox->setAccessibleName(tr("Dialog buttons"));
    _buttonBox->button(QDialogButtonBox::Ok)->setAccessibleName(tr("Accept the choice"));
    _buttonBox->button(QDialogButtonBox::Cancel)->setAccessibleName(tr("Discard the choice"));
    _layout->addWidget(_textLabel);
    _layout->addWidget(_buttonBox);
    connect(_buttonBox, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(_buttonBox, &QDialogButtonBox::rejected, this, &AbstractChoiceDialog::reject);
}

AbstractChoiceDialog::~AbstractChoiceDialog() = default;

void AbstractChoiceDialog::setSourceModel(QAbstractItemModel *model)
{
    choiceModel()->setSourceModel(model);
}

void AbstractChoiceDialog::setCheckedNames(const QSet<QString> &names)
{
    choiceModel()->setCheckedNames(names);
}

void AbstractChoiceDialog::setBlockedNames(const QSet<QString> &names)
{
    choiceModel()->setBlockedNames(names);
}

QSet<QString> AbstractChoiceDialog::checkedNames() const
{
    return choiceModel()->checkedNames();
}

QSet<QString> AbstractChoiceDialog::blockedNames() const
{
    return choiceModel()->blockedNames();
}

QSet<QString> AbstractChoiceDialog::addNames() const
{
    return choiceModel()->addNames();
}

QSet<QString> AbstractChoiceDialog::removeNames() const
{
    return choiceModel()->removeNames();
}

void AbstractChoiceDialog::setText(const QString &text)
{
    _textLabel->setText(text);
    _textLabel->setVisible(!text.isEmpty());
}

QString AbstractChoiceDialog::text() const
{
    return _textLabel->text();
}

QDialogButtonBox *AbstractChoiceDialog::buttonBox() const
{
    return _buttonBox;
}

bool AbstractChoiceDialog::isAcceptable() const
{
    return true;
}

void AbstractChoiceDialog::reject()
{
    // The starting point is what is ticked now, less what the user added, plus what the user
    // removed; taking it back also empties both difference sets.
    ChoiceTreeNodeProxyModel *model = choiceModel();
    if (!model->addNames().isEmpty() || !model->removeNames().isEmpty())
        model->setCheckedNames((model->checkedNames() - model->addNames()) | model->removeNames());
    QDialog::reject();
}

void AbstractChoiceDialog::setContentWidget(QWidget *widget)
{
    _layout->insertWidget(1, widget, 1);
    connect(choiceModel(), &ChoiceTreeNodeProxyModel::stateChanged, this,
            &AbstractChoiceDialog::updateAcceptable);
    updateAcceptable();
}

void AbstractChoiceDialog::updateAcceptable()
{
    _buttonBox->button(QDialogButtonBox::Ok)->setEnabled(isAcceptable());
}
