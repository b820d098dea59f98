// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "accountelement.h"
#include "readaccountstask.h"
#include "readunitstask.h"
#include "system/appexception.h"
#include "task/taskobserver.h"
#include "task/thread.h"
#include "tasksmodule.h"
#include "widgets/elementwidget.h"
#include "widgets/previewdialog.h"

#include <QPushButton>
#include <QTemporaryDir>
#include <QtTest>

// The reading code of the example plug-ins against fixture files and real command output.
class TestExamplePlugins : public QObject
{
    Q_OBJECT

private slots:
    void readsUsers_data()
    {
        QTest::addColumn<QString>("passwd");
        QTest::addColumn<QStringList>("expected"); // user uid gid gecos home shell isLogin
        QTest::newRow("login and system account")
            << "alice:x:1000:1000:Alice A,1,2,3:/home/alice:/bin/bash\n"
               "daemon:x:1:1:daemon:/usr/sbin:/usr/sbin/nologin\n"
            << QStringList {"alice 1000 1000 Alice A,1,2,3 /home/alice /bin/bash true",
                            "daemon 1 1 daemon /usr/sbin /usr/sbin/nologin false"};
        QTest::newRow("empty gecos and odd names") << "-rf:x:5:5::/:/bin/sh\n"
                                                   << QStringList {"-rf 5 5  / /bin/sh true"};
        QTest::newRow("empty file") << "" << QStringList();
    }

    void readsUsers()
    {
        QFETCH(QString, passwd);
        QFETCH(QStringList, expected);
        const QString path = write("passwd", passwd);
        const QString shells = write("shells", "# login shells\n/bin/bash\n/bin/sh\n");
        QStringList read;
        for (const ElementData &r : ReadAccountsTask::readUsers(path, shells))
            read << QStringList {r["user"].toString(),   r["uid"].toString(),
                                 r["gid"].toString(),    r["gecos"].toString(),
                                 r["home"].toString(),   r["shell"].toString(),
                                 r["isLogin"].toString()}
                        .join(' ');
        QCOMPARE(read, expected);
    }

    void readsGroups()
    {
        const QString path = write("group", "sudo:x:27:alice,bob\nusers:x:100:\n");
        QStringList read;
        for (const ElementData &r : ReadAccountsTask::readGroups(path))
            read << r["name"].toString() + ' ' + r["gid"].toString() + ' '
                    + r["members"].toStringList().join(',');
        QCOMPARE(read, (QStringList {"sudo 27 alice,bob", "users 100 "}));
    }

    void missingDatabaseThrows()
    {
        QVERIFY_EXCEPTION_THROWN(ReadAccountsTask::readUsers(_dir.filePath("none")), AppException);
        QVERIFY_EXCEPTION_THROWN(ReadAccountsTask::readGroups(_dir.filePath("none")), AppException);
    }

    void parsesUnits_data()
    {
        QTest::addColumn<QString>("output");
        QTest::addColumn<QStringList>("expected"); // name state textState description
        QTest::newRow("running and dead")
            << "cron.service loaded active running Regular background program processing daemon\n"
               "ssh.service loaded inactive dead OpenBSD Secure Shell server\n"
            << QStringList {"cron.service|true|active (running)|Regular background program "
                            "processing daemon",
                            "ssh.service|false|inactive (dead)|OpenBSD Secure Shell server"};
        QTest::newRow("failed unit with a bullet, blank and short lines")
            << "\u25cf x.service not-found failed failed x.service\n\n  short line\n"
            << QStringList {"x.service|false|failed (failed)|x.service"};
    }

    void parsesUnits()
    {
        QFETCH(QString, output);
        QFETCH(QStringList, expected);
        QStringList parsed;
        for (const ReadUnitsTask::Unit &unit : ReadUnitsTask::parseUnits(output))
            parsed << QStringList {unit.name, QVariant(unit.record.state()).toString(),
                                   unit.record.textState(),
                                   unit.record.value("description").toString()}
                          .join('|');
        QCOMPARE(parsed, expected);
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
        for (QPushButton *button : widget->findChildren<QPushButton *>()) {
            if (button->text().contains("Print"))
                button->click();
        }
        QTRY_VERIFY(PreviewDialog::instance()->isVisible());
        const QString html = PreviewDialog::instance()->html();
        QVERIFY2(html.contains("Examples") && html.contains("&lt;b&gt;&amp;\"x"), qPrintable(html));
        root.clear();
    }

private:
    QString write(const QString &name, const QString &text)
    {
        QFile file(_dir.filePath(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(text.toUtf8()) != text.toUtf8().size())
            qFatal("cannot write the fixture %s", qPrintable(file.fileName()));
        return file.fileName();
    }

    QTemporaryDir _dir;
};

QTEST_MAIN(TestExamplePlugins)
#include "tst_exampleplugins.moc"
