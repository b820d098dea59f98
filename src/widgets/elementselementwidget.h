// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "widgets/listelementwidget.h"

class ElementTreeView;
class QComboBox;
class QLineEdit;

/**
 * Lists the children of an element as a sortable table of their columns from 1 on, in an
 * ElementTreeView over an ElementsWidgetProxyModel (supplements hidden), with a text filter
 * below: a wildcard, a regular expression or a fixed string, case insensitive.
 *
 * The header state, the filter type and the filter text are kept in the application's
 * settings under "elementsElementWidget/<element type>" joined directly with "HeaderState",
 * "FilterType" and "FilterValue" (so "elementsElementWidget/userHeaderState"): read on every
 * read(), written when the widget is hidden or destroyed while shown.
 */
class OVTCOMMON_EXPORT ElementsElementWidget : public ListElementWidget
{
    Q_OBJECT

public:
    ElementsElementWidget(const QString &elementType, Module &module,
                          bool (*isEditable)(const Module &), QWidget *parent = nullptr);
    ~ElementsElementWidget() override;

    /** The form's view "_elementTreeView". */
    ElementTreeView *elementTreeView() const;
    /** The form's combo box "_patternTypeComboBox": 0 wildcard, 1 regexp, 2 fixed string. */
    QComboBox *patternTypeComboBox() const;
    /** The form's line edit "_patternLineEdit". */
    QLineEdit *patternLineEdit() const;

    void loadSettings();
    void saveSettings() const;

public Q_SLOTS:
    /**
     * In ViewEditRole, first asks the element to read its children when they are still to be
     * read or the module's "paranoid" value is set; then shows them and loads the settings.
     */
    void read() override;
    /** Clears the selection and asks the element at @p index to become current. */
    void choiceElement(const QModelIndex &index);
    /** Emits customContextMenuRequested() with @p pos (in the view's viewport) mapped here. */
    void customContextMenuRequest(const QPoint &pos);
    /** Applies the filter text as the pattern type chosen in the combo box. */
    void changeFilter();

Q_SIGNALS:
    void elementContextOperationChangedFocused(Element *element);
    void elementContextOperationChangedSelected(Element *element);

protected:
    void hideEvent(QHideEvent *event) override;
};
