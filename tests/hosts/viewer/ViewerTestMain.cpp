// The tests run inside a program of the toolkit, with windows on a screen of their own and settings apart.

#include "hosts/screen/XScreen.h"

#include <doctest/doctest.h>

#include <QApplication>
#include <QSettings>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <cstdio>

int main(int argc, char** argv)
{
    if (!Desk().IsUp()) {
        std::fputs("Xvfb does not start.\n", stderr);
        return 1;
    }
    qputenv("DISPLAY", QByteArray::fromStdString(Desk().Name()));
    qputenv("QT_QPA_PLATFORM", "xcb");
    qputenv("QT_LOGGING_RULES", "*.warning=false");
    qunsetenv("WAYLAND_DISPLAY");
    QTemporaryDir home;
    qputenv("XDG_CONFIG_HOME", home.path().toLocal8Bit());
    qputenv("XDG_DATA_HOME", home.path().toLocal8Bit());
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QApplication::setAttribute(Qt::AA_CompressHighFrequencyEvents, false);    // each step of a drag arrives
    QApplication application(argc, argv);
    QApplication::setOrganizationName(QStringLiteral("Vostel"));
    QApplication::setApplicationName(QStringLiteral("vostel-viewer-tests"));
    QSettings::setDefaultFormat(QSettings::IniFormat);
    return doctest::Context(argc, argv).run();
}
