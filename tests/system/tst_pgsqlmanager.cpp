// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "system/appexception.h"
#include "system/pgsqlcluster.h"
#include "system/pgsqlmanager.h"
#include "system/pgsqlmanagerasync.h"
#include "systemtest.h"
#include "throwawaycluster.h"

#include <QtTest>

#include <memory>

using namespace OvtTest;

namespace {

QString describe(const QList<PgsqlCluster *> &clusters)
{
    QStringList result;
    for (const PgsqlCluster *c : clusters)
        result << QStringList {c->version(), c->name(),  QString::number(c->port()),
                               c->status(),  c->owner(), c->dataDirectory(),
                               c->logFile()}
                      .join('|');
    return result.join(',');
}

// The fake cluster tools first on PATH, printing @p output.
struct FakeTools
{
    explicit FakeTools(const QByteArray &output, const QByteArray &exitCode = "0")
        : exit("OVT_FAKE_EXIT", exitCode)
    {
        writeFile(dir.filePath("output"), output);
    }
    QStringList log() const
    {
        return QString(readFile(dir.filePath("log"))).split('\n', Qt::SkipEmptyParts);
    }
    QTemporaryDir dir;
    EnvVar path {"PATH", pathWith(OVT_FIXTURE_DIR "/fakepg")};
    EnvVar output {"OVT_FAKE_OUTPUT", QFile::encodeName(dir.filePath("output"))};
    EnvVar logFile {"OVT_FAKE_LOG", QFile::encodeName(dir.filePath("log"))};
    EnvVar exit {"OVT_FAKE_EXIT", "0"};
    EnvVar err {"OVT_FAKE_STDERR", "no access\n"};
    EnvVar gate {"OVT_FAKE_GATE", QFile::encodeName(dir.filePath("gate"))};
};

} // namespace

class TestPgsqlManager : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        _cluster.reset(new ThrowawayCluster);
        // A second cluster makes pg_lsclusters pad its columns.
        if (_cluster->created)
            _second.reset(new ThrowawayCluster("padded"));
    }
    void readClustersAsync_data();
    void readClustersAsync();
    void userSql_data();
    void userSql();
    void unexpectedUserListFails();
    void realCluster();

private:
    std::unique_ptr<ThrowawayCluster> _cluster, _second; // dropped in reverse order
};

void TestPgsqlManager::readClustersAsync_data()
{
    // The listing ("\\n": line feed, "\\t": tab); the exit code; starts at once; the signals.
    table();
    const QString two = "13  main    5432 online o /d /l\\n\\n15 b 2 down o /d15 /l15\\n;";
    const QString read = "read(13|main|5432|online|o|/d|/l,15|b|2|down|o|/d15|/l15)";
    row("blank dropped, padded columns split", two + "0; 1;" + read);
    // Neither start waits for the other, and each run reports a whole list of its own.
    row("two runs at once", two + "0; 2;" + read + ' ' + read);
    row("log file keeps its blanks, port decimal only",
        "\\t9 a 1 up o /d /l x  \\n9 b 1e2 up o /d /l; 0; 1;"
        "exception(Cluster info not valid '9 b 1e2 up o /d /l') read(9|a|1|up|o|/d|/l x)");
    row("six fields: failure, clusters so far",
        "1 a 1 up o /d /l\\n1 b 2 up o /d\\n1 c 3 up o /d /l; 0; 1;"
        "exception(Cluster info not valid '1 b 2 up o /d') read(1|a|1|up|o|/d|/l)");
    row("tool fails",
        "; 2; 1; exception(Process 'pg_lsclusters --no-header' execute with error "
        "code '2'. no access\n) read()");
}

void TestPgsqlManager::readClustersAsync()
{
    const auto [listing, exitCode, starts, signalLog] = fields<4>();
    const QByteArray output = listing.toLatin1().replace("\\n", "\n").replace("\\t", "\t");
    FakeTools tools(output, exitCode.toLatin1());
    PgsqlManagerAsync async;
    QStringList log;
    const auto exception = [&](const AppException &e) {
        log << "exception(" + e.getText() + ')';
    };
    connect(&async, &PgsqlManagerAsync::exceptionArise, this, exception, Qt::QueuedConnection);
    connect(&async, &PgsqlManagerAsync::clustersReaded, this, [&](QList<PgsqlCluster *> list) {
        for (const PgsqlCluster *c : list) // handed over to this thread
            QCOMPARE(c->thread(), QThread::currentThread());
        log << "read(" + describe(list) + ')';
    });
    // Every run waits in the tool until all have started: a start that waited for the run in
    // progress would never return before the tool gives up.
    for (int i = 0; i < starts.toInt(); ++i)
        async.startReadClusters();
    QVERIFY(writeFile(tools.dir.filePath("gate"), ""));
    QTRY_COMPARE_WITH_TIMEOUT(log.join(' '), signalLog, 20000);
}

void TestPgsqlManager::userSql_data()
{
    // The name ("%63": 63 bytes, "%s": ';'); what the shell gets between its double quotes (its
    // final ';' left out), or "!".
    table();
    row("plain: as it always was", "ovt_user9; create user ovt_user9;");
    row("63 bytes", "%63; create user %63;");
    row("capitals quoted", R"(Bob; create user \"Bob\";)");
    row("leading digit quoted", R"(9a; create user \"9a\";)");
    row("command substitution", R"($(touch x); create user \"\$(touch x)\";)");
    row("backtick", R"(a`id`; create user \"a\`id\`\";)");
    row("quote doubled", R"(x"y; create user \"x\"\"y\";)");
    row("backslash", R"(a\b; create user \"a\\b\";)");
    row("second statement",
        R"(x%s alter user x superuser; create user \"x%s alter user x superuser\";)");
    row("drop: dollar", R"(postgres$b; drop user \"postgres\$b\";)");
    row("empty", "; !");
    row("64 bytes", "%62\u00e9; !");
    row("control character", "a\tb; !");
}

void TestPgsqlManager::userSql()
{
    auto [name, sql] = fields<2>();
    for (QString *text : {&name, &sql})
        text->replace("%63", QString(63, 'a')).replace("%62", QString(62, 'a')).replace("%s", ";");
    sql += sql == "!" ? "" : ";";
    const bool drop = sql.startsWith("drop");
    FakeTools tools(" usename \n---------\n postgres\n " + name.toUtf8() + "x\n(2 rows)\n");
    if (drop)
        writeFile(tools.dir.filePath("output"), " usename\n--\n " + name.toUtf8() + "\n(1 row)\n");
    std::unique_ptr<PgsqlCluster> cluster(PgsqlCluster::fromString("15 main 5433 online o /d /l"));
    try {
        drop ? cluster->deleteUser(name) : cluster->createUser(name);
        QCOMPARE(tools.log().value(1), "postgres|psql -p 5433 -c \"" + sql + "\"|LC_MESSAGES=C");
    } catch (const AppException &e) {
        QCOMPARE(e.getText(), "User name '" + name + "' is not valid");
        QCOMPARE(sql, "!");
        QVERIFY(!QFile::exists(tools.dir.filePath("log"))); // refused before any process ran
    }
}

void TestPgsqlManager::unexpectedUserListFails()
{
    FakeTools tools(" name \n------\n x\n(1 row)\n"); // another column than asked for
    std::unique_ptr<PgsqlCluster> cluster(PgsqlCluster::fromString("15 main 5433 online o /d /l"));
    QVERIFY_EXCEPTION_THROWN(cluster->usernames(), AppException);
}

void TestPgsqlManager::realCluster()
{
    if (!_cluster->created)
        QSKIP(qPrintable(_cluster->error));
    // An AppException must fail this test, not end the run before the cluster is dropped.
    try {
        QVERIFY(PgsqlManager().packagesInslled());
        // The real listing of two clusters pads its columns; each still parses as listed alone.
        PgsqlManager manager;
        manager.readClusters();
        for (const ThrowawayCluster *c : {_cluster.get(), _second.get()}) {
            std::unique_ptr<PgsqlCluster> alone(PgsqlCluster::fromString(c->line));
            QVERIFY2(describe(manager.getClusters()).split(',').contains(describe({alone.get()})),
                     qPrintable(describe(manager.getClusters())));
        }
        std::unique_ptr<PgsqlCluster> cluster(PgsqlCluster::fromString(_cluster->line));
        QVERIFY(!cluster->isWork());
        cluster->start();
        QVERIFY(cluster->isWork());

        // Hostile names name exactly one role each and run nothing; an existing or unknown name
        // runs no SQL and is no error.
        const QStringList before = cluster->usernames();
        QVERIFY2(before.contains("postgres") && !before.contains("a"),
                 qPrintable(before.join(',')));
        const QString marker = QStringLiteral("/tmp/ovt-injected-%1").arg(getpid());
        const QStringList names {"a",    "$(touch " + marker + ')',   "a`touch " + marker + '`',
                                 "x\"y", "x; alter user x superuser", "Bob",
                                 "a$b"};
        for (const QString &name : names + QStringList {"a"})
            cluster->createUser(name);
        QStringList all = cluster->usernames(), wanted = before + names;
        all.sort();
        wanted.sort();
        QCOMPARE(all, wanted);
        cluster->deleteUser("a$b");
        QVERIFY(cluster->usernames().contains("a"));
        for (const QString &name : names + QStringList {"a"})
            cluster->deleteUser(name);
        QCOMPARE(cluster->usernames(), before);
        QVERIFY(!QFile::remove(marker));
        try {
            cluster->sqlRequest("select * from no_such_table;");
            QFAIL("no exception");
        } catch (const AppException &e) {
            QVERIFY2(e.getText().contains("no_such_table"), qPrintable(e.getText()));
        }
    } catch (const AppException &e) {
        QFAIL(qPrintable(e.getText()));
    }
}

QTEST_GUILESS_MAIN(TestPgsqlManager)

#include "tst_pgsqlmanager.moc"
