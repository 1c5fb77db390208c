#include "hosts/win32/WineViewer.h"

#include <doctest/doctest.h>

TEST_CASE("a wrong number keeps the dialog of a routine, its result is undone, and its values are kept")
{
    PageOnScreen at;
    at.Viewer.Keys({"ctrl+g"});
    at.Viewer.Act([] {
        Desk().Key("ctrl+a");
        Desk().Type("abc");
    });
    at.Viewer.Keys({"Return"});    // the dialog says what is wrong
    at.Viewer.Act([] {
        Desk().Key("ctrl+a");
        Desk().Type("15");
    });
    at.Viewer.Keys({"Return"});
    CHECK(XScreen::Wait([] { return !BoxOf(Magenta, Desk().Grab()).Found(); }));    // it is gray now
    Desk().Settled();
    at.Viewer.Keys({"ctrl+shift+z"});
    CHECK(Find(at.Shown, Desk().Settled()) == at.Origin);
    CHECK(at.Viewer.Quit());
    CHECK(WineViewer::Settings("Viewer.ini").find("Size of the kernel (odd, px)=15") != std::string::npos);
}

TEST_CASE("while a long routine runs another canvas takes a file, its own does not, and Esc stops it")
{
    PageOnScreen at;
    REQUIRE(Save(Picture(4000, 3000), at.Path("large.png")));
    const auto bar = [] { return Desk().Grab().Count(0xB4B4B4, 0, 400, 600, XScreen::Height) > 3000; };
    REQUIRE_FALSE(bar());
    at.Viewer.Keys({"ctrl+2", "ctrl+o"});
    at.Viewer.TypePath(at.Path("large.png"));
    at.Viewer.Keys({"ctrl+shift+c"});
    Desk().Key("Tab");
    at.Viewer.Fill({"63", "50"});    // size, passes
    // The screen does not rest before the routine ends, so nothing waits for that.
    Desk().Key("Return");
    REQUIRE(XScreen::Wait(bar));
    Desk().Key("ctrl+1");
    REQUIRE(XScreen::Wait([&] { return Find(at.Shown, Desk().Grab()).Found(); }));
    at.Viewer.Keys({"ctrl+o"});
    at.Viewer.TypePath(at.PagePath);    // the dialog works, and closes
    CHECK(Find(at.Shown, Desk().Settled()).Found());
    Desk().Key("ctrl+2");
    REQUIRE(XScreen::Wait(bar));
    Desk().Key("ctrl+o");
    Desk().Settled();
    Desk().Key("ctrl+a");
    Desk().Type(WindowsPath(at.PagePath));
    Desk().Key("Return");
    Desk().Settled();
    CHECK_FALSE(BoxOf(Magenta, Desk().Settled()).Found());
    Desk().Key("Return");    // closes the message
    Desk().Settled();
    CHECK(bar());
    Desk().Key("Escape");
    CHECK(XScreen::Wait([&] { return !bar(); }, 60000));
    CHECK(at.Viewer.Quit());
}
