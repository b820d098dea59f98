// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "element/changedisplayelementdata.h"
#include "element/elementroottreenode.h"
#include "fixtures/fixtureelements.h"
#include "signalrecorder.h"
#include "widgets/vieweditelementwidget.h"

#include <QTest>

using namespace Fixture;

namespace {

// Logs every operation that reaches it as "<title>:<operation in hex>".
class LogModule : public Module
{
public:
    LogModule()
        : Module(QStringLiteral("log"), nullptr, false)
    { }
    void performOperation(ContextOperation *context, OperationType type, ElementData *,
                          int) override
    {
        log << context->elementContext()->title() + ':' + QString::number(quint64(type), 16);
    }
    QStringList log;
};

using Plain = Placed<Element>;

class UserWidget : public ViewEditElementWidget
{
public:
    explicit UserWidget(Module &module)
        : ViewEditElementWidget(module, &Module::defaultTrue)
    {
        _elementType = QStringLiteral("user");
    }
};

template<typename Kind> std::unique_ptr<Element> make(Module &module, bool editable, int depth)
{
    return std::make_unique<Placed<Kind>>(module, "user", "e", depth, QString(), QString(), -1,
                                          NoOperation,
                                          editable ? &Module::defaultTrue : &Module::defaultFalse);
}

const QMap<QString, std::unique_ptr<Element> (*)(Module &, bool, int)> kindMakers {
    {"login", &make<LoginElement>},
    {"service", &make<ServiceElement>},
    {"container", &make<ContainerElement>},
    {"ordinary", &make<OrdinaryElement>},
    {"supplement", &make<SupplementElement>}};

} // namespace

class tst_Element : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { _module = std::make_unique<LogModule>(); }
    void cleanup() { _module.reset(); }

    void titleEditabilityAndWidgets()
    {
        // Title and group roles: the container's proxies and the seeded mutation run.
        Plain runtime(*_module, "user", "alice");
        Plain fixed(*_module, "user", "fixed", 1, {}, {}, -1, NoOperation, nullptr);
        OvtTest::SignalRecorder recorder(&runtime), fixedRecorder(&fixed);
        runtime.setTitle("bob");
        fixed.setTitle("bob"); // a persistent element keeps title and id, silently
        QCOMPARE(runtime.title() + ' ' + runtime.id() + ' ' + fixed.title() + ' ' + fixed.id(),
                 QString("bob user_bob fixed fixed"));
        QCOMPARE(recorder.log + fixedRecorder.log, QStringList {"dataChanged(user_bob)"});
        QCOMPARE(runtime.data(0, 261).toString() + ' '
                     + runtime.data(0, Qt::ToolTipRole).toString(),
                 QString("user Caption of bob"));
        QVERIFY(runtime.isEditable() && !fixed.isEditable()); // no callback: never editable
        auto *widget = new UserWidget(*_module);
        _module->insertElementWidget(widget);
        QCOMPARE(runtime.elementWidget(CreateRole), widget);
        QCOMPARE(fixed.elementWidget(CreateRole), nullptr);
        QCOMPARE(fixed.elementWidget(ViewEditRole), widget);
    }
    void lazyLoading_data()
    {
        OvtTest::table();
        OvtTest::row("pending and readable: reads once", "1; 8; 1; box:8; 0");
        OvtTest::row("content not offered: nothing starts", "1; 20; 0; ; 1");
        OvtTest::row("already loaded", "0; 8; 0; ; 0");
    }
    void lazyLoading()
    {
        const auto [pending, offered, canFetch, log, pendingAfter] = OvtTest::fields<5>();
        Plain box(*_module, "user", "box", -1, {}, {}, -1,
                  OperationType(offered.toULongLong(nullptr, 16)));
        box.pending() = pending.toInt();
        QCOMPARE(box.canFetchMore(), bool(canFetch.toInt()));
        box.fetchMore();
        box.fetchMore(); // a view asking again while the read runs starts nothing more
        QCOMPARE(_module->log, OvtTest::words(log));
        QCOMPARE(box.pending(), bool(pendingAfter.toInt()));

        // A refresh sent by hand also counts as having read the children.
        Container container(*_module, "user", "c");
        container.performOperation(ReadContentOperation, nullptr, 0);
        QVERIFY(!container.pending());
    }
    void kinds_data()
    {
        // Flags: e editable, p persistent, d under a container offering ChangeDisplay. Every
        // operation is then sent to the element; "forwarded" is what reached the module.
        OvtTest::table();
        const QString login = QStringLiteral("60028; e:8 e:20 e:20000 e:40000");
        OvtTest::row("login", "login; e;" + login);
        OvtTest::row("login, not editable: the same", "login; ;" + login);
        OvtTest::row("service offers nothing by itself", "service; e; 0; ");
        OvtTest::row("container", "container; e; c; e:4 e:8");
        OvtTest::row("container, not editable, still forwards create", "container; ; 8; e:4 e:8");
        const QString ordinary = QStringLiteral("e:4 e:20 e:40 e:80");
        OvtTest::row("ordinary", "ordinary; e; e4;" + ordinary);
        OvtTest::row("ordinary, persistent", "ordinary; ep; 60;" + ordinary);
        OvtTest::row("ordinary, not editable", "ordinary; ; 20;" + ordinary);
        OvtTest::row("ordinary under display container", "ordinary; ed; 8e4;" + ordinary);
        OvtTest::row("supplement", "supplement; e; 60; e:20 e:40");
        OvtTest::row("supplement, not editable", "supplement; ; 20; e:20 e:40");
    }
    void kinds()
    {
        const auto [kind, flags, offered, forwarded] = OvtTest::fields<4>();

        Container parent(*_module, "user", "parent", -1, {}, {}, -1, ChangeDisplayOperation);
        std::unique_ptr<Element> element
            = kindMakers[kind](*_module, flags.contains('e'), flags.contains('p') ? 1 : -1);
        if (flags.contains('d'))
            parent.append(element.get());
        QCOMPARE(QString::number(quint64(element->availableOperations()), 16), offered);

        _module->log.clear();
        ChangeDisplayElementData display(1);
        for (OperationType operation : {CreateOperation, ReadContentOperation, ReadLightOperation,
                                        ReadOperation, UpdateOperation, DeleteOperation,
                                        ChangeDisplayOperation, LoginOperation1, LoginOperation2})
            element->performOperation(operation, &display, 0);
        QCOMPARE(_module->log, OvtTest::words(forwarded));
    }
    void changeDisplay_data()
    {
        // expected: display variants of container, a and b, then the container's signals
        OvtTest::table();
        OvtTest::row("on a child, through the container",
                     "1; change; a; 2 2 2 childsDataChanged(user_c)");
        OvtTest::row("on the container", "1; change; c; 2 2 2 childsDataChanged(user_c)");
        OvtTest::row("null record", "1; null; c; 0 0 0");
        OvtTest::row("plain record", "1; plain; c; 0 0 0");
        OvtTest::row("not offered: child keeps its own", "0; change; a; 0 0 0");
        OvtTest::row("not offered: container still changes",
                     "0; change; c; 2 0 0 childsDataChanged(user_c)");
    }
    void changeDisplay()
    {
        const auto [offers, record, target, expected] = OvtTest::fields<4>();

        Container c(*_module, "user", "c", -1, {}, {}, -1,
                    offers == "1" ? ChangeDisplayOperation : NoOperation);
        Ordinary a(*_module, "user", "a"), b(*_module, "user", "b");
        c.append(QList<TreeNode *> {&a, &b});
        OvtTest::SignalRecorder recorder(&c);
        _module->log.clear();

        ChangeDisplayElementData change(2);
        ElementData plain;
        ElementData *data = record == "change" ? &change : record == "plain" ? &plain : nullptr;
        (target == "c" ? static_cast<Element &>(c) : a)
            .performOperation(ChangeDisplayOperation, data, 0);

        QStringList seen = recorder.log;
        for (Element *element : std::initializer_list<Element *> {&b, &a, &c})
            seen.prepend(QString::number(element->displayChildrenVariant()));
        QCOMPARE(seen.join(' '), expected);
        QCOMPARE(_module->log, QStringList());
        QCOMPARE(a.displayChildrenVariants(), c.displayChildrenVariants());
    }

private:
    std::unique_ptr<LogModule> _module;
};

QTEST_MAIN(tst_Element)
#include "tst_element.moc"
