#pragma once

#include "element/element.h"

/**
 * "Services", the fixed top-level folder of the units. It offers ReadLightOperation, which
 * the element container sends after every rebuild, and passes it to its module.
 */
class ServicesFolderElement : public Element
{
    Q_OBJECT

public:
    explicit ServicesFolderElement(Module &module);

    /** The id by which the units find their folder. */
    static QString folderId();

    OperationType availableOperations() const override;
    void performOperation(OperationType operation, ElementData *data, int alternative) override;
    QString caption() const override;
    QVariant data(int column, int role) const override;
};
