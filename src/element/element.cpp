// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "element.h"

#include "element/elementdata.h"
#include "element/elementtreenotify_p.h"
#include "plugin/module.h"
#include "treenode/treenode_p.h"

#include <QSet>

namespace {

// Elements whose destructor is running. Their subclass part is already gone, so caption() may
// not be called; yet views read the row while it is being taken out of the tree.
// Never destroyed: elements that outlive main() (held by a static, or by a plug-in unloaded at
// exit) still pass through here after the function statics are gone.
QSet<const Element *> &dyingElements()
{
    static auto *elements = new QSet<const Element *>;
    return *elements;
}

} // namespace

Element::Element(Module &module, bool (*isEditable)(const Module &))
    : TreeNode(&module)
    , ContextOperation(ElementContext, module, isEditable)
    , _groupElementType(undefinedElementType)
    , _elementData(nullptr)
    , _requireLoad(false)
    , _displayChildrenVariant(0)
{ }

Element::~Element()
{
    // Out of the tree first, so that nobody reaches the record while it is being deleted.
    dyingElements().insert(this);
    {
        OvtCommonPrivate::DyingNodeScope dying(this);
        TreeNode::reset();
    }
    dyingElements().remove(this);
    delete _elementData;
}

void Element::insert(int pos, const QList<TreeNode *> &nodes)
{
    ElementTreeNotify::insert(
        this, pos, nodes, [this](int p, const QList<TreeNode *> &n) { TreeNode::insert(p, n); });
}

void Element::removeAt(int pos, int count)
{
    ElementTreeNotify::removeAt(this, pos, count,
                                [this](int p, int c) { TreeNode::removeAt(p, c); });
}

int Element::columnCount() const
{
    return 1;
}

QVariant Element::data(int column, int role) const
{
    switch (role) {
    case TitleRole:
        return _title;
    case ElementTypeRole:
        return _elementType;
    case GroupElementTypeRole:
        return _groupElementType;
    default:
        break;
    }
    if (column == 0) {
        switch (role) {
        case Qt::DisplayRole:
            return _title;
        case Qt::DecorationRole:
            return defaultIcon();
        case Qt::ToolTipRole:
            return dyingElements().contains(this) ? _title : caption();
        default:
            break;
        }
    }
    return TreeNode::data(column, role);
}

bool Element::canFetchMore() const
{
    return _requireLoad && (availableOperations() & ReadContentOperation);
}

void Element::fetchMore()
{
    if (!canFetchMore())
        return;
    // Cleared before the read starts, so a view asking again meanwhile starts no second read.
    _requireLoad = false;
    performOperation(ReadContentOperation, nullptr, 0);
}

ElementWidget *Element::elementWidget(ElementWidgetRole role)
{
    if (role == CreateRole && isPersistent())
        return nullptr;
    return module().elementWidget(elementType());
}

int Element::displayChildrenVariant() const
{
    return _displayChildrenVariant;
}

QStringList Element::displayChildrenVariants() const
{
    return QStringList();
}

QString Element::questionForRemove() const
{
    return defaultQuestionForRemove();
}

QString Element::groupElementType() const
{
    const Element *element = this;
    while (element->_groupElementType == undefinedElementType) {
        auto *parent = qobject_cast<const Element *>(element->parentNode());
        if (!parent)
            break;
        element = parent;
    }
    return element->_groupElementType;
}

bool Element::isPersistent() const
{
    return expectedDepth() != -1;
}

ElementData *Element::elementData() const
{
    return _elementData;
}

void Element::setElementData(ElementData *elementData)
{
    _elementData = elementData;
}

QList<QAction *> Element::elementActions() const
{
    return module().elementActions(elementType());
}

QString Element::title() const
{
    return _title;
}

void Element::setTitle(const QString &title)
{
    // Fixed nodes of a predefined tree are found by their id, so it must never change.
    if (isPersistent())
        return;
    _title = title;
    setId(QStringLiteral("%1_%2").arg(_elementType, title));
    emit nodeDataChanged(this);
}

QIcon Element::defaultIcon()
{
    static const QIcon icon;
    return icon;
}

QString Element::defaultQuestionForRemove()
{
    static const QString question = tr("Do you really want to remove this element?");
    return question;
}
