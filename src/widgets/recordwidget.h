// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "ovtcommon_export.h"

#include <QStringList>
#include <QWidget>

class QAbstractItemDelegate;
class RecordModel;

namespace Ui {
class RecordWidget;
}

/**
 * A table of records with buttons to add, remove, clear, import and copy rows.
 *
 * The widget owns the RecordModel given to it and deletes the previous one. The editing
 * buttons show only for a model that can create records; the copy button also needs
 * showCopyButton(true) before the model is set. Edits and removals emit dataChanged();
 * the import button emits importData() for the plug-in to answer. With a settings key the
 * horizontal header's state is restored on setSettingsKey() and saved on destruction.
 */
class OVTCOMMON_EXPORT RecordWidget : public QWidget
{
    Q_OBJECT

public:
    explicit RecordWidget(QWidget *parent = nullptr);
    /** Saves the header state. */
    ~RecordWidget() override;

    /** Takes ownership of @p model; null or the current model is ignored. */
    void setRecordModel(RecordModel *model);
    RecordModel *recordModel() const;
    /** Enables or disables all buttons and the model's cells together. */
    void setEditEnabled(bool enabled);
    bool isEditEnabled() const;
    void setSettingsKey(const QString &key);
    QString settingsKey() const;
    /** Takes effect at the next setRecordModel(). */
    void showCopyButton(bool show);
    /**
     * One format per column for copyRequest(): a non-empty entry receives the cell's text as
     * its %1, so it can carry key names and separators; other cells are copied as they are.
     */
    void setCopyFormat(const QStringList &copyFormat);
    /** The table view becomes the parent of a non-null @p delegate. */
    void setItemDelegateForColumn(int column, QAbstractItemDelegate *delegate);

    void loadSettings();
    void saveSettings() const;

Q_SIGNALS:
    void dataChanged();
    void importData();

public Q_SLOTS:
    /** Inserts a row after the selected one, or at the top without a selection. */
    void insertRow();
    void removeRow();
    void clearRows();
    void enableButtons();
    /** Lets the user choose one row as formatted text and puts it on the clipboard. */
    void copyRequest();

private:
    void connectModel(bool connect);

    Ui::RecordWidget *_ui;
    bool _editEnabled;
    RecordModel *_recordModel; // owned (child of the widget)
    QString _settingsKey;
    bool _showCopy;
    QStringList _copyFormat;
};
