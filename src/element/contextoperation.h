// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "element/operationtype.h"
#include "ovtcommon_export.h"

#include <QString>

class Element;
class ElementData;
class ElementWidget;
class Module;

/**
 * Something on which operations are performed: an element of a tree or an element widget.
 * Menus, toolbars and tasks ask it what it offers and have it perform one operation without
 * knowing which of the two they speak to.
 */
class OVTCOMMON_EXPORT ContextOperation
{
public:
    enum ContextType { ElementContext = 0, ElementWidgetContext = 1 };

    /** "Undefined": the element type of a context that was given none. */
    static const QString undefinedElementType;
    /** "All": the wildcard element type meaning every type. */
    static const QString allElementType;

    /** @p module must outlive the context; @p isEditable may be null (never editable). */
    ContextOperation(ContextType contextType, Module &module, bool (*isEditable)(const Module &));
    virtual ~ContextOperation();

    /** The operations offered here, an OR of OperationType bits; none in the base. */
    virtual OperationType availableOperations() const;
    /** Performs one operation; does nothing in the base. */
    virtual void performOperation(OperationType operation, ElementData *data, int alternative);
    /** The human-readable caption of the context. */
    virtual QString caption() const = 0;

    Module &module() const;
    QString elementType() const;
    ContextType contextType() const;
    /** The module's answer through the callback, asked afresh each time; false without one. */
    bool isEditable() const;
    Element *elementContext();
    ElementWidget *elementWidgetContext();

protected:
    Module &_module; // not owned, must outlive this context
    bool (*_isEditable)(const Module &);
    QString _elementType;
    ContextType _contextType;
};
