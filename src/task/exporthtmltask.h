// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "task/abstracttask.h"

#include <QCoreApplication>

/**
 * Writes the data property "htmlText" in UTF-8 into the file named by "filePath". The print
 * preview dialog starts it for its export action.
 *
 * The file is opened without following a symbolic link at the path, so a link planted there
 * cannot redirect the write.
 */
class OVTCOMMON_EXPORT ExportHtmlTask : public AbstractTask
{
    Q_DECLARE_TR_FUNCTIONS(ExportHtmlTask)

public:
    /** Titled "Export to HTML"; takes ownership of @p data. */
    explicit ExportHtmlTask(ElementData *data);

    /** Fails with "\"<path>\" error <QFileDevice error number>\n<error text>". */
    void run() override;
    /** Does nothing. */
    void afterRun() override;
};
