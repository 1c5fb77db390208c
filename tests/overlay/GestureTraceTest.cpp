// Long random traces of everything that a user and a host can do to objects, with what must hold after each
// step. They mean most under the sanitizers.

#include "instruments/VostelTextRect.h"
#include "overlay/VostelCrayonMStroke.h"
#include "overlay/VostelSpline.h"
#include "support/OverlayCanvas.h"

#include <algorithm>
#include <random>
#include <string>

using namespace vostel;

namespace {

class Trace {
public:
    Trace(HostCanvas& host, unsigned seed) : Host(host), Seed(seed), Random(seed)
    {
        Dialogs.ImaROIRectPara = [this](tagZEKImaROIRectPara& para) {
            para.RoiLeft = Between(-40, 120);
            para.RoiTop = Between(-40, 120);
            para.RoiRight = Between(-40, 120);
            para.RoiBottom = Between(-40, 120);
            return Between(0, 3) != 0;
        };
        Dialogs.ImaGeneralPara = [this](tagZEKImaGeneralPara& para, CString&, CString&) {
            para.Value = Between(0, 1) ? L"2.5" : L"no number";
            return Between(0, 3) != 0;
        };
        gDlgSetDialogs(Dialogs);
    }
    ~Trace() { gDlgSetDialogs(TessikDialogs()); }
    Trace(const Trace&) = delete;
    Trace& operator=(const Trace&) = delete;

    void Run(int events)
    {
        for (Step = 0; Step < events && !Broken; ++Step) {
            Event();
            Check();
        }
        INFO("seed ", Seed, ": ", Painted, " paints, ", WithLines, " with outlines, ", Labelled,
             " label images, ", WithRegions, " with regions, ", Added, " objects, up to ", Most, " at once");
        CHECK_FALSE(Broken);
        // With room: compilers evaluate the arguments of a call in orders of their own, so the gestures
        // differ.
        CHECK(Painted > events / 100);
        CHECK(Labelled > events / 400);
        CHECK(Added > events / 100);
        CHECK(WithLines > Painted / 4);
        CHECK(WithRegions > Labelled / 16);
        CHECK(Most > 12);
    }

private:
    HostCanvas&   Host;
    unsigned      Seed;
    std::mt19937  Random;
    TessikDialogs Dialogs;
    CPoint        At;
    int           ZoomSteps = 0;
    int           Step = 0;
    int           Painted = 0;
    int           Labelled = 0;
    int           WithRegions = 0;    // label images that show one
    int           WithLines = 0;      // frames that show an outline
    int           Added = 0;
    std::size_t   Most = 0;
    bool          Broken = false;

    int Between(int low, int high)
    {
        return low + static_cast<int>(Random() % static_cast<unsigned>(high - low + 1));
    }
    int          Near(int at) { return std::clamp(at, INT32_MIN + 6, INT32_MAX - 6) + Between(-6, 6); }
    VostelImage& Canvas() { return gCanvasTable[Host.Number]; }

    void Demand(bool holds, const char* what)
    {
        if (holds)
            return;
        Broken = true;
        FAIL_CHECK(std::string(what) << ", seed " << Seed << " step " << Step);
    }

    void Add()
    {
        ++Added;
        const int n = Host.Number;
        switch (Between(0, 17)) {
        case 0:
            return gCVSAddMRectangle(n);
        case 1:
            return gCVSAddCustomRectangle(n);
        case 2:
        case 3:
            return gCVSAddPoly(n);
        case 4:
            return gCVSAddSpline(n);
        case 5:
            return gCVSAddFreeRegion(n);
        case 6:
            return gCVSAddFreeStroke(n);
        case 7:
            return gCVSAddTextOL(n);
        case 8:
            return gCVSAddTextOL(n, L"caption 说明", Between(-20, 220), Between(-20, 180),
                                 static_cast<FontType>(Between(0, 4)), Between(1, 2), Random() & 0xFFFFFF,
                                 Between(-30, 30));
        case 9:
            return gCVSAddTextOLV2(n, L"", Between(-20, 120), Between(-20, 100),
                                   static_cast<FontType>(Between(0, 4)), Between(1, 2), Random() & 0xFFFFFF,
                                   Between(0, 30));
        case 10: {
            std::vector<CString> lines(static_cast<std::size_t>(Between(0, 4)), CString(L"line"));
            return gCVSAddTextML(n, lines, Between(-20, 220), Between(-20, 180));
        }
        case 11:
            return gCVSAddMeasureLine(n, 1.0);
        case 12:
            return gCVSAddMeasureAngle3Pts(n);
        case 13:
            return gCVSAddMeasureAngle4Pts(n);
        case 14:
            return gCVSAddInfoWin(n);
        case 15:
            return gCVSAddLineProfile(n);
        case 16:
            return gCVSAddNeighborPV(n);
        default:
            gCVSAddDoubleLine(n);
        }
    }

    // Near the last place, on some object's handle, anywhere, or distant out.
    CPoint Place()
    {
        const int how = Between(0, 99);
        if (how < 45)
            return CPoint(Near(At.x), Near(At.y));
        if (how < 65 && !Canvas().Elements.empty()) {
            const VostelObj& object =
                *Canvas().Elements[Random() % static_cast<unsigned>(Canvas().Elements.size())];
            if (!object.ClientPoints.empty())
                return object.ClientPoints[Random() % static_cast<unsigned>(object.ClientPoints.size())];
            return CPoint(object.ClientBox.left, object.ClientBox.top);
        }
        if (how < 99)
            return CPoint(Between(-10, 210), Between(-10, 170));
        constexpr int Far[] = {INT32_MIN, INT32_MIN + 1, -100000, 100000, INT32_MAX - 1, INT32_MAX};
        return CPoint(Far[Between(0, 5)], Far[Between(0, 5)]);
    }

    unsigned int Flags(unsigned int button)
    {
        unsigned int flags = button;
        if (Between(0, 1) == 0)
            flags |= MK_SHIFT;
        const bool close = At.x > -1000 && At.x < 1000 && At.y > -1000 && At.y < 1000;
        if (Between(0, close ? 9 : 99) == 0)
            flags |= MK_CONTROL;
        return flags;
    }

    void ShowImage()
    {
        const int  width = Between(0, 9) == 0 ? Between(1, 3) : Between(20, 120);
        const int  height = Between(0, 9) == 0 ? Between(1, 3) : Between(20, 100);
        const bool clear = Between(0, 3) == 0;
        // Back from wherever distant Control drags have thrown the image.
        Canvas().View.CentreX = 100;
        Canvas().View.CentreY = 80;
        Host.Move(100, 80);
        if (Between(0, 1) == 0)
            Host.ShowGray(
                width, height, [](int x, int y) { return x ^ y; }, clear);
        else
            Host.ShowFloat(
                width, height, [](int x, int y) { return static_cast<float>(x * y); }, Between(0, 1) == 0,
                clear);
    }

    void ShowControls()
    {
        gCVSShowContrastCtrl(Host.Number, Between(0, 2) == 0);
        gCVSSetContrastCtrlRectPos(Host.Number, Between(-20, 40), Between(-20, 40), Between(0, 150),
                                   Between(0, 40));
        gCVSShowProgress(Host.Number, Between(0, 1) == 0);
        gCVSSetProgressRectPos(Host.Number, Between(-20, 40), Between(-20, 40), Between(0, 150),
                               Between(0, 40));
        gCVSSetRange(Host.Number, Between(-2, 2), Between(-2, 2));
        gCVSSetPos(Host.Number, Between(-5, 5));
        gCVSOnTimer(Host.Number, 1);
    }

    void Event()
    {
        const int what = Between(0, 999);
        if (what < 520) {
            At = Place();
            Host.Move(At.x, At.y, Flags(Between(0, 2) != 0 ? MK_LBUTTON : 0));
        } else if (what < 680) {
            At = Place();
            Host.Press(At.x, At.y, Flags(MK_LBUTTON));
        } else if (what < 830) {
            Host.Release(At.x, At.y, Flags(0));
        } else if (what < 870) {
            Add();
        } else if (what < 900) {
            constexpr unsigned int Keys[] = {'E', 'I', 'T', 'A', 'D', VK_TAB, 'X', 'R', 'R', 'S', 0, 999};
            Host.Key(Keys[Between(0, 11)]);
        } else if (what < 930) {
            Paint();
        } else if (what < 938) {
            Label();
        } else if (what < 960) {
            // A walk about scale 1, about which images are as large as the window.
            const bool nearer = Between(-6, 6) > ZoomSteps;
            ZoomSteps += nearer ? 1 : -1;
            Host.Wheel(At.x, At.y, nearer ? 120 : -120, MK_CONTROL);
        } else if (what < 970) {
            gCVSDelSelElement(Host.Number);
        } else if (what < 973) {
            gCVSDelAllElement(Host.Number);
        } else if (what < 980) {
            ShowImage();
        } else if (what < 985) {
            Host.Resize(Between(0, 9) == 0 ? Between(0, 1) : Between(120, 220), Between(100, 180));
        } else if (what < 988) {
            gCVSSetLutPara(Host.Number, 0.1f, 0.8f);
        } else if (what < 992) {
            gCVSGetTextRectOL(Host.Number, L"size", 0, 0, FontCustom, 1, 0, 20);
        } else if (what < 996) {
            gCVSSetMeasureScale(Host.Number);
        } else if (what < 998) {
            gCVSSetCanvasFastDisplayMode(Host.Number, Between(0, 1) == 0);
        } else {
            ShowControls();
        }
        if (Canvas().Elements.size() > 60)
            gCVSDelAllElement(Host.Number);
    }

    void Paint()
    {
        const Frame frame = Host.PaintAndCapture();
        ++Painted;
        WithLines += std::count(frame.Pixels.begin(), frame.Pixels.end(), RedPixel) > 5;
    }

    void Label()
    {
        ++Labelled;
        const bool                selectedOnly = Between(0, 1) == 0;
        const int                 last = gCVSGenerateLabel(Host.Number, selectedOnly);
        const ClassData2DIO<int>& plane = gCVSGetLabelIma(Host.Number);
        Demand(plane.Width == gCVSGetCanvasWidth(Host.Number) &&
                   plane.Height == gCVSGetCanvasHeight(Host.Number),
               "the label image has the image's size");
        // The numbers of the region shapes; deletions of other kinds shift them, also below 0.
        std::vector<int> allowed = {0, 1};
        for (const VostelObj* object : Canvas().Elements)
            allowed.push_back(object->SerialNo + 1);
        std::sort(allowed.begin(), allowed.end());
        for (int i = 0; i < plane.Width * plane.Height; ++i) {
            if (!std::binary_search(allowed.begin(), allowed.end(), plane.Ptr1D[i])) {
                Demand(false, "a label is the number of an object");
                break;
            }
        }
        WithRegions +=
            std::count(plane.Ptr1D, plane.Ptr1D + plane.Width * plane.Height, 0) > 0 &&
            std::count(plane.Ptr1D, plane.Ptr1D + plane.Width * plane.Height, 0) < plane.Width * plane.Height;
        Demand(std::binary_search(allowed.begin(), allowed.end(), last),
               "the result is the number of an object");
    }

    static bool Normalised(const CRect& box) { return box.left <= box.right && box.top <= box.bottom; }

    void Check()
    {
        VostelImage& canvas = Canvas();
        Most = std::max(Most, canvas.Elements.size());
        Demand(canvas.SelIndex >= -1, "the selected index is -1 or more");
        for (const VostelObj* object : canvas.Elements) {
            Demand(object->ClientPoints.size() == object->HandleRects.size() ||
                       dynamic_cast<const VostelMPoint*>(object) == nullptr,
                   "there are as many handles as client points");
            Demand(object->ImagePoints.size() <= static_cast<std::size_t>(object->MaxPoints) + 1 ||
                       object->TypeCode == OverlayOneStroke || object->TypeCode == OverlayMStroke,
                   "no shape outgrows its MaxPoints");
            Demand(Normalised(object->ImageBox), "image boxes are normalised");
            // A caption's box is inflated, which at the ends of the integers turns it inside out.
            if (dynamic_cast<const VostelMPoint*>(object) && object->TypeCode != OverlayTextRect)
                Demand(Normalised(object->ClientBox), "client boxes of shapes are normalised");
            Demand(object->ActiveNode >= -2 &&
                       object->ActiveNode < std::max<int>(0, static_cast<int>(object->ImagePoints.size())) +
                                                (object->ImagePoints.empty() ? 1 : 0),
                   "the node being dragged is one of the shape");
            Demand(object->MoveState == 0 || object->MoveState == 2, "a move state is 0 or 2");
            Demand(object->StrokeWidth >= 1 && object->StrokeWidth <= 40, "a pen is 1 to 40 wide");
            Demand(std::is_sorted(object->StrokeStarts.begin(), object->StrokeStarts.end()) &&
                       (object->StrokeStarts.empty() ||
                        object->StrokeStarts.back() < static_cast<int>(object->ImagePoints.size())),
                   "strokes start at points, in order");
            if (const auto* spline = dynamic_cast<const VostelSpline*>(object))
                Demand(spline->CurvePoints.size() % 11 == 0, "a curve consists of segments of 11 points");
        }
        Host.Desktop.Messages.clear();
        Host.Desktop.Invalidated.clear();
    }
};

}

TEST_CASE("100,000 random gestures over all kinds of objects keep every invariant")
{
    for (const unsigned seed : {1u, 2u, 3u, 4u}) {
        HostCanvas host(4, 200, 160);
        host.ShowFlatGray(100, 80, 0x40);
        Trace(host, seed).Run(25000);
    }
}

TEST_CASE("shapes whose client points leave 32 bits through zooming draw, hit and label without harm")
{
    HostCanvas host(4, 200, 160);
    host.ShowFlatGray(100, 80, 0x40);
    VostelImage& canvas = gCanvasTable[4];
    const double scale = canvas.View.Scale;
    for (const auto add :
         {gCVSAddMRectangle, gCVSAddPoly, gCVSAddSpline, gCVSAddFreeRegion, gCVSAddFreeStroke,
          gCVSAddMeasureAngle3Pts, gCVSAddMeasureAngle4Pts, gCVSAddLineProfile}) {
        add(host.Number);
        host.Move(30, 30);
        for (const CPoint p : {CPoint(30, 30), CPoint(170, 40), CPoint(150, 140)}) {
            host.Press(p.x, p.y, DrawFlags);
            host.Move(p.x + 3, p.y + 2, DrawFlags);
            host.Release(p.x + 3, p.y + 2);
        }
    }
    for (const double distant : {1e5, 1e7, 3e8, 1e12, 1e300, 1e-9}) {
        canvas.View.Scale = distant;
        canvas.View.DisplayRect = CRect(-2000000000, -2000000000, 2000000000, 2000000000);
        for (VostelObj* object : canvas.Elements)
            object->SetCanvasView(&canvas.View);
        for (VostelObj* object : canvas.Elements)
            object->OnDraw(canvas.ClientMemDC);
        for (const CPoint p : {CPoint(5, 5), CPoint(INT32_MIN, INT32_MAX), CPoint(INT32_MAX, INT32_MIN)}) {
            for (const unsigned int flags : {static_cast<unsigned int>(MK_LBUTTON), DrawFlags}) {
                host.Press(p.x, p.y, flags);
                host.Move(p.y, p.x, flags);
                host.Release(p.x, p.y);
            }
        }
        gCVSGenerateLabel(host.Number, false);
        CHECK(gCVSGetLabelIma(host.Number).Width == 100);
    }
    CHECK(canvas.Elements.size() == 8);
    gCVSDelAllElement(host.Number);
    canvas.View.Scale = scale;
    host.ShowFlatGray(100, 80, 0x40);
    host.Desktop.Messages.clear();
}
