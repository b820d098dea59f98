// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "task/elementtask.h"

/** Writes changed properties of an element. A plug-in derives from it and does it in run(). */
class OVTCOMMON_EXPORT UpdateTask : public ElementTask
{
public:
    /** @p data (owned) holds the new properties. */
    UpdateTask(Element *element, ElementData *data);

    /**
     * When the module's "paranoid" value is true or absent: performs ReadOperation (no data)
     * when the element offers it. Unlike every other kind, an absent value counts as paranoid
     * here. When it is present and false and the task did not fail: calls
     * afterSuccessfulUpdate() and then setUnchanged() on the element's ViewEditElementWidget.
     */
    void afterRun() override;
};
