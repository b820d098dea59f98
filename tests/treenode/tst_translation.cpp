#include "element/servicelightelementdata.h"
#include "treenode/confroottreenode.h"

#include <QDir>
#include <QLocale>
#include <QtTest>

// Runs under a Russian locale: the library's start-up translator must already be installed
// when the first test function runs, without the test installing anything itself.
class TstTranslation : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void libraryTextsAreTranslated_data();
    void libraryTextsAreTranslated();
};

void TstTranslation::initTestCase()
{
    const QDir dir(QStringLiteral(OVT_TRANSLATIONS_DIR));
    if (!dir.exists(QStringLiteral("libovt-common_ru.qm")))
        QSKIP("No libovt-common_ru.qm in " OVT_TRANSLATIONS_DIR "; configure with "
              "-DOVT_TRANSLATIONS_DIR=<build>/translations and build to check translations");
    QCOMPARE(QLocale::system().language(), QLocale::Russian);
}

void TstTranslation::libraryTextsAreTranslated_data()
{
    QTest::addColumn<QString>("actual");
    QTest::addColumn<QString>("expected");

    ConfRootTreeNode root;
    QTest::newRow("configuration name header")
        << root.headerData(0, Qt::Horizontal, Qt::DisplayRole).toString() << QStringLiteral("Имя");
    ServiceLightElementData service;
    service.setState(true, QString());
    QTest::newRow("running service") << service.textState() << QStringLiteral("запущена");
    service.setState(false, QString());
    QTest::newRow("stopped service") << service.textState() << QStringLiteral("остановлена");
}

void TstTranslation::libraryTextsAreTranslated()
{
    QFETCH(QString, actual);
    QFETCH(QString, expected);
    QCOMPARE(actual, expected);
}

QTEST_GUILESS_MAIN(TstTranslation)

#include "tst_translation.moc"
