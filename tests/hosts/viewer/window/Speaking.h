#pragma once

#include <doctest/doctest.h>

#include <QApplication>
#include <QLocale>
#include <QTranslator>

// The texts of a language while it lives.
class Speaking {
public:
    explicit Speaking(const char* language)
    {
        REQUIRE(Texts.load(QStringLiteral(":/translations/viewer_") + QLatin1String(language)));
        QLocale::setDefault(QLocale(QLatin1String(language)));
        QApplication::installTranslator(&Texts);
    }
    ~Speaking()
    {
        QApplication::removeTranslator(&Texts);
        QLocale::setDefault(QLocale::c());
    }
    Speaking(const Speaking&) = delete;
    Speaking& operator=(const Speaking&) = delete;

private:
    QTranslator Texts;
};
