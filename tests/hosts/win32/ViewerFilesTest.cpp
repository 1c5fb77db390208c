#include "hosts/win32/WineViewer.h"

#include <doctest/doctest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <utility>

namespace {

std::string Variable(const char* name)
{
    const char* const value = std::getenv(name);
    return value ? value : "";
}

}

TEST_CASE("--version prints name and number, and an unknown option is refused")
{
    std::string output;
    CHECK(RunUnderWine({Variable("VOSTEL_WIN32_VIEWER"), "--version"}, &output) == 0);
    CHECK(output.compare(0, 20, "vostel-viewer-win32 ") == 0);
    CHECK(RunUnderWine({Variable("VOSTEL_WIN32_VIEWER"), "--nonsense"}) == 2);
}

TEST_CASE("five files stand side by side, what is left over comes in one message, a drop goes where it falls")
{
    const TempFolder         folder;
    std::vector<Picture>     pictures;
    std::vector<std::string> paths;
    for (unsigned i = 0; i < 6; ++i) {
        pictures.push_back(GrayNoise(150, 100, 20 + i));
        paths.push_back(folder.Path("noise" + std::to_string(i) + ".png"));
        REQUIRE(Save(pictures.back(), paths.back()));
    }
    std::ofstream(folder.Path("broken.png")) << "no picture";
    const Picture third = std::exchange(pictures[2], Picture());
    paths[2] = folder.Path("broken.png");
    WineViewer viewer(paths, pictures[0]);
    REQUIRE(viewer.IsUp());
    viewer.Keys({"Return"});    // closes the one message, about the third and the sixth file
    Picture shown = Desk().Settled();
    for (const int i : {0, 1, 3, 4})
        CHECK(Find(pictures[static_cast<std::size_t>(i)], shown).Found());
    CHECK_FALSE(Find(pictures[5], shown).Found());

    // The third canvas is below on the left; its name is not ASCII.
    REQUIRE(Save(third, folder.Path("third.png")));
    std::filesystem::rename(folder.Path("third.png"), folder.Path("\u9875.png"));
    const Place fourth = Find(pictures[3], shown), first = Find(pictures[0], shown);
    const Place target{100, fourth.Y};
    viewer.Act([&] {
        CHECK(RunUnderWine({"explorer", "/desktop=vostel", Variable("VOSTEL_DROP_FILES"), "VostelViewer",
                            std::to_string(target.X), std::to_string(target.Y),
                            WindowsPath(folder.Path("\u9875.png"))}) == 0);
    });
    CHECK(XScreen::Wait([&] { return Find(third, Desk().Settled()).Found(); }));
    shown = Desk().Settled();
    CHECK(Find(third, shown).X < fourth.X);
    CHECK(Find(third, shown).Y > first.Y);
    CHECK(Find(pictures[0], shown) == first);
    CHECK(viewer.Quit());
    CHECK(WineViewer::Settings("Viewer.ini").find("noise4.png") != std::string::npos);
}

TEST_CASE("the dialog opens a file on the current canvas, and the recent files offer it again")
{
    PageOnScreen  at;
    const Picture noise = GrayNoise(300, 200, 9);
    REQUIRE(Save(noise, at.Path("noise.png")));
    at.Viewer.Keys({"ctrl+2", "ctrl+o"});
    at.Viewer.TypePath(at.Path("noise.png"));
    CHECK(Find(noise, Desk().Settled()).Found());
    at.Viewer.Keys({"F9"});
    const Place page = Find(at.Shown, Desk().Settled());
    REQUIRE(page.Found());
    CHECK(Find(noise, Desk().Settled()).X > page.X);
    at.Viewer.Keys({"ctrl+3", "alt+f", "r", "2"});
    const Box pages = BoxOf(Magenta, Desk().Settled());
    CHECK(pages.Top == page.Y);
    CHECK(pages.Height > 350);    // one below the other, the lower one zoomed out to fit
    CHECK(at.Viewer.Quit());
}

TEST_CASE("the help and the message about a missing file open and close")
{
    PageOnScreen at;
    at.Viewer.Keys({"F1"});
    CHECK_FALSE(Find(at.Shown, Desk().Settled()).Found());
    at.Viewer.Keys({"Escape"});
    CHECK(Find(at.Shown, Desk().Settled()).Found());
    at.Viewer.Keys({"ctrl+o"});
    at.Viewer.TypePath(at.Path("none.png"));
    at.Viewer.Keys({"Return", "Escape"});    // the message, the dialog
    CHECK(Find(at.Shown, Desk().Settled()).Found());
    CHECK(at.Viewer.Quit());
}

TEST_CASE(
    "a raw file asks for its layout: cancelled, image and regions stay; confirmed, its data can be saved")
{
    PageOnScreen at;
    at.Viewer.Keys({"ctrl+r"});
    at.ShiftDrag(at.At(40, 50), at.At(140, 130));
    std::ofstream(at.Path("plane.raw")) << std::string(12000, '@');
    at.Viewer.Keys({"ctrl+o"});
    at.Viewer.TypePath(at.Path("plane.raw"));
    at.Viewer.Keys({"n", "Escape"});    // not to save the region, and no layout
    CHECK(at.LabelAt(at.SavedLabels("labels.raw"), 90, 90) == 1);

    at.Viewer.Keys({"ctrl+o"});
    at.Viewer.TypePath(at.Path("plane.raw"));
    at.Viewer.Keys({"n"});
    at.Viewer.Fill({"100", "120"});
    for (int i = 0; i < 3; ++i)    // to unsigned bytes
        Desk().Key("Down");
    at.Viewer.Keys({"Return"});
    at.Viewer.FileCommand("f");
    at.Viewer.TypePath(at.Path("data.raw"));
    REQUIRE(WaitForFile(at.Path("data.raw")));
    CHECK(std::filesystem::file_size(at.Path("data.raw")) == 100 * 120 * 4);
    CHECK(at.Viewer.Quit());
}
