// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "ovtcommon_export.h"

#include <QDialog>
#include <QSet>
#include <QString>

class ChoiceTreeNodeProxyModel;
class QAbstractItemModel;
class QDialogButtonBox;
class QLabel;
class QVBoxLayout;

/**
 * The frame of the dialogs that choose names of a node tree: a prompt ("_textLabel", hidden
 * while empty), the content a subclass puts below it, and OK and Cancel ("_buttonBox").
 *
 * The choice lives in the subclass's ChoiceTreeNodeProxyModel (choiceModel()); the accessors
 * here read and set it. OK is enabled while isAcceptable() holds, checked again whenever the
 * choice changes. After OK, addNames() and removeNames() are the difference to apply. Cancel
 * (or Escape, or closing the window) puts back the names ticked at the last
 * setCheckedNames(), so both difference sets are empty after it.
 */
class OVTCOMMON_EXPORT AbstractChoiceDialog : public QDialog
{
    Q_OBJECT

public:
    explicit AbstractChoiceDialog(QWidget *parent = nullptr);
    ~AbstractChoiceDialog() override;

    /** The model of the ticks, owned by the dialog. */
    virtual ChoiceTreeNodeProxyModel *choiceModel() const = 0;
    /**
     * Shows the names of @p model (not owned), which must implement TreeNodeModelExtension for
     * names to be chosen. Set it before the names.
     */
    virtual void setSourceModel(QAbstractItemModel *model);
    /** Ticks exactly @p names and forgets the difference: a new starting point. */
    virtual void setCheckedNames(const QSet<QString> &names);
    /** Makes @p names unchangeable (shown disabled); the difference is kept. */
    void setBlockedNames(const QSet<QString> &names);
    QSet<QString> checkedNames() const;
    QSet<QString> blockedNames() const;
    /** Names ticked since the last setCheckedNames() that were not ticked then. */
    QSet<QString> addNames() const;
    /** Names unticked since the last setCheckedNames() that were ticked then. */
    QSet<QString> removeNames() const;

    /** The prompt above the choice; plain text. */
    void setText(const QString &text);
    QString text() const;
    QDialogButtonBox *buttonBox() const;
    /** Whether the current choice may be accepted; always true here. */
    virtual bool isAcceptable() const;

public Q_SLOTS:
    /** Reverts the user's ticks, then closes the dialog as rejected. */
    void reject() override;

protected:
    /**
     * Puts @p widget between the prompt and the buttons and starts following choiceModel(),
     * which must exist by now: subclasses call this once, from their constructor.
     */
    void setContentWidget(QWidget *widget);
    /** Enables OK as isAcceptable() says. */
    void updateAcceptable();

private:
    QLabel *_textLabel;
    QVBoxLayout *_layout;
    QDialogButtonBox *_buttonBox;
};
