// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "ovtcommon_export.h"

#include <QRegularExpression>
#include <QStyledItemDelegate>

/**
 * Edits a text cell of a record table in a line edit. With a pattern set, the editor accepts
 * only text that the pattern matches whole (typing anything else is refused as it is typed),
 * so a plug-in can keep separators and control characters out of its records.
 */
class OVTCOMMON_EXPORT LineEditDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    explicit LineEditDelegate(QObject *parent = nullptr);
    LineEditDelegate(const QRegularExpression &pattern, QObject *parent = nullptr);

    QRegularExpression pattern() const;
    /** An empty pattern accepts everything. */
    void setPattern(const QRegularExpression &pattern);

    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                          const QModelIndex &index) const override;
    /** Writes the text only when the pattern matches it whole; a partial entry is dropped. */
    void setModelData(QWidget *editor, QAbstractItemModel *model,
                      const QModelIndex &index) const override;

private:
    QRegularExpression _pattern;
};
