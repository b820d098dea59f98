// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "moduletitleproxymodel.h"
#include "plugin/plugincontainer.h"
#include "treenode/treenodemodel.h"
#include "treestring.h"

#include <QtTest>

using namespace OvtTest;

// The demo tool as a newcomer starts it: the real binary, the real plug-ins, a real event loop.
class TestDemo : public QObject
{
    Q_OBJECT

private slots:
    void quits_data()
    {
        // The arguments ("%F": a screenshot in a temporary directory); the exit code.
        table();
        row("every example plug-in", "--quit-after 1500; 0");
        // Loading shows a message box with its own event loop; the tool must still quit.
        row("message box while loading", "/nonexistent/plug-ins --quit-after 500; 0");
        row("bad delay", "--quit-after soon; 2");
        row("unwritable screenshot", "--screenshot /nonexistent/shot.png --quit-after 100; 1");
        row("screenshot", "--screenshot %F --select tasks/Examples; 0");
    }

    void quits()
    {
        const auto [arguments, exitCode] = fields<2>();
        QTemporaryDir dir;
        const QString file = dir.filePath("shot.png");
        QProcess tool;
        tool.start(OVT_DEMO_TOOL, words(QString(arguments).replace("%F", file)));
        QVERIFY(tool.waitForFinished(120000)); // a bound for a hung tool only
        QVERIFY2(tool.exitCode() == exitCode.toInt(), tool.readAllStandardError().constData());
        const QImage shot(file);
        QCOMPARE(shot.width() >= 800 && shot.height() >= 500, arguments.contains("%F"));
    }

    void moduleTreeShowsTitles()
    {
        PluginContainer plugins;
        ModuleTitleProxyModel titles;
        titles.setSourceModel(plugins.treeNodeModel());
        watch(&titles);
        for (int load = 0; load < 2; ++load) // a reload resets the tree under the tester
            plugins.loadPlugins(OVT_EXAMPLE_PLUGIN_DIR);
        QCOMPARE(modelToString(&titles),
                 "[Accounts Configuration entries PostgreSQL Security options Services Tasks]");
        QCOMPARE(titles.index(0, 0).data(Qt::ToolTipRole), "accounts");
        QVERIFY(
            titles.headerData(1, Qt::Horizontal, Qt::ToolTipRole).toString().contains("aranoid"));
    }
};

QTEST_MAIN(TestDemo)
#include "tst_demo.moc"
