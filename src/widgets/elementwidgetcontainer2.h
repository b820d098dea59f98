// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "element/elementwidgetrole.h"
#include "ovtcommon_export.h"

#include <QList>
#include <QPointer>
#include <QWidget>

class Element;
class ElementWidget;
class QTabWidget;

/**
 * A tabbed panel that shows the element widget of the current element and, beside it, its
 * supplementary widgets.
 *
 * The first tab is the element's own widget (Element::elementWidget(role)), titled with the
 * element's title. Then, ordered by ElementWidget::priorityLessThen (equal priorities keep
 * this order): the widget the element's widget names by supplementElementWidgetType(), bound
 * to the same element and titled with its window title; and the widgets of the element's
 * supplement children (special flag 0x1), each bound to its child in ViewEditRole and titled
 * with the child's title. Elements without a widget get no tab.
 *
 * The widgets stay owned by their modules: the container only borrows them, and gives them
 * back (without a parent, hidden) when it shows another element or is destroyed. A widget
 * destroyed while shown simply loses its tab. Each widget reads when its tab is first shown.
 *
 * contentChanged() relays the contentChanged() of every ViewEditElementWidget shown. Before
 * switching away from a form with unsaved changes the container asks the user; answering No
 * keeps the element, the widgets and the edits.
 */
class OVTCOMMON_EXPORT ElementWidgetContainer2 : public QWidget
{
    Q_OBJECT

public:
    explicit ElementWidgetContainer2(QWidget *parent = nullptr);
    /** Gives the borrowed widgets back to their modules. */
    ~ElementWidgetContainer2() override;

    /** The element shown, or null; null again once the element is destroyed. */
    Element *element() const;
    ElementWidgetRole role() const;
    /** The widgets shown, in tab order. */
    QList<ElementWidget *> elementWidgets() const;
    /** The widget of the current tab, or null. */
    ElementWidget *currentElementWidget() const;
    /** The tab widget, for styling and for tests. */
    QTabWidget *tabWidget() const;
    /** Whether a form shown holds changes not applied yet. */
    bool hasUnsavedChanges() const;

public Q_SLOTS:
    /**
     * Shows @p element (null: nothing) in @p role. Returns false, changing nothing, when a
     * form shown holds unsaved changes and the user chooses to stay; true otherwise (also when
     * the element and role are the ones shown, which changes nothing).
     */
    bool setElement(Element *element, ElementWidgetRole role = ViewEditRole);
    /** Shows nothing, asking first as setElement() does. */
    bool clear();

Q_SIGNALS:
    /** A form shown reported its state: 0 unchanged, 2 changed and invalid, 3 changed and valid. */
    void contentChanged(int state);
    /** Another element (or none) is shown now. */
    void elementChanged(Element *element);

private:
    void releaseWidgets();
    void addWidget(ElementWidget *widget, Element *element, ElementWidgetRole role,
                   const QString &title);

    QTabWidget *_tabWidget;
    QPointer<Element> _element;
    ElementWidgetRole _role;
    QList<QPointer<ElementWidget>> _widgets;
};
