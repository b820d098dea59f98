#pragma once

// A module whose performOperation() builds the library's task kinds, its elements and form, and
// a log that the tests compare whole.

#include "element/element.h"
#include "element/elementdata.h"
#include "plugin/module.h"
#include "task/controlservicetask.h"
#include "task/taskobserver.h"
#include "widgets/vieweditelementwidget.h"

#include <QMap>
#include <QStringList>

#include <functional>

inline QStringList &fixtureLog()
{
    static QStringList log;
    return log;
}

/** Offers every operation and hands it to its module, as elements of plug-ins do. */
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

/** The form of every Item; logs what the tasks tell it. */
class Form : public ViewEditElementWidget
{
public:
    explicit Form(Module &module)
        : ViewEditElementWidget(module, &Module::defaultTrue)
    {
        _elementType = QStringLiteral("item");
        connect(this, &ViewEditElementWidget::contentChanged, [](int state) {
            if (state == 0)
                fixtureLog() << QStringLiteral("unchanged");
        });
    }
    void afterSuccessfulUpdate() override { fixtureLog() << QStringLiteral("updated"); }
    void afterSuccessfulRead(Element *element, ElementData *) override
    {
        fixtureLog() << QStringLiteral("read(%1)").arg(element->title());
    }
    void afterSuccessfulImport(ElementData *data) override
    {
        fixtureLog() << QStringLiteral("imported(%1)").arg(data->name());
    }
};

/** A skeleton kind whose run() ends with a given status, as a plug-in's would after its work. */
template<class Kind> class Scripted : public Kind
{
public:
    template<class... Args>
    Scripted(TaskDescription::TaskStatus outcome, ElementData *data, Args... args)
        : Kind(args...)
        , _outcome(outcome)
    {
        if (data)
            this->_elementData = data;
    }
    void run() override
    {
        this->_taskDescription.setStatus(_outcome);
        AbstractTask::run();
    }

private:
    TaskDescription::TaskStatus _outcome;
};

/** A service kind pointed at a program, as a plug-in's constructor would. */
template<class Kind> class Configured : public Kind
{
public:
    Configured(Element *element, const QString &program, const QStringList &arguments,
               bool commandFirst = true)
        : Kind(element)
    {
        this->_program = program;
        this->_arguments = arguments;
        this->_commandFirst = commandFirst;
    }
};

class Control : public ControlServiceTask
{
public:
    Control(const QString &user, const QString &program, const QStringList &arguments)
        : ControlServiceTask(nullptr)
    {
        _user = user;
        _program = program;
        _arguments = arguments;
    }
    using ControlServiceTask::existPackage;
};

/**
 * Logs each operation as "name(data name)", then builds the task registered for it. Each task
 * built takes the next of the queued outcomes (success once they are used up).
 */
class FixtureModule : public Module
{
public:
    using Builder
        = std::function<AbstractTask *(Element *, ElementData *, TaskDescription::TaskStatus)>;

    explicit FixtureModule(const QVariant &paranoid)
        : Module(QStringLiteral("fixture"), nullptr, false)
    {
        if (paranoid.isValid())
            _moduleData->insert(QStringLiteral("paranoid"), paranoid);
        else
            _moduleData->remove(QStringLiteral("paranoid"));
    }
    void performOperation(ContextOperation *context, OperationType type, ElementData *data,
                          int) override
    {
        static const QMap<quint64, QString> names {
            {CreateOperation, "create"}, {ReadContentOperation, "readContent"},
            {ReadOperation, "read"},     {UpdateOperation, "update"},
            {DeleteOperation, "delete"}, {RemovedOperation, "removed"}};
        fixtureLog() << QStringLiteral("%1(%2)").arg(names.value(type, QStringLiteral("op")),
                                                     data ? data->name() : QStringLiteral("null"));
        const TaskDescription::TaskStatus outcome
            = outcomes.isEmpty() ? TaskDescription::Success : outcomes.takeFirst();
        if (builders.contains(type))
            TaskObserver::instance()->performTask(
                builders[type](context->elementContext(), data, outcome));
        else
            delete data;
    }

    QMap<quint64, Builder> builders;
    QList<TaskDescription::TaskStatus> outcomes;
};
