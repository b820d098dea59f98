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

#include <QAbstractItemModelTester>
#include <QtTest>
#include <QtWidgets>

// The three plug-ins alone in a directory, loaded through the container the tool uses.
struct Loaded
{
    Loaded()
    {
        for (const char *name : {"configentries", "postgresql", "security"})
            QFile::copy(QStringLiteral(OVT_EXAMPLE_PLUGIN_DIR "/%1.so").arg(name),
                        dir.filePath(QStringLiteral("%1.so").arg(name)));
        plugins.loadPlugins(dir.path());
    }
    Element *element(const QString &module, const QString &id) const
    {
        for (Module *m : plugins.modules())
            if (m->getData(QStringLiteral("name")) == module)
                return m->element(id);
        return nullptr;
    }
    ElementWidget *form(Element *element) const
    {
        ElementWidget *widget = element->elementWidget(ViewEditRole);
        widget->setElement(element, ViewEditRole);
        widget->read();
        return widget;
    }
    QTemporaryDir dir;
    PluginContainer plugins;
};

QString namespaceError;

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

private slots:
    void initTestCase()
    {
        for (int i = 0; i < 2; ++i)
            (_workers << new Thread).last()->start();
        TaskObserver::instance(this);
    }
    void cleanupTestCase()
    {
        qDeleteAll(_workers);
        // The monitor client keeps the switches of its first read for whoever places them; the
        // plug-in shows fresh ones, so these were never placed and are the caller's to delete.
        if (_monitorUsed)
            qDeleteAll(OrvelSecurityMonitorHelper::instance().getSwitches());
    }

    void configEntries_data()
    {
        QTest::addColumn<QStringList>("edits"); // "row|column|text", "add|key|value", "del|row"
        QTest::addColumn<int>("tasks"); // finished after Apply: the write and the re-read
        QTest::addColumn<QByteArray>("after");
        const QByteArray file = "# head\nA=1\t# one\n\nB = 2\nnot an entry\n";
        const auto row
            = [](const char *name, const QStringList &edits, int tasks, const QByteArray &after) {
                  QTest::newRow(name) << edits << tasks << after;
              };
        row("edit: only that line changes", {"1|1|3"}, 2,
            "# head\nA=1\t# one\n\nB=3\nnot an entry\n");
        row("removal blanks the line, keeps its comment", {"del|0"}, 2,
            "# head\n\t# one\n\nB = 2\nnot an entry\n");
        row("new entry appended", {"add|C|x/y"}, 2, file + "C=x/y\n");
        row("a value with # is refused", {"0|1|a # b"}, 0, file);
        row("file changed meanwhile: refused", {"1|1|3", "external"}, 1, "A=9\n");
    }
    void configEntries()
    {
        QFETCH(QStringList, edits);
        QFETCH(int, tasks);
        QFETCH(QByteArray, after);
        QTemporaryDir dir;
        const QString path = dir.filePath("conf");
        QVERIFY(writeFile(path, "# head\nA=1\t# one\n\nB = 2\nnot an entry\n"));
        EnvVar chosen("OVT_DEMO_CONFIG_FILE", QFile::encodeName(path));
        Loaded loaded;
        auto *form = static_cast<ViewEditElementWidget *>(
            loaded.form(loaded.element("configEntries", "ConfigFile")));
        RecordModel *model = form->findChild<RecordWidget *>()->recordModel();
        QAbstractItemModelTester tester(model,
                                        QAbstractItemModelTester::FailureReportingMode::Fatal);
        QTRY_COMPARE(model->rowCount(), 2);
        for (const QString &edit : edits) {
            const QStringList w = edit.split('|');
            if (w[0] == "external")
                QVERIFY(writeFile(path, after));
            else if (w[0] == "del")
                QVERIFY(model->removeRows(w[1].toInt(), 1));
            else if (w[0] != "add")
                QVERIFY(model->setData(model->index(w[0].toInt(), w[1].toInt()), w[2]));
            else {
                QVERIFY(model->insertRows(model->rowCount(), 1));
                QVERIFY(model->setData(model->index(model->rowCount() - 1, 0), w[1]));
                QVERIFY(model->setData(model->index(model->rowCount() - 1, 1), w[2]));
            }
            form->changeContent();
        }
        auto *apply = form->findChild<QPushButton *>();
        QCOMPARE(apply->isEnabled(), tasks > 0);
        QSignalSpy finished(TaskObserver::instance(), &TaskObserver::taskDataChanged);
        if (apply->isEnabled())
            apply->click();
        QTRY_COMPARE(finished.count(), tasks);
        QCOMPARE(readFile(path), after);
    }

    void configEntriesDefaultIsAPrivateCopy()
    {
        Loaded loaded; // no file named: the copy goes below the XDG_DATA_HOME set by main()
        Element *file = loaded.element("configEntries", "ConfigFile");
        const QString path = file->elementData()->value("filePath").toString();
        QVERIFY2(path.startsWith(qEnvironmentVariable("XDG_DATA_HOME")) && QFile::exists(path),
                 qPrintable(path));
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
        const QString title = throwaway.version + '/' + throwaway.name;
        QTRY_VERIFY_WITH_TIMEOUT(cluster = child(folder, title), 60000);
        cluster->fetchMore();
        QTRY_VERIFY_WITH_TIMEOUT(child(cluster, "postgres"), 60000);
        auto *name = loaded.form(cluster)->findChild<QLineEdit *>(); // the hostile name is refused
        for (const char *text : {"bad name; drop role postgres", "ovt_demo"})
            name->setText(text), name->returnPressed();
        QTRY_VERIFY_WITH_TIMEOUT(child(cluster, "ovt_demo"), 60000);
        QCOMPARE(cluster->childNodesCount(), 2);
        child(cluster, "ovt_demo")->performOperation(DeleteOperation, nullptr, 0);
        QTRY_VERIFY_WITH_TIMEOUT(!child(cluster, "ovt_demo"), 60000);
        QTRY_COMPARE(finished.count(), 5);
    }

    void security_data()
    {
        QTest::addColumn<QByteArray>("mode"); // "absent": no tool at the fixed path
        QTest::addColumn<QString>("message");
        QTest::newRow("absent") << QByteArray("absent") << "is not installed";
        QTest::newRow("two switches") << QByteArray() << "";
        QTest::newRow("tool fails") << QByteArray("fail") << "unexpected code: 3";
    }
    void security()
    {
        QFETCH(QByteArray, mode);
        QFETCH(QString, message);
        if (!namespaceError.isEmpty())
            QSKIP(qPrintable(namespaceError));
        QTemporaryDir sbin;
        if (mode != "absent")
            QVERIFY(QFile::copy(OVT_FIXTURE_DIR "/monitor/orvel-security-monitor",
                                sbin.filePath("orvel-security-monitor")));
        QVERIFY(writeFile(sbin.filePath("out"),
                          R"([{"id":1,"name":"a","longname":"A","script":"s1","group":"console"},
                              {"id":2,"name":"b","longname":"B","script":"s2"}])"));
        EnvVar output("OVT_MONITOR_OUTPUT", QFile::encodeName(sbin.filePath("out")));
        EnvVar behaviour("OVT_MONITOR_MODE", mode);
        const QByteArray source = QFile::encodeName(sbin.path());
        QVERIFY(mount(source.constData(), "/usr/sbin", nullptr, MS_BIND, nullptr) == 0);
        Loaded loaded;
        ElementWidget *form = loaded.form(loaded.element("security", "SecurityOptions"));
        _monitorUsed = _monitorUsed || mode != "absent";
        umount2("/usr/sbin", MNT_DETACH);
        QCOMPARE(form->findChildren<SwitchWidget *>().size(), message.isEmpty() ? 2 : 0);
        const QString shown = form->findChild<QLabel *>()->text();
        // Reaching this line at all means no message box waited for a user.
        QVERIFY2(message.isEmpty() ? shown.isEmpty() : shown.contains(message), qPrintable(shown));
    }

private:
    QList<Thread *> _workers;
    bool _monitorUsed = false;
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
