#include "hosts/win32/WineViewer.h"

#include <doctest/doctest.h>

TEST_CASE("a Shift drag draws a rectangle, a drag inside moves it, and its label with it")
{
    PageOnScreen at;
    at.Viewer.Keys({"ctrl+r"});
    at.ShiftDrag(at.At(40, 50), at.At(140, 130));
    std::vector<int> labels = at.SavedLabels("labels-1.raw");
    CHECK(at.LabelAt(labels, 90, 90) == 1);
    CHECK(at.LabelAt(labels, 200, 200) == 0);
    at.Drag(at.At(110, 70), at.At(220, 170));
    labels = at.SavedLabels("labels-2.raw");
    CHECK(at.LabelAt(labels, 200, 190) == 1);
    CHECK(at.LabelAt(labels, 60, 60) == 0);
    at.Viewer.Keys({"Delete"});
    CHECK(Find(at.Shown, Desk().Settled()) == at.Origin);
    CHECK(at.Viewer.Quit());
}

TEST_CASE("each kind of region is drawn and has a label, and the keys C, I, R and T leave them")
{
    PageOnScreen at;
    at.Viewer.Keys({"ctrl+p"});
    at.ShiftClicks({at.At(40, 40), at.At(120, 40), at.At(120, 100), at.At(40, 100)});
    at.Viewer.Keys({"ctrl+b"});
    at.ShiftClicks({at.At(180, 40), at.At(240, 70), at.At(180, 110), at.At(150, 70)});
    at.Viewer.Keys({"ctrl+f"});
    Desk().Hold("shift");
    at.Viewer.Act([&] {
        Desk().DragAlong({at.At(280, 40), at.At(340, 40), at.At(340, 100), at.At(280, 100), at.At(280, 50)});
    });
    Desk().Release("shift");
    at.Viewer.Keys({"ctrl+shift+r"});
    at.Viewer.Fill({"40", "120", "160", "220"});    // left, right, top, bottom
    at.Viewer.Keys({"Return"});
    const std::vector<int> labels = at.SavedLabels("labels-1.raw");
    CHECK(at.LabelAt(labels, 80, 70) == 1);
    CHECK(at.LabelAt(labels, 190, 75) == 2);
    CHECK(at.LabelAt(labels, 310, 70) == 3);
    CHECK(at.LabelAt(labels, 80, 190) == 4);

    at.Viewer.Act([&] { Desk().Click(at.At(390, 290)); });    // the canvas gets the keys
    for (const char* const key : {"c", "i", "r", "t"})
        Desk().Key(key);
    CHECK(at.SavedLabels("labels-2.raw") == labels);
    at.Viewer.Keys({"alt+d", "y"});    // asks for them
    at.Viewer.Keys({"c"});
    CHECK(Find(at.Shown, Desk().Settled()) == at.Origin);
    CHECK(at.Viewer.Quit());
}

TEST_CASE("a stroke, texts and measures are drawn, and the saves take them as their names say")
{
    PageOnScreen at;
    at.Viewer.Keys({"ctrl+k"});
    at.ShiftDrag(at.At(150, 150), at.At(250, 150));
    at.Viewer.Keys({"ctrl+t"});
    at.Viewer.Act([] { Desk().Type("sample 1"); });
    at.Viewer.Keys({"Return", "ctrl+shift+t"});
    at.Viewer.Act([] {
        Desk().Type("first line");
        Desk().Key("Return");
        Desk().Type("second line");
        Desk().Key("Tab");
    });
    at.Viewer.Keys({"Return", "ctrl+shift+m"});
    at.Viewer.Fill({"0.5"});
    at.Viewer.Keys({"Return", "ctrl+m"});
    at.ShiftDrag(at.At(160, 200), at.At(260, 200));
    at.Viewer.Keys({"ctrl+a"});
    at.ShiftClicks({at.At(300, 150)});
    at.Viewer.Keys({"ctrl+i"});
    at.Viewer.Act([&] { Desk().Move(at.At(200, 250)); });

    at.Viewer.Keys({"ctrl+w"});
    at.Viewer.TypePath(at.Path("objects.png"));
    REQUIRE(WaitForFile(at.Path("objects.png")));
    const Picture objects = Load(at.Path("objects.png"));
    REQUIRE(objects.Width == at.Width);
    REQUIRE(objects.Height == at.Height);
    CHECK(objects.At(185, 200) != at.Shown.At(185, 200));    // the length
    CHECK(objects.At(200, 150) != at.Shown.At(200, 150));    // the stroke
    at.Viewer.Keys({"ctrl+shift+s"});
    at.Viewer.TypePath(at.Path("as-shown.bmp"));
    REQUIRE(WaitForFile(at.Path("as-shown.bmp")));
    CHECK(Load(at.Path("as-shown.bmp")) == at.Shown);
    at.Viewer.FileCommand("8");
    at.Viewer.TypePath(at.Path("gray.bmp"));
    REQUIRE(WaitForFile(at.Path("gray.bmp")));
    const Picture gray = Load(at.Path("gray.bmp"));
    REQUIRE(gray.Width == at.Width);
    for (const unsigned pixel : gray.Pixels)
        REQUIRE(pixel == (pixel & 0xFF) * 0x010101u);

    CHECK(at.Viewer.Quit());
    CHECK(WineViewer::Settings("Viewer.ini").find("Line=sample 1") != std::string::npos);
}

TEST_CASE("Control and the wheel zoom, Control and a drag move, and F5 shows the whole image")
{
    PageOnScreen at;
    Desk().Move(at.At(200, 150));
    Desk().Hold("ctrl");
    at.Viewer.Act([] { Desk().Wheel(2); });
    const Box zoomed = BoxOf(Magenta, Desk().Settled());
    CHECK(zoomed.Width >= 574);    // 400 times 1.2 times 1.2
    CHECK(zoomed.Width <= 578);
    at.Drag(at.At(200, 150), at.At(230, 160));
    const Box moved = BoxOf(Magenta, Desk().Settled());
    CHECK(moved.Left == zoomed.Left + 30);
    CHECK(moved.Top == zoomed.Top + 10);
    Desk().Release("ctrl");
    at.Viewer.Keys({"F5"});
    const Box whole = BoxOf(Magenta, Desk().Settled());
    CHECK(whole.Width > 800);
    CHECK(whole.Width < 1100);
    CHECK(at.Viewer.Quit());
}
