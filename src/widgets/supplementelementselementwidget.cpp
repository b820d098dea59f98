#include "supplementelementselementwidget.h"

SupplementElementsElementWidget::SupplementElementsElementWidget(const QString &elementType,
                                                                 const QString &title,
                                                                 Module &module,
                                                                 bool (*isEditable)(const Module &),
                                                                 QWidget *parent)
    : ElementsElementWidget(elementType, module, isEditable, parent)
{
    setWindowTitle(title);
}

SupplementElementsElementWidget::~SupplementElementsElementWidget() = default;
