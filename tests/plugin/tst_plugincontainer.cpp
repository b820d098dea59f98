#include "plugin/module.h"
#include "plugin/plugin.h"
#include "plugin/plugincontainer.h"
#include "plugin/plugindialog.h"
#include "plugin/pluginmodel.h"
#include "plugin/simpleplugin.h"
#include "treenode/treenode.h"
#include "treenode/treenodemodel.h"

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QDirIterator>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPainter>
#include <QPluginLoader>
#include <QPointer>
#include <QSettings>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QTreeView>

#include <memory>

namespace {

const QString fixtureDir = QStringLiteral(OVT_FIXTURE_PLUGINS);

// The tree as the model shows it: "[a[a1 a2] b]".
QString modelTree(const QAbstractItemModel *model, const QModelIndex &parent = QModelIndex())
{
    QStringList rows;
    for (int row = 0; row < model->rowCount(parent); ++row) {
        const QModelIndex index = model->index(row, 0, parent);
        rows << index.data().toString() + modelTree(model, index);
    }
    return rows.isEmpty() ? QString() : QLatin1Char('[') + rows.join(QLatin1Char(' ')) + ']';
}

// Each file's record in one word: what a user of the container can tell about it.
QString describe(const PluginContainer::PluginEntry &entry)
{
    if (!entry.second)
        return QStringLiteral("null");
    if (auto *record = qobject_cast<SimplePlugin *>(entry.second)) {
        if (record->available())
            return QStringLiteral("record:%1").arg(record->name());
        return QStringLiteral("failed:%1:%2").arg(record->name(), record->errorDescription());
    }
    return QStringLiteral("plugin:%1:%2")
        .arg(entry.second->name())
        .arg(entry.second->modules().size());
}

QStringList soFilesInIteratorOrder(const QString &dir)
{
    QStringList files;
    QDirIterator it(dir, {QStringLiteral("*.so")}, QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext())
        files << QFileInfo(it.next()).absoluteFilePath();
    return files;
}

// A row of string fields separated by ';'.
void row(const char *name, const QString &fields)
{
    QTestData &data = QTest::newRow(name);
    for (const QString &field : fields.split(QLatin1Char(';')))
        data << field.trimmed();
}

// Closes the next message box that becomes modal and hands back its text.
void closeNextMessageBox(QString *text)
{
    auto *timer = new QTimer;
    QObject::connect(timer, &QTimer::timeout, [timer, text] {
        if (auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget())) {
            *text = box->text();
            box->close();
            timer->deleteLater();
        }
    });
    timer->start(10);
}

} // namespace

class tst_PluginContainer : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void loadsOneRecordPerFile_data();
    void loadsOneRecordPerFile();
    void listsEveryFileInIteratorOrder();
    void nestsModulesAcrossPlugins();
    void signalSequence_data();
    void signalSequence();
    void relaysModuleSignals();
    void reloadingGivesSameTreeWithNewModules();
    void missingDirectoryShowsMessage();
    void moduleTreeModelUnderTester();
    void destructionUnloadsModules();
    void brokenFilesNeverCrash();
    void pluginModelRows_data();
    void pluginModelRows();
    void pluginModelModuleRows();
    void dialogFormAndPicture();

private:
    void installStatusIconTheme();

    QTemporaryDir _iconThemeDir;
    std::unique_ptr<PluginContainer> _container;
    QStringList _signals;
};

void tst_PluginContainer::initTestCase()
{
    QCoreApplication::setOrganizationName(QStringLiteral("ovt-tests"));
    QCoreApplication::setApplicationName(QStringLiteral("tst_plugincontainer"));
    QIcon::setThemeName(QStringLiteral("Adwaita"));
    if (!QIcon::hasThemeIcon(QStringLiteral("task-complete")))
        installStatusIconTheme();
    QVERIFY2(QFileInfo::exists(fixtureDir + "/alpha.so"), qPrintable(fixtureDir));
}

// Adwaita has no task status icons (KDE themes have). A small theme that inherits it supplies
// the two, so that the model's icons are checked by name and show in the picture on any
// desktop.
void tst_PluginContainer::installStatusIconTheme()
{
    QVERIFY(_iconThemeDir.isValid());
    QDir root(_iconThemeDir.path());
    QVERIFY(root.mkpath("ovt-test/22x22/status"));
    QFile index(root.filePath("ovt-test/index.theme"));
    QVERIFY(index.open(QIODevice::WriteOnly));
    index.write("[Icon Theme]\nName=ovt-test\nInherits=Adwaita\nDirectories=22x22/status\n\n"
                "[22x22/status]\nSize=22\nType=Fixed\n");
    index.close();
    const auto draw = [&root](const QString &name, const QColor &color, bool check) {
        QImage image(22, 22, QImage::Format_ARGB32);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setBrush(color);
        painter.setPen(Qt::NoPen);
        painter.drawEllipse(1, 1, 20, 20);
        painter.setPen(QPen(Qt::white, 3));
        if (check) {
            painter.drawPolyline(QPolygon({QPoint(6, 11), QPoint(10, 15), QPoint(16, 7)}));
        } else {
            painter.drawLine(7, 7, 15, 15);
            painter.drawLine(15, 7, 7, 15);
        }
        painter.end();
        return image.save(root.filePath("ovt-test/22x22/status/" + name + ".png"));
    };
    QVERIFY(draw("task-complete", QColor(0x2e, 0x9e, 0x44), true));
    QVERIFY(draw("task-reject", QColor(0xc0, 0x1c, 0x28), false));
    QIcon::setThemeSearchPaths(QIcon::themeSearchPaths() << _iconThemeDir.path());
    QIcon::setThemeName(QStringLiteral("ovt-test"));
    QVERIFY(QIcon::hasThemeIcon(QStringLiteral("task-reject")));
}

void tst_PluginContainer::init()
{
    _container = std::make_unique<PluginContainer>(nullptr);
    _signals.clear();
    PluginContainer *c = _container.get();
    connect(c, &NodeContainer::nodeContainerAboutToBeReset, this,
            [this] { _signals << QStringLiteral("aboutToBeReset"); });
    connect(c, &NodeContainer::nodeContainerReset, this, [this, c](const TreeNode *root) {
        _signals << (root == c->rootNode() ? QStringLiteral("reset(root)")
                                           : QStringLiteral("reset(other)"));
    });
    connect(c, &PluginContainer::contentElementWidgetChanged, this,
            [this](int state) { _signals << QStringLiteral("contentChanged(%1)").arg(state); });
    connect(c, &PluginContainer::customContextMenuRequested, this, [this](const QPoint &pos) {
        _signals << QStringLiteral("contextMenu(%1,%2)").arg(pos.x()).arg(pos.y());
    });
}

void tst_PluginContainer::cleanup()
{
    _container.reset();
}

void tst_PluginContainer::loadsOneRecordPerFile_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("record");
    row("plug-in with two modules", "alpha.so; plugin:Alpha:2");
    row("plug-in with a module and a plain node", "beta.so; plugin:Beta:2");
    row("plug-in in a subdirectory", "sub/gamma.so; plugin:Gamma:1");
    row("invalid plug-in naming packages",
        "invalid.so; failed:Broken:Failed to load plugin. "
        "The error can be caused by missing package(s): a, b.");
    row("invalid plug-in without packages",
        "invalidnopackages.so; failed:Lonely:Failed to load plugin.");
    row("valid plug-in without modules is an available record", "empty.so; record:Empty");
    row("foreign interface identifier", "foreign.so; null");
    row("unresolved symbol", "unresolved.so; null");
    row("text file named like a library", "garbage.so; null");
}

void tst_PluginContainer::loadsOneRecordPerFile()
{
    QFETCH(QString, file);
    QFETCH(QString, record);

    _container->loadPlugins(fixtureDir);

    const QString path = QFileInfo(fixtureDir + '/' + file).absoluteFilePath();
    int found = 0;
    for (const PluginContainer::PluginEntry &entry : _container->plugins()) {
        if (entry.first->fileName() == path) {
            ++found;
            QCOMPARE(describe(entry), record);
        }
    }
    QCOMPARE(found, 1);
}

void tst_PluginContainer::listsEveryFileInIteratorOrder()
{
    _container->loadPlugins(fixtureDir);

    QStringList loaded;
    for (const PluginContainer::PluginEntry &entry : _container->plugins())
        loaded << entry.first->fileName();
    QCOMPARE(loaded, soFilesInIteratorOrder(fixtureDir));
    QCOMPARE(loaded.size(), 9);
    QCOMPARE(_container->pluginPath(), fixtureDir);
    // Only plug-ins whose modules were kept count: not the empty one, not the invalid ones.
    QCOMPARE(_container->availableOperationsClass(), quint64(0x1 | 0x6 | 0x8));
}

void tst_PluginContainer::nestsModulesAcrossPlugins()
{
    _container->loadPlugins(fixtureDir);

    QCOMPARE(modelTree(_container->treeNodeModel()), QString("[groups network users[passwords]]"));
    QStringList modules;
    Module *passwords = nullptr;
    for (Module *module : _container->modules()) {
        modules << module->id();
        if (module->id() == "passwords")
            passwords = module;
    }
    modules.sort();
    QCOMPARE(modules, QStringList({"groups", "network", "passwords", "users"}));
    // A sub-module inherits what its parent in another plug-in declares.
    QVERIFY(Module::isAdministratorHierarchy(*passwords));
    QCOMPARE(_container->treeNodeModel()->headerData(1, Qt::Horizontal).toString(),
             QString("Reread"));
}

void tst_PluginContainer::signalSequence_data()
{
    QTest::addColumn<QString>("dir");
    QTest::addColumn<bool>("unloadAfter");
    QTest::addColumn<QStringList>("expected");

    const QStringList load {"aboutToBeReset", "aboutToBeReset", "reset(root)", "reset(root)"};
    QTest::newRow("load: two about-to-be-reset, then two resets") << fixtureDir << false << load;
    QTest::newRow("load then unload")
        << fixtureDir << true << load + QStringList {"aboutToBeReset", "reset(root)"};
    QTest::newRow("directory without plug-ins: still one final reset")
        << QString() << false << load;
}

void tst_PluginContainer::signalSequence()
{
    QFETCH(QString, dir);
    QFETCH(bool, unloadAfter);
    QFETCH(QStringList, expected);

    QTemporaryDir empty;
    _container->loadPlugins(dir.isEmpty() ? empty.path() : dir);
    if (unloadAfter) {
        _container->unloadPlugins();
        QVERIFY(_container->plugins().isEmpty());
        QVERIFY(_container->modules().isEmpty());
        QCOMPARE(_container->availableOperationsClass(), quint64(0));
        QCOMPARE(_container->pluginPath(), QString());
        QCOMPARE(_container->rootNode()->childNodesCount(), 0);
    }
    QCOMPARE(_signals, expected);
}

void tst_PluginContainer::relaysModuleSignals()
{
    _container->loadPlugins(fixtureDir);
    _signals.clear();
    for (Module *module : _container->modules()) {
        if (module->id() == "passwords") {
            emit module->contentElementWidgetChanged(3);
            emit module->customContextMenuRequested(QPoint(4, 5));
        }
    }
    QCOMPARE(_signals, QStringList({"contentChanged(3)", "contextMenu(4,5)"}));
}

void tst_PluginContainer::reloadingGivesSameTreeWithNewModules()
{
    _container->loadPlugins(fixtureDir);
    const QString firstTree = modelTree(_container->treeNodeModel());
    QList<QPointer<Module>> first;
    for (Module *module : _container->modules())
        first << module;

    _container->loadPlugins(fixtureDir);

    QCOMPARE(modelTree(_container->treeNodeModel()), firstTree);
    QCOMPARE(_container->plugins().size(), 9);
    for (const QPointer<Module> &module : first)
        QVERIFY2(module.isNull(), "a module of the first load outlived the reload");
    QCOMPARE(_container->modules().size(), first.size());
}

void tst_PluginContainer::missingDirectoryShowsMessage()
{
    const QString missing = fixtureDir + "/no-such-directory";
    QString text;
    closeNextMessageBox(&text);

    _container->loadPlugins(missing);

    QCOMPARE(text, QString("Plugin directory '%1' not exist.").arg(missing));
    QCOMPARE(_signals, QStringList({"aboutToBeReset", "aboutToBeReset", "reset(root)"}));
    QCOMPARE(_container->pluginPath(), missing);
    QVERIFY(_container->plugins().isEmpty());
    QCOMPARE(modelTree(_container->treeNodeModel()), QString());
}

void tst_PluginContainer::moduleTreeModelUnderTester()
{
    // The tester descends into the children of every column, and the tree model answers a
    // row's children under every column; with nested modules it would compare a column-1
    // parent with the column-0 parent the model reports. So it watches the plug-in of the
    // subdirectory, whose module has no sub-modules, through load, reload and unload.
    QAbstractItemModelTester tester(_container->treeNodeModel(),
                                    QAbstractItemModelTester::FailureReportingMode::Fatal);
    const QString flat = fixtureDir + "/sub";
    _container->loadPlugins(flat);
    QCOMPARE(modelTree(_container->treeNodeModel()), QString("[network]"));
    _container->loadPlugins(flat);
    QCOMPARE(modelTree(_container->treeNodeModel()), QString("[network]"));
    _container->unloadPlugins();
    QCOMPARE(modelTree(_container->treeNodeModel()), QString());
    // Emptying a nested tree is within the tester's rules too.
    _container.reset(new PluginContainer(nullptr));
    QAbstractItemModelTester nested(_container->treeNodeModel(),
                                    QAbstractItemModelTester::FailureReportingMode::Fatal);
    _container->unloadPlugins();
}

void tst_PluginContainer::destructionUnloadsModules()
{
    _container->loadPlugins(fixtureDir);
    QList<QPointer<Module>> modules;
    for (Module *module : _container->modules())
        modules << module;
    QVERIFY(!modules.isEmpty());

    _container.reset();

    for (const QPointer<Module> &module : modules)
        QVERIFY(module.isNull());
}

void tst_PluginContainer::brokenFilesNeverCrash()
{
    // Given a directory of nothing but broken files of every kind
    QTemporaryDir dir;
    QVERIFY(dir.isValid());
    QStringList broken {"foreign.so", "unresolved.so", "garbage.so", "invalid.so"};
    for (const QString &file : broken)
        QVERIFY(QFile::copy(fixtureDir + '/' + file, dir.filePath(file)));
    QFile empty(dir.filePath("zero.so"));
    QVERIFY(empty.open(QIODevice::WriteOnly));
    empty.close();
    QFile truncated(dir.filePath("truncated.so"));
    QFile alpha(fixtureDir + "/alpha.so");
    QVERIFY(alpha.open(QIODevice::ReadOnly) && truncated.open(QIODevice::WriteOnly));
    truncated.write(alpha.read(200));
    truncated.close();
    QVERIFY(QFile::link(dir.filePath("nowhere"), dir.filePath("dangling.so")));
    QVERIFY(QDir(dir.path()).mkpath("directory.so"));

    // When it is loaded
    _container->loadPlugins(dir.path());

    // Then every regular file has its record and every failure has an explanation
    const PluginModel *model = _container->pluginModel();
    QCOMPARE(_container->plugins().size(), 6);
    QCOMPARE(model->rowCount(), 6);
    for (int row = 0; row < model->rowCount(); ++row) {
        const QModelIndex name = model->index(row, 0);
        const QString why = model->index(row, 1).data(Qt::ToolTipRole).toString();
        QVERIFY2(!why.isEmpty(), qPrintable(name.data().toString()));
        QCOMPARE(name.data(Qt::DecorationRole).value<QIcon>().name(), QString("task-reject"));
    }
    QCOMPARE(modelTree(_container->treeNodeModel()), QString());
}

void tst_PluginContainer::pluginModelRows_data()
{
    // Texts of the description column are wildcard patterns; "children" counts module rows.
    for (const char *column :
         {"file", "name", "description", "descriptionToolTip", "icon", "children"})
        QTest::addColumn<QString>(column);
    row("loaded plug-in", "alpha.so; Alpha; Users and groups; Users and groups; task-complete; 2");
    row("failed plug-in explains in its tool tip",
        "invalid.so; Broken; Cannot work here; Failed to load plugin. The error can be caused by "
        "missing package(s): a, b.; task-reject; 0");
    row("plug-in without modules has no icon",
        "empty.so; Empty; Offers no modules; Offers no modules;; 0");
    row("unloadable library shows the loader's error",
        "unresolved.so; unresolved.so; *ovt_fixture_missing_symbol*; "
        "*ovt_fixture_missing_symbol*; task-reject; 0");
}

void tst_PluginContainer::pluginModelRows()
{
    QFETCH(QString, file);
    QFETCH(QString, name);
    QFETCH(QString, description);
    QFETCH(QString, descriptionToolTip);
    QFETCH(QString, icon);
    QFETCH(QString, children);

    _container->loadPlugins(fixtureDir);
    PluginModel *model = _container->pluginModel();
    QModelIndex index;
    for (int row = 0; row < model->rowCount(); ++row)
        if (model->index(row, 0).data(Qt::ToolTipRole).toString() == file)
            index = model->index(row, 0);
    QVERIFY(index.isValid());

    QCOMPARE(index.data().toString(), name);
    const QModelIndex second = index.sibling(index.row(), 1);
    const auto matches = [](const QString &pattern, const QString &text) {
        return QRegExp(pattern, Qt::CaseSensitive, QRegExp::Wildcard).exactMatch(text);
    };
    QVERIFY2(matches(description, second.data().toString()), qPrintable(second.data().toString()));
    QVERIFY2(matches(descriptionToolTip, second.data(Qt::ToolTipRole).toString()),
             qPrintable(second.data(Qt::ToolTipRole).toString()));
    const QVariant decoration = index.data(Qt::DecorationRole);
    if (icon.isEmpty())
        QVERIFY(!decoration.isValid());
    else
        QCOMPARE(decoration.value<QIcon>().name(), icon);
    QCOMPARE(model->rowCount(index), children.toInt());
    const PluginContainer::PluginEntry entry = _container->plugins().at(index.row());
    QCOMPARE(model->indexToObject(index),
             entry.second ? static_cast<QObject *>(entry.second) : entry.first);
    QCOMPARE(model->ObjectToIndex(model->indexToObject(index)), index);
}

void tst_PluginContainer::pluginModelModuleRows()
{
    // QAbstractItemModelTester cannot watch this model: a plug-in row answers its modules under
    // every column, as the tree model does, and the tester then expects the column-1 index as
    // the modules' parent. The structure is checked here through column 0 instead.
    _container->loadPlugins(fixtureDir);
    PluginModel *model = _container->pluginModel();
    QCOMPARE(model->headerData(1, Qt::Horizontal).toString(), QString("Description"));

    QStringList rows;
    for (int row = 0; row < model->rowCount(); ++row) {
        const QModelIndex plugin = model->index(row, 0);
        QVERIFY(!plugin.parent().isValid());
        for (int child = 0; child < model->rowCount(plugin); ++child) {
            const QModelIndex module = model->index(child, 0, plugin);
            QCOMPARE(module.parent(), plugin);
            QCOMPARE(model->rowCount(module), 0);
            QCOMPARE(model->ObjectToIndex(model->indexToObject(module)), module);
            rows << QStringLiteral("%1/%2:%3")
                        .arg(plugin.data().toString(), module.data().toString(),
                             module.sibling(child, 1).data().toString());
        }
    }
    rows.sort();
    QCOMPARE(rows,
             QStringList({"Alpha/groups:User groups", "Alpha/users:User accounts",
                          "Beta/:", "Beta/passwords:Password rules", "Gamma/network:Interfaces"}));
}

void tst_PluginContainer::dialogFormAndPicture()
{
    QSettings().remove("pluginDialog");
    _container->loadPlugins(fixtureDir);
    _container->showPluginDialog();
    PluginDialog *dialog = nullptr;
    for (QWidget *widget : QApplication::topLevelWidgets())
        if (auto *d = qobject_cast<PluginDialog *>(widget))
            dialog = d;
    QVERIFY(dialog);
    QVERIFY(QTest::qWaitForWindowExposed(dialog));

    QCOMPARE(dialog->windowTitle(), QString("Plugins and modules"));
    QCOMPARE(dialog->findChild<QLineEdit *>("_pathLineEdit")->text(), fixtureDir);
    auto *tabs = dialog->findChild<QTabWidget *>("_pluginTabWidget");
    QCOMPARE(tabs->tabText(1), QString("Modules"));
    auto *plugins = dialog->findChild<QTreeView *>("_pluginTtreeView");
    auto *modules = dialog->findChild<QTreeView *>("_moduleTreeView");
    QCOMPARE(plugins->model(), _container->pluginModel());
    QCOMPARE(modules->model(), _container->treeNodeModel());

    // The picture: the plug-in list with the failure text the user gets on hovering the
    // failed plug-in, beside the module tab with the nested tree.
    dialog->resize(900, 520);
    plugins->expandAll();
    modules->expandAll();
    QModelIndex failed;
    for (int row = 0; row < _container->pluginModel()->rowCount(); ++row)
        if (_container->pluginModel()->index(row, 0).data().toString() == "Broken")
            failed = _container->pluginModel()->index(row, 1);
    QVERIFY(failed.isValid());
    QApplication::processEvents();
    QImage pluginTab = dialog->grab().toImage();
    const QRect failedRect
        = plugins->visualRect(failed).translated(plugins->viewport()->mapTo(dialog, QPoint(0, 0)));
    {
        QLabel tip(failed.data(Qt::ToolTipRole).toString());
        tip.setStyleSheet(
            "QLabel { background: #ffffdc; border: 1px solid #767676; padding: 3px; }");
        tip.setWordWrap(true);
        tip.setFixedWidth(360);
        tip.adjustSize();
        QPainter painter(&pluginTab);
        tip.render(&painter, QPoint(failedRect.left() + 40, failedRect.bottom() + 4));
    }
    tabs->setCurrentIndex(1);
    QApplication::processEvents();
    const QImage moduleTab = dialog->grab().toImage();

    QImage picture(pluginTab.width() + moduleTab.width(),
                   qMax(pluginTab.height(), moduleTab.height()), QImage::Format_ARGB32);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    painter.drawImage(0, 0, pluginTab);
    painter.drawImage(pluginTab.width(), 0, moduleTab);
    painter.end();
    QVERIFY(picture.save(QStringLiteral(OVT_DIALOG_PNG)));

    dialog->close();
    _container.reset(); // deletes the dialog, which keeps its geometry
    QVERIFY(QSettings().value("pluginDialog/pluginDialogGeometry").toByteArray().size() > 0);
}

QTEST_MAIN(tst_PluginContainer)
#include "tst_plugincontainer.moc"
