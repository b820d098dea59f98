// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "element/contextoperation.h"
#include "element/elementwidgetrole.h"
#include "treenode/treenode.h"

#include <QIcon>
#include <QList>
#include <QStringList>

class QAction;
class ElementData;
class ElementWidget;
class Module;

/**
 * One administered object (a user, a service, a rule, a group of them) shown as a node of its
 * module's element tree, and a context on which operations are performed. An element does no
 * work itself: operations go to its module.
 *
 * The element owns its ElementData. It learns that it entered or left a tree only through its
 * module, which receives InsertedOperation and RemovedOperation.
 */
class OVTCOMMON_EXPORT Element : public TreeNode, public ContextOperation
{
    Q_OBJECT

public:
    enum ElementRoles {
        TitleRole = Qt::UserRole + 4,
        ElementTypeRole = Qt::UserRole + 5,
        GroupElementTypeRole = Qt::UserRole + 6
    };

    /** The module becomes the QObject parent and must outlive the element. */
    Element(Module &module, bool (*isEditable)(const Module &));
    /** Takes the element out of its tree, then deletes its data record. */
    ~Element() override;

    using TreeNode::insert;
    /** Inserts, then tells each inserted element's module (InsertedOperation). */
    void insert(int pos, const QList<TreeNode *> &nodes) override;
    /** Removes, then tells each removed element's module (RemovedOperation). */
    void removeAt(int pos, int count) override;
    int columnCount() const override;
    QVariant data(int column, int role) const override;
    /** True while the children are still to be read and ReadContentOperation is offered. */
    bool canFetchMore() const override;
    /** Clears the pending-load flag, then performs ReadContentOperation. */
    void fetchMore() override;

    /** The module's widget for this element type; null in CreateRole for a persistent element. */
    virtual ElementWidget *elementWidget(ElementWidgetRole role);
    virtual int displayChildrenVariant() const;
    /** The names of alternative displays of the children; none here. */
    virtual QStringList displayChildrenVariants() const;
    /** The question asked before deleting the element. */
    virtual QString questionForRemove() const;

    /** The first group element type set on this element or an element ancestor. */
    QString groupElementType() const;
    /** True for a fixed node of a predefined tree (expected depth set). */
    bool isPersistent() const;
    /**
     * The element's property record, owned by the element. Null for a plain element that
     * never set one (login and service elements create theirs; container, ordinary and
     * supplement elements do not): check before dereferencing.
     */
    ElementData *elementData() const;
    /** Only stores @p elementData (now owned); the caller deletes the previous record. */
    void setElementData(ElementData *elementData);
    QList<QAction *> elementActions() const;
    QString title() const;
    /** Ignored for a persistent element; else sets the title and the id, emits nodeDataChanged. */
    void setTitle(const QString &title);

    /** One shared empty icon. */
    static QIcon defaultIcon();
    /** "Do you really want to remove this element?", translated once. */
    static QString defaultQuestionForRemove();

protected:
    QString _groupElementType;
    ElementData *_elementData; // owned
    bool _requireLoad;
    QString _title;
    int _displayChildrenVariant;
};
