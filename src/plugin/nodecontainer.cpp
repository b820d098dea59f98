#include "nodecontainer.h"

NodeContainer::NodeContainer(QObject *parent)
    : QObject(parent)
    , _rootNode(nullptr)
    , _treeNodeModel(nullptr)
{ }

NodeContainer::~NodeContainer() = default;

TreeNode *NodeContainer::rootNode() const
{
    return _rootNode;
}

TreeNodeModel *NodeContainer::treeNodeModel() const
{
    return _treeNodeModel;
}
