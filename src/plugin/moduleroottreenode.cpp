#include "moduleroottreenode.h"

ModuleRootTreeNode::ModuleRootTreeNode(QObject *parent)
    : TreeNode(0, QString(), parent)
{ }

int ModuleRootTreeNode::columnCount() const
{
    return 3;
}

QVariant ModuleRootTreeNode::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return QVariant();
    switch (section) {
    case 0:
        return tr("Name");
    case 1:
        return tr("Reread");
    case 2:
        return tr("Description");
    default:
        return QVariant();
    }
}
