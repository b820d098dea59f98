// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "typicalmessage.h"

#include "messages/typicalmessages.h"
#include "plugin/plugin.h"

#include <QSettings>

namespace {

QString settingsKey(const QString &keyId)
{
    return QStringLiteral("typicalMessages/%1").arg(keyId);
}

} // namespace

TypicalMessage::TypicalMessage(const QString &keyId, const QString &description,
                               DescriptionHandler descriptionHandler)
    : _keyId(keyId)
    , _description(description)
    , _descriptionHandler(descriptionHandler)
    , _skip(false)
{ }

QString TypicalMessage::keyId() const
{
    return _keyId;
}

QString TypicalMessage::description() const
{
    return _description;
}

TypicalMessage::DescriptionHandler TypicalMessage::descriptionHandler() const
{
    return _descriptionHandler;
}

bool TypicalMessage::isSkip() const
{
    return _skip;
}

void TypicalMessage::setSkip(bool skip)
{
    if (skip == _skip)
        return;
    _skip = skip;
    saveSkipState();
    Q_EMIT TypicalMessages::instance()->skipStateChanged(this, skip);
}

QList<Plugin *> TypicalMessage::plugins() const
{
    return _plugins;
}

QStringList TypicalMessage::pluginNames() const
{
    QStringList names;
    for (const Plugin *plugin : _plugins)
        names << plugin->name();
    return names;
}

void TypicalMessage::addPlugin(Plugin *plugin)
{
    if (plugin && !_plugins.contains(plugin))
        _plugins << plugin;
}

void TypicalMessage::removePlugin(Plugin *plugin)
{
    _plugins.removeAll(plugin);
}

void TypicalMessage::updateDescription()
{
    if (_descriptionHandler)
        _description = _descriptionHandler();
}

void TypicalMessage::loadSkipState()
{
    if (!_keyId.isEmpty())
        _skip = QSettings().value(settingsKey(_keyId), false).toBool();
}

void TypicalMessage::saveSkipState() const
{
    if (!_keyId.isEmpty())
        QSettings().setValue(settingsKey(_keyId), _skip);
}
