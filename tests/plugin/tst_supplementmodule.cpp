#include "element/element.h"
#include "element/elementdata.h"
#include "element/elementroottreenode.h"
#include "plugin/acceptormodule.h"
#include "plugin/moduleroottreenode.h"
#include "plugin/supplementmodule.h"

#include <QTest>

#include <memory>

namespace {

// The donor, as a plug-in's module: it records what it is told.
class DonorModule : public Module
{
public:
    DonorModule()
        : Module(QStringLiteral("users"), nullptr, true)
    { }

    void performOperation(ContextOperation *context, OperationType type, ElementData *data,
                          int alternative) override
    {
        Element *element = context ? context->elementContext() : nullptr;
        told << QStringLiteral("%1:%2:%3:%4")
                    .arg(element ? element->id() : QStringLiteral("-"))
                    .arg(quint64(type), 0, 16)
                    .arg(data ? data->name() : QStringLiteral("null"))
                    .arg(alternative);
    }

    QStringList told;
};

class TypedElement : public Element
{
public:
    TypedElement(Module &module, const QString &type, const QString &id)
        : Element(module, nullptr)
    {
        _elementType = type;
        _id = id;
    }
    QString caption() const override { return id(); }
};

// An operation on a widget rather than an element.
class WidgetContext : public ContextOperation
{
public:
    explicit WidgetContext(Module &module)
        : ContextOperation(ElementWidgetContext, module, nullptr)
    { }
    QString caption() const override { return QStringLiteral("widget"); }
};

} // namespace

class tst_SupplementModule : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void placedWithoutCheckBox_data();
    void placedWithoutCheckBox();
    void acceptorLooksUpTheDonorsElements();
    void supplementPassesOnlyInsertedOfItsTypeToTheDonor_data();
    void supplementPassesOnlyInsertedOfItsTypeToTheDonor();
    void supplementDoesNotForwardToSubModules();
};

void tst_SupplementModule::initTestCase()
{
    QCoreApplication::setOrganizationName(QStringLiteral("ovt-tests"));
    QCoreApplication::setApplicationName(QStringLiteral("tst_supplementmodule"));
}

void tst_SupplementModule::placedWithoutCheckBox_data()
{
    QTest::addColumn<bool>("supplement");
    QTest::newRow("acceptor") << false;
    QTest::newRow("supplement") << true;
}

void tst_SupplementModule::placedWithoutCheckBox()
{
    QFETCH(bool, supplement);
    DonorModule donor;
    std::unique_ptr<Module> module;
    if (supplement)
        module = std::make_unique<SupplementModule>(
            QStringLiteral("mail"), 2, QStringLiteral("users"), QStringLiteral("Mail accounts"),
            QStringLiteral("login"), &donor, nullptr);
    else
        module
            = std::make_unique<AcceptorModule>(QStringLiteral("mail"), 2, QStringLiteral("users"),
                                               QStringLiteral("Mail accounts"), nullptr);

    QCOMPARE(module->expectedDepth(), 2);
    QCOMPARE(module->expectedParentId(), QStringLiteral("users"));
    QCOMPARE(module->data(2, Qt::DisplayRole).toString(), QStringLiteral("Mail accounts"));
    QVERIFY(!module->moduleData()->contains(QStringLiteral("paranoid")));
    QVERIFY(!module->data(1, Qt::CheckStateRole).isValid());
    QVERIFY(!(module->flags(1) & Qt::ItemIsUserCheckable));
    QVERIFY(!module->setData(1, Qt::Checked, Qt::CheckStateRole));
}

void tst_SupplementModule::acceptorLooksUpTheDonorsElements()
{
    DonorModule donor;
    auto *alice = new TypedElement(donor, QStringLiteral("login"), QStringLiteral("alice"));
    donor.elementNodes() << alice;
    AcceptorModule acceptor(QStringLiteral("mail"), 2, QStringLiteral("users"), QString(), nullptr);

    // Directly under the module root there is no donor.
    ModuleRootTreeNode root;
    root.append(&acceptor);
    QCOMPARE(acceptor.elementFromDonor(QStringLiteral("alice")), nullptr);

    root.removeOne(&acceptor);
    donor.append(&acceptor);
    QCOMPARE(acceptor.elementFromDonor(QStringLiteral("alice")), alice);
    QCOMPARE(acceptor.elementFromDonor(QStringLiteral("bob")), nullptr);
    donor.removeOne(&acceptor);
}

void tst_SupplementModule::supplementPassesOnlyInsertedOfItsTypeToTheDonor_data()
{
    QTest::addColumn<QString>("context");
    QTest::addColumn<quint64>("operation");
    QTest::addColumn<QStringList>("told");

    QTest::newRow("inserted login goes to the donor, arguments unchanged")
        << "login" << quint64(InsertedOperation) << QStringList {"postmaster:1:record:7"};
    QTest::newRow("inserted element of another type is ignored")
        << "mailbox" << quint64(InsertedOperation) << QStringList();
    QTest::newRow("removed login is ignored")
        << "login" << quint64(RemovedOperation) << QStringList();
    QTest::newRow("read of a login is ignored")
        << "login" << quint64(ReadOperation) << QStringList();
    QTest::newRow("widget context is ignored")
        << "widget" << quint64(InsertedOperation) << QStringList();
    QTest::newRow("no context is ignored") << "none" << quint64(InsertedOperation) << QStringList();
}

void tst_SupplementModule::supplementPassesOnlyInsertedOfItsTypeToTheDonor()
{
    QFETCH(QString, context);
    QFETCH(quint64, operation);
    QFETCH(QStringList, told);

    DonorModule donor;
    SupplementModule mail(QStringLiteral("mail"), 2, QStringLiteral("users"), QString(),
                          QStringLiteral("login"), &donor, nullptr);
    TypedElement login(mail, QStringLiteral("login"), QStringLiteral("postmaster"));
    TypedElement mailbox(mail, QStringLiteral("mailbox"), QStringLiteral("box"));
    WidgetContext widget(mail);
    ContextOperation *contexts[] = {&login, &mailbox, &widget};
    const int which = QStringList {"login", "mailbox", "widget"}.indexOf(context);
    ElementData data;
    data.setName(QStringLiteral("record"));

    mail.performOperation(which < 0 ? nullptr : contexts[which], OperationType(operation), &data,
                          7);

    QCOMPARE(donor.told, told);
}

void tst_SupplementModule::supplementDoesNotForwardToSubModules()
{
    // Given a donor, and a sub-module under the supplement that would hear forwarded operations
    DonorModule donor;
    DonorModule sub;
    SupplementModule mail(QStringLiteral("mail"), 2, QStringLiteral("users"), QString(),
                          QStringLiteral("login"), &donor, nullptr);
    mail.append(&sub);
    TypedElement login(mail, QStringLiteral("login"), QStringLiteral("postmaster"));

    // When an element of the supplement's own tree is inserted, then read
    ElementRootTreeNode root;
    root.append(&login);
    login.performOperation(ReadOperation, nullptr, 0);
    mail.performOperation(&login, ReadOperation, nullptr, 0);

    // Then the donor hears the insertion, and the sub-module nothing at all
    QCOMPARE(donor.told, QStringList {QStringLiteral("postmaster:1:null:0")});
    QCOMPARE(sub.told, QStringList());
    root.removeOne(&login);
    mail.removeOne(&sub);
}

QTEST_GUILESS_MAIN(tst_SupplementModule)

#include "tst_supplementmodule.moc"
