// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "recordwidget.h"

#include "ui_recordwidget.h"
#include "widgets/record.h"
#include "widgets/recordmodel.h"

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QInputDialog>
#include <QSettings>

RecordWidget::RecordWidget(QWidget *parent)
    : QWidget(parent)
    , _ui(new Ui::RecordWidget)
    , _editEnabled(true)
    , _recordModel(nullptr)
    , _showCopy(false)
{
    _ui->setupUi(this);
    connect(_ui->_addPushButton, &QPushButton::clicked, this, &RecordWidget::insertRow);
    connect(_ui->_removePushButton, &QPushButton::clicked, this, &RecordWidget::removeRow);
    connect(_ui->_clearPushButton, &QPushButton::clicked, this, &RecordWidget::clearRows);
    connect(_ui->_importPushButton, &QPushButton::clicked, this, &RecordWidget::importData);
    connect(_ui->_copyPushButton, &QPushButton::clicked, this, &RecordWidget::copyRequest);
    showCopyButton(false);
    enableButtons();
}

RecordWidget::~RecordWidget()
{
    saveSettings();
    delete _ui;
}

void RecordWidget::setRecordModel(RecordModel *model)
{
    if (!model || model == _recordModel)
        return;
    connectModel(false);
    _ui->_tableView->setModel(model);
    delete _recordModel;
    _recordModel = model;
    model->setParent(this);
    model->setEnabled(_editEnabled);
    connectModel(true);
    const bool creatable = model->isCreatable();
    for (QWidget *button : {_ui->_clearPushButton, _ui->_importPushButton, _ui->_removePushButton,
                            _ui->_addPushButton})
        button->setVisible(creatable);
    _ui->_copyPushButton->setVisible(creatable && _showCopy);
    enableButtons();
}

void RecordWidget::connectModel(bool connect)
{
    if (!_recordModel)
        return;
    QItemSelectionModel *selection = _ui->_tableView->selectionModel();
    if (!connect) {
        if (selection)
            selection->disconnect(this);
        _recordModel->disconnect(this);
        return;
    }
    QObject::connect(selection, &QItemSelectionModel::selectionChanged, this,
                     &RecordWidget::enableButtons);
    QObject::connect(_recordModel, &QAbstractItemModel::modelReset, this,
                     &RecordWidget::enableButtons);
    QObject::connect(_recordModel, &QAbstractItemModel::rowsInserted, this,
                     &RecordWidget::enableButtons);
    QObject::connect(_recordModel, &QAbstractItemModel::rowsRemoved, this,
                     &RecordWidget::enableButtons);
    QObject::connect(_recordModel, &QAbstractItemModel::dataChanged, this,
                     &RecordWidget::dataChanged);
    QObject::connect(_recordModel, &QAbstractItemModel::rowsRemoved, this,
                     &RecordWidget::dataChanged);
}

RecordModel *RecordWidget::recordModel() const
{
    return _recordModel;
}

void RecordWidget::setEditEnabled(bool enabled)
{
    if (enabled == _editEnabled)
        return;
    _editEnabled = enabled;
    for (QWidget *button : {_ui->_clearPushButton, _ui->_importPushButton, _ui->_removePushButton,
                            _ui->_addPushButton, _ui->_copyPushButton})
        button->setEnabled(enabled);
    if (_recordModel)
        _recordModel->setEnabled(enabled);
    enableButtons();
}

bool RecordWidget::isEditEnabled() const
{
    return _editEnabled;
}

void RecordWidget::setSettingsKey(const QString &key)
{
    if (key.isEmpty() || key == _settingsKey)
        return;
    _settingsKey = key;
    loadSettings();
}

QString RecordWidget::settingsKey() const
{
    return _settingsKey;
}

void RecordWidget::showCopyButton(bool show)
{
    _showCopy = show;
}

void RecordWidget::setCopyFormat(const QStringList &copyFormat)
{
    _copyFormat = copyFormat;
}

void RecordWidget::setItemDelegateForColumn(int column, QAbstractItemDelegate *delegate)
{
    _ui->_tableView->setItemDelegateForColumn(column, delegate);
    if (delegate)
        delegate->setParent(_ui->_tableView);
}

void RecordWidget::loadSettings()
{
    if (_settingsKey.isEmpty())
        return;
    const QVariant state = QSettings().value(_settingsKey);
    if (state.isValid())
        _ui->_tableView->horizontalHeader()->restoreState(state.toByteArray());
}

void RecordWidget::saveSettings() const
{
    if (!_settingsKey.isEmpty())
        QSettings().setValue(_settingsKey, _ui->_tableView->horizontalHeader()->saveState());
}

namespace {

// The first selected row inside the model, or -1.
int selectedRow(const QTableView *view, const QAbstractItemModel *model)
{
    if (!view->selectionModel())
        return -1;
    const QModelIndexList selected = view->selectionModel()->selectedIndexes();
    for (const QModelIndex &index : selected)
        if (index.isValid() && index.row() < model->rowCount())
            return index.row();
    return -1;
}

} // namespace

void RecordWidget::insertRow()
{
    if (!_recordModel)
        return;
    _recordModel->insertRows(selectedRow(_ui->_tableView, _recordModel) + 1, 1);
}

void RecordWidget::removeRow()
{
    if (!_recordModel)
        return;
    const int row = selectedRow(_ui->_tableView, _recordModel);
    if (row >= 0)
        _recordModel->removeRows(row, 1);
}

void RecordWidget::clearRows()
{
    if (_recordModel)
        _recordModel->removeRows(0, _recordModel->rowCount());
}

void RecordWidget::enableButtons()
{
    const QItemSelectionModel *selection = _ui->_tableView->selectionModel();
    const bool selected = _recordModel && _editEnabled && selection && selection->hasSelection()
        && !selection->selectedIndexes().isEmpty();
    _ui->_removePushButton->setEnabled(selected);
    _ui->_copyPushButton->setEnabled(selected);
}

void RecordWidget::copyRequest()
{
    const QItemSelectionModel *selection = _ui->_tableView->selectionModel();
    if (!_recordModel || !selection || selection->selectedIndexes().isEmpty())
        return;
    QStringList lines;
    for (const Record *record : _recordModel->getRecordList()) {
        QString line;
        for (int column = 0; column < _recordModel->columnCount(); ++column) {
            const QString value = record->data(column, Qt::DisplayRole).toString();
            if (value.isEmpty())
                continue;
            const QString format = _copyFormat.value(column);
            line += format.isEmpty() ? value : format.arg(value);
        }
        lines << line;
    }
    bool accepted = false;
    const QString chosen
        = QInputDialog::getItem(this, tr("Copy"), tr("Choose rule to copy:"), lines,
                                selection->selectedIndexes().first().row(), false, &accepted);
    if (accepted && !chosen.isEmpty())
        QApplication::clipboard()->setText(chosen);
}
