// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "ovticon_p.h"

#include <QTemporaryDir>
#include <QtTest>

// The status icons come from the desktop theme where it has them and from the library's own
// resource where it does not; the theme always wins.
class TstOvtIcon : public QObject
{
    Q_OBJECT
    QTemporaryDir _themes;

private Q_SLOTS:
    void initTestCase()
    {
        // A theme with only one of the status icons, beside the system's themes.
        QDir dir(_themes.path());
        QVERIFY(dir.mkpath("ovttest/16x16/status"));
        QFile index(dir.filePath("ovttest/index.theme"));
        QVERIFY(index.open(QIODevice::WriteOnly));
        index.write("[Icon Theme]\nName=ovttest\nInherits=hicolor\nDirectories=16x16/status\n\n"
                    "[16x16/status]\nSize=16\nType=Fixed\n");
        index.close();
        QPixmap pixmap(16, 16);
        pixmap.fill(Qt::blue);
        QVERIFY(pixmap.save(dir.filePath("ovttest/16x16/status/task-complete.png")));
        QIcon::setThemeSearchPaths(QIcon::themeSearchPaths() << _themes.path());
        QIcon::setThemeName("ovttest");
    }

    void themeIcon_data()
    {
        QTest::addColumn<QString>("source");
        QTest::newRow("task-complete") << QString("theme"); // the theme wins over the library
        for (const char *name : {"task-ongoing", "task-reject", "task-attention"})
            QTest::newRow(name) << QString("library");
        QTest::newRow("no-such-icon-anywhere") << QString("none");
    }

    void themeIcon()
    {
        QFETCH(QString, source);
        const QString name = QTest::currentDataTag();
        const QIcon icon = Ovt::themeIcon(name);
        QCOMPARE(icon.isNull(), source == "none");
        QCOMPARE(icon.name(), source == "theme" ? name : QString());
        // Renders at list size: the SVG really loads, not only a file name is stored.
        if (source != "none")
            QVERIFY(icon.pixmap(16, 16).toImage().pixelColor(8, 8).alpha() > 0);
    }
};

QTEST_MAIN(TstOvtIcon)

#include "tst_ovticon.moc"
