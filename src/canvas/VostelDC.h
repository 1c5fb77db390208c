#pragma once

#include "canvas/PixelSurface.h"
#include "canvas/view/CanvasView.h"
#include "canvas/view/PaintKit.h"
#include "instruments/VostelProgress.h"
#include "instruments/VostelSlider.h"
#include "overlay/VostelObj.h"

#include <cstdint>
#include <vector>

namespace vostel {

// The part of a canvas that knows nothing of image data: the client surface that is copied to the screen, the
// canvas surface with the image's pixels, the view, two on-canvas controls and the list of overlay objects.
// It composes a frame on each paint and decides who gets a mouse or key event.
class VostelDC {
public:
    // Objects made of each kind: the next TypeSerial. Region shapes take SerialNo from RegionSerial, all
    // others from ElementSerial, which both bump.
    int RectCount = 0;
    int CustomRectCount = 0;
    int PolygonCount = 0;
    int SplineCount = 0;
    int OneStrokeCount = 0;
    int RegionSerial = 0;
    int MStrokeCount = 0;
    int TextCount = 0;
    int MeasureLineCount = 0;
    int Angle3Count = 0;
    int Angle4Count = 0;
    int SpareCount = 0;
    int ElementSerial = 0;

    HDC            ClientDC = nullptr;        // borrowed: the host's context; null before the first SetClient
    PaintKit       Kit;                       // of the background
    HDC            ClientMemDC = nullptr;     // owned; null without a client surface
    unsigned int*  ClientPixels = nullptr;    // the client bitmap's bits, rows bottom-up
    unsigned int** ClientRows = nullptr;      // owned; built on request
    HBITMAP        ClientBitmap = nullptr;    // owned
    HGDIOBJ        ClientOldBitmap = nullptr;    // what ClientBitmap displaced
    int            OverlayAlpha = 255;           // 0..255, by wheel with S held; no drawing reads it
    PixelSurface   CanvasSurface;
    CanvasView     View;
    bool           ShowContrastCtrl = false;
    VostelSlider   ContrastCtrl;
    bool           ShowProgress = false;
    VostelProgress ProgressCtrl;
    std::vector<VostelObj*> Elements;             // owned; paint order, the highest index on top
    int                     SelIndex = -1;        // -1 for none; may point past the list after DeleteAll
    bool                    UseDirect = false;    // the host draws into the client surface itself

    VostelDC() = default;
    VostelDC(const VostelDC&) = delete;
    VostelDC& operator=(const VostelDC&) = delete;

    virtual void PaintAll();    // composes a frame and shows it
    virtual void PaintBackground(HDC dc);
    virtual void PaintBackgroundTo(HDC dc);    // hatched background and image outline
    virtual void AfterBackground();
    virtual void SetLutPara(float low, float high);

    // Places the canvas in a client area and rebuilds the client surface, blank.
    void SetClient(CRect rect, HDC dc);

    // Sizes the canvas for a new image. Scale and centre stay. The surface comes black if cleared, else with
    // pixels that the caller is about to overwrite.
    void PrepareImage(int width, int height, bool clearObjects, bool cleared = true);

    void OnLButtonDown(unsigned int flags, CPoint p);
    void OnLButtonUp(unsigned int flags, CPoint p);
    void OnMouseMove(unsigned int flags, CPoint p);
    void OnMouseWheel(unsigned int flags, short delta, CPoint p);
    void OnKeyDown(unsigned int key, unsigned int repeat, unsigned int keyFlags);

    void DeleteAll();    // SelIndex stays as it was
    // Takes the selected object out of the list, closing the gap in the numbers. It is kept aside until
    // DeleteAll or the end of the canvas, since a host may still hold it.
    void DeleteSelected();

    unsigned int** CreateClientRowTable();
    void           FreeClientRowTable();

protected:
    ~VostelDC();

    // Places an image as PrepareImage does, on a surface that was made beforehand; null: on the present one.
    // The client surface stays.
    void ShowSurface(PixelSurface* made);

    VostelObj* SelectedElement();    // null for none

private:
    // Objects out of the list. A handler may show a message, and the host may delete objects while it is up:
    // what is being routed to is destroyed only when the last event on the way has returned.
    std::vector<VostelObj*> Removed;
    int                     EventsUnderWay = 0;
    bool                    DestroyPending = false;

    class EventScope;

    void DestroyRemoved();
    void DropClientSurface();
    // Hands the view to whatever stands on it, in a client area.
    void PlaceView(CRect clientRect);
    // SetCanvasView alone refreshes the objects' geometry. With refreshAgain that is done twice, for a new
    // client area: an object may have placed itself after its own refresh, as controls do.
    void HandViewToElements(bool refreshAgain);
};

}
