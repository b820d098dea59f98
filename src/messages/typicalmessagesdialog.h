// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "ovtcommon_export.h"

#include <QDialog>

class TypicalMessagesModel;

namespace Ui {
class TypicalMessagesDialog;
}

/**
 * Lists every registered typical message with its skip flag, so that the user can bring a
 * silenced message back by unticking it. Its geometry is kept under
 * "typicalMessagesDialog/typicalMessagesDialogGeometry".
 */
class OVTCOMMON_EXPORT TypicalMessagesDialog : public QDialog
{
    Q_OBJECT

public:
    explicit TypicalMessagesDialog(QWidget *parent = nullptr);
    /** Saves the geometry. */
    ~TypicalMessagesDialog() override;

    TypicalMessagesModel *model() const;

private:
    Ui::TypicalMessagesDialog *_ui;
    TypicalMessagesModel *_model;
};
