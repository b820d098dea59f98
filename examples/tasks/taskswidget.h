// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "widgets/elementwidget.h"

namespace Ui {
class TasksWidget;
}

/**
 * The panel of the task examples: a task that succeeds after five seconds, one that fails, one
 * the user may stop from the observer, and a print preview of the element list.
 */
class TasksWidget : public ElementWidget
{
    Q_OBJECT

public:
    explicit TasksWidget(Module &module);
    ~TasksWidget() override;

    /** The style sheet of the print preview, a Qt resource of this plug-in. */
    static QString styleSheetUrl();

private:
    void printPreview();

    Ui::TasksWidget *_ui;
};
