#include "element/servicelightelementdata.h"
#include "task/createtask.h"
#include "task/deletetask.h"
#include "task/exportwidgettask.h"
#include "task/importtask.h"
#include "task/printwidgettask.h"
#include "task/readcontenttask.h"
#include "task/readpropertyheavytask.h"
#include "task/readpropertylightservicetask.h"
#include "task/reloadservicetask.h"
#include "task/restartservicetask.h"
#include "task/startservicetask.h"
#include "task/stopservicetask.h"
#include "task/taskobserverdialog.h"
#include "task/taskobservermodel.h"
#include "task/updatetask.h"
#include "taskkindsfixture.h"
#include "testtasks.h"
#include "widgets/previewdialog.h"

#include <QApplication>
#include <QMessageBox>
#include <QProcess>
#include <QSettings>
#include <QTemporaryDir>
#include <QtTest>

using Status = TaskDescription::TaskStatus;
const OperationType ServiceOperation = OperationType(0x100000);
const OperationType ImportOperation = OperationType(0x200000);
const OperationType ExportOperation = OperationType(0x400000);

/*
 * Every task kind end to end: a fixture module builds the task in performOperation(), the real
 * observer hands it to a real worker pool, and afterRun() acts on real elements and a real form.
 * The log holds, in order, the operations the module received, "done(status[: message])" for
 * each completion and what the form and the tree were told.
 */
class tst_TaskKinds : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase() { _pool.reset(); }
    void init() { fixtureLog().clear(); }
    void cleanup();

    void elementTasks_data();
    void elementTasks();
    void serviceTasks_data();
    void serviceTasks();
    void controlServiceTask_data();
    void controlServiceTask();
    void existPackage();
    void printAndExport_data();
    void printAndExport();

private:
    QString fixtureFile() const;

    QTemporaryDir _dir;
    std::unique_ptr<Pool> _pool;
    std::unique_ptr<ModelTesterGuard> _tester;
    Ledger _ledger {1};
};

void tst_TaskKinds::initTestCase()
{
    QCoreApplication::setOrganizationName(QStringLiteral("ovt-tests"));
    QCoreApplication::setApplicationName(QStringLiteral("tst_taskkinds"));
    QSettings().clear();
    QVERIFY(_dir.isValid());
    qputenv("OVT_FIXTURE_LOG", QFile::encodeName(_dir.filePath("argv")));
    qputenv("PATH", OVT_FIXTURES "/bin:" + qgetenv("PATH"));
    _pool.reset(new Pool(2));
    QVERIFY(Pool::open(new Task(&_ledger, 0)));
    TaskObserverModel *model = TaskObserver::instance()->model();
    _tester.reset(new ModelTesterGuard(model));
    connect(model, &QAbstractItemModel::dataChanged, this, [model](const QModelIndex &index) {
        const QString status = index.siblingAtColumn(1).data().toString();
        const QString message = index.siblingAtColumn(2).data().toString();
        if (status != QLatin1String("processing"))
            fixtureLog() << QStringLiteral("done(%1)")
                                .arg(message.isEmpty() ? status
                                                       : status + QStringLiteral(": ") + message);
    });
    // The information box of a finished export: logged and dismissed.
    auto *closer = new QTimer(this);
    connect(closer, &QTimer::timeout, this, [] {
        for (QWidget *widget : QApplication::topLevelWidgets()) {
            if (auto *box = qobject_cast<QMessageBox *>(widget); box && box->isVisible()) {
                fixtureLog() << box->windowTitle() + QStringLiteral(": ") + box->text();
                box->accept();
            }
        }
    });
    closer->start(20);
}

void tst_TaskKinds::cleanup()
{
    // A batch with failures keeps the observer dialog open; closing it clears the batch.
    for (QWidget *widget : QApplication::topLevelWidgets()) {
        if (auto *dialog = qobject_cast<TaskObserverDialog *>(widget);
            dialog && dialog->isVisible())
            dialog->reject();
    }
    QFile::remove(fixtureFile());
}

QString tst_TaskKinds::fixtureFile() const
{
    return _dir.filePath(QStringLiteral("argv"));
}

static QString titles(const TreeNode *node)
{
    QStringList titles;
    for (TreeNode *child : node->childNodes())
        titles << static_cast<Element *>(child)->title();
    return titles.join(QLatin1Char(' '));
}

void tst_TaskKinds::elementTasks_data()
{
    QTest::addColumn<QString>("target");
    QTest::addColumn<quint64>("operation");
    QTest::addColumn<QVariant>("paranoid");
    QTest::addColumn<int>("outcome");
    QTest::addColumn<QString>("expected"); // the log, then " | " and the titles under box

    const QVariant on(true), off(false), absent;
    const Status ok = TaskDescription::Success, fail = TaskDescription::Fail;
    const auto row = [](const char *name, const char *target, OperationType operation,
                        const QVariant &paranoid, Status outcome, const char *expected) {
        QTest::newRow(name) << target << quint64(operation) << paranoid << int(outcome) << expected;
    };
    row("create, paranoid: re-read selects the new child", "box", CreateOperation, on, ok,
        "create(b) done(success) readContent(b) done(success) current(b) | a b");
    row("create, paranoid, failed: re-read without data", "box", CreateOperation, on, fail,
        "create(b) done(fail) readContent(null) done(success) | a b");
    row("create: form saved", "box", CreateOperation, off, ok,
        "create(b) done(success) unchanged | a b");
    row("create, no paranoid value: form saved", "box", CreateOperation, absent, ok,
        "create(b) done(success) unchanged | a b");
    row("create, failed: form keeps its edits", "box", CreateOperation, off, fail,
        "create(b) done(fail) | a b");
    row("read content, paranoid, failed: still selects", "box", ReadContentOperation, on, fail,
        "readContent(b) done(fail) current(b) | a b");
    row("read content: no selection", "box", ReadContentOperation, off, ok,
        "readContent(b) done(success) | a b");
    row("read heavy: form gets the data", "a", ReadOperation, off, ok,
        "read(null) done(success) read(a) | a b");
    row("read heavy, failed", "a", ReadOperation, off, fail, "read(null) done(fail) | a b");
    row("update, no paranoid value: re-read", "a", UpdateOperation, absent, ok,
        "update(a) done(success) read(null) done(success) read(a) | a b");
    row("update, paranoid, failed: re-read", "a", UpdateOperation, on, fail,
        "update(a) done(fail) read(null) done(success) read(a) | a b");
    row("update: form saved", "a", UpdateOperation, off, ok,
        "update(a) done(success) updated unchanged | a b");
    row("update, failed", "a", UpdateOperation, off, fail, "update(a) done(fail) | a b");
    row("delete, paranoid: parent current, element stays", "a", DeleteOperation, on, ok,
        "delete(null) done(success) current(box) | a b");
    row("delete: parent current, element gone", "a", DeleteOperation, off, ok,
        "delete(null) done(success) current(box) removed(null) | b");
    row("delete, no paranoid value: element gone", "a", DeleteOperation, absent, ok,
        "delete(null) done(success) current(box) removed(null) | b");
    row("delete, failed: nothing changes", "a", DeleteOperation, off, fail,
        "delete(null) done(fail) | a b");
    row("import", "a", ImportOperation, off, ok, "op(b) done(success) imported(b) | a b");
    row("import, failed", "a", ImportOperation, off, fail, "op(b) done(fail) | a b");
    row("export", "a", ExportOperation, off, ok,
        "op(b) done(success) Export: Export success! | a b");
    row("export, failed: no box", "a", ExportOperation, off, fail, "op(b) done(fail) | a b");
}

void tst_TaskKinds::elementTasks()
{
    QFETCH(QString, target);
    QFETCH(quint64, operation);
    QFETCH(QVariant, paranoid);
    QFETCH(int, outcome);
    QFETCH(QString, expected);

    FixtureModule module(paranoid);
    auto *box = new Item(module, QStringLiteral("box"));
    box->append({new Item(module, QStringLiteral("a")), new Item(module, QStringLiteral("b"))});
    auto *form = new Form(module);
    module.insertElementWidget(form);
    form->changeContent();
    connect(box, &TreeNode::setCurrentNode, this, [](TreeNode *node) {
        fixtureLog() << QStringLiteral("current(%1)").arg(static_cast<Element *>(node)->title());
    });
    using B = FixtureModule::Builder;
    module.builders = {
        {CreateOperation, B([](Element *e, ElementData *d, Status s) {
             return new Scripted<CreateTask>(s, nullptr, e, d);
         })},
        {ReadContentOperation, B([](Element *e, ElementData *d, Status s) {
             return new Scripted<ReadContentTask>(s, d, e);
         })},
        {ReadOperation, B([](Element *e, ElementData *d, Status s) {
             return new Scripted<ReadPropertyHeavyTask>(s, d, e);
         })},
        {UpdateOperation, B([](Element *e, ElementData *d, Status s) {
             return new Scripted<UpdateTask>(s, nullptr, e, d);
         })},
        {DeleteOperation,
         B([](Element *e, ElementData *d, Status s) { return new Scripted<DeleteTask>(s, d, e); })},
        {ImportOperation, B([form](Element *, ElementData *d, Status s) {
             return new Scripted<ImportTask>(s, nullptr, form, d);
         })},
        {ExportOperation, B([form](Element *, ElementData *d, Status s) {
             return new Scripted<ExportWidgetTask>(s, nullptr, form, d);
         })},
    };
    module.outcomes = {Status(outcome)};
    fixtureLog().clear();

    auto *element = static_cast<Element *>(target == "box" ? box : box->childNodes().at(0));
    ElementData *data = nullptr;
    if (operation != ReadOperation && operation != DeleteOperation) {
        data = new ElementData;
        data->setName(operation == UpdateOperation ? "a" : "b");
    }
    element->performOperation(OperationType(operation), data, 0);
    QTRY_COMPARE(fixtureLog().join(' ') + QStringLiteral(" | ") + titles(box), expected);
}

void tst_TaskKinds::serviceTasks_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QVariant>("paranoid");
    QTest::addColumn<bool>("light"); // the element's data is a ServiceLightElementData
    QTest::addColumn<QString>("program"); // empty: the fixture service
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("expected"); // log | element's state | how the program was called

    const QVariant on(true), off(false);
    const auto row
        = [](const char *name, const char *kind, const QVariant &paranoid, bool light,
             const QStringList &arguments, const char *expected, const char *program = "") {
              QTest::newRow(name) << kind << paranoid << light << program << arguments << expected;
          };
    row("status 0: running", "status", off, true, {"code=0"},
        "done(success) | light started | [status][code=0]");
    row("status 3 is an answer: not running", "status", off, true, {"code=3", "err=dead"},
        "done(success) | light stopped | [status][code=3][err=dead]");
    row("status, failed: element keeps its state", "status", off, true, {"crash"},
        "done(fail: Process: \"$P status crash\". Error: Process crashed.\n\"Not finished\") "
        "| light running | [status][crash]");
    row("start, plain data: bool property", "start", off, false, {"a b"},
        "done(success) | state true | [start][a b]");
    row("start, light data", "start", off, true, {}, "done(success) | light started | [start]");
    row("stop, plain data", "stop", off, false, {}, "done(success) | state false | [stop]");
    row("stop, failed: exit code and standard error", "stop", off, true,
        {"code=1", "err=  unit busy  "},
        "done(fail: Process: \"$P stop code=1 err=  unit busy  \". Exit code: 1.\n\"unit busy\") "
        "| light running | [stop][code=1][err=  unit busy  ]");
    row("start, paranoid: re-read only", "start", on, false, {},
        "done(success) read(null) | state - | [start]");
    row("start, not started", "start", off, false, {},
        "done(fail: Process: \"/nonexistent/service start\". Error: $E.\n\"Not started\") "
        "| state - | ",
        "/nonexistent/service");
    row("restart: nothing more", "restart", off, true, {},
        "done(success) | light running | [restart]");
    row("restart, failed: re-read", "restart", off, true, {"code=2"},
        "done(fail: Process: \"$P restart code=2\". Exit code: 2.\n\"\") read(null) "
        "| light running | [restart][code=2]");
    row("reload, paranoid: re-read", "reload", on, true, {},
        "done(success) read(null) | light running | [reload]");
    row("reload, arguments first", "reload-last", off, true, {"-q", "unit"},
        "done(success) | light running | [-q][unit][reload]");
}

void tst_TaskKinds::serviceTasks()
{
    QFETCH(QString, kind);
    QFETCH(QVariant, paranoid);
    QFETCH(bool, light);
    QFETCH(QString, program);
    QFETCH(QStringList, arguments);
    QFETCH(QString, expected);
    if (program.isEmpty())
        program = OVT_FIXTURES "/service";
    QProcess missing;
    missing.start(QStringLiteral("/nonexistent/service"), QStringList());
    missing.waitForStarted();
    expected.replace("$P", program).replace("$E", missing.errorString());

    FixtureModule module(paranoid);
    auto *lightData = new ServiceLightElementData;
    lightData->setState(true, QStringLiteral("running"));
    Element *service = new Item(module, QStringLiteral("svc"), light ? lightData : new ElementData);
    if (!light)
        delete lightData;
    module.builders[ServiceOperation] = [&](Element *e, ElementData *, Status) -> AbstractTask * {
        if (kind == "status")
            return new Configured<ReadPropertyLightServiceTask>(e, program, arguments);
        if (kind == "start")
            return new Configured<StartServiceTask>(e, program, arguments);
        if (kind == "stop")
            return new Configured<StopServiceTask>(e, program, arguments);
        if (kind == "restart")
            return new Configured<RestartServiceTask>(e, program, arguments);
        return new Configured<ReloadServiceTask>(e, program, arguments, kind == "reload");
    };
    service->performOperation(ServiceOperation, nullptr, 0);
    fixtureLog().removeFirst(); // the operation itself
    const auto state = [service, light] {
        ElementData *data = service->elementData();
        if (light)
            return QStringLiteral("light ")
                + static_cast<ServiceLightElementData *>(data)->textState();
        return QStringLiteral("state ") + data->value(QStringLiteral("state"), "-").toString();
    };
    const auto calls = [this] {
        QFile file(fixtureFile());
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()).trimmed()
                                              : QString();
    };
    QTRY_COMPARE(fixtureLog().join(' ') + " | " + state() + " | " + calls(), expected);
}

void tst_TaskKinds::controlServiceTask_data()
{
    QTest::addColumn<QString>("user");
    QTest::addColumn<QString>("program");
    QTest::addColumn<QString>("expected"); // completion | how the program was called

    QTest::newRow("current user") << "" << OVT_FIXTURES "/service"
                                  << "done(success) | [control][a b][$(id)]";
    QTest::newRow("another user: through runuser")
        << "nobody" << OVT_FIXTURES "/service"
        << "done(success) | runuser[-u][nobody][" OVT_FIXTURES "/service][control][a b][$(id)]";
    QTest::newRow("cannot start") << ""
                                  << "/nonexistent/tool"
                                  << "done(fail: Failed to execute command "
                                     "\"/nonexistent/tool control a b $(id)\") | ";
}

void tst_TaskKinds::controlServiceTask()
{
    QFETCH(QString, user);
    QFETCH(QString, program);
    QFETCH(QString, expected);

    TaskObserver::instance()->performTask(new Control(user, program, {"control", "a b", "$(id)"}));
    const auto calls = [this] {
        QFile file(fixtureFile());
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()).trimmed()
                                              : QString();
    };
    QTRY_COMPARE(fixtureLog().join(' ') + " | " + calls(), expected);
}

void tst_TaskKinds::existPackage()
{
    // dpkg-query itself comes with every Debian system, so its package is installed.
    QVERIFY(Control::existPackage(QStringLiteral("dpkg")));
    QVERIFY(!Control::existPackage(QStringLiteral("no-such-package-ovt")));
}

void tst_TaskKinds::printAndExport_data()
{
    QTest::addColumn<QString>("styleSheet");
    QTest::addColumn<QString>("exportTo"); // "file", "directory" or "link"
    QTest::addColumn<QString>("expected");

    const char *printed = "done(success) done(success)";
    QTest::newRow("XSLT 2.0 into a new file") << "report.xsl"
                                              << "file" << printed;
    QTest::newRow("a directory at the path") << "report.xsl"
                                             << "directory"
                                             << "done(success) done(fail: \"$D\" error 5\n"
                                                "Is a directory)";
    QTest::newRow("a planted link at the path is not followed")
        << "report.xsl"
        << "link"
        << "done(success) done(fail: \"$D\" error 5\nToo many levels of symbolic links)";
    QTest::newRow("broken style sheet") << "broken.xsl"
                                        << ""
                                        << "done(fail: Internal error: XML transformation failed)";
    QTest::newRow("no style sheet") << ""
                                    << ""
                                    << "done(fail: Internal error: XML transformation failed)";
}

void tst_TaskKinds::printAndExport()
{
    QFETCH(QString, styleSheet);
    QFETCH(QString, exportTo);
    QFETCH(QString, expected);
    const QString path = _dir.filePath(QStringLiteral("export.html"));
    const QString victim = _dir.filePath(QStringLiteral("victim"));
    QFile::remove(path);
    QDir(path).removeRecursively();
    QVERIFY(exportTo != "directory" || QDir().mkpath(path));
    QVERIFY(exportTo != "link"
            || (QFile(victim).open(QIODevice::WriteOnly) && QFile::link(victim, path)));
    expected.replace("$D", path);

    QFile xml(OVT_FIXTURES "/accounts.xml");
    QVERIFY(xml.open(QIODevice::ReadOnly));
    auto *data = new ElementData;
    data->insert(QStringLiteral("xmlText"), QString::fromUtf8(xml.readAll()));
    if (!styleSheet.isEmpty())
        data->insert(QStringLiteral("templateName"), OVT_FIXTURES "/" + styleSheet);
    FixtureModule module(false);
    Form form(module);
    TaskObserver::instance()->performTask(new PrintWidgetTask(&form, data));
    if (!exportTo.isEmpty()) {
        QTRY_COMPARE(fixtureLog().size(), 1); // the preview shows this document
        PreviewDialog::instance()->exportTo(path);
    }
    QTRY_COMPARE(fixtureLog().join(' '), expected);
    if (exportTo != "file")
        return;
    const QString html = PreviewDialog::instance()->html();
    QVERIFY2(html.contains("<td>ALICE</td>") && html.contains("<td>БОРИС</td>")
                 && html.contains("Accounts: alice, bob, Борис"),
             qPrintable(html));
    QFile written(path);
    QVERIFY(written.open(QIODevice::ReadOnly));
    QCOMPARE(QString::fromUtf8(written.readAll()), html);
    // The look of the dialog, kept beside the test binary for people to see.
    PreviewDialog::instance()->resize(720, 420);
    QVERIFY(PreviewDialog::instance()->grab().save(OVT_PREVIEW_PNG));
}

QTEST_MAIN(tst_TaskKinds)
#include "tst_taskkinds.moc"
