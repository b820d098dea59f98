#include "taskswidget.h"

#include "element/elementdata.h"
#include "task/dummytask.h"
#include "task/printwidgettask.h"
#include "task/stoppabledummytask.h"
#include "task/taskobserver.h"
#include "tasksmodule.h"

#include <QIcon>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

TasksWidget::TasksWidget(Module &module)
    : ElementWidget(module, &Module::defaultTrue)
{
    _elementType = QStringLiteral("taskExamples");
    setWindowTitle(tr("Task examples"));
    auto *layout = new QVBoxLayout(this);
    auto *intro = new QLabel(tr("Each button hands a task to the worker pool. A batch that "
                                "takes longer than a second opens the task observer; a failed "
                                "task keeps it open."));
    intro->setWordWrap(true);
    layout->addWidget(intro);
    auto addButton = [&](const char *icon, const QString &text, auto slot) {
        auto *button = new QPushButton(QIcon::fromTheme(QLatin1String(icon)), text);
        connect(button, &QPushButton::clicked, this, slot);
        layout->addWidget(button);
    };
    // The tasks own nothing of this widget: an element argument is not used by them.
    addButton("media-playback-start", tr("Run a dummy task (succeeds after 5 s)"),
              [] { TaskObserver::instance()->performTask(new DummyTask(nullptr, true)); });
    addButton("dialog-error", tr("Run a dummy task that fails"),
              [] { TaskObserver::instance()->performTask(new DummyTask(nullptr, false)); });
    addButton("media-playback-stop", tr("Run a stoppable task (stop it in the observer)"),
              [] { TaskObserver::instance()->performTask(new StoppableDummyTask(nullptr)); });
    addButton("document-print-preview", tr("Print preview of the element list"),
              [this] { printPreview(); });
    layout->addStretch();
}

QString TasksWidget::styleSheetUrl()
{
    return QStringLiteral("qrc:/ovt-example-tasks/elementlist.xsl");
}

void TasksWidget::printPreview()
{
    auto *data = new ElementData;
    data->insert(QStringLiteral("xmlText"), TasksModule::elementListXml(_element));
    data->insert(QStringLiteral("templateName"), styleSheetUrl());
    // The transformation runs on a worker; the preview dialog opens when it is done.
    TaskObserver::instance()->performTask(new PrintWidgetTask(this, data));
}
