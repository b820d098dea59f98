#pragma once

#include "ovtcommon_export.h"

#include <QByteArray>
#include <QRegExp>
#include <QString>

/**
 * Reads and rewrites line-oriented configuration files ("#" starts a comment) by matching each
 * line against one regular expression and handing every matching line to a subclass.
 *
 * Comment-only and blank lines are never offered to the handler; the text after "#" is not
 * matched. Reading never changes the file. Rewriting works on a temporary copy "<file>.tmp" next
 * to the file and puts the result back with the system cp command, so the file keeps its mode
 * and owner; the file is left exactly as it was unless rewriting returns true.
 *
 * Failures are not thrown: each one appends a translated message to the caller's error text
 * (one message per line) and makes the call return false.
 */
class OVTCOMMON_EXPORT RegExpHandler
{
public:
    /** @p pattern is compiled case-sensitively with the ordinary regular-expression syntax. */
    explicit RegExpHandler(const QString &pattern);
    virtual ~RegExpHandler();

    /**
     * Called for every line whose significant text (before any "#", trimmed) matches; the
     * captures of regExp() hold that match.
     *
     * While reading, @p line is null: collect what you need from the captures. While rewriting,
     * @p line holds the line's bytes as read, line feed included. Replace them and return true
     * to rewrite the line: the new bytes are written without a line feed of their own, followed
     * by the old trailing comment behind a tab, if there was one, and a line feed. Returning
     * false keeps the line byte for byte.
     */
    virtual bool handleRegExp(QByteArray *line) = 0;

    /**
     * Called once at the end of a rewrite with an empty array; return true to append its bytes
     * to the file (for lines that were missing). Does nothing and returns false here.
     */
    virtual bool finalHandleRegExp(QByteArray *data);

    /** The expression matched against each line; its captures describe the current match. */
    QRegExp &regExp();

    /** Offers every matching line of @p path to @p handler with a null line. */
    static bool readSystemConfigureFile(const QString &path, RegExpHandler &handler,
                                        QString &errors);

    /**
     * Rewrites @p path through @p handler. With @p backup the previous contents are kept in
     * "<path>.bak" (an older backup is replaced). On a failure the file is unchanged and the
     * result is false. The one exception: when the file has been rewritten but "<path>.tmp"
     * cannot be removed, the message is added and the result is still true.
     */
    static bool rewriteSystemConfigureFile(const QString &path, RegExpHandler &handler,
                                           QString &errors, bool backup);

    /** Copies with "cp --force --preserve=mode,ownership"; waits up to 30 seconds. */
    static bool safeCopy(const QString &from, const QString &to, QString &errors);

private:
    QRegExp _regExp;
};
