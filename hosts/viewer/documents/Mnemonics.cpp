#include "documents/Mnemonics.h"

#include <QRegularExpression>

namespace vostel::viewer {

QString WithoutMnemonic(QString text)
{
    text.remove(QRegularExpression(QStringLiteral("\\(&.\\)")));    // of Chinese menus
    text.replace(QStringLiteral("&&"), QStringLiteral("\x01"));
    text.remove(QLatin1Char('&'));
    text.replace(QStringLiteral("\x01"), QStringLiteral("&"));
    return text;
}

QString TitleOf(const QString& text)
{
    return WithoutMnemonic(text).remove(QRegularExpression(QStringLiteral("(\\.\\.\\.|:|\uFF1A)$")));
}

}
