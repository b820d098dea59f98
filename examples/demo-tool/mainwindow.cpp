// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "mainwindow.h"

#include "element/contextoperation.h"
#include "element/element.h"
#include "element/elementcontainer.h"
#include "element/groupinvisibleelementsortfilterproxymodel.h"
#include "messages/typicalmessagesdialog.h"
#include "moduletitleproxymodel.h"
#include "plugin/module.h"
#include "plugin/plugincontainer.h"
#include "treenode/treenode.h"
#include "treenode/treenodemodel.h"
#include "widgets/elementwidget.h"
#include "widgets/elementwidgetcontainer2.h"

#include <QAction>
#include <QApplication>
#include <QHeaderView>
#include <QIcon>
#include <QMenuBar>
#include <QPainter>
#include <QPushButton>
#include <QSplitter>
#include <QStatusBar>
#include <QTimer>
#include <QToolBar>
#include <QTreeView>

MainWindow::MainWindow(QWidget *parent)
    : QMainWindow(parent)
    // A widget parent also parents the plug-in dialog and the container's message boxes.
    , _plugins(new PluginContainer(this))
    , _elements(new ElementContainer(this))
    , _moduleProxy(new ModuleTitleProxyModel(this))
    , _elementProxy(new GroupInvisibleElementSortFilterProxyModel(this))
    , _moduleView(new QTreeView)
    , _elementView(new QTreeView)
    , _widgets(new ElementWidgetContainer2)
{
    setWindowTitle(tr("OVT demo"));
    setWindowIcon(QIcon::fromTheme(QStringLiteral("preferences-system")));

    // Every reload of the plug-ins rebuilds the element tree from the new modules.
    connect(_plugins, &NodeContainer::nodeContainerReset, _elements,
            &ElementContainer::pluginContainerReset);
    connect(_plugins, &NodeContainer::nodeContainerReset, this, &MainWindow::pluginsReset);
    connect(_plugins, &PluginContainer::contentElementWidgetChanged, this, [this](int state) {
        if (state == 2)
            statusBar()->showMessage(tr("The form holds invalid values"));
    });

    _moduleProxy->setSourceModel(_plugins->treeNodeModel());
    _moduleView->setModel(_moduleProxy);
    _moduleView->setAlternatingRowColors(true);
    // Selection, not the current index: a view that gets the focus makes its first row
    // current without anyone choosing it.
    connect(_moduleView->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &MainWindow::moduleChosen);

    // The proxy hides supplements and narrows the tree to the chosen module's group. The
    // view asks the model to fetch more when a lazily read element is expanded; the proxy
    // passes that on to the element, which asks its module to read.
    _elementProxy->setSourceModel(_elements->treeNodeModel());
    _elementView->setModel(_elementProxy);
    _elementView->setAlternatingRowColors(true);
    _elementView->setUniformRowHeights(true);
    connect(_elementView->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &MainWindow::elementChosen);

    auto *right = new QSplitter(Qt::Vertical);
    right->addWidget(_elementView);
    right->addWidget(_widgets);
    right->setStretchFactor(1, 1);
    right->setSizes({330, 300});
    auto *splitter = new QSplitter;
    splitter->addWidget(_moduleView);
    splitter->addWidget(right);
    splitter->setStretchFactor(1, 1);
    splitter->setSizes({330, 770});
    setCentralWidget(splitter);

    auto *pluginsAction = new QAction(QIcon::fromTheme(QStringLiteral("application-x-addon")),
                                      tr("&Plug-ins…"), this);
    pluginsAction->setToolTip(tr("Loaded plug-ins and the files that failed to load"));
    connect(pluginsAction, &QAction::triggered, _plugins, &PluginContainer::showPluginDialog);
    auto *messagesAction = new QAction(QIcon::fromTheme(QStringLiteral("dialog-information")),
                                       tr("&Typical messages…"), this);
    messagesAction->setToolTip(tr("Bring back the messages you chose not to see again"));
    connect(messagesAction, &QAction::triggered, this, [this] {
        TypicalMessagesDialog dialog(this);
        dialog.exec();
    });
    auto *quitAction
        = new QAction(QIcon::fromTheme(QStringLiteral("application-exit")), tr("&Quit"), this);
    quitAction->setShortcut(QKeySequence::Quit);
    connect(quitAction, &QAction::triggered, this, &QWidget::close);

    QMenu *fileMenu = menuBar()->addMenu(tr("&File"));
    fileMenu->addAction(quitAction);
    QMenu *toolsMenu = menuBar()->addMenu(tr("&Tools"));
    toolsMenu->addAction(pluginsAction);
    toolsMenu->addAction(messagesAction);
    QToolBar *toolBar = addToolBar(tr("Tools"));
    toolBar->setObjectName(QStringLiteral("toolBar"));
    toolBar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    toolBar->addAction(pluginsAction);
    toolBar->addAction(messagesAction);

    resize(1100, 700);
}

MainWindow::~MainWindow()
{
    // The borrowed widgets go back to their modules first, then the modules go. Unloading
    // announces a reset: left to QObject's clean-up of children, it would reach
    // pluginsReset() of a window whose QMainWindow part is already gone.
    delete _widgets;
    _widgets = nullptr;
    delete _plugins;
}

void MainWindow::loadPlugins(const QString &directory)
{
    // The widgets shown belong to modules that the reload deletes.
    if (!_widgets->clear())
        return;
    statusBar()->showMessage(tr("Loading plug-ins from %1…").arg(directory));
    _plugins->loadPlugins(directory);
}

void MainWindow::pluginsReset()
{
    if (!_widgets)
        return;
    _moduleView->expandAll();
    for (int column = 0; column < _moduleProxy->columnCount(); ++column)
        _moduleView->resizeColumnToContents(column);
    expandFixedElements();
    statusBar()->showMessage(
        tr("%n plug-in(s) from %1, %2 module(s)", nullptr, _plugins->plugins().size())
            .arg(_plugins->pluginPath())
            .arg(_plugins->modules().size()));
}

void MainWindow::moduleChosen()
{
    // The elements carry their module's name as group; no module chosen shows them all.
    const QModelIndexList chosen = _moduleView->selectionModel()->selectedRows();
    TreeNode *node = chosen.isEmpty()
        ? nullptr
        : _plugins->treeNodeModel()->toTreeNode(_moduleProxy->mapToSource(chosen.first()));
    _elementProxy->setGroupElementType(node ? node->id() : ContextOperation::undefinedElementType);
    expandFixedElements();
}

void MainWindow::elementChosen()
{
    // Unloading in the destructor removes rows, and with them the current one.
    if (!_widgets)
        return;
    auto *element = qobject_cast<Element *>(
        _elementProxy->toTreeNode(_elementView->selectionModel()->currentIndex()));
    if (_widgets->setElement(element))
        return;
    // The user chose to stay with unsaved edits: the tree follows the form, not the click.
    const QSignalBlocker blocker(_elementView->selectionModel());
    _elementView->selectionModel()->setCurrentIndex(
        _elementProxy->treeNodeToIndex(_widgets->element()), QItemSelectionModel::ClearAndSelect);
}

void MainWindow::expandFixedElements()
{
    // Folders whose children are already there open at once. Lazily read ones stay closed:
    // their read starts only when the user opens them.
    for (int row = 0; row < _elementProxy->rowCount(); ++row) {
        const QModelIndex index = _elementProxy->index(row, 0);
        if (!_elementProxy->canFetchMore(index))
            _elementView->expand(index);
    }
}

void MainWindow::select(const QStringList &path, const QString &button)
{
    if (path.isEmpty())
        return;
    // Modules answer no id role; the container's list has them all.
    Module *module = nullptr;
    for (Module *candidate : _plugins->modules()) {
        if (candidate->id() == path.first())
            module = candidate;
    }
    if (!module) {
        statusBar()->showMessage(tr("No module %1").arg(path.first()));
        return;
    }
    _moduleView->selectionModel()->select(
        _moduleProxy->mapFromSource(_plugins->treeNodeModel()->treeNodeToIndex(module)),
        QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    selectStep(path.mid(1), button, 50);
}

void MainWindow::selectStep(const QStringList &path, const QString &button, int attempts)
{
    QModelIndex parent;
    for (const QString &id : path) {
        const QModelIndexList found = _elementProxy->match(
            _elementProxy->index(0, 0, parent), Qt::UserRole + 2, id, 1, Qt::MatchExactly);
        if (found.isEmpty()) {
            // Not read yet: the expansion below started a task; look again shortly.
            if (attempts > 0)
                QTimer::singleShot(100, this, [=] { selectStep(path, button, attempts - 1); });
            return;
        }
        parent = found.first();
        _elementView->expand(parent);
    }
    _elementView->selectionModel()->setCurrentIndex(parent, QItemSelectionModel::ClearAndSelect);
    if (button.isEmpty() || !_widgets->currentElementWidget())
        return;
    for (QPushButton *candidate : _widgets->currentElementWidget()->findChildren<QPushButton *>()) {
        if (candidate->text().remove(QLatin1Char('&')).startsWith(button)) {
            // Queued: a button that opens a modal dialog must not hold up the start-up.
            QTimer::singleShot(0, candidate, &QPushButton::click);
            return;
        }
    }
}

QImage MainWindow::render()
{
    QImage image = grab().toImage();
    QPainter painter(&image);
    // Dialogs are windows of their own; paint the visible ones over this one.
    // The observer's invisible blocking dialog has no size worth showing.
    for (QWidget *widget : QApplication::topLevelWidgets()) {
        if (widget == this || !widget->isVisible() || widget->width() < 50
            || widget->windowOpacity() < 0.1)
            continue;
        // Centred, where a window manager puts a dialog over its parent; without one (offscreen)
        // the dialog's own position says nothing.
        painter.drawPixmap((width() - widget->width()) / 2, (height() - widget->height()) / 2,
                           widget->grab());
    }
    return image;
}
