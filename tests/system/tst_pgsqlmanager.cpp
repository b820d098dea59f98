#include "system/appexception.h"
#include "system/pgsqlcluster.h"
#include "system/pgsqlmanager.h"
#include "system/pgsqlmanagerasync.h"
#include "system/process.h"

#include <QDir>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {

const QString fakePgDir = QStringLiteral(OVT_FIXTURE_DIR "/fakepg");

QString describe(const PgsqlCluster *c)
{
    return QStringLiteral("[%1|%2|%3|%4|%5|%6|%7]")
        .arg(c->version(), c->name(), QString::number(c->port()), c->status(), c->owner(),
             c->dataDirectory(), c->logFile());
}

QStringList describe(const QList<PgsqlCluster *> &clusters)
{
    QStringList result;
    for (const PgsqlCluster *c : clusters)
        result << describe(c);
    return result;
}

bool writeFile(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly | QIODevice::Truncate)
        && file.write(bytes) == bytes.size();
}

// The fake cluster tools first on PATH, their output and exit code chosen per test.
class FakeTools
{
public:
    FakeTools()
        : _savedPath(qgetenv("PATH"))
    {
        qputenv("PATH", QFile::encodeName(fakePgDir) + ':' + _savedPath);
        qputenv("OVT_FAKE_OUTPUT", QFile::encodeName(_dir.filePath(QStringLiteral("output"))));
        qputenv("OVT_FAKE_LOG", QFile::encodeName(_dir.filePath(QStringLiteral("log"))));
        qputenv("OVT_FAKE_EXIT", "0");
        qunsetenv("OVT_FAKE_STDERR");
        setOutput(QByteArray());
    }
    ~FakeTools() { qputenv("PATH", _savedPath); }

    bool setOutput(const QByteArray &output)
    {
        return writeFile(_dir.filePath(QStringLiteral("output")), output);
    }
    QStringList log() const
    {
        QFile file(_dir.filePath(QStringLiteral("log")));
        if (!file.open(QIODevice::ReadOnly))
            return {};
        return QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    }

private:
    QByteArray _savedPath;
    QTemporaryDir _dir;
};

QString run(const QString &program, const QStringList &arguments, int *exitCode = nullptr)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(program, arguments);
    process.waitForFinished(120000);
    if (exitCode)
        *exitCode = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    return QString::fromLocal8Bit(process.readAll());
}

// A cluster made for this test run only; dropped when the guard goes, whatever happened.
class ThrowawayCluster
{
public:
    ~ThrowawayCluster() { drop(); }

    QString create()
    {
        const QStringList versions = QDir(QStringLiteral("/usr/lib/postgresql"))
                                         .entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name);
        if (versions.isEmpty())
            return QStringLiteral("no PostgreSQL server under /usr/lib/postgresql");
        version = versions.last();
        name = QStringLiteral("ovttest%1").arg(QCoreApplication::applicationPid());
        port = freePort();
        if (port == 0)
            return QStringLiteral("no free port found");
        int code = 0;
        const QString out
            = run(QStringLiteral("pg_createcluster"),
                  {version, name, QStringLiteral("-p"), QString::number(port),
                   QStringLiteral("--start-conf=manual"), QStringLiteral("--locale=C.UTF-8")},
                  &code);
        if (code != 0)
            return QStringLiteral("pg_createcluster failed: %1").arg(out);
        _created = true;
        dataDirectory = QStringLiteral("/var/lib/postgresql/%1/%2").arg(version, name);
        return QString();
    }

    void drop()
    {
        if (!_created)
            return;
        _created = false;
        run(QStringLiteral("pg_dropcluster"), {QStringLiteral("--stop"), version, name});
    }

    QString line() const
    {
        return QStringLiteral("%1 %2 %3 down postgres %4 /var/log/postgresql/postgresql-%1-%2.log")
            .arg(version, name, QString::number(port), dataDirectory);
    }

    QString version;
    QString name;
    int port = 0;
    QString dataDirectory;

private:
    static int freePort()
    {
        for (int attempt = 0; attempt < 50; ++attempt) {
            const int candidate
                = 20000 + (QCoreApplication::applicationPid() * 7 + attempt * 131) % 30000;
            if (QFile::exists(QStringLiteral("/var/run/postgresql/.s.PGSQL.%1").arg(candidate)))
                continue;
            const int fd = socket(AF_INET, SOCK_STREAM, 0);
            sockaddr_in address {};
            address.sin_family = AF_INET;
            address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
            address.sin_port = htons(quint16(candidate));
            const bool free = bind(fd, reinterpret_cast<sockaddr *>(&address), sizeof address) == 0;
            close(fd);
            if (free)
                return candidate;
        }
        return 0;
    }

    bool _created = false;
};

// Drops clusters left behind by runs of this test that were killed before cleaning up.
void dropStaleTestClusters()
{
    const QStringList lines = run(QStringLiteral("pg_lsclusters"), {QStringLiteral("--no-header")})
                                  .split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    static const QRegularExpression stale(QStringLiteral("^(\\S+)\\s+ovttest(\\d+)\\s"));
    for (const QString &line : lines) {
        const QRegularExpressionMatch match = stale.match(line);
        if (match.hasMatch() && !QFile::exists(QStringLiteral("/proc/%1").arg(match.captured(2))))
            run(QStringLiteral("pg_dropcluster"),
                {QStringLiteral("--stop"), match.captured(1),
                 QStringLiteral("ovttest") + match.captured(2)});
    }
}

} // namespace

class TestPgsqlManager : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();

    void fromString_data();
    void fromString();
    void readClusters_data();
    void readClusters();
    void asyncSignals_data();
    void asyncSignals();
    void usernames_data();
    void usernames();
    void commandsRunOnlyWhenNeeded();

    void realClusterStartAndUsers();
    void realListingThroughAsync();

private:
    void checkClusterStartAndUsers();
    std::unique_ptr<ThrowawayCluster> _cluster;
    QString _noServerReason;
};

void TestPgsqlManager::initTestCase()
{
    if (geteuid() != 0) {
        _noServerReason = QStringLiteral(
            "a throwaway PostgreSQL cluster needs root (pg_createcluster, su postgres)");
        return;
    }
    if (QStandardPaths::findExecutable(QStringLiteral("pg_createcluster")).isEmpty()) {
        _noServerReason = QStringLiteral("postgresql-common is not installed");
        return;
    }
    dropStaleTestClusters();
    _cluster.reset(new ThrowawayCluster);
    _noServerReason = _cluster->create();
}

void TestPgsqlManager::cleanupTestCase()
{
    _cluster.reset();
}

void TestPgsqlManager::fromString_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("cluster"); // empty: rejected

    QTest::newRow("single blanks") << "13 main 5432 online postgres /var/lib/postgresql/13/main "
                                      "/var/log/postgresql/postgresql-13-main.log"
                                   << "[13|main|5432|online|postgres|/var/lib/postgresql/13/main|"
                                      "/var/log/postgresql/postgresql-13-main.log]";
    QTest::newRow("padded columns matched greedily")
        << "13  main    5432 online postgres /var/lib/postgresql/13/main "
           "/var/log/postgresql/postgresql-13-main.log"
        << "[13  main | |5432|online|postgres|/var/lib/postgresql/13/main|"
           "/var/log/postgresql/postgresql-13-main.log]";
    QTest::newRow("six fields rejected")
        << "13 main 5432 online postgres /var/lib/postgresql/13/main" << QString();
    QTest::newRow("port not a number rejected")
        << "13 main port online postgres /data /log" << QString();
    QTest::newRow("header line rejected")
        << "Ver Cluster Port Status Owner    Data directory              Log file" << QString();
}

void TestPgsqlManager::fromString()
{
    QFETCH(QString, line);
    QFETCH(QString, cluster);

    try {
        std::unique_ptr<PgsqlCluster> parsed(PgsqlCluster::fromString(line));
        QVERIFY2(!cluster.isEmpty(), "accepted a bad line");
        QCOMPARE(describe(parsed.get()), cluster);
        QVERIFY(!parsed->parent());
    } catch (const AppException &e) {
        QVERIFY2(cluster.isEmpty(), qPrintable(e.getText()));
        QCOMPARE(e.getText(), QStringLiteral("Cluster info not valid '%1'").arg(line));
    }
}

void TestPgsqlManager::readClusters_data()
{
    QTest::addColumn<QByteArray>("output");
    QTest::addColumn<int>("exitCode");
    QTest::addColumn<QStringList>("clusters");
    QTest::addColumn<QString>("error");

    QTest::newRow("no clusters") << QByteArray() << 0 << QStringList() << QString();
    QTest::newRow("two clusters, blank lines dropped")
        << QByteArray(
               "13 main 5432 online postgres /d13 /l13\n\n15 web 5433 down postgres /d15 /l15\n")
        << 0
        << QStringList {"[13|main|5432|online|postgres|/d13|/l13]",
                        "[15|web|5433|down|postgres|/d15|/l15]"}
        << QString();
    QTest::newRow("malformed line keeps the clusters before it")
        << QByteArray("13 main 5432 online postgres /d13 /l13\nbroken line\n15 web 5433 down "
                      "postgres /d15 /l15\n")
        << 0 << QStringList {"[13|main|5432|online|postgres|/d13|/l13]"}
        << "Cluster info not valid 'broken line'";
    QTest::newRow("listing tool fails")
        << QByteArray() << 2 << QStringList()
        << "Process 'pg_lsclusters --no-header' execute with error code '2'. no access\n";
}

void TestPgsqlManager::readClusters()
{
    QFETCH(QByteArray, output);
    QFETCH(int, exitCode);
    QFETCH(QStringList, clusters);
    QFETCH(QString, error);

    FakeTools tools;
    QVERIFY(tools.setOutput(output));
    qputenv("OVT_FAKE_EXIT", QByteArray::number(exitCode));
    if (exitCode != 0)
        qputenv("OVT_FAKE_STDERR", "no access\n");

    PgsqlManager manager;
    QString thrown;
    try {
        manager.readClusters();
    } catch (const AppException &e) {
        thrown = e.getText();
    }
    QCOMPARE(thrown, error);
    QCOMPARE(describe(manager.getClusters()), clusters);

    // A second read replaces the first one's clusters rather than adding to them.
    QVERIFY(tools.setOutput("9 x 1 online postgres /d /l\n"));
    qputenv("OVT_FAKE_EXIT", "0");
    manager.readClusters();
    QCOMPARE(describe(manager.getClusters()), QStringList {"[9|x|1|online|postgres|/d|/l]"});
}

void TestPgsqlManager::asyncSignals_data()
{
    QTest::addColumn<QByteArray>("output");
    QTest::addColumn<int>("starts");
    QTest::addColumn<QStringList>("signalLog");

    const QByteArray two("13 a 1 online o /d /l\n13 b 2 down o /d /l\n");
    QTest::newRow("empty listing") << QByteArray() << 1 << QStringList {"clustersReaded()"};
    QTest::newRow("two clusters") << two << 1 << QStringList {"clustersReaded(a,b)"};
    // Two runs filling one list at once would leave it doubled (or delete clusters twice).
    QTest::newRow("second start waits for the first run")
        << two << 2 << QStringList {"clustersReaded(a,b)", "clustersReaded(a,b)"};
    QTest::newRow("failure reported, then the clusters read so far")
        << QByteArray("13 a 1 online o /d /l\nbad\n") << 1
        << QStringList {"exceptionArise(Cluster info not valid 'bad')", "clustersReaded(a)"};
}

void TestPgsqlManager::asyncSignals()
{
    QFETCH(QByteArray, output);
    QFETCH(int, starts);
    QFETCH(QStringList, signalLog);

    FakeTools tools;
    QVERIFY(tools.setOutput(output));

    PgsqlManagerAsync async;
    QStringList log;
    QList<QThread *> threads;
    connect(
        &async, &PgsqlManagerAsync::exceptionArise, this,
        [&](const AppException &e) {
            threads << QThread::currentThread();
            log << QStringLiteral("exceptionArise(%1)").arg(e.getText());
        },
        Qt::QueuedConnection);
    connect(&async, &PgsqlManagerAsync::clustersReaded, this,
            [&](const QList<PgsqlCluster *> &clusters) {
                threads << QThread::currentThread();
                QStringList names;
                for (const PgsqlCluster *c : clusters) {
                    names << c->name();
                    QCOMPARE(c->thread(), QThread::currentThread());
                }
                log << QStringLiteral("clustersReaded(%1)").arg(names.join(QLatin1Char(',')));
            });

    for (int i = 0; i < starts; ++i)
        async.startReadClusters();
    // The last run's result is always reported; an earlier one may be folded into it.
    QTRY_VERIFY(!log.isEmpty() && log.last() == signalLog.last());
    if (starts == 1)
        QCOMPARE(log, signalLog);
    for (const QString &entry : qAsConst(log))
        QVERIFY2(signalLog.contains(entry), qPrintable(entry));
    for (QThread *thread : qAsConst(threads))
        QCOMPARE(thread, QThread::currentThread());
}

void TestPgsqlManager::usernames_data()
{
    QTest::addColumn<QByteArray>("output");
    QTest::addColumn<QStringList>("users");

    QTest::newRow("no rows") << QByteArray(" usename \n---------\n(0 rows)\n\n") << QStringList();
    QTest::newRow("one row") << QByteArray(" usename \n---------\n postgres\n(1 row)\n")
                             << QStringList {"postgres"};
    QTest::newRow("two rows, trimmed, in order")
        << QByteArray(" usename  \n----------\n postgres\n  alice   \n(2 rows)\n\n")
        << QStringList {"postgres", "alice"};
    QTest::newRow("no row count") << QByteArray(" usename \n---------\n postgres\n")
                                  << QStringList {"<error>"};
    QTest::newRow("other column") << QByteArray(" name \n------\n x\n(1 row)\n")
                                  << QStringList {"<error>"};
}

void TestPgsqlManager::usernames()
{
    QFETCH(QByteArray, output);
    QFETCH(QStringList, users);

    FakeTools tools;
    QVERIFY(tools.setOutput(output));
    std::unique_ptr<PgsqlCluster> cluster(PgsqlCluster::fromString("15 main 5433 online o /d /l"));
    QStringList result;
    try {
        result = cluster->usernames();
    } catch (const AppException &e) {
        QCOMPARE(e.getText(),
                 QStringLiteral("SQL request 'SELECT u.usename FROM pg_catalog.pg_user "
                                "u;' not mathed"));
        result << QStringLiteral("<error>");
    }
    QCOMPARE(result, users);
    QCOMPARE(tools.log(),
             QStringList {"postgres|psql -p 5433 -c \"SELECT u.usename FROM pg_catalog.pg_user "
                          "u;\"|LC_MESSAGES=C"});
}

void TestPgsqlManager::commandsRunOnlyWhenNeeded()
{
    FakeTools tools;
    QVERIFY(tools.setOutput(" usename \n---------\n postgres\n alice\n(2 rows)\n"));
    std::unique_ptr<PgsqlCluster> cluster(PgsqlCluster::fromString("15 main 5433 online o /d /l"));
    cluster->createUser(QStringLiteral("alice"));
    cluster->createUser(QStringLiteral("bob"));
    cluster->deleteUser(QStringLiteral("carol"));
    cluster->deleteUser(QStringLiteral("alice"));

    std::unique_ptr<PgsqlCluster> up(PgsqlCluster::fromString("15 up 1 online o /d /l"));
    std::unique_ptr<PgsqlCluster> down(PgsqlCluster::fromString("15 down 2 down o /d /l"));
    QVERIFY(PgsqlManager::allClustersWork({}));
    QVERIFY(PgsqlManager::allClustersWork({up.get(), cluster.get()}));
    QVERIFY(!PgsqlManager::allClustersWork({up.get(), down.get(), cluster.get()}));

    QStringList commands;
    const QStringList log = tools.log();
    for (const QString &entry : log)
        commands << entry.section(QLatin1Char('|'), 1, 1).section(QLatin1String(" -c "), 1);
    const QString query = QStringLiteral("\"SELECT u.usename FROM pg_catalog.pg_user u;\"");
    QCOMPARE(commands,
             (QStringList {query, query, "\"create user bob;\"", query, query,
                           "\"drop user alice;\"", "", "", "", ""}));
    QCOMPARE(log.mid(6),
             (QStringList {"15 up status", "15 main status", "15 up status", "15 down status"}));
}

void TestPgsqlManager::realClusterStartAndUsers()
{
    if (!_noServerReason.isEmpty())
        QSKIP(qPrintable(_noServerReason));
    // An unexpected AppException must fail this test, not end the run before the cluster is
    // dropped.
    try {
        checkClusterStartAndUsers();
    } catch (const AppException &e) {
        QFAIL(qPrintable(e.getText()));
    }
}

void TestPgsqlManager::checkClusterStartAndUsers()
{
    QVERIFY(PgsqlManager().packagesInslled());
    std::unique_ptr<PgsqlCluster> cluster(PgsqlCluster::fromString(_cluster->line()));

    QVERIFY(!cluster->isWork());
    cluster->start();
    QVERIFY(cluster->isWork());

    const QStringList before = cluster->usernames();
    QVERIFY2(before.contains(QStringLiteral("postgres")), qPrintable(before.join(',')));
    QVERIFY(!before.contains(QStringLiteral("ovt_test_user")));

    cluster->createUser(QStringLiteral("ovt_test_user"));
    QVERIFY(cluster->usernames().contains(QStringLiteral("ovt_test_user")));
    cluster->createUser(QStringLiteral("ovt_test_user")); // exists: no SQL, no error

    cluster->deleteUser(QStringLiteral("ovt_test_user"));
    QCOMPARE(cluster->usernames(), before);
    cluster->deleteUser(QStringLiteral("ovt_test_user")); // unknown: no SQL, no error

    // A failing statement reaches the caller as the process's error with psql's message.
    try {
        cluster->sqlRequest(QStringLiteral("select * from no_such_table;"));
        QFAIL("no exception");
    } catch (const AppException &e) {
        QVERIFY2(e.getText().contains(QStringLiteral("no_such_table")), qPrintable(e.getText()));
    }
}

void TestPgsqlManager::realListingThroughAsync()
{
    if (!_noServerReason.isEmpty())
        QSKIP(qPrintable(_noServerReason));
    PgsqlManagerAsync async;
    QSignalSpy exceptions(&async, &PgsqlManagerAsync::exceptionArise);
    QSignalSpy readed(&async, &PgsqlManagerAsync::clustersReaded);

    async.startReadClusters();
    QTRY_COMPARE_WITH_TIMEOUT(readed.count(), 1, 30000);
    QCOMPARE(exceptions.count(), 0);

    const auto clusters = readed.first().first().value<QList<PgsqlCluster *>>();
    const PgsqlCluster *ours = nullptr;
    for (const PgsqlCluster *c : clusters) {
        if (c->dataDirectory() == _cluster->dataDirectory)
            ours = c;
    }
    QVERIFY2(ours, qPrintable(describe(clusters).join('\n')));
    QCOMPARE(ours->port(), _cluster->port);
    QCOMPARE(ours->owner(), QStringLiteral("postgres"));
    QCOMPARE(ours->status(), QStringLiteral("online"));
    QCOMPARE(ours->name(), _cluster->name);
    QVERIFY(PgsqlManager::allClustersWork({const_cast<PgsqlCluster *>(ours)}));
}

QTEST_GUILESS_MAIN(TestPgsqlManager)

#include "tst_pgsqlmanager.moc"
