#pragma once

#include "widgets/elementselementwidget.h"

/** An ElementsElementWidget shown beside another widget, titled by @p title. */
class OVTCOMMON_EXPORT SupplementElementsElementWidget : public ElementsElementWidget
{
    Q_OBJECT

public:
    SupplementElementsElementWidget(const QString &elementType, const QString &title,
                                    Module &module, bool (*isEditable)(const Module &),
                                    QWidget *parent = nullptr);
    ~SupplementElementsElementWidget() override;
};
