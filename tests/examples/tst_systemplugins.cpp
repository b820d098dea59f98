// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "element/element.h"
#include "element/elementdata.h"
#include "plugin/module.h"
#include "plugin/plugincontainer.h"
#include "system/orvelsecuritymonitorhelper.h"
#include "system/switchwidget.h"
#include "systemtest.h"
#include "task/taskobserver.h"
#include "task/thread.h"
#include "throwawaycluster.h"
#include "widgets/recordmodel.h"
#include "widgets/recordwidget.h"
#include "widgets/vieweditelementwidget.h"

#include <QtTest>
#include <QtWidgets>

using namespace OvtTest;

QString namespaceError;

// The example plug-ins, loaded through the container the tool uses.
struct Loaded : PluginContainer
{
    Loaded() { loadPlugins(OVT_EXAMPLE_PLUGIN_DIR); }
    Element *element(const QString &module, const QString &id) const
    {
        for (Module *m : modules())
            if (m->getData("name") == module)
                return m->element(id);
        return nullptr;
    }
    // The element's form, read.
    template<class Form = ElementWidget> Form *form(Element *element)
    {
        ElementWidget *widget = element->elementWidget(ViewEditRole);
        widget->setElement(element, ViewEditRole);
        widget->read();
        return static_cast<Form *>(widget);
    }
};

Element *child(TreeNode *parent, const QString &title)
{
    for (TreeNode *node : parent->childNodes())
        if (auto *element = qobject_cast<Element *>(node); element && element->title() == title)
            return element;
    return nullptr;
}

class TestSystemPlugins : public QObject
{
    Q_OBJECT
    Thread _workers[2];
    bool _monitorUsed = false;
    QTemporaryDir _dir;

private slots:
    void initTestCase()
    {
        for (Thread &worker : _workers)
            worker.start();
        TaskObserver::instance(this);
    }
    void cleanupTestCase()
    {
        // The monitor client keeps its first read's switches, never placed: the caller's to delete.
        if (_monitorUsed)
            qDeleteAll(OrvelSecurityMonitorHelper::instance().getSwitches());
    }

    void configEntries_data()
    {
        // Edits: "row|column|text", "add" (a row), "del|row", "external" (the file changes); the
        // tasks finished after Apply (write, re-read); the file after ("+": the file before, then).
        table();
        row("edit: only that line changes",
            "1|1|3; 2; # head\\nA=1\\t# one\\n\\nB=3\\nnot an entry\\n");
        row("removal blanks the line, keeps its comment",
            "del|0; 2; # head\\n\\t# one\\n\\nB = 2\\nnot an entry\\n");
        row("new entry appended", "add, 2|0|C, 2|1|x/y; 2; +C=x/y\\n");
        row("a value with # is refused", "0|1|a # b; 0; +");
        row("file changed meanwhile: refused", "1|1|3, external; 1; A=9\\n");
    }
    void configEntries()
    {
        // With no file named, the plug-in edits a copy below the XDG_DATA_HOME set by main().
        ElementData defaults = *Loaded().element("configEntries", "ConfigFile")->elementData();
        const QString copy = defaults["filePath"].toString();
        QVERIFY2(copy.startsWith(qEnvironmentVariable("XDG_DATA_HOME")) && QFile::exists(copy),
                 qPrintable(copy));
        const QByteArray file = "# head\nA=1\t# one\n\nB = 2\nnot an entry\n";
        const auto [edits, tasks, expected] = fields<3>();
        QByteArray after = expected.toUtf8().replace("\\n", "\n").replace("\\t", "\t");
        if (after.startsWith('+'))
            after = file + after.mid(1);
        const QString path = _dir.filePath("conf");
        QVERIFY(writeFile(path, file));
        EnvVar chosen("OVT_DEMO_CONFIG_FILE", QFile::encodeName(path));
        Loaded loaded;
        auto *form
            = loaded.form<ViewEditElementWidget>(loaded.element("configEntries", "ConfigFile"));
        RecordModel *model = form->findChild<RecordWidget *>()->recordModel();
        watch(model);
        QTRY_COMPARE(model->rowCount(), 2);
        for (const QString &edit : edits.split(", ")) {
            const QStringList w = edit.split('|');
            if (edit == "external")
                QVERIFY(writeFile(path, after));
            else if (edit == "add")
                QVERIFY(model->insertRows(model->rowCount(), 1));
            else if (w[0] == "del")
                QVERIFY(model->removeRows(w[1].toInt(), 1));
            else
                QVERIFY(model->setData(model->index(w[0].toInt(), w[1].toInt()), w[2]));
            form->changeContent();
        }
        auto *apply = form->findChild<QPushButton *>();
        QCOMPARE(apply->isEnabled(), tasks != "0");
        QSignalSpy finished(TaskObserver::instance(), &TaskObserver::taskDataChanged);
        apply->click(); // does nothing when disabled
        QTRY_COMPARE(finished.count(), tasks.toInt());
        QCOMPARE(readFile(path), after);
    }

    void security_data()
    {
        // The monitor's mode ("absent": no tool at the fixed path); the message shown.
        table();
        row("absent", "absent; is not installed");
        row("two switches", ";");
        row("tool fails", "fail; unexpected code: 3");
    }
    void security()
    {
        const auto [mode, message] = fields<2>();
        if (!namespaceError.isEmpty())
            QSKIP(qPrintable(namespaceError));
        QTemporaryDir empty; // for /usr/sbin when the tool is absent
        const QString sbin = mode == "absent" ? empty.path() : OVT_FIXTURE_DIR "/monitor";
        EnvVar output("OVT_MONITOR_OUTPUT", OVT_FIXTURE_DIR "/monitor/two-switches.json");
        EnvVar behaviour("OVT_MONITOR_MODE", mode.toLatin1());
        QVERIFY(mount(QFile::encodeName(sbin), "/usr/sbin", nullptr, MS_BIND, nullptr) == 0);
        Loaded loaded;
        ElementWidget *form = loaded.form(loaded.element("security", "SecurityOptions"));
        _monitorUsed = _monitorUsed || mode != "absent";
        umount2("/usr/sbin", MNT_DETACH);
        QCOMPARE(form->findChildren<SwitchWidget *>().size(), message.isEmpty() ? 2 : 0);
        const QString shown = form->findChild<QLabel *>()->text();
        // Reaching this line at all means no message box waited for a user.
        QVERIFY2(message.isEmpty() ? shown.isEmpty() : shown.contains(message), qPrintable(shown));
    }

    void postgresql()
    {
        ThrowawayCluster throwaway;
        int code = 1;
        const QString why = throwaway.created
            ? run("pg_ctlcluster", {throwaway.version, throwaway.name, "start"}, &code)
            : throwaway.error;
        if (code != 0) // no server, or the machine's other clusters are in its way
            QSKIP(qPrintable(why));
        Loaded loaded;
        QSignalSpy finished(TaskObserver::instance(), &TaskObserver::taskDataChanged);
        Element *folder = loaded.element("postgresql", "PostgreSQL"), *cluster = nullptr;
        folder->fetchMore();
        QTRY_VERIFY_WITH_TIMEOUT(cluster = child(folder, throwaway.version + '/' + throwaway.name),
                                 60000);
        cluster->fetchMore();
        QTRY_VERIFY_WITH_TIMEOUT(child(cluster, "postgres"), 60000);
        auto *name
            = loaded.form(cluster)->findChild<QLineEdit *>(); // hostile: refused; padded: trimmed
        for (const char *text : {"bad name; drop role postgres", " ovt_demo "})
            name->setText(text), name->returnPressed();
        QTRY_VERIFY_WITH_TIMEOUT(child(cluster, "ovt_demo"), 60000);
        QCOMPARE(cluster->childNodesCount(), 2);
        const auto roles = [&] { // as the server has them, not as the tree shows them
            return run("runuser",
                       {"-u", "postgres", "--", "psql", "-p", throwaway.line.section(' ', 2, 2),
                        "-Atc", "select rolname from pg_roles"})
                .split('\n');
        };
        QVERIFY(roles().contains("ovt_demo"));
        QVERIFY(loaded.form(child(cluster, "ovt_demo"))->findChild<QPushButton *>()->isEnabled());
        child(cluster, "ovt_demo")->performOperation(DeleteOperation, nullptr, 0);
        QTRY_VERIFY_WITH_TIMEOUT(!child(cluster, "ovt_demo"), 60000);
        QVERIFY(roles().contains("postgres") && !roles().contains("ovt_demo"));
        QTRY_COMPARE(finished.count(), 5);
    }
};

int main(int argc, char *argv[])
{
    namespaceError = enterPrivateMountNamespace(); // while single-threaded
    QTemporaryDir data; // the configuration plug-in's default copy lands here
    qputenv("XDG_DATA_HOME", QFile::encodeName(data.path()));
    QApplication app(argc, argv);
    TestSystemPlugins test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_systemplugins.moc"
