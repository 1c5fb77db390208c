#include "ViewerApplication.h"

#include "window/Language.h"

#include <QLibraryInfo>
#include <QLocale>
#include <QMessageBox>
#include <QTranslator>

#include <clocale>
#include <exception>

namespace vostel::viewer {

namespace {

void LoadTranslations(QApplication& application, const QString& language)
{
    const QLocale locale = language.isEmpty() ? QLocale::system() : QLocale(language);
    if (!language.isEmpty())
        QLocale::setDefault(locale);
    auto* const own = new QTranslator(&application);
    const bool  isKnown =
        own->load(locale, QStringLiteral("viewer"), QStringLiteral("_"), QStringLiteral(":/translations"));
    if (!isKnown && !own->load(QStringLiteral(":/translations/viewer_en")))
        qWarning("the texts of what is counted are missing");
    QApplication::installTranslator(own);
    if (!isKnown)
        return;    // English, and the toolkit's texts should not be of another language
    auto* const toolkit = new QTranslator(&application);
    if (toolkit->load(locale, QStringLiteral("qtbase"), QStringLiteral("_"),
                      QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QApplication::installTranslator(toolkit);
}

}

ViewerApplication::ViewerApplication(int& argc, char** argv, const QString& language)
    : QApplication(argc, argv)
{
    // The library reads and writes numbers with a point.
    std::setlocale(LC_NUMERIC, "C");
    setOrganizationName(QStringLiteral("Vostel"));
    setApplicationName(QStringLiteral("vostel-viewer"));
    setApplicationVersion(QStringLiteral(VOSTEL_VERSION));
    LoadTranslations(*this, language.isEmpty() ? KeptLanguage() : language);
    setApplicationDisplayName(QCoreApplication::translate("Main", "Vostel Viewer"));
}

bool ViewerApplication::notify(QObject* receiver, QEvent* event)
{
    try {
        return QApplication::notify(receiver, event);
    } catch (const std::exception& error) {
        Tell(QString::fromUtf8(error.what()));
        return true;
    }
}

// Once at a time: a box that cannot be painted either must not bring the next.
void ViewerApplication::Tell(const QString& reason)
{
    if (IsTelling)
        return;
    IsTelling = true;
    QMetaObject::invokeMethod(
        this,
        [this, reason] {
            QMessageBox::warning(activeWindow(), applicationDisplayName(), reason);
            IsTelling = false;
        },
        Qt::QueuedConnection);
}

bool HasScreen()
{
#if defined(Q_OS_UNIX) && !defined(Q_OS_MACOS)
    return qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY") ||
           qEnvironmentVariableIsSet("QT_QPA_PLATFORM");
#else
    return true;
#endif
}

}
