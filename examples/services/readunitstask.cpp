// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "readunitstask.h"

#include "servicesfolderelement.h"
#include "system/appexception.h"
#include "system/process.h"
#include "unitelement.h"

#include <QFileInfo>
#include <QRegularExpression>

ReadUnitsTask::ReadUnitsTask(ServicesFolderElement *folder)
    : AbstractTask(nullptr)
    , _folder(folder)
    , _noSystemd(false)
{
    taskDescription().setDescription(tr("List the systemd services"));
}

QVector<ReadUnitsTask::Unit> ReadUnitsTask::parseUnits(const QString &output)
{
    QVector<Unit> units;
    static const QRegularExpression space(QStringLiteral("\\s+"));
    for (const QString &line : output.split(QLatin1Char('\n'))) {
        QStringList fields = line.trimmed().split(space, Qt::SkipEmptyParts);
        // Some versions mark failed units with a bullet even in plain mode.
        if (!fields.isEmpty() && fields.first().size() == 1
            && !fields.first().at(0).isLetterOrNumber())
            fields.removeFirst();
        if (fields.size() < 4)
            continue;
        Unit unit;
        unit.name = fields.at(0);
        const QString active = fields.at(2);
        const QString sub = fields.at(3);
        unit.record.setState(active == QLatin1String("active"),
                             QStringLiteral("%1 (%2)").arg(active, sub));
        unit.record.insert(QStringLiteral("load"), fields.at(1));
        unit.record.insert(QStringLiteral("sub"), sub);
        unit.record.insert(QStringLiteral("description"),
                           QStringList(fields.mid(4)).join(QLatin1Char(' ')));
        units.append(unit);
    }
    return units;
}

void ReadUnitsTask::run()
{
    // systemctl on a machine without a running systemd only says it cannot connect; the
    // reason is clearer from here.
    if (!QFileInfo(QStringLiteral("/run/systemd/system")).isDir()) {
        // Not a failure of the tool: there is simply nothing to list. The folder says why.
        taskDescription().setStatus(TaskDescription::Success);
        taskDescription().setMessage(
            tr("This machine was not booted with systemd: there are no services to show."));
        _noSystemd = true;
        return AbstractTask::run();
    }
    try {
        const QString output
            = Process()
                  .simpleStart(QStringLiteral("systemctl"),
                               {QStringLiteral("list-units"), QStringLiteral("--type=service"),
                                QStringLiteral("--all"), QStringLiteral("--plain"),
                                QStringLiteral("--no-legend"), QStringLiteral("--no-pager")},
                               true)
                  .output();
        _units = parseUnits(output);
        taskDescription().setStatus(TaskDescription::Success);
        taskDescription().setMessage(tr("%n service(s) listed", nullptr, _units.size()));
    } catch (const AppException &e) {
        taskDescription().setStatus(TaskDescription::Fail);
        taskDescription().setMessage(e.getText());
    }
    AbstractTask::run();
}

void ReadUnitsTask::afterRun()
{
    if (!_folder)
        return;
    _folder->elementData()->insert(QStringLiteral("message"),
                                   _noSystemd || taskDescription().status() == TaskDescription::Fail
                                       ? taskDescription().message()
                                       : QString());
    _folder->emitNodeDataChanged();
    _folder->clearDelete();
    QList<TreeNode *> units;
    for (const Unit &unit : qAsConst(_units))
        units << new UnitElement(_folder->module(), unit.name, unit.record);
    _folder->append(units);
}
