#include "ViewerApplication.h"

#include "Translations.h"
#include "commands/Commands.h"

#include <QApplication>

#include <clocale>

namespace vostel::viewer {

bool HasScreen()
{
#if defined(Q_OS_UNIX) && !defined(Q_OS_MACOS)
    return qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY") ||
           qEnvironmentVariableIsSet("QT_QPA_PLATFORM");
#else
    return true;
#endif
}

void PrepareApplication(QApplication& application, const QString& name, const QString& language)
{
    // The library reads and writes numbers with a point.
    std::setlocale(LC_NUMERIC, "C");
    QApplication::setOrganizationName(QStringLiteral("Vostel"));
    QApplication::setApplicationName(name);
    QApplication::setApplicationVersion(QStringLiteral(VOSTEL_VERSION));
    LoadTranslations(application, language);
    QApplication::setApplicationDisplayName(CommandText(ViewerName));
}

}
