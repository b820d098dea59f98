// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "elementwidget.h"

#include "element/element.h"
#include "element/elementmodel.h"
#include "widgets/listelementwidget.h"

#include <QShowEvent>

ElementWidget::ElementWidget(Module &module, bool (*isEditable)(const Module &), QWidget *parent)
    : QWidget(parent)
    , ContextOperation(ElementWidgetContext, module, isEditable)
    , _supplementElementWidgetType(undefinedElementType)
    , _priority(500)
    , _element(nullptr)
    , _role(NoneRole)
{ }

ElementWidget::~ElementWidget() = default;

OperationType ElementWidget::availableOperations() const
{
    return NoOperation;
}

void ElementWidget::performOperation(OperationType, ElementData *, int) { }

void ElementWidget::setAlternativeExpected(int) { }

void ElementWidget::setElement(Element *element, ElementWidgetRole role)
{
    if (element != _element) {
        if (_element)
            disconnect(_element, &QObject::destroyed, this, nullptr);
        // A task may delete the element shown (DeleteTask does); the widget must not keep
        // a pointer to it, nor a list widget's model a root that is gone.
        if (element)
            connect(element, &QObject::destroyed, this, [this](QObject *gone) {
                if (static_cast<QObject *>(_element) != gone)
                    return;
                _element = nullptr;
                if (auto *list = qobject_cast<ListElementWidget *>(this))
                    list->elementModel()->setRootNode(nullptr);
            });
    }
    _element = element;
    _role = role;
}

void ElementWidget::read() { }

QString ElementWidget::caption() const
{
    return _element ? _element->caption() : QString();
}

Element *ElementWidget::element() const
{
    return _element;
}

ElementWidgetRole ElementWidget::role() const
{
    return _role;
}

QString ElementWidget::supplementElementWidgetType() const
{
    return _supplementElementWidgetType;
}

bool ElementWidget::priorityLessThen(const ElementWidget *a, const ElementWidget *b)
{
    return a->_priority < b->_priority;
}

void ElementWidget::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    // A spontaneous show (the window system un-minimising) must not start a read task.
    if (!event->spontaneous())
        read();
}
