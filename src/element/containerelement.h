// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "element/element.h"

/**
 * An element whose children are read lazily: on first expansion (fetchMore) it performs
 * ReadContentOperation, which its module answers by inserting the children.
 *
 * It also settles ChangeDisplayOperation itself: the variant of a ChangeDisplayElementData
 * becomes the display variant of all its children.
 */
class OVTCOMMON_EXPORT ContainerElement : public Element
{
    Q_OBJECT

public:
    ContainerElement(Module &module, bool (*isEditable)(const Module &));

    /** Create and ReadContent when editable, else ReadContent only. */
    OperationType availableOperations() const override;
    /**
     * Forwards ReadContent (then marks the children as read) and Create, whatever the offer.
     * ChangeDisplay with a ChangeDisplayElementData stores the variant and emits
     * nodeChildsDataChanged(); nothing goes to the module then. Other operations are ignored.
     */
    void performOperation(OperationType operation, ElementData *data, int alternative) override;

    /** Arms lazy loading again: the next expansion reads the children afresh. */
    void resetRequireLoad();
};
