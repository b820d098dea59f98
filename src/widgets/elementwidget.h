// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "element/contextoperation.h"
#include "element/elementwidgetrole.h"

#include <QWidget>

class Element;
class ElementData;
class Module;

/**
 * The panel that shows one element of a module's tree, and a context on which operations are
 * performed (context type ElementWidgetContext). Modules register one widget per element type
 * and rebind it with setElement(); every show that the application causes re-reads.
 */
class OVTCOMMON_EXPORT ElementWidget : public QWidget, public ContextOperation
{
    Q_OBJECT

public:
    /** @p module must outlive the widget; @p isEditable may be null (never editable). */
    ElementWidget(Module &module, bool (*isEditable)(const Module &), QWidget *parent = nullptr);
    ~ElementWidget() override;

    Element *element() const;
    ElementWidgetRole role() const;
    QString supplementElementWidgetType() const;
    /** Orders widgets by priority, for sorting. */
    static bool priorityLessThen(const ElementWidget *a, const ElementWidget *b);

public Q_SLOTS:
    /** None in the base. */
    OperationType availableOperations() const override;
    /** Does nothing in the base. */
    void performOperation(OperationType operation, ElementData *data, int alternative) override;
    /** Hook for widgets that stand for more than one kind of element; does nothing here. */
    virtual void setAlternativeExpected(int alternative);
    /**
     * Stores the element shown (not owned) and the role. When that element is destroyed,
     * element() turns null (and a list widget's model loses its root) before anything else can
     * reach it through the widget.
     */
    virtual void setElement(Element *element, ElementWidgetRole role);
    /** Reads what the widget shows; called on every show the application causes. */
    virtual void read();
    /** The element's caption, or empty without an element. */
    QString caption() const override;

Q_SIGNALS:
    void elementContextOperationChanged(Element *element);

protected:
    /** Re-reads on shows that the application causes, not on spontaneous ones. */
    void showEvent(QShowEvent *event) override;

    QString _supplementElementWidgetType;
    int _priority;
    Element *_element; // not owned; null again once the element is destroyed
    ElementWidgetRole _role;
};
