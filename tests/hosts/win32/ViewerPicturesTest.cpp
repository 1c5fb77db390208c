// The picture of the documentation.

#include "hosts/win32/WineViewer.h"

#include <doctest/doctest.h>

TEST_CASE("regions, measures and a profile are drawn on the sample, and leave the picture of the manual")
{
    const Picture sample = Load(VOSTEL_SAMPLE);
    REQUIRE(sample.Width == 384);
    WineViewer viewer({VOSTEL_SAMPLE}, sample);
    REQUIRE(viewer.IsUp());
    const Place origin = Find(sample, Desk().Settled());
    viewer.Keys({"F5", "F6"});
    // The image is 1.2 ^ 4 times as large, its middle where it was.
    const auto at = [&](int x, int y) {
        return Place{origin.X + 192 + (x - 192) * 20736 / 10000, origin.Y + 151 + (y - 151) * 20736 / 10000};
    };
    const auto click = [&](std::initializer_list<Place> places) {
        Desk().Hold("shift");
        for (const Place& place : places)
            viewer.Act([place] { Desk().Click(place); });
        Desk().Release("shift");
    };
    const auto drag = [&](Place from, Place to) {
        Desk().Hold("shift");
        viewer.Act([=] { Desk().Drag(from, to); });
        Desk().Release("shift");
    };
    viewer.Keys({"ctrl+p"});
    click({at(22, 55), at(32, 37), at(52, 36), at(66, 48), at(64, 66), at(50, 74), at(32, 72)});
    viewer.Keys({"ctrl+b"});
    click({at(155, 32), at(178, 50), at(155, 72), at(132, 52)});
    viewer.Keys({"ctrl+shift+m"});
    viewer.Fill({"0.25"});
    viewer.Keys({"Return", "ctrl+m"});
    drag(at(313, 45), at(364, 45));
    viewer.Keys({"ctrl+a"});
    click({at(250, 210)});
    viewer.Keys({"ctrl+shift+p"});
    drag(at(20, 124), at(120, 124));
    viewer.Act([&] { Desk().Drag(at(-25, -5), at(-25, 242)); });    // the plot
    viewer.Keys({"ctrl+i"});
    viewer.Act([&] { Desk().Move(at(323, 184)); });
    const Picture shown = Desk().Settled().Part(0, 0, 1100, 800);
    CHECK(Save(shown, "viewer-win32.png"));
    CHECK(shown.Count(0x0000FF, 0, 0, 1100, 800) > 500);    // regions that are not selected
    CHECK(viewer.Quit());
}
