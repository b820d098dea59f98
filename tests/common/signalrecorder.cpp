#include "signalrecorder.h"

#include "treenode/treenode.h"
#include "treestring.h"

#include <QAbstractItemModel>

namespace OvtTest {

namespace {

QString range(const QModelIndex &parent, int first, int last)
{
    return QStringLiteral("(%1,%2,%3)").arg(indexName(parent)).arg(first).arg(last);
}

QString nodeName(const TreeNode *node)
{
    if (!node)
        return QStringLiteral("null");
    return node->id().isEmpty() ? node->objectName() : node->id();
}

} // namespace

ModelSignalRecorder::ModelSignalRecorder(QAbstractItemModel *model, QObject *parent)
    : QObject(parent)
{
    using M = QAbstractItemModel;
    auto rows = [this, model](auto signal, const QString &name) {
        connect(model, signal, this, [this, name](const QModelIndex &parent, int first, int last) {
            _recorded.append(name + range(parent, first, last));
        });
    };
    rows(&M::rowsAboutToBeInserted, QStringLiteral("aboutToBeInserted"));
    rows(&M::rowsInserted, QStringLiteral("inserted"));
    rows(&M::rowsAboutToBeRemoved, QStringLiteral("aboutToBeRemoved"));
    rows(&M::rowsRemoved, QStringLiteral("removed"));
    rows(&M::columnsAboutToBeInserted, QStringLiteral("aboutToBeInsertedColumns"));
    rows(&M::columnsInserted, QStringLiteral("insertedColumns"));
    rows(&M::columnsAboutToBeRemoved, QStringLiteral("aboutToBeRemovedColumns"));
    rows(&M::columnsRemoved, QStringLiteral("removedColumns"));
    connect(model, &M::dataChanged, this,
            [this](const QModelIndex &topLeft, const QModelIndex &bottomRight) {
                _recorded.append(QStringLiteral("dataChanged(%1,%2,%3,%4)")
                                     .arg(indexName(topLeft))
                                     .arg(topLeft.column())
                                     .arg(indexName(bottomRight))
                                     .arg(bottomRight.column()));
            });
    connect(model, &M::modelAboutToBeReset, this,
            [this] { _recorded.append(QStringLiteral("aboutToBeReset")); });
    connect(model, &M::modelReset, this, [this] { _recorded.append(QStringLiteral("reset")); });
    connect(model, &M::layoutAboutToBeChanged, this,
            [this] { _recorded.append(QStringLiteral("layoutAboutToBeChanged")); });
    connect(model, &M::layoutChanged, this,
            [this] { _recorded.append(QStringLiteral("layoutChanged")); });
    connect(model, &M::rowsMoved, this, [this] { _recorded.append(QStringLiteral("moved")); });
}

QStringList ModelSignalRecorder::recorded() const
{
    return _recorded;
}

QStringList ModelSignalRecorder::take()
{
    QStringList result;
    result.swap(_recorded);
    return result;
}

void ModelSignalRecorder::clear()
{
    _recorded.clear();
}

TreeNodeSignalRecorder::TreeNodeSignalRecorder(TreeNode *node, QObject *parent)
    : QObject(parent)
{
    auto rows = [this](const QString &name) {
        return [this, name](TreeNode *parent, int first, int last) {
            _recorded.append(
                QStringLiteral("%1(%2,%3,%4)").arg(name, nodeName(parent)).arg(first).arg(last));
        };
    };
    auto plain = [this](const QString &name) {
        return [this, name] {
            _recorded.append(name);
        };
    };
    auto one = [this](const QString &name) {
        return [this, name](TreeNode *node) {
            _recorded.append(QStringLiteral("%1(%2)").arg(name, nodeName(node)));
        };
    };
    connect(node, &TreeNode::nodesAboutToBeInserted, this,
            rows(QStringLiteral("aboutToBeInserted")));
    connect(node, &TreeNode::nodesAboutToBeRemoved, this, rows(QStringLiteral("aboutToBeRemoved")));
    connect(node, &TreeNode::nodesInserted, this, plain(QStringLiteral("inserted")));
    connect(node, &TreeNode::nodesRemoved, this, plain(QStringLiteral("removed")));
    connect(node, &TreeNode::nodeDataChanged, this, one(QStringLiteral("dataChanged")));
    connect(node, &TreeNode::nodeChildsDataChanged, this, one(QStringLiteral("childsDataChanged")));
    connect(node, &TreeNode::setCurrentNode, this, one(QStringLiteral("setCurrent")));
    connect(node, &TreeNode::expandCurrentNode, this, one(QStringLiteral("expand")));
}

QStringList TreeNodeSignalRecorder::recorded() const
{
    return _recorded;
}

QStringList TreeNodeSignalRecorder::take()
{
    QStringList result;
    result.swap(_recorded);
    return result;
}

void TreeNodeSignalRecorder::clear()
{
    _recorded.clear();
}

} // namespace OvtTest
