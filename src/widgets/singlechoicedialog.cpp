// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "singlechoicedialog.h"

#include "treenode/choicetreenodeproxymodel.h"
#include "treenode/filtertreenodesortfilterproxymodel.h"
#include "widgets/choicewidget.h"

#include <QLineEdit>
#include <QTreeView>
#include <QVBoxLayout>

SingleChoiceDialog::SingleChoiceDialog(QWidget *parent)
    : SingleChoiceDialog(0, parent)
{ }

SingleChoiceDialog::SingleChoiceDialog(int nameColumn, QWidget *parent)
    : AbstractChoiceDialog(parent)
    , _choiceModel(new ChoiceTreeNodeProxyModel(nameColumn, ChoiceWidget::ChoiceRole,
                                                ChoiceWidget::BlockRole, this))
    , _filterModel(new FilterTreeNodeSortFilterProxyModel(0x1, this))
    , _filterLineEdit(new QLineEdit(this))
    , _choiceTreeView(new QTreeView(this))
{
    _filterModel->setFilterCaseSensitivity(Qt::CaseInsensitive);
    _filterModel->setRecursiveFilteringEnabled(true);
    _filterModel->setSourceModel(_choiceModel);

    _filterLineEdit->setObjectName(QStringLiteral("_filterLineEdit"));
    _filterLineEdit->setAccessibleName(tr("Filter"));
    _filterLineEdit->setToolTip(tr("Show only the names that contain this text"));
    _filterLineEdit->setPlaceholderText(tr("Filter"));
    _filterLineEdit->setClearButtonEnabled(true);
    _choiceTreeView->setObjectName(QStringLiteral("_choiceTreeView"));
    _choiceTreeView->setAccessibleName(tr("Names"));
    _choiceTreeView->setAccessibleDescription(tr("Select the name to choose"));
    _choiceTreeView->setEditTriggers(QAbstractItemView::NoEditTriggers);
    _choiceTreeView->setSelectionMode(QAbstractItemView::SingleSelection);
    _choiceTreeView->setUniformRowHeights(true);
    // While the proxy moves rows, the selection model moves its selection along; that is not
    // the user's choice, and choosing then would change the model under the moving proxy.
    // Connected before the view's own connections, so the flag is up when they run.
    auto settling = [this](bool on) {
        return [this, on] {
            _settling = on;
        };
    };
    connect(_filterModel, &QAbstractItemModel::rowsAboutToBeRemoved, this, settling(true));
    connect(_filterModel, &QAbstractItemModel::rowsRemoved, this, settling(false));
    connect(_filterModel, &QAbstractItemModel::rowsAboutToBeInserted, this, settling(true));
    connect(_filterModel, &QAbstractItemModel::rowsInserted, this, settling(false));
    connect(_filterModel, &QAbstractItemModel::layoutAboutToBeChanged, this, settling(true));
    connect(_filterModel, &QAbstractItemModel::layoutChanged, this, settling(false));
    connect(_filterModel, &QAbstractItemModel::modelAboutToBeReset, this, settling(true));
    connect(_filterModel, &QAbstractItemModel::modelReset, this, settling(false));
    _choiceTreeView->setModel(_filterModel);

    auto *content = new QWidget(this);
    auto *layout = new QVBoxLayout(content);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(_filterLineEdit);
    layout->addWidget(_choiceTreeView);
    setContentWidget(content);
    resize(360, 400);

    connect(_filterLineEdit, &QLineEdit::textChanged, _filterModel,
            &QSortFilterProxyModel::setFilterFixedString);
    connect(_choiceTreeView->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            [this](const QItemSelection &selected) {
                if (!_settling && !selected.indexes().isEmpty())
                    choose(selected.indexes().first());
            });
    connect(_choiceTreeView, &QTreeView::doubleClicked, this, [this](const QModelIndex &index) {
        if (!(index.flags() & Qt::ItemIsEnabled))
            return;
        choose(index);
        if (isAcceptable())
            accept();
    });
    // Rows come back after a filter or arrive from the tree: show the chosen one selected
    // again. This runs once the proxy has settled (it was connected to the choice model
    // first); touching the view from the proxy's own row signals would re-enter it.
    connect(_filterLineEdit, &QLineEdit::textChanged, this, &SingleChoiceDialog::selectChosen);
    connect(_choiceModel, &QAbstractItemModel::rowsInserted, this,
            &SingleChoiceDialog::selectChosen);
    connect(_choiceModel, &QAbstractItemModel::modelReset, this, &SingleChoiceDialog::selectChosen);
}

ChoiceTreeNodeProxyModel *SingleChoiceDialog::choiceModel() const
{
    return _choiceModel;
}

FilterTreeNodeSortFilterProxyModel *SingleChoiceDialog::filterModel() const
{
    return _filterModel;
}

QTreeView *SingleChoiceDialog::choiceTreeView() const
{
    return _choiceTreeView;
}

QLineEdit *SingleChoiceDialog::filterLineEdit() const
{
    return _filterLineEdit;
}

void SingleChoiceDialog::setSourceModel(QAbstractItemModel *model)
{
    _choiceModel->setSourceModel(model);
    _choiceTreeView->setHeaderHidden(!model || model->columnCount() <= 1);
    _choiceTreeView->expandAll();
}

void SingleChoiceDialog::setCheckedNames(const QSet<QString> &names)
{
    QSet<QString> held;
    for (const QString &name : names) {
        if (indexOfName(name).isValid())
            held.insert(name);
    }
    _choiceModel->setCheckedNames(held);
    selectChosen();
}

QString SingleChoiceDialog::chosenName() const
{
    const QSet<QString> names = _choiceModel->checkedNames();
    return names.size() == 1 ? *names.cbegin() : QString();
}

void SingleChoiceDialog::setChosenName(const QString &name)
{
    setCheckedNames(name.isEmpty() ? QSet<QString>() : QSet<QString> {name});
}

bool SingleChoiceDialog::isAcceptable() const
{
    return _choiceModel->checkedNames().size() == 1;
}

QModelIndex SingleChoiceDialog::indexOfName(const QString &name) const
{
    if (!_choiceModel->sourceModel() || _choiceModel->rowCount() == 0)
        return QModelIndex();
    const QModelIndexList found = _choiceModel->match(
        _choiceModel->index(0, _choiceModel->nameColumn()), Qt::DisplayRole, name, 1,
        Qt::MatchExactly | Qt::MatchCaseSensitive | Qt::MatchRecursive);
    return found.value(0);
}

void SingleChoiceDialog::choose(const QModelIndex &viewIndex)
{
    if (!viewIndex.isValid() || !(viewIndex.flags() & Qt::ItemIsEnabled))
        return;
    const QModelIndex index
        = _filterModel->mapToSource(viewIndex.sibling(viewIndex.row(), _choiceModel->nameColumn()));
    const QString name = index.data(Qt::DisplayRole).toString();
    // Give up the others first, so the model never holds two names the user chose.
    const QSet<QString> others = _choiceModel->checkedNames() - QSet<QString> {name};
    for (const QString &other : others)
        _choiceModel->setData(indexOfName(other), false, ChoiceWidget::ChoiceRole);
    _choiceModel->setData(index, true, ChoiceWidget::ChoiceRole);
}

void SingleChoiceDialog::selectChosen()
{
    _choiceTreeView->expandAll();
    const QModelIndex index = _filterModel->mapFromSource(indexOfName(chosenName()));
    // A row highlighted but not chosen would mislead, and selecting it could not choose it.
    if (!index.isValid())
        _choiceTreeView->selectionModel()->clearSelection();
    else if (!_choiceTreeView->selectionModel()->isSelected(index))
        _choiceTreeView->setCurrentIndex(index);
}
