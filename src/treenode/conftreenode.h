// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "treenode/treenode.h"

/** One name/value row of a configuration tree; its id is "Conf_<name>_<value>". */
class OVTCOMMON_EXPORT ConfTreeNode : public TreeNode
{
    Q_OBJECT

public:
    ConfTreeNode(const QString &name, const QString &value, QObject *parent = nullptr);

    QString name() const;
    QString value() const;

    /** Column 0 the name, column 1 the value, for the display and tool-tip roles only. */
    QVariant data(int column, int role) const override;

private:
    QString _name;
    QString _value;
};
