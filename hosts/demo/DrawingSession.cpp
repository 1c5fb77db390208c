#include "DrawingSession.h"

#include <cmath>

namespace {

constexpr double Turn = 6.283185307179586;

// Points round a centre, in image px; clockwise on the screen.
std::vector<CPoint> Ring(const Host& user, double x, double y, double radius, int count)
{
    std::vector<CPoint> points;
    for (int i = 0; i < count; ++i)
        points.push_back(
            user.At(x + radius * std::cos(Turn * i / count), y + radius * std::sin(Turn * i / count)));
    return points;
}

// Image positions as fractions of the image, so that the session fits any picture.
class Places {
public:
    explicit Places(int canvas) : Width(gCVSGetCanvasWidth(canvas)), Height(gCVSGetCanvasHeight(canvas)) {}

    double X(double fraction) const { return fraction * Width; }
    double Y(double fraction) const { return fraction * Height; }
    double Size(double fraction) const { return fraction * (Width < Height ? Width : Height); }

private:
    int Width, Height;
};

void DrawRegions(int canvas, Host& user, const Places& at)
{
    gCVSAddPoly(canvas);
    for (const CPoint& node : Ring(user, at.X(0.12), at.Y(0.17), at.Size(0.085), 8))
        user.Click(MK_SHIFT, node);

    gCVSAddSpline(canvas);
    for (const CPoint& node : Ring(user, at.X(0.265), at.Y(0.18), at.Size(0.075), 6))
        user.Click(MK_SHIFT, node);

    gCVSAddMRectangle(canvas);
    user.Drag(MK_SHIFT, user.At(at.X(0.34), at.Y(0.08)), user.At(at.X(0.47), at.Y(0.26)));

    TessikDialogs dialogs;
    dialogs.ImaROIRectPara = [&](tagZEKImaROIRectPara& para) {
        para.RoiLeft = static_cast<int>(at.X(0.5));
        para.RoiRight = static_cast<int>(at.X(0.62));
        para.RoiTop = static_cast<int>(at.Y(0.08));
        para.RoiBottom = static_cast<int>(at.Y(0.25));
        return true;
    };
    gDlgSetDialogs(dialogs);
    gCVSAddCustomRectangle(canvas);
    gDlgSetDialogs({});

    gCVSAddFreeRegion(canvas);
    user.DragAlong(MK_SHIFT, Ring(user, at.X(0.12), at.Y(0.41), at.Size(0.08), 40));
}

void DrawMarks(int canvas, Host& user, const Places& at)
{
    gCVSAddFreeStroke(canvas);
    user.Drag(MK_SHIFT, user.At(at.X(0.22), at.Y(0.47)), user.At(at.X(0.33), at.Y(0.47)));
    user.Drag(MK_SHIFT, user.At(at.X(0.22), at.Y(0.5)), user.At(at.X(0.33), at.Y(0.5)));
    for (int i = 0; i < 3; ++i)
        user.Key('A');

    const CPoint caption = user.At(at.X(0.52), at.Y(0.29));
    gCVSAddTextOL(canvas, L"已检测 OK", caption.x, caption.y, FontRed22Framed, 1, 0, 0);
    gCVSAddTextOLV2(canvas, L"image px", static_cast<int>(at.X(0.36)), static_cast<int>(at.Y(0.29)),
                    FontCustom, OPAQUE, 0x008000, 20);
    std::vector<CString> lines = {L"样品 Greek coins", L"row 1 of 4"};
    gCVSAddTextML(canvas, lines, 1020, 440);
}

void DrawMeasures(int canvas, Host& user, const Places& at)
{
    gCVSSetMeasureScale(canvas, 0.1);
    gCVSAddMeasureLine(canvas, 0.0);
    user.Drag(MK_SHIFT, user.At(at.X(0.82), at.Y(0.15)), user.At(at.X(0.93), at.Y(0.13)));
    // A window paints what it adds before the next press; a caption is measured on the context of the last
    // paint.
    gCVSAddMeasureAngle3Pts(canvas);
    user.Paint();
    user.Click(MK_SHIFT, user.At(at.X(0.72), at.Y(0.62)));
    gCVSAddMeasureAngle4Pts(canvas);
    user.Paint();
    user.Click(MK_SHIFT, user.At(at.X(0.4), at.Y(0.62)));
    // An arm of the second angle is dragged by its handle.
    const CPoint arm(user.At(at.X(0.4), at.Y(0.62)).x + 200, user.At(at.X(0.4), at.Y(0.62)).y);
    user.Drag(0, arm, CPoint(arm.x, arm.y - 60));
}

void DrawReadOuts(int canvas, Host& user, const Places& at)
{
    gCVSAddLineProfile(canvas);
    user.Drag(MK_SHIFT, user.At(at.X(0.05), at.Y(0.65)), user.At(at.X(0.32), at.Y(0.65)));
    user.Paint();
    user.Drag(0, CPoint(60, 60), CPoint(60, 570));    // the plot is dragged to the lower left

    gCVSAddInfoWin(canvas);
    user.Move(user.At(at.X(0.72), at.Y(0.4)));
    user.Paint();
    user.Drag(0, CPoint(45, 45), CPoint(1025, 540));
    gCVSAddNeighborPV(canvas);
    user.Move(user.At(at.X(0.72), at.Y(0.4)));
    user.Paint();
}

void PrintLabels(int canvas)
{
    const int                 last = gCVSGenerateLabel(canvas, false);
    const ClassData2DIO<int>& labels = gCVSGetLabelIma(canvas);
    std::printf("  label image %d x %d, last label %d:\n", labels.Width, labels.Height, last);
    for (int label = 1; label <= last; ++label) {
        int pixels = 0;
        for (int i = 0; i < labels.Width * labels.Height; ++i)
            pixels += labels.Ptr1D[i] == label ? 1 : 0;
        ZEKRECT box;
        gCVSGetLabelIma(canvas);
        GetBlobOutRect(gCVSGetLabelIma(canvas), box, label);
        std::printf("    %d: %d pixels in columns %d..%d\n", label, pixels, box.left, box.right);
    }
}

// The six saves, with the names that a user would type.
void SaveAll(int canvas, Frames& frames)
{
    VostelHostServices services;
    CString            name;
    services.ChooseFiles = [&name](const VostelFileRequest&, std::vector<CString>& paths) {
        paths.assign(1, name);
        return true;
    };
    gSetHostServices(services);
    const auto save = [&](void (*operation)(int), const char* file) {
        const std::filesystem::path path = frames.Path(file);
        name = NameOf(path);
        operation(canvas);
        const bool written = std::filesystem::exists(path);
        std::printf("  %s%s\n", path.string().c_str(), written ? "" : " was not written");
        frames.Failed = frames.Failed || !written;
    };
    save(gCVSSaveClient, "save-client.png");
    save(gCVSSaveImaWithOverlap, "save-image-with-overlays.png");
    save(gCVSSaveNowShowIma, "save-image-as-shown.bmp");
    save(gCVSSave8bit, "save-8-bit.bmp");
    save(gCVSSaveRaw, "save-float.raw");
    save(gCVSSaveLabel, "save-labels.raw");
    gSetHostServices({});
}

}

void RunDrawingSession(int canvas, Host& user, Frames& frames)
{
    const Places at(canvas);
    DrawRegions(canvas, user, at);
    frames.Write("regions");
    DrawMarks(canvas, user, at);
    frames.Write("strokes-and-text");
    DrawMeasures(canvas, user, at);
    frames.Write("measures");
    DrawReadOuts(canvas, user, at);
    frames.Write("profile-and-read-outs");

    PrintLabels(canvas);
    // A press inside the polygon selects it; the contrast then changes inside it alone.
    user.Click(0, user.At(at.X(0.12), at.Y(0.17)));
    gCVSSetLutPara(canvas, 0.35f, 0.95f);
    frames.Write("contrast-inside-the-selected-region");
    user.Drag(0, user.At(at.X(0.12), at.Y(0.17)), user.At(at.X(0.16), at.Y(0.2)));
    user.Zoom(2, user.At(at.X(0.3), at.Y(0.3)));
    frames.Write("dragged-and-zoomed");
    SaveAll(canvas, frames);
}
