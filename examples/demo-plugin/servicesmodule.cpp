#include "servicesmodule.h"

#include "element/elementdata.h"
#include "readunitstatestask.h"
#include "servicesfolderelement.h"
#include "task/taskobserver.h"
#include "unitelement.h"

ServicesModule::ServicesModule(QObject *parent)
    : Module(QStringLiteral("services"), parent, false)
{
    _expectedDepth = 1;
    _moduleData->insert(QStringLiteral("description"), tr("State of a few system services"));
    // A fixed tree: the units name their folder as parent, and the element container hangs
    // them there. Units that a machine lacks simply show as not running.
    _elementNodes << new ServicesFolderElement(*this);
    for (const char *unit : {"cron", "dbus", "ssh", "systemd-journald"})
        _elementNodes << new UnitElement(*this, QLatin1String(unit),
                                         ServicesFolderElement::folderId());
}

void ServicesModule::performOperation(ContextOperation *context, OperationType type, ElementData *,
                                      int)
{
    // The element container sends ReadLightOperation to top-level elements only, so the
    // folder asks once for all its units: one task, one row in the observer.
    auto *folder
        = context ? qobject_cast<ServicesFolderElement *>(context->elementContext()) : nullptr;
    if (!folder || type != ReadLightOperation)
        return;
    QList<UnitElement *> units;
    for (TreeNode *node : folder->childNodes()) {
        if (auto *unit = qobject_cast<UnitElement *>(node))
            units << unit;
    }
    TaskObserver::instance()->performTask(new ReadUnitStatesTask(units));
}
