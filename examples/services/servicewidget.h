#pragma once

#include "widgets/elementwidget.h"

#include <QMetaObject>

class QLabel;
class QPushButton;

/**
 * The panel of one unit: its description and state, and the four actions of the service
 * tasks. The actions are enabled only for root; the state follows the unit's record.
 */
class ServiceWidget : public ElementWidget
{
    Q_OBJECT

public:
    explicit ServiceWidget(Module &module);

    void setElement(Element *element, ElementWidgetRole role) override;
    void read() override;

private:
    QLabel *_unit;
    QLabel *_description;
    QLabel *_state;
    QList<QPushButton *> _actions;
    QMetaObject::Connection _changed;
};
