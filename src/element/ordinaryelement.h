// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "element/element.h"

/**
 * An object that can be created, read, updated and deleted (a persistent one only read and
 * updated). Under a container that offers ChangeDisplayOperation it shares the container's
 * display variant, and a change of display asked on it is passed to the container, so that
 * all its siblings change with it.
 */
class OVTCOMMON_EXPORT OrdinaryElement : public Element
{
    Q_OBJECT

public:
    OrdinaryElement(Module &module, bool (*isEditable)(const Module &));

    /** The parent's variant when the parent offers ChangeDisplayOperation, else the own one. */
    int displayChildrenVariant() const override;
    /** The parent's variants when the parent offers ChangeDisplayOperation, else none. */
    QStringList displayChildrenVariants() const override;
    /**
     * Editable: Create, Read, Update, Delete (Read and Update when persistent); else Read.
     * ChangeDisplay is added while the parent offers it.
     */
    OperationType availableOperations() const override;
    /** Forwards Create, Read, Update and Delete; passes ChangeDisplay to the parent. */
    void performOperation(OperationType operation, ElementData *data, int alternative) override;

private:
    Element *displayParent() const;
};
