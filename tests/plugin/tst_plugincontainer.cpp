#include "plugin/module.h"
#include "plugin/plugin.h"
#include "plugin/plugincontainer.h"
#include "plugin/plugindialog.h"
#include "plugin/pluginmodel.h"
#include "plugin/simpleplugin.h"
#include "treenode/treenode.h"
#include "treenode/treenodemodel.h"

#include <QAbstractEventDispatcher>
#include <QAbstractItemModelTester>
#include <QApplication>
#include <QDirIterator>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPainter>
#include <QPluginLoader>
#include <QPointer>
#include <QPushButton>
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

QStringList loadedFiles(const PluginContainer &container)
{
    QStringList files;
    for (const PluginContainer::PluginEntry &entry : container.plugins())
        files << entry.first->fileName();
    return files;
}

// A row of string fields separated by ';'.
void row(const char *name, const QString &fields)
{
    QTestData &data = QTest::newRow(name);
    for (const QString &field : fields.split(QLatin1Char(';')))
        data << field.trimmed();
}

// Hands the next modal dialog of type T to @p answer once it shows.
template<typename T, typename Answer> void answerNext(Answer answer)
{
    auto *timer = new QTimer;
    QObject::connect(timer, &QTimer::timeout, [timer, answer] {
        if (auto *dialog = qobject_cast<T *>(QApplication::activeModalWidget())) {
            timer->stop();
            timer->deleteLater();
            answer(dialog);
        }
    });
    timer->start(10);
}

PluginDialog *shownPluginDialog(PluginContainer *container)
{
    container->showPluginDialog();
    for (QWidget *widget : QApplication::topLevelWidgets())
        if (auto *dialog = qobject_cast<PluginDialog *>(widget); dialog && dialog->isVisible())
            return dialog;
    return nullptr;
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
    void signalSequence_data();
    void signalSequence();
    void loadStartedDuringLoadSupersedesIt();
    void moduleTreeModelUnderTester();
    void brokenFilesNeverCrash();
    void pluginModelRows_data();
    void pluginModelRows();
    void changePath_data();
    void changePath();
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
    QDir root(_iconThemeDir.path());
    QVERIFY(root.mkpath("ovt-test/22x22/status"));
    QFile index(root.filePath("ovt-test/index.theme"));
    QVERIFY(index.open(QIODevice::WriteOnly));
    index.write("[Icon Theme]\nName=ovt-test\nInherits=Adwaita\nDirectories=22x22/status\n\n"
                "[22x22/status]\nSize=22\nType=Fixed\n");
    index.close();
    for (const auto &icon : {qMakePair(QString("task-complete"), QColor(0x2e, 0x9e, 0x44)),
                             qMakePair(QString("task-reject"), QColor(0xc0, 0x1c, 0x28))}) {
        QImage image(22, 22, QImage::Format_ARGB32);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setBrush(icon.second);
        painter.setPen(Qt::NoPen);
        painter.drawEllipse(1, 1, 20, 20);
        painter.end();
        QVERIFY(image.save(root.filePath("ovt-test/22x22/status/" + icon.first + ".png")));
    }
    QIcon::setThemeSearchPaths(QIcon::themeSearchPaths() << _iconThemeDir.path());
    QIcon::setThemeName(QStringLiteral("ovt-test"));
}

void tst_PluginContainer::init()
{
    _container = std::make_unique<PluginContainer>(nullptr);
    _signals.clear();
    PluginContainer *c = _container.get();
    connect(c, &NodeContainer::nodeContainerAboutToBeReset, this, [this] { _signals << "about"; });
    connect(c, &NodeContainer::nodeContainerReset, this, [this, c](const TreeNode *root) {
        _signals << (root == c->rootNode() ? "reset" : "reset(other)");
    });
    connect(c, &PluginContainer::contentElementWidgetChanged, this,
            [this](int state) { _signals << QStringLiteral("content(%1)").arg(state); });
    connect(c, &PluginContainer::customContextMenuRequested, this,
            [this](const QPoint &pos) { _signals << QStringLiteral("menu(%1)").arg(pos.x()); });
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

    // Every "*.so" file in the iterator's order, each exactly once.
    QStringList files;
    QDirIterator it(fixtureDir, {"*.so"}, QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext())
        files << QFileInfo(it.next()).absoluteFilePath();
    QCOMPARE(loadedFiles(*_container), files);
    const int at = files.indexOf(QFileInfo(fixtureDir + '/' + file).absoluteFilePath());
    QVERIFY(at >= 0);
    QCOMPARE(describe(_container->plugins().at(at)), record);
    // Only plug-ins whose modules were kept count: not the empty one, not the invalid ones.
    QCOMPARE(_container->availableOperationsClass(), quint64(0x1 | 0x6 | 0x8));
    QVERIFY2(qEnvironmentVariableIsEmpty("OVT_FOREIGN_FIXTURE_LOADED"),
             "a library of another interface was loaded");
}

void tst_PluginContainer::signalSequence_data()
{
    for (const char *column : {"dir", "then", "expected", "tree"})
        QTest::addColumn<QString>(column);
    row("load: two about-to-be-reset, then two resets, modules nested across plug-ins",
        "fixtures;; about about reset reset; [groups network users[passwords]]");
    row("module signals are relayed unchanged",
        "fixtures; relay; about about reset reset "
        "content(3) menu(4); [groups network users[passwords]]");
    row("reloading gives the same tree, with the modules of the first load gone",
        "fixtures; reload; about about reset reset about about reset reset; "
        "[groups network users[passwords]]");
    row("unload empties everything", "fixtures; unload; about about reset reset about reset;");
    row("directory without plug-ins: still one final reset", "empty;; about about reset reset;");
    row("missing directory: a message, no final reset", "missing;; about about reset;");
}

void tst_PluginContainer::signalSequence()
{
    QFETCH(QString, dir);
    QFETCH(QString, then);
    QFETCH(QString, expected);
    QFETCH(QString, tree);

    QTemporaryDir empty;
    const QString missing = fixtureDir + "/no-such-directory";
    dir = dir == "fixtures" ? fixtureDir : dir == "empty" ? empty.path() : missing;
    QString message;
    if (dir == missing)
        answerNext<QMessageBox>([&message](QMessageBox *box) {
            message = box->text();
            box->close();
        });

    _container->loadPlugins(dir);
    QList<QPointer<Module>> first;
    for (Module *module : _container->modules()) {
        first << module;
        if (then == "relay" && module->id() == "passwords") {
            emit module->contentElementWidgetChanged(3);
            emit module->customContextMenuRequested(QPoint(4, 5));
            // A sub-module inherits what its parent in another plug-in declares.
            QVERIFY(Module::isAdministratorHierarchy(*module));
        }
    }
    if (then == "reload") {
        _container->loadPlugins(dir);
        QCOMPARE(_container->modules().size(), first.size());
        for (const QPointer<Module> &module : first)
            QVERIFY2(module.isNull(), "a module of the first load outlived the reload");
    }
    QCOMPARE(_container->pluginPath(), dir);
    if (then == "unload") {
        _container->unloadPlugins();
        QVERIFY(_container->plugins().isEmpty() && _container->modules().isEmpty());
        QCOMPARE(_container->availableOperationsClass(), quint64(0));
        QCOMPARE(_container->pluginPath(), QString());
    }

    QCOMPARE(_signals.join(' '), expected);
    QCOMPARE(modelTree(_container->treeNodeModel()), tree);
    QCOMPARE(message,
             dir == missing ? QString("Plugin directory '%1' not exist.").arg(missing) : QString());
    // Destroying the container unloads what is loaded.
    const QPointer<Module> last = _container->modules().value(0);
    _container.reset();
    QVERIFY(last.isNull());
}

void tst_PluginContainer::loadStartedDuringLoadSupersedesIt()
{
    // Given the number of times a load lets the event loop run (once per file and per module)
    auto *dispatcher = QAbstractEventDispatcher::instance();
    int passes = 0;
    auto counting = connect(dispatcher, &QAbstractEventDispatcher::awake, [&passes] { ++passes; });
    _container->loadPlugins(fixtureDir);
    disconnect(counting);
    QCOMPARE(passes, 9 + 5);

    const QString sub = fixtureDir + "/sub";
    for (int pass = 1; pass <= passes; ++pass) {
        // When, at each of these passes in turn, the user picks another directory
        _container.reset(new PluginContainer(nullptr));
        QAbstractItemModelTester tester(_container->treeNodeModel(),
                                        QAbstractItemModelTester::FailureReportingMode::Fatal);
        int about = 0;
        int reset = 0;
        connect(_container.get(), &NodeContainer::nodeContainerAboutToBeReset,
                [&about] { ++about; });
        connect(_container.get(), &NodeContainer::nodeContainerReset, [&reset] { ++reset; });
        int seen = 0;
        auto nested = connect(dispatcher, &QAbstractEventDispatcher::awake, [&] {
            if (++seen == pass)
                _container->loadPlugins(sub);
        });
        _container->loadPlugins(fixtureDir);
        disconnect(nested);

        // Then the container is what the newer load made of it, and every reset was closed
        QVERIFY2(seen >= pass, qPrintable(QString::number(pass)));
        QCOMPARE(_container->pluginPath(), sub);
        QCOMPARE(loadedFiles(*_container), QStringList {sub + "/gamma.so"});
        QCOMPARE(_container->availableOperationsClass(), quint64(0x8));
        QCOMPARE(modelTree(_container->treeNodeModel()), QString("[network]"));
        QCOMPARE(reset, about);
        _container.reset(); // while the counters it reports to still exist
    }
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
    _container->loadPlugins(flat);
    QCOMPARE(modelTree(_container->treeNodeModel()), QString("[network]"));
    _container->unloadPlugins();
    QCOMPARE(modelTree(_container->treeNodeModel()), QString());
}

void tst_PluginContainer::brokenFilesNeverCrash()
{
    // Given a directory of nothing but broken files of every kind
    QTemporaryDir dir;
    for (const char *file : {"foreign.so", "unresolved.so", "garbage.so", "invalid.so"})
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
    QCOMPARE(model->rowCount(), 6);
    for (int row = 0; row < model->rowCount(); ++row) {
        const QModelIndex name = model->index(row, 0);
        QVERIFY2(!model->index(row, 1).data(Qt::ToolTipRole).toString().isEmpty(),
                 qPrintable(name.data().toString()));
        QCOMPARE(name.data(Qt::DecorationRole).value<QIcon>().name(), QString("task-reject"));
    }
    QCOMPARE(modelTree(_container->treeNodeModel()), QString());
}

void tst_PluginContainer::pluginModelRows_data()
{
    // "@" stands for the file's full path; description texts are wildcard patterns; "modules"
    // lists the module rows as name:description.
    for (const char *column : {"file", "name", "description", "toolTip", "icon", "modules"})
        QTest::addColumn<QString>(column);
    row("loaded plug-in",
        "alpha.so; Alpha; Users and groups; Users and groups; task-complete; "
        "users:User accounts groups:User groups");
    row("a plain node among the modules is listed as it is",
        "beta.so; Beta; Password policy; Password policy; task-complete; "
        "passwords:Password rules :");
    row("failed plug-in explains in its tool tip",
        "invalid.so; Broken; Cannot work here; Failed to load plugin. The error can be caused by "
        "missing package(s): a, b.; task-reject;");
    row("plug-in without modules has no icon",
        "empty.so; Empty; Offers no modules; Offers no modules;;");
    row("unloadable library shows the loader's error",
        "unresolved.so; @; *ovt_fixture_missing_symbol*; *ovt_fixture_missing_symbol*; "
        "task-reject;");
    // The library was never loaded, so the loader has nothing better than its default text.
    row("foreign interface shows the loader's error string",
        "foreign.so; @; Unknown error; Unknown error; task-reject;");
}

void tst_PluginContainer::pluginModelRows()
{
    QFETCH(QString, file);
    QFETCH(QString, name);
    QFETCH(QString, description);
    QFETCH(QString, toolTip);
    QFETCH(QString, icon);
    QFETCH(QString, modules);

    _container->loadPlugins(fixtureDir);
    PluginModel *model = _container->pluginModel();
    const QString path = fixtureDir + '/' + file;
    const QModelIndex index = model->index(loadedFiles(*_container).indexOf(path), 0);
    QCOMPARE(index.data(Qt::ToolTipRole).toString(), path);
    QCOMPARE(index.data().toString(), name == "@" ? path : name);
    const QModelIndex second = index.sibling(index.row(), 1);
    for (const auto &text : {qMakePair(description, second.data().toString()),
                             qMakePair(toolTip, second.data(Qt::ToolTipRole).toString())})
        QVERIFY2(QRegExp(text.first, Qt::CaseSensitive, QRegExp::Wildcard).exactMatch(text.second),
                 qPrintable(text.second));
    QCOMPARE(index.data(Qt::DecorationRole).value<QIcon>().name(), icon);
    QVERIFY(!index.parent().isValid());
    QCOMPARE(model->ObjectToIndex(model->indexToObject(index)), index);

    // QAbstractItemModelTester cannot watch this model: a plug-in row answers its modules under
    // every column, as the tree model does, and the tester then expects the column-1 index as
    // the modules' parent. The structure is checked here through column 0 instead.
    QStringList rows;
    for (int child = 0; child < model->rowCount(index); ++child) {
        const QModelIndex module = model->index(child, 0, index);
        QCOMPARE(module.parent(), index);
        QCOMPARE(model->rowCount(module), 0);
        QCOMPARE(model->ObjectToIndex(model->indexToObject(module)), module);
        rows << module.data().toString() + ':' + module.sibling(child, 1).data().toString();
    }
    QCOMPARE(rows.join(' '), modules);
}

void tst_PluginContainer::changePath_data()
{
    QTest::addColumn<QString>("answer");
    QTest::addColumn<QString>("expected");
    QTest::newRow("another directory reloads") << "sub"
                                               << "about about reset reset";
    QTest::newRow("the current directory again does not reload") << ""
                                                                 << "";
    QTest::newRow("cancelled") << "cancel"
                               << "";
}

void tst_PluginContainer::changePath()
{
    QFETCH(QString, answer);
    QFETCH(QString, expected);
    _container->loadPlugins(fixtureDir);
    PluginDialog *dialog = shownPluginDialog(_container.get());
    QVERIFY(dialog);
    _signals.clear();

    const QString path = answer == "sub" ? fixtureDir + "/sub" : fixtureDir;
    answerNext<QFileDialog>([answer, path](QFileDialog *files) {
        files->setDirectory(path);
        if (answer == "cancel")
            files->reject();
        else
            QMetaObject::invokeMethod(files, "accept"); // protected in QFileDialog
    });
    dialog->findChild<QPushButton *>("_changePushButton")->click();

    QCOMPARE(_signals.join(' '), expected);
    QCOMPARE(_container->pluginPath(), path);
    QCOMPARE(dialog->findChild<QLineEdit *>("_pathLineEdit")->text(), path);
    dialog->close();
}

void tst_PluginContainer::dialogFormAndPicture()
{
    QSettings().remove("pluginDialog");
    _container->loadPlugins(fixtureDir);
    PluginDialog *dialog = shownPluginDialog(_container.get());
    QVERIFY(dialog);
    QVERIFY(QTest::qWaitForWindowExposed(dialog));
    QCOMPARE(dialog->findChild<QLineEdit *>("_pathLineEdit")->toolTip(), fixtureDir);
    auto *plugins = dialog->findChild<QTreeView *>("_pluginTtreeView");
    auto *modules = dialog->findChild<QTreeView *>("_moduleTreeView");
    QCOMPARE(plugins->model(), _container->pluginModel());
    QCOMPARE(modules->model(), _container->treeNodeModel());

    // The picture: the plug-in tab beside the module tab with the nested tree.
    dialog->resize(900, 520);
    plugins->expandAll();
    modules->expandAll();
    QApplication::processEvents();
    const QImage pluginTab = dialog->grab().toImage();
    dialog->findChild<QTabWidget *>("_pluginTabWidget")->setCurrentIndex(1);
    QApplication::processEvents();
    const QImage moduleTab = dialog->grab().toImage();
    QImage picture(pluginTab.width() * 2, pluginTab.height(), QImage::Format_ARGB32);
    QPainter painter(&picture);
    painter.drawImage(0, 0, pluginTab);
    painter.drawImage(pluginTab.width(), 0, moduleTab);
    painter.end();
    QVERIFY(picture.save(QStringLiteral(OVT_DIALOG_PNG)));

    dialog->close();
    _container.reset(); // deletes the dialog, which keeps its geometry
    QVERIFY(!QSettings().value("pluginDialog/pluginDialogGeometry").toByteArray().isEmpty());
}

QTEST_MAIN(tst_PluginContainer)
#include "tst_plugincontainer.moc"
