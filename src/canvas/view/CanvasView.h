#pragma once

#include "vostel/CanvasTypes.h"
#include "vostel/Geometry.h"
#include "vostel/platform.h"

namespace vostel {

// What the host set for all that is drawn on a canvas.
struct CanvasSettings {
    double  PixelRatio = 1.0;    // device px per px of pens, handles, fonts and controls
    bool    English = false;     // captions and read-outs; else Chinese
    double  UnitsPerPixel = 1.0;
    CString Unit = L"px";       // of lengths in captions
    bool    Handles = true;     // whether handles are drawn
    bool    Captions = true;    // whether captions of objects are drawn, and plots of profiles
};

class VectorDrawing;

// The transform between image pixels and the host's client area, and the mouse gestures that change it.
// Overlay objects hold a pointer to the canvas's view and read its fields to place themselves.
//
// There is no fitting to the window: a new canvas starts at scale 1, centred, and neither a new client
// rectangle nor a new image changes the scale.
class CanvasView {
public:
    int         ImageWidth = 0;      // image px
    int         ImageHeight = 0;     // image px
    double      Scale = 1.0;         // client px per image px
    double      ZoomFactor = 1.2;    // of one wheel step
    CRect       ClientRect;          // client px; the area handed over by the host
    CRect       DisplayRect;         // client px; where the whole image lies, beyond ClientRect on any side
    CPoint      LastPoint;           // client px; last press or drag point
    bool        LeftDown = false;
    DisplayMode MoveMode = DisplayZoomCursor;
    int         CentreX = 0;    // client px; the image's centre
    int         CentreY = 0;
    double AnchorX = 0.0;    // the centre's offset from the client centre, as a fraction of the client size
    double AnchorY = 0.0;
    CRect  SourceRect;            // image px; what the last blit showed
    bool   FirstClient = true;    // no client rectangle has been set yet
    bool   AnyScale = false;      // set by numbers too, not by gestures and their limits alone
    CanvasSettings Settings;
    VectorDrawing* Recorder = nullptr;    // borrowed; where objects are recorded instead of painted

    // Places the view in a client area: centred at first, afterwards held in place by the anchors.
    void SetClientRect(CRect rect);

    // Sets scale and centre, whatever the mode.
    void PlaceCentre(double scale, int centreX, int centreY);

    // Pans by a Control drag; refreshes the anchors in any case.
    void OnViewMouseMove(unsigned int flags, CPoint p);

    // Zooms by a Control wheel step. 1 if Control was held, else 0.
    int OnViewMouseWheel(unsigned int flags, short delta, CPoint p);

    // The two conversions use the truncated DisplayRect, not the centre. Neither clamps.
    PointTemplateBase<double> ClientToImage(CPoint p) const;
    CPoint                    ImageToClient(PointTemplateBase<double> q) const;

private:
    void RefreshDisplayRect();
    void RefreshAnchors();
};

}
