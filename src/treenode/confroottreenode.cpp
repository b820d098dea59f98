#include "confroottreenode.h"

ConfRootTreeNode::ConfRootTreeNode(QObject *parent)
    : TreeNode(0, QString(), parent)
{ }

ConfRootTreeNode::~ConfRootTreeNode()
{
    clearDeleteAll();
}

int ConfRootTreeNode::columnCount() const
{
    return 2;
}

QVariant ConfRootTreeNode::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return QVariant();
    switch (section) {
    case 0:
        return tr("Name");
    case 1:
        return tr("Value");
    default:
        return QVariant();
    }
}
