#pragma once

#include <doctest/doctest.h>

#include <clocale>
#include <locale>
#include <string>

// For its scope the program runs in a locale whose decimal sign is a comma and that groups thousands: streams
// by a facet of our own, the C library by whatever such locale is installed.
class CommaLocale {
public:
    CommaLocale()
        : Before(std::locale::global(std::locale(std::locale::classic(), new Commas))),
          NameBefore(std::setlocale(LC_ALL, nullptr))
    {
        for (const char* const name : {"de_DE.UTF-8", "de_DE.utf8", "fr_FR.UTF-8", "ru_RU.UTF-8", "German"}) {
            if (std::setlocale(LC_ALL, name) && *std::localeconv()->decimal_point == ',')
                return;
        }
        MESSAGE("no locale with a decimal comma is installed: only streams have one");
    }
    ~CommaLocale()
    {
        std::locale::global(Before);
        std::setlocale(LC_ALL, NameBefore.c_str());
    }
    CommaLocale(const CommaLocale&) = delete;
    CommaLocale& operator=(const CommaLocale&) = delete;

private:
    struct Commas : std::numpunct<char> {
        char        do_decimal_point() const override { return ','; }
        char        do_thousands_sep() const override { return '.'; }
        std::string do_grouping() const override { return "\3"; }
    };
    std::locale Before;
    std::string NameBefore;
};
