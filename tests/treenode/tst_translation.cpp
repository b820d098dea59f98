// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "element/servicelightelementdata.h"
#include "treenode/confroottreenode.h"

#include <QDir>
#include <QLocale>
#include <QtTest>

// Runs under a Russian locale: the library's start-up translator is installed without the test.
class TstTranslation : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void libraryTextsAreTranslated()
    {
        if (!QDir(QStringLiteral(OVT_TRANSLATIONS_DIR)).exists("libovt-common_ru.qm"))
            QSKIP("No libovt-common_ru.qm in " OVT_TRANSLATIONS_DIR "; configure with "
                  "-DOVT_TRANSLATIONS_DIR=<build>/translations and build to check translations");
        QCOMPARE(QLocale::system().language(), QLocale::Russian);
        // A header of the tree layer and the state texts of the element layer.
        ServiceLightElementData running, stopped;
        running.setState(true, QString()), stopped.setState(false, QString());
        QCOMPARE(ConfRootTreeNode().headerData(0, Qt::Horizontal).toString() + ' '
                     + running.textState() + ' ' + stopped.textState(),
                 QStringLiteral("Имя запущена остановлена"));
    }
};

QTEST_GUILESS_MAIN(TstTranslation)

#include "tst_translation.moc"
