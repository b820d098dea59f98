// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "element/servicelightelementdata.h"
#include "task/abstracttask.h"

#include <QCoreApplication>
#include <QPointer>
#include <QVector>

class ServicesFolderElement;

/**
 * Lists the service units with systemctl on a worker thread and hangs them under the folder.
 * On a machine not booted with systemd (no /run/systemd/system) it lists nothing and the folder
 * says why; when systemctl fails, the task fails and the folder shows its message too.
 */
class ReadUnitsTask : public AbstractTask
{
    Q_DECLARE_TR_FUNCTIONS(ReadUnitsTask)

public:
    struct Unit
    {
        QString name;
        ServiceLightElementData record;
    };

    explicit ReadUnitsTask(ServicesFolderElement *folder);

    /**
     * Parses the output of "systemctl list-units --plain --no-legend": unit, load, active and
     * sub state, then the description. Lines with fewer fields are skipped.
     */
    static QVector<Unit> parseUnits(const QString &output);

    void run() override;
    void afterRun() override;

private:
    QPointer<ServicesFolderElement> _folder;
    QVector<Unit> _units;
    bool _noSystemd;
};
