// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "vieweditelementwidget.h"

#include "element/changedisplayelementdata.h"
#include "element/element.h"
#include "plugin/module.h"

#include <QMessageBox>

ViewEditElementWidget::ViewEditElementWidget(Module &module, bool (*isEditable)(const Module &),
                                             QWidget *parent)
    : ElementWidget(module, isEditable, parent)
    , _changed(false)
    , _editBlocked(false)
{ }

ViewEditElementWidget::~ViewEditElementWidget() = default;

OperationType ViewEditElementWidget::availableOperations() const
{
    return CreateOperation;
}

void ViewEditElementWidget::performOperation(OperationType operation, ElementData *, int)
{
    if (operation == CreateOperation)
        module().performOperation(this, CreateOperation, exportElementData(), 0);
}

void ViewEditElementWidget::setElement(Element *element, ElementWidgetRole role)
{
    if (element == _element && role == _role)
        return;
    ElementWidget::setElement(element, role);
    reset();
    if (role == CreateRole) {
        blockEditWidget(false);
        // A new element starts as an edit that is not valid yet.
        emit contentChanged(2);
    }
}

void ViewEditElementWidget::read()
{
    if (_role != ViewEditRole || !_element)
        return;
    if (_element->availableOperations() & ReadOperation)
        _element->performOperation(ReadOperation, nullptr, 0);
}

void ViewEditElementWidget::afterSuccessfulUpdate() { }

ElementData *ViewEditElementWidget::exportElementData() const
{
    return nullptr;
}

void ViewEditElementWidget::afterSuccessfulRead(Element *element, ElementData *)
{
    blockEditWidget(false);
    // A read that comes back after the form moved on must not clear the new element's edits.
    if (element == _element && _role == ViewEditRole) {
        setUnchanged();
        emit elementContextOperationChanged(_element);
    }
}

void ViewEditElementWidget::afterSuccessfulImport(ElementData *)
{
    changeContent();
}

void ViewEditElementWidget::afterSuccessfulUpdate() const
{
    // Widgets are never const objects; the const only tells this slot from its twin.
    const_cast<ViewEditElementWidget *>(this)->afterSuccessfulUpdate();
}

void ViewEditElementWidget::applyContentChanges()
{
    if (!_element) {
        if (availableOperations() & CreateOperation)
            performOperation(CreateOperation, nullptr, 0);
        return;
    }
    if (_element->availableOperations() & UpdateOperation)
        _element->performOperation(UpdateOperation, exportElementData(), 0);
}

bool ViewEditElementWidget::isContentValid() const
{
    return true;
}

void ViewEditElementWidget::reset()
{
    _changed = false;
    blockEditWidget(true);
}

bool ViewEditElementWidget::isContentValid()
{
    return qAsConst(*this).isContentValid();
}

void ViewEditElementWidget::blockEditWidget(bool block)
{
    if (block) {
        setEnabled(false);
        _editBlocked = true;
        return;
    }
    switch (_role) {
    case CreateRole:
        setEnabled(true);
        _editBlocked = false;
        break;
    case ViewEditRole:
        // A read-only module shows its data but never lets it be edited.
        _editBlocked = !isEditable();
        setEnabled(!_editBlocked);
        break;
    default:
        _editBlocked = false;
        break;
    }
}

void ViewEditElementWidget::setUnchanged()
{
    if (!_changed && _role != CreateRole)
        return;
    _changed = false;
    emit contentChanged(0);
}

bool ViewEditElementWidget::isChanged() const
{
    return _changed;
}

void ViewEditElementWidget::setTreeNodeCurrent(TreeNode *node)
{
    auto *element = qobject_cast<Element *>(node);
    if (!element)
        return;
    const bool hasVariants = !element->displayChildrenVariants().isEmpty();
    if (hasVariants && !(element->availableOperations() & ChangeDisplayOperation)) {
        noSetTreeNodeCurrent();
        return;
    }
    if (_changed
        && QMessageBox::question(this, tr("Element activation"),
                                 tr("Changes not saved!\nContinue without saving?"),
                                 QMessageBox::Yes | QMessageBox::No, QMessageBox::No)
            != QMessageBox::Yes)
        return;
    if (_role == CreateRole)
        setUnchanged();
    // The record goes to the receiver for good: a module that makes a task of it hands it to
    // the task, which deletes it.
    if (hasVariants)
        element->performOperation(ChangeDisplayOperation, new ChangeDisplayElementData(0), 0);
    element->emitSetCurrentNode();
}

void ViewEditElementWidget::noSetTreeNodeCurrent()
{
    QMessageBox::warning(this, tr("Element activation"),
                         tr("Activation of this element not supported!"), QMessageBox::Ok);
}

void ViewEditElementWidget::beforeCreation() { }

void ViewEditElementWidget::linkExternalElements() { }

void ViewEditElementWidget::changeContent()
{
    _changed = true;
    emit contentChanged(isContentValid() ? 3 : 2);
}
