// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "element/elementcontainer.h"
#include "element/elementmodel.h"
#include "element/groupinvisibleelementsortfilterproxymodel.h"
#include "element/selectableelementsortfilterproxymodel.h"
#include "element/serviceelement.h"
#include "plugin/module.h"
#include "plugin/plugincontainer.h"
#include "signalrecorder.h"

#include <QApplication>
#include <QTest>

namespace {

const QString loadedTree = QStringLiteral(
    "[Mail[aliases[spool] postmaster] Services[cron] Users[login_alice login_bob] root[mailbox] "
    "sshd]");
const QString visibleTree = QStringLiteral(
    "[Mail[aliases postmaster] Services[cron] Users[alice bob] root[mailbox] sshd]");

// The fixture plug-ins' log entries that contain @p part (":10:" for one operation), in order.
QStringList logOf(const char *part)
{
    return qApp->property("elementFixtureLog").toStringList().filter(QLatin1String(part));
}

} // namespace

class tst_ElementContainer : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QCoreApplication::setApplicationName("tst_elementcontainer"); }
    void init()
    {
        qApp->setProperty("elementFixtureLog", QStringList());
        _plugins = std::make_unique<PluginContainer>();
        _elements = std::make_unique<ElementContainer>();
        connect(_plugins.get(), &NodeContainer::nodeContainerReset, _elements.get(),
                &ElementContainer::pluginContainerReset);
        TreeNodeModel *model = _elements->treeNodeModel();
        _visible = new ElementSortFilterProxyModel(0x1, _elements.get());
        _group = new GroupInvisibleElementSortFilterProxyModel(_elements.get());
        _selectable = new SelectableElementSortFilterProxyModel(_elements.get());
        // Testers stay attached while every test rebuilds and changes the tree.
        const QList<QAbstractItemModel *> models {model, _visible, _group, _selectable};
        for (QAbstractItemModel *watched : models) {
            if (auto *proxy = qobject_cast<QSortFilterProxyModel *>(watched))
                proxy->setSourceModel(model);
            OvtTest::watch(watched);
        }
        _plugins->loadPlugins(QStringLiteral(OVT_ELEMENT_FIXTURE_PLUGINS));
        QCOMPARE(_plugins->modules().size(), 3);
    }
    void cleanup()
    {
        _elements.reset();
        _plugins.reset();
    }
    void loadedTreeAndOperations()
    {
        // The testers walked the tree after the reset, as a view does, and so read "Users".
        QCOMPARE(OvtTest::treeToString(_elements->rootNode()), loadedTree);
        // "cron" offers reading light too, but stands below a container.
        QCOMPARE(logOf(":10:"), QStringList {QStringLiteral("services:10:sshd")});
        QCOMPARE(find("sshd")->data(0, Qt::DecorationRole).value<QIcon>().cacheKey(),
                 ServiceElement::startIcon().cacheKey());
        // Only the supplement's login reaches the donor as well; the donor's own logins never
        // pass through the supplement.
        QCOMPARE(logOf(":1:").join(' '),
                 QStringLiteral("mail:1:Mail services:1:Services users:1:Users users:1:root "
                                "services:1:sshd mail:1:aliases services:1:cron mail:1:mailbox "
                                "mail:1:postmaster users:1:postmaster mail:1:spool users:1:alice "
                                "users:1:bob"));

        // Requests of elements reach whoever watches the container.
        QStringList requests;
        connect(_elements.get(), &NodeContainer::setCurrentNode, this,
                [&](TreeNode *node) { requests << "current:" + node->id(); });
        connect(_elements.get(), &NodeContainer::expandCurrentNode, this,
                [&](TreeNode *node) { requests << "expand:" + node->id(); });
        find("login_alice")->emitSetCurrentNode();
        find("Mail")->emitExpandCurrentNode();
        QCOMPARE(requests, (QStringList {"current:login_alice", "expand:Mail"}));
    }
    void proxies_data()
    {
        OvtTest::table();
        OvtTest::row("supplements hidden, mailbox under a login kept", "visible; ;" + visibleTree);
        OvtTest::row("group Undefined shows all", "group; Undefined;" + visibleTree);
        OvtTest::row("group inherited from parents",
                     "group; accounts; [Users[alice bob] root[mailbox]]");
        OvtTest::row("group across containers", "group; services; [Services[cron] sshd]");
        OvtTest::row("selectable", "selectable; ; [Users[alice bob] root[mailbox]]");
        OvtTest::row("selectable shows ids",
                     "selectable; 258; [Users[login_alice login_bob] root[mailbox]]");
    }
    void proxies()
    {
        const auto [proxy, setting, expected] = OvtTest::fields<3>();

        QAbstractItemModel *model = _visible;
        if (proxy == QLatin1String("group")) {
            _group->setGroupElementType(setting);
            model = _group;
        } else if (proxy == QLatin1String("selectable")) {
            _selectable->setSelectionDisplayRole(setting.toInt());
            model = _selectable;
        }
        QCOMPARE(OvtTest::modelToString(model), expected);
        // Views turn proxy rows back into elements.
        auto *elements = static_cast<ElementSortFilterProxyModel *>(model);
        QVERIFY(expected.startsWith('[' + elements->toElement(model->index(0, 0))->title()));
    }
    void resetsAndChanges()
    {
        OvtTest::SignalRecorder recorder(_elements->treeNodeModel());
        qApp->setProperty("elementFixtureLog", QStringList());
        // A null root resets the model only; the same modules gathered again: nothing twice,
        // lazily read children stay, one reset.
        _elements->pluginContainerReset(nullptr);
        QCOMPARE(logOf(":"), QStringList());
        _elements->pluginContainerReset(_plugins->rootNode());
        QCOMPARE(OvtTest::treeToString(_elements->rootNode()), loadedTree);
        QCOMPARE(recorder.log.filter(QRegularExpression("eset|nserted")),
                 OvtTest::words("aboutToBeReset reset aboutToBeReset reset"));
        QCOMPARE(logOf(":10:"), QStringList {QStringLiteral("services:10:sshd")});

        // A container read again under a group proxy's eyes: children go and come back.
        _group->setGroupElementType(QStringLiteral("accounts"));
        TreeNode *users = find("Users");
        qApp->setProperty("elementFixtureLog", QStringList());
        for (Module *module : _plugins->modules()) {
            if (module->id() == QLatin1String("users"))
                module->resetConteinerElement();
        }
        QCOMPARE(OvtTest::modelToString(_group), QStringLiteral("[Users root[mailbox]]"));
        QCOMPARE(logOf(":2:"), (QStringList {"users:2:alice", "users:2:bob"})); // told to modules
        _elements->treeNodeModel()->fetchMore(_elements->treeNodeModel()->treeNodeToIndex(users));
        QCOMPARE(OvtTest::modelToString(_group),
                 QStringLiteral("[Users[alice bob] root[mailbox]]"));

        // Unloading empties the tree; loading again fills it.
        _plugins->unloadPlugins();
        QCOMPARE(OvtTest::treeToString(_elements->rootNode()), QStringLiteral("[]"));
        _plugins->loadPlugins(QStringLiteral(OVT_ELEMENT_FIXTURE_PLUGINS));
        QCOMPARE(OvtTest::modelToString(_visible), visibleTree);
    }

private:
    TreeNode *find(const QString &id) const { return OvtTest::findNode(_elements->rootNode(), id); }
    std::unique_ptr<PluginContainer> _plugins;
    std::unique_ptr<ElementContainer> _elements;
    ElementSortFilterProxyModel *_visible = nullptr;
    GroupInvisibleElementSortFilterProxyModel *_group = nullptr;
    SelectableElementSortFilterProxyModel *_selectable = nullptr;
};

QTEST_MAIN(tst_ElementContainer)

#include "tst_elementcontainer.moc"
