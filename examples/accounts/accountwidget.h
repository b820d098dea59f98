// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "widgets/vieweditelementwidget.h"

namespace Ui {
class AccountWidget;
}

/**
 * The form of one user account: what the account database says about it, and the two fields
 * root may change, the GECOS field (through the GECOS dialog) and the login shell (one of
 * /etc/shells). For anyone else the form is read only, as its module is not editable then.
 */
class AccountWidget : public ViewEditElementWidget
{
    Q_OBJECT

public:
    explicit AccountWidget(Module &module);
    ~AccountWidget() override;

    ElementData *exportElementData() const override;
    /** Fills the form from the account's record (@p data). */
    void afterSuccessfulRead(Element *element, ElementData *data) override;
    bool isContentValid() const override;

private:
    void editGecos();

    Ui::AccountWidget *_ui;
};
