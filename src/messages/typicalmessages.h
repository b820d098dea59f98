// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "messages/typicalmessage.h"
#include "ovtcommon_export.h"
#include "plugin/plugin.h" // complete for the signals' meta types

#include <QHash>
#include <QObject>

/**
 * The process-wide registry of typical messages, keyed by keyId.
 *
 * instance() creates the registry on first use, deinstance() deletes it together with its
 * messages. Plug-ins register their messages once; a message lives until it is unregistered
 * or the last plug-in that registered it is destroyed. On a language change of the
 * application the descriptions given by handlers are recomputed.
 */
class OVTCOMMON_EXPORT TypicalMessages : public QObject
{
    Q_OBJECT

public:
    static TypicalMessages *instance();
    static void deinstance();

    /** Watches the application for language changes; instance() calls it. */
    void init();

    /**
     * Registers @p keyId for @p plugin and returns the message. A new key takes its
     * description from @p descriptionHandler and its skip flag from the settings; a known key
     * only gains the plug-in and keeps its first description.
     */
    TypicalMessage *registration(const QString &keyId, Plugin *plugin,
                                 QString (*descriptionHandler)());
    TypicalMessage *registration(const QString &keyId, Plugin *plugin, const QString &description);
    /** Removes the message with every plug-in (unregistered per plug-in, removed, deleted). */
    void unregistration(const QString &keyId);
    void unregistration(TypicalMessage *message);
    /** Removes @p plugin from @p message; the message goes with its last plug-in. */
    void unregistration(TypicalMessage *message, Plugin *plugin);
    void unregistration(Plugin *plugin);

    /** Null for an unknown key. */
    TypicalMessage *findByKeyId(const QString &keyId) const;
    /** The messages in registration order. */
    QList<TypicalMessage *> listMessages() const;
    void updateMessageDescription(TypicalMessage *message);
    void updateMessagesDescriptions();

    bool event(QEvent *event) override;

public Q_SLOTS:
    void onPluginDestroyed(QObject *plugin);

Q_SIGNALS:
    void added(TypicalMessage *message);
    /** Emitted before the message is deleted. */
    void removed(TypicalMessage *message);
    void registered(TypicalMessage *message, Plugin *plugin);
    void unregistered(TypicalMessage *message, Plugin *plugin);
    void skipStateChanged(TypicalMessage *message, bool skip);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    TypicalMessages();
    ~TypicalMessages() override;
    TypicalMessage *registration(const QString &keyId, Plugin *plugin, const QString &description,
                                 QString (*descriptionHandler)());
    void remove(TypicalMessage *message);

    QHash<QString, TypicalMessage *> _messages;
    QList<TypicalMessage *> _order; // the hash's messages as they came, for a stable list
};
