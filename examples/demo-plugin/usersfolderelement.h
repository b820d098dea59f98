#pragma once

#include "element/containerelement.h"

/**
 * "Users", a fixed top-level element whose children, the accounts, are read lazily: the
 * container asks its module for ReadContentOperation on first expansion.
 */
class UsersFolderElement : public ContainerElement
{
    Q_OBJECT

public:
    explicit UsersFolderElement(Module &module);

    QString caption() const override;
    QVariant data(int column, int role) const override;
};
