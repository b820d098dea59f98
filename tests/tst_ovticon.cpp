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

private Q_SLOTS:
    void initTestCase();
    void themeIcon_data();
    void themeIcon();

private:
    QTemporaryDir _themes;
};

void TstOvtIcon::initTestCase()
{
    QVERIFY(_themes.isValid());
    // A theme with only one of the status icons, beside the system's themes.
    QDir dir(_themes.path());
    QVERIFY(dir.mkpath(QStringLiteral("ovttest/16x16/status")));
    QFile index(dir.filePath(QStringLiteral("ovttest/index.theme")));
    QVERIFY(index.open(QIODevice::WriteOnly));
    index.write("[Icon Theme]\nName=ovttest\nInherits=hicolor\nDirectories=16x16/status\n\n"
                "[16x16/status]\nSize=16\nType=Fixed\n");
    index.close();
    QPixmap pixmap(16, 16);
    pixmap.fill(Qt::blue);
    QVERIFY(pixmap.save(dir.filePath(QStringLiteral("ovttest/16x16/status/task-complete.png"))));
    QIcon::setThemeSearchPaths(QIcon::themeSearchPaths() << _themes.path());
    QIcon::setThemeName(QStringLiteral("ovttest"));
}

void TstOvtIcon::themeIcon_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("source"); // "theme", "library" or "none"

    QTest::newRow("theme icon wins over the library's") << "task-complete"
                                                        << "theme";
    QTest::newRow("missing running state from the library") << "task-ongoing"
                                                            << "library";
    QTest::newRow("missing failure state from the library") << "task-reject"
                                                            << "library";
    QTest::newRow("missing warning state from the library") << "task-attention"
                                                            << "library";
    QTest::newRow("unknown name stays null") << "no-such-icon-anywhere"
                                             << "none";
}

void TstOvtIcon::themeIcon()
{
    QFETCH(QString, name);
    QFETCH(QString, source);

    const QIcon icon = Ovt::themeIcon(name);
    QCOMPARE(icon.isNull(), source == QLatin1String("none"));
    QCOMPARE(icon.name(), source == QLatin1String("theme") ? name : QString());
    if (source != QLatin1String("none")) {
        // Renders at list size: the SVG really loads, not only a file name is stored.
        const QImage image = icon.pixmap(16, 16).toImage();
        QVERIFY(!image.isNull());
        QVERIFY(image.pixelColor(8, 8).alpha() > 0);
    }
}

QTEST_MAIN(TstOvtIcon)

#include "tst_ovticon.moc"
