// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "treenodemodel.h"

#include "treenode/treenode.h"
#include "treenode/treenodemodelextension_p.h"

#include <vector>

namespace {

// Filled while the library loads (namespace-scope registrations), read afterwards.
std::vector<const std::type_info *> &plainClasses()
{
    static std::vector<const std::type_info *> classes {&typeid(TreeNodeModel)};
    return classes;
}

} // namespace

OvtCommonPrivate::PlainTreeNodeModelClass::PlainTreeNodeModelClass(const std::type_info &type)
{
    plainClasses().push_back(&type);
}

bool OvtCommonPrivate::isPlainTreeNodeModel(const QAbstractItemModel *model)
{
    if (!model)
        return false;
    const std::type_info &type = typeid(*model);
    for (const std::type_info *plain : plainClasses()) {
        if (*plain == type)
            return true;
    }
    return false;
}

TreeNodeModel::TreeNodeModel(QObject *parent)
    : TreeNodeModel(nullptr, parent)
{ }

TreeNodeModel::TreeNodeModel(TreeNode *rootNode, QObject *parent)
    : QAbstractItemModel(parent)
    , _rootNode(rootNode)
{
    if (_rootNode)
        connectVertexNode(_rootNode);
}

TreeNodeModel::~TreeNodeModel() = default;

TreeNode *TreeNodeModel::rootNode() const
{
    return _rootNode;
}

void TreeNodeModel::setRootNode(TreeNode *rootNode)
{
    if (rootNode == _rootNode)
        return;
    if (_rootNode)
        disconnectVertexNode(_rootNode);
    beginResetModel();
    _rootNode = rootNode;
    _rowHints.clear();
    endResetModel();
    if (_rootNode)
        connectVertexNode(_rootNode);
}

const QList<TreeNode *> &TreeNodeModel::extraRootChildNodes() const
{
    return _extraRootChildNodes;
}

void TreeNodeModel::setExtraRootChildNodes(const QList<TreeNode *> &nodes)
{
    if (&nodes == &_extraRootChildNodes)
        return;
    beginResetModel();
    for (TreeNode *node : qAsConst(_extraRootChildNodes))
        disconnectVertexNode(node);
    _extraRootChildNodes = nodes;
    for (TreeNode *node : qAsConst(_extraRootChildNodes))
        connectVertexNode(node);
    _rowHints.clear();
    endResetModel();
}

void TreeNodeModel::deleteExtraRootChildNodes()
{
    if (_extraRootChildNodes.isEmpty())
        return;
    beginResetModel();
    for (TreeNode *node : qAsConst(_extraRootChildNodes)) {
        disconnectVertexNode(node);
        delete node;
    }
    _extraRootChildNodes.clear();
    _rowHints.clear();
    endResetModel();
}

TreeNode *TreeNodeModel::toTreeNode(const QModelIndex &index) const
{
    if (!_rootNode)
        return nullptr;
    if (index.row() < 0 || index.column() < 0 || !index.model())
        return _rootNode;
    if (index.model() != this)
        return nullptr;
    return OvtCommonPrivate::nodeAtRow(this, static_cast<TreeNode *>(index.internalPointer()),
                                       index.row());
}

QList<TreeNode *> TreeNodeModel::toTreeNode(const QItemSelectionRange &range) const
{
    return OvtCommonPrivate::nodesOfRange(this, this, range);
}

QList<TreeNode *> TreeNodeModel::toTreeNode(const QItemSelection &selection) const
{
    return OvtCommonPrivate::nodesOfSelection(this, this, selection);
}

int TreeNodeModel::rowOf(TreeNode *node, TreeNode *parent) const
{
    const QList<TreeNode *> &siblings = parent->childNodes();
    const auto hint = _rowHints.constFind(node);
    if (hint != _rowHints.constEnd() && hint.value() < siblings.size()
        && siblings.at(hint.value()) == node)
        return hint.value();
    const int row = siblings.indexOf(node);
    if (row >= 0)
        _rowHints.insert(node, row);
    return row;
}

QModelIndex TreeNodeModel::treeNodeToIndex(TreeNode *node) const
{
    if (!_rootNode || !node || node == _rootNode)
        return QModelIndex();
    const int extraRow = _extraRootChildNodes.indexOf(node);
    if (extraRow >= 0)
        return createIndex(extraRow, 0, _rootNode);

    TreeNode *ancestor = node->parentNode();
    while (ancestor && ancestor != _rootNode)
        ancestor = ancestor->parentNode();
    if (!ancestor && !isBelowExtraNode(node))
        return QModelIndex();

    TreeNode *parentNode = node->parentNode();
    int row = rowOf(node, parentNode);
    if (row < 0)
        return QModelIndex();
    if (parentNode == _rootNode)
        row += _extraRootChildNodes.size();
    return createIndex(row, 0, parentNode);
}

bool TreeNodeModel::isBelowExtraNode(TreeNode *node) const
{
    // Extra nodes have no parent, yet their subtrees are rows of this model: without this a
    // row below an extra node would have no parent index and its changes would be announced
    // at the top level.
    if (_extraRootChildNodes.isEmpty())
        return false;
    for (TreeNode *ancestor = node->parentNode(); ancestor; ancestor = ancestor->parentNode()) {
        if (_extraRootChildNodes.contains(ancestor))
            return true;
    }
    return false;
}

QModelIndex TreeNodeModel::index(int row, int column, const QModelIndex &parent) const
{
    TreeNode *parentNode = toTreeNode(parent);
    if (!parentNode || row < 0 || column < 0 || column >= columnCount(parent))
        return QModelIndex();
    const int rows = (parentNode == _rootNode ? _extraRootChildNodes.size() : 0)
        + parentNode->childNodesCount();
    if (row >= rows)
        return QModelIndex();
    return createIndex(row, column, parentNode);
}

QModelIndex TreeNodeModel::parent(const QModelIndex &index) const
{
    if (!_rootNode || !index.isValid() || index.model() != this)
        return QModelIndex();
    return treeNodeToIndex(static_cast<TreeNode *>(index.internalPointer()));
}

int TreeNodeModel::rowCount(const QModelIndex &parent) const
{
    TreeNode *parentNode = toTreeNode(parent);
    if (!parentNode)
        return 0;
    return parentNode->childNodesCount()
        + (parentNode == _rootNode ? _extraRootChildNodes.size() : 0);
}

int TreeNodeModel::columnCount(const QModelIndex &) const
{
    return _rootNode ? _rootNode->columnCount() : 0;
}

QVariant TreeNodeModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    return _rootNode ? _rootNode->headerData(section, orientation, role) : QVariant();
}

QVariant TreeNodeModel::data(const QModelIndex &index, int role) const
{
    if (!_rootNode || !index.isValid())
        return QVariant();
    TreeNode *node = toTreeNode(index);
    return node ? node->data(index.column(), role) : QVariant();
}

bool TreeNodeModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (!_rootNode || !index.isValid())
        return false;
    TreeNode *node = toTreeNode(index);
    if (!node)
        return false;
    const bool changed = node->setData(index.column(), value, role);
    if (changed)
        emit dataChanged(index, index, {});
    return changed;
}

Qt::ItemFlags TreeNodeModel::flags(const QModelIndex &index) const
{
    if (!_rootNode || !index.isValid())
        return Qt::NoItemFlags;
    TreeNode *node = toTreeNode(index);
    return node ? node->flags(index.column()) : Qt::NoItemFlags;
}

bool TreeNodeModel::canFetchMore(const QModelIndex &parent) const
{
    TreeNode *node = toTreeNode(parent);
    return node && node->canFetchMore();
}

void TreeNodeModel::fetchMore(const QModelIndex &parent)
{
    if (TreeNode *node = toTreeNode(parent))
        node->fetchMore();
}

bool TreeNodeModel::hasChildren(const QModelIndex &parent) const
{
    if (!_rootNode)
        return false;
    if (rowCount(parent) == 0 && !canFetchMore(parent))
        return false;
    TreeNode *node = toTreeNode(parent);
    if (!node)
        return true;
    return !(node->treeNodeSpecialFlags() & 0x4);
}

void TreeNodeModel::nodesAboutToBeReset()
{
    if (!_rootNode)
        return;
    beginResetModel();
    blockSignals(true);
    _resetting = true;
}

void TreeNodeModel::nodesReset()
{
    if (!_rootNode)
        return;
    _resetting = false;
    blockSignals(false);
    _rowHints.clear();
    endResetModel();
}

void TreeNodeModel::nodesAboutToBeInserted(TreeNode *parent, int first, int last)
{
    if (!_rootNode || _resetting)
        return;
    if (parent == _rootNode) {
        first += _extraRootChildNodes.size();
        last += _extraRootChildNodes.size();
    }
    beginInsertRows(treeNodeToIndex(parent), first, last);
}

void TreeNodeModel::nodesAboutToBeRemoved(TreeNode *parent, int first, int last)
{
    if (!_rootNode || _resetting)
        return;
    if (parent == _rootNode) {
        first += _extraRootChildNodes.size();
        last += _extraRootChildNodes.size();
    }
    beginRemoveRows(treeNodeToIndex(parent), first, last);
}

void TreeNodeModel::nodesInserted()
{
    if (_rootNode && !_resetting)
        endInsertRows();
}

void TreeNodeModel::nodesRemoved()
{
    if (!_rootNode || _resetting)
        return;
    // Removed nodes may be deleted and their addresses reused; forget what we knew of them.
    _rowHints.clear();
    endRemoveRows();
}

void TreeNodeModel::nodeDataChanged(TreeNode *node)
{
    // Without columns there is no cell to announce, and a change ending at column -1 would
    // be an invalid notification.
    if (!_rootNode || columnCount() < 1)
        return;
    const QModelIndex first = treeNodeToIndex(node);
    if (!first.isValid())
        return;
    emit dataChanged(first, first.sibling(first.row(), columnCount() - 1), {});
}

void TreeNodeModel::nodeChildsDataChanged(TreeNode *node)
{
    if (!_rootNode || columnCount() < 1)
        return;
    const int rows
        = node->childNodesCount() + (node == _rootNode ? _extraRootChildNodes.size() : 0);
    if (rows == 0)
        return;
    const QModelIndex nodeIndex = treeNodeToIndex(node);
    emit dataChanged(index(0, 0, nodeIndex), index(rows - 1, columnCount() - 1, nodeIndex), {});
}

void TreeNodeModel::vertexNodeDestroyed(QObject *object)
{
    // Only the address is left: the node's own parts are gone, so nothing of it may be read.
    // What was shown from it cannot be announced row by row any more; views start over.
    // Compared as QObject pointers: a cast down to the node's class would already read it.
    beginResetModel();
    if (static_cast<QObject *>(_rootNode) == object)
        _rootNode = nullptr;
    for (int i = _extraRootChildNodes.size() - 1; i >= 0; --i) {
        if (static_cast<QObject *>(_extraRootChildNodes.at(i)) == object)
            _extraRootChildNodes.removeAt(i);
    }
    _rowHints.clear();
    endResetModel();
}

void TreeNodeModel::connectVertexNode(TreeNode *node)
{
    connect(node, &QObject::destroyed, this, &TreeNodeModel::vertexNodeDestroyed);
    connect(node, &TreeNode::nodesAboutToBeInserted, this, &TreeNodeModel::nodesAboutToBeInserted);
    connect(node, &TreeNode::nodesAboutToBeRemoved, this, &TreeNodeModel::nodesAboutToBeRemoved);
    connect(node, &TreeNode::nodesInserted, this, &TreeNodeModel::nodesInserted);
    connect(node, &TreeNode::nodesRemoved, this, &TreeNodeModel::nodesRemoved);
    connect(node, &TreeNode::nodeDataChanged, this, &TreeNodeModel::nodeDataChanged);
    connect(node, &TreeNode::nodeChildsDataChanged, this, &TreeNodeModel::nodeChildsDataChanged);
}

void TreeNodeModel::disconnectVertexNode(TreeNode *node)
{
    disconnect(node, &QObject::destroyed, this, &TreeNodeModel::vertexNodeDestroyed);
    disconnect(node, &TreeNode::nodesAboutToBeInserted, this,
               &TreeNodeModel::nodesAboutToBeInserted);
    disconnect(node, &TreeNode::nodesAboutToBeRemoved, this, &TreeNodeModel::nodesAboutToBeRemoved);
    disconnect(node, &TreeNode::nodesInserted, this, &TreeNodeModel::nodesInserted);
    disconnect(node, &TreeNode::nodesRemoved, this, &TreeNodeModel::nodesRemoved);
    disconnect(node, &TreeNode::nodeDataChanged, this, &TreeNodeModel::nodeDataChanged);
    disconnect(node, &TreeNode::nodeChildsDataChanged, this, &TreeNodeModel::nodeChildsDataChanged);
}
