#pragma once

#include "canvas/CanvasObserver.h"
#include "canvas/ElementCounts.h"
#include "canvas/ElementList.h"
#include "canvas/KeptFrame.h"
#include "canvas/PixelSurface.h"
#include "canvas/view/CanvasView.h"
#include "canvas/view/PaintKit.h"
#include "instruments/VostelProgress.h"
#include "instruments/VostelSlider.h"
#include "overlay/VostelObj.h"

#include <cstdint>
#include <initializer_list>
#include <memory>
#include <string>
#include <vector>

namespace vostel {

// The part of a canvas that knows nothing of image data: the client surface that is copied to the screen, the
// canvas surface with the image's pixels, the view, two on-canvas controls and the list of overlay objects.
// It composes a frame on each paint and decides who gets a mouse or key event.
class VostelDC : public ElementCounts {
public:
    HDC             ClientDC = nullptr;    // borrowed: the host's context; null before the first SetClient
    PaintKit        Kit;                   // of the background
    HDC             OwnDC = nullptr;       // owned: in the place of a host's context; null until it is used
    HDC             ClientMemDC = nullptr;               // owned; null without a client surface
    unsigned int*   ClientPixels = nullptr;              // the client bitmap's bits, rows bottom-up
    unsigned int**  ClientRows = nullptr;                // owned; built on request
    HBITMAP         ClientBitmap = nullptr;              // owned
    HGDIOBJ         ClientOldBitmap = nullptr;           // what ClientBitmap displaced
    bool            ClientIsHandedOut = false;           // hosts may change how ClientMemDC draws
    bool            ClientPixelsAreHandedOut = false;    // hosts may write there, at any time
    KeptFrame       Kept;                                // of what ClientBitmap shows
    int             OverlayAlpha = 255;                  // 0..255, by wheel with S held; no drawing reads it
    PixelSurface    CanvasSurface;
    CanvasView      View;
    bool            ShowContrastCtrl = false;
    VostelSlider    ContrastCtrl;
    bool            ShowProgress = false;
    VostelProgress  ProgressCtrl;
    ElementList     Elements{View};       // owned; paint order, the highest index on top
    int             SelIndex = -1;        // -1 for none; may point past the list after DeleteAll
    CPoint          PointerAt;            // client px, of the last move
    bool            UseDirect = false;    // the host draws into the client surface itself
    std::string     KeyLetters = "ABCDEFGHIJKLMNOPQRSTUVWXYZ";    // the letter keys that act
    CanvasObserver* Observer = nullptr;                           // borrowed

    VostelDC() = default;
    VostelDC(const VostelDC&) = delete;
    VostelDC& operator=(const VostelDC&) = delete;

    // The length of a call on the canvas, which may stand within another one. Elements deleted in between are
    // destroyed when the outermost one returns, and then the observer is told.
    class CallScope {
    public:
        explicit CallScope(VostelDC& canvas) : Canvas(canvas) { Canvas.BeginCall(); }
        ~CallScope() { Canvas.EndCall(); }
        CallScope(const CallScope&) = delete;
        CallScope& operator=(const CallScope&) = delete;

    private:
        VostelDC& Canvas;
    };

    virtual void PaintAll();            // composes a frame and shows it
    void         ComposeFrame();        // into the client surface
    virtual void PrepareSurface() {}    // brings the pixels of the image up to date; each frame does
    virtual void PaintBackground(HDC dc);
    virtual void PaintBackgroundTo(HDC dc);    // hatched background and image outline
    virtual void AfterBackground();
    virtual void SetLutPara(float low, float high);

    // Places the canvas in a client area and rebuilds the client surface, blank.
    void SetClient(CRect rect, HDC dc);

    // Gives the canvas an area of its own, without a host's context, or another size of it: scale and the
    // image point in the middle stay. Fails by bad_alloc, with the area before in place.
    void UseOwnArea(int width, int height);
    bool HasOwnArea(int width, int height) const;

    // Sizes the canvas for a new image. Scale and centre stay. The surface comes black if cleared, else with
    // pixels that the caller is about to overwrite.
    void PrepareImage(int width, int height, bool clearObjects, bool cleared = true);

    void OnLButtonDown(unsigned int flags, CPoint p);
    void OnLButtonUp(unsigned int flags, CPoint p);
    void OnMouseMove(unsigned int flags, CPoint p);
    void OnMouseWheel(unsigned int flags, short delta, CPoint p);
    void OnKeyDown(unsigned int key, unsigned int repeat, unsigned int keyFlags);

    VostelObj* SelectedElement();    // null for none
    // Numbers an object by its kind and puts it on top of the list, which owns it from then on, as the
    // selected one.
    VostelObj& Append(std::unique_ptr<VostelObj>&& object);
    void       ReserveDeletion();    // a DeleteAll that follows finds memory enough
    void       DeleteAll();          // SelIndex stays as it was
    // Takes the selected object out of the list, closing the gap in the numbers. It is kept aside until
    // DeleteAll or the end of the canvas, since a host may still hold it.
    void DeleteSelected();
    // The same for any object: the index is that of one on the list.
    void DeleteAt(std::size_t index);

    // Adds to the numbers of the objects from first on, and to those within the kind.
    void MoveNumbers(std::size_t first, int kind, int step);

    void TellPictureChanged() const
    {
        if (Observer)
            Observer->PictureChanged();
    }

    // Gives the objects the view after it was changed by hand, with all that a paint would derive from it.
    void ViewMoved();
    // Puts an object under its index and takes one away, without a change of any number.
    void       Insert(std::size_t index, VostelObj* owned);
    VostelObj* Detach(std::size_t index);    // the caller owns it
    void       Erase(std::size_t index);     // within a CallScope, at whose end it is destroyed

    HDC            HandOutClient();    // ClientMemDC
    unsigned int*  HandOutClientPixels();
    unsigned int** CreateClientRowTable();
    void           FreeClientRowTable();

protected:
    ~VostelDC();

    // Places an image as PrepareImage does, on a surface that was made beforehand; null: on the present one.
    // The client surface stays.
    void ShowSurface(PixelSurface* made);

private:
    // Objects out of the list. A handler may show a message, and the host may delete objects while it is up:
    // what is being routed to is destroyed only when the last event on the way has returned.
    std::vector<VostelObj*> Removed;
    int                     CallsUnderWay = 0;
    bool                    DestroyPending = false;

    using GestureHandler = void (VostelObj::*)(unsigned int, CPoint);

    void BeginCall();
    void EndCall();
    void RouteGesture(GestureHandler handler, unsigned int flags, CPoint p,
                      std::initializer_list<OverlayKind> always);
    void DeleteUnlocked();
    void DestroyRemoved();
    void DropClientSurface();
    void ComposeBackground();
    void ComposeWholly();
    void PaintObject(VostelObj& object);    // unless it is hidden
    // Whether nothing but objects that do not rest can change unseen, and enough of the others rest.
    bool       CanKeepFrame() const;
    FrameStamp StampOfFrame() const;
    void       TakeKeptFrame();
    // False if there is no memory to find out what is to be drawn.
    bool ComposeFromKept();
    // Where objects that do not rest will draw, as the kept frame wants it.
    std::vector<CRect> AreasInMotion();
    // Hands the view to whatever stands on it, in a client area.
    void PlaceView(CRect clientRect);
    // With refreshAgain for a new client area.
    void HandViewToElements(bool refreshAgain);
};

}
