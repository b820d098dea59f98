// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "task/deletetask.h"

#include "element/element.h"
#include "task/taskkinds_p.h"

DeleteTask::DeleteTask(Element *element)
    : ElementTask(element, nullptr)
{ }

void DeleteTask::afterRun()
{
    if (!_element)
        return;
    TreeNode *parent = _element->parentNode();
    if (TaskKinds::isParanoid(_element)) {
        if (parent)
            parent->emitSetCurrentNode();
        return;
    }
    if (_taskDescription.status() == TaskDescription::Fail)
        return;
    // The parent becomes current before the child goes, so that no view keeps a selection on
    // a deleted node.
    if (parent) {
        parent->emitSetCurrentNode();
        parent->removeOne(_element);
    }
    delete _element;
    _element = nullptr;
}
