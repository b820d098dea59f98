// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "ovtcommon_export.h"

#include <QDialog>
#include <QItemSelection>
#include <QModelIndex>

class TaskObserver;

namespace Ui {
class TaskObserverDialog;
}

/**
 * The visible list of the task observer's batch.
 *
 * Page 0 lists the tasks (the observer's model, without the message column); "More" shows
 * the message of a failed or warned task on page 1, titled "Error: <task>" or
 * "Warning: <task>"; "Stop" asks a running stoppable task to stop. The title bar has no close
 * button, and while the close button is blocked (tasks running) Escape and close requests
 * do nothing. The geometry is kept under "taskObserverDialog/taskObserverDialogGeometry".
 */
class OVTCOMMON_EXPORT TaskObserverDialog : public QDialog
{
    Q_OBJECT

public:
    TaskObserverDialog(TaskObserver *observer, QWidget *parent);
    /** Saves the geometry. */
    ~TaskObserverDialog() override;

    /** Disables the Close button, and with it Escape and close requests. */
    void blockCloseButton();
    /** Enables the Close button. */
    void unblockCloseButton();

protected:
    /** Clears the selection; the header sections resize to their contents while shown. */
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

public slots:
    /** Shows the list page, titled "Tasks", and clears the message text. */
    void gotoTaskWidget();
    /** Shows the message of the first selected row on page 1. */
    void gotoMessageWidget();
    void moreButtonClick(bool checked);
    /** Asks the first selected row's task to stop, through the model's setData(). */
    void stopButtonClick();
    /** Opens the message page for a failed or warned row. */
    void doubleClick(const QModelIndex &index);
    /**
     * Enables More for a Fail or Warning row and Stop for a Processing stoppable row; an
     * invalid @p index disables both and unchecks More.
     */
    void enableMoreButtonSelectChange(const QModelIndex &index = QModelIndex());
    void enableMoreButtonSelectChange(const QItemSelection &selection);
    /** Re-applies the button rule when the first selected row changes. */
    void enableMoreButtonDataChange(const QModelIndex &index);

private:
    void loadSettings();
    void saveSettings() const;
    QModelIndex firstSelectedRow() const;

    TaskObserver *_observer; // not owned, must outlive the dialog
    Ui::TaskObserverDialog *_ui;
};
