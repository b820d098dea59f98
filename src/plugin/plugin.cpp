// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "plugin.h"

Plugin::Plugin(QObject *parent)
    : QObject(parent)
    , _availableOperationsClass(0)
{ }

Plugin::~Plugin() = default;

bool Plugin::isValid() const
{
    return true;
}

QStringList Plugin::requiredPackageNames() const
{
    return QStringList();
}

quint64 Plugin::availableOperationsClass() const
{
    return _availableOperationsClass;
}

QString Plugin::name() const
{
    return _name;
}

QString Plugin::description() const
{
    return _description;
}

QList<TreeNode *> &Plugin::modules()
{
    return _modules;
}
