#include "groupinvisibleelementsortfilterproxymodel.h"

#include "element/element.h"

GroupInvisibleElementSortFilterProxyModel::GroupInvisibleElementSortFilterProxyModel(
    QObject *parent)
    : GroupInvisibleElementSortFilterProxyModel(QSet<int>(), parent)
{ }

GroupInvisibleElementSortFilterProxyModel::GroupInvisibleElementSortFilterProxyModel(
    const QSet<int> &acceptColumns, QObject *parent)
    : ElementSortFilterProxyModel(acceptColumns, 0x1, parent)
    , _groupElementType(ContextOperation::undefinedElementType)
{ }

QString GroupInvisibleElementSortFilterProxyModel::groupElementType() const
{
    return _groupElementType;
}

void GroupInvisibleElementSortFilterProxyModel::setGroupElementType(const QString &type, bool force)
{
    if (!force && type == _groupElementType)
        return;
    _groupElementType = type;
    invalidateFilter();
}

bool GroupInvisibleElementSortFilterProxyModel::filterAcceptsRow(
    int sourceRow, const QModelIndex &sourceParent) const
{
    if (!ElementSortFilterProxyModel::filterAcceptsRow(sourceRow, sourceParent))
        return false;
    if (_groupElementType == ContextOperation::undefinedElementType)
        return true;
    auto *source = dynamic_cast<const ElementModelExtension *>(sourceModel());
    if (!source)
        return true;
    const Element *element = source->toElement(sourceModel()->index(sourceRow, 0, sourceParent));
    return !element || element->groupElementType() == _groupElementType;
}
