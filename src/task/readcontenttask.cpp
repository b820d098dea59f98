// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "task/readcontenttask.h"

#include "element/element.h"
#include "element/elementdata.h"
#include "task/taskkinds_p.h"

ReadContentTask::ReadContentTask(Element *element)
    : ElementTask(element, nullptr)
{ }

void ReadContentTask::afterRun()
{
    if (!_element || !_elementData || !TaskKinds::isParanoid(_element))
        return;
    const QString name = _elementData->name();
    for (TreeNode *node : _element->childNodes()) {
        auto *child = qobject_cast<Element *>(node);
        if (child && child->title() == name) {
            child->emitSetCurrentNode();
            return;
        }
    }
}
