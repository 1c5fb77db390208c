#pragma once

// A host for tests: a window of its own in memory, the canvas that paints into it, and everything that the
// library asks a person, a keyboard or a window for.
//
//     HostCanvas host(0, 60, 40);
//     host.ShowGray(8, 4, [](int x, int y) { return x + 10 * y; });
//     host.Paint();
//     CHECK(host.Pixel(26, 18) == 0x000000);
//
// The library's canvases live as long as the process. A HostCanvas takes canvas `number` over as if it were
// new: no objects, no image, controls hidden and in their first place, zoom and pan about the cursor, the
// image's centre in the middle of the window. Two things outlive it, since no call brings them back:
//  - Scale. A test that zooms uses at most nine steps out and back in, or 15 in and back out (the products
//    then come back to exactly 1), or calls ZoomBack, or takes canvas 3 (long traces) or 4 (hostile input;
//    its scale may end anywhere). A test that relies on scale 1 stays on canvases 0 to 2 and says
//    REQUIRE(host.IsScaleOne()).
//  - The slider's on and off by Tab: a test presses it an even number of times.

#include "common/MemoryBitmap.h"
#include "support/Frame.h"

#include <VostelObj.h>

#include <doctest/doctest.h>

#include <algorithm>
#include <climits>
#include <functional>
#include <set>
#include <string>
#include <utility>
#include <vector>

// What the library said to and asked of the desktop, for all hosts of one test. Of several the last one made
// is used; when it ends, the one before.
struct TestDesktop {
    std::vector<CString>  Messages;
    std::vector<HWND>     Invalidated;
    std::set<int>         KeysDown;
    CPoint                WindowOrigin;    // screen px
    std::vector<HWND>     Asked;           // windows of ScreenToWindow
    std::function<void()> OnMessage;       // while the box is up
    std::function<bool(const VostelFileRequest&, std::vector<CString>&)> ChooseFiles;
    std::function<bool(const CString&, CString&)>                        ChooseFolder;

    TestDesktop() : Before(std::exchange(Used, this)) { Install(); }
    ~TestDesktop()
    {
        Used = Before;
        Used ? Used->Install() : gSetHostServices(VostelHostServices());
    }
    TestDesktop(const TestDesktop&) = delete;
    TestDesktop& operator=(const TestDesktop&) = delete;

private:
    void Install()
    {
        VostelHostServices services;
        services.ShowMessage = [this](const CString& text) {
            Messages.push_back(text);
            if (OnMessage)
                OnMessage();
        };
        services.InvalidateWindow = [this](HWND window) { Invalidated.push_back(window); };
        services.IsKeyDown = [this](int key) { return KeysDown.count(key) != 0; };
        services.ScreenToWindow = [this](HWND window, POINT screen) {
            Asked.push_back(window);
            POINT point = screen;
            point.x -= WindowOrigin.x;
            point.y -= WindowOrigin.y;
            return point;
        };
        services.ChooseFiles = [this](const VostelFileRequest& request, std::vector<CString>& paths) {
            return ChooseFiles && ChooseFiles(request, paths);
        };
        services.ChooseFolder = [this](const CString& title, CString& folder) {
            return ChooseFolder && ChooseFolder(title, folder);
        };
        gSetHostServices(services);
    }

    inline static TestDesktop* Used = nullptr;
    TestDesktop*               Before;
};

// Dialogs of a test, the library's own afterwards.
struct TestDialogs {
    explicit TestDialogs(const TessikDialogs& dialogs) { gDlgSetDialogs(dialogs); }
    ~TestDialogs() { gDlgSetDialogs(TessikDialogs()); }
    TestDialogs(const TestDialogs&) = delete;
    TestDialogs& operator=(const TestDialogs&) = delete;
};

// Dialogs that the person cancels. The library's own wait for a person where there are windows.
inline TessikDialogs CancelledDialogs()
{
    TessikDialogs dialogs;
    dialogs.ImaLoadPara = [](tagZEKImaLoadPara&) { return false; };
    dialogs.ImaROIRectPara = [](tagZEKImaROIRectPara&) { return false; };
    dialogs.ImaGeneralPara = [](tagZEKImaGeneralPara&, CString&, CString&) { return false; };
    return dialogs;
}

template <typename T, typename F>
void FillPlane(ClassData2DIO<T>& plane, int width, int height, F&& valueAt)
{
    plane.Allocate(width, height);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            plane.Ptr2D[y][x] = static_cast<T>(valueAt(x, y));
}

// What a window's paint context would be. A window without extent still has a pixel.
class MemoryWindow : public MemoryBitmap {
public:
    MemoryWindow(int width, int height) : MemoryBitmap(std::max(width, 1), std::max(height, 1)) {}

    void Resize(int width, int height) { MemoryBitmap::Resize(std::max(width, 1), std::max(height, 1)); }

    Frame Capture() const
    {
        GdiFlush();
        return FrameOfSurface(Pixels(), Width, Height);
    }
};

// Grays that hardly two neighbours share.
inline int Noise(int x, int y)
{
    return (x * 37 + y * 91 + x * y * 13) & 0xFF;
}

class HostCanvas {
public:
    const int    Number;
    TestDesktop  Desktop;
    MemoryWindow Window;    // what the canvas paints into

    HostCanvas(int number, int width, int height) : Number(number), Window(width, height)
    {
        SetClient(width, height);
        Reset();
    }
    ~HostCanvas()
    {
        Reset();
        CRect client(0, 0, Window.Width, Window.Height);
        gCVSSetClient(Number, client, nullptr);    // the window's context is about to end
    }

    void SetClient(int width, int height)
    {
        CRect client(0, 0, width, height);
        gCVSSetClient(Number, client, Window.Dc);
    }
    // A window of another size, as after WM_SIZE.
    void Resize(int width, int height)
    {
        // The canvas must not hold a deleted context.
        CRect client(0, 0, width, height);
        gCVSSetClient(Number, client, nullptr);
        Window.Resize(width, height);
        gCVSSetClient(Number, client, Window.Dc);
    }

    void Paint()
    {
        gCVSOnDraw(Number, nullptr);
        GdiFlush();
    }
    Frame PaintAndCapture()
    {
        Paint();
        return Window.Capture();
    }
    // 0x00RRGGBB of the last frame; y counts from the top.
    unsigned int Pixel(int x, int y) const { return Window.PixelAt(x, y) & 0xFFFFFF; }

    // The canvas surface, top row first.
    Frame Surface() const
    {
        GdiFlush();
        return FrameOfSurface(gCVSGetCanvasPixelPtr(Number), gCVSGetCanvasWidth(Number),
                              gCVSGetCanvasHeight(Number));
    }
    Frame ClientSurface() const
    {
        GdiFlush();
        return FrameOfSurface(gCVSGetClientPixelPtr(Number), gCVSGetClientWidth(Number),
                              gCVSGetClientHeight(Number));
    }

    void Press(int x, int y, unsigned int flags = MK_LBUTTON)
    {
        gCVSOnLButtonDown(Number, flags, CPoint(x, y));
    }
    void Release(int x, int y, unsigned int flags = 0) { gCVSOnLButtonUp(Number, flags, CPoint(x, y)); }
    void Move(int x, int y, unsigned int flags = 0) { gCVSOnMouseMove(Number, flags, CPoint(x, y)); }
    void Wheel(int x, int y, int delta, unsigned int flags = MK_CONTROL)
    {
        gCVSOnMouseWheel(Number, flags, static_cast<short>(delta), CPoint(x, y));
    }
    void Key(unsigned int key) { gCVSOnKeyDown(Number, key, 1, 0); }
    void Drag(CPoint from, CPoint to, unsigned int flags = MK_LBUTTON)
    {
        Press(from.x, from.y, flags);
        Move(to.x, to.y, flags);
        Release(to.x, to.y, flags & ~MK_LBUTTON);
    }
    // A Control drag: pans by the distance.
    void Pan(int dx, int dy) { Drag(CPoint(0, 0), CPoint(dx, dy), MK_LBUTTON | MK_CONTROL); }

    template <typename F>
    void ShowGray(int width, int height, F&& valueAt, bool clearObjects = true)
    {
        ClassData2DIO<unsigned char> plane;
        FillPlane(plane, width, height, valueAt);
        gCVSShowUCGray(Number, plane, clearObjects);
    }
    void ShowFlatGray(int width, int height, int value)
    {
        ShowGray(width, height, [value](int, int) { return value; });
    }
    template <typename F>
    void ShowFloat(int width, int height, F&& valueAt, bool keepOriginal = true, bool clearObjects = true)
    {
        ClassData2DIO<float> plane;
        FillPlane(plane, width, height, valueAt);
        gCVSShowRawFloat(Number, plane, keepOriginal, clearObjects);
    }

    CRect Region() const { return gCVSGetCanvasRegion(Number); }

    bool IsScaleOne() const
    {
        double x = 0.0;
        double y = 0.0;
        gCVSGetOriPt(Number, CPoint(Region().left + 1, 0), x, y);    // 1 / Scale
        return x == 1.0;
    }
    // Zooms until the scale is exactly 1 again; false if rounding passed it by. Leaves a gray image.
    bool ZoomBack()
    {
        gCVSSetCanvasMoveMode(Number, DisplayZoomCentre);
        ShowFlatGray(200, 200, 0);
        for (int step = 0; step < 4000 && !IsScaleOne(); ++step) {
            double x = 0.0;
            double y = 0.0;
            gCVSGetOriPt(Number, CPoint(Region().left + 1, 0), x, y);
            Wheel(0, 0, x < 1.0 ? -1 : 1);
            Paint();
        }
        gCVSSetCanvasMoveMode(Number, DisplayZoomCursor);
        return IsScaleOne();
    }

    // As if the canvas had just been made, but for what the top of this file names.
    void Reset()
    {
        gCVSSetCanvasMoveMode(Number, DisplayZoomCursor);
        gCVSSetCanvasFastDisplayMode(Number, true);
        gCVSSetUseClientMemDCPixelDirect(Number, false);
        gCVSDelAllElement(Number);
        RecallSlider();
        gCVSShowContrastCtrl(Number, false);
        gCVSShowProgress(Number, false);
        gCVSSetContrastCtrlRectPos(Number, 0, 0, 0, 0);
        gCVSSetProgressRectPos(Number, 0, 0, 0, 0);
        gCVSSetRange(Number, 100, 200);
        gCVSSetPos(Number, 150);
        gCVSReleaseCanvasPixelPtr2D(Number);
        gCVSReleaseClientPixelPtr2D(Number);
        unsigned char nothing = 0;
        gCVSShowUCGray(Number, &nothing, 0, 0, true);    // drops float data too
        gCVSSetFileType(Number, FileTypeNone);
        gCVSGetLabelIma(Number).Release();
        Release(0, 0);
        // Without an image the region is the centre.
        const CRect centre = Region();
        if (centre.left != INT_MIN)    // else the scale is beyond all numbers, and stays there
            Pan(gCVSGetClientWidth(Number) / 2 - centre.left, gCVSGetClientHeight(Number) / 2 - centre.top);
        Desktop.Messages.clear();
        Desktop.Invalidated.clear();
    }

    // Both thumbs of the slider at their ends.
    void RecallSlider()
    {
        gCVSShowContrastCtrl(Number, true);
        gCVSSetContrastCtrlRectPos(Number, 0, 0, 300, 30);
        const int y = gCVSGetClientHeight(Number) - 1 - 15;
        // Wherever the thumbs are: the dark one to the left end, the light one beside it, at pixels 62
        // and 72.
        for (int x = 60; x < 300; x += 5)
            Drag(CPoint(x, y), CPoint(x - 100000, y));
        Drag(CPoint(77, y), CPoint(100077, y));
        // The last press lies outside, so that none counts as a hit.
        Press(-1, -1);
        Release(-1, -1);
        gCVSShowContrastCtrl(Number, false);
    }
};
