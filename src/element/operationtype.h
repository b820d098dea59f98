// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QtGlobal>

/**
 * Operation codes, one bit each. availableOperations() answers an OR of them;
 * performOperation() always receives exactly one. Bits not named here are free for modules
 * and plug-ins, which cast their own values to OperationType.
 */
enum OperationType : quint64 {
    NoOperation = 0x0,
    /** Notification from the tree: the element was inserted; never offered to the user. */
    InsertedOperation = 0x1,
    /** Notification from the tree: the element was taken out; never offered to the user. */
    RemovedOperation = 0x2,
    CreateOperation = 0x4,
    /** Reads the element's children: lazy loading and refresh. */
    ReadContentOperation = 0x8,
    /** Reads the cheap properties; sent without data to top-level elements after a rebuild. */
    ReadLightOperation = 0x10,
    ReadOperation = 0x20,
    UpdateOperation = 0x40,
    DeleteOperation = 0x80,
    /** Changes how a container shows its children; carries a ChangeDisplayElementData. */
    ChangeDisplayOperation = 0x800,
    LoginOperation1 = 0x20000,
    LoginOperation2 = 0x40000
};

constexpr OperationType operator|(OperationType a, OperationType b)
{
    return static_cast<OperationType>(static_cast<quint64>(a) | static_cast<quint64>(b));
}

constexpr OperationType operator&(OperationType a, OperationType b)
{
    return static_cast<OperationType>(static_cast<quint64>(a) & static_cast<quint64>(b));
}

inline OperationType &operator|=(OperationType &a, OperationType b)
{
    return a = a | b;
}
