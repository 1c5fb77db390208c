#include "Translations.h"

#include <QApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

namespace vostel::viewer {

void LoadTranslations(QApplication& application, const QString& language)
{
    const QLocale locale = language.isEmpty() ? QLocale::system() : QLocale(language);
    if (!language.isEmpty())
        QLocale::setDefault(locale);
    auto* const own = new QTranslator(&application);
    if (!own->load(locale, QStringLiteral("vostel"), QStringLiteral("_"), QStringLiteral(":/translations"))) {
        delete own;    // English, and the toolkit's texts should not be of another language
        return;
    }
    application.installTranslator(own);
    auto* const toolkit = new QTranslator(&application);
    if (toolkit->load(locale, QStringLiteral("qtbase"), QStringLiteral("_"),
                      QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        application.installTranslator(toolkit);
}

QString CommandText(const char* english)
{
    return QCoreApplication::translate("Commands", english);
}

}
