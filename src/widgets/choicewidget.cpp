// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "choicewidget.h"

#include "treenode/choicefiltertreenodesortfilterproxymodel.h"
#include "treenode/choicetreenodeproxymodel.h"
#include "ui_choicewidget.h"

#include <QHeaderView>
#include <QIdentityProxyModel>

namespace {

// Shows the tick of the choice model as a check box in the name column. The choice model
// cannot tick under Qt::CheckStateRole itself: its filter proxies would then read every row
// as unticked, so the tick travels under its own role and is translated here, at the top.
class CheckBoxes : public QIdentityProxyModel
{
public:
    CheckBoxes(int nameColumn, QObject *parent)
        : QIdentityProxyModel(parent)
        , _nameColumn(nameColumn)
    { }

    QVariant data(const QModelIndex &index, int role) const override
    {
        if (role != Qt::CheckStateRole || index.column() != _nameColumn)
            return QIdentityProxyModel::data(index, role);
        return QIdentityProxyModel::data(index, ChoiceWidget::ChoiceRole).toBool() ? Qt::Checked
                                                                                   : Qt::Unchecked;
    }

    bool setData(const QModelIndex &index, const QVariant &value, int role) override
    {
        if (role != Qt::CheckStateRole || index.column() != _nameColumn)
            return QIdentityProxyModel::setData(index, value, role);
        return QIdentityProxyModel::setData(index, value.toInt() != Qt::Unchecked,
                                            ChoiceWidget::ChoiceRole);
    }

    Qt::ItemFlags flags(const QModelIndex &index) const override
    {
        const Qt::ItemFlags flags = QIdentityProxyModel::flags(index);
        // A blocked row comes without any flag and must stay disabled.
        if (index.column() != _nameColumn || !(flags & Qt::ItemIsEnabled))
            return flags;
        return flags | Qt::ItemIsUserCheckable;
    }

private:
    const int _nameColumn;
};

ChoiceFilterTreeNodeSortFilterProxyModel *stateProxy(bool checked, ChoiceTreeNodeProxyModel *source,
                                                     QTreeView *view, QObject *parent)
{
    auto *proxy = new ChoiceFilterTreeNodeSortFilterProxyModel(checked, parent);
    proxy->setFilterCaseSensitivity(Qt::CaseInsensitive);
    // Ancestors stay as the context of a matching or ticked descendant, which would otherwise
    // vanish from both views.
    proxy->setRecursiveFilteringEnabled(true);
    proxy->setDynamicSortFilter(true);
    proxy->setSourceModel(source);
    auto *boxes = new CheckBoxes(source->nameColumn(), parent);
    boxes->setSourceModel(proxy);
    view->setModel(boxes);
    return proxy;
}

} // namespace

ChoiceWidget::ChoiceWidget(QWidget *parent)
    : ChoiceWidget(0, parent)
{ }

ChoiceWidget::ChoiceWidget(int nameColumn, QWidget *parent)
    : QWidget(parent)
    , _ui(new Ui::ChoiceWidget)
    , _choiceModel(new ChoiceTreeNodeProxyModel(nameColumn, ChoiceRole, BlockRole, this))
{
    _ui->setupUi(this);
    _uncheckedModel = stateProxy(false, _choiceModel, _ui->_uncheckedTreeView, this);
    _checkedModel = stateProxy(true, _choiceModel, _ui->_checkedTreeView, this);
    connect(_choiceModel, &ChoiceTreeNodeProxyModel::stateChanged, this,
            &ChoiceWidget::stateChanged);
    // Names move between the views as they are ticked or arrive: show every one where it
    // lands. Only once the proxies have settled (they were connected to the choice model
    // first); expanding from their own row signals would re-enter them.
    connect(_choiceModel, &ChoiceTreeNodeProxyModel::stateChanged, this, &ChoiceWidget::expand);
    connect(_choiceModel, &QAbstractItemModel::rowsInserted, this, &ChoiceWidget::expand);
    connect(_choiceModel, &QAbstractItemModel::modelReset, this, &ChoiceWidget::expand);
    connect(_ui->_filterLineEdit, &QLineEdit::textChanged, this, &ChoiceWidget::changeFilter);
}

ChoiceWidget::~ChoiceWidget()
{
    delete _ui;
}

void ChoiceWidget::setSourceModel(QAbstractItemModel *model)
{
    _choiceModel->setSourceModel(model);
    // A single column needs no header: the labels above the views name them.
    const bool oneColumn = !model || model->columnCount() <= 1;
    _ui->_uncheckedTreeView->setHeaderHidden(oneColumn);
    _ui->_checkedTreeView->setHeaderHidden(oneColumn);
    expand();
}

QAbstractItemModel *ChoiceWidget::sourceModel() const
{
    return _choiceModel->sourceModel();
}

ChoiceTreeNodeProxyModel *ChoiceWidget::choiceModel() const
{
    return _choiceModel;
}

ChoiceFilterTreeNodeSortFilterProxyModel *ChoiceWidget::filterModel(bool checked) const
{
    return checked ? _checkedModel : _uncheckedModel;
}

QTreeView *ChoiceWidget::checkedTreeView() const
{
    return _ui->_checkedTreeView;
}

QTreeView *ChoiceWidget::uncheckedTreeView() const
{
    return _ui->_uncheckedTreeView;
}

QLineEdit *ChoiceWidget::filterLineEdit() const
{
    return _ui->_filterLineEdit;
}

void ChoiceWidget::setCheckedNames(const QSet<QString> &names)
{
    _choiceModel->setCheckedNames(names);
}

void ChoiceWidget::setBlockedNames(const QSet<QString> &names)
{
    _choiceModel->setBlockedNames(names);
}

QSet<QString> ChoiceWidget::checkedNames() const
{
    return _choiceModel->checkedNames();
}

QSet<QString> ChoiceWidget::blockedNames() const
{
    return _choiceModel->blockedNames();
}

QSet<QString> ChoiceWidget::addNames() const
{
    return _choiceModel->addNames();
}

QSet<QString> ChoiceWidget::removeNames() const
{
    return _choiceModel->removeNames();
}

void ChoiceWidget::changeFilter(const QString &text)
{
    _uncheckedModel->setFilterFixedString(text);
    _checkedModel->setFilterFixedString(text);
    expand();
}

void ChoiceWidget::expand()
{
    _ui->_uncheckedTreeView->expandAll();
    _ui->_checkedTreeView->expandAll();
}
