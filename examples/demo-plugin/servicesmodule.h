#pragma once

#include "plugin/module.h"

/**
 * The "services" module: a fixed "Services" folder with a few systemd units under it, whose
 * state (running or not) is read after every rebuild of the element tree.
 */
class ServicesModule : public Module
{
    Q_OBJECT

public:
    explicit ServicesModule(QObject *parent);

    /** Starts the read of the units' states when the folder asks for its light read. */
    void performOperation(ContextOperation *context, OperationType type, ElementData *data,
                          int alternative) override;
};
