// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "ovtcommon_export.h"
#include "widgets/miscmodel.h"

#include <QSet>

/**
 * A MiscModel with a check box on every row that remembers what the user changed relative to
 * the list as it was loaded: dataToAdd() holds the items checked now and not at loading,
 * dataToRemove() those unchecked now and checked at loading. Loading a list or clearing
 * resets the model and makes the loaded state the new reference.
 */
class OVTCOMMON_EXPORT CheckMiscModel : public MiscModel
{
    Q_OBJECT

public:
    explicit CheckMiscModel(QObject *parent = nullptr);

    /** Also the check state (Qt::Checked or Qt::Unchecked) of every row. */
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    /**
     * The user's check: only Qt::CheckStateRole in column 0; Qt::Checked checks, any other
     * value unchecks. Setting the state a row already has returns false and emits nothing.
     */
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;
    using MiscModel::data;

    /** Loads @p list with every row unchecked. */
    void setData(QList<QString> list) override;
    /** Loads @p list; a row is checked exactly when its string is in @p checked. */
    void setDataChecked(QList<QString> list, QSet<QString> checked);
    /** Loads @p list; a row is checked exactly when its string is not in @p unchecked. */
    void setDataUnchecked(QList<QString> list, QSet<QString> unchecked);
    void clear() override;

    QSet<QString> checkedData() const;
    QSet<QString> uncheckedData() const;
    QSet<QString> dataToAdd() const;
    QSet<QString> dataToRemove() const;

protected:
    /** Toggles the row and updates the change sets; false when the check is refused. */
    bool changeCheck(const QModelIndex &index, const QVariant &value, int role);
    bool isChecked(int row) const;

    QList<bool> _checks;
    QSet<QString> _dataToAdd;
    QSet<QString> _dataToRemove;

private:
    template<typename Rule> void load(const QList<QString> *list, Rule checked);
};
