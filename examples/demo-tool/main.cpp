// ovt-demo: the smallest complete administration tool built on ovt-common. It loads the
// plug-ins of one directory, shows their modules and elements, and runs their tasks on a
// pool of two worker threads.

#include "mainwindow.h"
#include "task/taskobserver.h"
#include "task/thread.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QIcon>
#include <QTimer>

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    // The settings store (module preferences, dialog geometry) is named after these.
    QApplication::setOrganizationName(QStringLiteral("ovt-common"));
    QApplication::setApplicationName(QStringLiteral("ovt-demo"));
    // Outside a desktop session Qt knows no icon theme; the library's icons come from one.
    if (QIcon::themeName().isEmpty() || QIcon::themeName() == QLatin1String("hicolor"))
        QIcon::setThemeName(QStringLiteral("Adwaita"));

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
    parser.addOption(quitAfter);
    parser.process(app);
    const QStringList positional = parser.positionalArguments();
    const QString directory
        = positional.isEmpty() ? QStringLiteral(OVT_DEMO_PLUGIN_DIR) : positional.first();
    int quitMs = -1;
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

    MainWindow window;
    // The observer's dialogs block input over the main window while tasks run.
    TaskObserver::instance(&window);
    window.show();
    window.loadPlugins(directory);

    if (quitMs >= 0) {
        // quit(), not close(): it also ends a task dialog that is still open.
        QTimer::singleShot(quitMs, &app, &QCoreApplication::quit);
    }

    const int status = app.exec();
    // Before the window: destroying one worker stops the pool and waits for running tasks,
    // which may still report to the observer that the window owns.
    qDeleteAll(workers);
    return status;
}
