// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "system/regexphandler.h"

#include <QFile>
#include <QFileInfo>
#include <QObject>
#include <QProcess>
#include <QStringList>

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr int copyTimeoutMs = 30000;

void appendError(QString &errors, const QString &message)
{
    if (!errors.isEmpty())
        errors += QLatin1Char('\n');
    errors += message;
}

void appendFileError(QString &errors, const QFileDevice &file)
{
    appendError(errors,
                QObject::tr("\"%1\" error %2\n%3")
                    .arg(file.fileName(), QString::number(int(file.error())), file.errorString()));
}

void appendSystemError(QString &errors, const QString &path, QFileDevice::FileError code, int error)
{
    appendError(
        errors,
        QObject::tr("\"%1\" error %2\n%3")
            .arg(path, QString::number(int(code)), QString::fromLocal8Bit(strerror(error))));
}

void appendNotExists(QString &errors, const QString &path)
{
    appendError(errors, QObject::tr("\"%1\" not exists").arg(path));
}

// The text before the first "#", trimmed; empty for blank and comment-only lines.
QString significantText(const QString &line)
{
    const int hash = line.indexOf(QLatin1Char('#'));
    return (hash < 0 ? line : line.left(hash)).trimmed();
}

bool matches(RegExpHandler &handler, const QString &significant)
{
    return !significant.isEmpty() && handler.regExp().indexIn(significant, 0) != -1;
}

bool writeAll(QFile &file, const QByteArray &bytes)
{
    return file.write(bytes) == bytes.size();
}

// Puts @p original back into @p path when a failed copy may have touched it. Returns false
// only when the file differs from @p original and could not be restored.
bool restoreContents(const QString &path, const QByteArray &original, QString &errors)
{
    QFile current(path);
    if (current.open(QIODevice::ReadOnly) && current.readAll() == original
        && current.error() == QFileDevice::NoError)
        return true;
    current.close();

    // Opening for writing truncates in place, so the inode and with it the mode and owner of
    // the file stay as they are whenever the file still exists.
    QFile restored(path);
    if (!restored.open(QIODevice::WriteOnly | QIODevice::Truncate) || !writeAll(restored, original)
        || !restored.flush()) {
        appendFileError(errors, restored);
        return false;
    }
    return true;
}

// An open, exclusively locked descriptor of a regular file; closed (and unlocked) with it.
struct LockedFile
{
    ~LockedFile()
    {
        if (fd >= 0)
            ::close(fd);
    }
    int fd = -1;
    struct stat status = {};
};

// Locks @p path for one rewrite. Rewriters of one file take turns on this lock; one that waited
// checks that the path still names the file it locked (an earlier rewrite may have replaced
// it) and locks again if not. Returns the errno of a failure, 0 on success.
int lockFile(const QByteArray &path, LockedFile &locked)
{
    for (;;) {
        // Non-blocking, so that a FIFO planted in place of the file cannot stall the open.
        const int fd = ::open(path.constData(), O_RDONLY | O_NONBLOCK | O_NOFOLLOW | O_CLOEXEC);
        if (fd < 0)
            return errno;
        int result;
        do
            result = ::flock(fd, LOCK_EX);
        while (result != 0 && errno == EINTR);
        struct stat named;
        if (result != 0 || ::fstat(fd, &locked.status) != 0) {
            const int error = errno;
            ::close(fd);
            return error;
        }
        if (!S_ISREG(locked.status.st_mode)) {
            ::close(fd);
            return EINVAL;
        }
        if (::lstat(path.constData(), &named) == 0 && named.st_dev == locked.status.st_dev
            && named.st_ino == locked.status.st_ino) {
            locked.fd = fd;
            return 0;
        }
        ::close(fd);
    }
}

// Creates @p path as a new file only this process can open. Whatever stood there before (a
// stale copy, or a link someone planted) is removed, never followed; if something is put back
// in between, the exclusive create fails instead of writing through it.
int createFresh(const QByteArray &path)
{
    struct stat old;
    if (::lstat(path.constData(), &old) == 0 && !S_ISDIR(old.st_mode))
        ::unlink(path.constData());
    return ::open(path.constData(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600);
}

// Writes @p bytes into the new file @p fd, gives it @p owner's mode (and owner, when
// @p keepOwner) and closes it. Returns the errno of a failure, 0 on success.
int fillFresh(int fd, const QByteArray &bytes, const struct stat &owner, bool keepOwner)
{
    qint64 done = 0;
    int error = 0;
    while (done < bytes.size() && error == 0) {
        const ssize_t n = ::write(fd, bytes.constData() + done, size_t(bytes.size() - done));
        if (n > 0)
            done += n;
        else if (n < 0 && errno != EINTR)
            error = errno;
    }
    // The owner first: changing it clears set-id bits that the mode then restores. Only root
    // can give a file away; anybody else keeps the file as its own, as cp would.
    if (error == 0 && keepOwner && ::fchown(fd, owner.st_uid, owner.st_gid) != 0
        && !(errno == EPERM && ::geteuid() != 0))
        error = errno;
    if (error == 0 && ::fchmod(fd, owner.st_mode & 07777) != 0)
        error = errno;
    if (::close(fd) != 0 && error == 0)
        error = errno;
    return error;
}

} // namespace

RegExpHandler::RegExpHandler(const QString &pattern)
    : _regExp(pattern, Qt::CaseSensitive, QRegExp::RegExp)
{ }

RegExpHandler::~RegExpHandler() = default;

bool RegExpHandler::finalHandleRegExp(QByteArray *data)
{
    Q_UNUSED(data)
    return false;
}

QRegExp &RegExpHandler::regExp()
{
    return _regExp;
}

bool RegExpHandler::readSystemConfigureFile(const QString &path, RegExpHandler &handler,
                                            QString &errors)
{
    if (!QFileInfo::exists(path)) {
        appendNotExists(errors, path);
        return false;
    }
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        appendFileError(errors, file);
        return false;
    }
    for (;;) {
        const QByteArray line = file.readLine();
        if (line.isEmpty())
            break;
        if (matches(handler, significantText(QString::fromLocal8Bit(line))))
            handler.handleRegExp(nullptr);
    }
    if (file.error() != QFileDevice::NoError) {
        appendFileError(errors, file);
        return false;
    }
    return true;
}

bool RegExpHandler::rewriteSystemConfigureFile(const QString &path, RegExpHandler &handler,
                                               QString &errors, bool backup)
{
    if (!QFileInfo::exists(path)) {
        appendNotExists(errors, path);
        return false;
    }

    // A link is resolved once; from here on only the real file is read, locked and replaced.
    const QString realPath = QFileInfo(path).canonicalFilePath();
    const QString tmpPath = QStringLiteral("%1.tmp").arg(path);
    LockedFile locked;
    if (const int error = lockFile(QFile::encodeName(realPath), locked)) {
        appendSystemError(errors, path, QFileDevice::OpenError, error);
        return false;
    }

    QFile in;
    if (!in.open(locked.fd, QIODevice::ReadOnly, QFileDevice::DontCloseHandle)) {
        appendFileError(errors, in);
        return false;
    }
    // Everything is produced in memory first: the temporary file is created only when there
    // is something to put in it, and filled in one go.
    QByteArray original;
    QByteArray result;
    for (;;) {
        QByteArray line = in.readLine();
        if (line.isEmpty())
            break;
        original += line;
        const QString decoded = QString::fromLocal8Bit(line);
        if (!matches(handler, significantText(decoded))) {
            result += line;
            continue;
        }
        const bool replaced = handler.handleRegExp(&line);
        result += line;
        if (replaced) {
            const int hash = decoded.indexOf(QLatin1Char('#'));
            const QString comment = hash < 0 ? QString() : decoded.mid(hash).trimmed();
            if (!comment.isEmpty())
                result += '\t' + comment.toLocal8Bit();
            result += '\n';
        }
    }
    if (in.error() != QFileDevice::NoError) {
        appendSystemError(errors, path, QFileDevice::ReadError, EIO);
        return false;
    }
    QByteArray tail;
    if (handler.finalHandleRegExp(&tail))
        result += tail;

    const int tmpFd = createFresh(QFile::encodeName(tmpPath));
    if (tmpFd < 0) {
        appendSystemError(errors, tmpPath, QFileDevice::OpenError, errno);
        return false;
    }
    // The copy gets the file's mode and owner, which cp then carries over to the file.
    if (const int error = fillFresh(tmpFd, result, locked.status, true)) {
        appendSystemError(errors, tmpPath, QFileDevice::WriteError, error);
        return false;
    }

    if (backup) {
        const QString backupPath = QStringLiteral("%1.bak").arg(path);
        const int backupFd = createFresh(QFile::encodeName(backupPath));
        const int error
            = backupFd < 0 ? errno : fillFresh(backupFd, original, locked.status, false);
        if (error) {
            appendSystemError(errors, path, QFileDevice::CopyError, error);
            return false;
        }
    }

    if (!safeCopy(tmpPath, realPath, errors)) {
        restoreContents(realPath, original, errors);
        return false;
    }

    QFile tmp(tmpPath);
    if (!tmp.remove())
        appendFileError(errors, tmp);
    return true;
}

bool RegExpHandler::safeCopy(const QString &from, const QString &to, QString &errors)
{
    const QString program = QStringLiteral("cp");
    const QStringList arguments {QStringLiteral("--force"),
                                 QStringLiteral("--preserve=mode,ownership"), from, to};
    const QString joined = arguments.join(QLatin1Char(' '));

    QProcess process;
    process.start(program, arguments, QIODevice::ReadOnly);
    if (!process.waitForStarted(copyTimeoutMs)) {
        appendError(errors,
                    QObject::tr("Process: \"%1 %2\". Error: %3.\n\"Not started\"")
                        .arg(program, joined, process.errorString()));
        return false;
    }
    if (!process.waitForFinished(copyTimeoutMs) || process.exitStatus() != QProcess::NormalExit) {
        appendError(errors,
                    QObject::tr("Process: \"%1 %2\". Error: %3.\n\"Not finished\"")
                        .arg(program, joined, process.errorString()));
        return false;
    }
    if (process.exitCode() != 0) {
        appendError(errors,
                    QObject::tr("Process: \"%1 %2\". Exit code: %3.\n\"%4\"")
                        .arg(program, joined, QString::number(process.exitCode()),
                             QString::fromLocal8Bit(process.readAllStandardError())));
        return false;
    }
    return true;
}
