// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "element/element.h"
#include "element/servicelightelementdata.h"
#include "plugin/module.h"
#include "signalrecorder.h"
#include "task/controlservicetask.h"
#include "task/createtask.h"
#include "task/deletetask.h"
#include "task/dummytask.h"
#include "task/exportwidgettask.h"
#include "task/importtask.h"
#include "task/printwidgettask.h"
#include "task/readcontenttask.h"
#include "task/readpropertylightservicetask.h"
#include "task/reloadservicetask.h"
#include "task/restartservicetask.h"
#include "task/startservicetask.h"
#include "task/stoppabledummytask.h"
#include "task/stopservicetask.h"
#include "task/taskobserver.h"
#include "task/taskobservermodel.h"
#include "task/updatetask.h"
#include "testtasks.h"
#include "treestring.h"
#include "widgets/previewdialog.h"
#include "widgets/vieweditelementwidget.h"

#include <QTemporaryDir>
#include <QtTest>

using namespace OvtTest;

namespace {

QStringList fixtureLog; // what the fixtures did, in order

class Item : public Element
{
public:
    Item(Module &module, const QString &title, ElementData *data = new ElementData)
        : Element(module, &Module::defaultTrue)
    {
        _elementType = QStringLiteral("item");
        setTitle(title);
        setElementData(data);
    }
    OperationType availableOperations() const override { return OperationType(~0ull); }
    void performOperation(OperationType operation, ElementData *data, int alternative) override
    {
        module().performOperation(this, operation, data, alternative);
    }
    QString caption() const override { return title(); }
};

TaskDescription::TaskStatus outcome = TaskDescription::Success; // of the next scripted task

// A kind as plug-ins derive it; a user given to a ServiceTask puts the command word last.
template<class Kind> class Fixture : public Kind
{
public:
    template<class... Args>
    Fixture(ElementData *data, Args... args) // scripted: it ends at once
        : Kind(args...)
    {
        this->_elementData = data;
        this->_taskDescription.setStatus(std::exchange(outcome, TaskDescription::Success));
    }
    Fixture(Element *element, const QString &program, const QStringList &arguments,
            const QString &user)
        : Kind(element)
    {
        this->_program = program;
        this->_arguments = arguments;
        if constexpr (std::is_same_v<Kind, ControlServiceTask>)
            this->_user = user;
        else
            this->_commandFirst = user.isEmpty();
    }
    static AbstractTask *make(Element *e, const QString &program, const QStringList &arguments,
                              const QString &user)
    {
        return new Fixture(e, program, arguments, user);
    }
};

// Logs each operation as "name(data name)"; the kind of its type, if any, makes its task.
class FixtureModule : public Module
{
public:
    explicit FixtureModule(const QString &paranoid)
        : Module(QStringLiteral("fixture"), nullptr, false)
    {
        setData(1, paranoid == "on" ? Qt::Checked : Qt::Unchecked, Qt::CheckStateRole);
        if (paranoid == "-")
            _moduleData->remove(QStringLiteral("paranoid"));
    }
    void performOperation(ContextOperation *context, OperationType type, ElementData *data,
                          int) override
    {
        static const QStringList names {"inserted",  "removed", "create", "readContent",
                                        "readLight", "read",    "update", "delete"};
        fixtureLog << names.value(qCountTrailingZeroBits(quint64(type)), "op") + "("
                + (data ? data->name() : "null") + ")";
        if (const auto kind = kinds.value(type))
            TaskObserver::instance()->performTask(kind(context->elementContext(), data));
        else
            delete data;
    }

    QMap<quint64, std::function<AbstractTask *(Element *, ElementData *)>> kinds;
};

} // namespace

// Task kinds built by a module, run by the observer and a pool, logged in order with outcomes.
class tst_TaskKinds : public QObject
{
    Q_OBJECT

    QTemporaryDir _dir;
    Pool _pool {2};
    ModelTesterGuard _tester {TaskObserver::instance()->model()};

    QString calls() const // how the fixture programs were called
    {
        QFile file(_dir.filePath("argv"));
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
    }

private slots:
    void initTestCase()
    {
        QCoreApplication::setOrganizationName(QStringLiteral("ovt-tests"));
        QCoreApplication::setApplicationName(QStringLiteral("tst_taskkinds"));
        qputenv("OVT_FIXTURE_LOG", QFile::encodeName(_dir.filePath("argv")));
        qputenv("PATH", OVT_FIXTURES "/bin:" + qgetenv("PATH")); // the fixture runuser
        Ledger probe(1);
        QVERIFY(Pool::open(new Task(&probe, 0)));
        QTRY_COMPARE(probe.deletions(), 1);
        connect(TaskObserver::instance()->model(), &QAbstractItemModel::dataChanged, this,
                [](const QModelIndex &index) {
                    const QString message = index.siblingAtColumn(2).data().toString();
                    fixtureLog << index.siblingAtColumn(1).data().toString()
                            + (message.isEmpty() ? "" : "(" + message + ")");
                });
    }

    void init()
    {
        fixtureLog.clear();
        QFile::remove(_dir.filePath("argv"));
    }

    void elementTasks_data()
    {
        // operation (on box, from 40 on its child a); paranoid (on, off, - absent); outcome; log
        table();
        row("create on", "4;on;ok;create(b) success readContent(b) success setCurrent(item_b)");
        row("create on failed", "4;on;fail;create(b) fail readContent(null) success");
        row("create off", "4;off;ok;create(b) success");
        row("readContent absent", "8;-;ok;readContent(b) success");
        row("update absent", "40;-;ok;update(b) success read(null)");
        row("update on failed", "40;on;fail;update(b) fail read(null)");
        row("update off", "40;off;ok;update(b) success");
        row("delete on", "80;on;ok;delete(b) success setCurrent(item_box)");
        row("delete off",
            "80;off;ok;delete(b) success removed(null) setCurrent(item_box) "
            "aboutToBeRemoved(item_box,0,0) removed");
        row("delete failed", "80;off;fail;delete(b) fail");
        row("import", "100000;off;ok;op(b) success changed");
        row("import failed", "100000;off;fail;op(b) fail");
        row("export", "200000;off;ok;op(b) success Export");
        row("export failed", "200000;off;fail;op(b) fail");
    }

    void elementTasks()
    {
        const auto [operation, paranoid, outcome, expected] = fields<4>();
        FixtureModule module(paranoid);
        auto *box = new Item(module, QStringLiteral("box"));
        ViewEditElementWidget f(module, &Module::defaultTrue); // the form of import and export
        connect(&f, &ViewEditElementWidget::contentChanged, [](int) { fixtureLog << "changed"; });
        QTimer closer; // closes the box of a finished export, logging its title
        connect(&closer, &QTimer::timeout, [] {
            if (auto *w = qApp->activeModalWidget(); w && w->inherits("QMessageBox") && w->close())
                fixtureLog << w->windowTitle();
        });
        closer.start(20);
        auto &kinds = module.kinds;
        kinds.insert(4, [](auto e, auto d) { return new Fixture<CreateTask>(d, e, nullptr); });
        kinds.insert(8, [](auto e, auto d) { return new Fixture<ReadContentTask>(d, e); });
        kinds.insert(0x40, [](auto e, auto d) { return new Fixture<UpdateTask>(d, e, nullptr); });
        kinds.insert(0x80, [](auto e, auto d) { return new Fixture<DeleteTask>(d, e); });
        kinds.insert(0x100000,
                     [&](auto, auto d) { return new Fixture<ImportTask>(d, &f, nullptr); });
        kinds.insert(0x200000,
                     [&](auto, auto d) { return new Fixture<ExportWidgetTask>(d, &f, nullptr); });
        box->append({new Item(module, QStringLiteral("a")), new Item(module, QStringLiteral("b"))});
        ::outcome = outcome == "ok" ? TaskDescription::Success : TaskDescription::Fail;
        fixtureLog.clear();
        SignalRecorder recorder(box);
        auto *data = new ElementData;
        data->setName("b");
        auto *e = static_cast<Element *>(operation.size() < 2 ? box : box->childNodes().at(0));
        e->performOperation(OperationType(operation.toULongLong(nullptr, 16)), data, 0);
        QTRY_COMPARE((fixtureLog + recorder.log).join(' '), expected);
    }

    void serviceTasks_data()
    {
        // kind; paranoid; element data (light, running, or plain); arguments; log | state | calls
        table();
        row("status 0", "status;off;light;code=0;success | started | [status][code=0]");
        row("status 3",
            "status;off;light;code=3,err=x;success | stopped | [status][code=3][err=x]");
        row("start plain", "start;off;plain;a b;success | true | [start][a b]");
        row("start light", "start;off;light;;success | started | [start]");
        row("stop failed",
            "stop;off;light;code=1,err=unit busy;fail(Process: \"$P stop code=1 err=unit"
            " busy\". Exit code: 1.\n\"unit busy\") | running | [stop][code=1][err=unit busy]");
        row("start paranoid", "start;on;plain;;success read(null) | - | [start]");
        row("restart failed",
            "restart;off;light;code=2;fail(Process: \"$P restart code=2\". Exit code:"
            " 2.\n\"\") read(null) | running | [restart][code=2]");
        row("reload command last",
            "reload-last;off;light;-q,u;success | running | [-q][u][reload]");
        row("control", "control;off;light;a b,$(id);success | running | [a b][$(id)]");
        row("control runuser",
            "control-nobody;off;light;a b;success | running | runuser[-u][nobody][$P][a b]");
    }

    void serviceTasks()
    {
        auto [kind, paranoid, data, argumentList, expected] = fields<5>();
        const QStringList arguments = argumentList.split(',', Qt::SkipEmptyParts);
        const QString program = OVT_FIXTURES "/service";
        expected.replace("$P", program);

        FixtureModule module(paranoid);
        auto *light = new ServiceLightElementData;
        light->setState(true, QStringLiteral("running"));
        Element *element = new Item(module, "svc", data == "light" ? light : new ElementData);
        if (data != "light")
            delete std::exchange(light, nullptr);
        const QMap<QString, decltype(&Fixture<StartServiceTask>::make)> kinds {
            {"status", Fixture<ReadPropertyLightServiceTask>::make},
            {"start", Fixture<StartServiceTask>::make},
            {"stop", Fixture<StopServiceTask>::make},
            {"restart", Fixture<RestartServiceTask>::make},
            {"reload", Fixture<ReloadServiceTask>::make},
            {"control", Fixture<ControlServiceTask>::make}};
        const QString user = kind.endsWith("nobody") ? "nobody" : kind.endsWith("last") ? "x" : "";
        module.kinds[0x100000] = [&](Element *e, ElementData *) { // re-reads: no task
            return kinds[kind.section('-', 0, 0)](e, program, arguments, user);
        };
        element->performOperation(OperationType(0x100000), nullptr, 0);
        fixtureLog.removeFirst(); // the operation itself
        QTRY_COMPARE(
            (fixtureLog.join(' ') + " | "
             + (light ? light->textState() : element->elementData()->value("state", "-").toString())
             + " | " + calls())
                .trimmed(),
            expected);
    }

    void dummyTasks()
    {
        if (qEnvironmentVariableIsEmpty("OVT_DUMMY_TASKS"))
            QSKIP("5 s bodies: run apart, as the CTest entry tst_dummytasks");
        TaskObserver::instance()->performTask(new StoppableDummyTask(nullptr));
        TaskObserver::instance()->performTask(new DummyTask(nullptr, true));
        TaskObserver::instance()->performTask(new DummyTask(nullptr, false));
        const QModelIndex stoppable = TaskObserver::instance()->model()->index(0, 1);
        QVERIFY(TaskObserver::instance()->model()->setData(stoppable, 4, Qt::EditRole));
        QTRY_COMPARE_WITH_TIMEOUT(fixtureLog.size(), 4, 30000); // well before 10 passes (50 s)
        fixtureLog.sort();
        QCOMPARE(fixtureLog.join(' '),
                 "about to be stop fail(ERROR!!!\nERROR!!!\nERROR!!!\nERROR!!!\n) "
                 "fail(Terminate by user) success");
    }

    void printAndExport_data()
    {
        table(); // style sheet; what stands at the export path (nothing: no export); log
        row("XSLT 2.0, export", "report.xsl;file;success success");
        row("link at path",
            "report.xsl;link;success fail(\"$D\" error 5\nToo many levels of symbolic links)");
        row("broken style sheet", "broken.xsl;;fail(Internal error: XML transformation failed)");
    }

    void printAndExport()
    {
        auto [styleSheet, exportTo, expected] = fields<3>();
        const QString path = _dir.filePath(QTest::currentDataTag());
        QVERIFY(exportTo != "directory" || QDir().mkpath(path));
        QFile victim(path + ".victim");
        QVERIFY(exportTo != "link" || (victim.open(QIODevice::WriteOnly) && victim.link(path)));
        expected.replace("$D", path);

        QFile xml(OVT_FIXTURES "/accounts.xml");
        QVERIFY(xml.open(QIODevice::ReadOnly));
        auto *data = new ElementData;
        data->insert(QStringLiteral("xmlText"), QString::fromUtf8(xml.readAll()));
        if (!styleSheet.isEmpty())
            data->insert(QStringLiteral("templateName"), OVT_FIXTURES "/" + styleSheet);
        FixtureModule module("off");
        ViewEditElementWidget form(module, &Module::defaultTrue); // what the print shows
        TaskObserver::instance()->performTask(new PrintWidgetTask(&form, data));
        if (!exportTo.isEmpty()) {
            QTRY_COMPARE(fixtureLog.size(), 1); // the preview shows this document now
            PreviewDialog::instance()->exportTo(path);
        }
        QTRY_COMPARE(fixtureLog.join(' '), expected);
        QCOMPARE(victim.size(), 0);
        if (exportTo != "file")
            return;
        const QString html = PreviewDialog::instance()->html();
        QVERIFY(html.contains("<td>БОРИС</td>") && html.contains("Accounts: alice, bob, Борис"));
        QFile written(path);
        QVERIFY(written.open(QIODevice::ReadOnly));
        QCOMPARE(QString::fromUtf8(written.readAll()), html);
        PreviewDialog::instance()->resize(720, 420); // its picture stays in the build tree
        QVERIFY(PreviewDialog::instance()->grab().save(OVT_PREVIEW_PNG));
    }
};

QTEST_MAIN(tst_TaskKinds)
#include "tst_taskkinds.moc"
