// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "task/taskobserverdialog.h"

#include "task/taskdescription.h"
#include "task/taskobserver.h"
#include "task/taskobservermodel.h"
#include "ui_taskobserverdialog.h"

#include <QCloseEvent>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QSettings>

namespace {

const char geometryKey[] = "taskObserverDialog/taskObserverDialogGeometry";

} // namespace

TaskObserverDialog::TaskObserverDialog(TaskObserver *observer, QWidget *parent)
    : QDialog(parent)
    , _observer(observer)
    , _ui(new Ui::TaskObserverDialog)
{
    Q_ASSERT(observer);
    _ui->setupUi(this);

    connect(_ui->_buttonBox, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(_ui->_morePushButton, &QPushButton::clicked, this,
            &TaskObserverDialog::moreButtonClick);
    connect(_ui->_taskTreeView, &QAbstractItemView::doubleClicked, this,
            &TaskObserverDialog::doubleClick);
    connect(this, &QDialog::rejected, this, [this] { enableMoreButtonSelectChange(); });
    connect(this, &QDialog::rejected, this, &TaskObserverDialog::gotoTaskWidget);
    connect(_ui->_stopPushButton, &QPushButton::clicked, this,
            &TaskObserverDialog::stopButtonClick);

    // No close button in the title bar: the dialog closes through Close or Escape only, and
    // both are refused while tasks run.
    setWindowFlags((windowFlags()
                    & ~(Qt::WindowMinimizeButtonHint | Qt::WindowMaximizeButtonHint
                        | Qt::WindowContextHelpButtonHint | Qt::WindowCloseButtonHint))
                   | Qt::CustomizeWindowHint);

    QTreeView *view = _ui->_taskTreeView;
    view->setModel(observer->model());
    // Messages are read on the message page, not in the list.
    view->header()->hideSection(2);
    // The sections resize to their contents while the dialog is shown (showEvent()). While it
    // is hidden, which is most of the time, they are left alone: a hidden view in that mode
    // still measures its rows after every change of the model, which doubled the cost of
    // every task's round trip through the observer.
    view->header()->setSectionResizeMode(QHeaderView::Interactive);

    connect(view->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            qOverload<const QItemSelection &>(&TaskObserverDialog::enableMoreButtonSelectChange));
    connect(observer->model(), &QAbstractItemModel::dataChanged, this,
            &TaskObserverDialog::enableMoreButtonDataChange);

    gotoTaskWidget();
    loadSettings();
}

TaskObserverDialog::~TaskObserverDialog()
{
    saveSettings();
    delete _ui;
}

void TaskObserverDialog::blockCloseButton()
{
    _ui->_buttonBox->setEnabled(false);
}

void TaskObserverDialog::unblockCloseButton()
{
    _ui->_buttonBox->setEnabled(true);
}

void TaskObserverDialog::showEvent(QShowEvent *event)
{
    _ui->_taskTreeView->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    QDialog::showEvent(event);
    // Every showing starts with nothing selected (and so with both buttons disabled). The
    // current index goes too: rows of an earlier batch are gone.
    _ui->_taskTreeView->selectionModel()->clear();
}

void TaskObserverDialog::hideEvent(QHideEvent *event)
{
    QDialog::hideEvent(event);
    _ui->_taskTreeView->header()->setSectionResizeMode(QHeaderView::Interactive);
}

void TaskObserverDialog::closeEvent(QCloseEvent *event)
{
    if (!_ui->_buttonBox->isEnabledTo(this)) {
        event->ignore();
        return;
    }
    QDialog::closeEvent(event);
}

void TaskObserverDialog::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape && !_ui->_buttonBox->isEnabledTo(this)) {
        event->accept();
        return;
    }
    QDialog::keyPressEvent(event);
}

void TaskObserverDialog::gotoTaskWidget()
{
    setWindowTitle(tr("Tasks"));
    _ui->_stackedWidget->setCurrentIndex(0);
    _ui->_errorPlainTextEdit->clear();
}

void TaskObserverDialog::gotoMessageWidget()
{
    const QModelIndex row = firstSelectedRow();
    if (!row.isValid())
        return;
    const QAbstractItemModel *model = row.model();
    const int status = model->index(row.row(), 1).data(Qt::EditRole).toInt();
    const QString kind = status == TaskDescription::Fail ? tr("Error") : tr("Warning");
    setWindowTitle(tr("%1: %2").arg(kind, model->index(row.row(), 0).data().toString()));
    _ui->_errorPlainTextEdit->setPlainText(model->index(row.row(), 2).data().toString());
    _ui->_stackedWidget->setCurrentIndex(1);
}

void TaskObserverDialog::moreButtonClick(bool checked)
{
    if (checked)
        gotoMessageWidget();
    else
        gotoTaskWidget();
}

void TaskObserverDialog::stopButtonClick()
{
    const QModelIndex row = firstSelectedRow();
    if (!row.isValid())
        return;
    QAbstractItemModel *model = _ui->_taskTreeView->model();
    model->setData(model->index(row.row(), 1), int(TaskDescription::AboutToBeStopped),
                   Qt::EditRole);
}

void TaskObserverDialog::doubleClick(const QModelIndex &index)
{
    if (!index.isValid())
        return;
    const int status = index.sibling(index.row(), 1).data(Qt::EditRole).toInt();
    if (status == TaskDescription::Fail || status == TaskDescription::Warning)
        _ui->_morePushButton->click();
}

void TaskObserverDialog::enableMoreButtonSelectChange(const QModelIndex &index)
{
    if (!index.isValid()) {
        _ui->_morePushButton->setEnabled(false);
        _ui->_morePushButton->setChecked(false);
        _ui->_stopPushButton->setEnabled(false);
        return;
    }
    const QModelIndex statusIndex = index.sibling(index.row(), 1);
    const QVariant statusValue = statusIndex.data(Qt::EditRole);
    const int status = statusValue.isValid() ? statusValue.toInt() : -1;
    const quint64 flags = statusIndex.data(Qt::UserRole).toULongLong();
    _ui->_morePushButton->setEnabled(status == TaskDescription::Fail
                                     || status == TaskDescription::Warning);
    _ui->_stopPushButton->setEnabled(status == TaskDescription::Processing && (flags & 1));
}

void TaskObserverDialog::enableMoreButtonSelectChange(const QItemSelection &selection)
{
    const QModelIndexList indexes = selection.indexes();
    enableMoreButtonSelectChange(indexes.isEmpty() ? QModelIndex() : indexes.first());
}

void TaskObserverDialog::enableMoreButtonDataChange(const QModelIndex &index)
{
    if (index.isValid() && index == firstSelectedRow())
        enableMoreButtonSelectChange(index);
}

void TaskObserverDialog::loadSettings()
{
    QSettings settings;
    if (settings.contains(QLatin1String(geometryKey)))
        restoreGeometry(settings.value(QLatin1String(geometryKey)).toByteArray());
}

void TaskObserverDialog::saveSettings() const
{
    QSettings settings;
    settings.setValue(QLatin1String(geometryKey), saveGeometry());
}

QModelIndex TaskObserverDialog::firstSelectedRow() const
{
    const QItemSelectionModel *selection = _ui->_taskTreeView->selectionModel();
    if (!selection)
        return QModelIndex();
    const QModelIndexList rows = selection->selectedRows(0);
    return rows.isEmpty() ? QModelIndex() : rows.first();
}
