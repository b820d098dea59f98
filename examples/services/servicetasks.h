#pragma once

#include "element/element.h"
#include "element/servicelightelementdata.h"
#include "task/abstracttask.h"
#include "task/reloadservicetask.h"
#include "task/restartservicetask.h"
#include "task/startservicetask.h"
#include "task/stopservicetask.h"

#include <QCoreApplication>
#include <QPointer>
#include <QVector>

class ServicesFolderElement;

/**
 * One of the library's service tasks run as "systemctl <action> <unit>". The task kinds leave
 * the program and its arguments to the plug-in; the unit comes after "--", so a name that
 * starts with a dash is never taken for an option, and no shell is involved.
 */
template<class ServiceTaskKind> class SystemctlTask : public ServiceTaskKind
{
public:
    explicit SystemctlTask(Element *unit)
        : ServiceTaskKind(unit)
    {
        this->_program = QStringLiteral("systemctl");
        // Without a password agent a refusal must come back as an error, not as a prompt.
        this->_arguments = QStringList {QStringLiteral("--no-ask-password"), QStringLiteral("--"),
                                        unit->title()};
        this->taskDescription().setDescription(
            QStringLiteral("systemctl %1 %2").arg(this->_command, unit->title()));
    }
};

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
