#pragma once

#include "task/abstracttask.h"

#include <QCoreApplication>
#include <QList>
#include <QPointer>
#include <QStringList>
#include <QVector>

class UnitElement;

/**
 * Asks `systemctl is-active` for the state of each unit on a worker thread, then shows the
 * answers on the units' icons. Only asks; never starts or stops anything.
 */
class ReadUnitStatesTask : public AbstractTask
{
    Q_DECLARE_TR_FUNCTIONS(ReadUnitStatesTask)

public:
    explicit ReadUnitStatesTask(const QList<UnitElement *> &units);

    void run() override;
    void afterRun() override;

private:
    struct State
    {
        bool running;
        QString text;
    };

    QList<QPointer<UnitElement>> _units; // guarded: a reload may delete them meanwhile
    QStringList _names; // copied on the user-interface thread, read by run()
    QVector<State> _states; // one per name once run() succeeded
};
