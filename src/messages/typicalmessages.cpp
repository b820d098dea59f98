// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "typicalmessages.h"

#include "plugin/plugin.h"

#include <QCoreApplication>
#include <QEvent>

namespace {

TypicalMessages *theInstance = nullptr;

} // namespace

TypicalMessages::TypicalMessages() = default;

TypicalMessages::~TypicalMessages()
{
    if (theInstance == this)
        theInstance = nullptr;
    qDeleteAll(_order);
}

TypicalMessages *TypicalMessages::instance()
{
    if (!theInstance) {
        theInstance = new TypicalMessages;
        theInstance->init();
    }
    return theInstance;
}

void TypicalMessages::deinstance()
{
    delete theInstance;
}

void TypicalMessages::init()
{
    // Only widgets receive LanguageChange from the application; the registry listens at the
    // application object, which sees it whenever a translator is installed or removed.
    if (QCoreApplication::instance())
        QCoreApplication::instance()->installEventFilter(this);
}

TypicalMessage *TypicalMessages::registration(const QString &keyId, Plugin *plugin,
                                              QString (*descriptionHandler)())
{
    return registration(keyId, plugin, descriptionHandler ? descriptionHandler() : QString(),
                        descriptionHandler);
}

TypicalMessage *TypicalMessages::registration(const QString &keyId, Plugin *plugin,
                                              const QString &description)
{
    return registration(keyId, plugin, description, nullptr);
}

TypicalMessage *TypicalMessages::registration(const QString &keyId, Plugin *plugin,
                                              const QString &description,
                                              QString (*descriptionHandler)())
{
    TypicalMessage *message = _messages.value(keyId);
    if (!message) {
        message = new TypicalMessage(keyId, description, descriptionHandler);
        message->loadSkipState();
        message->addPlugin(plugin);
        _messages.insert(keyId, message);
        _order << message;
        Q_EMIT added(message);
    } else if (!plugin || message->plugins().contains(plugin)) {
        return message;
    } else {
        message->addPlugin(plugin);
    }
    Q_EMIT registered(message, plugin);
    if (plugin)
        connect(plugin, &QObject::destroyed, this, &TypicalMessages::onPluginDestroyed,
                Qt::UniqueConnection);
    return message;
}

void TypicalMessages::unregistration(const QString &keyId)
{
    unregistration(findByKeyId(keyId));
}

void TypicalMessages::unregistration(TypicalMessage *message)
{
    if (!message || !_order.contains(message))
        return;
    const QList<Plugin *> plugins = message->plugins();
    for (Plugin *plugin : plugins) {
        message->removePlugin(plugin);
        Q_EMIT unregistered(message, plugin);
    }
    remove(message);
}

void TypicalMessages::unregistration(TypicalMessage *message, Plugin *plugin)
{
    if (!message || !_order.contains(message) || !message->plugins().contains(plugin))
        return;
    message->removePlugin(plugin);
    Q_EMIT unregistered(message, plugin);
    if (message->plugins().isEmpty())
        remove(message);
}

void TypicalMessages::unregistration(Plugin *plugin)
{
    const QList<TypicalMessage *> messages = _order;
    for (TypicalMessage *message : messages)
        unregistration(message, plugin);
}

void TypicalMessages::onPluginDestroyed(QObject *plugin)
{
    // The plug-in is half destroyed here: its address serves only as a key, nothing of it is
    // called. A checked downcast would look at a vtable that is already QObject's (QObject is
    // Plugin's first and only base, so the addresses are the same).
    unregistration(reinterpret_cast<Plugin *>(plugin));
}

TypicalMessage *TypicalMessages::findByKeyId(const QString &keyId) const
{
    return _messages.value(keyId);
}

QList<TypicalMessage *> TypicalMessages::listMessages() const
{
    return _order;
}

void TypicalMessages::updateMessageDescription(TypicalMessage *message)
{
    if (message)
        message->updateDescription();
}

void TypicalMessages::updateMessagesDescriptions()
{
    for (TypicalMessage *message : qAsConst(_order))
        updateMessageDescription(message);
}

bool TypicalMessages::event(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        updateMessagesDescriptions();
    return QObject::event(event);
}

bool TypicalMessages::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == QCoreApplication::instance() && event->type() == QEvent::LanguageChange)
        TypicalMessages::event(event);
    return QObject::eventFilter(watched, event);
}

void TypicalMessages::remove(TypicalMessage *message)
{
    _messages.remove(message->keyId());
    _order.removeAll(message);
    Q_EMIT removed(message);
    delete message;
}
