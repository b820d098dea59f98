// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "elementcontainer.h"

#include "element/element.h"
#include "element/elementmodel.h"
#include "element/elementroottreenode.h"
#include "plugin/module.h"
#include "treenode/treenodemodel.h"

#include <QSet>

#include <algorithm>
#include <utility>
#include <vector>

namespace {

// loadTreeFromList only empties the root; nodes deeper down still hang under the parents of
// the previous build and would be listed twice. The listed nodes are grouped by old parent
// (a sort of pointer pairs, cheaper than hashing every node), and each parent loses them in
// as few removals as possible: all its children at once when all are listed, which is what a
// rebuild from the same modules meets everywhere.
void detachListed(const QList<TreeNode *> &nodes, const TreeNode *root)
{
    std::vector<std::pair<TreeNode *, TreeNode *>> byParent; // (old parent, node)
    byParent.reserve(nodes.size());
    for (TreeNode *node : nodes) {
        TreeNode *parent = node->parentNode();
        if (parent && parent != root)
            byParent.emplace_back(parent, node);
    }
    std::sort(byParent.begin(), byParent.end());
    // A node that two modules list is taken off once.
    byParent.erase(std::unique(byParent.begin(), byParent.end()), byParent.end());

    QSet<TreeNode *> listed;
    for (auto group = byParent.begin(); group != byParent.end();) {
        TreeNode *parent = group->first;
        auto groupEnd = group;
        while (groupEnd != byParent.end() && groupEnd->first == parent)
            ++groupEnd;
        const int count = int(groupEnd - group);
        if (count == parent->childNodesCount()) {
            parent->removeAt(0, count);
            group = groupEnd;
            continue;
        }
        listed.clear();
        for (auto it = group; it != groupEnd; ++it)
            listed.insert(it->second);
        group = groupEnd;
        // Back to front, so that positions still to visit stay valid; adjacent listed children
        // go in one removal.
        const QList<TreeNode *> children = parent->childNodes();
        int end = children.size();
        while (end > 0) {
            if (!listed.contains(children.at(end - 1))) {
                --end;
                continue;
            }
            int begin = end - 1;
            while (begin > 0 && listed.contains(children.at(begin - 1)))
                --begin;
            parent->removeAt(begin, end - begin);
            end = begin;
        }
    }
}

} // namespace

ElementContainer::ElementContainer(QObject *parent)
    : NodeContainer(parent)
{
    auto *root = new ElementRootTreeNode(this);
    _rootNode = root;
    connect(root, &TreeNode::setCurrentNode, this, &NodeContainer::setCurrentNode);
    connect(root, &TreeNode::expandCurrentNode, this, &NodeContainer::expandCurrentNode);
    _treeNodeModel = new ElementModel(root, this);
}

ElementContainer::~ElementContainer() = default;

void ElementContainer::pluginContainerReset(const TreeNode *pluginRoot)
{
    // Views see one reset, whatever the rebuild does to the tree in between.
    _treeNodeModel->nodesAboutToBeReset();
    if (!pluginRoot) {
        _treeNodeModel->nodesReset();
        return;
    }

    QList<TreeNode *> elementNodes;
    const QList<TreeNode *> descendants = pluginRoot->allChildNodes();
    for (TreeNode *node : descendants) {
        auto *module = qobject_cast<Module *>(node);
        if (!module)
            continue;
        for (TreeNode *element : qAsConst(module->elementNodes())) {
            if (element)
                elementNodes.append(element);
        }
    }
    detachListed(elementNodes, _rootNode);
    _rootNode->loadTreeFromList(elementNodes);
    _treeNodeModel->nodesReset();

    // A copy: a module may change the tree while it reads.
    const QList<TreeNode *> topLevel = _rootNode->childNodes();
    for (TreeNode *node : topLevel) {
        auto *element = qobject_cast<Element *>(node);
        if (element && (element->availableOperations() & ReadLightOperation))
            element->performOperation(ReadLightOperation, nullptr, 0);
    }
}
