// A viewer for pictures and raw data on five canvases.

#include "MainWindow.h"
#include "Session.h"
#include "Translations.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QTimer>

#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <optional>

using namespace vostel::viewer;

namespace {

// Help, version and a scripted session need no screen; anything else says so in a sentence instead of ending
// with the toolkit's report of a missing plugin.
bool HasScreen(int argc, char** argv)
{
#if defined(Q_OS_UNIX) && !defined(Q_OS_MACOS)
    if (qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY") ||
        qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        return true;
    for (int i = 1; i < argc; ++i) {
        for (const char* const option : {"-h", "--help", "--help-all", "-v", "--version", "--tour"})
            if (std::strncmp(argv[i], option, std::strlen(option)) == 0) {
                qputenv("QT_QPA_PLATFORM", "offscreen");
                return true;
            }
    }
    return false;
#else
    static_cast<void>(argc);
    static_cast<void>(argv);
    return true;
#endif
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
    if (!HasScreen(argc, argv)) {
        std::fprintf(stderr, "vostel-viewer: there is no screen to show a window on; "
                             "--tour FOLDER works without one\n");
        return EXIT_FAILURE;
    }
    QApplication application(argc, argv);
    // The library reads and writes numbers with a point.
    std::setlocale(LC_NUMERIC, "C");
    QApplication::setOrganizationName(QStringLiteral("Vostel"));
    QApplication::setApplicationName(QStringLiteral("vostel-viewer"));
    QApplication::setApplicationVersion(QStringLiteral(VOSTEL_VERSION));
    LoadTranslations(application, LanguageOf(argc, argv));    // before the help text is made
    QApplication::setApplicationDisplayName(CommandText(ViewerName));

    QCommandLineParser parser;
    parser.setApplicationDescription(
        QApplication::translate("Main", "Shows pictures and raw data on up to five canvases."));
    parser.addHelpOption();
    parser.addVersionOption();
    const QCommandLineOption tour(
        QStringLiteral("tour"),
        QApplication::translate("Main", "Work on the first file by a script and leave pictures of it."),
        QApplication::translate("Main", "folder"));
    const QCommandLineOption language(
        QStringLiteral("language"),
        QApplication::translate("Main", "Language of the interface: en or zh_CN."),
        QApplication::translate("Main", "code"));
    parser.addOptions({tour, language});
    parser.addPositionalArgument(QStringLiteral("files"),
                                 QApplication::translate("Main", "Files to open, one on each canvas."),
                                 QStringLiteral("[files...]"));
    parser.process(application);

    MainWindow window;
    window.show();
    int result = EXIT_SUCCESS;
    // The canvases have their sizes once the window is on the screen.
    QTimer::singleShot(0, &window, [&] {
        std::optional<Session> script;
        if (parser.isSet(tour))
            script.emplace(window, parser.value(tour));
        if (!parser.positionalArguments().isEmpty())
            window.OpenFiles(parser.positionalArguments());
        if (!script)
            return;
        if (!script->Run()) {
            std::fprintf(stderr, "vostel-viewer: the tour could not be completed\n");
            result = EXIT_FAILURE;
        }
        window.close();
    });
    const int ended = application.exec();
    return ended != 0 ? ended : result;
}
