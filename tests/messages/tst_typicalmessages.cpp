// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "messages/typicalmessagebox.h"
#include "messages/typicalmessages.h"
#include "messages/typicalmessagesdialog.h"
#include "messages/typicalmessagesmodel.h"
#include "treestring.h"

#include <QtTest>
#include <QtWidgets>

using namespace OvtTest;

namespace {

struct NamedPlugin : Plugin
{
    explicit NamedPlugin(const QString &name) { _name = name; }
};

QString handlerText = QStringLiteral("Disk is full");

// The model's rows as "key(plugins)", with "x" after a skipped one.
QString rows(const QAbstractItemModel &model)
{
    QString result;
    for (int row = 0; row < model.rowCount(); ++row)
        result += ' ' + model.index(row, 0).data().toString() + '('
            + model.index(row, 2).data().toString() + ')'
            + (model.index(row, 1).data(Qt::CheckStateRole) == Qt::Checked ? "x" : "");
    return result.mid(1);
}

// Cancels the next message box that shows, and logs it.
QStringList boxLog;
void closeNextBox()
{
    QTimer::singleShot(0, [] {
        auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
        box ? box->done(QMessageBox::Cancel), void(boxLog << "shown") : closeNextBox();
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
        return (slot ? slot : slot = std::make_unique<NamedPlugin>(name)).get();
    }

private Q_SLOTS:
    void init()
    {
        TypicalMessages::deinstance(); // a model over the registry empties with it
        QVERIFY(!_model || _model->rowCount() == 0);
        _plugins.clear();
        QCoreApplication::setOrganizationName(QStringLiteral("ovt-tests"));
        QCoreApplication::setApplicationName(QStringLiteral("tst_typicalmessages"));
        QSettings().clear();
        _model.reset(new TypicalMessagesModel);
        watch(_model.get());
    }

    // Steps: +key:plugin registers, -key:plugin, -key and -:plugin unregister, ~plugin
    // destroys a plug-in, !key stores a skip in the settings beforehand.
    void registration_data()
    {
        table();
        row("plug-ins of one key are joined, each once", "+k:a +k:b +k:a +m:b; k(a, b) m(b)");
        row("the message goes with its last plug-in", "+k:a +k:b -k:a -k:b +m:a; m(a)");
        row("unregistering a key, then a plug-in", "+k:a +k:b +m:a +n:a -n -:a; k(b)");
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

    void skipFromBoxDialogAndSettings()
    {
        // An empty or unknown key has no check box
        QTest::ignoreMessage(QtCriticalMsg, "TypicalMessageBox: keyId cannot be empty!");
        QVERIFY(!TypicalMessageBox(QString(), nullptr).checkBox()
                && !TypicalMessageBox("k", nullptr).checkBox() && !TypicalMessageBox::isSkip("k"));
        TypicalMessages::instance()->registration(
            "k", plugin("a"), +[] { return handlerText; });
        TypicalMessagesDialog dialog;
        watch(dialog.model());
        TypicalMessageBox box("k", QMessageBox::Warning, "Disk", "Full", QMessageBox::Ok);
        box.show();
        dialog.show();
        QTest::mouseClick(box.checkBox(), Qt::LeftButton, {}, QPoint(5, 5));
        const QModelIndex skip = dialog.model()->index(0, TypicalMessagesModel::IsSkipedColumn);
        QCOMPARE(skip.data(Qt::CheckStateRole), QVariant(Qt::Checked));
        QVERIFY(dialog.grab().save(QStringLiteral(OVT_DIALOG_PNG)));

        // Each overload (standard buttons, button numbers, button texts) skipped answers its
        // default button at once, else shows the box (cancelled here)
        using B = QMessageBox;
        using M = TypicalMessageBox;
        auto *view = dialog.findChild<QTreeView *>("treeViewMessages");
        const std::function<int()> boxes[] {
            [] { return M::question("k", nullptr, "t", "q", B::Yes | B::No, B::No); },
            [] { return M::warning("k", nullptr, "t", "w", B::Ok, B::Yes | B::Default); },
            [] {
                return M::critical("k", nullptr, "t", "c", QString(), "Other");
            }};
        for (const bool skipped : {true, false}) {
            QCOMPARE(QSettings().value("typicalMessages/k"), QVariant(skipped));
            for (const auto &show : boxes) {
                if (!skipped)
                    closeNextBox();
                boxLog << QString::number(show());
            }
            // Unticked in the dialog's view: stored, and the open box follows
            view->setCurrentIndex(skip);
            QTest::keyClick(view, Qt::Key_Space);
            QCOMPARE(box.isSkip(), !skipped);
        }
        QCOMPARE(boxLog.join(' '), "65536 16384 -1 shown 4194304 shown 4194304 shown -1");
        // A language change asks the description handler again
        handlerText = QStringLiteral("Le disque est plein");
        QEvent change(QEvent::LanguageChange);
        QCoreApplication::sendEvent(qApp, &change);
        QCOMPARE(rows(*_model), QStringLiteral("Le disque est plein(a)x"));
    }
};

QTEST_MAIN(tst_TypicalMessages)
#include "tst_typicalmessages.moc"
