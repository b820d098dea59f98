// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "servicewidget.h"

#include "element/servicelightelementdata.h"
#include "servicesmodule.h"
#include "ui_servicewidget.h"
#include "unitelement.h"

#include <QPushButton>

#include <unistd.h>

ServiceWidget::ServiceWidget(Module &module)
    : ElementWidget(module, &Module::isAdministrator)
    , _ui(new Ui::ServiceWidget)
{
    _ui->setupUi(this);
    _elementType = QStringLiteral("unit");
    _ui->_rootNote->setVisible(geteuid() != 0);
    const std::pair<QPushButton *, ServicesModule::Action> actions[]
        = {{_ui->_start, ServicesModule::Start},
           {_ui->_stop, ServicesModule::Stop},
           {_ui->_restart, ServicesModule::Restart},
           {_ui->_reload, ServicesModule::Reload}};
    for (const auto &[button, action] : actions) {
        connect(button, &QPushButton::clicked, this, [this, action = action] {
            static_cast<ServicesModule &>(this->module())
                .control(qobject_cast<UnitElement *>(_element), action);
        });
    }
}

ServiceWidget::~ServiceWidget()
{
    delete _ui;
}

void ServiceWidget::setElement(Element *element, ElementWidgetRole role)
{
    disconnect(_changed);
    ElementWidget::setElement(element, role);
    // A finished task changes the unit's record; the panel shows the new state at once.
    if (element)
        _changed = connect(element, &TreeNode::nodeDataChanged, this, &ServiceWidget::read);
}

void ServiceWidget::read()
{
    const auto *record = _element
        ? dynamic_cast<const ServiceLightElementData *>(_element->elementData())
        : nullptr;
    _ui->_unit->setText(_element ? _element->title() : QString());
    _ui->_description->setText(record ? record->value(QStringLiteral("description")).toString()
                                      : QString());
    _ui->_state->setText(record ? record->textState() : QString());
    for (QPushButton *button : {_ui->_start, _ui->_stop, _ui->_restart, _ui->_reload})
        button->setEnabled(record && isEditable());
}
