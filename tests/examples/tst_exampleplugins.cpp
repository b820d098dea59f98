// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "accountelement.h"
#include "readaccountstask.h"
#include "readunitstask.h"
#include "system/appexception.h"
#include "systemtest.h"
#include "task/taskobserver.h"
#include "task/thread.h"
#include "tasksmodule.h"
#include "widgets/elementwidget.h"
#include "widgets/previewdialog.h"

#include <QPushButton>
#include <QtTest>

using namespace OvtTest;

// The reading code of the example plug-ins against fixture files and real command output.
class TestExamplePlugins : public QObject
{
    Q_OBJECT

private slots:
    void reads_data()
    {
        // The file read ("units": systemctl's output parsed); its text ("<missing>": none); the
        // records, values ':' apart (of accounts in key order; "!": an exception).
        table();
        row("login and system account",
            "passwd; alice:x:1000:1000:Alice A,1,2,3:/home/alice:/bin/bash\\n"
            "daemon:x:1:1:daemon:/usr/sbin:/usr/sbin/nologin\\n;"
            "Alice A,1,2,3:1000:/home/alice:true:/bin/bash:1000:alice "
            "daemon:1:/usr/sbin:false:/usr/sbin/nologin:1:daemon");
        row("empty gecos and odd names",
            "passwd; -rf:x:5:5::/:/bin/sh\\n; :5:/:true:/bin/sh:5:-rf");
        row("empty file", "passwd;;");
        row("missing users", "passwd; <missing>; !");
        row("groups", "group; sudo:x:27:alice,bob\\nusers:x:100:\\n; 27:alice,bob:sudo 100::users");
        row("missing groups", "group; <missing>; !");
        row("running and dead",
            "units; cron.service loaded active running Regular daemon\\n"
            "ssh.service loaded inactive dead OpenBSD Secure Shell server\\n;"
            "cron.service:true:active (running):Regular daemon "
            "ssh.service:false:inactive (dead):OpenBSD Secure Shell server");
        row("failed unit with a bullet, blank and short lines",
            "units; \u25cf x.service not-found failed failed x.service\\n\\n  short line\\n;"
            "x.service:false:failed (failed):x.service");
    }

    void reads()
    {
        const auto [kind, input, expected] = fields<3>();
        const QString text = QString(input).replace("\\n", "\n");
        const QString path = _dir.filePath(input == "<missing>" ? "none" : kind);
        const QString shells = _dir.filePath("shells");
        QVERIFY(input == "<missing>" || writeFile(path, text.toUtf8()));
        QVERIFY(writeFile(shells, "# login shells\n/bin/bash\n/bin/sh\n"));
        QStringList read;
        for (const ReadUnitsTask::Unit &unit :
             ReadUnitsTask::parseUnits(kind == "units" ? text : ""))
            read << QStringList {unit.name, QVariant(unit.record.state()).toString(),
                                 unit.record.textState(),
                                 unit.record.value("description").toString()}
                        .join(':');
        try {
            for (const ElementData &r : kind == "group" ? ReadAccountsTask::readGroups(path)
                     : kind == "passwd"                 ? ReadAccountsTask::readUsers(path, shells)
                                                        : QVector<ElementData>()) {
                QStringList values; // in key order
                for (const QVariant &v : r)
                    values << (v.type() == QVariant::StringList ? v.toStringList().join(',')
                                                                : v.toString());
                read << values.join(':');
            }
        } catch (const AppException &) {
            read << "!";
        }
        QCOMPARE(read.join(' '), expected);
    }

    void printsTheElementList()
    {
        Thread worker;
        worker.start();
        TaskObserver::instance(this);
        TasksModule module(nullptr);
        TreeNode root;
        auto *examples = qobject_cast<Element *>(module.elementNodes().first());
        // Element texts reach the XML and the HTML escaped, whatever they hold.
        ElementData record;
        record.insert("user", "<b>&\"x");
        root.append({examples, new AccountElement(module, record)});
        ElementWidget *widget = module.elementWidget(examples->elementType());
        widget->setElement(examples, ViewEditRole);
        widget->findChild<QPushButton *>("_printPreview")->click();
        QTRY_VERIFY(PreviewDialog::instance()->isVisible());
        const QString html = PreviewDialog::instance()->html();
        QVERIFY2(html.contains("Examples") && html.contains("&lt;b&gt;&amp;\"x"), qPrintable(html));
        root.clear();
    }

private:
    QTemporaryDir _dir;
};

QTEST_MAIN(TestExamplePlugins)
#include "tst_exampleplugins.moc"
