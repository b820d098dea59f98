// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "accountwidget.h"

#include "element/element.h"
#include "element/elementdata.h"
#include "plugin/module.h"
#include "readaccountstask.h"
#include "ui_accountwidget.h"
#include "widgets/gecosdialog.h"

#include <QComboBox>
#include <QPushButton>

#include <unistd.h>

AccountWidget::AccountWidget(Module &module)
    : ViewEditElementWidget(module, &Module::isAdministrator)
    , _ui(new Ui::AccountWidget)
{
    _ui->setupUi(this);
    // The widget is registered under the element type it shows.
    _elementType = QStringLiteral("account");
    _ui->_rootNote->setVisible(geteuid() != 0);
    connect(_ui->_editGecos, &QPushButton::clicked, this, &AccountWidget::editGecos);
    connect(_ui->_shell, QOverload<int>::of(&QComboBox::activated), this,
            &ViewEditElementWidget::changeContent);
    connect(_ui->_apply, &QPushButton::clicked, this, &ViewEditElementWidget::applyContentChanges);
    connect(this, &ViewEditElementWidget::contentChanged, _ui->_apply,
            [this](int state) { _ui->_apply->setEnabled(state == 3); });
}

AccountWidget::~AccountWidget()
{
    delete _ui;
}

ElementData *AccountWidget::exportElementData() const
{
    auto *data = new ElementData;
    data->insert(QStringLiteral("user"), _ui->_user->text());
    data->insert(QStringLiteral("gecos"), _ui->_gecos->text());
    data->insert(QStringLiteral("shell"), _ui->_shell->currentText());
    return data;
}

void AccountWidget::afterSuccessfulRead(Element *element, ElementData *data)
{
    if (element == _element && data) {
        _ui->_user->setText(data->value(QStringLiteral("user")).toString());
        _ui->_ids->setText(tr("%1 : %2").arg(data->value(QStringLiteral("uid")).toString(),
                                             data->value(QStringLiteral("gid")).toString()));
        _ui->_home->setText(data->value(QStringLiteral("home")).toString());
        _ui->_gecos->setText(data->value(QStringLiteral("gecos")).toString());
        // The shells the system allows, plus the account's own if it is not one of them.
        _ui->_shell->clear();
        _ui->_shell->addItems(ReadAccountsTask::loginShells());
        const QString shell = data->value(QStringLiteral("shell")).toString();
        if (_ui->_shell->findText(shell) < 0)
            _ui->_shell->addItem(shell);
        _ui->_shell->setCurrentText(shell);
    }
    ViewEditElementWidget::afterSuccessfulRead(element, data);
}

bool AccountWidget::isContentValid() const
{
    return !_ui->_shell->currentText().isEmpty();
}

void AccountWidget::editGecos()
{
    GecosDialog dialog(this);
    dialog.setGecos(_ui->_gecos->text());
    if (dialog.exec() != QDialog::Accepted || dialog.gecos() == _ui->_gecos->text())
        return;
    _ui->_gecos->setText(dialog.gecos());
    changeContent();
}
