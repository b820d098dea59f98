#include "elementsortfilterproxymodel.h"

ElementSortFilterProxyModel::ElementSortFilterProxyModel(int specialFlagsFilter, QObject *parent)
    : TreeNodeSortFilterProxyModel(specialFlagsFilter, parent)
{ }

ElementSortFilterProxyModel::ElementSortFilterProxyModel(const QSet<int> &acceptColumns,
                                                         int specialFlagsFilter, QObject *parent)
    : TreeNodeSortFilterProxyModel(acceptColumns, specialFlagsFilter, parent)
{ }

ElementSortFilterProxyModel::~ElementSortFilterProxyModel() = default;
