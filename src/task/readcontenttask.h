// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "task/elementtask.h"

/**
 * Reads the children of a container element. A plug-in derives from it, rebuilds the children
 * in run() or afterRun(), and may leave in the task's data the name of a child to select.
 */
class OVTCOMMON_EXPORT ReadContentTask : public ElementTask
{
public:
    explicit ReadContentTask(Element *element);

    /**
     * Whatever the status: in a paranoid module, when the task has data, makes the first child
     * element whose title equals the data's name current (TreeNode::emitSetCurrentNode()).
     */
    void afterRun() override;
};
