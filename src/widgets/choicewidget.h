// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "ovtcommon_export.h"

#include <QSet>
#include <QString>
#include <QWidget>

class ChoiceFilterTreeNodeSortFilterProxyModel;
class ChoiceTreeNodeProxyModel;
class QAbstractItemModel;
class QLineEdit;
class QTreeView;

namespace Ui {
class ChoiceWidget;
}

/**
 * Lets the user tick several names of a node tree.
 *
 * The names are the display texts of the name column of a node-tree model (a TreeNodeModel or
 * a proxy over one). A ChoiceTreeNodeProxyModel keeps the ticks over it; two
 * ChoiceFilterTreeNodeSortFilterProxyModel views show the names not ticked ("_uncheckedTreeView")
 * and the names ticked ("_checkedTreeView"), each as an expanded tree of check boxes without
 * supplement nodes; an ancestor in the other state stays in a view as the context of its
 * descendants. Ticking a name (click on its box or Space) moves it from one view to the other.
 * The filter line ("_filterLineEdit") narrows both views to the rows whose text holds the
 * typed text, case insensitive, with their ancestors.
 *
 * Blocked names are shown disabled, in the view their nearest unblocked ancestor puts them,
 * and cannot be ticked. The names the user ticked and unticked since the last
 * setCheckedNames() are handed back by addNames() and removeNames(), so the caller applies
 * only the difference.
 */
class OVTCOMMON_EXPORT ChoiceWidget : public QWidget
{
    Q_OBJECT

public:
    /** The role the choice model reads and writes the tick under (a bool). */
    static constexpr int ChoiceRole = Qt::UserRole + 64;
    /** The role the choice model reports the same state under, read only. */
    static constexpr int BlockRole = Qt::UserRole + 65;

    /** Names are read from column 0. */
    explicit ChoiceWidget(QWidget *parent = nullptr);
    /** Names are read from column @p nameColumn of the source model. */
    explicit ChoiceWidget(int nameColumn, QWidget *parent = nullptr);
    ~ChoiceWidget() override;

    /**
     * Shows the names of @p model, which must implement TreeNodeModelExtension (else no name
     * can be ticked) and is not owned; the ticks are kept.
     */
    void setSourceModel(QAbstractItemModel *model);
    QAbstractItemModel *sourceModel() const;

    /** The model of the ticks, owned by the widget. */
    ChoiceTreeNodeProxyModel *choiceModel() const;
    /** The proxy of the "_checkedTreeView" (true) or the "_uncheckedTreeView" (false). */
    ChoiceFilterTreeNodeSortFilterProxyModel *filterModel(bool checked) const;
    QTreeView *checkedTreeView() const;
    QTreeView *uncheckedTreeView() const;
    QLineEdit *filterLineEdit() const;

    /** Ticks exactly @p names and forgets the difference: a new starting point. */
    void setCheckedNames(const QSet<QString> &names);
    /** Makes @p names unchangeable; the difference is kept. */
    void setBlockedNames(const QSet<QString> &names);
    QSet<QString> checkedNames() const;
    QSet<QString> blockedNames() const;
    /** Names ticked since the last setCheckedNames() that were not ticked then. */
    QSet<QString> addNames() const;
    /** Names unticked since the last setCheckedNames() that were ticked then. */
    QSet<QString> removeNames() const;

Q_SIGNALS:
    /** The ticks changed, by the user or by a setter. */
    void stateChanged();

private:
    void changeFilter(const QString &text);
    void expand();

    Ui::ChoiceWidget *_ui;
    ChoiceTreeNodeProxyModel *_choiceModel;
    ChoiceFilterTreeNodeSortFilterProxyModel *_checkedModel;
    ChoiceFilterTreeNodeSortFilterProxyModel *_uncheckedModel;
};
