#include "window/Language.h"

#include <QSettings>

namespace vostel::viewer {

namespace {

const QString LanguageKey = QStringLiteral("Language");

}

QString KeptLanguage()
{
    return QSettings().value(LanguageKey).toString();
}

void KeepLanguage(const QString& language)
{
    QSettings().setValue(LanguageKey, language);
}

}
