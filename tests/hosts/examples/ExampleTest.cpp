#include "hosts/screen/XScreen.h"
#include "support/TempFolder.h"

#include <doctest/doctest.h>

#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <string>

namespace {

constexpr unsigned Red = 0xFF0000, Blue = 0x0000FF, Green = 0x20A060;

// The example that the environment names, with a picture of one color in its window.
class Example : TempFolder {
public:
    Example()
    {
        Picture picture(400, 300);
        std::fill(picture.Pixels.begin(), picture.Pixels.end(), Green);
        const std::string path = Path("green.png");
        const char* const program = std::getenv("VOSTEL_EXAMPLE");
        REQUIRE(program);
        REQUIRE(Save(picture, path));
        REQUIRE(Desk().IsUp());
        setenv("DISPLAY", Desk().Name().c_str(), 1);
        setenv("HOME", Path().c_str(), 1);
        setenv("XDG_RUNTIME_DIR", Path().c_str(), 1);
        Process = fork();
        if (Process == 0) {
            prctl(PR_SET_PDEATHSIG, SIGKILL);
            execl(program, program, path.c_str(), static_cast<char*>(nullptr));
            _exit(127);
        }
        Desk().Watch(Process);
        REQUIRE(XScreen::Wait([] { return Desk().WindowCount() == 1; }));
        REQUIRE(XScreen::Wait([] { return BoxOf(Green, Desk().Grab()).Found(); }));
        Image = BoxOf(Green, Desk().Settled());
    }
    ~Example()
    {
        Desk().Watch(-1);
        kill(Process, SIGKILL);
        waitpid(Process, nullptr, 0);
    }
    Example(const Example&) = delete;
    Example& operator=(const Example&) = delete;

    // In parts of the image's sides.
    Place At(double x, double y) const
    {
        return {Image.Left + static_cast<int>(x * Image.Width),
                Image.Top + static_cast<int>(y * Image.Height)};
    }
    void DrawRectangle() const
    {
        Desk().Hold("shift");
        Desk().Drag(At(0.25, 0.25), At(0.75, 0.75));
        Desk().Release("shift");
    }
    int Pixels(unsigned color) const
    {
        Desk().Settled();
        return Desk().Grab().Count(color, 0, 0, XScreen::Width, XScreen::Height);
    }

    Box Image;

private:
    int Process = -1;
};

}

TEST_CASE("the whole picture fills the window, and Shift and a drag draw a rectangle on it")
{
    const Example example;
    CHECK(example.Image.Width >= 400);
    CHECK(std::abs(example.Image.Width * 3 - example.Image.Height * 4) <= 8);
    CHECK(example.Pixels(Red) == 0);

    example.DrawRectangle();
    const Picture shown = Desk().Settled();
    const Place   from = example.At(0.25, 0.25), to = example.At(0.75, 0.75);
    CHECK(shown.Count(Red, from.X, from.Y - 2, to.X, from.Y + 3) > (to.X - from.X) * 9 / 10);
    CHECK(shown.Count(Red, to.X - 2, from.Y, to.X + 3, to.Y) > (to.Y - from.Y) * 9 / 10);
    CHECK(shown.At(example.At(0.5, 0.5).X, example.At(0.5, 0.5).Y) == Green);
}

TEST_CASE("a press beside the rectangle leaves it, one inside selects it, a drag moves it and R deletes it")
{
    const Example example;
    example.DrawRectangle();
    Desk().Click(example.At(0.9, 0.9));
    CHECK(example.Pixels(Red) == 0);
    CHECK(example.Pixels(Blue) > 100);

    Desk().Drag(example.At(0.5, 0.5), example.At(0.6, 0.6));
    const Picture shown = Desk().Settled();
    const Place   from = example.At(0.35, 0.35), to = example.At(0.85, 0.85);
    CHECK(shown.Count(Red, from.X, from.Y - 3, to.X, from.Y + 4) > (to.X - from.X) * 9 / 10);
    Desk().Key("r");
    CHECK(example.Pixels(Red) + example.Pixels(Blue) == 0);
}

TEST_CASE("Control and the wheel zoom")
{
    const Example example;
    Desk().Move(example.At(0.5, 0.5));
    Desk().Hold("ctrl");
    Desk().Wheel(-2);
    Desk().Release("ctrl");
    const Box smaller = BoxOf(Green, Desk().Settled());
    CHECK(std::abs(smaller.Width * 1.44 - example.Image.Width) < 8.0);
}
