// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "elementselementwidget.h"

#include "element/elementmodel.h"
#include "plugin/module.h"
#include "ui_elementselementwidget.h"
#include "widgets/elementswidgetproxymodel.h"
#include "widgets/listview_p.h"

#include <QComboBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QSettings>

namespace {

// The group text and the name are joined without a separator: stored preferences are found
// under exactly these keys.
QString settingsKey(const QString &elementType, const char *name)
{
    return QStringLiteral("%1%2").arg(QStringLiteral("elementsElementWidget/%1").arg(elementType),
                                      QLatin1String(name));
}

} // namespace

ElementsElementWidget::ElementsElementWidget(const QString &elementType, Module &module,
                                             bool (*isEditable)(const Module &), QWidget *parent)
    : ListElementWidget(elementType, module, isEditable, parent)
{
    // The form's widgets are children of this widget; the generated holder is not kept.
    Ui::ElementsElementWidget().setupUi(this);
    _proxyModel = new ElementsWidgetProxyModel(0x1, this);
    _proxyModel->setDynamicSortFilter(true);
    _proxyModel->setFilterCaseSensitivity(Qt::CaseInsensitive);
    _proxyModel->setSourceModel(_elementModel);
    elementTreeView()->setModel(_proxyModel);
    // Until the user's choice is restored: ascending by the first column, not Qt's descending.
    elementTreeView()->sortByColumn(0, Qt::AscendingOrder);
    ListView::connectView(this, elementTreeView());
    connect(patternLineEdit(), &QLineEdit::textChanged, this, &ElementsElementWidget::changeFilter);
    connect(patternTypeComboBox(), qOverload<int>(&QComboBox::currentIndexChanged), this,
            &ElementsElementWidget::changeFilter);
}

ElementsElementWidget::~ElementsElementWidget()
{
    // A widget never shown has not read the settings; writing its defaults would lose them.
    if (isVisible())
        saveSettings();
}

ElementTreeView *ElementsElementWidget::elementTreeView() const
{
    return findChild<ElementTreeView *>(QStringLiteral("_elementTreeView"),
                                        Qt::FindDirectChildrenOnly);
}

QComboBox *ElementsElementWidget::patternTypeComboBox() const
{
    return findChild<QComboBox *>(QStringLiteral("_patternTypeComboBox"),
                                  Qt::FindDirectChildrenOnly);
}

QLineEdit *ElementsElementWidget::patternLineEdit() const
{
    return findChild<QLineEdit *>(QStringLiteral("_patternLineEdit"), Qt::FindDirectChildrenOnly);
}

void ElementsElementWidget::loadSettings()
{
    const QSettings settings;
    elementTreeView()->header()->restoreState(
        settings.value(settingsKey(_elementType, "HeaderState")).toByteArray());
    QComboBox *types = patternTypeComboBox();
    const int type = settings.value(settingsKey(_elementType, "FilterType"), 0).toInt();
    types->setCurrentIndex(type >= 0 && type < types->count() ? type : 0);
    patternLineEdit()->setText(settings.value(settingsKey(_elementType, "FilterValue")).toString());
}

void ElementsElementWidget::saveSettings() const
{
    QSettings settings;
    settings.setValue(settingsKey(_elementType, "HeaderState"),
                      elementTreeView()->header()->saveState());
    settings.setValue(settingsKey(_elementType, "FilterType"),
                      patternTypeComboBox()->currentIndex());
    settings.setValue(settingsKey(_elementType, "FilterValue"), patternLineEdit()->text());
}

void ElementsElementWidget::read()
{
    if (_role == ViewEditRole && _element
        && (_element->availableOperations() & ReadContentOperation)) {
        if (_element->canFetchMore())
            _element->fetchMore(); // clears the pending flag before the read starts
        else if (module().getData(QStringLiteral("paranoid")).toBool())
            _element->performOperation(ReadContentOperation, nullptr, 0);
    }
    _elementModel->setRootNode(_element);
    loadSettings();
}

void ElementsElementWidget::choiceElement(const QModelIndex &index)
{
    ListView::choiceElement(elementTreeView(), index);
}

void ElementsElementWidget::customContextMenuRequest(const QPoint &pos)
{
    emit customContextMenuRequested(elementTreeView()->viewport()->mapTo(this, pos));
}

void ElementsElementWidget::changeFilter()
{
    const QString text = patternLineEdit()->text();
    switch (patternTypeComboBox()->currentIndex()) {
    case 1:
        _proxyModel->setFilterRegExp(text);
        break;
    case 2:
        _proxyModel->setFilterFixedString(text);
        break;
    default:
        _proxyModel->setFilterWildcard(text);
        break;
    }
}

void ElementsElementWidget::hideEvent(QHideEvent *event)
{
    saveSettings();
    ListElementWidget::hideEvent(event);
}
