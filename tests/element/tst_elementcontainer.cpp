#include "element/containerelement.h"
#include "element/element.h"
#include "element/elementcontainer.h"
#include "element/elementmodel.h"
#include "element/elementroottreenode.h"
#include "element/elementsortfilterproxymodel.h"
#include "element/groupinvisibleelementsortfilterproxymodel.h"
#include "element/selectableelementsortfilterproxymodel.h"
#include "element/serviceelement.h"
#include "plugin/module.h"
#include "plugin/plugincontainer.h"
#include "treestring.h"

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QSignalSpy>
#include <QTest>

#include <memory>

namespace {

const QString fixtureDir = QStringLiteral(OVT_ELEMENT_FIXTURE_PLUGINS);

QStringList fixtureLog()
{
    return qApp->property("elementFixtureLog").toStringList();
}

void clearFixtureLog()
{
    qApp->setProperty("elementFixtureLog", QStringList());
}

// The entries of one operation only, so that a case reads the sequence it is about.
QStringList logOf(const QString &operation)
{
    return fixtureLog().filter(QLatin1Char(':') + operation + QLatin1Char(':'));
}

Module *moduleNamed(const PluginContainer &plugins, const QString &name)
{
    for (Module *module : plugins.modules()) {
        if (module->id() == name)
            return module;
    }
    return nullptr;
}

Element *elementTitled(const TreeNode *root, const QString &title)
{
    const QList<TreeNode *> nodes = root->allChildNodes();
    for (TreeNode *node : nodes) {
        auto *element = qobject_cast<Element *>(node);
        if (element && element->title() == title)
            return element;
    }
    return nullptr;
}

// Counts how often rows are judged, to tell whether the filter ran anew.
class CountingGroupProxy : public GroupInvisibleElementSortFilterProxyModel
{
public:
    using GroupInvisibleElementSortFilterProxyModel::GroupInvisibleElementSortFilterProxyModel;
    mutable int judged = 0;

protected:
    bool filterAcceptsRow(int sourceRow, const QModelIndex &sourceParent) const override
    {
        ++judged;
        return GroupInvisibleElementSortFilterProxyModel::filterAcceptsRow(sourceRow, sourceParent);
    }
};

} // namespace

class tst_ElementContainer : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void rebuildsTreeFromAllModules();
    void readsLightOnlyTopLevelElementsThatOfferIt();
    void routesSupplementedLoginsToTheDonor();
    void proxiesShowTheirPartOfTheTree_data();
    void proxiesShowTheirPartOfTheTree();
    void nullRootResetsModelButKeepsElements();
    void repeatedResetGivesTheSameTree();
    void groupProxyFollowsChangesUnderneath();
    void forwardsCurrentAndExpandRequests();
    void unloadingRemovesElementsFromTheTree();

private:
    std::unique_ptr<PluginContainer> _plugins;
    std::unique_ptr<ElementContainer> _elements;
    ElementSortFilterProxyModel *_visibleProxy = nullptr;
    CountingGroupProxy *_groupProxy = nullptr;
    SelectableElementSortFilterProxyModel *_selectableProxy = nullptr;
};

void tst_ElementContainer::initTestCase()
{
    QCoreApplication::setOrganizationName(QStringLiteral("ovt-tests"));
    QCoreApplication::setApplicationName(QStringLiteral("tst_elementcontainer"));
}

void tst_ElementContainer::init()
{
    clearFixtureLog();
    _plugins = std::make_unique<PluginContainer>();
    _elements = std::make_unique<ElementContainer>();
    connect(_plugins.get(), &NodeContainer::nodeContainerReset, _elements.get(),
            &ElementContainer::pluginContainerReset);

    TreeNodeModel *model = _elements->treeNodeModel();
    _visibleProxy = new ElementSortFilterProxyModel(0x1, _elements.get());
    _groupProxy = new CountingGroupProxy(_elements.get());
    _selectableProxy = new SelectableElementSortFilterProxyModel(_elements.get());
    // Element trees have one column, so the model's rule that rowCount ignores the parent's
    // column never meets the tester's expectation of childless cells beyond column 0.
    new QAbstractItemModelTester(model, QAbstractItemModelTester::FailureReportingMode::Fatal,
                                 _elements.get());
    for (QSortFilterProxyModel *proxy : {static_cast<QSortFilterProxyModel *>(_visibleProxy),
                                         static_cast<QSortFilterProxyModel *>(_groupProxy),
                                         static_cast<QSortFilterProxyModel *>(_selectableProxy)}) {
        proxy->setSourceModel(model);
        new QAbstractItemModelTester(proxy, QAbstractItemModelTester::FailureReportingMode::Fatal,
                                     _elements.get());
    }

    _plugins->loadPlugins(fixtureDir);
    QCOMPARE(_plugins->modules().size(), 3);
}

void tst_ElementContainer::cleanup()
{
    _elements.reset();
    _plugins.reset();
}

void tst_ElementContainer::rebuildsTreeFromAllModules()
{
    // The testers walked the tree after the reset, as a view does, and so read "Users".
    QCOMPARE(OvtTest::treeToString(_elements->rootNode()),
             QStringLiteral("[Mail[aliases[spool] postmaster[quota]] Services[cron] "
                            "Users[login_alice login_bob] root[mailbox] sshd]"));
    QCOMPARE(OvtTest::modelToString(_elements->treeNodeModel()),
             QStringLiteral("[Mail[aliases[spool] postmaster[quota]] Services[cron] "
                            "Users[alice bob] root[mailbox] sshd]"));
}

void tst_ElementContainer::readsLightOnlyTopLevelElementsThatOfferIt()
{
    // "cron" offers it too, but stands below a container.
    QCOMPARE(logOf(QStringLiteral("readLight")),
             QStringList {QStringLiteral("services:readLight:sshd")});
    Element *sshd = elementTitled(_elements->rootNode(), QStringLiteral("sshd"));
    QVERIFY(sshd);
    const QModelIndex index = _elements->treeNodeModel()->treeNodeToIndex(sshd);
    QCOMPARE(index.data(Qt::DecorationRole).value<QIcon>().cacheKey(),
             ServiceElement::startIcon().cacheKey());
}

void tst_ElementContainer::routesSupplementedLoginsToTheDonor()
{
    // Only the supplement's login reaches the donor; its container, alias and mailboxes stay
    // with the mail module, and the donor's own logins never pass through the supplement.
    QCOMPARE(logOf(QStringLiteral("inserted")).join(' '),
             QStringLiteral("mail:inserted:Mail services:inserted:Services users:inserted:Users "
                            "users:inserted:root services:inserted:sshd mail:inserted:aliases "
                            "services:inserted:cron mail:inserted:mailbox "
                            "mail:inserted:postmaster users:inserted:postmaster "
                            "mail:inserted:quota mail:inserted:spool users:inserted:alice "
                            "users:inserted:bob"));
}

void tst_ElementContainer::proxiesShowTheirPartOfTheTree_data()
{
    QTest::addColumn<QString>("proxy");
    QTest::addColumn<QString>("setting");
    QTest::addColumn<QString>("expected");

    QTest::newRow("element proxy hides supplements, mailbox under a login stays")
        << "visible" << QString()
        << "[Mail[aliases postmaster] Services[cron] Users[alice bob] root[mailbox] sshd]";
    QTest::newRow("group proxy with Undefined shows what the element proxy shows")
        << "group"
        << "Undefined"
        << "[Mail[aliases postmaster] Services[cron] Users[alice bob] root[mailbox] sshd]";
    QTest::newRow("group proxy narrows to accounts, children inherit the group")
        << "group"
        << "accounts"
        << "[Users[alice bob] root[mailbox]]";
    QTest::newRow("group proxy narrows to services across containers") << "group"
                                                                       << "services"
                                                                       << "[Services[cron] sshd]";
    QTest::newRow("selectable proxy keeps selectable nodes under selectable parents")
        << "selectable" << QString() << "[Users[alice bob] root[mailbox]]";
    QTest::newRow("selectable proxy shows ids as display text")
        << "selectable"
        << "258"
        << "[Users[login_alice login_bob] root[mailbox]]";
}

void tst_ElementContainer::proxiesShowTheirPartOfTheTree()
{
    QFETCH(QString, proxy);
    QFETCH(QString, setting);
    QFETCH(QString, expected);

    QAbstractItemModel *model = _visibleProxy;
    if (proxy == QLatin1String("group")) {
        _groupProxy->setGroupElementType(setting);
        model = _groupProxy;
    } else if (proxy == QLatin1String("selectable")) {
        if (!setting.isEmpty())
            _selectableProxy->setSelectionDisplayRole(setting.toInt());
        model = _selectableProxy;
    }
    QCOMPARE(OvtTest::modelToString(model), expected);
}

void tst_ElementContainer::nullRootResetsModelButKeepsElements()
{
    QSignalSpy reset(_elements->treeNodeModel(), &QAbstractItemModel::modelReset);
    const QString before = OvtTest::treeToString(_elements->rootNode());
    clearFixtureLog();

    _elements->pluginContainerReset(nullptr);

    QCOMPARE(reset.count(), 1);
    QCOMPARE(OvtTest::treeToString(_elements->rootNode()), before);
    QCOMPARE(fixtureLog(), QStringList());
}

void tst_ElementContainer::repeatedResetGivesTheSameTree()
{
    // Given the tree as loaded, with the lazily read logins below "Users"
    const TreeNode *pluginRoot = _plugins->rootNode();
    clearFixtureLog();
    QSignalSpy reset(_elements->treeNodeModel(), &QAbstractItemModel::modelReset);
    QSignalSpy inserted(_elements->treeNodeModel(), &QAbstractItemModel::rowsInserted);

    // When the same modules are gathered again
    _elements->pluginContainerReset(pluginRoot);

    // Then no node is listed twice, the lazily read children stay with their container, and
    // views saw one reset and nothing else
    QCOMPARE(OvtTest::treeToString(_elements->rootNode()),
             QStringLiteral("[Mail[aliases[spool] postmaster[quota]] Services[cron] "
                            "Users[login_alice login_bob] root[mailbox] sshd]"));
    QCOMPARE(reset.count(), 1);
    QCOMPARE(inserted.count(), 0);
    QCOMPARE(logOf(QStringLiteral("readLight")),
             QStringList {QStringLiteral("services:readLight:sshd")});
}

void tst_ElementContainer::groupProxyFollowsChangesUnderneath()
{
    _groupProxy->setGroupElementType(QStringLiteral("accounts"));
    auto *users = qobject_cast<ContainerElement *>(
        elementTitled(_elements->rootNode(), QStringLiteral("Users")));
    QVERIFY(users);

    // Re-reading the container under the proxy's eyes: children go and come back.
    Module *accounts = moduleNamed(*_plugins, QStringLiteral("users"));
    accounts->resetConteinerElement();
    QCOMPARE(OvtTest::modelToString(_groupProxy), QStringLiteral("[Users root[mailbox]]"));
    _elements->treeNodeModel()->fetchMore(_elements->treeNodeModel()->treeNodeToIndex(users));
    QCOMPARE(OvtTest::modelToString(_groupProxy),
             QStringLiteral("[Users[alice bob] root[mailbox]]"));

    // The same group again filters nothing anew unless forced.
    _groupProxy->judged = 0;
    _groupProxy->setGroupElementType(QStringLiteral("accounts"));
    QCOMPARE(_groupProxy->judged, 0);
    _groupProxy->setGroupElementType(QStringLiteral("accounts"), true);
    QVERIFY(_groupProxy->judged > 0);

    _groupProxy->setGroupElementType(QStringLiteral("mail"));
    QCOMPARE(OvtTest::modelToString(_groupProxy), QStringLiteral("[Mail[aliases postmaster]]"));
    QCOMPARE(_groupProxy->toElement(_groupProxy->index(0, 0))->title(), QStringLiteral("Mail"));
}

void tst_ElementContainer::forwardsCurrentAndExpandRequests()
{
    QStringList requests;
    connect(_elements.get(), &NodeContainer::setCurrentNode, this,
            [&](TreeNode *node) { requests << QStringLiteral("current:") + node->id(); });
    connect(_elements.get(), &NodeContainer::expandCurrentNode, this,
            [&](TreeNode *node) { requests << QStringLiteral("expand:") + node->id(); });

    elementTitled(_elements->rootNode(), QStringLiteral("alice"))->emitSetCurrentNode();
    elementTitled(_elements->rootNode(), QStringLiteral("Mail"))->emitExpandCurrentNode();

    QCOMPARE(requests,
             (QStringList {QStringLiteral("current:login_alice"), QStringLiteral("expand:Mail")}));
}

void tst_ElementContainer::unloadingRemovesElementsFromTheTree()
{
    _plugins->unloadPlugins();
    QCOMPARE(OvtTest::treeToString(_elements->rootNode()), QStringLiteral("[]"));
    QCOMPARE(OvtTest::modelToString(_groupProxy), QStringLiteral("[]"));

    _plugins->loadPlugins(fixtureDir);
    QCOMPARE(OvtTest::modelToString(_visibleProxy),
             QStringLiteral(
                 "[Mail[aliases postmaster] Services[cron] Users[alice bob] root[mailbox] sshd]"));
}

QTEST_MAIN(tst_ElementContainer)

#include "tst_elementcontainer.moc"
