// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "system/regexphandler.h"
#include "task/readpropertyheavytask.h"
#include "task/updatetask.h"

#include <QCoreApplication>
#include <QStringList>
#include <QVector>

/** One "key=value" line: the key and the value as the file holds them. */
struct ConfigEntry
{
    QString key;
    QString value;
    bool operator==(const ConfigEntry &other) const
    {
        return key == other.key && value == other.value;
    }
};

/**
 * Reads and rewrites the key=value lines of a file. Rewriting replaces the n-th entry by
 * setTargets()' entry n (an empty key blanks the line) and appends the extra entries; lines
 * that do not change keep their bytes.
 */
class ConfigEntriesHandler : public RegExpHandler
{
public:
    ConfigEntriesHandler();

    static QVector<ConfigEntry> read(const QString &path, QString &errors, bool *ok);

    void setTargets(const QVector<ConfigEntry> &targets, const QVector<ConfigEntry> &extra);
    bool handleRegExp(QByteArray *line) override;
    bool finalHandleRegExp(QByteArray *data) override;

    /** The entry rules a form must keep so that reading gives the entry back. */
    static bool isValidKey(const QString &key);
    static bool isValidValue(const QString &value);

private:
    QVector<ConfigEntry> _entries;
    QVector<ConfigEntry> _targets;
    QVector<ConfigEntry> _extra;
    int _line = 0;
};

/** Reads the entries of the file for the form ("entries": a list of key, value pairs). */
class ReadEntriesTask : public ReadPropertyHeavyTask
{
    Q_DECLARE_TR_FUNCTIONS(ReadEntriesTask)

public:
    explicit ReadEntriesTask(Element *file);
    void run() override;
    void afterRun() override;

private:
    const QString _path;
    const QString _error;
};

/**
 * Writes the form's entries: "entries" as read before, "targets" the same entries as edited
 * (empty key: removed) and "extra" the new ones. Refuses when the file changed in between.
 */
class WriteEntriesTask : public UpdateTask
{
    Q_DECLARE_TR_FUNCTIONS(WriteEntriesTask)

public:
    WriteEntriesTask(Element *file, ElementData *data);
    void run() override;

    static QVariantList toVariant(const QVector<ConfigEntry> &entries);
    static QVector<ConfigEntry> fromVariant(const QVariant &entries);

private:
    const QString _path;
};
