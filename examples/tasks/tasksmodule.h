// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "plugin/module.h"

class Element;

/**
 * The "tasks" module: one fixed element, "Examples", whose panel starts the library's dummy
 * tasks (so the task observer has something to show) and a print preview of the element list.
 * Nothing here touches the system.
 */
class TasksModule : public Module
{
    Q_OBJECT

public:
    explicit TasksModule(QObject *parent);

    /**
     * The element tree that @p element belongs to, from its root down, as the XML document
     * the print style sheet reads. Every value is escaped; element texts may hold anything.
     */
    static QString elementListXml(const Element *element);
};
