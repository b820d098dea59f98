#include "listwidgetproxymodel.h"

ListWidgetProxyModel::ListWidgetProxyModel(int specialFlagsFilter, QObject *parent)
    : FilterTreeNodeSortFilterProxyModel(specialFlagsFilter, parent)
{ }

ListWidgetProxyModel::~ListWidgetProxyModel() = default;
