// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "widgets/vieweditelementwidget.h"

class QFormLayout;
class QLineEdit;
class QPushButton;

/**
 * The form of every PostgreSQL element type: the element's fields, and for root the action
 * that fits the type (create a user in a cluster, drop a user).
 */
class PgsqlElementWidget : public ViewEditElementWidget
{
    Q_OBJECT

public:
    PgsqlElementWidget(Module &module, const QString &elementType, QWidget *parent = nullptr);

    void reset() override;
    void read() override;

private:
    void act();

    QFormLayout *_fields;
    QLineEdit *_userName = nullptr;
    QPushButton *_action = nullptr;
};
