// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "treenode/choicefiltertreenodesortfilterproxymodel.h"
#include "treenode/choicetreenodeproxymodel.h"
#include "treenode/filtertreenodesortfilterproxymodel.h"
#include "treenode/treenodemodel.h"
#include "treestring.h"
#include "widgets/choicedialog.h"
#include "widgets/choicewidget.h"
#include "widgets/singlechoicedialog.h"

#include <QtTest>
#include <QtWidgets>

using namespace OvtTest;

namespace {

const char tree[] = "[admins[wheel sudo] users audio video mail#1]";

QSet<QString> names(const QString &text)
{
    const QStringList list = words(text);
    return QSet<QString>(list.cbegin(), list.cend());
}

// The rows a view shows, as the user sees them: "!" marks a disabled row.
QString shown(const QAbstractItemModel *model, const QModelIndex &parent = {})
{
    QStringList rows;
    for (int row = 0; row < model->rowCount(parent); ++row) {
        const QModelIndex index = model->index(row, 0, parent);
        const QString children = shown(model, index);
        rows << index.data().toString() + (index.flags() & Qt::ItemIsEnabled ? "" : "!")
                + (children == "[]" ? QString() : children);
    }
    return '[' + rows.join(' ') + ']';
}

QModelIndex find(QAbstractItemView *view, const QString &name)
{
    const QAbstractItemModel *model = view->model();
    return model->match(model->index(0, 0), Qt::DisplayRole, name, 1, Qt::MatchRecursive).value(0);
}

// Clicks the check box of the row, where the style draws it.
void clickBox(QAbstractItemView *view, const QModelIndex &index)
{
    QStyleOptionViewItem option;
    option.initFrom(view);
    option.rect = view->visualRect(index);
    option.features = QStyleOptionViewItem::HasCheckIndicator;
    const QRect box = view->style()->subElementRect(QStyle::SE_ItemViewItemCheckIndicator, &option);
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, box.center());
}

// Runs the user's steps: "filter:text", "+name" Space in the first view, "-name" a click on
// its box in the second, "click:name", "dbl:name", "down" in the first; then "ok" or "cancel".
void act(AbstractChoiceDialog &dialog, QLineEdit *filter, QAbstractItemView *first,
         QAbstractItemView *second, const QString &steps)
{
    for (const QString &step : words(steps)) {
        const QString name = step.section(':', 1);
        if (step.startsWith("filter:")) {
            filter->clear();
            QTest::keyClicks(filter, name);
        } else if (step.startsWith('+')) {
            first->setCurrentIndex(find(first, step.mid(1)));
            QTest::keyClick(first, Qt::Key_Space);
        } else if (step.startsWith('-')) {
            clickBox(second, find(second, step.mid(1)));
        } else if (step.startsWith("click:") || step.startsWith("dbl:")) {
            const QPoint at = first->visualRect(find(first, name)).center();
            QTest::mouseClick(first->viewport(), Qt::LeftButton, {}, at);
            if (step.startsWith("dbl:"))
                QTest::mouseDClick(first->viewport(), Qt::LeftButton, {}, at);
        } else if (step == "down") {
            QTest::keyClick(first, Qt::Key_Down);
        } else {
            QTest::mouseClick(dialog.buttonBox()->button(step == "ok" ? QDialogButtonBox::Ok
                                                                      : QDialogButtonBox::Cancel),
                              Qt::LeftButton);
        }
    }
}

} // namespace

class tst_ChoiceWidgets : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // The filter line's clear button fades in and out through an animation of Qt's that deletes
    // itself once it has run (160 ms); the last one gets the chance before the application goes.
    void cleanupTestCase()
    {
        QTest::qWait(300);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    void choiceDialogs_data()
    {
        table();
        // checked; blocked; steps; available view; chosen view; added; removed
        row("space ticks, a click unticks",
            "users; ; +audio -users ok; [admins[wheel sudo] users video]; [audio]; audio; users");
        row("filter narrows both views, ancestors kept",
            "wheel; ; filter:E; [users video]; [admins[wheel]]; ; ");
        row("blocked name follows its parent, disabled",
            "admins; wheel; -wheel -admins ok; [admins[wheel! sudo] users audio video]; []; ; "
            "admins");
        row("cancel puts the names back",
            "users; ; +audio -users cancel; [admins[wheel sudo] audio video]; [users]; ; ");
        // single: chosen; blocked; steps; OK enabled and the dialog open; chosen; added; removed
        row("single: nothing chosen, OK disabled", "; ; filter:u; 0 open; ; ; ");
        row("single: a click chooses, OK accepts", "; ; click:audio ok; 1 closed; audio; audio; ");
        row("single: double click replaces and accepts",
            "users; ; dbl:video; 1 closed; video; video; users");
        row("single: keyboard moves the choice", "audio; ; click:users down; 1 open; audio; ; ");
        row("single: filter keeps the choice",
            "video; ; filter:ad click:admins filter:o; 1 open; admins; admins; video");
        row("single: blocked name cannot be chosen", "; sudo; click:sudo dbl:sudo; 0 open; ; ; ");
        row("single: a name not in the tree is dropped", "nobody; ; ; 0 open; ; ; ");
    }
    void choiceDialogs()
    {
        const auto [initial, blocked, steps, first, second, added, removed] = fields<7>();
        const bool single = QByteArray(QTest::currentDataTag()).startsWith("single");
        TreeNodeModel source(buildTree(tree, this));
        ChoiceDialog multi;
        SingleChoiceDialog one;
        AbstractChoiceDialog &dialog = single ? static_cast<AbstractChoiceDialog &>(one) : multi;
        ChoiceWidget *widget = multi.choiceWidget();
        QAbstractItemView *unchecked = widget->uncheckedTreeView();
        for (QAbstractItemModel *model : std::initializer_list<QAbstractItemModel *> {
                 widget->choiceModel(), unchecked->model(), widget->checkedTreeView()->model(),
                 widget->filterModel(true), widget->filterModel(false), one.choiceModel(),
                 one.filterModel()})
            watch(model);
        dialog.setSourceModel(&source);
        single ? one.setChosenName(initial) : multi.setCheckedNames(names(initial));
        dialog.setBlockedNames(names(blocked));
        dialog.show();
        QVERIFY(QTest::qWaitForWindowExposed(&dialog));
        single ? act(dialog, one.filterLineEdit(), one.choiceTreeView(), nullptr, steps)
               : act(dialog, widget->filterLineEdit(), unchecked, widget->checkedTreeView(), steps);
        const bool enabled = dialog.buttonBox()->button(QDialogButtonBox::Ok)->isEnabled();
        const QString state
            = QString("%1 %2").arg(enabled).arg(dialog.isVisible() ? "open" : "closed");
        QCOMPARE(single ? state : shown(unchecked->model()), first);
        QCOMPARE(single ? one.chosenName() : shown(widget->checkedTreeView()->model()), second);
        QCOMPARE(dialog.addNames(), names(added));
        QCOMPARE(dialog.removeNames(), names(removed));
        QCOMPARE(dialog.result(),
                 steps.endsWith("ok") || steps.startsWith("dbl") ? QDialog::Accepted
                                                                 : QDialog::Rejected);
        if (QTest::currentDataTag() == QByteArray("space ticks, a click unticks"))
            QVERIFY(QDir().mkpath(OVT_PICTURES_DIR)
                    && dialog.grab().save(OVT_PICTURES_DIR "/choicedialog.png"));
    }
};

QTEST_MAIN(tst_ChoiceWidgets)
#include "tst_choicewidgets.moc"
