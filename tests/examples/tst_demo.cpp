// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "moduletitleproxymodel.h"
#include "plugin/plugincontainer.h"
#include "treenode/treenodemodel.h"

#include <QAbstractItemModelTester>
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

    void moduleTreeShowsTitles()
    {
        PluginContainer plugins;
        ModuleTitleProxyModel titles;
        titles.setSourceModel(plugins.treeNodeModel());
        QAbstractItemModelTester tester(&titles,
                                        QAbstractItemModelTester::FailureReportingMode::Fatal);
        for (int load = 0; load < 2; ++load) // a reload resets the tree under the tester
            plugins.loadPlugins(QStringLiteral(OVT_EXAMPLE_PLUGIN_DIR));
        QStringList shown;
        for (int row = 0; row < titles.rowCount(); ++row)
            shown << titles.index(row, 0).data().toString() + '/'
                    + titles.index(row, 0).data(Qt::ToolTipRole).toString();
        for (const char *module : {"Accounts/accounts", "Services/services", "Tasks/tasks"})
            QVERIFY2(shown.contains(QLatin1String(module)), qPrintable(shown.join(' ')));
        QVERIFY(
            titles.headerData(1, Qt::Horizontal, Qt::ToolTipRole).toString().contains("aranoid"));
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
