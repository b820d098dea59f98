// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "postgresqlwidget.h"

#include "element/element.h"
#include "element/elementdata.h"
#include "postgresqlplugin.h"

#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QVBoxLayout>

PgsqlElementWidget::PgsqlElementWidget(Module &module, const QString &elementType, QWidget *parent)
    : ViewEditElementWidget(module, &Module::defaultTrue, parent)
    , _fields(new QFormLayout)
{
    _elementType = elementType;
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(_fields);
    auto *actions = new QHBoxLayout;
    if (elementType == QLatin1String(PgsqlTypes::cluster)) {
        _userName = new QLineEdit(this);
        _userName->setPlaceholderText(tr("new user name"));
        _userName->setAccessibleName(tr("Name of the new database user"));
        actions->addWidget(_userName);
        _action = new QPushButton(tr("Create user"), this);
        _action->setAccessibleName(tr("Create the database user"));
        connect(_userName, &QLineEdit::returnPressed, this, &PgsqlElementWidget::act);
    } else if (elementType == QLatin1String(PgsqlTypes::user)) {
        _action = new QPushButton(tr("Drop user"), this);
        _action->setAccessibleName(tr("Drop the database user"));
    }
    if (_action) {
        actions->addWidget(_action);
        connect(_action, &QPushButton::clicked, this, &PgsqlElementWidget::act);
    }
    layout->addLayout(actions);
    layout->addStretch();
}

void PgsqlElementWidget::reset()
{
    ViewEditElementWidget::reset();
    while (_fields->rowCount() > 0)
        _fields->removeRow(0);
    if (!_element)
        return;
    const auto add = [this](const QString &label, const QString &value) {
        auto *field = new QLabel(value, this);
        field->setTextInteractionFlags(Qt::TextSelectableByMouse);
        field->setAccessibleName(label);
        _fields->addRow(label, field);
    };
    const ElementData *data = _element->elementData();
    if (elementType() == QLatin1String(PgsqlTypes::folder)) {
        add(tr("Clusters"), tr("as pg_lsclusters lists them; open the folder to read them"));
    } else if (elementType() == QLatin1String(PgsqlTypes::cluster)) {
        add(tr("Version"), data->value("version").toString());
        add(tr("Name"), data->name());
        add(tr("Port"), data->value("port").toString());
        add(tr("Status"), data->value("status").toString());
        add(tr("Owner"), data->value("owner").toString());
        add(tr("Data directory"), data->value("dataDirectory").toString());
        add(tr("Log file"), data->value("logFile").toString());
    } else {
        add(tr("User"), data->name());
    }
    if (!PostgresqlModule::isRoot(module()) && _action)
        add(tr("Changes"), tr("only root can create and drop database users"));
}

void PgsqlElementWidget::read()
{
    // Nothing to read beyond what the listing gave: the form is ready at once.
    blockEditWidget(false);
    if (_action)
        _action->setEnabled(_element && PostgresqlModule::isRoot(module()));
    if (_userName)
        _userName->setEnabled(_element && PostgresqlModule::isRoot(module()));
}

void PgsqlElementWidget::act()
{
    if (!_element || !PostgresqlModule::isRoot(module()))
        return;
    if (_userName) {
        if (_userName->text().trimmed().isEmpty())
            return;
        auto *data = new ElementData;
        data->setName(_userName->text().trimmed());
        _userName->clear();
        _element->performOperation(CreateOperation, data, 0);
        return;
    }
    if (QMessageBox::question(this, tr("Drop user"), _element->questionForRemove())
        == QMessageBox::Yes)
        _element->performOperation(DeleteOperation, nullptr, 0);
}
