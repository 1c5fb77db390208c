// The pictures of the documentation, and what can be checked of them.

#include "ViewerProcess.h"

#include <doctest/doctest.h>

#include <cmath>
#include <cstdlib>
#include <filesystem>

namespace {

Place OnRing(Place centre, double radius, int index, int count)
{
    const double turn = 6.283185307179586 * index / count;
    return {centre.X + static_cast<int>(radius * std::cos(turn)),
            centre.Y + static_cast<int>(radius * std::sin(turn))};
}

// Opens the sample, draws on it and leaves a picture of the window.
Picture PictureOfWindow(const ViewerProcess::Environment& environment, const std::string& path)
{
    const TempFolder folder;
    ViewerProcess    viewer(folder, {VOSTEL_SAMPLE}, environment);
    REQUIRE(viewer.IsUp());
    const Picture sample = Load(VOSTEL_SAMPLE);
    REQUIRE(Find(sample, Desk().Settled()).Found());
    Desk().Key("F5");
    Desk().Settled();

    // Zoomed, the image runs from 241, 113 to 1038, 742 or near it.
    Desk().Key("ctrl+p");
    Desk().Hold("shift");
    for (int i = 0; i < 8; ++i)
        Desk().Click(OnRing({334, 225}, 52, i, 8));
    Desk().Release("shift");
    Desk().Key("ctrl+b");
    Desk().Hold("shift");
    for (int i = 0; i < 6; ++i)
        Desk().Click(OnRing({563, 222}, 54, i, 6));
    Desk().Release("shift");
    Desk().Key("ctrl+m");
    Desk().Hold("shift");
    Desk().Drag({896, 520}, {1030, 490});
    Desk().Release("shift");
    Desk().Key("ctrl+shift+p");
    Desk().Hold("shift");
    Desk().Drag({260, 655}, {1000, 655});
    Desk().Release("shift");
    Desk().Settled();
    Desk().Drag({330, 160}, {700, 190});    // the plot
    Desk().Key("F7");
    Desk().Move({560, 300});
    const Picture shown = Desk().Settled().Part(0, 0, 1240, 820);
    REQUIRE(Save(shown, path));
    CHECK(viewer.Quit() == 0);
    CHECK(viewer.Complaints() == "");
    return shown;
}

}

TEST_CASE("the window says the same in English and in Chinese, each in its own letters")
{
    const Picture english = PictureOfWindow({}, "viewer-qt.png");
    const Picture chinese = PictureOfWindow({{"LANGUAGE", "zh_CN"}}, "viewer-qt-zh.png");
    CHECK(english.Count(Red, 0, 0, 1240, 820) > 500);
    CHECK(chinese.Count(Red, 0, 0, 1240, 820) > 500);
    CHECK(english.Part(0, 0, 400, 18) != chinese.Part(0, 0, 400, 18));    // the menu bar
    // The library's own texts stay as they are: the caption of the slider, found on its gray.
    const auto caption = [](const Picture& picture) {
        for (int y = 700; y < 800; ++y)
            if (picture.At(64, y) == 0xB4B4B4)
                return picture.Part(61, y, 60, 24);
        return Picture();
    };
    CHECK(caption(english).Width > 0);
    CHECK(caption(english) == caption(chinese));
}

TEST_CASE("the tour works without a screen and leaves its pictures")
{
    const TempFolder  folder;
    const std::string command = "env -u DISPLAY -u WAYLAND_DISPLAY XDG_CONFIG_HOME=" + folder.Path("config") +
                                " LSAN_OPTIONS=" VOSTEL_QT_LSAN_OPTIONS " " VOSTEL_VIEWER_TOUR " " +
                                folder.Path("tour") + " " VOSTEL_SAMPLE " >/dev/null 2>&1";
    CHECK(std::system(command.c_str()) == 0);
    int pictures = 0;
    for (const auto& entry : std::filesystem::directory_iterator(folder.Path("tour"))) {
        const Picture picture = Load(entry.path().string());
        CHECK(picture.Width > 100);
        CHECK(picture.Count(picture.At(0, 0), 0, 0, picture.Width, picture.Height) <
              picture.Width * picture.Height);
        ++pictures;
    }
    CHECK(pictures == 8);
}

TEST_CASE("without a screen the viewer says so in a sentence")
{
    CHECK(std::system("env -u DISPLAY -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM " VOSTEL_VIEWER
                      " 2>&1 | grep -q 'there is no screen'") == 0);
    CHECK(std::system("env -u DISPLAY -u WAYLAND_DISPLAY " VOSTEL_VIEWER
                      " --version | grep -q '^vostel-viewer [0-9]'") == 0);
}
