// vostel-viewer-tour FOLDER FILE: leaves pictures of the viewer at work on a file, on a screen or without
// one.

#include "ViewerApplication.h"
#include "ViewerTour.h"
#include "window/MainWindow.h"

#include <QCommandLineParser>
#include <QTemporaryDir>
#include <QTimer>

#include <cstdio>
#include <cstdlib>

using namespace vostel::viewer;

int main(int argc, char** argv)
{
    if (!HasScreen())
        qputenv("QT_QPA_PLATFORM", "offscreen");
    // Like a first run, whatever the person's own viewer looks like, which is left as it is.
    const QTemporaryDir home;
    for (const char* const folder : {"XDG_CONFIG_HOME", "XDG_DATA_HOME"})
        qputenv(folder, home.path().toLocal8Bit());
    ViewerApplication application(argc, argv, QString());

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
    window.resize(1280, 840);
    window.show();
    bool complete = false;
    // The canvases have their sizes once the window is on the screen.
    QTimer::singleShot(0, &window, [&] {
        complete = ViewerTour(window, arguments[0]).Run(arguments[1]);
        QApplication::exit();    // without the question what is to be saved
    });
    QApplication::exec();
    if (!complete)
        std::fprintf(stderr, "vostel-viewer-tour: the tour could not be completed\n");
    return complete ? EXIT_SUCCESS : EXIT_FAILURE;
}
