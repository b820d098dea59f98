// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "ovtcommon_export.h"
#include "widgets/checkmiscmodel.h"

/**
 * A CheckMiscModel of configuration modes with a description per row (under Qt::UserRole) and
 * pairs of modes that exclude each other. A row that conflicts with a checked row is greyed
 * out, shows no check state and cannot be checked.
 *
 * A forbidden pair of rows (i, j), i < j, is encoded as i * n + j for the n rows loaded, so
 * the encoding must be made for the list that is loaded.
 */
class OVTCOMMON_EXPORT ConfigureCheckModel : public CheckMiscModel
{
    Q_OBJECT

public:
    explicit ConfigureCheckModel(QObject *parent = nullptr);

    /** No model signal. */
    void setDescriptions(const QStringList &descriptions);
    QStringList descriptions() const;
    /** Resets the model around a changed set. */
    void setInCmpatibleModes(const QSet<int> &modes);
    QSet<int> inCmpatibleModes() const;
    /** Whether rows @p a and @p b may be checked together; false for a row out of range. */
    bool checkCompatible(int a, int b) const;

    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    /**
     * As CheckMiscModel, but announces every row (one check can lock or free any other). A row
     * that conflicts with a checked one is locked through its flags, so views cannot check it;
     * code that sets its state directly is not refused.
     */
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;
    using CheckMiscModel::data;
    using CheckMiscModel::setData;

private:
    bool conflictsWithChecked(int row) const;

    QSet<int> _inCmpatibleModes;
    QStringList _descriptions;
};
