#pragma once

#include "element/element.h"
#include "plugin/module.h"

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

/** "Examples", the fixed element that carries the tasks panel. */
class TaskExamplesElement : public Element
{
    Q_OBJECT

public:
    explicit TaskExamplesElement(Module &module);

    QString caption() const override;
    QVariant data(int column, int role) const override;
};
