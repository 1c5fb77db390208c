// The tests run inside a program of the toolkit, on its screen in memory and with settings apart.

#include <doctest/doctest.h>

#include <QApplication>
#include <QStandardPaths>

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QStandardPaths::setTestModeEnabled(true);
    QApplication application(argc, argv);
    return doctest::Context(argc, argv).run();
}
