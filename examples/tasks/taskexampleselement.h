#pragma once

#include "element/element.h"

/** "Examples", the fixed element that carries the tasks panel. */
class TaskExamplesElement : public Element
{
    Q_OBJECT

public:
    explicit TaskExamplesElement(Module &module);

    QString caption() const override;
    QVariant data(int column, int role) const override;
};
