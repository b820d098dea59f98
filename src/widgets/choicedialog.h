// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "widgets/abstractchoicedialog.h"

class ChoiceWidget;

/**
 * Chooses several names of a node tree in a ChoiceWidget ("_choiceWidget"): the names not
 * chosen on the left, the chosen ones on the right, a filter line above both. OK is always
 * enabled; addNames() and removeNames() then tell what the user changed.
 */
class OVTCOMMON_EXPORT ChoiceDialog : public AbstractChoiceDialog
{
    Q_OBJECT

public:
    /** Names are read from column 0. */
    explicit ChoiceDialog(QWidget *parent = nullptr);
    /** Names are read from column @p nameColumn of the source model. */
    explicit ChoiceDialog(int nameColumn, QWidget *parent = nullptr);

    ChoiceTreeNodeProxyModel *choiceModel() const override;
    void setSourceModel(QAbstractItemModel *model) override;
    ChoiceWidget *choiceWidget() const;

private:
    ChoiceWidget *_choiceWidget;
};
