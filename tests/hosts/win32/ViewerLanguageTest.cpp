#include "hosts/win32/WineViewer.h"

#include <doctest/doctest.h>

#include <cstdlib>

TEST_CASE("the View menu brings Chinese to title, status bar and dialogs, and English back")
{
    PageOnScreen at;
    CHECK(at.Viewer.Says("title", "page.png - Canvas 1 - Vostel Viewer"));
    CHECK(at.Viewer.Says("status", "400 x 300 8 bit"));
    at.Viewer.Keys({"alt+v", "z"});
    CHECK(at.Viewer.Says("title", "page.png - 画布 1 - Vostel 图像查看器"));
    CHECK(at.Viewer.Says("status", "400 x 300 8 位"));
    at.Viewer.Keys({"ctrl+g"});
    CHECK(at.Viewer.Says("dialog", "高斯平滑"));
    CHECK(at.Viewer.Says("text", "核大小（奇数，像素）"));
    CHECK(at.Viewer.Says("text", "取消"));
    at.Viewer.Keys({"Escape", "F1"});
    CHECK(at.Viewer.Says("dialog", "手势与按键"));
    CHECK(at.Viewer.Says("text", "放大和缩小"));
    at.Viewer.Keys({"Escape", "alt+v", "g"});
    CHECK(at.Viewer.Says("title", "page.png - Canvas 1 - Vostel Viewer"));
    at.Viewer.Keys({"ctrl+g"});
    CHECK(at.Viewer.Says("dialog", "Gaussian smoothing"));
    CHECK(at.Viewer.Says("text", "Size of the kernel (odd, px)"));
    at.Viewer.Keys({"Escape"});
    CHECK(at.Viewer.Quit());
    CHECK(WineViewer::Settings("Viewer.ini").find("Language=en") != std::string::npos);
}

TEST_CASE("menus and new captions are drawn in the language that is chosen, those that stand keep theirs")
{
    PageOnScreen  at;
    const Picture without = Desk().Settled();
    const auto    menus = [](const Picture& screen) { return screen.Part(0, 0, 600, 40); };
    const auto    caption = [&at](const Picture& screen) {    // 100 px right of the middle, 100 above
        const Place place = at.At(245, 95);
        return screen.Part(place.X, place.Y, 130, 30);
    };
    at.Viewer.Keys({"ctrl+m"});
    at.ShiftDrag(at.At(100, 200), at.At(200, 200));
    const Picture english = Desk().Settled();
    REQUIRE(caption(english) != caption(without));
    at.Viewer.Keys({"alt+v", "z"});
    const Picture standing = Desk().Settled();
    CHECK(menus(standing) != menus(english));
    CHECK(caption(standing) == caption(english));
    at.Viewer.Keys({"ctrl+Delete", "ctrl+m"});
    at.ShiftDrag(at.At(100, 200), at.At(200, 200));
    const Picture chinese = Desk().Settled();
    CHECK(caption(chinese) != caption(english));
    CHECK(caption(chinese) != caption(without));
    at.Viewer.Keys({"ctrl+Delete", "alt+v", "g"});
    CHECK(menus(Desk().Settled()) == menus(english));
    CHECK(at.Viewer.Quit());
}

TEST_CASE("--language chooses the language of a run, and one that is not spoken, or missing, is refused")
{
    const std::string viewer = std::getenv("VOSTEL_WIN32_VIEWER");
    CHECK(RunUnderWine({viewer, "--language", "fr"}) == 2);
    CHECK(RunUnderWine({viewer, "--language"}) == 2);
    PageOnScreen at({"--language", "zh_CN"});
    CHECK(at.Viewer.Says("title", "page.png - 画布 1 - Vostel 图像查看器"));
    CHECK(at.Viewer.Says("status", "400 x 300 8 位"));
    CHECK(at.Viewer.Quit());
    CHECK(WineViewer::Settings("Viewer.ini").find("Language=") == std::string::npos);    // of this run alone
}

TEST_CASE("the dialogs that the library asks for are in the language of the viewer, and say what is wrong")
{
    PageOnScreen at({"--language", "en"});
    at.Viewer.Keys({"ctrl+shift+r"});
    CHECK(at.Viewer.Says("dialog", "Rectangle by numbers"));
    CHECK(at.Viewer.Says("text", "Left edge (px)"));
    at.Viewer.Keys({"Escape", "ctrl+t"});
    CHECK(at.Viewer.Says("dialog", "Text"));
    at.Viewer.Keys({"Return"});
    CHECK(at.Viewer.Says("text", "There is no text yet."));
    at.Viewer.Keys({"Escape", "ctrl+shift+m"});
    CHECK(at.Viewer.Says("text", "Length of a pixel (mm)"));
    at.Viewer.Act([] {
        Desk().Key("ctrl+a");
        Desk().Type("abc");
    });
    at.Viewer.Keys({"Return"});
    CHECK(at.Viewer.Says("text", "This is not a number."));
    at.Viewer.Keys({"Escape", "alt+v", "z", "ctrl+shift+r"});
    CHECK(at.Viewer.Says("dialog", "按数值绘制矩形"));
    CHECK(at.Viewer.Says("text", "左边缘（像素）"));
    at.Viewer.Keys({"Escape"});
    CHECK(Find(at.Shown, Desk().Settled()) == at.Origin);
    CHECK(at.Viewer.Quit());
}
