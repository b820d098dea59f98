// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "plugin/module.h"

/**
 * A module that adds to the elements of one type owned by another module, its donor. When an
 * element of that type enters this module's tree, the donor is told (InsertedOperation), so
 * that its own handling runs for it. Every other operation is ignored: unlike a plain module,
 * a supplement module does not pass operations to its sub-modules. It has no force-reread
 * check box.
 */
class OVTCOMMON_EXPORT SupplementModule : public Module
{
    Q_OBJECT

public:
    /**
     * Places the module as AcceptorModule does. @p donor is not owned and must outlive this
     * module; a subclass may also set it later (for example in afterLoad(), once the module
     * tree is built), but before any element is inserted.
     */
    SupplementModule(const QString &name, int expectedDepth, const QString &expectedParentId,
                     const QString &description, const QString &supplementElementType,
                     Module *donor, QObject *parent);

    /** Passes an element's InsertedOperation to the donor when the element's type is ours. */
    void performOperation(ContextOperation *operation, OperationType type, ElementData *data,
                          int alternative) override;

    Module *donor() const;
    QString supplementElementType() const;

protected:
    Module *_donor; // not owned, must outlive this module
    QString _supplementElementType;
};
