#pragma once

#include "element/serviceelement.h"

/**
 * One systemd unit. ServiceElement draws its icon from the ServiceLightElementData record;
 * this class only places the unit and says its state in the caption (the tooltip).
 */
class UnitElement : public ServiceElement
{
    Q_OBJECT

public:
    UnitElement(Module &module, const QString &unit, const QString &folderId);

    QString caption() const override;
};
