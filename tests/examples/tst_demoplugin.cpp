#include "element/elementcontainer.h"
#include "element/elementdata.h"
#include "element/loginelement.h"
#include "plugin/plugincontainer.h"
#include "task/taskobserver.h"
#include "task/thread.h"
#include "treenode/treenode.h"

#include <QtTest>

// The demo plug-in loaded the way the demo tool loads it, with a running worker pool.
class TestDemoPlugin : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        for (int i = 0; i < 2; ++i) {
            _workers << new Thread;
            _workers.last()->start();
        }
        TaskObserver::instance(this);
    }

    void cleanupTestCase() { qDeleteAll(_workers); }

    void usersAreReadOnExpansion()
    {
        PluginContainer plugins;
        ElementContainer elements;
        connect(&plugins, &NodeContainer::nodeContainerReset, &elements,
                &ElementContainer::pluginContainerReset);
        // One row change per finished task: the services' states, then the accounts.
        QSignalSpy finished(TaskObserver::instance(), &TaskObserver::taskDataChanged);
        plugins.loadPlugins(QStringLiteral(OVT_DEMO_PLUGIN_DIR));
        QCOMPARE(plugins.modules().size(), 2);

        TreeNode *users = nullptr;
        for (TreeNode *node : elements.rootNode()->childNodes()) {
            if (node->id() == QLatin1String("Users"))
                users = node;
        }
        QVERIFY(users);
        // Nothing is read before the user opens the folder.
        QCOMPARE(users->childNodesCount(), 0);
        QVERIFY(users->canFetchMore());
        users->fetchMore();

        QTRY_VERIFY(users->childNodesCount() > 0);
        LoginElement *root = nullptr;
        for (TreeNode *node : users->childNodes()) {
            if (auto *login = qobject_cast<LoginElement *>(node);
                login && login->elementData()->value(QStringLiteral("user")) == "root")
                root = login;
        }
        QVERIFY(root);
        QCOMPARE(root->title(), QStringLiteral("root"));
        QVERIFY(root->elementData()->contains(QStringLiteral("isLogin")));
        // The task code lives in the plug-in: both tasks end before it is unloaded.
        QTRY_COMPARE(finished.count(), 2);
    }

private:
    QList<Thread *> _workers;
};

QTEST_MAIN(TestDemoPlugin)
#include "tst_demoplugin.moc"
