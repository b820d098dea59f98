#pragma once

#include "element/element.h"
#include "element/serviceelement.h"
#include "element/servicelightelementdata.h"

/**
 * "Services", the fixed top-level folder of the units. It offers ReadLightOperation, which
 * the element container sends after every rebuild, and passes it to its module. When the
 * units cannot be listed it says why in its own row (record key "message").
 */
class ServicesFolderElement : public Element
{
    Q_OBJECT

public:
    explicit ServicesFolderElement(Module &module);

    OperationType availableOperations() const override;
    void performOperation(OperationType operation, ElementData *data, int alternative) override;
    QString caption() const override;
    QVariant data(int column, int role) const override;
};

/**
 * One systemd unit. ServiceElement draws its icon from the ServiceLightElementData record;
 * the record also holds "description", "load" and "sub" as systemctl listed them.
 */
class UnitElement : public ServiceElement
{
    Q_OBJECT

public:
    UnitElement(Module &module, const QString &unit, const ServiceLightElementData &record);

    QString caption() const override;
};
