// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "task/exporthtmltask.h"

#include "element/elementdata.h"

#include <QFile>

#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

ExportHtmlTask::ExportHtmlTask(ElementData *data)
    : AbstractTask(data)
{
    _taskDescription.setDescription(tr("Export to HTML"));
}

void ExportHtmlTask::run()
{
    const QString path
        = _elementData ? _elementData->value(QStringLiteral("filePath")).toString() : QString();
    const QString html
        = _elementData ? _elementData->value(QStringLiteral("htmlText")).toString() : QString();
    QFile file;
    QFileDevice::FileError error = QFileDevice::OpenError;
    QString errorText;
    // Root writes here: O_NOFOLLOW keeps a planted link from choosing the file.
    int fd = -1;
    errno = ENOENT;
    if (!path.isEmpty())
        fd = ::open(QFile::encodeName(path).constData(),
                    O_WRONLY | O_CREAT | O_TRUNC | O_NOFOLLOW | O_CLOEXEC, 0666);
    if (fd < 0) {
        errorText = qt_error_string(errno);
    } else if (!file.open(fd, QIODevice::WriteOnly, QFileDevice::AutoCloseHandle)) {
        ::close(fd);
        error = file.error();
        errorText = file.errorString();
    } else {
        const QByteArray bytes = html.toUtf8();
        const bool written = file.write(bytes) == bytes.size() && file.flush();
        error = written                            ? QFileDevice::NoError
            : file.error() != QFileDevice::NoError ? file.error()
                                                   : QFileDevice::WriteError;
        errorText = file.errorString();
        file.close();
    }
    if (error == QFileDevice::NoError) {
        _taskDescription.setStatus(TaskDescription::Success);
    } else {
        _taskDescription.setStatus(TaskDescription::Fail);
        _taskDescription.setMessage(
            tr("\"%1\" error %2\n%3").arg(path, QString::number(error), errorText));
    }
    AbstractTask::run();
}
