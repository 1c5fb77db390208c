#pragma once

#include "canvas/view/CanvasView.h"
#include "canvas/view/Colors.h"
#include "canvas/view/PaintKit.h"
#include "geometry/Outline.h"
#include "overlay/ElementEntry.h"
#include "vostel/CanvasTypes.h"
#include "vostel/Containers.h"
#include "vostel/platform.h"

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace vostel {

class ImageValues;
class StateArchive;

// Kinds of overlay objects: values of VostelObj::TypeCode.
enum OverlayKind : int {
    OverlayRect = 0,
    OverlayCustomRect = 1,
    OverlayLine = 2,    // only while a line or angle is being constructed
    OverlayPolygon = 3,
    OverlaySpline = 4,
    OverlayOneStroke = 5,
    OverlayTextRect = 6,
    OverlayMStroke = 7,
    OverlayMeasureLine = 8,
    OverlayAngle3Pts = 9,
    OverlayAngle4Pts = 10,
    OverlayPanel = 14,         // text lines and read-outs; gets every press, release and move
    OverlayNeighbours = 15,    // gets every move
    OverlayLineProfile = 16,
    OverlayPoints = 20,
    OverlayPolyline = 21,
    OverlayArrow = 22
};

// Values of VostelObj::MoveState: whether the whole shape follows the mouse.
enum MovePhase : int { ShapeMoves = 0, ShapeRests = 2 };

// Values of VostelObj::ActiveNode beside the indices.
enum NodeMark : int { NoNode = -1, WholeShape = -2 };

// Root of the family of objects that lie over an image: shapes, text, measures and on-canvas controls. It
// holds what the family shares and does almost nothing by itself: its operations are the defaults.
//
// Image points are the master copy of a shape's geometry; client points and handles are derived from them by
// RefreshClientGeometry, which is what glues a shape to the image through pan and zoom.
class VostelObj {
public:
    FontType                               StyleFontType = FontPlain18;
    COLORREF                               StyleColor = 0;    // of the custom text style
    int                                    StyleBkMode = 0;
    int                                    StyleHeight = 0;    // px
    std::vector<CPoint>                    ClientPoints;       // client px, derived
    std::vector<PointTemplateBase<double>> ImagePoints;        // image px, the master copy
    std::vector<CRect>                     HandleRects;        // client px, one square per client point
    int                                    ClientCount = 0;    // scratch of drawing code
    std::vector<int>                       StrokeStarts;       // indices where a new stroke begins
    CRect                                  StrokeBounds;       // client px
    PaintKit                               Kit;
    unsigned int*                          SurfacePixels = nullptr;    // borrowed; handed to Kit on each draw
    CanvasView*                            View = nullptr;             // borrowed from the canvas
    int                                    HandleShape = RoundHandles;    // or SquareHandles
    COLORREF                               HandleColorSel = Red;
    COLORREF                               HandleColorIdle = Blue;
    COLORREF                               HandleColorAlt = Yellow;    // no drawing reads it
    bool                                   ShowHandles = true;
    COLORREF                               LineColorIdle = Blue;
    COLORREF                               LineColorSel = Red;
    unsigned char                          Spare = 0;
    int                                    HandleRadius = 4;    // client px
    CPoint                                 LastPoint;           // client px; the reference for drag steps
    bool                                   ButtonDown = false;
    int                                    MoveState = ShapeRests;    // a MovePhase
    int                                    ActiveNode = NoNode;       // node being dragged, or a NodeMark
    double                                 LastDeltaX = 0.0;          // image px; last drag step
    double                                 LastDeltaY = 0.0;
    int                                    ClickPerPoint = 1;    // 0: a Shift press adds two points
    int                  MaxPoints = 10000;    // at this count the next Shift press starts over
    bool                 EllipseMode = false;
    CRect                ClientBox;    // client px
    CRect                ImageBox;     // image px, truncated
    bool                 DrawBody = true;
    bool                 FixedSize = false;    // second point keeps its distance in client px
    bool                 ControlOn = true;     // of on-canvas controls
    bool                 MeasureArmed = false;
    int                  StrokeWidth = 1;    // px
    bool                 Selected = false;
    int                  TypeSerial = 0;    // number within the kind
    int                  SerialNo = 0;      // number on the canvas; labels are one more
    int                  TypeCode = 0;
    bool                 ClampToImage = true;
    ImageValues*         OwnerImage = nullptr;    // borrowed: the canvas
    CPoint               HoverPoint;              // client px
    ClassData2DIO<float> Data;
    double               MeasureScale = 1.0;    // length units per image px
    std::uint64_t        Identity = 0;          // given by the canvas's document; 0 for none yet
    bool                 Hidden = false;
    bool                 Locked = false;
    // Made through the open interface: captions say the measure, hits go by the exact outline.
    bool         OpenMade = false;
    double       LineWidth = 1.0;    // px
    unsigned int FillColor = 0;      // 0xAARRGGBB, of the interior of a region
    double       WindowLow = 0.0;    // contrast window of a region in image values; none while equal
    double       WindowHigh = 0.0;
    ElementEntry Entry;    // of the list that the object stands on

    VostelObj() = default;
    VostelObj(const VostelObj&) = delete;
    VostelObj& operator=(const VostelObj&) = delete;
    virtual ~VostelObj();

    // Events. Flags are the mouse flags of the system; points are client px.
    virtual void OnLButtonDown(unsigned int flags, CPoint point);
    virtual void OnLButtonUp(unsigned int flags, CPoint point);
    virtual void OnMouseMove(unsigned int flags, CPoint point);
    virtual void OnKeyDown(unsigned int key, unsigned int repeat, unsigned int keyFlags);
    virtual void OnTimer(std::uint64_t timerId);

    virtual void SetCanvasView(CanvasView* view);
    virtual void RefreshClientGeometry();
    // What a refresh and a paint derive the fields in client px from. All but Client is a promise: an object
    // that nobody changes may be derived later, and hit tests and drawing change nothing else.
    virtual DerivedFrom PlacedBy() const { return DerivedFrom::Client; }
    // Of such an object: the box in image px that all that can be hit or drawn of it lies in, but for
    // handles, pens and rounding to client px. None where there are too few points for one.
    virtual std::optional<Bounds> PlaceOnImage() const;
    // Whether a press at the point means this object.
    bool Hits(CPoint point) const { return TakesGestures() && Covers(point); }
    // What Hits says, noted where later events look; Selected is left alone here, descendants write it.
    virtual bool HitTest(CPoint point);
    // Derives from view and image points what a paint derives, for an object that was not painted yet.
    virtual void DerivePainted();
    // Of a kind that rests, once that is done: the box in client px that the next drawing stays within, for
    // points beyond all measure as wide as any. Turned inside out where nothing is drawn.
    virtual Bounds DrawnBox() const;
    virtual void   SetPlacement(float x, float y, float w, float h);
    virtual void   OnDraw(HDC dc);

    virtual void SetHandleColors(COLORREF selected, COLORREF second);
    virtual void SetHandleShape(int shape);
    virtual void SetHandleRadius(int radius);
    virtual void SetClickPerPoint(int mode);
    virtual void SetMaxPoints(int count);
    virtual void ReservedOp();

    virtual void  SetTextAndFit(CString& text);
    virtual void  SetText(CString& text);
    virtual CRect MeasureText(CString& text);
    virtual void  SetTextAt(CString& text, CPoint at);

    virtual void BeginMove();    // of the whole shape
    virtual bool IsMoving();

    // Outlines in image px. True with the vector untouched where the kind has none of its own.
    virtual bool GetLabelOutline(std::vector<PointTemplateBase<int>>& out);
    virtual bool ReservedCheck();
    virtual bool GetImagePoints(std::vector<PointTemplateBase<int>>& out);
    virtual bool GetImagePolygon(std::vector<PointTemplateBase<int>>& out);

    virtual void    ClearPoints();    // frees all point lists
    virtual void    SetOwnerImage(ImageValues* image);
    virtual void    SetTextLines(std::vector<CString>& lines);
    virtual void    AddTextLine(CString line);
    virtual void    SetData(ClassData2DIO<float>& source);
    virtual CString GetResultText();    // "NULL" where the kind has no result

    // Whether presses and moves may reach the object.
    bool TakesGestures() const { return !Hidden && !Locked; }

    // The points that define the object, in image px, or client px of panels; an angle gives end, vertex,
    // end.
    virtual std::vector<PointTemplateBase<double>> GivePoints() const;
    // Becomes the object of those points and places its caption. False for a number of points that the kind
    // does not have; nothing is changed then.
    virtual bool TakePoints(std::span<const PointTemplateBase<double>> points);
    // The exact outline of a region, of enough points.
    virtual std::optional<Outline> RegionOutline() const;
    // The text of text objects, the caption of measures; else empty.
    virtual CString CaptionText() const;
    // Becomes the text of a text object, which keeps its upper left corner. False for all other kinds.
    virtual bool TakeText(const CString& text);

    // Lists the fields of the object's state for saving and loading. Identity, selection, gestures under way,
    // what is derived and what is borrowed are no state.
    virtual void               Persist(StateArchive& archive);
    std::vector<unsigned char> SaveState();
    // False for bytes that are not the whole state of an object of this kind; it may be half loaded then.
    bool LoadState(std::span<const unsigned char> state);

    // The two conversions of the view. Without a view they show "显示信息未提供" and go on with zeros.
    PointTemplateBase<double> ClientToImage(CPoint point) const;
    CPoint                    ImageToClient(PointTemplateBase<double> point) const;

protected:
    // Whether handles, interior or whatever else can be hit lie at the point.
    virtual bool Covers(CPoint point) const;
    // Of the canvas; null without a view.
    const CanvasSettings* Settings() const { return View ? &View->Settings : nullptr; }
    // Device px per px of pens, handles and fonts, and so many px in them.
    double PixelRatio() const { return View ? View->Settings.PixelRatio : 1.0; }
    int    Scaled(double px) const;
    bool   ShowsCaptions() const { return !View || View->Settings.Captions; }

    // Extends a box by all that may be drawn about a point in client px.
    void Cover(Bounds& box, double x, double y) const;

    void EndMove();
    // Target of the next drawing; every OnDraw starts with it.
    void     BindKit(HDC dc);
    void     SetPens();    // of Kit, from the style and the canvas's settings; and where it draws
    COLORREF LineColor() const { return Selected ? LineColorSel : LineColorIdle; }
    COLORREF HandleColor() const { return Selected ? HandleColorSel : HandleColorIdle; }
};

}
