// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "element/containerelement.h"
#include "element/elementdata.h"
#include "plugin/acceptormodule.h"
#include "plugin/moduleroottreenode.h"
#include "plugin/supplementmodule.h"
#include "treestring.h"
#include "widgets/listelementwidget.h"
#include "widgets/vieweditelementwidget.h"

#include <QtTest>

using namespace OvtTest;

namespace {

QStringList told; // what recording modules were told, in order

struct RecordingModule : Module
{
    using Module::Module;
    void performOperation(ContextOperation *context, OperationType type, ElementData *data,
                          int flags) override
    {
        told << QStringList {id(), context ? context->elementContext()->id() : "-",
                             QString::number(type, 16), data->name(), QString::number(flags)}
                    .join(':');
    }
};

template<class Base = Element> struct TypedElement : Base
{
    TypedElement(Module &module, const QString &type, const QString &id)
        : Base(module, &Module::defaultTrue)
    {
        this->_elementType = type;
        this->_id = id;
    }
    QString caption() const override { return this->id(); }
};
using Folder = TypedElement<ContainerElement>;

struct TypedWidget : ViewEditElementWidget
{
    TypedWidget(const QString &type, Module &module)
        : ViewEditElementWidget(module, &Module::defaultTrue)
    {
        _elementType = type;
    }
    // Plug-ins override the first slot of each pair; the second must reach the override too.
    void afterSuccessfulUpdate() override { ++updates; }
    bool isContentValid() const override { return valid; }
    int updates = 0;
    bool valid = true;
};

} // namespace

class tst_Module : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QCoreApplication::setOrganizationName("ovt-tests");
        QCoreApplication::setApplicationName("tst_module");
    }

    void paranoidCheckBoxIsSaved()
    {
        // A module's box starts checked; unchecking shows, and is saved when the module goes and
        // found again by a new module of that id.
        QSettings().clear();
        {
            Module module("a", nullptr, true);
            QVERIFY(module.setData(1, Qt::Unchecked, Qt::CheckStateRole));
            QCOMPARE(module.data(1, Qt::CheckStateRole), QVariant(false));
        }
        QCOMPARE(Module("a", nullptr, true).getData("paranoid"), QVariant(false));
    }

    void permissionPredicates_data()
    {
        // Where true is set: on the tested child's parent (as a string too), on the parent and
        // false on the child, or on a module above a plain node above the parent.
        table();
        row("inherited", "parent; 1");
        row("the string true is not enough", "string;");
        row("the child's own value wins", "child;");
        row("the search stops at a non-module", "top;");
    }

    void permissionPredicates()
    {
        const auto [where, expected] = fields<2>();
        for (const QString key : {"administrator", "macAdministrator"}) {
            Module top("top", nullptr, false), parent("p", nullptr, false),
                child("c", nullptr, false);
            TreeNode between;
            top.append(&between), between.append(&parent), parent.append(&child);
            (where == "top" ? top : parent)
                .moduleData()
                ->insert(key, where == "string" ? QVariant("true") : QVariant(true));
            if (where == "child")
                child.moduleData()->insert(key, false);

            QCOMPARE(Module::isAdministratorHierarchy(child), !expected.isEmpty() && key[0] == 'a');
            QCOMPARE(Module::isMacAdministratorHierarchy(child),
                     !expected.isEmpty() && key[0] == 'm');
        }
    }

    void elementWidgets()
    {
        Module module("m", nullptr, false);
        auto *form = new TypedWidget("user", module);
        TypedWidget second("user", module);
        TypedWidget undefined(ContextOperation::undefinedElementType, module);
        auto *list = new ListElementWidget("group", module, nullptr);
        for (ElementWidget *widget :
             std::initializer_list<ElementWidget *> {nullptr, form, &second, &undefined, list})
            module.insertElementWidget(widget);
        QCOMPARE(module.elementWidget("user"), form);
        QCOMPARE(module.elementWidget(ContextOperation::undefinedElementType), nullptr);

        QList<int> log;
        connect(&module, &Module::contentElementWidgetChanged, [&](int state) { log << state; });
        connect(&module, &Module::customContextMenuRequested, [&](QPoint p) { log << p.x(); });
        module.connectElementWidgets();
        module.connectElementWidgets(); // a second call must not double the relays
        form->changeContent();
        form->valid = false, form->changeContent();
        emit list->customContextMenuRequested(QPoint(7, 0));
        QCOMPARE(log, QList<int>({3, 2, 7})); // content states, then the menu's x
        ViewEditElementWidget *base = form;
        base->afterSuccessfulUpdate();
        qAsConst(*base).afterSuccessfulUpdate();
        QCOMPARE(form->updates, 2);
        QVERIFY(!base->isContentValid() && !qAsConst(*base).isContentValid());

        // A widget that its view deleted first is forgotten, not deleted again.
        delete list;
        QCOMPARE(module.elementWidget("group"), nullptr);
    }

    void performOperationRouting()
    {
        // A module passes everything on to each sub-module in order, arguments unchanged; a
        // supplement only the insertion of an element of its type, and only to its donor.
        RecordingModule donor("users", nullptr, true), b("b", nullptr, true);
        Module module("m", nullptr, true);
        SupplementModule supplement("s", 2, "users", "", "login", &donor, nullptr);
        TreeNode plain;
        module.append({&b, &plain, &supplement});
        TypedElement<> login(module, "login", "postmaster"), mailbox(module, "mailbox", "box");
        ElementData data;
        data.setName("x");
        for (ContextOperation *context :
             std::initializer_list<ContextOperation *> {&login, &mailbox, nullptr})
            for (OperationType type : {InsertedOperation, RemovedOperation})
                module.performOperation(context, type, &data, 7);
        QCOMPARE(told.join(' '),
                 "b:postmaster:1:x:7 users:postmaster:1:x:7 b:postmaster:2:x:7 "
                 "b:box:1:x:7 b:box:2:x:7 b:-:1:x:7 b:-:2:x:7");
        module.clear();
    }

    void destructionDeletesChildrenAndWidgets()
    {
        auto *module = new Module("gone", nullptr, true);
        QPointer<QObject> child = new TreeNode(module);
        // A child whose destruction takes a later sibling with it, as an element may its records.
        auto *taking = new QObject(module);
        QPointer<QObject> taken = new QObject(module);
        connect(taking, &QObject::destroyed, [taken] { delete taken.data(); });
        QPointer<TypedWidget> widget = new TypedWidget("user", *module);
        module->insertElementWidget(widget);
        module->elementNodes() << static_cast<TreeNode *>(child.data());
        delete module;
        QVERIFY(child.isNull() && taken.isNull() && widget.isNull());
    }

    void resetEmptiesContainersListedWithTheirContents()
    {
        // Given the module lists containers and, after them, a container another one holds
        Module module("m", nullptr, false);
        auto *outer = new Folder(module, "", "outer"), *inner = new Folder(module, "", "inner");
        auto *leaf = new TypedElement<>(module, "login", "leaf");
        auto *other = new Folder(module, "", "other");
        outer->append(inner);
        inner->append(leaf);
        other->append(new TypedElement<>(module, "login", "x"));
        module.elementNodes() << outer << inner << leaf << other;
        other->fetchMore();

        // When they are reset, each is emptied once and what that freed leaves the list
        module.resetConteinerElement();
        QStringList ids;
        for (TreeNode *node : module.elementNodes())
            ids << node->id() + QString::number(node->childNodesCount())
                    + (node->canFetchMore() ? "?" : "");
        QCOMPARE(ids.join(' '), QString("outer0? leaf0 other0?"));
        // An acceptor module below finds its donor's elements there, but nothing freed
        AcceptorModule acceptor("mail", 2, "m", QString(), nullptr);
        module.append(&acceptor);
        QCOMPARE(acceptor.elementFromDonor("leaf"), leaf);
        QCOMPARE(acceptor.elementFromDonor("inner"), nullptr);
        module.removeOne(&acceptor);
        // Directly under the module root there is no donor
        ModuleRootTreeNode root;
        root.append(&acceptor);
        QCOMPARE(acceptor.elementFromDonor("leaf"), nullptr);
        root.removeOne(&acceptor);
    }
};

QTEST_MAIN(tst_Module)
#include "tst_module.moc"
