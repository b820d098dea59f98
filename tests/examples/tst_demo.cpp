#include <QProcess>
#include <QtTest>

// The demo tool as a newcomer starts it: the real binary, its own plug-in, a real event loop.
class TestDemo : public QObject
{
    Q_OBJECT

private slots:
    void startsAndQuits()
    {
        QProcess tool;
        tool.setProcessChannelMode(QProcess::MergedChannels);
        tool.start(QStringLiteral(OVT_DEMO_TOOL),
                   {QStringLiteral(OVT_DEMO_PLUGIN_DIR), QStringLiteral("--quit-after"),
                    QStringLiteral("1500")});
        QVERIFY2(tool.waitForStarted(), qPrintable(tool.errorString()));
        // A bound for a hung tool only; the tool quits by itself.
        QVERIFY2(tool.waitForFinished(120000), "ovt-demo did not quit");
        const QString output = QString::fromLocal8Bit(tool.readAll());
        QCOMPARE(tool.exitStatus(), QProcess::NormalExit);
        QVERIFY2(tool.exitCode() == 0, qPrintable(output));
    }

    void rejectsABadDelay()
    {
        QProcess tool;
        tool.start(QStringLiteral(OVT_DEMO_TOOL),
                   {QStringLiteral("--quit-after"), QStringLiteral("soon")});
        QVERIFY(tool.waitForFinished(120000));
        QCOMPARE(tool.exitCode(), 2);
    }
};

QTEST_GUILESS_MAIN(TestDemo)
#include "tst_demo.moc"
