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

// While the tree is rebuilt the model is inside its reset and learns everything from its end;
// following each of the rebuild's insertions and removals row by row would only cost time.
// The model's other connections to the root (data changes) and the container's own
// (current and expand requests) stay.
class StructureMute
{
public:
    StructureMute(TreeNode *root, TreeNodeModel *model)
        : _root(root)
        , _model(model)
    {
        _aboutToInsert = QObject::disconnect(root, &TreeNode::nodesAboutToBeInserted, model,
                                             &TreeNodeModel::nodesAboutToBeInserted);
        _inserted = QObject::disconnect(root, &TreeNode::nodesInserted, model,
                                        &TreeNodeModel::nodesInserted);
        _aboutToRemove = QObject::disconnect(root, &TreeNode::nodesAboutToBeRemoved, model,
                                             &TreeNodeModel::nodesAboutToBeRemoved);
        _removed = QObject::disconnect(root, &TreeNode::nodesRemoved, model,
                                       &TreeNodeModel::nodesRemoved);
    }
    ~StructureMute()
    {
        // Only what was there is put back, so no connection is ever doubled.
        if (_aboutToInsert)
            QObject::connect(_root, &TreeNode::nodesAboutToBeInserted, _model,
                             &TreeNodeModel::nodesAboutToBeInserted);
        if (_inserted)
            QObject::connect(_root, &TreeNode::nodesInserted, _model,
                             &TreeNodeModel::nodesInserted);
        if (_aboutToRemove)
            QObject::connect(_root, &TreeNode::nodesAboutToBeRemoved, _model,
                             &TreeNodeModel::nodesAboutToBeRemoved);
        if (_removed)
            QObject::connect(_root, &TreeNode::nodesRemoved, _model, &TreeNodeModel::nodesRemoved);
    }
    StructureMute(const StructureMute &) = delete;
    StructureMute &operator=(const StructureMute &) = delete;

private:
    TreeNode *_root;
    TreeNodeModel *_model;
    bool _aboutToInsert;
    bool _inserted;
    bool _aboutToRemove;
    bool _removed;
};

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
    {
        const StructureMute mute(_rootNode, _treeNodeModel);
        detachListed(elementNodes, _rootNode);
        _rootNode->loadTreeFromList(elementNodes);
    }
    _treeNodeModel->nodesReset();

    // A copy: a module may change the tree while it reads.
    const QList<TreeNode *> topLevel = _rootNode->childNodes();
    for (TreeNode *node : topLevel) {
        auto *element = qobject_cast<Element *>(node);
        if (element && (element->availableOperations() & ReadLightOperation))
            element->performOperation(ReadLightOperation, nullptr, 0);
    }
}
