// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QIdentityProxyModel>

/**
 * Shows the module tree as a user reads it: a module's "title" (from its module data, set by
 * its plug-in in the user's language) instead of its id, which stays the tool tip; and a
 * header tool tip that says what the check box column does. Modules without a title keep
 * their id.
 */
class ModuleTitleProxyModel : public QIdentityProxyModel
{
    Q_OBJECT

public:
    using QIdentityProxyModel::QIdentityProxyModel;

    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
};
