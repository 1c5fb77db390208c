// A viewer for pictures, stacks and raw data, which measures what is drawn on them.

#include "ViewerApplication.h"
#include "help/Tour.h"
#include "window/MainWindow.h"
#include "window/Workspace.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QTimer>

#include <cstdio>
#include <cstdlib>
#include <cstring>

using namespace vostel::viewer;

namespace {

bool NeedsNoScreen(int argc, char** argv)
{
    for (int i = 1; i < argc; ++i)
        for (const char* const option : {"-h", "--help", "--help-all", "-v", "--version"})
            if (std::strcmp(argv[i], option) == 0)
                return true;
    return false;
}

QString LanguageOf(int argc, char** argv)
{
    for (int i = 1; i < argc; ++i) {
        if (std::strcmp(argv[i], "--language") == 0 && i + 1 < argc)
            return QString::fromLocal8Bit(argv[i + 1]);
        if (std::strncmp(argv[i], "--language=", 11) == 0)
            return QString::fromLocal8Bit(argv[i] + 11);
    }
    return QString();
}

}

int main(int argc, char** argv)
{
    if (!HasScreen()) {
        if (!NeedsNoScreen(argc, argv)) {
            // Instead of the toolkit's report of a missing plugin.
            std::fprintf(stderr, "vostel-viewer: there is no screen to show a window on\n");
            return EXIT_FAILURE;
        }
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    ViewerApplication application(argc, argv, LanguageOf(argc, argv));

    QCommandLineParser parser;
    parser.setApplicationDescription(QApplication::translate(
        "Main", "Shows pictures, stacks and raw data, and measures what is drawn on them."));
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addOption({QStringLiteral("language"),
                      QApplication::translate("Main", "Language of the interface: en or zh_CN."),
                      QApplication::translate("Main", "code")});
    parser.addPositionalArgument(QStringLiteral("files"),
                                 QApplication::translate("Main", "Files, folders and sessions to open."),
                                 QStringLiteral("[files...]"));
    parser.process(application);

    MainWindow window;
    window.show();
    // The canvases have their sizes once the window is on the screen.
    QTimer::singleShot(0, &window, [&] {
        window.OpenFiles(parser.positionalArguments());
        window.OfferRecovery();
        if (!Tour::WasSeen())
            new Tour(&window.Area());
    });
    return QApplication::exec();
}
