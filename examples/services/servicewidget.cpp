#include "servicewidget.h"

#include "element/servicelightelementdata.h"
#include "servicesmodule.h"
#include "unitelement.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QPushButton>

#include <unistd.h>

ServiceWidget::ServiceWidget(Module &module)
    : ElementWidget(module, &Module::isAdministrator)
    , _unit(new QLabel)
    , _description(new QLabel)
    , _state(new QLabel)
{
    _elementType = QStringLiteral("unit");
    setWindowTitle(tr("Service"));
    auto *buttons = new QHBoxLayout;
    const struct
    {
        ServicesModule::Action action;
        const char *icon;
        QString text;
    } actions[] = {
        {ServicesModule::Start, "media-playback-start", tr("&Start")},
        {ServicesModule::Stop, "media-playback-stop", tr("S&top")},
        {ServicesModule::Restart, "view-refresh", tr("&Restart")},
        {ServicesModule::Reload, "document-revert", tr("Re&load")},
    };
    for (const auto &action : actions) {
        auto *button = new QPushButton(QIcon::fromTheme(QLatin1String(action.icon)), action.text);
        connect(button, &QPushButton::clicked, this, [this, action = action.action] {
            static_cast<ServicesModule &>(this->module())
                .control(qobject_cast<UnitElement *>(_element), action);
        });
        buttons->addWidget(button);
        _actions << button;
    }
    buttons->addStretch();
    auto *form = new QFormLayout(this);
    form->addRow(tr("Unit:"), _unit);
    form->addRow(tr("Description:"), _description);
    form->addRow(tr("State:"), _state);
    form->addRow(buttons);
    if (geteuid() != 0)
        form->addRow(new QLabel(tr("Run the tool as root to start and stop services.")));
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
    _unit->setText(_element ? _element->title() : QString());
    _description->setText(record ? record->value(QStringLiteral("description")).toString()
                                 : QString());
    _state->setText(record ? record->textState() : QString());
    for (QPushButton *button : qAsConst(_actions))
        button->setEnabled(record && isEditable());
}
