// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

// ovt-demo: an administration tool built on ovt-common. It loads the plug-ins of one
// directory, shows their modules, elements and element widgets, and runs their tasks on a
// pool of two worker threads.

#include "mainwindow.h"
#include "task/taskobserver.h"
#include "task/taskobservermodel.h"
#include "task/thread.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDialog>
#include <QFileInfo>
#include <QIcon>
#include <QImage>
#include <QLibraryInfo>
#include <QLocale>
#include <QTimer>
#include <QTranslator>

#include <cstdio>

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    // The settings store (module preferences, dialog geometry) is named after these.
    QApplication::setOrganizationName(QStringLiteral("ovt-common"));
    QApplication::setApplicationName(QStringLiteral("ovt-demo"));
    // Outside a desktop session Qt knows no icon theme; the library's icons come from one.
    if (QIcon::themeName().isEmpty() || QIcon::themeName() == QLatin1String("hicolor"))
        QIcon::setThemeName(QStringLiteral("Adwaita"));
    // The library translates its own texts; the standard buttons (OK, Cancel, Yes, No) are
    // Qt's and come from Qt's catalogue, which every tool loads itself.
    QTranslator qtTranslator;
    if (qtTranslator.load(QLocale(), QStringLiteral("qtbase"), QStringLiteral("_"),
                          QLibraryInfo::location(QLibraryInfo::TranslationsPath)))
        QApplication::installTranslator(&qtTranslator);

    QCommandLineParser parser;
    parser.setApplicationDescription(QApplication::translate("main", "Demo administration tool"));
    parser.addHelpOption();
    parser.addPositionalArgument(QStringLiteral("directory"),
                                 QApplication::translate("main", "Plug-in directory (default: %1)")
                                     .arg(QStringLiteral(OVT_DEMO_PLUGIN_DIR)),
                                 QStringLiteral("[directory]"));
    const QCommandLineOption quitAfter(
        QStringLiteral("quit-after"),
        QApplication::translate("main", "Quit after <ms> milliseconds (for smoke tests)."),
        QStringLiteral("ms"));
    const QCommandLineOption screenshot(
        QStringLiteral("screenshot"),
        QApplication::translate("main",
                                "Save the window as a PNG picture into <file> and quit, after "
                                "--quit-after milliseconds (default 3000)."),
        QStringLiteral("file"));
    const QCommandLineOption select(
        QStringLiteral("select"),
        QApplication::translate("main",
                                "Choose a module and an element by their ids: "
                                "<module>/<element>/<child element>…"),
        QStringLiteral("path"));
    const QCommandLineOption press(
        QStringLiteral("press"),
        QApplication::translate("main",
                                "After --select, press the button of the shown panel whose text "
                                "starts with <text> (for screenshots)."),
        QStringLiteral("text"));
    parser.addOptions({quitAfter, screenshot, select, press});
    parser.process(app);
    const QStringList positional = parser.positionalArguments();
    // By default the plug-ins built next to the tool; an installed tool finds them installed.
    QString directory = QStringLiteral(OVT_DEMO_PLUGIN_DIR);
    if (!positional.isEmpty())
        directory = positional.first();
    else if (!QFileInfo(directory).isDir())
        directory = QStringLiteral(OVT_DEMO_INSTALLED_PLUGIN_DIR);
    int quitMs = parser.isSet(screenshot) ? 3000 : -1;
    if (parser.isSet(quitAfter)) {
        bool ok = false;
        quitMs = parser.value(quitAfter).toInt(&ok);
        if (!ok || quitMs < 0)
            parser.showHelp(2); // exits, before any worker runs
    }

    // The library never starts workers: the tool owns its pool. Started before any plug-in
    // can hand a task to the observer, since the queue refuses tasks until then.
    QList<Thread *> workers;
    for (int i = 0; i < 2; ++i) {
        workers << new Thread;
        workers.last()->start();
    }

    int status = 0;
    {
        MainWindow window;
        // The observer's dialogs block input over the main window while tasks run.
        TaskObserver::instance(&window);
        window.show();

        // Armed before loading: loading may show a message box (a missing directory, say),
        // whose own event loop must not keep the tool from quitting. The timer closes modal
        // dialogs one after the other until the main loop is left.
        bool quitting = false;
        // Stoppable tasks still running are asked to stop, so that quitting waits for them
        // only until their next check point. Before the observer's dialog closes: closing it
        // forgets the tasks.
        const auto stopTasks = [] {
            TaskObserverModel *tasks = TaskObserver::instance()->model();
            for (int row = 0; row < tasks->rowCount(); ++row)
                tasks->setData(tasks->index(row, 1), TaskDescription::AboutToBeStopped);
        };
        QTimer quitTimer;
        QObject::connect(&quitTimer, &QTimer::timeout, &app, [&] {
            if (!quitting && parser.isSet(screenshot)) {
                const QString file = parser.value(screenshot);
                if (!window.render().save(file, "PNG")) {
                    std::fprintf(
                        stderr, "%s\n",
                        qPrintable(QApplication::translate("main", "Cannot write %1").arg(file)));
                    status = 1;
                }
            }
            if (!quitting)
                stopTasks();
            quitting = true;
            quitTimer.setInterval(50);
            if (QWidget *modal = QApplication::activeModalWidget()) {
                if (auto *dialog = qobject_cast<QDialog *>(modal))
                    dialog->reject();
                else
                    modal->close();
            }
            QCoreApplication::exit(status);
        });
        if (quitMs >= 0)
            quitTimer.start(quitMs);

        window.loadPlugins(directory);
        if (parser.isSet(select))
            window.select(parser.value(select).split(QLatin1Char('/'), Qt::SkipEmptyParts),
                          parser.value(press));
        if (!quitting)
            status = app.exec();
        else
            QCoreApplication::processEvents();
        stopTasks();
        // Before the window: destroying one worker stops the pool and waits for running
        // tasks, which may still report to the observer that the window owns.
        qDeleteAll(workers);
    }
    return status;
}
