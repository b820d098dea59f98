#include "treenode.h"

#include <QHash>
#include <QMetaMethod>

#include <algorithm>
#include <array>
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

TreeNode::~TreeNode()
{
    reset();
}

TreeNode *TreeNode::parentNode() const
{
    return _parentNode;
}

void TreeNode::setParentNode(TreeNode *parentNode)
{
    _parentNode = parentNode;
}

const QList<TreeNode *> &TreeNode::childNodes() const
{
    return _childNodes;
}

int TreeNode::childNodesCount() const
{
    return _childNodes.size();
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

void TreeNode::insert(int pos, const QList<TreeNode *> &nodes)
{
    if (nodes.isEmpty())
        return;
    pos = pos > 0 ? std::min(pos, childNodesCount()) : 0;
    emit nodesAboutToBeInserted(this, pos, pos + nodes.size() - 1);
    int at = pos;
    for (TreeNode *node : nodes) {
        node->setParentNode(this);
        _childNodes.insert(at++, node);
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
    for (int i = pos; i < pos + count; ++i)
        disconnectChildSignals(_childNodes.at(i));
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

void TreeNode::clearDelete()
{
    const QList<TreeNode *> children = _childNodes;
    clear();
    qDeleteAll(children);
}

void TreeNode::clearDeleteAll()
{
    const QList<TreeNode *> children = _childNodes;
    clear();
    for (TreeNode *child : children) {
        child->clearDeleteAll();
        delete child;
    }
}

namespace {

// The eight forwarded signals, as method indexes taken from their member pointers once.
// Connecting by index spares Qt a functor object per connection; with eight connections per
// node that allocation was the largest part of building a big tree.
const std::array<int, 8> &forwardedSignals()
{
    static const std::array<int, 8> indexes {
        QMetaMethod::fromSignal(&TreeNode::nodesAboutToBeInserted).methodIndex(),
        QMetaMethod::fromSignal(&TreeNode::nodesAboutToBeRemoved).methodIndex(),
        QMetaMethod::fromSignal(&TreeNode::nodesInserted).methodIndex(),
        QMetaMethod::fromSignal(&TreeNode::nodesRemoved).methodIndex(),
        QMetaMethod::fromSignal(&TreeNode::nodeDataChanged).methodIndex(),
        QMetaMethod::fromSignal(&TreeNode::nodeChildsDataChanged).methodIndex(),
        QMetaMethod::fromSignal(&TreeNode::setCurrentNode).methodIndex(),
        QMetaMethod::fromSignal(&TreeNode::expandCurrentNode).methodIndex(),
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

    QList<TreeNode *> sorted;
    sorted.reserve(nodes.size() + 1);
    sorted.append(this);
    sorted.append(nodes);
    std::sort(sorted.begin() + 1, sorted.end(), [](const TreeNode *a, const TreeNode *b) {
        if (a->_expectedDepth != b->_expectedDepth)
            return a->_expectedDepth < b->_expectedDepth;
        return a->_id < b->_id;
    });

    // A node may only hang under the depth run directly before its own. Rather than scanning
    // that run for every node, index it once by id when the next run begins; the first node of
    // the run with a given id wins, as a scan in list order would find it. Nodes that found no
    // place themselves are no candidates: they stay untouched, and their descendants stay out.
    std::vector<char> inTree(sorted.size(), 0);
    inTree[0] = 1;
    int currentDepth = _expectedDepth;
    int currentRunStart = 0;
    int previousRunStart = -1;
    QHash<QString, TreeNode *> candidates;
    QList<TreeNode *> attached;
    attached.reserve(nodes.size());

    for (int i = 1; i < sorted.size(); ++i) {
        TreeNode *node = sorted.at(i);
        if (node->_expectedDepth != currentDepth) {
            currentDepth = node->_expectedDepth;
            previousRunStart = currentRunStart;
            currentRunStart = i;
            candidates.clear();
            for (int c = std::max(previousRunStart, 0); c < currentRunStart; ++c) {
                TreeNode *candidate = sorted.at(c);
                if (inTree[c] && candidate->_expectedDepth + 1 == currentDepth
                    && !candidates.contains(candidate->_id))
                    candidates.insert(candidate->_id, candidate);
            }
        }
        if (TreeNode *parent = candidates.value(node->_expectedParentId)) {
            parent->append(node);
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
