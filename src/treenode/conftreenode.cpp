// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "conftreenode.h"

ConfTreeNode::ConfTreeNode(const QString &name, const QString &value, QObject *parent)
    : TreeNode(1, QString(), parent)
    , _name(name)
    , _value(value)
{
    setId(QStringLiteral("Conf_%1_%2").arg(name, value));
}

QString ConfTreeNode::name() const
{
    return _name;
}

QString ConfTreeNode::value() const
{
    return _value;
}

QVariant ConfTreeNode::data(int column, int role) const
{
    if (role != Qt::DisplayRole && role != Qt::ToolTipRole)
        return QVariant();
    switch (column) {
    case 0:
        return _name;
    case 1:
        return _value;
    default:
        return QVariant();
    }
}
