// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "elementwidgetcontainer2.h"

#include "element/element.h"
#include "plugin/module.h"
#include "widgets/elementwidget.h"
#include "widgets/vieweditelementwidget.h"

#include <QMessageBox>
#include <QTabWidget>
#include <QVBoxLayout>

#include <algorithm>

ElementWidgetContainer2::ElementWidgetContainer2(QWidget *parent)
    : QWidget(parent)
    , _tabWidget(new QTabWidget(this))
    , _role(NoneRole)
{
    setAccessibleName(tr("Element"));
    _tabWidget->setObjectName(QStringLiteral("_elementWidgetTabWidget"));
    _tabWidget->setAccessibleName(tr("Element views"));
    _tabWidget->setDocumentMode(true);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(_tabWidget);
}

ElementWidgetContainer2::~ElementWidgetContainer2()
{
    _tabWidget->hide();
    releaseWidgets();
}

Element *ElementWidgetContainer2::element() const
{
    return _element;
}

ElementWidgetRole ElementWidgetContainer2::role() const
{
    return _role;
}

QList<ElementWidget *> ElementWidgetContainer2::elementWidgets() const
{
    QList<ElementWidget *> widgets;
    for (int i = 0; i < _tabWidget->count(); ++i) {
        if (auto *widget = qobject_cast<ElementWidget *>(_tabWidget->widget(i)))
            widgets << widget;
    }
    return widgets;
}

ElementWidget *ElementWidgetContainer2::currentElementWidget() const
{
    return qobject_cast<ElementWidget *>(_tabWidget->currentWidget());
}

QTabWidget *ElementWidgetContainer2::tabWidget() const
{
    return _tabWidget;
}

bool ElementWidgetContainer2::hasUnsavedChanges() const
{
    const QList<ElementWidget *> widgets = elementWidgets();
    return std::any_of(widgets.cbegin(), widgets.cend(), [](ElementWidget *widget) {
        auto *form = qobject_cast<ViewEditElementWidget *>(widget);
        return form && form->isChanged();
    });
}

bool ElementWidgetContainer2::setElement(Element *element, ElementWidgetRole role)
{
    if (element == _element && role == _role && (element || _tabWidget->count() == 0))
        return true;
    if (hasUnsavedChanges()
        && QMessageBox::question(this, tr("Unsaved changes"),
                                 tr("Changes not saved!\nContinue without saving?"),
                                 QMessageBox::Yes | QMessageBox::No, QMessageBox::No)
            != QMessageBox::Yes)
        return false;

    // Hidden while the tabs change: removing one shows the next, which would read in vain.
    const bool visible = !_tabWidget->isHidden();
    _tabWidget->hide();
    releaseWidgets();
    if (_element)
        disconnect(_element, &QObject::destroyed, this, nullptr);
    _element = element;
    _role = element ? role : NoneRole;
    if (element) {
        connect(element, &QObject::destroyed, this, [this] {
            const bool visible = !_tabWidget->isHidden();
            _tabWidget->hide();
            releaseWidgets();
            _tabWidget->setVisible(visible);
            _role = NoneRole;
            emit elementChanged(nullptr);
        });
        ElementWidget *own = element->elementWidget(role);
        struct Supplement
        {
            ElementWidget *widget;
            Element *element;
            QString title;
        };
        QList<Supplement> supplements;
        if (own) {
            const QString type = own->supplementElementWidgetType();
            ElementWidget *beside = element->module().elementWidget(type);
            if (beside && beside != own)
                supplements.append({beside, element, beside->windowTitle()});
        }
        // A supplement child is shown in a tab of its own, not as a node of its own.
        for (TreeNode *node : element->childNodes()) {
            auto *child = qobject_cast<Element *>(node);
            if (!child || !(child->treeNodeSpecialFlags() & 0x1))
                continue;
            ElementWidget *widget = child->elementWidget(ViewEditRole);
            if (widget && widget != own)
                supplements.append({widget, child, child->title()});
        }
        std::stable_sort(supplements.begin(), supplements.end(),
                         [](const Supplement &a, const Supplement &b) {
                             return ElementWidget::priorityLessThen(a.widget, b.widget);
                         });
        if (own)
            addWidget(own, element, role, element->title());
        for (const Supplement &supplement : qAsConst(supplements)) {
            // One widget cannot sit in two tabs; the first claim keeps it.
            if (!elementWidgets().contains(supplement.widget))
                addWidget(supplement.widget, supplement.element, ViewEditRole, supplement.title);
        }
    }
    _tabWidget->setVisible(visible);
    emit elementChanged(element);
    return true;
}

bool ElementWidgetContainer2::clear()
{
    return setElement(nullptr, NoneRole);
}

void ElementWidgetContainer2::addWidget(ElementWidget *widget, Element *element,
                                        ElementWidgetRole role, const QString &title)
{
    widget->setElement(element, role);
    if (auto *form = qobject_cast<ViewEditElementWidget *>(widget))
        connect(form, &ViewEditElementWidget::contentChanged, this,
                &ElementWidgetContainer2::contentChanged);
    _widgets << widget;
    const int tab = _tabWidget->addTab(widget, title.isEmpty() ? element->title() : title);
    _tabWidget->setTabToolTip(tab, element->caption());
}

void ElementWidgetContainer2::releaseWidgets()
{
    const QList<QPointer<ElementWidget>> widgets = _widgets;
    _widgets.clear();
    for (const QPointer<ElementWidget> &widget : widgets) {
        if (!widget)
            continue;
        disconnect(widget, nullptr, this, nullptr);
        _tabWidget->removeTab(_tabWidget->indexOf(widget));
        widget->setParent(nullptr);
    }
}
