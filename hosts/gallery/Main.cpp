// Draws every kind of overlay object with the gestures of a user, each on a canvas of its own size, and puts
// the frames with their names onto one sheet.

#include "common/Sheet.h"

#include <vostel.h>

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <string>
#include <vector>

namespace {

constexpr int Canvas = 0;
constexpr int Columns = 3;
constexpr int TileWidth = 384;    // the size of the sample, so that it fills a tile
constexpr int TileHeight = 303;
constexpr int Gap = 12;
constexpr int SheetWidth = Columns * TileWidth + (Columns + 1) * Gap;

struct Tile {
    const wchar_t*             Name;
    std::function<void(Host&)> Draw;
    int                        Span = 1;    // columns
};

// Moves the image to the right, so that text without a background of its own stands on the hatched one.
void MakeRoom(Host& user, int width)
{
    user.Drag(MK_CONTROL, CPoint(0, 0), CPoint(width, 0));
}

std::vector<CPoint> Ring(CPoint centre, double radiusX, double radiusY, int count)
{
    constexpr double    Turn = 6.283185307179586;
    std::vector<CPoint> points;
    for (int i = 0; i < count; ++i)
        points.emplace_back(centre.x + static_cast<int>(radiusX * std::cos(Turn * i / count)),
                            centre.y + static_cast<int>(radiusY * std::sin(Turn * i / count)));
    return points;
}

void DrawRectangle(Host& user)
{
    gCVSAddMRectangle(Canvas);
    user.Drag(MK_SHIFT, CPoint(95, 85), CPoint(290, 215));
}

void DrawEllipse(Host& user)
{
    DrawRectangle(user);
    user.Key('E');
}

void DrawCustomRectangle(Host& user)
{
    TessikDialogs dialogs;
    dialogs.ImaROIRectPara = [](tagZEKImaROIRectPara& para) {
        para.RoiLeft = 110;
        para.RoiRight = 280;
        para.RoiTop = 80;
        para.RoiBottom = 230;
        return true;
    };
    gDlgSetDialogs(dialogs);
    gCVSAddCustomRectangle(Canvas);
    gDlgSetDialogs({});
    user.Move(CPoint(0, 0));    // hands the view to the new object
}

void DrawPolygon(Host& user)
{
    gCVSAddPoly(Canvas);
    for (const CPoint& node : Ring(CPoint(190, 150), 110.0, 90.0, 7))
        user.Click(MK_SHIFT, node);
}

void DrawSpline(Host& user)
{
    gCVSAddSpline(Canvas);
    for (const CPoint& node : Ring(CPoint(190, 150), 120.0, 85.0, 6))
        user.Click(MK_SHIFT, node);
}

void DrawFreeRegion(Host& user)
{
    gCVSAddFreeRegion(Canvas);
    std::vector<CPoint> path = Ring(CPoint(190, 150), 100.0, 100.0, 60);
    for (std::size_t i = 0; i < path.size(); ++i)
        path[i].x += static_cast<int>(18.0 * std::sin(static_cast<double>(i) * 0.52));
    user.DragAlong(MK_SHIFT, path);
}

void DrawStrokes(Host& user)
{
    gCVSAddFreeStroke(Canvas);
    user.Drag(MK_SHIFT, CPoint(100, 190), CPoint(160, 240));
    user.Drag(MK_SHIFT, CPoint(160, 240), CPoint(290, 80));
    for (int i = 0; i < 4; ++i)
        user.Key('A');    // a wider pen
}

void DrawText(Host& user)
{
    MakeRoom(user, 190);
    gCVSAddTextOL(Canvas, L"FontPlain18", 230, 40, FontPlain18, TRANSPARENT, 0, 0);
    gCVSAddTextOL(Canvas, L"FontPlain24", 20, 80, FontPlain24, TRANSPARENT, 0, 0);
    gCVSAddTextOL(Canvas, L"FontRed22", 20, 140, FontRed22, TRANSPARENT, 0, 0);
    gCVSAddTextOL(Canvas, L"FontRed22Framed 已检测", 110, 190, FontRed22Framed, TRANSPARENT, 0, 0);
    gCVSAddTextOL(Canvas, L"FontCustom", 130, 240, FontCustom, OPAQUE, RGB(0, 110, 0), 36);
}

void DrawPanel(Host& user)
{
    MakeRoom(user, 190);
    std::vector<CString> lines = {L"样品 Greek coins", L"row 1 of 4", L"4 November"};
    gCVSAddTextML(Canvas, lines, 25, 100);
}

void DrawLength(Host& user)
{
    gCVSSetMeasureScale(Canvas, 0.1);
    gCVSAddMeasureLine(Canvas, 0.0);
    user.Drag(MK_SHIFT, CPoint(50, 235), CPoint(190, 205));
    user.Drag(0, CPoint(260, 125), CPoint(230, 115));    // by its caption
}

void DrawAngle3(Host& user)
{
    gCVSAddMeasureAngle3Pts(Canvas);
    user.Paint();
    user.Click(MK_SHIFT, CPoint(110, 245));
    user.Drag(0, CPoint(110, 95), CPoint(230, 70));
    user.Drag(0, CPoint(20, 155), CPoint(230, 175));
}

void DrawAngle4(Host& user)
{
    gCVSAddMeasureAngle4Pts(Canvas);
    user.Paint();
    user.Click(MK_SHIFT, CPoint(140, 240));
    user.Drag(0, CPoint(140, 40), CPoint(220, 60));
    user.Drag(0, CPoint(20, 150), CPoint(255, 170));
}

void DrawProfile(Host& user)
{
    MakeRoom(user, 198);
    gCVSAddLineProfile(Canvas);
    user.Paint();
    user.Drag(MK_SHIFT, CPoint(413, 215), CPoint(763, 275));
    user.Drag(0, CPoint(100, 100), CPoint(90, 85));    // the plot
}

void DrawReadOut(Host& user)
{
    MakeRoom(user, 190);
    gCVSAddInfoWin(Canvas);
    user.Move(CPoint(300, 210));
    user.Paint();
    user.Drag(0, CPoint(40, 40), CPoint(30, 130));
    user.Move(CPoint(300, 210));
}

void DrawNeighbours(Host& user)
{
    MakeRoom(user, 260);
    gCVSAddNeighborPV(Canvas);
    user.Move(CPoint(332, 208));
    user.Paint();
    user.Drag(0, CPoint(40, 40), CPoint(20, 90));
    user.Move(CPoint(332, 208));
}

void DrawSlider(Host& user)
{
    gCVSShowContrastCtrl(Canvas, true);
    gCVSSetContrastCtrlRectPos(Canvas, 20, 30, 344, 30);
    user.Paint();
}

void DrawProgress(Host& user)
{
    gCVSShowProgress(Canvas, true);
    gCVSSetProgressRectPos(Canvas, 20, 30, 344, 30);
    gCVSSetRange(Canvas, 0, 100);
    gCVSSetPos(Canvas, 65);
    user.Paint();
}

// What the C interface adds is drawn by the same gestures after vostel_draw_next.
VostelObject DrawNext(VostelKind kind)
{
    VostelObject object = 0;
    vostel_draw_next(Canvas, kind, &object);
    return object;
}

void SetStyle(VostelObject object, std::uint32_t line, std::uint32_t fill, double width)
{
    VostelStyle style = {};
    style.size = sizeof style;
    vostel_object_style(Canvas, object, &style);
    style.line_color = style.selected_color = style.handle_color = line;
    style.fill_color = fill;
    style.line_width = width;
    vostel_object_set_style(Canvas, object, &style);
}

void DrawPoints(Host& user)
{
    DrawNext(VOSTEL_POINTS);
    for (const CPoint& mark : {CPoint(48, 50), CPoint(110, 48), CPoint(172, 52), CPoint(235, 50),
                               CPoint(45, 120), CPoint(112, 122), CPoint(180, 120)})
        user.Click(MK_SHIFT, mark);
}

void DrawPolyline(Host& user)
{
    DrawNext(VOSTEL_POLYLINE);
    for (const CPoint& node : {CPoint(45, 250), CPoint(110, 190), CPoint(185, 215), CPoint(250, 120)})
        user.Click(MK_SHIFT, node);
}

void DrawArrow(Host& user)
{
    DrawNext(VOSTEL_ARROW);
    user.Drag(MK_SHIFT, CPoint(90, 235), CPoint(230, 130));
}

void DrawStyles(Host& user)
{
    SetStyle(DrawNext(VOSTEL_RECTANGLE), 0xFFC000, 0x50FFC000, 1.0);
    user.Drag(MK_SHIFT, CPoint(30, 30), CPoint(180, 140));
    SetStyle(DrawNext(VOSTEL_SPLINE), 0x00A0FF, 0x6000A0FF, 3.0);
    for (const CPoint& node : Ring(CPoint(270, 110), 80.0, 65.0, 5))
        user.Click(MK_SHIFT, node);
    SetStyle(DrawNext(VOSTEL_ARROW), 0x30D030, 0, 5.0);
    user.Drag(MK_SHIFT, CPoint(60, 270), CPoint(240, 225));
}

void DrawEnglish(Host& user)
{
    vostel_canvas_set_language(Canvas, "en");
    DrawNext(VOSTEL_LENGTH);
    user.Drag(MK_SHIFT, CPoint(50, 235), CPoint(190, 205));
    DrawNext(VOSTEL_ANGLE);
    user.Click(MK_SHIFT, CPoint(180, 180));
    user.Drag(0, CPoint(180, 30), CPoint(270, 60));
}

void DrawTwice(Host& user)
{
    vostel_canvas_set_pixel_ratio(Canvas, 2.0);
    DrawNext(VOSTEL_POLYGON);
    for (const CPoint& node : Ring(CPoint(150, 170), 110.0, 90.0, 5))
        user.Click(MK_SHIFT, node);
    DrawNext(VOSTEL_ARROW);
    user.Drag(MK_SHIFT, CPoint(90, 235), CPoint(200, 110));
}

const Tile Tiles[] = {
    {L"Rectangle", DrawRectangle},
    {L"Rectangle as ellipse (key E)", DrawEllipse},
    {L"Rectangle from numbers", DrawCustomRectangle},
    {L"Polygon", DrawPolygon},
    {L"Spline", DrawSpline},
    {L"Free region", DrawFreeRegion},
    {L"Free strokes", DrawStrokes},
    {L"Text boxes, the five styles", DrawText},
    {L"Text panel", DrawPanel},
    {L"Length", DrawLength},
    {L"Angle of three points", DrawAngle3},
    {L"Angle of four points", DrawAngle4},
    {L"Line profile", DrawProfile, 2},
    {L"Read-out", DrawReadOut},
    {L"Neighbour values", DrawNeighbours},
    {L"Contrast slider", DrawSlider},
    {L"Progress bar", DrawProgress},
    {L"Points", DrawPoints},
    {L"Polyline", DrawPolyline},
    {L"Arrow", DrawArrow},
    {L"Fills and line widths", DrawStyles},
    {L"English captions", DrawEnglish},
    {L"Pixel ratio 2", DrawTwice},
};

// Places of the tiles in reading order; the height that they need comes back.
int PlaceTiles(const std::function<void(const Tile&, int x, int y)>& place)
{
    constexpr int RowHeight = TileHeight + Sheet::NameHeight + Gap;
    int           column = 0;
    int           y = Gap;
    for (const Tile& tile : Tiles) {
        if (column + tile.Span > Columns) {
            column = 0;
            y += RowHeight;
        }
        place(tile, Gap + column * (TileWidth + Gap), y);
        column += tile.Span;
    }
    return y + RowHeight;
}

bool WriteSheet(const std::string& picture, const std::string& path)
{
    Sheet sheet(SheetWidth, PlaceTiles([](const Tile&, int, int) {}));
    bool  shown = true;
    PlaceTiles([&](const Tile& tile, int x, int y) {
        const int width = tile.Span * TileWidth + (tile.Span - 1) * Gap;
        Host      user(Canvas, width, TileHeight);
        gCVSShowContrastCtrl(Canvas, false);
        gCVSShowProgress(Canvas, false);
        CString file = NameOf(picture);
        gCVSReadFile(Canvas, file, true);
        shown = shown && gCVSGetFileType(Canvas) != FileTypeNone;
        user.Paint();
        tile.Draw(user);
        user.Paint();
        sheet.Place(user, x, y, width, TileHeight, tile.Name);
        gCVSDelAllElement(Canvas);
        vostel_canvas_set_language(Canvas, "zh");
        vostel_canvas_set_pixel_ratio(Canvas, 1.0);
        MakeRoom(user,
                 (width - TileWidth) / 2 - static_cast<int>(gCVSGetCanvasRegion(Canvas).left));    // undone
    });
    return shown && sheet.Save(path);
}

}

int main(int argc, char** argv)
{
    if (argc != 3) {
        std::fprintf(stderr, "usage: vostel-gallery PICTURE SHEET.png\n");
        return EXIT_FAILURE;
    }
    if (!WriteSheet(argv[1], argv[2])) {
        std::fprintf(stderr, "vostel-gallery: cannot show %s or cannot write %s\n", argv[1], argv[2]);
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
