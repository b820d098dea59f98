// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "element/ordinaryelement.h"
#include "plugin/module.h"
#include "plugin/plugin.h"

/**
 * Key=value entries of one configuration file. Unless told otherwise the file is a private
 * copy in the user's data directory, so the plug-in changes nothing of the system; the
 * environment variable OVT_DEMO_CONFIG_FILE or the setting "configEntries/file" names
 * another file.
 */
class ConfigEntriesPlugin : public Plugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID OVT_PLUGIN_IID FILE "configentries.json")
    Q_INTERFACES(Plugin)

public:
    ConfigEntriesPlugin();
};

/** Answers the file element's read and update with tasks. */
class ConfigEntriesModule : public Module
{
    Q_OBJECT

public:
    explicit ConfigEntriesModule(QObject *parent);

    /**
     * The file to edit. Without an explicit choice, a copy of /etc/os-release (or a short
     * sample) made once in the data directory; empty when that copy cannot be made.
     */
    static QString configFilePath(QString *error);

    void performOperation(ContextOperation *context, OperationType type, ElementData *data,
                          int alternative) override;
};

/** The one file, a fixed top-level element; its form is the entry table. */
class ConfigFileElement : public OrdinaryElement
{
    Q_OBJECT

public:
    ConfigFileElement(Module &module, const QString &path);

    QString caption() const override;
    QVariant data(int column, int role) const override;
};
