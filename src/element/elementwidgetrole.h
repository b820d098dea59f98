// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

/** The role in which an element widget is shown. */
enum ElementWidgetRole {
    /** Not shown yet: the role after construction. */
    NoneRole = 0,
    /** Shows and edits an existing element. */
    ViewEditRole = 1,
    /** Collects the data of a new element. */
    CreateRole = 2
};
