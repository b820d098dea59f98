// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "ovtcommon_export.h"

#include <QDialog>

class QPrinter;

namespace Ui {
class PreviewDialog;
}

/**
 * The print preview of the process: one non-modal dialog that shows an HTML document (the
 * result of a PrintWidgetTask, for instance) and lets the user print it, see Qt's page preview,
 * set up the page, zoom, and export the document to an HTML file.
 *
 * Reach it through instance(); preview() replaces the document and brings the dialog up. The
 * export writes through an ExportHtmlTask started with the task observer, so a failed export
 * ends as a failed task the user reads and dismisses there.
 */
class OVTCOMMON_EXPORT PreviewDialog : public QDialog
{
    Q_OBJECT

public:
    /**
     * The one dialog, created top-level on first use and deleted when the application object
     * goes.
     */
    static PreviewDialog *instance();
    ~PreviewDialog() override;

    /** The HTML text last given to preview(); exported as it is. */
    QString html() const;

public Q_SLOTS:
    /** Shows @p html, keeping the zoom, and shows, raises and activates the dialog. */
    void preview(const QString &html);
    /** Qt's print dialog; prints the document when the user accepts. */
    void print();
    /** Qt's print preview dialog over the document. */
    void printPreview();
    /** Qt's page setup dialog for the printer that print() and printPreview() use. */
    void pageSetup();
    /** Asks for a file name and calls exportTo() with it; nothing when the user cancels. */
    void exportToHtml();
    /** Starts an ExportHtmlTask writing html() into @p filePath; nothing for an empty path. */
    void exportTo(const QString &filePath);
    void zoomIn();
    void zoomOut();

private:
    explicit PreviewDialog(QWidget *parent = nullptr);

    Ui::PreviewDialog *_ui;
    QPrinter *_printer; // owned; created on first use, keeps the page setup between prints
    QString _html;

    static PreviewDialog *_instance;
};
