// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "messages/typicalmessagebox.h"
#include "messages/typicalmessages.h"
#include "messages/typicalmessagesdialog.h"
#include "messages/typicalmessagesmodel.h"
#include "treestring.h"

#include <QtTest>
#include <QtWidgets>

#include <map>
#include <memory>

using namespace OvtTest;

namespace {

class NamedPlugin : public Plugin
{
public:
    explicit NamedPlugin(const QString &name) { _name = name; }
};

QString handlerText = QStringLiteral("first words");
QString describe()
{
    return handlerText;
}

// The model's rows as "key(plugins)", with "x" after a skipped one.
QString rows(const QAbstractItemModel &model)
{
    QStringList result;
    for (int row = 0; row < model.rowCount(); ++row)
        result << model.index(row, 0).data().toString() + '('
                + model.index(row, 2).data().toString() + ')'
                + (model.index(row, 1).data(Qt::CheckStateRole) == Qt::Checked ? "x" : "");
    return result.join(' ');
}

// Cancels the next message box that shows, and counts it.
int shown = 0;
void closeNextBox()
{
    QTimer::singleShot(0, [] {
        auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
        box ? box->done(QMessageBox::Cancel), void(++shown) : closeNextBox();
    });
}

} // namespace

class tst_TypicalMessages : public QObject
{
    Q_OBJECT

    std::map<QString, std::unique_ptr<NamedPlugin>> _plugins;
    std::unique_ptr<TypicalMessagesModel> _model;

    Plugin *plugin(const QString &name)
    {
        auto &slot = _plugins[name];
        if (!slot)
            slot.reset(new NamedPlugin(name));
        return slot.get();
    }

private Q_SLOTS:
    void initTestCase()
    {
        QCoreApplication::setOrganizationName(QStringLiteral("ovt-tests"));
        QCoreApplication::setApplicationName(QStringLiteral("tst_typicalmessages"));
        QSettings().clear();
    }

    void init()
    {
        _model.reset(new TypicalMessagesModel);
        watch(_model.get());
    }

    void cleanup()
    {
        TypicalMessages::deinstance();
        QCOMPARE(_model->rowCount(), 0);
        _model.reset();
        _plugins.clear();
        QSettings().clear();
    }

    // Steps: +key:plugin registers, -key:plugin, -key and -:plugin unregister, ~plugin
    // destroys a plug-in, !key stores a skip in the settings beforehand.
    void registration_data()
    {
        table();
        row("two plug-ins of one key are joined", "+k:a +k:b +m:b; k(a, b) m(b)");
        row("a second registration changes nothing", "+k:a +k:a; k(a)");
        row("the message goes with its last plug-in", "+k:a +k:b -k:a -k:b +m:a; m(a)");
        row("unregistering a key drops all plug-ins", "+k:a +k:b +m:a -k; m(a)");
        row("unregistering a plug-in", "+k:a +k:b +m:a -:a; k(b)");
        row("a destroyed plug-in takes its messages", "+k:a +m:a +m:b ~a; m(b)");
        row("a stored skip is read back", "!m +k:a +m:a; k(a) m(a)x");
    }

    void registration()
    {
        const auto [steps, expected] = fields<2>();
        TypicalMessages *registry = TypicalMessages::instance();
        for (const QString &step : words(steps)) {
            const QString key = step.mid(1).section(':', 0, 0);
            const QString name = step.section(':', 1);
            if (step.startsWith('+'))
                registry->registration(key, plugin(name), key);
            else if (step.startsWith('-') && key.isEmpty())
                registry->unregistration(plugin(name));
            else if (step.startsWith('-'))
                name.isEmpty() ? registry->unregistration(key)
                               : registry->unregistration(registry->findByKeyId(key), plugin(name));
            else if (step.startsWith('~'))
                _plugins.erase(key);
            else
                QSettings().setValue("typicalMessages/" + key, true);
        }
        QCOMPARE(rows(*_model), expected);
    }

    // Overloads: standard buttons, button numbers, button texts.
    void skippedKeyDoesNotShow_data()
    {
        table();
        row("standard, skipped: the default button", "standard; 1; 65536");
        row("numbered, skipped: the Default one", "numbered; 1; 16384");
        row("texts, skipped", "texts; 1; -1");
        row("standard, shown", "standard; 0; 4194304");
        row("numbered, shown", "numbered; 0; 4194304");
        row("texts, shown and closed without a button", "texts; 0; -1");
    }

    void skippedKeyDoesNotShow()
    {
        const auto [overload, skipped, expected] = fields<3>();
        TypicalMessages::instance()->registration("k", plugin("a"), "K")->setSkip(skipped == "1");
        shown = 0;
        if (skipped == "0")
            closeNextBox();
        using B = QMessageBox;
        int result = 0;
        if (overload == "standard")
            result = TypicalMessageBox::question("k", nullptr, "t", "q", B::Yes | B::No, B::No);
        else if (overload == "numbered")
            result = TypicalMessageBox::warning("k", nullptr, "t", "w", B::Ok, B::Yes | B::Default);
        else
            result = TypicalMessageBox::critical("k", nullptr, "t", "c", QString(), "Other");
        QCOMPARE(result, expected.toInt());
        QCOMPARE(shown, skipped == "1" ? 0 : 1);
    }

    void checkBoxDialogAndSettingsAgree()
    {
        TypicalMessages::instance()->registration("k", plugin("a"), "Disk is full");
        TypicalMessagesDialog dialog;
        watch(dialog.model());
        TypicalMessageBox box("k", QMessageBox::Warning, "Disk", "Full", QMessageBox::Ok);
        box.show();
        dialog.show();
        QTest::mouseClick(box.checkBox(), Qt::LeftButton, {}, QPoint(5, 5));
        const QModelIndex skip = dialog.model()->index(0, TypicalMessagesModel::IsSkipedColumn);
        QCOMPARE(skip.data(Qt::CheckStateRole), QVariant(Qt::Checked));
        QCOMPARE(QSettings().value("typicalMessages/k"), QVariant(true));
        QVERIFY(dialog.grab().save(QStringLiteral(OVT_DIALOG_PNG)));

        auto *view = dialog.findChild<QTreeView *>("treeViewMessages");
        view->setCurrentIndex(skip);
        QTest::keyClick(view, Qt::Key_Space);
        QCOMPARE(QSettings().value("typicalMessages/k"), QVariant(false));
        QVERIFY(!box.isSkip());
    }

    void emptyAndUnknownKeysHaveNoCheckBox()
    {
        QTest::ignoreMessage(QtCriticalMsg, "TypicalMessageBox: keyId cannot be empty!");
        TypicalMessageBox empty(QString(), nullptr);
        TypicalMessageBox unknown("nobody", nullptr);
        QVERIFY(!empty.checkBox() && !unknown.checkBox() && !TypicalMessageBox::isSkip("nobody"));
    }

    void languageChangeAsksHandlersAgain()
    {
        TypicalMessages::instance()->registration("k", plugin("a"), &describe);
        handlerText = QStringLiteral("second words");
        QEvent change(QEvent::LanguageChange);
        QCoreApplication::sendEvent(qApp, &change);
        QCOMPARE(rows(*_model), QStringLiteral("second words(a)"));
    }
};

QTEST_MAIN(tst_TypicalMessages)
#include "tst_typicalmessages.moc"
