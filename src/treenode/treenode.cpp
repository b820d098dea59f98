// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "treenode.h"

#include "treenode/treenode_p.h"

#include <QHash>
#include <QMetaMethod>
#include <QPointer>
#include <QSet>
#include <QStringView>

#include <algorithm>
#include <array>
#include <functional>
#include <vector>

TreeNode::TreeNode(QObject *parent)
    : TreeNode(-1, QString(), parent)
{ }

TreeNode::TreeNode(int expectedDepth, const QString &expectedParentId, QObject *parent)
    : QObject(parent)
    , _parentNode(nullptr)
    , _expectedParentId(expectedParentId)
    , _expectedDepth(expectedDepth)
{ }

namespace {

thread_local const TreeNode *dyingNode = nullptr;

} // namespace

OvtCommonPrivate::DyingNodeScope::DyingNodeScope(const TreeNode *node)
    : _previous(dyingNode)
{
    dyingNode = node;
}

OvtCommonPrivate::DyingNodeScope::~DyingNodeScope()
{
    dyingNode = _previous;
}

bool OvtCommonPrivate::DyingNodeScope::isDying(const TreeNode *node)
{
    return node == dyingNode;
}

TreeNode::~TreeNode()
{
    OvtCommonPrivate::DyingNodeScope dying(this);
    reset();
}

void TreeNode::setParentNode(TreeNode *parentNode)
{
    _parentNode = parentNode;
}

QString TreeNode::id() const
{
    return _id;
}

void TreeNode::setId(const QString &id)
{
    _id = id;
}

QString TreeNode::expectedParentId() const
{
    return _expectedParentId;
}

int TreeNode::expectedDepth() const
{
    return _expectedDepth;
}

void TreeNode::append(TreeNode *node)
{
    insert(childNodesCount(), QList<TreeNode *> {node});
}

void TreeNode::append(const QList<TreeNode *> &nodes)
{
    insert(childNodesCount(), nodes);
}

void TreeNode::insert(int pos, TreeNode *node)
{
    insert(pos, QList<TreeNode *> {node});
}

void TreeNode::insert(int pos, const QList<TreeNode *> &candidates)
{
    const QList<TreeNode *> nodes = OvtCommonPrivate::insertableNodes(this, candidates);
    if (nodes.isEmpty())
        return;
    pos = pos > 0 ? std::min(pos, childNodesCount()) : 0;
    emit nodesAboutToBeInserted(this, pos, pos + nodes.size() - 1);
    int at = pos;
    for (TreeNode *node : nodes) {
        node->setParentNode(this);
        // QList::insert() at the end still goes through the general path; loading a tree
        // appends almost always.
        if (at == _childNodes.size())
            _childNodes.append(node);
        else
            _childNodes.insert(at, node);
        ++at;
    }
    emit nodesInserted();
    // Connected only now, so the insertion's own signals are not heard twice through a child.
    for (TreeNode *node : nodes)
        connectChildSignals(node);
}

void TreeNode::removeAt(int pos, int count)
{
    const int total = childNodesCount();
    if (total == 0 || pos < 0 || pos >= total || count < 1)
        return;
    count = std::min(count, total - pos);
    if (!OvtCommonPrivate::DyingNodeScope::isDying(this)) {
        for (int i = pos; i < pos + count; ++i)
            disconnectChildSignals(_childNodes.at(i));
    }
    emit nodesAboutToBeRemoved(this, pos, pos + count - 1);
    for (int i = 0; i < count; ++i)
        _childNodes.takeAt(pos)->setParentNode(nullptr);
    emit nodesRemoved();
}

void TreeNode::setAlternativeExpected(int) { }

void TreeNode::afterLoad() { }

int TreeNode::treeNodeSpecialFlags() const
{
    return 0;
}

int TreeNode::columnCount() const
{
    return 0;
}

QVariant TreeNode::headerData(int, Qt::Orientation, int) const
{
    return QVariant();
}

QVariant TreeNode::data(int, int role) const
{
    switch (role) {
    case Qt::UserRole + 2:
        return _id;
    case Qt::UserRole + 3:
        return _expectedParentId;
    default:
        return QVariant();
    }
}

bool TreeNode::setData(int, const QVariant &, int)
{
    return false;
}

Qt::ItemFlags TreeNode::flags(int) const
{
    return Qt::ItemIsSelectable | Qt::ItemIsEnabled;
}

bool TreeNode::canFetchMore() const
{
    return false;
}

void TreeNode::fetchMore() { }

void TreeNode::clear()
{
    removeAt(0, childNodesCount());
}

bool TreeNode::contains(TreeNode *node) const
{
    return _childNodes.contains(node);
}

int TreeNode::indexOf(TreeNode *node, int from) const
{
    if (from < 0)
        from = std::max(from + childNodesCount(), 0);
    return _childNodes.indexOf(node, from);
}

bool TreeNode::removeOne(TreeNode *node)
{
    const int index = indexOf(node, 0);
    if (index == -1)
        return false;
    removeAt(index, 1);
    return true;
}

void TreeNode::reset()
{
    if (_parentNode)
        _parentNode->removeOne(this);
    clear();
}

QList<TreeNode *> TreeNode::allChildNodes() const
{
    QList<TreeNode *> result = _childNodes;
    for (int i = 0; i < result.size(); ++i)
        result.append(result.at(i)->childNodes());
    return result;
}

namespace {

// The children as guarded pointers: deleting one child may delete another that it owns as a
// QObject, which must then not be deleted a second time.
QList<QPointer<TreeNode>> guarded(const QList<TreeNode *> &nodes)
{
    QList<QPointer<TreeNode>> result;
    result.reserve(nodes.size());
    for (TreeNode *node : nodes)
        result.append(node);
    return result;
}

} // namespace

void TreeNode::clearDelete()
{
    const QList<QPointer<TreeNode>> children = guarded(_childNodes);
    clear();
    for (const QPointer<TreeNode> &child : children)
        delete child.data();
}

void TreeNode::clearDeleteAll()
{
    const QList<QPointer<TreeNode>> children = guarded(_childNodes);
    clear();
    for (const QPointer<TreeNode> &child : children) {
        if (!child)
            continue;
        child->clearDeleteAll();
        delete child.data();
    }
}

namespace {

// The eight forwarded signals, as method indexes taken from their member pointers once.
// Connecting by index spares Qt a functor object per connection; with eight connections per
// node that allocation was the largest part of building a big tree (a 100,000-node load went
// from about 340 ms to 230 ms). The indexes run from the last signal to the first: a sender's
// connection table then grows to its full size on the first connection instead of twice.
// Connecting and disconnecting walk the same table, so the pair stays symmetric.
const std::array<int, 8> &forwardedSignals()
{
    static const std::array<int, 8> indexes {
        QMetaMethod::fromSignal(&TreeNode::expandCurrentNode).methodIndex(),
        QMetaMethod::fromSignal(&TreeNode::setCurrentNode).methodIndex(),
        QMetaMethod::fromSignal(&TreeNode::nodeChildsDataChanged).methodIndex(),
        QMetaMethod::fromSignal(&TreeNode::nodeDataChanged).methodIndex(),
        QMetaMethod::fromSignal(&TreeNode::nodesRemoved).methodIndex(),
        QMetaMethod::fromSignal(&TreeNode::nodesInserted).methodIndex(),
        QMetaMethod::fromSignal(&TreeNode::nodesAboutToBeRemoved).methodIndex(),
        QMetaMethod::fromSignal(&TreeNode::nodesAboutToBeInserted).methodIndex(),
    };
    return indexes;
}

} // namespace

void TreeNode::connectChildSignals(TreeNode *child)
{
    for (int index : forwardedSignals())
        QMetaObject::connect(child, index, this, index);
}

void TreeNode::disconnectChildSignals(TreeNode *child)
{
    for (int index : forwardedSignals())
        QMetaObject::disconnect(child, index, this, index);
}

void TreeNode::loadTreeFromList(const QList<TreeNode *> &nodes)
{
    clear();

    // The root and the nodes above it can never hang below it: that would close a cycle.
    QSet<const TreeNode *> above;
    for (const TreeNode *node = this; node; node = node->_parentNode)
        above.insert(node);

    // Sorted as (depth, id) keys held side by side: comparing them touches no node, which
    // keeps the sort cache-friendly on big lists. The first eight UTF-16 code units of the id
    // are packed into two integers whose order is QString's order of those units (a shorter
    // id is padded with zeros, which sorts it first, as QString does), so most comparisons
    // never read the strings; ids that agree there are compared in full. The ids are not
    // changed while loading. Equal keys are ordered by address, so a node listed twice ends
    // up next to itself.
    struct Key
    {
        int depth;
        quint64 prefix[2];
        QStringView id;
        TreeNode *node;
    };
    auto makeKey = [](TreeNode *node) {
        Key key {node->_expectedDepth, {0, 0}, QStringView(node->_id), node};
        const QChar *units = key.id.data();
        const qsizetype packed = std::min<qsizetype>(key.id.size(), 8);
        for (qsizetype k = 0; k < packed; ++k)
            key.prefix[k / 4] |= quint64(units[k].unicode()) << (48 - 16 * (k % 4));
        return key;
    };
    std::vector<Key> sorted;
    sorted.reserve(nodes.size() + 1);
    sorted.push_back(makeKey(this));
    for (TreeNode *node : nodes) {
        if (node && !above.contains(node))
            sorted.push_back(makeKey(node));
    }
    std::sort(sorted.begin() + 1, sorted.end(), [](const Key &a, const Key &b) {
        if (a.depth != b.depth)
            return a.depth < b.depth;
        if (a.prefix[0] != b.prefix[0])
            return a.prefix[0] < b.prefix[0];
        if (a.prefix[1] != b.prefix[1])
            return a.prefix[1] < b.prefix[1];
        // QString's own ordering (UTF-16 code units, then length), inlined: the library call
        // for each comparison cost as much as the comparing itself.
        const QChar *x = a.id.data();
        const QChar *y = b.id.data();
        const qsizetype common = std::min(a.id.size(), b.id.size());
        for (qsizetype k = 0; k < common; ++k) {
            if (x[k] != y[k])
                return x[k].unicode() < y[k].unicode();
        }
        if (a.id.size() != b.id.size())
            return a.id.size() < b.id.size();
        return std::less<TreeNode *>()(a.node, b.node);
    });
    sorted.erase(std::unique(sorted.begin(), sorted.end(),
                             [](const Key &a, const Key &b) { return a.node == b.node; }),
                 sorted.end());

    // A node may only hang under the depth run directly before its own. Rather than scanning
    // that run for every node, index it once by id when the next run begins; the first node of
    // the run with a given id wins, as a scan in list order would find it. Nodes that found no
    // place themselves are no candidates: they stay untouched, and their descendants stay out.
    // Depths are compared in 64 bits: a run at INT_MAX has no next level, not INT_MIN.
    const int count = int(sorted.size());
    std::vector<char> inTree(sorted.size(), 0);
    inTree[0] = 1;
    int currentDepth = _expectedDepth;
    int currentRunStart = 0;
    int previousRunStart = -1;
    QHash<QString, TreeNode *> candidates;
    QList<TreeNode *> attached;
    attached.reserve(nodes.size());
    // One list reused for every insertion, instead of a fresh one-element list per node.
    QList<TreeNode *> single {nullptr};

    for (int i = 1; i < count; ++i) {
        TreeNode *node = sorted[i].node;
        if (sorted[i].depth != currentDepth) {
            currentDepth = sorted[i].depth;
            previousRunStart = currentRunStart;
            currentRunStart = i;
            candidates.clear();
            candidates.reserve(currentRunStart - previousRunStart);
            for (int c = std::max(previousRunStart, 0); c < currentRunStart; ++c) {
                if (inTree[c] && qint64(sorted[c].depth) + 1 == currentDepth
                    && !candidates.contains(sorted[c].node->_id))
                    candidates.insert(sorted[c].node->_id, sorted[c].node);
            }
        }
        TreeNode *parent = candidates.value(node->_expectedParentId);
        if (!parent)
            continue;
        // The same call as append(node): overrides of insert() see every insertion.
        single[0] = node;
        parent->insert(parent->childNodesCount(), single);
        // insert() refuses a node that would close a cycle through parents set by hand.
        if (node->_parentNode == parent) {
            attached.append(node);
            inTree[i] = 1;
        }
    }

    for (TreeNode *node : qAsConst(attached))
        node->afterLoad();
}

void TreeNode::emitNodeDataChanged()
{
    emit nodeDataChanged(this);
}

void TreeNode::emitNodeChildsDataChanged()
{
    emit nodeChildsDataChanged(this);
}

void TreeNode::emitSetCurrentNode()
{
    emit setCurrentNode(this);
}

void TreeNode::emitExpandCurrentNode()
{
    emit expandCurrentNode(this);
}
