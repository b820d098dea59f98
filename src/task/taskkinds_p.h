// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

// Shared steps of the afterRun() epilogues of the element task kinds. Not installed.

#include "element/operationtype.h"

class Element;
class ElementData;
class ViewEditElementWidget;

namespace TaskKinds {

/** The module's "paranoid" value converted to bool; an absent value counts as false. */
bool isParanoid(const Element *element);

/**
 * Performs @p operation on @p element with @p data when the element offers it; the data then
 * goes to the module like any operation's. Otherwise the data is deleted.
 */
void performIfOffered(Element *element, OperationType operation, ElementData *data = nullptr);

/** The element's form in @p role when it is a ViewEditElementWidget, else null. */
ViewEditElementWidget *viewEditWidget(Element *element, int role);

} // namespace TaskKinds
