#include "ViewerProcess.h"

#include <doctest/doctest.h>

#include <chrono>
#include <filesystem>

TEST_CASE("a routine changes the image, and undoing it brings every pixel back")
{
    const TempFolder folder;
    const Picture    noise = GrayNoise(300, 200, 13);
    REQUIRE(Save(noise, folder.Path("noise.png")));
    ViewerProcess viewer(folder, {folder.Path("noise.png")});
    REQUIRE(viewer.IsUp());
    const Place origin = Find(noise, Desk().Settled());
    REQUIRE(origin.Found());
    REQUIRE(viewer.OpenDialog("ctrl+g"));
    REQUIRE(viewer.AnswerDialog(""));
    const auto shown = [&] {
        Desk().Settled();
        return Desk().Grab(origin.X, origin.Y, 300, 200);
    };
    REQUIRE(XScreen::Wait([&] { return shown() != noise; }));
    const Picture smooth = shown();
    // Neighbours of a smoothed image differ less.
    const auto roughness = [](const Picture& picture) {
        long sum = 0;
        for (int y = 20; y < 180; ++y)
            for (int x = 20; x < 280; ++x)
                sum += std::abs(static_cast<int>(picture.At(x, y) & 0xFF) -
                                static_cast<int>(picture.At(x + 1, y) & 0xFF));
        return sum;
    };
    CHECK(roughness(smooth) * 2 < roughness(noise));
    Desk().Key("ctrl+z");
    CHECK(XScreen::Wait([&] { return shown() == noise; }));
    CHECK(viewer.Quit() == 0);
    CHECK(viewer.Complaints() == "");
}

TEST_CASE("while a long routine runs the view can be moved, Esc cancels it, and the window can be closed")
{
    const TempFolder folder;
    const Picture    noise = GrayNoise(1600, 1200, 14);
    REQUIRE(Save(noise, folder.Path("noise.bmp")));
    ViewerProcess viewer(folder, {folder.Path("noise.bmp")});
    REQUIRE(viewer.IsUp());
    const Picture before = Desk().Settled();
    const auto    start = [&] {
        REQUIRE(viewer.OpenDialog("ctrl+g"));
        Desk().Key("ctrl+a");
        Desk().Type("63");
        Desk().Key("Tab");
        Desk().Key("Tab");
        Desk().Key("ctrl+a");
        Desk().Type("50");
        Desk().Key("Return");
        REQUIRE(XScreen::Wait([] { return Desk().WindowCount() == 1; }));
    };
    // The gray of the progress bar lies over the lower left corner.
    const auto bar = [] { return Desk().Grab().Count(0xB4B4B4, 40, 600, 500, 800) > 500; };
    start();
    REQUIRE(XScreen::Wait(bar));
    Desk().Hold("ctrl");
    Desk().Drag({600, 400}, {640, 400});
    Desk().Drag({640, 400}, {600, 400});
    Desk().Release("ctrl");
    CHECK(bar());    // it still runs, and the window responds
    Desk().Key("Escape");
    CHECK(XScreen::Wait([&] { return !bar(); }));
    const Picture after = Desk().Settled();
    CHECK(after.At(600, 400) == before.At(600, 400));
    CHECK(after.At(700, 300) == before.At(700, 300));

    // A file for the canvas that the result is for waits.
    start();
    REQUIRE(XScreen::Wait(bar));
    REQUIRE(Desk().Drop(folder.Path("noise.bmp"), {600, 400}));
    REQUIRE(XScreen::Wait([] { return Desk().WindowCount() == 2; }));
    REQUIRE(viewer.AnswerDialog(""));
    Desk().Key("Escape");
    REQUIRE(XScreen::Wait([&] { return !bar(); }));

    start();
    REQUIRE(XScreen::Wait(bar));
    CHECK(viewer.Quit() == 0);
    CHECK(viewer.Complaints() == "");
}

TEST_CASE("the five canvases stand side by side and take a file each")
{
    const TempFolder         folder;
    std::vector<Picture>     pictures;
    std::vector<std::string> paths;
    for (unsigned i = 0; i < 5; ++i) {
        pictures.push_back(GrayNoise(150, 100, 20 + i));
        paths.push_back(folder.Path("noise" + std::to_string(i) + ".png"));
        REQUIRE(Save(pictures.back(), paths.back()));
    }
    ViewerProcess viewer(folder, paths);
    REQUIRE(viewer.IsUp());
    Picture shown = Desk().Settled();
    for (const Picture& picture : pictures)
        CHECK(Find(picture, shown).Found());
    // The fourth alone, and back.
    Desk().Key("ctrl+4");
    Desk().Key("F8");
    shown = Desk().Settled();
    CHECK(Find(pictures[3], shown).Found());
    CHECK_FALSE(Find(pictures[0], shown).Found());
    Desk().Key("F9");
    shown = Desk().Settled();
    CHECK(Find(pictures[0], shown).Found());

    // The one at the right gets the second image of a join.
    Desk().Key("ctrl+1");
    REQUIRE(viewer.OpenDialog("ctrl+j"));
    REQUIRE(viewer.AnswerDialog(""));
    CHECK(XScreen::Wait([&] { return !Find(pictures[0], Desk().Settled()).Found(); }));
    CHECK(viewer.Quit() == 0);
}
