// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "widgets/abstractchoicedialog.h"

class FilterTreeNodeSortFilterProxyModel;
class QLineEdit;
class QModelIndex;
class QTreeView;

/**
 * Chooses exactly one name of a node tree.
 *
 * The names are shown as a tree ("_choiceTreeView", supplement nodes hidden) under a filter
 * line ("_filterLineEdit": rows whose text holds the typed text, case insensitive, with their
 * ancestors). Selecting a row, by click or keyboard, chooses its name and gives up the
 * one chosen before; double clicking a row chooses it and accepts. Blocked names are shown
 * disabled and cannot be chosen. OK stays disabled until exactly one name is chosen.
 *
 * The choice is kept as the one ticked name of choiceModel(), so after OK addNames() holds the
 * new name and removeNames() the one it replaces (both empty when the user kept the name).
 */
class OVTCOMMON_EXPORT SingleChoiceDialog : public AbstractChoiceDialog
{
    Q_OBJECT

public:
    /** Names are read from column 0. */
    explicit SingleChoiceDialog(QWidget *parent = nullptr);
    /** Names are read from column @p nameColumn of the source model. */
    explicit SingleChoiceDialog(int nameColumn, QWidget *parent = nullptr);

    ChoiceTreeNodeProxyModel *choiceModel() const override;
    /** The proxy the view shows, over choiceModel(). */
    FilterTreeNodeSortFilterProxyModel *filterModel() const;
    QTreeView *choiceTreeView() const;
    QLineEdit *filterLineEdit() const;

    void setSourceModel(QAbstractItemModel *model) override;
    /**
     * Takes the names of @p names that the source model holds as the starting point (names it
     * does not hold could never be given up); with more than one, the user's choice gives up
     * all of them.
     */
    void setCheckedNames(const QSet<QString> &names) override;
    /** The chosen name; empty unless exactly one name is chosen. */
    QString chosenName() const;
    /** Starts with @p name chosen (nothing for an empty name). */
    void setChosenName(const QString &name);
    /** Whether exactly one name is chosen. */
    bool isAcceptable() const override;

private:
    /** The row of @p name in choiceModel()'s name column, or invalid. */
    QModelIndex indexOfName(const QString &name) const;
    void choose(const QModelIndex &viewIndex);
    void selectChosen();

    ChoiceTreeNodeProxyModel *_choiceModel;
    FilterTreeNodeSortFilterProxyModel *_filterModel;
    QLineEdit *_filterLineEdit;
    QTreeView *_choiceTreeView;
    bool _settling = false; // the proxy is moving rows
};
