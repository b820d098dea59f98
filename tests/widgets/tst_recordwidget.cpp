// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "signalrecorder.h"
#include "treestring.h"
#include "widgets/record.h"
#include "widgets/recordmodel.h"
#include "widgets/recordsortfilterproxymodel.h"
#include "widgets/recordwidget.h"

#include <QtTest>
#include <QtWidgets>

using namespace OvtTest;

namespace {

// A rule of three columns (user, host, note) written "user,host,note"; "_" is a blank row.
class Rule : public Record
{
public:
    explicit Rule(const QString &values)
        : _values(values.split(','))
    { }
    bool isEmpty() const override { return _values.first() == "_"; }
    bool isValid() const override { return !_values.value(0).isEmpty(); }
    bool isEditable(int column) const override { return column < 2; }
    QVariant data(int column, int role) const override
    {
        return role == Qt::DisplayRole ? QVariant(_values.value(column)) : QVariant();
    }
    bool setData(int column, const QVariant &value) override // refuses "bad"
    {
        if (value == "bad" || column >= _values.size())
            return false;
        _values[column] = value.toString();
        return _changed = true;
    }
    QStringList _values;
};

QList<Record *> rules(const QString &names)
{
    QList<Record *> list;
    for (const QString &name : words(names))
        list << new Rule(name);
    return list;
}

RecordModel *model(const QString &names, bool creatable = true)
{
    auto header = [](int c) {
        return QVariant(QString("User Host Note").section(' ', c, c));
    };
    auto *model = new RecordModel([] { return 3; }, header,
                                  creatable ? +[]() -> Record * { return new Rule("new"); } : nullptr);
    watch(model);
    model->setRecordList(rules(names));
    return model;
}

} // namespace

class tst_RecordWidget : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void modelChanges_data()
    {
        table(); // records; change; done; records after, and the model's dataChanged signals
        row("import goes before blank rows", "A B _ _; append X Y; 1; [A B X Y _ _]");
        row("import into blank rows only", "_ _; append X Y; 1; [X Y _ _]");
        row("insert at the end appends", "A B; insert 2 1; 1; [A B new]");
        row("insert past the end is refused", "A B; insert 3 1; 0; [A B]");
        row("insert without a factory", "A; nofactory 0 1; 0; [A]");
        row("remove does not clamp", "A B C D; remove 2 3; 0; [A B C D]");
        row("remove inside", "A B C D; remove 1 2; 1; [A D]");
        row("a refused edit", "A,b; edit 0 bad; 0; [A]");
        row("an edit redraws its whole row", "A,b B,c; edit 1 h; 1; [A B] dataChanged(B,0,B,2)");
        row("all records valid", "A B; valid; 1; [A B]");
        row("a record not valid", "A ,c; valid; 0; [A ]");
        row("no records are not valid", "; valid; 0; []");
        row("disabled, no row is enabled", "A; disable; 0; [A]");
        row("the filter proxy searches every column",
            "alice,db bob,web carol,x; filter w.b; 1; [bob]");
        row("an unfinished pattern hides nothing", "alice,db bob,web; filter (; 1; [alice bob]");
    }

    void modelChanges()
    {
        const auto [before, change, done, after] = fields<4>();
        const QStringList args = words(change);
        RecordSortFilterProxyModel proxy;
        watch(&proxy);
        std::unique_ptr<RecordModel> records(model(before, args.first() != "nofactory"));
        SignalRecorder recorder(records.get());
        bool changed = true;
        if (args.first() == "append")
            records->appendRecordList(rules(args.mid(1).join(' ')));
        else if (args.first() == "remove")
            changed = records->removeRows(args.at(1).toInt(), args.at(2).toInt());
        else if (args.first() == "edit")
            changed = records->setData(records->index(args.at(1).toInt(), 1), args.at(2));
        else if (args.first() == "valid")
            changed = records->allRecordsValid();
        else if (args.first() == "disable")
            changed = (records->setEnabled(false),
                       records->flags(records->index(0, 0)) & Qt::ItemIsEnabled);
        else if (args.first() == "filter")
            proxy.setSourceModel(records.get()), proxy.setFilterRegExp(args.at(1));
        else
            changed = records->insertRows(args.at(1).toInt(), args.at(2).toInt());
        QCOMPARE(changed, done == "1");
        const QAbstractItemModel *shown = records.get();
        QCOMPARE((QStringList(modelToString(proxy.sourceModel() ? &proxy : shown))
                  + recorder.log.filter("dataChanged"))
                     .join(' '),
                 after);
    }

    void buttonsAddRemoveClearCopy()
    {
        QCoreApplication::setOrganizationName(QStringLiteral("ovt-tests"));
        QCoreApplication::setApplicationName(QStringLiteral("tst_recordwidget"));
        RecordWidget widget;
        widget.showCopyButton(true);
        widget.setCopyFormat({"user=%1;", "", "%1"});
        widget.setRecordModel(model("A B C"));
        widget.resize(560, 300);
        widget.show();
        QSignalSpy changed(&widget, &RecordWidget::dataChanged);
        auto *view = widget.findChild<QTableView *>("_tableView");
        auto click = [&](const char *button) {
            QTest::mouseClick(widget.findChild<QPushButton *>(button), Qt::LeftButton);
        };
        click("_addPushButton");
        view->selectRow(2);
        click("_addPushButton");
        QCOMPARE(modelToString(widget.recordModel()), QStringLiteral("[new A B new C]"));
        QCOMPARE(changed.count(), 0);
        click("_removePushButton");
        QCOMPARE(modelToString(widget.recordModel()), QStringLiteral("[new A new C]"));
        QCOMPARE(changed.count(), 1);

        widget.recordModel()->setRecordList(rules("bob,x, carol"));
        view->selectRow(1);
        QVERIFY(widget.grab().save(QStringLiteral(OVT_RECORD_PNG)));
        QTimer::singleShot(0, [] {
            auto *dialog = qobject_cast<QInputDialog *>(QApplication::activeModalWidget());
            QCOMPARE(dialog->comboBoxItems(), QStringList({"user=bob;x", "user=carol;"}));
            dialog->setTextValue("user=bob;x");
            dialog->accept();
        });
        click("_copyPushButton");
        QCOMPARE(QApplication::clipboard()->text(), QStringLiteral("user=bob;x"));
        click("_clearPushButton");
        QCOMPARE(widget.recordModel()->rowCount(), 0);
    }
};

QTEST_MAIN(tst_RecordWidget)
#include "tst_recordwidget.moc"
