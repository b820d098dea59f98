#include "system/regexphandler.h"

#include <QFile>
#include <QFileInfo>
#include <QObject>
#include <QProcess>
#include <QStringList>

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

    // The temporary file starts as a copy so that it already has the file's mode and owner.
    const QString tmpPath = QStringLiteral("%1.tmp").arg(path);
    if (!safeCopy(path, tmpPath, errors))
        return false;

    QFile in(path);
    if (!in.open(QIODevice::ReadOnly)) {
        appendFileError(errors, in);
        return false;
    }
    QFile out(tmpPath);
    if (!out.open(QIODevice::WriteOnly | QIODevice::Truncate)) {
        appendFileError(errors, out);
        return false;
    }

    // The original bytes are kept so that a final copy that fails half-way can be undone.
    QByteArray original;
    bool written = true;
    for (;;) {
        QByteArray line = in.readLine();
        if (line.isEmpty())
            break;
        original += line;
        const QString decoded = QString::fromLocal8Bit(line);
        if (!matches(handler, significantText(decoded))) {
            written = written && writeAll(out, line);
            continue;
        }
        const bool replaced = handler.handleRegExp(&line);
        written = written && writeAll(out, line);
        if (replaced) {
            const int hash = decoded.indexOf(QLatin1Char('#'));
            const QString comment = hash < 0 ? QString() : decoded.mid(hash).trimmed();
            if (!comment.isEmpty())
                written = written && writeAll(out, '\t' + comment.toLocal8Bit());
            written = written && writeAll(out, "\n");
        }
    }
    if (in.error() != QFileDevice::NoError) {
        appendFileError(errors, in);
        return false;
    }
    QByteArray tail;
    if (handler.finalHandleRegExp(&tail))
        written = written && writeAll(out, tail);

    // A short write (a full disk) must never reach the configuration file.
    if (!written || !out.flush()) {
        appendFileError(errors, out);
        return false;
    }
    in.close();
    out.close();

    if (backup) {
        const QString backupPath = QStringLiteral("%1.bak").arg(path);
        QFile::remove(backupPath);
        QFile source(path);
        if (!source.copy(backupPath)) {
            appendFileError(errors, source);
            return false;
        }
    }

    if (!safeCopy(tmpPath, path, errors)) {
        restoreContents(path, original, errors);
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
