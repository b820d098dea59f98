#include "readunitstatestask.h"

#include "element/servicelightelementdata.h"
#include "system/appexception.h"
#include "system/process.h"
#include "unitelement.h"

#include <QStandardPaths>

ReadUnitStatesTask::ReadUnitStatesTask(const QList<UnitElement *> &units)
    : AbstractTask(nullptr)
{
    for (UnitElement *unit : units) {
        _units << unit;
        _names << unit->title();
    }
    taskDescription().setDescription(tr("Read the state of %n service(s)", nullptr, units.size()));
}

void ReadUnitStatesTask::run()
{
    // Not an error: a system without systemd has no unit states to tell.
    if (QStandardPaths::findExecutable(QStringLiteral("systemctl")).isEmpty()) {
        for (int i = 0; i < _names.size(); ++i)
            _states.append({false, tr("unknown: systemctl is not installed")});
        taskDescription().setStatus(TaskDescription::Success);
        taskDescription().setMessage(tr("systemctl is not installed"));
        return AbstractTask::run();
    }
    try {
        for (const QString &name : qAsConst(_names)) {
            Process process;
            try {
                process.simpleStart(QStringLiteral("systemctl"),
                                    {QStringLiteral("is-active"), name}, true);
                _states.append({true, QString()}); // "started", translated by the record
            } catch (const AppException &) {
                // A stopped unit also exits non-zero, but says so ("inactive", "failed"):
                // that is a state. Silence means systemctl itself could not answer.
                const QString said = process.output().trimmed();
                if (said.isEmpty())
                    throw;
                _states.append({false, said});
            }
        }
        taskDescription().setStatus(TaskDescription::Success);
    } catch (const AppException &e) {
        // The observer keeps its dialog open for a failed task and shows this text.
        _states.clear();
        taskDescription().setStatus(TaskDescription::Fail);
        taskDescription().setMessage(e.getText());
    }
    AbstractTask::run();
}

void ReadUnitStatesTask::afterRun()
{
    for (int i = 0; i < _states.size() && i < _units.size(); ++i) {
        UnitElement *unit = _units.at(i);
        if (!unit)
            continue;
        static_cast<ServiceLightElementData *>(unit->elementData())
            ->setState(_states.at(i).running, _states.at(i).text);
        // The icon and caption follow the record; the views learn of it from the node.
        unit->emitNodeDataChanged();
    }
}
