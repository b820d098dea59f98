// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "plugin/module.h"
#include "plugin/plugincontainer.h"
#include "plugin/plugindialog.h"
#include "plugin/pluginmodel.h"
#include "plugin/simpleplugin.h"
#include "treenode/treenodemodel.h"
#include "treestring.h"

#include <QtTest>
#include <QtWidgets>

#include <unistd.h>

using namespace OvtTest;

namespace {

const QString fixtureDir = QStringLiteral(OVT_FIXTURE_PLUGINS), subDir = fixtureDir + "/sub";

// Which of the library's status icons the row shows, told apart by their pictures.
QString iconName(const QModelIndex &index)
{
    const QImage shown = index.data(Qt::DecorationRole).value<QIcon>().pixmap(16).toImage();
    for (const QString name : {"task-complete", "task-reject"})
        if (shown == QIcon(":/ovt-common/icons/" + name + ".svg").pixmap(16).toImage())
            return name;
    return QString();
}

// Runs @p command in @p dir; $F is the fixture directory.
bool shell(const QString &dir, const QString &command)
{
    return QProcess::execute("sh", {"-ec", "cd \"$0\" && F=\"$1\" && " + command, dir, fixtureDir})
        == 0;
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

    std::unique_ptr<PluginContainer> _container;
    QStringList _signals;

private Q_SLOTS:
    void initTestCase()
    {
        QCoreApplication::setOrganizationName("ovt-tests");
        QCoreApplication::setApplicationName("tst_plugincontainer");
        QIcon::setThemeName(QString()); // no theme: the library's own status icons show
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
                [this](int state) { _signals << QString("content(%1)").arg(state); });
        connect(c, &PluginContainer::customContextMenuRequested,
                [this](const QPoint &pos) { _signals << QString("menu(%1)").arg(pos.x()); });
    }

    void cleanup() { _container.reset(); }

    void recordPerFile()
    {
        _container->loadPlugins(fixtureDir);
        // Only plug-ins whose modules were kept count: not the empty one, not the invalid ones.
        QCOMPARE(_container->availableOperationsClass(), quint64(0x1 | 0x6 | 0x8));
        QVERIFY2(qEnvironmentVariableIsEmpty("OVT_FOREIGN_FIXTURE_LOADED"), "foreign code ran");

        // Every "*.so" file in the iterator's order, once, as the container and the plug-in model
        // show it: "kind name: description (tool tip, if another) icon {module:description ...}".
        QStringList files, actual;
        QDirIterator it(fixtureDir, {"*.so"}, QDir::Files, QDirIterator::Subdirectories);
        while (it.hasNext())
            files << QFileInfo(it.next()).absoluteFilePath();
        const PluginModel *model = _container->pluginModel();
        QCOMPARE(model->rowCount(), files.size());
        for (int row = 0; row < files.size(); ++row) {
            QCOMPARE(_container->plugins().at(row).first->fileName(), files[row]);
            const Plugin *plugin = _container->plugins().at(row).second;
            const auto *record = qobject_cast<const SimplePlugin *>(plugin);
            const QModelIndex name = model->index(row, 0);
            QCOMPARE(name.data(Qt::ToolTipRole).toString(), files[row]);
            const QString text = model->index(row, 1).data().toString();
            const QString tip = model->index(row, 1).data(Qt::ToolTipRole).toString();
            QString line = QString(record       ? (record->available() ? "record" : "failed")
                                       : plugin ? "plugin"
                                                : "null")
                + ' ' + name.data().toString() + ": " + text + (tip == text ? "" : " (" + tip + ')')
                + ' ' + iconName(name);
            // QAbstractItemModelTester cannot watch this model: a plug-in row answers its
            // modules under every column, as the tree model does, and the tester then expects
            // the column-1 index as their parent. The structure is checked through column 0.
            for (int child = 0; child < model->rowCount(name); ++child) {
                const QModelIndex module = model->index(child, 0, name);
                QCOMPARE(model->ObjectToIndex(model->indexToObject(module)).parent(), name);
                line += (child ? " " : " {") + module.data().toString() + ':'
                    + module.sibling(child, 1).data().toString();
            }
            actual << QFileInfo(files[row]).fileName() + ": "
                    + line.trimmed().replace(files[row], "@") + (model->rowCount(name) ? "}" : "");
        }
        actual.sort();
        QCOMPARE(
            actual.join('\n'),
            "alpha.so: plugin Alpha: Users and groups task-complete "
            "{users:User accounts groups:User groups}\n"
            "beta.so: plugin Beta: Password policy task-complete {passwords:Password rules :}\n"
            "empty.so: record Empty: Offers no modules\n"
            "foreign.so: null @: Unknown error task-reject\n"
            "gamma.so: plugin Gamma: Network task-complete {network:Interfaces}\n"
            "garbage.so: null @: '@' is not an ELF object (file too small) task-reject\n"
            "invalid.so: failed Broken: Cannot work here (Failed to load plugin. The error "
            "can be caused by missing package(s): a, b.) task-reject\n"
            "unresolved.so: null @: Cannot load library @: (@: undefined symbol: "
            "_Z26ovt_fixture_missing_symbolv) task-reject");
    }

    void signalSequence_data()
    {
        // Two about-to-be-reset signals (the load's, then its unload's) before the first reset.
        table();
        row("load relays module signals",
            "fixtures;; about about reset reset content(3) menu(4);"
            "[groups network users[passwords]]");
        row("reload: same tree, first modules gone",
            "fixtures; reload; about about reset reset content(3) menu(4) about about reset "
            "reset; [groups network users[passwords]]");
        row("flat reload",
            "sub; reload; about about reset reset about about reset reset; [network]");
        row("flat unload", "sub; unload; about about reset reset about reset; []");
        row("no plug-ins: still one final reset", "empty;; about about reset reset; []");
        row("only broken files: no crash, no tree", "broken;; about about reset reset; []");
        row("missing directory: message, no final reset", "missing;; about about reset; []");
        // The dialog's Change button, answered with another directory, the same one, or Cancel.
        row("dialog: another directory reloads",
            "fixtures; change sub; about about reset reset content(3) menu(4) about about reset "
            "reset; [network]");
        row("dialog: the same directory does not reload",
            "sub; change same; about about reset reset; [network]");
        row("dialog: cancelled", "sub; change cancel; about about reset reset; [network]");
    }

    void signalSequence()
    {
        auto [dir, then, expected, tree] = fields<4>();
        QTemporaryDir temporary;
        const QString missing = fixtureDir + "/no-such-directory";
        const bool broken = dir == "broken";
        // Every kind of broken file, and two things that are no file.
        QVERIFY(!broken
                || shell(temporary.path(),
                         "cp $F/foreign.so $F/unresolved.so $F/garbage.so $F/invalid.so . && "
                         "head -c 200 $F/alpha.so >truncated.so && : >zero.so && "
                         "ln -s nowhere dangling.so && mkdir directory.so"));
        dir = dir == "fixtures" ? fixtureDir
            : dir == "sub"      ? subDir
            : dir == "missing"  ? missing
                                : temporary.path();
        // The tester also descends under column 1, where the tree model answers a row's children
        // with column-0 parents; so it watches only trees without sub-modules.
        if (dir != fixtureDir)
            watch(_container->treeNodeModel());
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
        for (int row = 0; row < model->rowCount(); ++row)
            QVERIFY(iconName(model->index(row, 0)) == "task-reject"
                        ? !model->index(row, 1).data(Qt::ToolTipRole).toString().isEmpty()
                        : !broken);
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
            QCOMPARE(first.count(nullptr), first.size()); // none of the first load outlived it
        }
        if (then.startsWith("change")) {
            _container->showPluginDialog();
            PluginDialog *dialog = nullptr;
            for (QWidget *widget : QApplication::topLevelWidgets())
                dialog = dialog ? dialog : qobject_cast<PluginDialog *>(widget);
            dir = then == "change sub" ? subDir : dir;
            answerNext<QFileDialog>([cancel = then == "change cancel", dir](QFileDialog *files) {
                files->setDirectory(dir);
                QMetaObject::invokeMethod(files, cancel ? "reject" : "accept"); // accept: protected
            });
            dialog->findChild<QPushButton *>("_changePushButton")->click();
            QCOMPARE(dialog->findChild<QLineEdit *>("_pathLineEdit")->text(), dir);
            dialog->close();
            QSettings().remove("pluginDialog");
        }
        QCOMPARE(_container->pluginPath(), dir);
        if (then == "unload") {
            _container->unloadPlugins();
            QVERIFY(_container->plugins().isEmpty() && _container->modules().isEmpty());
            QCOMPARE(_container->availableOperationsClass(), quint64(0));
            QCOMPARE(_container->pluginPath(), QString());
        }

        QCOMPARE(_signals.join(' '), expected);
        QCOMPARE(modelToString(_container->treeNodeModel()), tree);
        QCOMPARE(message, dir == missing ? "Plugin directory '" + missing + "' not exist." : "");
        // Destroying the container unloads what is loaded.
        const QPointer<Module> last = _container->modules().value(0);
        _container.reset();
        QVERIFY(last.isNull());
        // The dialog, deleted with the container, keeps its geometry.
        QVERIFY(!then.startsWith("change")
                || QSettings().contains("pluginDialog/pluginDialogGeometry"));
    }

    void loadStartedDuringLoadSupersedesIt()
    {
        // Given the number of times a load lets the event loop run (once per file and module)
        auto *dispatcher = QAbstractEventDispatcher::instance();
        int passes = 0;
        auto counting = connect(dispatcher, &QAbstractEventDispatcher::awake, [&] { ++passes; });
        _container->loadPlugins(fixtureDir);
        disconnect(counting);
        QCOMPARE(passes, 8 + 5);
        _container->unloadPlugins(); // the tester cannot watch the nested tree
        watch(_container->treeNodeModel());
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
            QCOMPARE(_container->plugins().size(), 1);
            QCOMPARE(_container->plugins()[0].first->fileName(), subDir + "/gamma.so");
            QCOMPARE(_container->availableOperationsClass(), quint64(0x8));
            QCOMPARE(modelToString(_container->treeNodeModel()), QString("[network]"));
            QCOMPARE(_signals.count("reset"), _signals.count("about"));
        }
    }

    void untrustedFilesNotLoadedAsRoot_data()
    {
        // What is planted in the temporary directory, whose "p" is loaded; then per entry the
        // name, or "!" and the reason ("@": the temporary directory)
        const QString why = "!Not loaded because '@/%1' is not owned by root or is writable by "
                            "group or others.";
        table();
        row("root's own: loaded", "true; Users and groups");
        row("file of nobody's", "chown nobody p/alpha.so;" + why.arg("p/alpha.so"));
        row("group-writable file", "chmod g+w p/alpha.so;" + why.arg("p/alpha.so"));
        // The way an unprivileged user gets code into such a directory.
        row("copied by nobody into a world-writable directory",
            "rm p/alpha.so && chmod 777 p && setpriv --reuid=nobody --regid=nogroup "
            "--clear-groups cp $F/alpha.so p/;"
                + why.arg("p"));
        row("below a directory of nobody's",
            "mkdir p/sub && chown nobody p/sub && mv p/alpha.so p/sub/;" + why.arg("p/sub"));
        row("link to a file of nobody's",
            "mv p/alpha.so out.so && chown nobody out.so && ln -s $PWD/out.so p/alpha.so;"
                + why.arg("out.so"));
        row("two names of one file: once", "ln -s $PWD/p/alpha.so p/alias.so; Users and groups");
    }

    void untrustedFilesNotLoadedAsRoot()
    {
        const auto [plant, expected] = fields<2>();
        if (geteuid() != 0)
            QSKIP("the checks apply to root only");
        QTemporaryDir temporary; // in /tmp: a sticky directory above does not count
        QVERIFY(shell(temporary.path(), "chmod 755 . && mkdir p && cp $F/alpha.so p/ && " + plant));
        _container->loadPlugins(temporary.filePath("p"));
        QStringList entries; // the record's description is what the plug-in model shows
        for (const PluginContainer::PluginEntry &entry : _container->plugins())
            entries << (qobject_cast<const SimplePlugin *>(entry.second) ? "!" : "")
                    + entry.second->description();
        QCOMPARE(entries.join(';').replace(temporary.path(), "@"), expected);
        QCOMPARE(_container->modules().size(), expected.startsWith('!') ? 0 : 2);
    }
};

QTEST_MAIN(tst_PluginContainer)
#include "tst_plugincontainer.moc"
