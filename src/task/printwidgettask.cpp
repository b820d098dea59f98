// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "task/printwidgettask.h"

#include "element/elementdata.h"
#include "widgets/previewdialog.h"

#include <QAbstractMessageHandler>
#include <QUrl>
#include <QXmlNamePool>
#include <QXmlQuery>

namespace {

const QString htmlKey = QStringLiteral("htmlText");

// The query's own diagnostics would go to the log; the task reports the failure itself.
class SilentHandler : public QAbstractMessageHandler
{
protected:
    void handleMessage(QtMsgType, const QString &, const QUrl &, const QSourceLocation &) override
    { }
};

} // namespace

PrintWidgetTask::PrintWidgetTask(ElementWidget *widget, ElementData *data)
    : ElementWidgetTask(widget, data)
{ }

void PrintWidgetTask::run()
{
    const QString xml
        = _elementData ? _elementData->value(QStringLiteral("xmlText")).toString() : QString();
    const QString templateName
        = _elementData ? _elementData->value(QStringLiteral("templateName")).toString() : QString();
    QUrl styleSheet(templateName);
    if (styleSheet.scheme().isEmpty())
        styleSheet = QUrl::fromLocalFile(templateName);

    QXmlNamePool namePool;
    SilentHandler handler;
    QXmlQuery query(QXmlQuery::XSLT20, namePool);
    query.setMessageHandler(&handler);
    QString html;
    bool transformed = false;
    if (_elementData && !templateName.isEmpty() && query.setFocus(xml)) {
        query.setQuery(styleSheet);
        transformed = query.isValid() && query.evaluateTo(&html);
    }
    if (transformed) {
        _elementData->insert(htmlKey, html);
        _taskDescription.setStatus(TaskDescription::Success);
    } else {
        _taskDescription.setStatus(TaskDescription::Fail);
        _taskDescription.setMessage(tr("Internal error: %1").arg(tr("XML transformation failed")));
    }
    AbstractTask::run();
}

void PrintWidgetTask::afterRun()
{
    if (_taskDescription.status() == TaskDescription::Fail || !_elementData
        || !_elementData->contains(htmlKey))
        return;
    PreviewDialog::instance()->preview(_elementData->value(htmlKey).toString());
}
