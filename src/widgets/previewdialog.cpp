// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "widgets/previewdialog.h"

#include "element/elementdata.h"
#include "task/exporthtmltask.h"
#include "task/taskobserver.h"
#include "ui_previewdialog.h"

#include <QFileDialog>
#include <QPageSetupDialog>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QPrinter>

PreviewDialog *PreviewDialog::_instance = nullptr;

PreviewDialog *PreviewDialog::instance()
{
    if (!_instance) {
        _instance = new PreviewDialog;
        // Widgets must go before the application object; its destruction runs the routines.
        qAddPostRoutine([] { delete _instance; });
    }
    return _instance;
}

PreviewDialog::PreviewDialog(QWidget *parent)
    : QDialog(parent)
    , _ui(new Ui::PreviewDialog)
    , _printer(nullptr)
{
    _ui->setupUi(this);
    const struct
    {
        QToolButton *button;
        const char *icon;
        QKeySequence::StandardKey key;
        void (PreviewDialog::*slot)();
    } actions[] = {
        {_ui->_printButton, "document-print", QKeySequence::Print, &PreviewDialog::print},
        {_ui->_printPreviewButton, "document-print-preview", QKeySequence::UnknownKey,
         &PreviewDialog::printPreview},
        {_ui->_pageSetupButton, "document-page-setup", QKeySequence::UnknownKey,
         &PreviewDialog::pageSetup},
        {_ui->_exportButton, "document-export", QKeySequence::SaveAs, &PreviewDialog::exportToHtml},
        {_ui->_zoomInButton, "zoom-in", QKeySequence::ZoomIn, &PreviewDialog::zoomIn},
        {_ui->_zoomOutButton, "zoom-out", QKeySequence::ZoomOut, &PreviewDialog::zoomOut},
    };
    for (const auto &action : actions) {
        action.button->setIcon(QIcon::fromTheme(QString::fromLatin1(action.icon)));
        if (action.key != QKeySequence::UnknownKey)
            action.button->setShortcut(QKeySequence(action.key));
        connect(action.button, &QToolButton::clicked, this, action.slot);
    }
    connect(_ui->_buttonBox, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

PreviewDialog::~PreviewDialog()
{
    if (_instance == this)
        _instance = nullptr;
    delete _printer;
    delete _ui;
}

QString PreviewDialog::html() const
{
    return _html;
}

void PreviewDialog::preview(const QString &html)
{
    _html = html;
    _ui->_textBrowser->setHtml(html);
    show();
    raise();
    activateWindow();
}

void PreviewDialog::print()
{
    if (!_printer)
        _printer = new QPrinter(QPrinter::HighResolution);
    QPrintDialog dialog(_printer, this);
    if (dialog.exec() == QDialog::Accepted)
        _ui->_textBrowser->document()->print(_printer);
}

void PreviewDialog::printPreview()
{
    if (!_printer)
        _printer = new QPrinter(QPrinter::HighResolution);
    QPrintPreviewDialog dialog(_printer, this);
    connect(&dialog, &QPrintPreviewDialog::paintRequested, this,
            [this](QPrinter *printer) { _ui->_textBrowser->document()->print(printer); });
    dialog.exec();
}

void PreviewDialog::pageSetup()
{
    if (!_printer)
        _printer = new QPrinter(QPrinter::HighResolution);
    QPageSetupDialog dialog(_printer, this);
    dialog.exec();
}

void PreviewDialog::exportToHtml()
{
    exportTo(QFileDialog::getSaveFileName(this, tr("Export to HTML"), QString(),
                                          tr("HTML files (*.html *.htm);;All files (*)")));
}

void PreviewDialog::exportTo(const QString &filePath)
{
    if (filePath.isEmpty())
        return;
    auto *data = new ElementData;
    data->insert(QStringLiteral("filePath"), filePath);
    data->insert(QStringLiteral("htmlText"), _html);
    TaskObserver::instance()->performTask(new ExportHtmlTask(data));
}

void PreviewDialog::zoomIn()
{
    _ui->_textBrowser->zoomIn();
}

void PreviewDialog::zoomOut()
{
    _ui->_textBrowser->zoomOut();
}
