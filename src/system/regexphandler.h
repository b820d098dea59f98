// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

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
 * matched. Reading never changes the file. Rewriting writes the result into a temporary file
 * "<file>.tmp" next to the file and puts it back with the system cp command, so the file keeps
 * its mode and owner; the file is left exactly as it was unless rewriting returns true.
 *
 * Rewriting is safe in a directory that other users can write and from several threads or
 * processes at once:
 * - nothing found at "<file>.tmp" or "<file>.bak" is ever followed or written through: what is
 *   there is removed (a directory is an error) and the file is created anew, exclusively and
 *   without following links, before anything is written into it;
 * - a file that is a symbolic link is resolved once, and its real file is read and rewritten
 *   (the link stays a link; a real file that cannot be written is an error, not replaced);
 * - rewrites of one file take turns on an advisory lock (flock) held on the real file from
 *   reading it to putting the result back, so each sees the result of the one before and the
 *   file always ends as one complete result.
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
     * "<path>.bak" (an older backup is replaced; the backup keeps the mode, not the owner). On a
     * failure the file is unchanged and the result is false. The one exception: when the file has
     * been rewritten but "<path>.tmp" cannot be removed, the message is added and the result is
     * still true.
     */
    static bool rewriteSystemConfigureFile(const QString &path, RegExpHandler &handler,
                                           QString &errors, bool backup);

    /** Copies with "cp --force --preserve=mode,ownership"; waits up to 30 seconds. */
    static bool safeCopy(const QString &from, const QString &to, QString &errors);

private:
    QRegExp _regExp;
};
