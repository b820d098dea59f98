// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

// A module that builds task kinds for operations, its elements and form, and one log.

#include "element/element.h"
#include "element/elementdata.h"
#include "plugin/module.h"
#include "task/controlservicetask.h"
#include "task/servicetask.h"
#include "task/taskobserver.h"
#include "widgets/vieweditelementwidget.h"

#include <functional>

inline QStringList &fixtureLog()
{
    static QStringList log;
    return log;
}

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

class Form : public ViewEditElementWidget
{
public:
    explicit Form(Module &module)
        : ViewEditElementWidget(module, &Module::defaultTrue)
    {
        _elementType = QStringLiteral("item");
        connect(this, &ViewEditElementWidget::contentChanged, [](int state) {
            if (state == 0)
                fixtureLog() << "unchanged";
        });
    }
    void afterSuccessfulUpdate() override { fixtureLog() << "updated"; }
    void afterSuccessfulRead(Element *e, ElementData *) override { fixtureLog() << e->title(); }
    void afterSuccessfulImport(ElementData *d) override { fixtureLog() << "imported:" + d->name(); }
};

// A kind as plug-ins derive it; a user given to a ServiceTask puts the command word last.
template<class Kind> class Fixture : public Kind
{
public:
    template<class... Args>
    Fixture(TaskDescription::TaskStatus outcome, ElementData *data, Args... args)
        : Kind(args...)
        , _outcome(outcome)
    {
        this->_elementData = data;
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
    void run() override
    {
        if constexpr (std::is_base_of_v<ServiceTask,
                                        Kind> || std::is_same_v<Kind, ControlServiceTask>)
            return Kind::run();
        this->_taskDescription.setStatus(_outcome);
        AbstractTask::run();
    }

private:
    TaskDescription::TaskStatus _outcome = TaskDescription::Success;
};

// Logs each operation as "name(data name)"; build() makes its task with the next outcome.
class FixtureModule : public Module
{
public:
    explicit FixtureModule(const QString &paranoid)
        : Module(QStringLiteral("fixture"), nullptr, false)
    {
        _moduleData->insert(QStringLiteral("paranoid"), paranoid == "on"); // not the stored one
        if (paranoid == "-")
            _moduleData->remove(QStringLiteral("paranoid"));
    }
    void performOperation(ContextOperation *context, OperationType type, ElementData *data,
                          int) override
    {
        static const QStringList names {"inserted",  "removed", "create", "readContent",
                                        "readLight", "read",    "update", "delete"};
        fixtureLog() << names.value(qCountTrailingZeroBits(quint64(type)), "op") + "("
                + (data ? data->name() : "null") + ")";
        const auto outcome = outcomes.isEmpty() ? TaskDescription::Success : outcomes.takeFirst();
        if (AbstractTask *task = build(context->elementContext(), type, data, outcome))
            TaskObserver::instance()->performTask(task);
        else
            delete data;
    }

    std::function<AbstractTask *(Element *, quint64, ElementData *, TaskDescription::TaskStatus)>
        build;
    QList<TaskDescription::TaskStatus> outcomes;
};
