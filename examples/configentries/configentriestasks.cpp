// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "configentriestasks.h"

#include "configentrieswidget.h"
#include "element/element.h"
#include "element/elementdata.h"
#include "plugin/module.h"

#include <QRegularExpression>

namespace {

QString filePath(Element *file)
{
    return file->elementData()->value(QStringLiteral("filePath")).toString();
}

} // namespace

ConfigEntriesHandler::ConfigEntriesHandler()
    // The value starts at its first non-blank: QRegExp may leave leading blanks to "(.*)".
    : RegExpHandler(QStringLiteral("^([A-Za-z_][A-Za-z0-9_.-]*)\\s*=\\s*(|\\S.*)$"))
{ }

QVector<ConfigEntry> ConfigEntriesHandler::read(const QString &path, QString &errors, bool *ok)
{
    ConfigEntriesHandler handler;
    *ok = readSystemConfigureFile(path, handler, errors);
    return handler._entries;
}

void ConfigEntriesHandler::setTargets(const QVector<ConfigEntry> &targets,
                                      const QVector<ConfigEntry> &extra)
{
    _targets = targets;
    _extra = extra;
    _line = 0;
}

bool ConfigEntriesHandler::handleRegExp(QByteArray *line)
{
    const ConfigEntry found {regExp().cap(1), regExp().cap(2)};
    if (!line) {
        _entries.append(found);
        return false;
    }
    const int index = _line++;
    if (index >= _targets.size() || _targets.at(index) == found)
        return false;
    const ConfigEntry &target = _targets.at(index);
    *line = target.key.isEmpty() ? QByteArray()
                                 : (target.key + QLatin1Char('=') + target.value).toLocal8Bit();
    return true;
}

bool ConfigEntriesHandler::finalHandleRegExp(QByteArray *data)
{
    for (const ConfigEntry &entry : qAsConst(_extra))
        *data += (entry.key + QLatin1Char('=') + entry.value).toLocal8Bit() + '\n';
    return !data->isEmpty();
}

bool ConfigEntriesHandler::isValidKey(const QString &key)
{
    static const QRegularExpression valid(QStringLiteral("^[A-Za-z_][A-Za-z0-9_.-]*$"));
    return valid.match(key).hasMatch();
}

bool ConfigEntriesHandler::isValidValue(const QString &value)
{
    // A "#" would start a comment and a line break a new line: the value would not come back.
    return !value.contains(QLatin1Char('#')) && !value.contains(QLatin1Char('\n'))
        && !value.contains(QLatin1Char('\r')) && value.trimmed() == value;
}

ReadEntriesTask::ReadEntriesTask(Element *file)
    : ReadPropertyHeavyTask(file)
    , _path(filePath(file))
    , _error(file->elementData()->value(QStringLiteral("error")).toString())
{
    taskDescription().setDescription(tr("Read the entries of %1").arg(_path));
}

void ReadEntriesTask::run()
{
    QString errors;
    bool ok = !_path.isEmpty();
    const QVector<ConfigEntry> entries
        = ok ? ConfigEntriesHandler::read(_path, errors, &ok) : QVector<ConfigEntry>();
    if (ok) {
        _elementData = new ElementData;
        _elementData->insert(QStringLiteral("entries"), WriteEntriesTask::toVariant(entries));
        taskDescription().setStatus(TaskDescription::Success);
        taskDescription().setMessage(tr("%n entries read", nullptr, entries.size()));
    } else {
        taskDescription().setStatus(TaskDescription::Fail);
        taskDescription().setMessage(_path.isEmpty() ? _error : errors.trimmed());
    }
    AbstractTask::run();
}

void ReadEntriesTask::afterRun()
{
    ReadPropertyHeavyTask::afterRun();
    // A failed read leaves the form blocked: it says why instead of showing stale entries.
    if (taskDescription().status() == TaskDescription::Fail)
        if (auto *form = qobject_cast<ConfigEntriesWidget *>(_element->elementWidget(ViewEditRole)))
            form->showError(taskDescription().message());
}

WriteEntriesTask::WriteEntriesTask(Element *file, ElementData *data)
    : UpdateTask(file, data)
    , _path(filePath(file))
{
    taskDescription().setDescription(tr("Write the entries of %1").arg(_path));
}

void WriteEntriesTask::run()
{
    QString errors;
    bool ok = false;
    const QVector<ConfigEntry> now = ConfigEntriesHandler::read(_path, errors, &ok);
    if (ok && now != fromVariant(_elementData->value(QStringLiteral("entries")))) {
        errors
            = tr("%1 changed since it was read; read it again and repeat the change.").arg(_path);
        ok = false;
    }
    if (ok) {
        ConfigEntriesHandler handler;
        handler.setTargets(fromVariant(_elementData->value(QStringLiteral("targets"))),
                           fromVariant(_elementData->value(QStringLiteral("extra"))));
        ok = RegExpHandler::rewriteSystemConfigureFile(_path, handler, errors, true);
    }
    taskDescription().setStatus(ok ? TaskDescription::Success : TaskDescription::Fail);
    taskDescription().setMessage(ok ? tr("%1 written; the previous content is in %1.bak").arg(_path)
                                    : errors.trimmed());
    AbstractTask::run();
}

QVariantList WriteEntriesTask::toVariant(const QVector<ConfigEntry> &entries)
{
    QVariantList list;
    for (const ConfigEntry &entry : entries)
        list << QVariant(QStringList {entry.key, entry.value});
    return list;
}

QVector<ConfigEntry> WriteEntriesTask::fromVariant(const QVariant &entries)
{
    QVector<ConfigEntry> result;
    for (const QVariant &entry : entries.toList()) {
        const QStringList pair = entry.toStringList();
        if (pair.size() == 2)
            result.append({pair.at(0), pair.at(1)});
    }
    return result;
}
