#include "system/appexception.h"
#include "system/pgsqlcluster.h"
#include "system/pgsqlmanager.h"
#include "system/pgsqlmanagerasync.h"
#include "systemtest.h"
#include "throwawaycluster.h"

#include <QDir>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

namespace {

QString describe(const QList<PgsqlCluster *> &clusters)
{
    QStringList result;
    for (const PgsqlCluster *c : clusters)
        result << QStringList {c->version(), c->name(),  QString::number(c->port()),
                               c->status(),  c->owner(), c->dataDirectory(),
                               c->logFile()}
                      .join('|');
    return result.join(';');
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
};

} // namespace

class TestPgsqlManager : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { _cluster.reset(new ThrowawayCluster); }
    void cleanupTestCase() { _cluster.reset(); }
    void readClustersAsync_data();
    void readClustersAsync();
    void usernames_data();
    void usernames();
    void allClustersWork();
    void realCluster();

private:
    void checkRealCluster();
    std::unique_ptr<ThrowawayCluster> _cluster;
};

void TestPgsqlManager::readClustersAsync_data()
{
    QTest::addColumn<QByteArray>("output");
    QTest::addColumn<QByteArray>("exitCode");
    QTest::addColumn<int>("starts");
    QTest::addColumn<QStringList>("signalLog");

    const auto row = [](const char *name, const char *output, const char *exitCode, int starts,
                        const QStringList &log) {
        QTest::newRow(name) << QByteArray(output) << QByteArray(exitCode) << starts << log;
    };
    const char *two = "13  main    5432 online o /d /l\n\n15 b 2 down o /d15 /l15\n";
    const QString read = "read(13  main | |5432|online|o|/d|/l;15|b|2|down|o|/d15|/l15)";
    row("blank dropped, padding matched greedily", two, "0", 1, {read});
    // Two runs filling one list at once would leave it doubled (or delete clusters twice).
    row("second start waits and replaces", two, "0", 2, {read, read});
    row("six fields: failure, clusters so far", "1 a 1 up o /d /l\n1 b 2 up o /d\n1 c 3 up o /d /l",
        "0", 1, {"exception(Cluster info not valid '1 b 2 up o /d')", "read(1|a|1|up|o|/d|/l)"});
    row("tool fails", "", "2", 1,
        {"exception(Process 'pg_lsclusters --no-header' execute with error code '2'. no access\n)",
         "read()"});
}

void TestPgsqlManager::readClustersAsync()
{
    QFETCH(QByteArray, output);
    QFETCH(QByteArray, exitCode);
    QFETCH(int, starts);
    QFETCH(QStringList, signalLog);

    FakeTools tools(output, exitCode);
    PgsqlManagerAsync async;
    QStringList log;
    QList<QThread *> threads;
    const auto exception = [&](const AppException &e) {
        threads << QThread::currentThread();
        log << "exception(" + e.getText() + ')';
    };
    connect(&async, &PgsqlManagerAsync::exceptionArise, this, exception, Qt::QueuedConnection);
    connect(&async, &PgsqlManagerAsync::clustersReaded, this, [&](QList<PgsqlCluster *> list) {
        threads << QThread::currentThread();
        for (const PgsqlCluster *c : list)
            QCOMPARE(c->thread(), QThread::currentThread());
        log << "read(" + describe(list) + ')';
    });
    for (int i = 0; i < starts; ++i)
        async.startReadClusters();
    // The last run's result is always reported; an earlier one may be folded into it.
    QTRY_VERIFY(!log.isEmpty() && log.last() == signalLog.last());
    if (starts == 1)
        QCOMPARE(log, signalLog);
    for (const QString &entry : qAsConst(log))
        QVERIFY2(signalLog.contains(entry), qPrintable(entry));
    QCOMPARE(threads.count(QThread::currentThread()), threads.size());
}

void TestPgsqlManager::usernames_data()
{
    QTest::addColumn<QByteArray>("output");
    QTest::addColumn<QString>("users"); // "!": the exception

    const auto row = [](const char *name, const char *output, const char *users) {
        QTest::newRow(name) << QByteArray(output) << users;
    };
    row("no rows", " usename \n---------\n(0 rows)\n\n", "");
    row("one row", " usename \n---------\n postgres\n(1 row)\n", "postgres");
    row("two rows, trimmed", " usename  \n----------\n postgres\n  al ice \n(2 rows)\n\n",
        "postgres,al ice");
    row("no row count", " usename \n---------\n postgres\n", "!");
    row("other column", " name \n------\n x\n(1 row)\n", "!");
}

void TestPgsqlManager::usernames()
{
    QFETCH(QByteArray, output);
    QFETCH(QString, users);

    FakeTools tools(output);
    std::unique_ptr<PgsqlCluster> cluster(PgsqlCluster::fromString("15 main 5433 online o /d /l"));
    const QString query = "SELECT u.usename FROM pg_catalog.pg_user u;";
    QString result;
    try {
        result = cluster->usernames().join(',');
    } catch (const AppException &e) {
        QCOMPARE(e.getText(), "SQL request '" + query + "' not mathed");
        result = '!';
    }
    QCOMPARE(result, users);
    QCOMPARE(tools.log(), QStringList("postgres|psql -p 5433 -c \"" + query + "\"|LC_MESSAGES=C"));
}

void TestPgsqlManager::allClustersWork()
{
    FakeTools tools("");
    std::unique_ptr<PgsqlCluster> up(PgsqlCluster::fromString("15 up 1 online o /d /l"));
    std::unique_ptr<PgsqlCluster> down(PgsqlCluster::fromString("15 down 2 down o /d /l"));
    QVERIFY(PgsqlManager::allClustersWork({}));
    QVERIFY(PgsqlManager::allClustersWork({up.get()}));
    QVERIFY(!PgsqlManager::allClustersWork({up.get(), down.get(), up.get()}));
    // Stops at the first cluster that is down.
    QCOMPARE(tools.log(), (QStringList {"15 up status", "15 up status", "15 down status"}));
}

void TestPgsqlManager::realCluster()
{
    if (!_cluster->created)
        QSKIP(qPrintable(_cluster->error));
    // An AppException must fail this test, not end the run before the cluster is dropped.
    try {
        checkRealCluster();
    } catch (const AppException &e) {
        QFAIL(qPrintable(e.getText()));
    }
}

void TestPgsqlManager::checkRealCluster()
{
    QVERIFY(PgsqlManager().packagesInslled());
    std::unique_ptr<PgsqlCluster> cluster(PgsqlCluster::fromString(_cluster->line));
    QVERIFY(!cluster->isWork());
    cluster->start();
    QVERIFY(cluster->isWork());

    const QStringList before = cluster->usernames();
    QVERIFY2(before.contains("postgres") && !before.contains("ovt_user"),
             qPrintable(before.join(',')));
    cluster->createUser("ovt_user");
    QVERIFY(cluster->usernames().contains("ovt_user"));
    cluster->createUser("ovt_user"); // exists: no SQL, no error
    cluster->deleteUser("ovt_user");
    QCOMPARE(cluster->usernames(), before);
    cluster->deleteUser("ovt_user"); // unknown: no SQL, no error
    try {
        cluster->sqlRequest("select * from no_such_table;");
        QFAIL("no exception");
    } catch (const AppException &e) {
        QVERIFY2(e.getText().contains("no_such_table"), qPrintable(e.getText()));
    }

    // The real listing, read through the pool thread, shows the cluster now running.
    PgsqlManagerAsync async;
    QSignalSpy exceptions(&async, &PgsqlManagerAsync::exceptionArise);
    QSignalSpy readed(&async, &PgsqlManagerAsync::clustersReaded);
    async.startReadClusters();
    QTRY_COMPARE_WITH_TIMEOUT(readed.count(), 1, 30000);
    QCOMPARE(exceptions.count(), 0);
    const auto clusters = readed.first().first().value<QList<PgsqlCluster *>>();
    const QString expected = describe({cluster.get()}).replace("|down|", "|online|");
    QVERIFY2(describe(clusters).split(';').contains(expected), qPrintable(describe(clusters)));
}

QTEST_GUILESS_MAIN(TestPgsqlManager)

#include "tst_pgsqlmanager.moc"
