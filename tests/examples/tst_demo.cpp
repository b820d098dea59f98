#include "plugin/module.h"
#include "plugin/plugincontainer.h"

#include <QImage>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

// The demo tool as a newcomer starts it: the real binary, the real plug-ins, a real event loop.
class TestDemo : public QObject
{
    Q_OBJECT

private slots:
    void quits_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<int>("exitCode");
        QTest::newRow("every example plug-in") << QStringList {"--quit-after", "1500"} << 0;
        // Loading shows a message box with its own event loop; the tool must still quit.
        QTest::newRow("message box while loading")
            << QStringList {"/nonexistent/plug-ins", "--quit-after", "500"} << 0;
        QTest::newRow("bad delay") << QStringList {"--quit-after", "soon"} << 2;
        QTest::newRow("unwritable screenshot")
            << QStringList {"--screenshot", "/nonexistent/shot.png", "--quit-after", "100"} << 1;
    }

    void quits()
    {
        QFETCH(QStringList, arguments);
        QFETCH(int, exitCode);
        const QString output = run(arguments);
        QVERIFY2(_tool.exitCode() == exitCode, qPrintable(output));
    }

    void writesAScreenshot()
    {
        QTemporaryDir dir;
        const QString file = dir.filePath(QStringLiteral("shot.png"));
        const QString output = run({"--screenshot", file, "--select", "tasks/Examples"});
        QVERIFY2(_tool.exitCode() == 0, qPrintable(output));
        const QImage shot(file);
        QVERIFY(!shot.isNull());
        QVERIFY(shot.width() >= 800 && shot.height() >= 500);
    }

    void everyExamplePluginLoads()
    {
        PluginContainer plugins;
        plugins.loadPlugins(QStringLiteral(OVT_EXAMPLE_PLUGIN_DIR));
        QStringList modules;
        for (auto *module : plugins.modules())
            modules << module->id();
        for (const char *name : {"accounts", "services", "tasks"})
            QVERIFY2(modules.contains(QLatin1String(name)), qPrintable(modules.join(' ')));
    }

private:
    QString run(const QStringList &arguments)
    {
        _tool.setProcessChannelMode(QProcess::MergedChannels);
        _tool.start(QStringLiteral(OVT_DEMO_TOOL), arguments);
        // A bound for a hung tool only; the tool quits by itself.
        if (!_tool.waitForFinished(120000))
            qFatal("ovt-demo did not quit");
        return QString::fromLocal8Bit(_tool.readAll());
    }

    QProcess _tool;
};

QTEST_MAIN(TestDemo)
#include "tst_demo.moc"
