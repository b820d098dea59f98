#include "plugin/module.h"
#include "plugin/plugincontainer.h"
#include "plugin/plugindialog.h"
#include "plugin/pluginmodel.h"
#include "plugin/simpleplugin.h"
#include "treenode/treenodemodel.h"

#include <QtTest>
#include <QtWidgets>

#include <memory>
#include <unistd.h>

namespace {

const QString fixtureDir = QStringLiteral(OVT_FIXTURE_PLUGINS);
const QString subDir = fixtureDir + "/sub";

// The tree as the model shows it: "[a[a1 a2] b]".
QString modelTree(const QAbstractItemModel *model, const QModelIndex &parent = QModelIndex())
{
    QStringList rows;
    for (int row = 0; row < model->rowCount(parent); ++row) {
        const QModelIndex index = model->index(row, 0, parent);
        rows << index.data().toString() + modelTree(model, index);
    }
    return rows.isEmpty() ? QString() : '[' + rows.join(' ') + ']';
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
    for (const QString &field : fields.split(';'))
        data << field.trimmed();
}

// Hands the next modal dialog of type T to @p answer once it shows.
template<typename T, typename Answer> void answerNext(Answer answer)
{
    auto *timer = new QTimer;
    QObject::connect(timer, &QTimer::timeout, [timer, answer] {
        if (auto *dialog = qobject_cast<T *>(QApplication::activeModalWidget())) {
            timer->deleteLater();
            timer->stop();
            answer(dialog);
        }
    });
    timer->start(10);
}

} // namespace

class tst_PluginContainer : public QObject
{
    Q_OBJECT

    QTemporaryDir _icons;
    std::unique_ptr<PluginContainer> _container;
    QStringList _signals;

    PluginDialog *shownDialog()
    {
        _container->showPluginDialog();
        for (QWidget *widget : QApplication::topLevelWidgets())
            if (auto *dialog = qobject_cast<PluginDialog *>(widget); dialog && dialog->isVisible())
                return dialog;
        return nullptr;
    }

private Q_SLOTS:
    void initTestCase()
    {
        QCoreApplication::setOrganizationName(QStringLiteral("ovt-tests"));
        QCoreApplication::setApplicationName(QStringLiteral("tst_plugincontainer"));
        QVERIFY2(QFileInfo::exists(fixtureDir + "/alpha.so"), qPrintable(fixtureDir));
        // Few icon themes have the task status icons; a small one of our own shows them anywhere.
        QFile index(_icons.filePath("ovt/index.theme"));
        QVERIFY(QDir(_icons.path()).mkpath("ovt/22") && index.open(QIODevice::WriteOnly));
        index.write("[Icon Theme]\nDirectories=22\n[22]\nSize=22\n");
        index.close();
        for (const auto &[icon, color] :
             {std::pair("task-complete", Qt::darkGreen), std::pair("task-reject", Qt::red)}) {
            QImage image(22, 22, QImage::Format_RGB32);
            image.fill(color);
            QVERIFY(image.save(_icons.filePath(QString("ovt/22/") + icon + ".png")));
        }
        QIcon::setThemeSearchPaths({_icons.path()});
        QIcon::setThemeName("ovt");
    }

    void init()
    {
        _container = std::make_unique<PluginContainer>(nullptr);
        _signals.clear();
        PluginContainer *c = _container.get();
        connect(c, &NodeContainer::nodeContainerAboutToBeReset, [this] { _signals << "about"; });
        connect(c, &NodeContainer::nodeContainerReset, [this, c](const TreeNode *root) {
            _signals << (root == c->rootNode() ? "reset" : "reset(other)");
        });
        connect(c, &PluginContainer::contentElementWidgetChanged,
                [this](int state) { _signals << QStringLiteral("content(%1)").arg(state); });
        connect(c, &PluginContainer::customContextMenuRequested,
                [this](const QPoint &pos) { _signals << QStringLiteral("menu(%1)").arg(pos.x()); });
    }

    void cleanup() { _container.reset(); }

    void recordPerFile_data()
    {
        // As the container and the plug-in model show the file: "kind name: description
        // (tool tip, if another) icon {module:description ...}"; "@" is its path, "*" any text.
        QTest::addColumn<QString>("file");
        QTest::addColumn<QString>("expected");
        const auto add = [](const char *file, const char *expected) {
            QTest::newRow(file) << file << expected;
        };
        add("alpha.so",
            "plugin Alpha: Users and groups task-complete "
            "{users:User accounts groups:User groups}");
        add("beta.so", "plugin Beta: Password policy task-complete {passwords:Password rules :}");
        add("sub/gamma.so", "plugin Gamma: Network task-complete {network:Interfaces}");
        add("invalid.so",
            "failed Broken: Cannot work here (Failed to load plugin. The error can "
            "be caused by missing package(s): a, b.) task-reject");
        add("invalidnopackages.so",
            "failed Lonely: Cannot work here (Failed to load plugin.) "
            "task-reject");
        add("empty.so", "record Empty: Offers no modules");
        add("foreign.so", "null @: Unknown error task-reject");
        add("unresolved.so", "null @: *ovt_fixture_missing_symbol* task-reject");
    }

    void recordPerFile()
    {
        QFETCH(QString, file);
        QFETCH(QString, expected);
        _container->loadPlugins(fixtureDir);

        // Every "*.so" file in the iterator's order, each exactly once.
        QStringList files;
        QDirIterator it(fixtureDir, {"*.so"}, QDir::Files, QDirIterator::Subdirectories);
        while (it.hasNext())
            files << QFileInfo(it.next()).absoluteFilePath();
        QCOMPARE(loadedFiles(*_container), files);
        // Only plug-ins whose modules were kept count: not the empty one, not the invalid ones.
        QCOMPARE(_container->availableOperationsClass(), quint64(0x1 | 0x6 | 0x8));
        QVERIFY2(qEnvironmentVariableIsEmpty("OVT_FOREIGN_FIXTURE_LOADED"), "foreign code ran");

        const QString path = fixtureDir + '/' + file;
        const int row = files.indexOf(path);
        QVERIFY(row >= 0);
        const Plugin *plugin = _container->plugins().at(row).second;
        const auto *record = qobject_cast<const SimplePlugin *>(plugin);
        QString actual = !plugin  ? "null"
            : !record             ? "plugin"
            : record->available() ? "record"
                                  : "failed";
        const PluginModel *model = _container->pluginModel();
        const QModelIndex name = model->index(row, 0);
        QCOMPARE(name.data(Qt::ToolTipRole).toString(), path);
        const QString text = model->index(row, 1).data().toString();
        const QString tip = model->index(row, 1).data(Qt::ToolTipRole).toString();
        actual += ' ' + name.data().toString() + ": " + text + (tip == text ? "" : " (" + tip + ')')
            + ' ' + name.data(Qt::DecorationRole).value<QIcon>().name();
        // QAbstractItemModelTester cannot watch this model: a plug-in row answers its modules
        // under every column, as the tree model does, and the tester then expects the column-1
        // index as their parent. The structure is checked here through column 0 instead.
        QStringList modules;
        for (int child = 0; child < model->rowCount(name); ++child) {
            const QModelIndex module = model->index(child, 0, name);
            QCOMPARE(module.parent(), name);
            QCOMPARE(model->rowCount(module), 0);
            QCOMPARE(model->ObjectToIndex(model->indexToObject(module)), module);
            modules << module.data().toString() + ':' + module.sibling(child, 1).data().toString();
        }
        if (!modules.isEmpty())
            actual += " {" + modules.join(' ') + '}';
        actual = actual.trimmed().replace(path, "@");
        QVERIFY2(QRegExp(expected, Qt::CaseSensitive, QRegExp::Wildcard).exactMatch(actual),
                 qPrintable(actual));
    }

    void signalSequence_data()
    {
        for (const char *column : {"dir", "then", "expected", "tree"})
            QTest::addColumn<QString>(column);
        // Two about-to-be-reset signals (the load's, then its unload's) before the first reset.
        row("load relays module signals",
            "fixtures;; about about reset reset content(3) menu(4);"
            "[groups network users[passwords]]");
        row("reload: same tree, first modules gone",
            "fixtures; reload; about about reset reset content(3) menu(4) about about reset "
            "reset; [groups network users[passwords]]");
        row("flat reload",
            "sub; reload; about about reset reset about about reset reset; [network]");
        row("flat unload", "sub; unload; about about reset reset about reset;");
        row("no plug-ins: still one final reset", "empty;; about about reset reset;");
        row("only broken files: no crash, no tree", "broken;; about about reset reset;");
        row("missing directory: message, no final reset", "missing;; about about reset;");
    }

    void signalSequence()
    {
        QFETCH(QString, dir);
        QFETCH(QString, then);
        QFETCH(QString, expected);
        QFETCH(QString, tree);
        QTemporaryDir temporary;
        const QString missing = fixtureDir + "/no-such-directory";
        const bool broken = dir == "broken";
        if (broken) { // every kind of broken file, and two things that are no file
            const auto copy = [&temporary](const QString &from, const QString &to, qint64 size) {
                return QFile::copy(fixtureDir + '/' + from, temporary.filePath(to))
                    && (size < 0 || QFile::resize(temporary.filePath(to), size));
            };
            for (const char *file : {"foreign.so", "unresolved.so", "garbage.so", "invalid.so"})
                QVERIFY(copy(file, file, -1));
            QVERIFY(copy("alpha.so", "truncated.so", 200) && copy("garbage.so", "zero.so", 0));
            QVERIFY(QFile::link(temporary.filePath("nowhere"), temporary.filePath("dangling.so")));
            QVERIFY(QDir(temporary.path()).mkpath("directory.so"));
        }
        dir = dir == "fixtures" ? fixtureDir
            : dir == "sub"      ? subDir
            : dir == "missing"  ? missing
                                : temporary.path();
        // The tester also descends under column 1, where the tree model answers a row's children
        // with column-0 parents; so it watches only trees without sub-modules.
        std::unique_ptr<QAbstractItemModelTester> tester;
        if (dir != fixtureDir)
            tester = std::make_unique<QAbstractItemModelTester>(
                _container->treeNodeModel(), QAbstractItemModelTester::FailureReportingMode::Fatal);
        QString message;
        if (dir == missing)
            answerNext<QMessageBox>([&message](QMessageBox *box) {
                message = box->text();
                box->close();
            });

        _container->loadPlugins(dir);
        // Every broken file has its record, and every rejected file explains why.
        const PluginModel *model = _container->pluginModel();
        QCOMPARE(model->rowCount(), broken ? 6 : int(_container->plugins().size()));
        for (int row = 0; row < model->rowCount(); ++row) {
            const QIcon icon = model->index(row, 0).data(Qt::DecorationRole).value<QIcon>();
            const bool rejected = icon.name() == "task-reject";
            QVERIFY(rejected || !broken);
            QVERIFY(!rejected || !model->index(row, 1).data(Qt::ToolTipRole).toString().isEmpty());
        }
        QList<QPointer<Module>> first;
        for (Module *module : _container->modules()) {
            first << module;
            if (module->id() == "passwords") {
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
        QCOMPARE(message, dir == missing ? "Plugin directory '" + missing + "' not exist." : "");
        // Destroying the container unloads what is loaded.
        const QPointer<Module> last = _container->modules().value(0);
        _container.reset();
        QVERIFY(last.isNull());
    }

    void loadStartedDuringLoadSupersedesIt()
    {
        // Given the number of times a load lets the event loop run (once per file and module)
        auto *dispatcher = QAbstractEventDispatcher::instance();
        int passes = 0;
        auto counting = connect(dispatcher, &QAbstractEventDispatcher::awake, [&] { ++passes; });
        _container->loadPlugins(fixtureDir);
        disconnect(counting);
        QCOMPARE(passes, 9 + 5);
        _container->unloadPlugins(); // the tester cannot watch the nested tree

        QAbstractItemModelTester tester(_container->treeNodeModel(),
                                        QAbstractItemModelTester::FailureReportingMode::Fatal);
        for (int pass = 1; pass <= passes; ++pass) {
            // When, at each of these passes in turn, the user picks another directory
            _signals.clear();
            int seen = 0;
            auto nested = connect(dispatcher, &QAbstractEventDispatcher::awake, [&] {
                if (++seen == pass)
                    _container->loadPlugins(subDir);
            });
            _container->loadPlugins(fixtureDir);
            disconnect(nested);

            // Then the container is what the newer load made of it, and every reset was closed
            QCOMPARE(_container->pluginPath(), subDir);
            QCOMPARE(loadedFiles(*_container), QStringList {subDir + "/gamma.so"});
            QCOMPARE(_container->availableOperationsClass(), quint64(0x8));
            QCOMPARE(modelTree(_container->treeNodeModel()), QString("[network]"));
            QCOMPARE(_signals.count("reset"), _signals.count("about"));
        }
    }

    void untrustedFilesNotLoadedAsRoot_data()
    {
        QTest::addColumn<QString>("plant");
        QTest::addColumn<QString>("expected"); // per entry; "@" is the temporary directory
        const QString why = "!Not loaded because '@/%1' is not owned by root or is writable by "
                            "group or others.";
        QTest::newRow("root's own: loaded") << ""
                                            << "Alpha";
        QTest::newRow("file of nobody's") << "chown" << why.arg("p/alpha.so");
        QTest::newRow("group-writable file") << "chmod" << why.arg("p/alpha.so");
        QTest::newRow("copied by nobody into a world-writable directory") << "copy" << why.arg("p");
        QTest::newRow("below a directory of nobody's") << "subdir" << why.arg("p/sub");
        QTest::newRow("link to a file of nobody's") << "outside" << why.arg("out.so");
        QTest::newRow("two names of one file: once") << "alias"
                                                     << "Alpha";
    }

    void untrustedFilesNotLoadedAsRoot()
    {
        QFETCH(QString, plant);
        QFETCH(QString, expected);
        if (geteuid() != 0)
            QSKIP("the checks apply to root only");
        QTemporaryDir temporary; // in /tmp: a sticky directory above does not count
        const QString dir = temporary.filePath("p"), file = dir + "/alpha.so";
        const QString outside = temporary.filePath("out.so");
        const auto run = [](const QString &program, const QStringList &arguments) {
            return QProcess::execute(program, arguments) == 0;
        };
        QVERIFY(run("chmod", {"755", temporary.path()}) && QDir().mkdir(dir));
        QVERIFY(QFile::copy(fixtureDir + "/alpha.so", plant == "outside" ? outside : file));
        if (plant == "chown" || plant == "outside")
            QVERIFY(run("chown", {"nobody", plant == "chown" ? file : outside}));
        if (plant == "outside")
            QVERIFY(QFile::link(outside, file));
        if (plant == "chmod")
            QVERIFY(run("chmod", {"g+w", file}));
        if (plant == "copy") // the way an unprivileged user gets code into such a directory
            QVERIFY(QFile::remove(file) && run("chmod", {"777", dir})
                    && run("setpriv",
                           {"--reuid=nobody", "--regid=nogroup", "--clear-groups", "cp",
                            fixtureDir + "/alpha.so", file}));
        if (plant == "subdir")
            QVERIFY(QDir(dir).mkdir("sub") && run("chown", {"nobody", dir + "/sub"})
                    && QFile::rename(file, dir + "/sub/alpha.so"));
        if (plant == "alias")
            QVERIFY(QFile::link(file, dir + "/alias.so"));

        _container->loadPlugins(dir);
        QStringList entries;
        for (const PluginContainer::PluginEntry &entry : _container->plugins()) {
            const auto *record = qobject_cast<const SimplePlugin *>(entry.second);
            entries << (record ? '!' + record->errorDescription() : entry.second->name());
            // The plug-in model shows the reason as the record's description.
            QVERIFY(!record || record->description() == record->errorDescription());
        }
        QCOMPARE(entries.join(';').replace(temporary.path(), "@"), expected);
        QCOMPARE(_container->modules().size(), expected == "Alpha" ? 2 : 0);
    }

    void changePath_data()
    {
        QTest::addColumn<QString>("answer");
        QTest::addColumn<QString>("expected");
        row("another directory reloads", "sub; about about reset reset");
        row("the current directory again does not reload", ";");
        row("cancelled", "cancel;");
    }

    void changePath()
    {
        QFETCH(QString, answer);
        QFETCH(QString, expected);
        _container->loadPlugins(fixtureDir);
        PluginDialog *dialog = shownDialog();
        QVERIFY(dialog);
        _signals.clear();

        const QString path = answer == "sub" ? subDir : fixtureDir;
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
        QSettings().remove("pluginDialog");
        _container.reset(); // deletes the dialog, which keeps its geometry
        QVERIFY(!QSettings().value("pluginDialog/pluginDialogGeometry").toByteArray().isEmpty());
    }
};

QTEST_MAIN(tst_PluginContainer)
#include "tst_plugincontainer.moc"
