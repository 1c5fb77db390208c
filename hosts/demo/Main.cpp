// Opens a picture or a headerless raw file on a canvas and does what a user does with it: looks, zooms, pans,
// moves the contrast window, reads values. Every step is written as a PNG frame.

#include "DrawingSession.h"

#include <CLI/CLI.hpp>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

namespace {

constexpr int Canvas = 0;
constexpr int ClientWidth = 1200;
constexpr int ClientHeight = 720;

struct Layout {
    int      Width = 0;
    int      Height = 0;
    int      DataType = 0;
    unsigned HeaderBytes = 0;
};

// Fills in the load dialog from the command line; without a size, from the file's length as a square image.
void AnswerLoadDialog(Layout layout, const std::string& path)
{
    TessikDialogs dialogs;
    dialogs.ImaLoadPara = [layout, path](tagZEKImaLoadPara& para) {
        para.Width = layout.Width;
        para.Height = layout.Height;
        para.DataType = layout.DataType;
        para.HeaderBytes = layout.HeaderBytes;
        if (para.Width <= 0 || para.Height <= 0) {
            const unsigned long bytes = cFileSize(path.c_str());
            const unsigned long element = para.DataType == 1 ? 4 : para.DataType == 3 ? 1 : 2;
            const double        pixels =
                bytes > para.HeaderBytes ? double(bytes - para.HeaderBytes) / double(element) : 0.0;
            para.Width = para.Height = static_cast<int>(std::floor(std::sqrt(pixels)));
        }
        return para.Width > 0;
    };
    gDlgSetDialogs(dialogs);
}

// The brightness of a byte image as float data, so that it can be looked at through the contrast window.
ClassData2DIO<float> BrightnessOf(int canvas)
{
    ClassData2DIO<float> brightness;
    const int            width = gCVSGetCanvasWidth(canvas);
    const int            height = gCVSGetCanvasHeight(canvas);
    brightness.Allocate(width, height);
    const unsigned int* pixels = gCVSGetCanvasPixelPtr(canvas);
    for (int y = 0; y < height; ++y) {
        const unsigned int* row =
            pixels + static_cast<std::ptrdiff_t>(height - 1 - y) * width;    // bottom-up
        for (int x = 0; x < width; ++x) {
            int gray = 0;
            ColorToGrayPixel(row[x] >> 16 & 0xFF, row[x] >> 8 & 0xFF, row[x] & 0xFF, gray);
            brightness.Ptr2D[y][x] = static_cast<float>(gray);
        }
    }
    return brightness;
}

void PrintValueUnder(CPoint at)
{
    double x = 0.0, y = 0.0;
    gCVSGetOriPt(Canvas, at, x, y);
    std::printf("  client %d,%d is image %.2f,%.2f with value %.3f\n", static_cast<int>(at.x),
                static_cast<int>(at.y), x, y, static_cast<double>(gCVSGetImaPixelValue(Canvas, at)));
}

void FitByGestures(Host& user)
{
    const CPoint middle(ClientWidth / 2, ClientHeight / 2);
    const auto   shown = [] { return gCVSGetCanvasRegion(Canvas); };
    while (shown().Width() * 1.2 <= ClientWidth && shown().Height() * 1.2 <= ClientHeight)
        user.Zoom(1, middle);
    while (shown().Width() > ClientWidth || shown().Height() > ClientHeight)
        user.Zoom(-1, middle);
    const CPoint centre = shown().CenterPoint();
    user.Drag(MK_CONTROL, centre, middle);
}

bool Run(const std::string& picture, const std::string& folder, const Layout& layout)
{
    AnswerLoadDialog(layout, picture);
    Host   user(Canvas, ClientWidth, ClientHeight);
    Frames frames(user, folder);

    CString path = NameOf(picture);
    gCVSReadFile(Canvas, path, true);
    if (gCVSGetFileType(Canvas) == FileTypeNone) {
        std::fprintf(stderr, "vostel-demo: no image in %s\n", picture.c_str());
        return false;
    }
    std::printf("%s: %d x %d\n", picture.c_str(), gCVSGetCanvasWidth(Canvas), gCVSGetCanvasHeight(Canvas));
    frames.Write("opened");

    const CPoint cursor(ClientWidth * 2 / 5, ClientHeight * 2 / 5);
    user.Zoom(6, cursor);
    frames.Write("zoomed-in-at-the-cursor");
    PrintValueUnder(cursor);
    user.Drag(MK_CONTROL, cursor, CPoint(cursor.x + 160, cursor.y + 90));
    frames.Write("panned");

    if (gCVSGetFileType(Canvas) == FileTypeByte) {
        ClassData2DIO<float> brightness = BrightnessOf(Canvas);
        gCVSShowRawFloat(Canvas, brightness, true, true);
    }
    gCVSShowContrastCtrl(Canvas, true);
    gCVSSetContrastCtrlRectPos(Canvas, 20, 20, 400, 30);
    gCVSShowProgress(Canvas, true);
    gCVSSetProgressRectPos(Canvas, 440, 20, 300, 30);
    gCVSSetRange(Canvas, 0, 100);
    gCVSSetPos(Canvas, 65);
    frames.Write("contrast-slider-and-progress");

    // The track runs from 82 to 418 px; its thumbs are 10 px wide and start at its ends.
    const int thumbY = ClientHeight - 20 - 1 - 15;
    user.Drag(0, CPoint(87, thumbY), CPoint(87 + 60, thumbY));
    user.Drag(0, CPoint(413, thumbY), CPoint(413 - 140, thumbY));
    frames.Write("contrast-window-narrowed");
    PrintValueUnder(cursor);

    gCVSSetCanvasFastDisplayMode(Canvas, false);
    user.Zoom(-9, CPoint(ClientWidth / 2, ClientHeight / 2));
    frames.Write("zoomed-out-in-quality-display");

    // Back to about the size of the client area, in the middle of it, without the controls.
    gCVSShowContrastCtrl(Canvas, false);
    gCVSShowProgress(Canvas, false);
    gCVSSetLutPara(Canvas, 0.0f, 1.0f);
    FitByGestures(user);
    RunDrawingSession(Canvas, user, frames);
    return !frames.Failed;
}

}

int main(int argc, char** argv)
{
    std::string picture, folder;
    Layout      layout;
    CLI::App    app("Shows an image on a canvas and writes what a user sees as PNG frames.", "vostel-demo");
    app.add_option("picture", picture, "picture or raw file")->required()->check(CLI::ExistingFile);
    app.add_option("folder", folder, "where the frames go")->required();
    app.add_option("--width", layout.Width, "raw files: width in pixels (default: a square image)");
    app.add_option("--height", layout.Height, "raw files: height in pixels");
    app.add_option("--type", layout.DataType,
                   "raw files: 0 unsigned 16-bit, 1 float, 2 signed 16-bit, 3 unsigned 8-bit");
    app.add_option("--skip", layout.HeaderBytes, "raw files: bytes before the data");
    CLI11_PARSE(app, argc, argv);

    std::error_code failure;
    std::filesystem::create_directories(folder, failure);
    if (failure) {
        std::fprintf(stderr, "vostel-demo: cannot make %s\n", folder.c_str());
        return EXIT_FAILURE;
    }
    return Run(picture, folder, layout) ? EXIT_SUCCESS : EXIT_FAILURE;
}
