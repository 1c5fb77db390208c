// The programs as they are started from a shell.

#include "support/TempFolder.h"

#include <doctest/doctest.h>

#include <QDir>
#include <QImage>
#include <QProcess>

namespace {

struct Ended {
    int     Code = -1;    // -1: not by itself
    QString Output;       // with what it wrote to standard error
};

// Runs a program without a screen, in English, with settings of its own.
Ended Run(const char* path, const QStringList& arguments)
{
    const TempFolder    home;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char* const name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
        environment.remove(QLatin1String(name));
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"), QString::fromStdString(home.Path("config")));
    environment.insert(QStringLiteral("LANGUAGE"), QStringLiteral("en"));
    QProcess program;
    program.setProcessEnvironment(environment);
    program.setProcessChannelMode(QProcess::MergedChannels);
    program.start(QLatin1String(path), arguments);
    Ended      ended;
    const bool isOver = program.waitForFinished(120000) && program.exitStatus() == QProcess::NormalExit;
    if (isOver)
        ended.Code = program.exitCode();
    ended.Output = QString::fromUtf8(program.readAll());
    return ended;
}

bool IsOneColor(const QImage& picture)
{
    QImage one = picture.convertToFormat(QImage::Format_RGB32);
    one.fill(one.pixel(0, 0));
    return one == picture.convertToFormat(QImage::Format_RGB32);
}

}

TEST_CASE("without a screen the viewer says so in a sentence, and still tells its version and its options")
{
    const Ended started = Run(VOSTEL_VIEWER, {});
    CHECK(started.Code == 1);
    CHECK(started.Output == QStringLiteral("vostel-viewer: there is no screen to show a window on\n"));

    const Ended version = Run(VOSTEL_VIEWER, {QStringLiteral("--version")});
    CHECK(version.Code == 0);
    CHECK(version.Output.startsWith(QStringLiteral("vostel-viewer ")));

    const Ended help = Run(VOSTEL_VIEWER, {QStringLiteral("--help")});
    CHECK(help.Code == 0);
    CHECK(help.Output.contains(QStringLiteral("Files, folders and sessions to open.")));
    const Ended chinese =
        Run(VOSTEL_VIEWER, {QStringLiteral("--language"), QStringLiteral("zh_CN"), QStringLiteral("--help")});
    CHECK(chinese.Code == 0);
    CHECK(chinese.Output != help.Output);
}

TEST_CASE("the tour works without a screen and leaves its pictures")
{
    const TempFolder folder;
    const QString    pictures = QString::fromStdString(folder.Path("tour"));
    const Ended      tour = Run(VOSTEL_VIEWER_TOUR, {pictures, QStringLiteral(VOSTEL_SAMPLES "/coins.png")});
    INFO(tour.Output.toStdString());
    CHECK(tour.Code == 0);
    const QFileInfoList files = QDir(pictures).entryInfoList(QDir::Files, QDir::Name);
    REQUIRE(files.size() == 8);
    QImage before;
    for (const QFileInfo& file : files) {
        const QImage picture(file.filePath());
        CAPTURE(file.fileName().toStdString());
        CHECK(picture.width() > 200);
        CHECK_FALSE(IsOneColor(picture));
        CHECK(picture != before);
        before = picture;
    }

    const Ended missing = Run(VOSTEL_VIEWER_TOUR, {pictures, pictures + QStringLiteral("/none.png")});
    CHECK(missing.Code == 1);
    CHECK(missing.Output.contains(QStringLiteral("the tour could not be completed")));
}
