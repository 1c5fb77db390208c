#include "window/Theme.h"

#include <QApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QFont>
#include <QPalette>
#include <QSettings>
#include <QStyle>

#include <algorithm>
#include <cmath>

namespace vostel::viewer {

namespace {

const QString ThemeKey = QStringLiteral("Theme");
const QString TextKey = QStringLiteral("TextStep");
const QString Service = QStringLiteral("org.freedesktop.portal.Desktop");
const QString Place = QStringLiteral("/org/freedesktop/portal/desktop");
const QString Settings = QStringLiteral("org.freedesktop.portal.Settings");
const QString Group = QStringLiteral("org.freedesktop.appearance");
const QString Scheme = QStringLiteral("color-scheme");

constexpr unsigned PrefersDark = 1;
constexpr int      LeastStep = -3, MostStep = 10;

// The portal wraps the value twice.
unsigned Number(QVariant value)
{
    while (value.canConvert<QDBusVariant>())
        value = value.value<QDBusVariant>().variant();
    return value.toUInt();
}

// False where no desktop tells.
bool AskIsDark()
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return false;
    QDBusMessage question = QDBusMessage::createMethodCall(Service, Place, Settings, QStringLiteral("Read"));
    question << Group << Scheme;
    constexpr int      Patience = 200;    // ms; the window waits
    const QDBusMessage reply = bus.call(question, QDBus::Block, Patience);
    return reply.type() == QDBusMessage::ReplyMessage && !reply.arguments().isEmpty() &&
           Number(reply.arguments().front()) == PrefersDark;
}

QPalette DarkPalette()
{
    const QColor window(0x2b, 0x2d, 0x30), base(0x1e, 0x1f, 0x22), text(0xdf, 0xe1, 0xe5),
        gray(0x7f, 0x83, 0x8a);
    QPalette dark(window);
    dark.setColor(QPalette::Window, window);
    dark.setColor(QPalette::WindowText, text);
    dark.setColor(QPalette::Base, base);
    dark.setColor(QPalette::AlternateBase, QColor(0x26, 0x28, 0x2b));
    dark.setColor(QPalette::Text, text);
    dark.setColor(QPalette::Button, QColor(0x39, 0x3b, 0x40));
    dark.setColor(QPalette::ButtonText, text);
    dark.setColor(QPalette::BrightText, Qt::white);
    dark.setColor(QPalette::PlaceholderText, gray);
    dark.setColor(QPalette::ToolTipBase, QColor(0x39, 0x3b, 0x40));
    dark.setColor(QPalette::ToolTipText, text);
    dark.setColor(QPalette::Link, QColor(0x6c, 0xa8, 0xff));
    dark.setColor(QPalette::Highlight, QColor(0x2f, 0x6f, 0xd0));
    dark.setColor(QPalette::HighlightedText, Qt::white);
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        dark.setColor(QPalette::Disabled, role, gray);
    return dark;
}

}

ThemeKeeper::ThemeKeeper(QObject* parent)
    : QObject(parent), Choice(Theme(std::clamp(QSettings().value(ThemeKey, 0).toInt(), 0, 2))),
      Step(std::clamp(QSettings().value(TextKey, 0).toInt(), LeastStep, MostStep)), SystemIsDark(AskIsDark()),
      SystemSize(QApplication::font().pointSizeF()), SystemColors(QApplication::palette())
{
    QDBusConnection::sessionBus().connect(Service, Place, Settings, QStringLiteral("SettingChanged"), this,
                                          SLOT(OnPortalSetting(QString, QString, QDBusVariant)));
    Apply();
}

void ThemeKeeper::Choose(Theme theme)
{
    Choice = theme;
    QSettings().setValue(ThemeKey, int(theme));
    Apply();
}

void ThemeKeeper::SetTextStep(int step)
{
    Step = std::clamp(step, LeastStep, MostStep);
    QSettings().setValue(TextKey, Step);
    Apply();
}

void ThemeKeeper::OnPortalSetting(const QString& group, const QString& key, const QDBusVariant& value)
{
    if (group != Group || key != Scheme)
        return;
    SystemIsDark = Number(value.variant()) == PrefersDark;
    Apply();
}

void ThemeKeeper::Apply()
{
    const bool dark = Choice == Theme::Dark || (Choice == Theme::System && SystemIsDark);
    if (dark)
        QApplication::setPalette(DarkPalette());
    else
        QApplication::setPalette(Choice == Theme::Light ? QPalette(QColor(0xef, 0xef, 0xef)) : SystemColors);
    QFont font = QApplication::font();
    font.setPointSizeF(SystemSize * std::pow(1.1, Step));
    QApplication::setFont(font);
}

}
