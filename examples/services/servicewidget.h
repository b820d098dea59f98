// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "widgets/elementwidget.h"

#include <QMetaObject>

namespace Ui {
class ServiceWidget;
}

/**
 * The panel of one unit: its description and state, and the four actions of the service
 * tasks. The actions are enabled only for root; the state follows the unit's record.
 */
class ServiceWidget : public ElementWidget
{
    Q_OBJECT

public:
    explicit ServiceWidget(Module &module);
    ~ServiceWidget() override;

    void setElement(Element *element, ElementWidgetRole role) override;
    void read() override;

private:
    Ui::ServiceWidget *_ui;
    QMetaObject::Connection _changed;
};
