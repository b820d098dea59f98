#include "accountwidget.h"

#include "element/element.h"
#include "element/elementdata.h"
#include "plugin/module.h"
#include "readaccountstask.h"
#include "widgets/gecosdialog.h"

#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include <unistd.h>

AccountWidget::AccountWidget(Module &module)
    : ViewEditElementWidget(module, &Module::isAdministrator)
    , _user(new QLabel)
    , _ids(new QLabel)
    , _home(new QLabel)
    , _gecos(new QLineEdit)
    , _shell(new QComboBox)
    , _apply(new QPushButton(tr("&Apply")))
{
    // The widget is registered under the element type it shows.
    _elementType = QStringLiteral("account");
    setWindowTitle(tr("Account"));
    _gecos->setReadOnly(true);
    auto *editGecos = new QPushButton(tr("&Edit…"));
    auto *gecosRow = new QHBoxLayout;
    gecosRow->addWidget(_gecos, 1);
    gecosRow->addWidget(editGecos);
    auto *form = new QFormLayout(this);
    form->addRow(tr("Login name:"), _user);
    form->addRow(tr("User and group id:"), _ids);
    form->addRow(tr("Home folder:"), _home);
    form->addRow(tr("Full name and contacts:"), gecosRow);
    form->addRow(tr("Login shell:"), _shell);
    form->addRow(QString(), _apply);
    if (geteuid() != 0)
        form->addRow(new QLabel(tr("Run the tool as root to change accounts.")));

    connect(editGecos, &QPushButton::clicked, this, &AccountWidget::editGecos);
    connect(_shell, QOverload<int>::of(&QComboBox::activated), this,
            &ViewEditElementWidget::changeContent);
    connect(_apply, &QPushButton::clicked, this, &ViewEditElementWidget::applyContentChanges);
    connect(this, &ViewEditElementWidget::contentChanged, _apply,
            [this](int state) { _apply->setEnabled(state == 3); });
    _apply->setEnabled(false);
}

ElementData *AccountWidget::exportElementData() const
{
    auto *data = new ElementData;
    data->insert(QStringLiteral("user"), _user->text());
    data->insert(QStringLiteral("gecos"), _gecos->text());
    data->insert(QStringLiteral("shell"), _shell->currentText());
    return data;
}

void AccountWidget::afterSuccessfulRead(Element *element, ElementData *data)
{
    if (element == _element && data) {
        _user->setText(data->value(QStringLiteral("user")).toString());
        _ids->setText(tr("%1 : %2").arg(data->value(QStringLiteral("uid")).toString(),
                                        data->value(QStringLiteral("gid")).toString()));
        _home->setText(data->value(QStringLiteral("home")).toString());
        _gecos->setText(data->value(QStringLiteral("gecos")).toString());
        // The shells the system allows, plus the account's own if it is not one of them.
        _shell->clear();
        _shell->addItems(ReadAccountsTask::loginShells());
        const QString shell = data->value(QStringLiteral("shell")).toString();
        if (_shell->findText(shell) < 0)
            _shell->addItem(shell);
        _shell->setCurrentText(shell);
    }
    ViewEditElementWidget::afterSuccessfulRead(element, data);
}

bool AccountWidget::isContentValid() const
{
    return !_shell->currentText().isEmpty();
}

void AccountWidget::editGecos()
{
    GecosDialog dialog(this);
    dialog.setGecos(_gecos->text());
    if (dialog.exec() != QDialog::Accepted || dialog.gecos() == _gecos->text())
        return;
    _gecos->setText(dialog.gecos());
    changeContent();
}
