#include "mainwindow.h"

#include "element/contextoperation.h"
#include "element/elementcontainer.h"
#include "element/groupinvisibleelementsortfilterproxymodel.h"
#include "plugin/plugincontainer.h"
#include "treenode/treenode.h"
#include "treenode/treenodemodel.h"

#include <QAction>
#include <QHeaderView>
#include <QIcon>
#include <QMenuBar>
#include <QSplitter>
#include <QStatusBar>
#include <QToolBar>
#include <QTreeView>

MainWindow::MainWindow(QWidget *parent)
    : QMainWindow(parent)
    // A widget parent also parents the plug-in dialog and the container's message boxes.
    , _plugins(new PluginContainer(this))
    , _elements(new ElementContainer(this))
    , _elementProxy(new GroupInvisibleElementSortFilterProxyModel(this))
    , _moduleView(new QTreeView)
    , _elementView(new QTreeView)
{
    setWindowTitle(tr("OVT demo"));
    setWindowIcon(QIcon::fromTheme(QStringLiteral("preferences-system")));

    // Every reload of the plug-ins rebuilds the element tree from the new modules.
    connect(_plugins, &NodeContainer::nodeContainerReset, _elements,
            &ElementContainer::pluginContainerReset);
    connect(_plugins, &NodeContainer::nodeContainerReset, this, &MainWindow::pluginsReset);

    _moduleView->setModel(_plugins->treeNodeModel());
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

    auto *splitter = new QSplitter;
    splitter->addWidget(_moduleView);
    splitter->addWidget(_elementView);
    splitter->setStretchFactor(1, 1);
    splitter->setSizes({400, 500});
    setCentralWidget(splitter);

    auto *pluginsAction = new QAction(QIcon::fromTheme(QStringLiteral("application-x-addon")),
                                      tr("&Plugins…"), this);
    pluginsAction->setToolTip(tr("Loaded plug-ins and the files that failed to load"));
    connect(pluginsAction, &QAction::triggered, _plugins, &PluginContainer::showPluginDialog);
    auto *quitAction
        = new QAction(QIcon::fromTheme(QStringLiteral("application-exit")), tr("&Quit"), this);
    quitAction->setShortcut(QKeySequence::Quit);
    connect(quitAction, &QAction::triggered, this, &QWidget::close);

    QMenu *toolMenu = menuBar()->addMenu(tr("&Tool"));
    toolMenu->addAction(pluginsAction);
    toolMenu->addSeparator();
    toolMenu->addAction(quitAction);
    QToolBar *toolBar = addToolBar(tr("Tool"));
    toolBar->setObjectName(QStringLiteral("toolBar"));
    toolBar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    toolBar->addAction(pluginsAction);

    resize(900, 600);
}

MainWindow::~MainWindow()
{
    // Unloading announces a reset. Left to QObject's clean-up of children, it would reach
    // pluginsReset() of a window whose QMainWindow part is already gone.
    delete _plugins;
}

void MainWindow::loadPlugins(const QString &directory)
{
    statusBar()->showMessage(tr("Loading plug-ins from %1…").arg(directory));
    _plugins->loadPlugins(directory);
}

void MainWindow::pluginsReset()
{
    _moduleView->expandAll();
    for (int column = 0; column < _plugins->treeNodeModel()->columnCount(); ++column)
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
    TreeNode *node
        = chosen.isEmpty() ? nullptr : _plugins->treeNodeModel()->toTreeNode(chosen.first());
    _elementProxy->setGroupElementType(node ? node->id() : ContextOperation::undefinedElementType);
    expandFixedElements();
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
