#include "task/startevent.h"

StartEvent::StartEvent(const QString &pluginPath)
    : QEvent(static_cast<QEvent::Type>(Type))
    , _pluginPath(pluginPath)
{ }

StartEvent::~StartEvent() = default;

QString StartEvent::pluginPath() const
{
    return _pluginPath;
}
