#include "elementmodel.h"

ElementModel::ElementModel(QObject *parent)
    : TreeNodeModel(parent)
{ }

ElementModel::ElementModel(TreeNode *root, QObject *parent)
    : TreeNodeModel(root, parent)
{ }

ElementModel::~ElementModel() = default;
