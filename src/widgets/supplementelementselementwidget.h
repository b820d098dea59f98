// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

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
