#include "element/changedisplayelementdata.h"
#include "element/containerelement.h"
#include "element/elementdata.h"
#include "element/elementroottreenode.h"
#include "element/loginelement.h"
#include "element/ordinaryelement.h"
#include "element/serviceelement.h"
#include "element/servicelightelementdata.h"
#include "element/supplementelement.h"
#include "element/supplementloginmixin.h"
#include "plugin/module.h"
#include "signalrecorder.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

namespace {

// Logs what reaches the module as "<title>:<operation in hex>".
class LogModule : public Module
{
public:
    LogModule()
        : Module(QStringLiteral("kinds"), nullptr, false)
    { }

    void performOperation(ContextOperation *context, OperationType type, ElementData *,
                          int) override
    {
        if (type == InsertedOperation || type == RemovedOperation)
            return;
        Element *element = context ? context->elementContext() : nullptr;
        log << QStringLiteral("%1:%2")
                   .arg(element ? element->title() : QStringLiteral("-"))
                   .arg(quint64(type), 0, 16);
    }

    QStringList log;
};

bool (*editability(bool editable))(const Module &)
{
    return editable ? &Module::defaultTrue : &Module::defaultFalse;
}

// Each kind as a plug-in would finish it: a caption, an id, and, for the tests, its place.
template<typename Kind> class Finished : public Kind
{
public:
    Finished(Module &module, const QString &title, bool editable, bool persistent = false)
        : Kind(module, editability(editable))
    {
        this->_title = title;
        this->_id = title;
        if (persistent)
            this->_expectedDepth = 1;
    }
    QString caption() const override { return this->_title; }
};

using Login = Finished<LoginElement>;
using Service = Finished<ServiceElement>;
using Container = Finished<ContainerElement>;
using Ordinary = Finished<OrdinaryElement>;
using Supplement = Finished<SupplementElement>;

// A container whose plug-in lets the user switch how its children are shown.
class DisplayContainer : public Container
{
public:
    using Container::Container;
    OperationType availableOperations() const override
    {
        return Container::availableOperations() | ChangeDisplayOperation;
    }
    QStringList displayChildrenVariants() const override
    {
        return {QStringLiteral("list"), QStringLiteral("icons"), QStringLiteral("details")};
    }
    bool requireLoad() const { return _requireLoad; }
};

class LoginSupplement : public Supplement, public SupplementLoginMixin
{
public:
    LoginSupplement(Module &module)
        : Supplement(module, QStringLiteral("mailbox"), true)
        , SupplementLoginMixin(this)
    { }
    int treeNodeSpecialFlags() const override
    {
        return SupplementLoginMixin::treeNodeSpecialFlags(0x2);
    }
};

std::unique_ptr<Element> makeKind(const QString &kind, Module &module, bool editable,
                                  bool persistent)
{
    const QString title = QStringLiteral("e");
    if (kind == QLatin1String("login"))
        return std::make_unique<Login>(module, title, editable, persistent);
    if (kind == QLatin1String("service"))
        return std::make_unique<Service>(module, title, editable, persistent);
    if (kind == QLatin1String("container"))
        return std::make_unique<Container>(module, title, editable, persistent);
    if (kind == QLatin1String("ordinary"))
        return std::make_unique<Ordinary>(module, title, editable, persistent);
    return std::make_unique<Supplement>(module, title, editable, persistent);
}

const QList<OperationType> everyOperation {
    CreateOperation, ReadContentOperation,   ReadLightOperation, ReadOperation,  UpdateOperation,
    DeleteOperation, ChangeDisplayOperation, LoginOperation1,    LoginOperation2};

} // namespace

class tst_ElementKinds : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void availableOperations_data();
    void availableOperations();
    void routing_data();
    void routing();
    void containerReadsLazilyAndRearms();
    void changeDisplay_data();
    void changeDisplay();
    void supplementLoginMixinFlags_data();
    void supplementLoginMixinFlags();
    void serviceIcon_data();
    void serviceIcon();
    void loginRecordStartsEmpty();

private:
    QTemporaryDir _themes;
};

void tst_ElementKinds::initTestCase()
{
    QCoreApplication::setOrganizationName(QStringLiteral("ovt-tests"));
    QCoreApplication::setApplicationName(QStringLiteral("tst_elementkinds"));

    // A theme of its own holding the two service icons, set before the icons are first made.
    QVERIFY(_themes.isValid());
    const QString theme = _themes.filePath(QStringLiteral("test"));
    QVERIFY(QDir().mkpath(theme + QStringLiteral("/16x16")));
    QFile index(theme + QStringLiteral("/index.theme"));
    QVERIFY(index.open(QIODevice::WriteOnly));
    index.write("[Icon Theme]\nName=test\nDirectories=16x16\n\n[16x16]\nSize=16\n");
    index.close();
    QImage image(16, 16, QImage::Format_ARGB32);
    image.fill(Qt::red);
    for (const char *name : {"media-playback-start", "media-playback-stop"})
        QVERIFY(image.save(theme + QStringLiteral("/16x16/%1.png").arg(QLatin1String(name))));
    QIcon::setThemeSearchPaths({_themes.path()});
    QIcon::setThemeName(QStringLiteral("test"));
}

void tst_ElementKinds::availableOperations_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<bool>("editable");
    QTest::addColumn<bool>("persistent");
    QTest::addColumn<bool>("underDisplayContainer");
    QTest::addColumn<quint64>("expected");

    QTest::newRow("login, editable") << "login" << true << false << false << quint64(0x60028);
    QTest::newRow("login, not editable: the same")
        << "login" << false << false << false << quint64(0x60028);
    QTest::newRow("service offers nothing by itself")
        << "service" << true << false << false << quint64(0);
    QTest::newRow("container, editable") << "container" << true << false << false << quint64(0xC);
    QTest::newRow("container, not editable")
        << "container" << false << false << false << quint64(0x8);
    QTest::newRow("ordinary, editable") << "ordinary" << true << false << false << quint64(0xE4);
    QTest::newRow("ordinary, persistent, editable")
        << "ordinary" << true << true << false << quint64(0x60);
    QTest::newRow("ordinary, not editable")
        << "ordinary" << false << false << false << quint64(0x20);
    QTest::newRow("ordinary, persistent, not editable")
        << "ordinary" << false << true << false << quint64(0x20);
    QTest::newRow("ordinary under a display container adds ChangeDisplay")
        << "ordinary" << true << false << true << quint64(0x8E4);
    QTest::newRow("ordinary, not editable, under a display container")
        << "ordinary" << false << false << true << quint64(0x820);
    QTest::newRow("supplement, editable")
        << "supplement" << true << false << false << quint64(0x60);
    QTest::newRow("supplement, not editable")
        << "supplement" << false << false << false << quint64(0x20);
}

void tst_ElementKinds::availableOperations()
{
    QFETCH(QString, kind);
    QFETCH(bool, editable);
    QFETCH(bool, persistent);
    QFETCH(bool, underDisplayContainer);
    QFETCH(quint64, expected);

    LogModule module;
    DisplayContainer parent(module, QStringLiteral("parent"), true);
    std::unique_ptr<Element> element = makeKind(kind, module, editable, persistent);
    if (underDisplayContainer)
        parent.append(element.get());

    QCOMPARE(QString::number(quint64(element->availableOperations()), 16),
             QString::number(expected, 16));
}

void tst_ElementKinds::routing_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<bool>("editable");
    QTest::addColumn<QStringList>("forwarded");

    const QStringList login {"e:8", "e:20", "e:20000", "e:40000"};
    QTest::newRow("login forwards reading and both login operations, not create")
        << "login" << true << login;
    QTest::newRow("login, not editable: the same") << "login" << false << login;
    QTest::newRow("container forwards create and content, not change display")
        << "container" << true << QStringList {"e:4", "e:8"};
    QTest::newRow("container, not editable, still forwards create")
        << "container" << false << QStringList {"e:4", "e:8"};
    QTest::newRow("ordinary forwards create, read, update, delete")
        << "ordinary" << true << QStringList {"e:4", "e:20", "e:40", "e:80"};
    QTest::newRow("supplement forwards read and update")
        << "supplement" << true << QStringList {"e:20", "e:40"};
    QTest::newRow("service forwards nothing by itself") << "service" << true << QStringList();
}

void tst_ElementKinds::routing()
{
    QFETCH(QString, kind);
    QFETCH(bool, editable);
    QFETCH(QStringList, forwarded);

    LogModule module;
    std::unique_ptr<Element> element = makeKind(kind, module, editable, false);
    ChangeDisplayElementData display(1);
    for (OperationType operation : everyOperation)
        element->performOperation(operation,
                                  operation == ChangeDisplayOperation ? &display : nullptr, 0);

    QCOMPARE(module.log, forwarded);
}

void tst_ElementKinds::containerReadsLazilyAndRearms()
{
    LogModule module;
    DisplayContainer container(module, QStringLiteral("c"), false);
    QVERIFY(container.canFetchMore());

    container.fetchMore();
    container.fetchMore();
    QCOMPARE(module.log, QStringList {QStringLiteral("c:8")});
    QVERIFY(!container.canFetchMore());

    // A refresh sent by hand also counts as having read the children.
    container.resetRequireLoad();
    container.performOperation(ReadContentOperation, nullptr, 0);
    QVERIFY(!container.requireLoad());

    container.resetRequireLoad();
    QVERIFY(container.canFetchMore());
}

void tst_ElementKinds::changeDisplay_data()
{
    QTest::addColumn<bool>("containerOffers");
    QTest::addColumn<QString>("record");
    QTest::addColumn<QString>("target");
    QTest::addColumn<QString>("expected"); // variants of container, a, b, then the signals

    QTest::newRow("on a child, through the container, to all siblings")
        << true << "change"
        << "a"
        << "2 2 2 childsDataChanged(c)";
    QTest::newRow("on the container") << true << "change"
                                      << "c"
                                      << "2 2 2 childsDataChanged(c)";
    QTest::newRow("null record changes nothing") << true << "null"
                                                 << "a"
                                                 << "0 0 0";
    QTest::newRow("null record on the container changes nothing") << true << "null"
                                                                  << "c"
                                                                  << "0 0 0";
    QTest::newRow("plain record changes nothing") << true << "plain"
                                                  << "a"
                                                  << "0 0 0";
    QTest::newRow("container not offering it: child keeps its own") << false << "change"
                                                                    << "a"
                                                                    << "0 0 0";
    QTest::newRow("container not offering it: the container itself still changes")
        << false << "change"
        << "c"
        << "2 0 0 childsDataChanged(c)";
}

void tst_ElementKinds::changeDisplay()
{
    QFETCH(bool, containerOffers);
    QFETCH(QString, record);
    QFETCH(QString, target);
    QFETCH(QString, expected);

    LogModule module;
    std::unique_ptr<Container> container;
    if (containerOffers)
        container = std::make_unique<DisplayContainer>(module, QStringLiteral("c"), true);
    else
        container = std::make_unique<Container>(module, QStringLiteral("c"), true);
    Ordinary a(module, QStringLiteral("a"), true);
    Ordinary b(module, QStringLiteral("b"), true);
    container->append(QList<TreeNode *> {&a, &b});
    OvtTest::TreeNodeSignalRecorder recorder(container.get());

    ChangeDisplayElementData change(2);
    ElementData plain;
    ElementData *data = record == QLatin1String("change")
        ? &change
        : (record == QLatin1String("plain") ? &plain : nullptr);
    Element *element = target == QLatin1String("c") ? static_cast<Element *>(container.get()) : &a;
    element->performOperation(ChangeDisplayOperation, data, 0);

    const QStringList seen = QStringList {QString::number(container->displayChildrenVariant()),
                                          QString::number(a.displayChildrenVariant()),
                                          QString::number(b.displayChildrenVariant())}
        + recorder.recorded();
    QCOMPARE(seen.join(QLatin1Char(' ')), expected);
    QCOMPARE(module.log, QStringList());
    QCOMPARE(a.displayChildrenVariants(), container->displayChildrenVariants());
}

void tst_ElementKinds::supplementLoginMixinFlags_data()
{
    QTest::addColumn<QString>("parent");
    QTest::addColumn<int>("expected");

    QTest::newRow("under a login stays shown") << "login" << 0x2;
    QTest::newRow("under a login whose record says false is hidden") << "login false" << 0x3;
    QTest::newRow("under an element whose record lacks isLogin is hidden") << "service" << 0x3;
    QTest::newRow("under an element without record keeps its flags") << "ordinary" << 0x2;
    QTest::newRow("under a node that is no element keeps its flags") << "root" << 0x2;
    QTest::newRow("without parent keeps its flags") << "none" << 0x2;
}

void tst_ElementKinds::supplementLoginMixinFlags()
{
    QFETCH(QString, parent);
    QFETCH(int, expected);

    LogModule module;
    LoginSupplement supplement(module);
    Login login(module, QStringLiteral("login"), true);
    login.elementData()->insert(QStringLiteral("isLogin"), parent == QLatin1String("login"));
    Service service(module, QStringLiteral("service"), true);
    Ordinary ordinary(module, QStringLiteral("ordinary"), true);
    ElementRootTreeNode root;
    if (parent.startsWith(QLatin1String("login")))
        login.append(&supplement);
    else if (parent == QLatin1String("service"))
        service.append(&supplement);
    else if (parent == QLatin1String("ordinary"))
        ordinary.append(&supplement);
    else if (parent == QLatin1String("root"))
        root.append(&supplement);

    QCOMPARE(supplement.treeNodeSpecialFlags(), expected);
    QCOMPARE(SupplementLoginMixin(nullptr).treeNodeSpecialFlags(0x4), 0x4);
    // The kind alone marks itself as supplement.
    QCOMPARE(supplement.Supplement::treeNodeSpecialFlags(), 0x1);
}

void tst_ElementKinds::serviceIcon_data()
{
    QTest::addColumn<QString>("record");
    QTest::addColumn<bool>("state");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("icon");

    QTest::newRow("state never read: empty icon even when running")
        << "service" << true << QString() << QString();
    QTest::newRow("running") << "service" << true << "started"
                             << "media-playback-start";
    QTest::newRow("own text still decides by state") << "service" << false << "masked"
                                                     << "media-playback-stop";
    QTest::newRow("a record that is no service record: empty icon")
        << "plain" << true << "started" << QString();
    QTest::newRow("no record: empty icon") << "none" << true << "started" << QString();
}

void tst_ElementKinds::serviceIcon()
{
    QFETCH(QString, record);
    QFETCH(bool, state);
    QFETCH(QString, text);
    QFETCH(QString, icon);

    LogModule module;
    Service service(module, QStringLiteral("sshd"), true);
    if (record == QLatin1String("service")) {
        auto *light = static_cast<ServiceLightElementData *>(service.elementData());
        light->setState(state, text);
        if (text.isEmpty()) // setState fills in a text of its own
            *light = ServiceLightElementData();
    } else {
        delete service.elementData();
        service.setElementData(record == QLatin1String("plain") ? new ElementData : nullptr);
    }

    QCOMPARE(service.data(0, Qt::DecorationRole).value<QIcon>().name(), icon);
}

void tst_ElementKinds::loginRecordStartsEmpty()
{
    LogModule module;
    Login login(module, QStringLiteral("alice"), true);
    QCOMPARE(*login.elementData(),
             (ElementData::QMap {{QStringLiteral("user"), QString()},
                                 {QStringLiteral("isLogin"), false}}));
}

QTEST_MAIN(tst_ElementKinds)

#include "tst_elementkinds.moc"
