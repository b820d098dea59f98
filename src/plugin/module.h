// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "element/operationtype.h"
#include "treenode/treenode.h"

#include <QList>
#include <QMap>
#include <QPoint>

class QAction;
class ContextOperation;
class Element;
class ElementData;
class ElementWidget;

/**
 * One administrative area offered by a plug-in: a node of the module tree, owner of the
 * element nodes and element widgets of its kind of objects, and keeper of the area's
 * "paranoid" (force reread) preference.
 *
 * Data set on a module is inherited by its sub-modules through getDataHierarchy(). The
 * preference is read in the constructor and written in the destructor under
 * "module/<name>paranoid".
 */
class OVTCOMMON_EXPORT Module : public TreeNode
{
    Q_OBJECT

public:
    /**
     * Sets "name" and "paranoid" and reads the stored preference. The expected place in the
     * module tree (depth, parent id) is left for the subclass to set before loading.
     */
    Module(const QString &name, QObject *parent, bool paranoid);
    /**
     * Saves the settings, then deletes the QObject children and the registered element
     * widgets. A registered widget must therefore not also be a QObject child of the module.
     */
    ~Module() override;

    QVariant data(int column, int role) const override;
    /** Accepts only the check box of column 1 while "paranoid" exists; saves nothing itself. */
    bool setData(int column, const QVariant &value, int role) override;
    Qt::ItemFlags flags(int column) const override;
    bool canFetchMore() const override;
    void fetchMore() override;

    /**
     * Passes the operation, unchanged, to every direct child module in order. Modules of
     * plug-ins override it to start the task that carries the operation out.
     */
    virtual void performOperation(ContextOperation *operation, OperationType type,
                                  ElementData *data, int flags);
    virtual void loadSettings();
    virtual void saveSettings() const;

    ElementData *moduleData() const;
    QList<TreeNode *> &elementNodes();
    /** The widget registered for @p elementType, or null. */
    ElementWidget *elementWidget(const QString &elementType) const;
    /** A copy of the actions offered for @p elementType; empty when there are none. */
    QList<QAction *> elementActions(const QString &elementType) const;
    /** This module's value of @p key; invalid when absent. */
    QVariant getData(const QString &key) const;
    /** The value on this module or on the nearest ancestor module that has @p key. */
    QVariant getDataHierarchy(const QString &key) const;
    /** The first element node whose id is @p id; null when none, or when that node is no Element.
     */
    Element *element(const QString &id) const;

    /**
     * Registers @p widget (now owned) under its element type. Null widgets, widgets of the
     * undefined type and second widgets of a registered type are ignored (and stay the
     * caller's). A registered widget deleted elsewhere is forgotten.
     */
    void insertElementWidget(ElementWidget *widget);
    /** Relays the registered widgets' contentChanged and context-menu requests. */
    void connectElementWidgets();
    /**
     * Empties every container element node so that it is read again when next needed. Nodes
     * that this frees (a container held by another one) are dropped from elementNodes().
     */
    void resetConteinerElement();

    /** @name Permission predicates, handed where a test for a module is wanted */
    ///@{
    static bool defaultTrue(const Module &module);
    static bool defaultFalse(const Module &module);
    /** Effective user root and, in addition, the maximal mandatory integrity level. */
    static bool isAdministrator(const Module &module);
    /** "administrator" up the hierarchy is a bool and true. */
    static bool isAdministratorHierarchy(const Module &module);
    /** "macAdministrator" up the hierarchy is a bool and true. */
    static bool isMacAdministratorHierarchy(const Module &module);
    ///@}

Q_SIGNALS:
    void contentElementWidgetChanged(int state);
    void customContextMenuRequested(const QPoint &pos);

protected:
    ElementData *_moduleData; // owned
    QList<TreeNode *> _elementNodes; // not owned: the nodes are QObject children
    QMap<QString, ElementWidget *> _elementWidgets; // owned
    QMap<QString, QList<QAction *>> _elementActions; // not owned: the subclass's business
};
