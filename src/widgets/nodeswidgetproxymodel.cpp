#include "nodeswidgetproxymodel.h"

NodesWidgetProxyModel::NodesWidgetProxyModel(int specialFlagsFilter, QObject *parent)
    : ListWidgetProxyModel(specialFlagsFilter, parent)
{ }

NodesWidgetProxyModel::~NodesWidgetProxyModel() = default;

bool NodesWidgetProxyModel::filterAcceptsRow(int sourceRow, const QModelIndex &sourceParent) const
{
    return !sourceParent.isValid()
        && ListWidgetProxyModel::filterAcceptsRow(sourceRow, sourceParent);
}
