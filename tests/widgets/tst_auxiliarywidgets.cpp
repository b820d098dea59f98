// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "treestring.h"
#include "widgets/configurecheckmodel.h"
#include "widgets/gecosdialog.h"
#include "widgets/loginpassworddialog.h"
#include "widgets/multichecktreeview.h"
#include "widgets/passwordchangedialog.h"

#include <QtTest>
#include <QtWidgets>

using namespace OvtTest;

class tst_AuxiliaryWidgets : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // Items a, b and c, where b and c exclude each other and only a is described.
    void checkList_data()
    {
        table(); // loaded with the checked or the unchecked; checked +, unchecked -, greyed out x
        row("the checked given", "checked a; a+ b- c-");
        row("the unchecked given", "unchecked c; a+ b+ c-x");
        row("a loaded conflict stays, greyed out", "checked b c; a- b+x c+x");
    }

    void checkList()
    {
        const auto [loaded, expected] = fields<2>();
        ConfigureCheckModel model;
        watch(&model);
        model.setInCmpatibleModes({1 * 3 + 2});
        model.setDescriptions({"only a"});
        const QStringList given = words(loaded).mid(1);
        (model
         .*(loaded.startsWith("checked") ? &CheckMiscModel::setDataChecked
                                         : &CheckMiscModel::setDataUnchecked))(
            {"a", "b", "c"}, QSet<QString>(given.begin(), given.end()));
        QStringList states;
        for (int row = 0; row < 3; ++row) {
            const QString name = model.index(row, 0).data().toString();
            states << name + (model.checkedData().contains(name) ? "+" : "")
                    + (model.uncheckedData().contains(name) ? "-" : "")
                    + (model.index(row, 0).data(Qt::CheckStateRole).isValid() ? "" : "x");
        }
        QCOMPARE(states.join(' '), expected);
        QCOMPARE(model.index(0, 0).data(Qt::UserRole), QVariant("only a"));
        QVERIFY(!model.index(1, 0).data(Qt::UserRole).isValid() && !model.checkCompatible(0, 3));
    }

    void multiCheckTree_data()
    {
        table();
        row("a parent ticks its subtree", "a; a a1 a2 a2x");
        row("one child leaves the parent partial", "a1; a1");
        row("all children tick the parent", "a1 a2; a a1 a2 a2x");
        row("a partial parent ticks fully", "a2x a; a a1 a2 a2x");
        row("unticking a child", "a a1; a2 a2x");
    }

    void multiCheckTree()
    {
        const auto [clicks, checked] = fields<2>();
        QStandardItemModel model;
        watch(&model);
        for (const QString path : {"a", "a/a1", "a/a2", "a/a2/a2x", "b"}) {
            auto *item = new QStandardItem(path.section('/', -1));
            item->setCheckable(true);
            const auto parents = model.findItems(path.section('/', -2, -2), Qt::MatchRecursive);
            (parents.isEmpty() ? model.invisibleRootItem() : parents.first())->appendRow(item);
        }
        MultiCheckTreeView view;
        view.setModel(&model);
        for (const QString &name : words(clicks)) { // the view follows a tick however it comes
            QStandardItem *item = model.findItems(name, Qt::MatchRecursive).first();
            item->setCheckState(item->checkState() == Qt::Checked ? Qt::Unchecked : Qt::Checked);
        }
        QStringList names;
        for (const QModelIndex &index : view.checkedIndexes())
            names << index.data().toString();
        QCOMPARE(names.join(' '), checked);
        const QVariant a = model.index(0, 0).data(Qt::CheckStateRole);
        QCOMPARE(a, QVariant(checked.startsWith("a ") ? Qt::Checked : Qt::PartiallyChecked));
    }

    // Typed into the line edits in form order, "-" leaving one alone.
    void dialogsRefuseBadInput_data()
    {
        table();
        row("gecos: plain fields", "gecos; Ann Lee|12|555|-|x; ");
        row("gecos: comma", "gecos; Lee, Ann; Full name");
        row("gecos: colon", "gecos; -|-|-|1:2; Home phone");
        row("password: empty", "password; |; empty");
        row("password: mismatch", "password; secret|secreT; do not match");
        row("password: agree", "password; s e'$(x)|s e'$(x); ");
        row("login: empty", "login; |pw; Enter");
        row("login: an option", "login; -rf|pw; hyphen");
        row("login: a blank", "login; a b|pw; hyphen");
        row("login: plain", "login; web-admin_1|pw; ");
    }

    void dialogsRefuseBadInput()
    {
        const auto [kind, typed, error] = fields<3>();
        std::unique_ptr<QDialog> dialog(kind == "gecos" ? static_cast<QDialog *>(new GecosDialog)
                                            : kind == "login"
                                            ? static_cast<QDialog *>(new LoginPasswordDialog)
                                            : new PasswordChangeDialog);
        dialog->show();
        const QList<QLineEdit *> edits = dialog->findChildren<QLineEdit *>();
        for (int i = 0; i < typed.split('|').size(); ++i)
            if (typed.split('|').at(i) != "-")
                QTest::keyClicks(edits.at(i), typed.split('|').at(i));
        const QString shown = dialog->findChild<QLabel *>("_errorLabel")->text();
        QCOMPARE(shown.isEmpty(), error.isEmpty());
        QVERIFY2(shown.contains(error), qPrintable(shown));
        auto *buttons = dialog->findChild<QDialogButtonBox *>();
        QCOMPARE(buttons->button(QDialogButtonBox::Ok)->isEnabled(), error.isEmpty());
        if (kind == "gecos" && !error.isEmpty())
            QVERIFY(dialog->grab().save(QStringLiteral(OVT_GECOS_PNG)));
        if (auto *password = qobject_cast<PasswordChangeDialog *>(dialog.get()))
            QCOMPARE(password->password(), error.isEmpty() ? typed.section('|', 0, 0) : "");
    }
};

QTEST_MAIN(tst_AuxiliaryWidgets)
#include "tst_auxiliarywidgets.moc"
