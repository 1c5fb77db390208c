#include "commands/CanvasState.h"
#include "commands/Commands.h"
#include "commands/FilePaths.h"
#include "common/CanvasFacts.h"

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <limits>
#include <string>
#include <vector>

namespace vostel::viewer {

using namespace hosts;

namespace {

using Export = void (*)(int canvas);

// The commands that one export carries out.
Export PlainExport(Command id)
{
    switch (id) {
    case Command::SaveClient:
        return gCVSSaveClient;
    case Command::SaveImageWithOverlays:
        return gCVSSaveImaWithOverlap;
    case Command::SaveImageAsShown:
        return gCVSSaveNowShowIma;
    case Command::Save8Bit:
        return gCVSSave8bit;
    case Command::SaveFloat:
        return gCVSSaveRaw;
    case Command::SaveLabels:
        return gCVSSaveLabel;
    case Command::DrawRectangle:
        return gCVSAddMRectangle;
    case Command::DrawRectangleByNumbers:
        return gCVSAddCustomRectangle;
    case Command::DrawPolygon:
        return gCVSAddPoly;
    case Command::DrawSpline:
        return gCVSAddSpline;
    case Command::DrawFreeRegion:
        return gCVSAddFreeRegion;
    case Command::DrawFreeStroke:
        return gCVSAddFreeStroke;
    case Command::DrawTextBox:
        return gCVSAddTextOL;
    case Command::DeleteSelected:
        return gCVSDelSelElement;
    case Command::DeleteAll:
        return gCVSDelAllElement;
    case Command::LineProfile:
        return gCVSAddLineProfile;
    case Command::InfoWindow:
        return gCVSAddInfoWin;
    case Command::NeighbourValues:
        return gCVSAddNeighborPV;
    case Command::MeasureLength:
        return [](int canvas) { gCVSAddMeasureLine(canvas, 0.0); };
    case Command::MeasureAngle3:
        return gCVSAddMeasureAngle3Pts;
    case Command::MeasureAngle4:
        return gCVSAddMeasureAngle4Pts;
    case Command::MeasureScale:
        return gCVSSetMeasureScale;
    default:
        return nullptr;
    }
}

// A wheel step without Control moves nothing and gives every object the view, which a Shift press on a new
// object needs and which otherwise comes with the first mouse move.
void GiveNewObjectsTheView(int canvas)
{
    gCVSOnMouseWheel(canvas, 0, 0, CPoint(0, 0));
}

void SetMouse(int canvas, Command id, DisplayMode mode)
{
    gCVSSetCanvasMoveMode(canvas, mode);
    StateOf(canvas)->Mouse = id;
}

void ToggleFastDisplay(int canvas)
{
    bool& fast = StateOf(canvas)->Fast;
    fast = !fast;
    gCVSSetCanvasFastDisplayMode(canvas, fast);
}

void ToggleContrastSlider(int canvas)
{
    // Client px: the slider's place above the lower left corner, and narrower in a narrow canvas.
    constexpr int Margin = 20, Width = 400, MinWidth = 120, Height = 30;
    bool&         shown = StateOf(canvas)->Contrast;
    shown = !shown;
    gCVSShowContrastCtrl(canvas, shown);
    const int room = gCVSGetClientWidth(canvas) - 2 * Margin;
    gCVSSetContrastCtrlRectPos(canvas, Margin, Margin, std::clamp(room, MinWidth, Width), Height);
}

// One wheel step scales by 1.2 and, about the cursor, moves the image's centre on the line through both. A
// step about the right point far away so brings the centre to the middle of the window.
CPoint PointThatCentres(int canvas)
{
    constexpr double Factor = 1.0 / 1.2;    // of a step out
    const CRect      region = gCVSGetCanvasRegion(canvas);
    const double     x = (region.left + region.right) / 2.0, y = (region.top + region.bottom) / 2.0;
    const double     wantedX = gCVSGetClientWidth(canvas) / 2.0, wantedY = gCVSGetClientHeight(canvas) / 2.0;
    return CPoint(static_cast<int>((wantedX - x * Factor) / (1.0 - Factor)),
                  static_cast<int>((wantedY - y * Factor) / (1.0 - Factor)));
}

bool IsInside(int canvas, double times)
{
    const CRect region = gCVSGetCanvasRegion(canvas);
    return (region.right - region.left) * times <= gCVSGetClientWidth(canvas) &&
           (region.bottom - region.top) * times <= gCVSGetClientHeight(canvas);
}

// The library has no call for the scale: fitting is a row of wheel steps. It goes no further in than to
// maxScale.
void FitWholeImage(int canvas, double maxScale)
{
    constexpr int MaxSteps = 100;
    if (gCVSGetClientWidth(canvas) < 1 || gCVSGetClientHeight(canvas) < 1)
        return;
    gCVSSetCanvasMoveMode(canvas, DisplayZoomCursor);
    gCVSOnMouseWheel(canvas, MK_CONTROL, -1, PointThatCentres(canvas));
    gCVSSetCanvasMoveMode(canvas, DisplayZoomCentre);
    for (int step = 0; step < MaxSteps && !IsInside(canvas, 1.0); ++step)
        gCVSOnMouseWheel(canvas, MK_CONTROL, -1, CPoint(0, 0));
    for (int step = 0; step < MaxSteps && IsInside(canvas, 1.2) && ScaleOf(canvas) * 1.19 < maxScale; ++step)
        gCVSOnMouseWheel(canvas, MK_CONTROL, 1, CPoint(0, 0));
    const Command mouse = StateOf(canvas)->Mouse;
    gCVSSetCanvasMoveMode(canvas, mouse == Command::MouseFixed        ? DisplayFixed
                                  : mouse == Command::MouseZoomCentre ? DisplayZoomCentre
                                                                      : DisplayZoomCursor);
}

}

CanvasState* StateOf(int canvas)
{
    static CanvasState states[CanvasCount];
    return canvas >= 0 && canvas < CanvasCount ? &states[canvas] : nullptr;
}

bool IsAvailable(Command id, int canvas)
{
    const CommandEntry* const entry = FindCommand(id);
    const CanvasState* const  state = StateOf(canvas);
    if (!entry || !state)
        return false;
    if (id == Command::UndoRoutine)
        return static_cast<bool>(state->Undo);
    const FileType type = gCVSGetFileType(canvas);
    switch (entry->Need) {
    case Needs::Nothing:
        return true;
    case Needs::Image:
        return type != FileTypeNone;
    case Needs::FloatImage:
        return type == FileTypeRaw || type == FileTypeRawPlain;
    }
    return false;
}

bool IsOn(Command id, int canvas)
{
    const CanvasState* const state = StateOf(canvas);
    if (!state)
        return false;
    switch (id) {
    case Command::MouseFixed:
    case Command::MouseZoomCentre:
    case Command::MouseZoomCursor:
        return state->Mouse == id;
    case Command::FastDisplay:
        return state->Fast;
    case Command::ContrastSlider:
        return state->Contrast;
    default:
        return false;
    }
}

bool RunCommand(Command id, int canvas)
{
    CanvasState* const state = StateOf(canvas);
    if (!state)
        return false;
    if (const Export carryOut = PlainExport(id)) {
        if (!IsAvailable(id, canvas))
            return true;
        carryOut(canvas);
        GiveNewObjectsTheView(canvas);
        return true;
    }
    switch (id) {
    case Command::MouseFixed:
        SetMouse(canvas, id, DisplayFixed);
        return true;
    case Command::MouseZoomCentre:
        SetMouse(canvas, id, DisplayZoomCentre);
        return true;
    case Command::MouseZoomCursor:
        SetMouse(canvas, id, DisplayZoomCursor);
        return true;
    case Command::FastDisplay:
        ToggleFastDisplay(canvas);
        return true;
    case Command::ContrastSlider:
        ToggleContrastSlider(canvas);
        return true;
    case Command::FitImage:
        if (IsAvailable(id, canvas))
            FitWholeImage(canvas, std::numeric_limits<double>::infinity());
        return true;
    case Command::UndoRoutine:
        ShowImageBefore(canvas);
        return true;
    default:
        return false;
    }
}

const char* OpenFile(int canvas, const CString& path)
{
    constexpr const char* NoPicture = Words("This file is not a picture that can be read.");
    CanvasState* const    state = StateOf(canvas);
    if (!state)
        return Words("There is no such canvas.");
    std::error_code             failed;
    const std::filesystem::path file = PathOf(path);
    if (!std::filesystem::exists(file, failed))
        return Words("The file does not exist.");
    if (!std::filesystem::is_regular_file(file, failed))
        return Words("This is a folder, not a file.");
    const bool isRaw = IsRawFile(path);
    if (!isRaw && gCVSGetFileType(canvas) != FileTypeNone && !IsPictureFile(path))
        return NoPicture;
    CString wanted(path);
    gCVSReadFile(canvas, wanted, true);
    state->Undo.reset();
    if (gCVSGetFileType(canvas) == FileTypeNone)
        return isRaw ? nullptr : NoPicture;
    if (!IsInside(canvas, 1.0) || ScaleOf(canvas) < 0.99)
        FitWholeImage(canvas, 1.0);
    return nullptr;
}

void AddTextLines(int canvas, const CString& text)
{
    std::vector<CString> lines;
    std::wstring         line;
    const std::wstring   all = text.GetString();
    for (const wchar_t character : all + L'\n') {
        if (character == L'\n') {
            lines.push_back(line.c_str());
            line.clear();
        } else if (character != L'\r') {
            line += character;
        }
    }
    while (!lines.empty() && lines.back().IsEmpty())
        lines.pop_back();
    if (lines.empty())
        return;
    // Below the place where the read-outs appear.
    gCVSAddTextML(canvas, lines, 40, std::min(200, gCVSGetClientHeight(canvas) / 2));
    GiveNewObjectsTheView(canvas);
}

float ValueUnder(int canvas, CPoint client)
{
    double x = 0.0, y = 0.0;
    gCVSGetOriPt(canvas, client, x, y);
    return GrayOr(gCVSGetImaPixelValue(canvas, client), canvas, x, y);
}

float GrayOr(float value, int canvas, double x, double y)
{
    const unsigned int* const pixels = gCVSGetCanvasPixelPtr(canvas);
    const int                 width = gCVSGetCanvasWidth(canvas), height = gCVSGetCanvasHeight(canvas);
    if (gCVSGetFileType(canvas) == FileTypeByte && pixels && x >= 0.0 && y >= 0.0 && x < width &&
        y < height) {
        const std::size_t  row = static_cast<std::size_t>(height - 1 - static_cast<int>(y));
        const unsigned int word =
            pixels[row * static_cast<std::size_t>(width) + static_cast<std::size_t>(x)] & 0xFFFFFF;
        if (word == (word & 255) * 0x010101)
            return static_cast<float>(word & 255);
    }
    return value;
}

std::wstring OpenFilter(Language language)
{
    return TextIn(language, Words("Pictures and raw data")) +
           L"|*.png;*.bmp;*.jpg;*.jpeg;*.tif;*.tiff;*.gif;*.raw;*.hraw;*.his|" +
           TextIn(language, Words("All files")) + L"|*.*||";
}

}
