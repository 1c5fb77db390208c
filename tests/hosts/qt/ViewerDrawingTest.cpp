#include "ViewerProcess.h"

#include <doctest/doctest.h>

#include <initializer_list>

namespace {

// Pixels in which red is all but alone, the edges of smoothed letters among them.
int RedLetters(const Picture& picture)
{
    int count = 0;
    for (const unsigned pixel : picture.Pixels)
        count += (pixel >> 16) > 150 && (pixel >> 8 & 0xFF) < 100 && (pixel & 0xFF) < 100 ? 1 : 0;
    return count;
}

// How many pixels of the same color stand side by side.
int RunOf(const Picture& picture, Place at)
{
    int left = at.X, right = at.X;
    while (picture.Has(left - 1, at.Y) && picture.At(left - 1, at.Y) == picture.At(at.X, at.Y))
        --left;
    while (picture.Has(right + 1, at.Y) && picture.At(right + 1, at.Y) == picture.At(at.X, at.Y))
        ++right;
    return right - left + 1;
}

// A viewer that shows noise, which no red or blue is in.
struct Drawing : TempFolder {
    Picture       Noise = GrayNoise(400, 300, 12);
    std::string   NoisePath = Path("noise.png");
    bool          Written = Save(Noise, NoisePath);
    ViewerProcess Viewer{*this, {NoisePath}};
    Place         Origin;

    Drawing()
    {
        REQUIRE(Written);
        REQUIRE(Viewer.IsUp());
        Origin = Find(Noise, Desk().Settled());
        REQUIRE(Origin.Found());
    }
    Place At(int x, int y) const { return {Origin.X + x, Origin.Y + y}; }

    void ShiftDrag(Place from, Place to) const
    {
        Desk().Hold("shift");
        Desk().Drag(from, to);
        Desk().Release("shift");
    }
    void ShiftClicks(std::initializer_list<Place> places) const
    {
        Desk().Hold("shift");
        for (const Place& place : places)
            Desk().Click(place);
        Desk().Release("shift");
    }
    // The image as the screen shows it, with all that lies over it.
    Picture Shown() const
    {
        Desk().Settled();
        return Desk().Grab(Origin.X, Origin.Y, Noise.Width, Noise.Height);
    }
    void EndShape() const
    {
        Desk().Click(At(390, 290));
        REQUIRE(Shown().Count(Red, 0, 0, 400, 300) == 0);
    }
};

}

TEST_CASE("a Shift drag draws a rectangle, a drag inside moves it, a click beside it turns it blue")
{
    const Drawing at;
    Desk().Key("ctrl+r");
    at.ShiftDrag(at.At(40, 30), at.At(120, 90));
    Picture shown = at.Shown();
    CHECK(shown.At(80, 30) == Red);
    CHECK(shown.At(40, 60) == Red);
    Desk().Drag(at.At(80, 70), at.At(110, 90));
    shown = at.Shown();
    CHECK(shown.At(80, 30) != Red);
    CHECK(shown.At(110, 50) == Red);
    CHECK(shown.At(70, 80) == Red);
    at.EndShape();
    shown = at.Shown();
    CHECK(shown.At(110, 50) == Blue);

    Desk().Click(at.At(110, 90));    // selects it again
    CHECK(at.Shown().At(110, 50) == Red);
    Desk().Key("Delete");
    CHECK(at.Shown() == at.Noise);
    ViewerProcess& viewer = const_cast<ViewerProcess&>(at.Viewer);
    CHECK(viewer.Quit() == 0);
    CHECK(viewer.Complaints() == "");
}

TEST_CASE("Shift clicks draw a polygon and a spline, whose nodes are dragged by their handles")
{
    const Drawing at;
    Desk().Key("ctrl+p");
    at.ShiftClicks({at.At(20, 20), at.At(100, 20), at.At(100, 90), at.At(20, 90)});
    Picture shown = at.Shown();
    CHECK(shown.At(60, 20) == Red);
    CHECK(shown.At(100, 55) == Red);
    CHECK(shown.At(20, 55) == Red);    // the outline closes itself
    Desk().Drag(at.At(100, 90), at.At(140, 90));
    shown = at.Shown();
    CHECK(shown.At(100, 55) != Red);
    CHECK(shown.At(130, 90) == Red);
    at.EndShape();

    Desk().Key("ctrl+b");
    at.ShiftClicks({at.At(200, 40), at.At(280, 40), at.At(280, 110), at.At(200, 110)});
    shown = at.Shown();
    CHECK(shown.Count(Red, 190, 20, 300, 130) > 150);
    CHECK(shown.Count(Red, 0, 150, 400, 300) == 0);
    at.EndShape();
    CHECK(at.Shown().At(60, 20) == Blue);
    Desk().Key("ctrl+Delete");
    CHECK(at.Shown() == at.Noise);
}

TEST_CASE("Shift drags draw a free region and strokes, and A makes the pen wider")
{
    const Drawing at;
    Desk().Key("ctrl+f");
    Desk().Hold("shift");
    Desk().Drag(at.At(30, 30), at.At(130, 80));
    Desk().Release("shift");
    CHECK(at.Shown().Count(Blue, 25, 25, 135, 85) > 80);    // it takes no selection from its stroke
    at.EndShape();

    Desk().Key("ctrl+k");
    at.ShiftDrag(at.At(200, 100), at.At(320, 100));
    const int thin = at.Shown().Count(Red, 200, 80, 330, 120);
    CHECK(thin >= 100);
    Desk().Key("a");
    Desk().Key("a");
    const int thick = at.Shown().Count(Red, 200, 80, 330, 120);
    CHECK(thick >= 2 * thin);
    Desk().Key("d");
    CHECK(at.Shown().Count(Red, 200, 80, 330, 120) < thick);
}

TEST_CASE("measures, profile and read-outs are drawn from their menu entries")
{
    const Drawing at;
    Desk().Key("ctrl+m");
    at.ShiftDrag(at.At(50, 200), at.At(150, 200));
    Picture shown = at.Shown();
    CHECK(shown.At(75, 200) == Red);
    CHECK(shown.Count(0xFFFFFF, 0, 0, 400, 300) > 200);    // the box with the length
    at.EndShape();
    Desk().Key("ctrl+Delete");
    REQUIRE(at.Shown() == at.Noise);

    Desk().Key("ctrl+a");
    at.ShiftClicks({at.At(100, 200)});
    CHECK(at.Shown().Count(Blue, 0, 0, 400, 300) > 100);
    Desk().Key("ctrl+Delete");
    REQUIRE(at.Shown() == at.Noise);

    Desk().Key("ctrl+shift+a");
    at.ShiftClicks({at.At(100, 100)});
    CHECK(at.Shown().Count(Blue, 0, 0, 400, 300) > 100);
    Desk().Key("ctrl+Delete");
    REQUIRE(at.Shown() == at.Noise);

    const Picture before = Desk().Settled();
    Desk().Key("ctrl+shift+p");
    at.ShiftDrag(at.At(50, 250), at.At(350, 250));
    CHECK(at.Shown().At(120, 250) == Red);
    Desk().Key("ctrl+i");
    Desk().Key("ctrl+n");
    Desk().Move(at.At(200, 150));
    const Picture after = Desk().Settled();
    int           changed = 0;
    for (std::size_t i = 0; i < after.Pixels.size(); ++i)
        changed += after.Pixels[i] != before.Pixels[i] ? 1 : 0;
    CHECK(changed > 2000);
    Desk().Key("ctrl+Delete");
    CHECK(at.Shown() == at.Noise);
}

TEST_CASE("texts and a rectangle by numbers come from their dialogs")
{
    Drawing at;
    REQUIRE(at.Viewer.OpenDialog("ctrl+t"));
    REQUIRE(at.Viewer.AnswerDialog("Hello"));
    const Picture whole = Desk().Settled();
    CHECK(RedLetters(whole) > 60);
    Desk().Key("ctrl+Delete");
    REQUIRE(at.Shown() == at.Noise);

    REQUIRE(at.Viewer.OpenDialog("ctrl+shift+r"));
    for (const char* number : {"50", "150", "40"}) {    // left, right, top
        Desk().Key("ctrl+a");
        Desk().Type(number);
        Desk().Key("Tab");
    }
    Desk().Key("ctrl+a");
    REQUIRE(at.Viewer.AnswerDialog("140"));
    const Picture shown = at.Shown();
    CHECK(shown.Count(Red, 48, 38, 152, 142) > 300);
    CHECK(shown.Count(Red, 160, 150, 400, 300) == 0);
    CHECK(shown.At(100, 40) == Red);
    CHECK(shown.At(50, 90) == Red);
    CHECK(at.Viewer.Quit() == 0);
    CHECK(at.Viewer.Complaints() == "");
}

TEST_CASE("the keys C, I and T leave the objects alone until they are asked for in the menu")
{
    Drawing    at;
    const auto shown = [] { return Desk().Settled().Part(60, 90, 1100, 680); };    // of the canvas
    Desk().Click(at.At(390, 290));                                                 // which gets the keys
    const Picture without = shown();
    REQUIRE(at.Viewer.OpenDialog("ctrl+t"));
    REQUIRE(at.Viewer.AnswerDialog("Hello"));
    const Picture with = shown();
    REQUIRE(RedLetters(with) > 60);
    for (const char* const key : {"t", "i", "c"})
        Desk().Key(key);
    CHECK(shown() == with);
    Desk().Key("alt+d");
    Desk().Settled();
    Desk().Key("y");
    Desk().Settled();
    Desk().Key("t");
    CHECK(shown() != with);
    Desk().Key("c");
    CHECK(shown() == without);
    CHECK(at.Viewer.Quit() == 0);
}

TEST_CASE("Control and a drag move the image, Control and the wheel zoom it about the cursor")
{
    Drawing at;
    Desk().Hold("ctrl");
    Desk().Drag(at.At(200, 150), at.At(263, 122));
    Desk().Release("ctrl");
    Place now = Find(at.Noise, Desk().Settled());
    CHECK(now == at.At(63, -28));

    // One step is a fifth larger; the pixel under the cursor stays there.
    const Place cursor{now.X + 120, now.Y + 90};
    Desk().Move(cursor);
    Desk().Hold("ctrl");
    Desk().Wheel(5);
    Picture shown = Desk().Settled();
    CHECK_FALSE(Find(at.Noise, shown).Found());
    // Each step truncates the centre: the pixel may be a neighbour's by now.
    bool stayed = false;
    for (int y = 89; y <= 91; ++y)
        for (int x = 119; x <= 121; ++x)
            stayed = stayed || shown.At(cursor.X, cursor.Y) == at.Noise.At(x, y);
    CHECK(stayed);
    CHECK(RunOf(shown, cursor) >= 2);    // a pixel is about 2.5 px wide
    CHECK(RunOf(shown, cursor) <= 3);
    Desk().Wheel(-5);
    Desk().Release("ctrl");
    CHECK(XScreen::Wait([&] { return Find(at.Noise, Desk().Settled()).Found(); }));

    // With the fixed view nothing moves.
    now = Find(at.Noise, Desk().Settled());
    Desk().Key("F2");
    Desk().Hold("ctrl");
    Desk().Drag({now.X + 100, now.Y + 100}, {now.X + 150, now.Y + 150});
    Desk().Wheel(2);
    Desk().Release("ctrl");
    CHECK(Find(at.Noise, Desk().Settled()) == now);
    CHECK(at.Viewer.Quit() == 0);
}
