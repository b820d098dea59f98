// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "ovtcommon_export.h"

#include <QList>
#include <QString>
#include <QStringList>

class Plugin;

/**
 * One recurring message that the user may choose not to see again. Owned by the
 * TypicalMessages registry; create it through TypicalMessages::registration().
 *
 * The skip flag persists in the application's settings under "typicalMessages/<keyId>".
 */
class OVTCOMMON_EXPORT TypicalMessage
{
public:
    using DescriptionHandler = QString (*)();

    /** Loads nothing: the registry calls loadSkipState() once the message is set up. */
    TypicalMessage(const QString &keyId, const QString &description,
                   DescriptionHandler descriptionHandler = nullptr);

    QString keyId() const;
    QString description() const;
    DescriptionHandler descriptionHandler() const;
    bool isSkip() const;
    /**
     * Stores a changed flag in the settings and announces it through the registry's
     * skipStateChanged(); an unchanged flag does nothing.
     */
    void setSkip(bool skip);
    /** The plug-ins that registered this key; not owned. */
    QList<Plugin *> plugins() const;
    /** The name() of every registered plug-in, in registration order. */
    QStringList pluginNames() const;
    /** Adds @p plugin once; a null plug-in is ignored. */
    void addPlugin(Plugin *plugin);
    void removePlugin(Plugin *plugin);
    /** Asks the description handler again, if there is one (after a language change). */
    void updateDescription();
    /** Reads the skip flag from the settings; absent means false. No signal. */
    void loadSkipState();
    void saveSkipState() const;

private:
    QString _keyId;
    QList<Plugin *> _plugins; // not owned
    QString _description;
    DescriptionHandler _descriptionHandler;
    bool _skip;
};
