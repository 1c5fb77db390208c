#pragma once

// Five canvases, numbered 0..4: window area, view, events, surfaces and on-canvas controls. Points are
// client coordinates of the host's window unless said otherwise. All calls belong on the thread that owns
// the window. A number outside 0..4 reads as an empty canvas and changes nothing.
//
// A host gives a canvas its window area and context with gCVSSetClient, then an image, then forwards
// events, and calls gCVSOnDraw when its window is to be painted. Nothing repaints by itself; only
// gCVSRespondToMessage invalidates the window.

#include "vostel/CanvasTypes.h"
#include "vostel/Geometry.h"
#include "vostel/export.h"
#include "vostel/platform.h"

// The window area, with its origin at 0,0, and the context that all later painting goes to; again on each
// resize. The context stays the host's.
VOSTEL_API void gCVSSetClient(int canvas, CRect& clientRect, HDC dc);
// Composes a frame and copies it to the context of gCVSSetClient; the context given here is not used.
VOSTEL_API void gCVSOnDraw(int canvas, HDC dc);

// Events. Flags are the mouse flags of the platform: 1 left button, 4 Shift, 8 Control. Of a wheel step
// only the sign of delta counts.
VOSTEL_API void gCVSOnLButtonDown(int canvas, unsigned int flags, CPoint point);
VOSTEL_API void gCVSOnLButtonUp(int canvas, unsigned int flags, CPoint point);
VOSTEL_API void gCVSOnMouseMove(int canvas, unsigned int flags, CPoint point);
VOSTEL_API void gCVSOnMouseWheel(int canvas, unsigned int flags, short delta, CPoint point);
VOSTEL_API void gCVSOnKeyDown(int canvas, unsigned int key, unsigned int repeat, unsigned int keyFlags);
VOSTEL_API void gCVSOnTimer(int canvas, unsigned long long timerId);
// Takes mouse moves, left presses and releases, wheel steps and key presses out of a message and routes
// them; invalidates the message's window after each but the key. Always true. Use this or the gCVSOn...
// calls for a message, never both.
VOSTEL_API bool gCVSRespondToMessage(MSG* message, int canvas);

// The view.
VOSTEL_API void  gCVSSetCanvasMoveMode(int canvas, DisplayMode mode);
VOSTEL_API CRect gCVSGetCanvasRegion(int canvas);    // where the whole image lies in the client area
VOSTEL_API int   gCVSGetClientWidth(int canvas);     // 0 before the first gCVSSetClient
VOSTEL_API int   gCVSGetClientHeight(int canvas);
// Client point to image point, in image pixels; neither rounded nor clamped.
VOSTEL_API void gCVSGetOriPt(int canvas, CPoint point, PointTemplateBase<double>& imagePoint);
VOSTEL_API void gCVSGetOriPt(int canvas, CPoint point, double& imageX, double& imageY);
// Image point to client point, truncated towards zero.
VOSTEL_API void gCVSGetDisplayPt(int canvas, PointTemplateBase<double> imagePoint, CPoint& point);
VOSTEL_API void gCVSGetDisplayPt(int canvas, double imageX, double imageY, CPoint& point);

// Overlay objects.
VOSTEL_API void gCVSDelAllElement(int canvas);
VOSTEL_API void gCVSDelSelElement(int canvas);

// The canvas surface: the image's pixels at image size, words 0x00RRGGBB, rows bottom-up. Pointers and row
// tables stay valid until the next image or gCVSPrepareCanvas.
VOSTEL_API bool gCVSPrepareCanvas(int canvas, int width,
                                  int height);    // a new black surface; deletes all objects
VOSTEL_API void gCVSSetCanvasColor(int canvas, unsigned int colour);    // fills it with one pixel word
VOSTEL_API HDC  gCVSGetCanvasHDC(int canvas);
VOSTEL_API unsigned int* gCVSGetCanvasPixelPtr(int canvas);
VOSTEL_API unsigned int**
                gCVSCreateCanvasPixelPtr2D(int canvas);    // row 0 is the bottom row; owned by the canvas
VOSTEL_API bool gCVSReleaseCanvasPixelPtr2D(int canvas);
VOSTEL_API void gCVSSetCanvasFastDisplayMode(int canvas, bool fast);    // nearest pixel, else smoothed

// The client surface: what the screen gets, in the same layout. Pointers and row tables stay valid until
// the next gCVSSetClient or image.
VOSTEL_API HDC            gCVSGetClientMemDC(int canvas);
VOSTEL_API unsigned int*  gCVSGetClientPixelPtr(int canvas);
VOSTEL_API unsigned int** gCVSCreateClientPixelPtr2D(int canvas);
VOSTEL_API bool           gCVSReleaseClientPixelPtr2D(int canvas);
// True: gCVSOnDraw only copies the client surface, which then holds what the host drew into it.
VOSTEL_API void gCVSSetUseClientMemDCPixelDirect(int canvas, bool direct);

// The contrast slider and the progress bar. Places are in client pixels, y counting up from the bottom of
// the client area to the control's lower edge.
VOSTEL_API void gCVSShowContrastCtrl(int canvas, bool show);
VOSTEL_API void gCVSSetContrastCtrlRectPos(int canvas, int x, int y, int w, int h);
VOSTEL_API void gCVSShowProgress(int canvas, bool show);
VOSTEL_API void gCVSSetProgressRectPos(int canvas, int x, int y, int w, int h);
VOSTEL_API void gCVSSetRange(int canvas, int low, int high);
VOSTEL_API void gCVSSetPos(int canvas, int pos);
