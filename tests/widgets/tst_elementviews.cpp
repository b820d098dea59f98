#include "element/elementmodel.h"
#include "widgetfixture.h"
#include "widgets/elementtableview.h"
#include "widgets/elementtreeview.h"
#include "widgets/nodeswidgetproxymodel.h"

#include <QAbstractItemModelTester>
#include <QTest>
#include <QVBoxLayout>

using namespace WidgetFixture;

namespace {

// The element signals of either view, recorded as "structure(bob)", "selected(-)", ...
template<typename View> QWidget *makeView(QWidget *window, QStringList *record)
{
    auto *view = new View(window);
    auto name = [](Element *element) {
        return element ? element->title() : QStringLiteral("-");
    };
    auto add = [=](const char *what) {
        return [=](Element *element) {
            *record << QStringLiteral("%1(%2)").arg(what, name(element));
        };
    };
    QObject::connect(view, &View::currentElementChangedStructure, [=](const QModelIndex &index) {
        *record
            << QStringLiteral("structure(%1)").arg(index.isValid() ? index.data().toString() : "-");
    });
    QObject::connect(view, &View::elementContextOperationChangedSelected, add("selected"));
    QObject::connect(view, &View::elementContextOperationChangedFocused, add("focused"));
    QObject::connect(view, &View::elementContextOperationChangedChanged, add("changed"));
    return view;
}

} // namespace

class tst_ElementViews : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void elementSignals_data();
    void elementSignals();
};

void tst_ElementViews::elementSignals_data()
{
    QTest::addColumn<QString>("steps");
    QTest::addColumn<QString>("expected");
    for (const char *view : {"tree", "table"}) {
        auto row = [&](const char *name) -> QTestData & {
            return QTest::addRow("%s: %s", view, name);
        };
        row("click selects with focus") << "click 1"
                                        << "focused(-) structure(bob) selected(bob)";
        row("selection elsewhere only moves the structure") << "select 1"
                                                            << "structure(bob)";
        row("focus reports the selected element") << "select 2 focus"
                                                  << "structure(a.b) focused(a.b)";
        row("data change of the selected row") << "select 1 change 1 change 2"
                                               << "structure(bob) changed(bob)";
        row("removing the selected row leaves none") << "select 1 remove 1"
                                                     << "structure(bob) structure(-) selected(-)";
        row("inserting above keeps the element") << "select 1 insert 0"
                                                 << "structure(bob) selected(bob)";
        row("reset") << "select 1 reset"
                     << "structure(bob) structure(-)";
    }
}

void tst_ElementViews::elementSignals()
{
    QFETCH(QString, steps);
    UsersModule module;
    module.users->fetchMore(); // alice bob a.b axb
    module.users->childNodes().at(0)->append(new User(module, "user", "grandchild"));
    module.users->append(new Mailbox(module, "mailbox", "mail"));
    ElementModel model(module.users);
    NodesWidgetProxyModel proxy(0x1);
    proxy.setSourceModel(&model);
    QAbstractItemModelTester tester(&proxy, QAbstractItemModelTester::FailureReportingMode::Fatal);
    QCOMPARE(proxy.rowCount(), 4); // flat, without the supplement
    QCOMPARE(proxy.rowCount(proxy.index(0, 0)), 0);

    QWidget window;
    QStringList record;
    auto *view
        = static_cast<QAbstractItemView *>(QByteArray(QTest::currentDataTag()).startsWith("tree")
                                               ? makeView<ElementTreeView>(&window, &record)
                                               : makeView<ElementTableView>(&window, &record));
    auto *other = new QLineEdit(&window);
    auto *layout = new QVBoxLayout(&window);
    layout->addWidget(view);
    layout->addWidget(other);
    view->setModel(&proxy);
    window.show();
    QApplication::setActiveWindow(&window);
    QVERIFY(QTest::qWaitForWindowActive(&window));
    other->setFocus();
    record.clear(); // the window's first focus went to the view

    const QStringList words = steps.split(' ');
    for (int i = 0; i < words.size(); ++i) {
        const QString step = words.at(i);
        const int row = words.value(i + 1).toInt();
        const QModelIndex index = proxy.index(row, 0);
        auto *element = static_cast<Element *>(module.users->childNodes().value(row));
        if (step == "click") {
            QTest::mouseClick(view->viewport(), Qt::LeftButton, {},
                              view->visualRect(index).center());
        } else if (step == "select") {
            view->selectionModel()->select(
                index, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
        } else if (step == "focus") {
            view->setFocus();
        } else if (step == "change") {
            element->elementData()->insert(QStringLiteral("shell"), "/bin/zsh");
            element->emitNodeDataChanged();
        } else if (step == "remove") {
            module.users->removeAt(row, 1);
        } else if (step == "insert") {
            module.users->insert(row, {new User(module, "user", "dave")});
        } else if (step == "reset") {
            model.nodesAboutToBeReset();
            model.nodesReset();
        }
    }
    QFETCH(QString, expected);
    QCOMPARE(record.join(QLatin1Char(' ')), expected);
}

QTEST_MAIN(tst_ElementViews)
#include "tst_elementviews.moc"
