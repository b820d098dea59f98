// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "moduletitleproxymodel.h"

#include "plugin/module.h"
#include "treenode/treenodemodelextension.h"

QVariant ModuleTitleProxyModel::data(const QModelIndex &index, int role) const
{
    if (index.column() == 0 && role == Qt::DisplayRole) {
        const auto *nodes = dynamic_cast<const TreeNodeModelExtension *>(sourceModel());
        const auto *module
            = nodes ? qobject_cast<Module *>(nodes->toTreeNode(mapToSource(index))) : nullptr;
        const QString title
            = module ? module->getData(QStringLiteral("title")).toString() : QString();
        if (!title.isEmpty())
            return title;
    }
    return QIdentityProxyModel::data(index, role);
}

QVariant ModuleTitleProxyModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation == Qt::Horizontal && section == 1 && role == Qt::ToolTipRole)
        return tr("Paranoid mode: when ticked, the module re-reads an element from the system "
                  "after every change instead of trusting what it wrote");
    return QIdentityProxyModel::headerData(section, orientation, role);
}
