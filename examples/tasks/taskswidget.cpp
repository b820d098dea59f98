// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "taskswidget.h"

#include "element/elementdata.h"
#include "task/dummytask.h"
#include "task/printwidgettask.h"
#include "task/stoppabledummytask.h"
#include "task/taskobserver.h"
#include "tasksmodule.h"
#include "ui_taskswidget.h"

#include <QPushButton>

TasksWidget::TasksWidget(Module &module)
    : ElementWidget(module, &Module::defaultTrue)
    , _ui(new Ui::TasksWidget)
{
    _ui->setupUi(this);
    _elementType = QStringLiteral("taskExamples");
    // The tasks own nothing of this widget: an element argument is not used by them.
    connect(_ui->_dummy, &QPushButton::clicked, this,
            [] { TaskObserver::instance()->performTask(new DummyTask(nullptr, true)); });
    connect(_ui->_failingDummy, &QPushButton::clicked, this,
            [] { TaskObserver::instance()->performTask(new DummyTask(nullptr, false)); });
    connect(_ui->_stoppable, &QPushButton::clicked, this,
            [] { TaskObserver::instance()->performTask(new StoppableDummyTask(nullptr)); });
    connect(_ui->_printPreview, &QPushButton::clicked, this, &TasksWidget::printPreview);
}

TasksWidget::~TasksWidget()
{
    delete _ui;
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
