#pragma once

#include "plugin/module.h"

/**
 * The "users" module: one folder element, "Users", whose accounts are read from /etc/passwd
 * the first time the user opens it.
 */
class UsersModule : public Module
{
    Q_OBJECT

public:
    explicit UsersModule(QObject *parent);

    /** Starts the read of the accounts when the folder asks for its content. */
    void performOperation(ContextOperation *context, OperationType type, ElementData *data,
                          int alternative) override;
};
