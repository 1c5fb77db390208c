// vostel-viewer-tour FOLDER FILE: leaves pictures of the viewer at work on a file, on a screen or without
// one.

#include "MainWindow.h"
#include "ViewerApplication.h"
#include "ViewerTour.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QSettings>
#include <QTemporaryDir>
#include <QTimer>

#include <cstdio>
#include <cstdlib>

using namespace vostel::viewer;

int main(int argc, char** argv)
{
    if (!HasScreen())
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    PrepareApplication(application, QStringLiteral("vostel-viewer-tour"), QString());
    // Like a first run, whatever the person's own viewer looks like, which is left as it is.
    const QTemporaryDir settings;
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, settings.path());

    QCommandLineParser parser;
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addPositionalArgument(QStringLiteral("folder"), QStringLiteral("Where the pictures go."));
    parser.addPositionalArgument(QStringLiteral("file"), QStringLiteral("A picture or a raw file."));
    parser.process(application);
    const QStringList arguments = parser.positionalArguments();
    if (arguments.size() != 2)
        parser.showHelp(EXIT_FAILURE);

    MainWindow window;
    window.show();
    bool complete = false;
    // The canvases have their sizes once the window is on the screen.
    QTimer::singleShot(0, &window, [&] {
        ViewerTour tour(window, arguments[0]);
        window.OpenFiles({arguments[1]});
        complete = tour.Run();
        window.close();
    });
    QApplication::exec();
    if (!complete)
        std::fprintf(stderr, "vostel-viewer-tour: the tour could not be completed\n");
    return complete ? EXIT_SUCCESS : EXIT_FAILURE;
}
