// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "task/elementwidgettask.h"

#include <QCoreApplication>

/**
 * Turns an XML document into HTML with an XSLT 2.0 style sheet on a worker thread and shows
 * the result in the print preview dialog.
 *
 * Data properties: "xmlText" (the document), "templateName" (the style sheet: a URL, or a local
 * path) in; "htmlText" out.
 */
class OVTCOMMON_EXPORT PrintWidgetTask : public ElementWidgetTask
{
    Q_DECLARE_TR_FUNCTIONS(PrintWidgetTask)

public:
    PrintWidgetTask(ElementWidget *widget, ElementData *data);

    /**
     * Transforms; on success stores "htmlText". Any failure (no data, a missing or broken style
     * sheet or document) reports "Internal error: XML transformation failed".
     */
    void run() override;
    /** Unless the task failed, shows "htmlText" in PreviewDialog::instance(). */
    void afterRun() override;
};
