#pragma once

#include <QObject>
#include <QStringList>

class QAbstractItemModel;
class TreeNode;

namespace OvtTest {

/**
 * Records the structural and data signals of a model as strings, in order, so that a test
 * compares whole sequences: "aboutToBeInserted(root,0,1)", "inserted(root,0,1)",
 * "dataChanged(a,0,b,1)", "aboutToBeReset", "reset", "layoutAboutToBeChanged",
 * "layoutChanged". Rows are named as in modelToString(); the invalid parent is "root".
 * Column signals are recorded as "aboutToBeInsertedColumns(...)" and so on.
 */
class ModelSignalRecorder : public QObject
{
    Q_OBJECT

public:
    explicit ModelSignalRecorder(QAbstractItemModel *model, QObject *parent = nullptr);

    QStringList recorded() const;
    /** Returns what was recorded so far and starts afresh. */
    QStringList take();
    void clear();

private:
    QStringList _recorded;
};

/**
 * Records the eight signals of a node (and so of its whole tree) as strings:
 * "aboutToBeInserted(a,0,1)", "inserted", "aboutToBeRemoved(a,0,0)", "removed",
 * "dataChanged(a1)", "childsDataChanged(a)", "setCurrent(a)", "expand(a)". Nodes are named by
 * their id, or object name when the id is empty.
 */
class TreeNodeSignalRecorder : public QObject
{
    Q_OBJECT

public:
    explicit TreeNodeSignalRecorder(TreeNode *node, QObject *parent = nullptr);

    QStringList recorded() const;
    QStringList take();
    void clear();

private:
    QStringList _recorded;
};

} // namespace OvtTest
