// Undo, sessions and the table of measures, by keys and dialogs.

#include "hosts/win32/WineViewer.h"

#include <doctest/doctest.h>

#include <fstream>
#include <iterator>

namespace {

std::string TextOf(const std::string& path)
{
    std::ifstream stream(path, std::ios::binary);
    return std::string((std::istreambuf_iterator<char>(stream)), std::istreambuf_iterator<char>());
}

struct DrawnPage : PageOnScreen {
    explicit DrawnPage(const std::vector<std::string>& options = {}) : PageOnScreen(options)
    {
        Viewer.Keys({"ctrl+r"});
        ShiftDrag(At(40, 50), At(140, 130));
    }

    int RedOnScreen() const
    {
        return Desk().Settled().Count(0xFF0000, Origin.X, Origin.Y, Origin.X + Width, Origin.Y + Height);
    }
};

}

TEST_CASE("a drawn rectangle is taken back and brought again by keys")
{
    DrawnPage at;
    CHECK(at.RedOnScreen() > 300);
    at.Viewer.Keys({"ctrl+z", "ctrl+z"});    // its place, and that it is there
    CHECK(at.RedOnScreen() == 0);
    at.Viewer.Keys({"ctrl+y", "ctrl+y"});
    CHECK(at.LabelAt(at.SavedLabels("again.raw"), 90, 90) == 1);
    CHECK(at.LabelAt(at.SavedLabels("beside.raw"), 200, 200) == 0);
    CHECK(at.Viewer.Quit());
}

TEST_CASE("the measures are a table on the screen, and a file")
{
    DrawnPage at;
    at.Viewer.Keys({"ctrl+l"});
    REQUIRE(Save(Desk().Settled(), "measures.png"));
    at.Viewer.Keys({"alt+s"});
    at.Viewer.TypePath(at.Path("measures.csv"));
    REQUIRE(WaitForFile(at.Path("measures.csv")));
    const std::string table = TextOf(at.Path("measures.csv"));
    CHECK(table.rfind("object,name,kind", 0) == 0);
    CHECK(table.find("rectangle") != std::string::npos);
    at.Viewer.Keys({"Escape"});
    CHECK(at.Viewer.Quit());
}

TEST_CASE("who quits is asked about objects that are not saved, saves them, and opens them again")
{
    DrawnPage at;
    at.Viewer.Keys({"ctrl+q", "Escape"});    // stays
    at.Viewer.Keys({"ctrl+s"});
    at.Viewer.TypePath(at.Path("page.vostel.json"));
    REQUIRE(WaitForFile(at.Path("page.vostel.json")));
    CHECK(TextOf(at.Path("page.vostel.json")).find("rectangle") != std::string::npos);
    at.Viewer.Keys({"ctrl+2", "ctrl+o"});
    at.Viewer.TypePath(at.Path("page.vostel.json"));
    CHECK(Find(at.Shown.Part(200, 150, 100, 100), Desk().Settled()).Found());
    CHECK(at.LabelAt(at.SavedLabels("opened.raw"), 90, 90) == 1);
    CHECK(at.Viewer.QuitsUnasked());
}

TEST_CASE("the Edit menu offers other steps after undo, and the same ones after redo")
{
    DrawnPage  at;
    const auto menu = [&at] {
        at.Viewer.Keys({"alt+e"});
        const Picture shown = Desk().Settled().Part(0, 40, 400, 120);
        at.Viewer.Keys({"Escape", "Escape"});
        return shown;
    };
    const Picture drawn = menu();
    at.Viewer.Keys({"ctrl+z"});
    CHECK(menu() != drawn);
    at.Viewer.Keys({"ctrl+y"});
    CHECK(menu() == drawn);
    CHECK(at.Viewer.Quit());
}

TEST_CASE("the table shows kinds and numbers, is copied with tabs and saved as JSON")
{
    DrawnPage at({"--language", "en"});
    at.Viewer.Keys({"ctrl+l"});
    CHECK(at.Viewer.Says("dialog", "Measures"));
    CHECK(at.Viewer.Says("column", "Area"));
    CHECK(at.Viewer.Says("row", "\trectangle\t"));
    CHECK(at.Viewer.Says("row", "\t8000\t"));    // 100 x 80
    Desk().Key("alt+c");
    CHECK(at.Viewer.Says("clipboard", "object\tname\tkind\t"));
    CHECK(at.Viewer.Says("clipboard", "\trectangle\t"));
    at.Viewer.Keys({"alt+s"});
    at.Viewer.TypePath(at.Path("measures.json"));
    REQUIRE(WaitForFile(at.Path("measures.json")));
    CHECK(TextOf(at.Path("measures.json")).find("\"area\":8000,") != std::string::npos);
    CHECK(at.Viewer.Says("status", "Saved measures.json"));
    at.Viewer.Keys({"Escape"});
    CHECK(at.Viewer.Quit());
}

TEST_CASE("another picture and the end of the viewer ask about objects first, and Escape keeps them")
{
    DrawnPage at({"--language", "zh_CN"});
    REQUIRE(Save(GrayNoise(300, 200, 9), at.Path("noise.png")));
    at.Viewer.Keys({"ctrl+o"});
    at.Viewer.TypePath(at.Path("noise.png"));
    CHECK(at.Viewer.Says("text", "画布 1 上的对象尚未保存。是否保存为会话？"));
    at.Viewer.Keys({"Escape"});
    CHECK(at.Viewer.Says("title", "page.png - "));
    CHECK(at.RedOnScreen() > 300);
    at.Viewer.Keys({"ctrl+q"});
    CHECK(at.Viewer.Says("text", "画布 1 上的对象尚未保存。是否保存为会话？"));
    at.Viewer.Keys({"Escape"});
    CHECK(at.RedOnScreen() > 300);
    at.Viewer.Keys({"ctrl+s"});
    at.Viewer.TypePath(at.Path("page.vostel.json"));
    CHECK(at.Viewer.Says("status", "已保存 page.vostel.json"));
    CHECK(at.Viewer.QuitsUnasked());
}

TEST_CASE("after Measure, Scale the table counts in mm, as the captions do")
{
    DrawnPage at({"--language", "en"});
    at.Viewer.Keys({"ctrl+shift+m"});
    at.Viewer.Fill({"0.5"});
    at.Viewer.Keys({"Return", "ctrl+l"});
    CHECK(at.Viewer.Says("row", "\tmm\t"));
    CHECK(at.Viewer.Says("row", "\t2000\t"));    // 100 x 80 px of 0.5 mm
    at.Viewer.Keys({"Escape"});
    CHECK(at.Viewer.Quit());
}
