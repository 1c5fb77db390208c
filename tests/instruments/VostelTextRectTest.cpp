#include "instruments/VostelTextRect.h"

#include "support/OverlayScene.h"

#include <climits>

using namespace vostel;

namespace {

CRect SizeOf(const wchar_t* text, FontType font, int height = 0)
{
    return gCVSGetTextRectOL(0, text, 0, 0, font, 1, 0, height);
}

// The box of a text of that size at a point, with the 3 px around it.
CRect BoxAt(int x, int y, const CRect& size)
{
    return CRect(x - 3, y - 3, x + size.Width() + 3, y + size.Height() + 3);
}

struct PlacedBox {
    CanvasView     View;
    VostelTextRect Box;

    explicit PlacedBox(const CRect& box)
    {
        View.SetClientRect(CRect(0, 0, 0, 0));
        Box.SetCanvasView(&View);
        Box.ClientBox = box;
    }
};

bool IsGray(unsigned int pixel)
{
    return RedOf(pixel) == GreenOf(pixel) && GreenOf(pixel) == BlueOf(pixel);
}

}

TEST_CASE("a fresh text box is empty, of a fixed size, and has the plain style")
{
    VostelTextRect box;
    CHECK(box.TypeCode == 6);
    CHECK(box.ClickPerPoint == 0);
    CHECK(box.MaxPoints == 2);
    CHECK(box.DrawBody);
    CHECK(box.FixedSize);
    CHECK(box.StyleFontType == FontPlain18);
    CHECK(box.Anchor == CPoint(0, 0));
    CHECK(box.TextWidth == 0);
    CHECK(box.TextHeight == 0);
    CHECK(box.GetResultText() == L"");    // not the "NULL" of other objects
}

TEST_CASE("the size of a text starts at 0, 0 and grows with the text and the font height")
{
    OverlayScene scene;
    const CRect  plain = SizeOf(L"text", FontPlain18);
    CHECK(plain.left == 0);
    CHECK(plain.top == 0);
    CHECK(plain.right > 10);
    CHECK(plain.bottom > 10);
    CHECK(SizeOf(L"texttext", FontPlain18).right > plain.right);
    CHECK(SizeOf(L"texttext", FontPlain18).bottom == plain.bottom);
    CHECK(SizeOf(L"text", FontRed22).bottom > plain.bottom);
    CHECK(SizeOf(L"text", FontPlain24).bottom > SizeOf(L"text", FontRed22).bottom);
    CHECK(SizeOf(L"text", FontRed22Framed) == SizeOf(L"text", FontRed22));
    CHECK(SizeOf(L"text", FontCustom, 60).bottom > SizeOf(L"text", FontPlain24).bottom);
    CHECK(SizeOf(L"text", FontCustom, 18) == plain);
    CHECK(gCVSGetTextRectOL(0, L"text", 77, -5, FontPlain18, 2, 255, 99) == plain);    // x, y play no part
    CHECK(SizeOf(L"", FontPlain18) == CRect(0, 0, 0, 0));
    CHECK(scene.Canvas().Elements.empty());
}

TEST_CASE("asking for the size of a text moves the selection to the last object")
{
    OverlayScene scene;
    SizeOf(L"text", FontPlain18);
    CHECK(scene.Canvas().SelIndex == -1);
    gCVSAddPoly(0);
    gCVSAddPoly(0);
    gCVSAddPoly(0);
    scene.Press(5, 5);    // hits nothing
    scene.Release(5, 5);
    REQUIRE(scene.Canvas().SelIndex == -1);
    SizeOf(L"text", FontPlain18);
    CHECK(scene.Canvas().SelIndex == 2);
    for (const VostelObj* object : scene.Canvas().Elements)
        CHECK_FALSE(object->Selected);
}

TEST_CASE("a size is asked for in vain of a canvas that does not exist or has no client area")
{
    OverlayScene scene;
    CHECK(gCVSGetTextRectOL(-1, L"text", 0, 0, FontPlain18, 1, 0, 0) == CRect());
    CHECK(gCVSGetTextRectOL(5, L"text", 0, 0, FontPlain18, 1, 0, 0) == CRect());
    CRect nothing(0, 0, 0, 0);
    gCVSSetClient(0, nothing, nullptr);
    CHECK(SizeOf(L"text", FontPlain18) == CRect());
    gCVSAddTextOL(0, L"text", 10, 10, FontPlain18, 1, 0, 0);
    CHECK(scene.Last<VostelTextRect>().TextWidth == 0);
    scene.SetClient(400, 300);
    CHECK(SizeOf(L"text", FontPlain18).right > 10);
}

TEST_CASE("a text command makes a numbered, selected box of the text's size, 3 px around it")
{
    OverlayScene scene;
    gCVSAddTextOL(0, L"first", 10, 20, FontPlain18, 1, 0, 0);
    gCVSAddPoly(0);
    gCVSAddTextOL(0, L"second text", 100, 120, FontRed22, 1, 0, 0);
    const VostelTextRect& box = scene.Last<VostelTextRect>();
    const CRect           size = SizeOf(L"second text", FontRed22);
    CHECK(box.SerialNo == 2);
    CHECK(box.TypeSerial == 1);
    CHECK(box.Selected);
    CHECK(scene.Canvas().SelIndex == 2);
    CHECK(box.Anchor == CPoint(100, 120));
    CHECK(box.TextWidth == size.Width());
    CHECK(box.TextHeight == size.Height());
    CHECK(box.ClientBox == BoxAt(100, 120, size));
    REQUIRE(box.ImagePoints.size() == 2);
    CHECK(box.ImagePoints[0].x == 100.0);
    CHECK(box.ImagePoints[0].y == 120.0);
    CHECK(box.ImagePoints[1].x == 100.0 + size.Width());
    CHECK(box.ImagePoints[1].y == 120.0 + size.Height());
    CHECK(scene.Messages().empty());
    // The paint leaves the box as it measured it: its own 3 px come back with the drawing.
    scene.Paint();
    CHECK(box.ClientBox == BoxAt(100, 120, size));
}

TEST_CASE("an empty text has a box of no size, with 3 px around it")
{
    OverlayScene scene;
    gCVSAddTextOL(0, L"", 100, 100, FontPlain18, 1, 0, 0);
    const VostelTextRect& box = scene.Last<VostelTextRect>();
    CHECK(box.TextWidth == 0);
    CHECK(box.TextHeight == 0);
    CHECK(box.ClientBox == CRect(97, 97, 103, 103));
    scene.Paint();
    CHECK(box.ClientBox == CRect(97, 97, 103, 103));
    CHECK(scene.Count(CRect(97, 97, 103, 103), 0xFFFFFF) == 36);
    CHECK(scene.Count(scene.Whole(), 0xFFFFFF) == 36);
}

TEST_CASE("the five styles: color of the letters and white box or none")
{
    const struct {
        FontType     Font;
        int          BkMode;
        unsigned int Color;    // COLORREF
        bool         White;
        bool         Red;
    } styles[] = {
        {FontPlain18, 1, 0x00FF00, true, false}, {FontPlain24, 2, 0x00FF00, false, false},
        {FontRed22, 2, 0x00FF00, false, true},   {FontRed22Framed, 1, 0x00FF00, true, true},
        {FontCustom, 1, 255, false, true},       {FontCustom, 2, 255, true, true},
    };
    for (const auto& style : styles) {
        CAPTURE(style.Font);
        CAPTURE(style.BkMode);
        OverlayScene scene;
        scene.ShowFlat(128);
        gCVSAddTextOL(0, L"HELLO", 100, 100, style.Font, style.BkMode, style.Color, 30);
        scene.Paint();
        const CRect        box = scene.Last<VostelTextRect>().ClientBox;
        const unsigned int background = style.White ? 0xFFFFFF : 0x808080;
        const int          area = box.Width() * box.Height();
        CHECK(scene.Count(CRect(box.left, box.top, box.right, box.top + 3), background) == box.Width() * 3);
        const int letters =
            scene.Count(box, [background](unsigned int pixel) { return pixel != background; });
        CHECK(letters > 30);
        CHECK(letters < area / 2);
        // Red letters never have less red than the background; black ones darken it.
        CHECK(scene.Count(box, [&](unsigned int pixel) {
            return pixel != background &&
                   (style.Red ? RedOf(pixel) < RedOf(background) : RedOf(pixel) > RedOf(background));
        }) == 0);
        CHECK(scene.Count(box, [&](unsigned int pixel) {
            return style.Red ? RedOf(pixel) > GreenOf(pixel) + 60 : BlueOf(pixel) + 60 < BlueOf(background);
        }) > 20);
        CHECK(scene.Count(scene.Whole(), 0x808080) + (style.White ? area : letters) == 400 * 300);
    }
}

TEST_CASE("the custom style takes any color")
{
    OverlayScene scene;
    scene.ShowFlat(0);
    gCVSAddTextOL(0, L"HELLO", 100, 100, FontCustom, 1, 0x00FF00, 40);
    scene.Paint();
    const CRect box = scene.Last<VostelTextRect>().ClientBox;
    CHECK(scene.Count(box, 0x00FF00) > 20);
    CHECK(scene.Count(box, [](unsigned int pixel) { return RedOf(pixel) || BlueOf(pixel); }) == 0);
}

TEST_CASE("styles set the flags of the kit, and unknown ones change nothing")
{
    VostelTextRect box;
    box.Kit.TextBoxBack = false;
    box.DrawBody = true;
    box.StyleFontType = FontPlain18;
    box.ApplyTextStyle();
    CHECK(box.Kit.TextBoxBack);
    CHECK(box.DrawBody);
    for (const FontType font : {FontPlain24, FontRed22}) {
        box.DrawBody = true;
        box.StyleFontType = font;
        box.Kit.BkMode = 0;
        box.ApplyTextStyle();
        CHECK_FALSE(box.Kit.TextBoxBack);
        CHECK_FALSE(box.DrawBody);
        box.Kit.BkMode = 2;
        box.ApplyTextStyle();
        CHECK(box.Kit.TextBoxBack);
    }
    box.StyleFontType = FontRed22Framed;
    box.Kit.BkMode = 0;
    box.Kit.TextBoxBack = false;
    box.ApplyTextStyle();
    CHECK(box.Kit.TextBoxBack);
    CHECK(box.DrawBody);

    box.StyleFontType = FontCustom;
    box.StyleBkMode = 1;
    box.StyleColor = 0x123456;
    box.StyleHeight = 31;
    box.ApplyTextStyle();
    CHECK(box.Kit.BkMode == 1);
    CHECK(box.Kit.TextColor == 0x123456);
    CHECK(box.Kit.FontHeight == 31);
    CHECK_FALSE(box.Kit.TextBoxBack);
    CHECK_FALSE(box.DrawBody);

    const HFONT font = box.Kit.Font;
    for (const int unknown : {5, -1, INT_MAX}) {
        box.StyleFontType = static_cast<FontType>(unknown);
        box.DrawBody = true;
        box.ApplyTextStyle();
        CHECK(box.Kit.Font == font);
        CHECK(box.DrawBody);
    }
}

TEST_CASE("the white box lies over the outline that the framed style asks for")
{
    OverlayScene scene;
    gCVSAddTextOL(0, L"HELLO", 100, 100, FontRed22Framed, 1, 0, 0);
    scene.Paint();
    const CRect box = scene.Last<VostelTextRect>().ClientBox;
    // The outline went 3 px inside the white box; its corners would stand clear of the letters.
    CHECK(scene.Count(CRect(box.left, box.top, box.left + 4, box.top + 6), 0xFFFFFF) == 24);
    CHECK(scene.Count(CRect(box.right - 4, box.bottom - 6, box.right, box.bottom), 0xFFFFFF) == 24);
    CHECK(scene.Last<VostelTextRect>().DrawBody);
}

TEST_CASE("image coordinates place a box once; from there it follows the image and keeps its size")
{
    OverlayScene scene;
    scene.Zoom(3);
    const int x = static_cast<int>(50 * scene.Scale());
    const int y = static_cast<int>(40 * scene.Scale());
    gCVSAddTextOLV2(0, L"text", 50, 40, FontPlain18, 1, 0, 0);
    VostelTextRect& box = scene.Last<VostelTextRect>();
    CHECK(box.Anchor == CPoint(x, y));
    const CRect size = box.ClientBox;
    scene.Paint();
    const PointTemplateBase<double> image = box.ImagePoints[0];
    const auto                      follows = [&] {
        CPoint corner;
        gCVSGetDisplayPt(0, image, corner);
        CHECK(box.ClientBox == BoxAt(corner.x, corner.y, SizeOf(L"text", FontPlain18)));
    };
    follows();
    scene.Pan(17, -5);
    scene.Paint();
    follows();
    scene.Pan(-17, 5);
    scene.Zoom(-3);
    follows();
    CHECK(box.ImagePoints[0].x == image.x);
    CHECK(box.ClientBox.Width() == size.Width());
}

TEST_CASE("a text box is dragged by a press inside it, beyond the image too, and misses outside")
{
    OverlayScene scene;
    gCVSAddTextOL(0, L"text", 100, 100, FontPlain18, 1, 0, 0);
    VostelTextRect& box = scene.Last<VostelTextRect>();
    scene.Paint();
    const CRect before = box.ClientBox;
    scene.Drag(CPoint(before.left, before.top), CPoint(before.left + 30, before.top - 20));
    scene.Paint();
    CHECK(box.ClientBox.left == before.left + 30);
    CHECK(box.ClientBox.top == before.top - 20);
    CHECK(box.Selected);
    scene.Move(300, 200);    // the release has ended it
    scene.Paint();
    CHECK(box.ClientBox.left == before.left + 30);
    scene.Drag(CPoint(box.ClientBox.left + 5, box.ClientBox.top + 5), CPoint(-200, 500));
    scene.Paint();
    CHECK(box.ImagePoints[0].x < -100.0);
    CHECK(box.ImagePoints[0].y > 400.0);
    scene.Press(200, 200);
    CHECK_FALSE(box.Selected);
    CHECK(scene.Canvas().SelIndex == -1);
    scene.Release(200, 200);
}

TEST_CASE("a new text without a new fit leaves the box at the old size")
{
    OverlayScene scene;
    gCVSAddTextOL(0, L"ab", 100, 100, FontPlain18, 1, 0, 0);
    VostelTextRect& box = scene.Last<VostelTextRect>();
    const CRect     before = box.ClientBox;
    CString         longer = L"a text that is a lot longer";
    box.SetText(longer);
    CHECK(box.GetResultText() == longer);
    CHECK(box.ClientBox == before);
    scene.Paint();
    CHECK(box.ClientBox == before);
    box.SetTextAndFit(longer);
    CHECK(box.ClientBox.Width() > before.Width());
    CHECK(box.ClientBox.left == before.left);
    box.SetTextAt(longer, CPoint(30, 40));
    CHECK(box.Anchor == CPoint(30, 40));
    CHECK(box.ClientBox.left == 27);
    CHECK(box.ClientBox.top == 37);
}

TEST_CASE("measuring a text leaves the box and its own text alone")
{
    OverlayScene scene;
    gCVSAddTextOL(0, L"ab", 100, 100, FontPlain18, 1, 0, 0);
    VostelTextRect& box = scene.Last<VostelTextRect>();
    const CRect     before = box.ClientBox;
    CString         other = L"another text";
    CHECK(box.MeasureText(other) == SizeOf(L"another text", FontPlain18));
    CHECK(box.GetResultText() == L"ab");
    CHECK(box.ClientBox == before);
}

TEST_CASE("a text box that has been given no context measures nothing")
{
    CanvasView view;
    view.SetClientRect(CRect(0, 0, 100, 100));
    VostelTextRect box;
    box.SetCanvasView(&view);
    CString text = L"some text";
    CHECK(box.MeasureText(text) == CRect());
    box.SetTextAt(text, CPoint(20, 30));
    CHECK(box.TextWidth == 0);
    CHECK(box.TextHeight == 0);
    CHECK(box.ClientBox == CRect(17, 27, 23, 33));
    CHECK(box.GetResultText() == text);
}

TEST_CASE("a text box whose context is gone measures nothing until it is painted again")
{
    OverlayScene scene;
    gCVSAddTextOL(0, L"text", 100, 100, FontPlain18, 1, 0, 0);
    VostelTextRect& box = scene.Last<VostelTextRect>();
    const int       width = box.TextWidth;
    scene.Resize(500, 300);
    CString text = L"text";
    box.SetTextAndFit(text);
    CHECK((box.TextWidth == 0 || box.TextWidth == width));    // a system may use the handle again
    scene.Paint();
    box.SetTextAndFit(text);
    CHECK(box.TextWidth == width);
    scene.Resize(400, 300);
}

TEST_CASE("each conversion without a view is reported, and goes on with zeros")
{
    TestDesktop    desktop;
    VostelTextRect box;
    box.SetPlacement(70.9f, -80.9f, 10.0f, 20.0f);
    CHECK(desktop.Messages == std::vector<CString>{NoView});
    CHECK(box.Anchor == CPoint(70, -80));
    REQUIRE(box.ImagePoints.size() == 2);
    CHECK(box.ImagePoints[0].x == 0.0);
    CHECK(box.ImagePoints[1].x == 10.0);
    CHECK(box.ImagePoints[1].y == 20.0);
    desktop.Messages.clear();
    CString text = L"text";
    box.SetTextAndFit(text);
    CHECK(desktop.Messages.size() >= 1);
    CHECK(desktop.Messages[0] == NoView);
    CHECK(box.ClientBox == CRect(-3, -3, 3, 3));
}

TEST_CASE("a placement takes client points and a size, and cuts both to whole image pixels")
{
    CanvasView view;
    view.SetClientRect(CRect(0, 0, 100, 100));
    VostelTextRect box;
    box.SetCanvasView(&view);
    box.SetPlacement(60.9f, 70.9f, 10.5f, 20.9f);
    CHECK(box.Anchor == CPoint(60, 70));
    REQUIRE(box.ImagePoints.size() == 2);
    // Without an image the display rectangle is the middle of the client area.
    CHECK(box.ImagePoints[0].x == 10.0);
    CHECK(box.ImagePoints[0].y == 20.0);
    CHECK(box.ImagePoints[1].x == 20.0);
    CHECK(box.ImagePoints[1].y == 40.0);
}

TEST_CASE("key T gives every text box the test text in the same place, key I the same size")
{
    OverlayScene scene;
    gCVSAddTextOL(0, L"one", 100, 100, FontPlain18, 1, 0, 0);
    gCVSAddTextOL(0, L"two", 200, 200, FontPlain18, 1, 0, 0);
    scene.Key('T');
    const CRect size = SizeOf(L"这是一个测试", FontPlain18);
    for (VostelObj* object : scene.Canvas().Elements) {
        CHECK(object->GetResultText() == L"这是一个测试");
        CHECK(object->ClientBox == BoxAt(50, 50, size));
    }
    scene.Key('I');
    scene.Paint();
    for (VostelObj* object : scene.Canvas().Elements) {
        CHECK(object->GetResultText() == L"这是一个测试");
        CHECK(object->ClientBox == CRect(47, 47, 103, 103));
    }
}

TEST_CASE("the nearest corner of a box is the strictly closest one")
{
    PlacedBox placed(CRect(10, 20, 110, 60));
    CHECK(placed.Box.NearestCorner(CPoint(0, 0)) == CPoint(10, 20));
    CHECK(placed.Box.NearestCorner(CPoint(120, 0)) == CPoint(110, 20));
    CHECK(placed.Box.NearestCorner(CPoint(0, 100)) == CPoint(10, 60));
    CHECK(placed.Box.NearestCorner(CPoint(200, 200)) == CPoint(110, 60));
    CHECK(placed.Box.NearestCorner(CPoint(30, 30)) == CPoint(10, 20));    // from inside
}

TEST_CASE("a tie between closest corners gives bottom right")
{
    PlacedBox placed(CRect(10, 20, 110, 60));
    CHECK(placed.Box.NearestCorner(CPoint(60, 40)) == CPoint(110, 60));    // the centre
    CHECK(placed.Box.NearestCorner(CPoint(60, 0)) == CPoint(110, 60));    // above: top left and top right tie
    CHECK(placed.Box.NearestCorner(CPoint(0, 40)) == CPoint(110, 60));    // the two on the left tie
    CHECK(placed.Box.NearestCorner(CPoint(60, 100)) == CPoint(110, 60));    // the two at the bottom tie
    CHECK(placed.Box.NearestCorner(CPoint(59, 0)) == CPoint(10, 20));
    PlacedBox empty(CRect(7, 7, 7, 7));
    CHECK(empty.Box.NearestCorner(CPoint(0, 0)) == CPoint(7, 7));
}

TEST_CASE("distances to corners at the ends of the coordinates do not wrap")
{
    PlacedBox placed(CRect(INT_MIN, INT_MIN, INT_MAX, INT_MAX));
    CHECK(placed.Box.NearestCorner(CPoint(-1000000, -1000000)) == CPoint(INT_MIN, INT_MIN));
    CHECK(placed.Box.NearestCorner(CPoint(1000000, -1000000)) == CPoint(INT_MAX, INT_MIN));
}

TEST_CASE("the dialog call asks for the text under its section and places it framed at 200, 200")
{
    OverlayScene  scene;
    CString       asked;
    bool          accept = false;
    TessikDialogs dialogs;
    dialogs.ImaGeneralPara = [&](tagZEKImaGeneralPara& para, CString& section, CString& file) {
        asked = section + L"|" + file;
        para.Value = L"typed";
        return accept;
    };
    const TestDialogs installed(dialogs);
    gCVSAddTextOL(0);
    CHECK(asked == L"TextInfo|TextInfo.ini");
    CHECK(scene.Canvas().Elements.empty());
    CHECK(scene.Canvas().ElementSerial == 0);
    CHECK(scene.Canvas().TextCount == 0);
    accept = true;
    gCVSAddTextOL(0);
    const VostelTextRect& box = scene.Last<VostelTextRect>();
    CHECK(box.StyleFontType == FontRed22Framed);
    CHECK(box.Text == L"typed");
    CHECK(box.ClientBox == BoxAt(200, 200, SizeOf(L"typed", FontRed22)));
    CHECK(box.Selected);
    CHECK(scene.Canvas().TextCount == 1);
    asked = L"";
    gCVSAddTextOL(5);
    CHECK(asked == L"");
}

TEST_CASE("texts of thousands of letters are measured and painted, clipped to the client area")
{
    OverlayScene  scene;
    const CString text(L'W', 5000);
    gCVSAddTextOL(0, text, 10, 10, FontPlain18, 1, 0, 0);
    const VostelTextRect& box = scene.Last<VostelTextRect>();
    CHECK(box.TextWidth > 5 * 1000);    // some systems take the first thousand letters of a line
    scene.Paint();
    CHECK(scene.Count(CRect(10, 7, 400, 10), 0xFFFFFF) == 390 * 3);    // the box goes beyond the right edge
    CHECK(scene.Count(CRect(10, 10, 400, 40),
                      [](unsigned int pixel) { return IsGray(pixel) && pixel < 0x404040; }) > 100);
    gCVSAddTextOL(0, text, -3000, 60, FontPlain18, 1, 0, 0);
    scene.Paint();
    CHECK(scene.Count(CRect(0, 57, 400, 60), 0xFFFFFF) == 400 * 3);
    CHECK(scene.Messages().empty());
}

TEST_CASE("absurd heights and places neither fail nor hang")
{
    OverlayScene scene;
    for (const int height : {0, -30, 1000, -1000}) {
        gCVSAddTextOL(0, L"text", 10, 10, FontCustom, 2, 0, height);
        scene.Paint();
    }
    for (const int place : {INT_MIN, INT_MAX, -1000000}) {
        gCVSAddTextOL(0, L"text", place, place, FontPlain18, 1, 0, 0);
        gCVSAddTextOLV2(0, L"text", place, place, FontRed22Framed, 1, 0, 0);
        scene.Paint();
    }
    CHECK(scene.Canvas().Elements.size() == 10);
}
