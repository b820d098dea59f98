#include "listelementwidget.h"

ListElementWidget::ListElementWidget(const QString &elementType, Module &module,
                                     bool (*isEditable)(const Module &), QWidget *parent)
    : ElementWidget(module, isEditable, parent)
    , _elementModel(nullptr)
    , _proxyModel(nullptr)
{
    _elementType = elementType;
}

ListElementWidget::~ListElementWidget() = default;

ElementModel *ListElementWidget::elementModel() const
{
    return _elementModel;
}

ListWidgetProxyModel *ListElementWidget::proxyModel() const
{
    return _proxyModel;
}
