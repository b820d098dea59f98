// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "plugin/nodecontainer.h"

class TreeNode;

/**
 * Gathers the elements of all loaded modules into one tree under an ElementRootTreeNode,
 * published through an ElementModel (treeNodeModel()). Both belong to the container.
 *
 * Connect pluginContainerReset() to the plug-in container's nodeContainerReset(). Elements
 * that ask to become current or to be expanded reach the container's setCurrentNode() and
 * expandCurrentNode() signals.
 */
class OVTCOMMON_EXPORT ElementContainer : public NodeContainer
{
    Q_OBJECT

public:
    explicit ElementContainer(QObject *parent = nullptr);
    ~ElementContainer() override;

    /**
     * Rebuilds the element tree from the element nodes of every module below @p pluginRoot,
     * each placed by its expected parent id and depth, and resets the model once; then sends
     * ReadLightOperation (no data) to each top-level element that offers it. A null
     * @p pluginRoot only resets the model and keeps the elements.
     */
    void pluginContainerReset(const TreeNode *pluginRoot);
};
