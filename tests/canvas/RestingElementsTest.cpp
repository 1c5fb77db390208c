// Canvases whose objects rest as soon as they can, beside canvases with the same objects that never do.
// Whatever happens to both, neither pixels nor outcomes nor any field of an object tells them apart.

#include "instruments/VostelLineProfile.h"
#include "instruments/VostelMeasureAngle4Pts.h"
#include "instruments/VostelMeasureLine.h"
#include "overlay/VostelCrayonMStroke.h"
#include "overlay/VostelCrayonOneStroke.h"
#include "overlay/VostelCustomRect.h"
#include "overlay/VostelSpline.h"
#include "support/ObjectCanvas.h"

#include <cmath>
#include <cstdint>
#include <memory>
#include <random>
#include <sstream>
#include <utility>

using namespace vostel;

namespace {

constexpr int Width = 400;
constexpr int Height = 300;
constexpr int ImageSide = 250;

std::ostream& operator<<(std::ostream& out, const CRect& box)
{
    return out << box.left << ' ' << box.top << ' ' << box.right << ' ' << box.bottom << "; ";
}

template <typename Point>
void Print(std::ostream& out, const char* name, const std::vector<Point>& points)
{
    out << name << ": ";
    for (const Point& point : points)
        out << point.x << ' ' << point.y << ", ";
    out << '\n';
}

// All that gestures, paints and exports can change of an object or read of it.
std::string FieldsOf(const VostelObj& object)
{
    std::ostringstream out;
    out.precision(17);
    out << object.TypeCode << ' ' << object.SerialNo << ' ' << object.TypeSerial << ' ' << object.Selected
        << object.Hidden << object.Locked << object.ButtonDown << object.EllipseMode << object.MeasureArmed
        << ' ' << object.MoveState << ' ' << object.ActiveNode << ' ' << object.ClientCount << ' '
        << object.StrokeWidth << ' ' << object.LastDeltaX << ' ' << object.LastDeltaY << '\n';
    out << object.ClientBox << object.ImageBox << object.StrokeBounds << '\n';
    Print(out, "image", object.ImagePoints);
    Print(out, "client", object.ClientPoints);
    for (const CRect& handle : object.HandleRects)
        out << handle;
    if (const auto* line = dynamic_cast<const VostelSingleLine*>(&object))
        out << "\nmiddle " << line->MidPoint.x << ' ' << line->MidPoint.y << ' ' << line->MidRect;
    if (const auto* line = dynamic_cast<const VostelMeasureLine*>(&object))
        out << "\nlabel " << line->LabelHit << line->Label.Selected << line->Label.ClientBox;
    if (const auto* angle = dynamic_cast<const VostelMeasureAngle4Pts*>(&object))
        out << "\ncross " << angle->LabelHit << angle->CrossBox;
    if (const auto* profile = dynamic_cast<const VostelLineProfile*>(&object))
        out << "\nplot " << profile->PlotHit << profile->ProfilePlot.ClientBox;
    if (const auto* spline = dynamic_cast<const VostelSpline*>(&object)) {
        Print(out, "\nnodes", spline->ClosedNodes);
        Print(out, "curve", spline->CurvePoints);
        Print(out, "controls", spline->ControlPoints);
    }
    if (const auto* polygon = dynamic_cast<const VostelPolygon*>(&object))
        out << "handles " << (polygon->TypeCode == OverlayPolygon && polygon->ShowHandles);
    return out.str();
}

class Twins {
public:
    explicit Twins(unsigned seed) : Random(seed)
    {
        Resting.Canvas().Elements.MostAwake = 0;
        Awake.Canvas().Elements.MostAwake = SIZE_MAX;
        Both([](ObjectCanvas& host) { host.ShowGray(ImageSide, ImageSide, Noise); });
    }
    ~Twins()
    {
        for (ObjectCanvas* const host : {&Resting, &Awake})
            host->Canvas().Elements.MostAwake = ElementList::FewAwake;
    }
    Twins(const Twins&) = delete;
    Twins& operator=(const Twins&) = delete;

    void Run(int count)
    {
        while (Resting.Canvas().Elements.size() < 150)
            Add();
        for (int i = 0; i < count; ++i) {
            CAPTURE(i);
            Event();
            VostelImage& canvas = Resting.Canvas();
            REQUIRE(canvas.SelIndex == Awake.Canvas().SelIndex);
            REQUIRE(canvas.Elements.size() == Awake.Canvas().Elements.size());
            const std::size_t resting = canvas.Elements.size() - canvas.Elements.NotResting().size();
            MostResting = std::max(MostResting, resting);
            SumResting += resting;
            REQUIRE(Awake.Canvas().Elements.NotResting().size() == Awake.Canvas().Elements.size());
            if (Between(0, 19) == 0)
                CompareFields();
            Selections += canvas.SelIndex >= 0;
        }
        CompareFields();
        CompareFrames();
        CHECK(MostResting > 50);
        CHECK(SumResting > static_cast<std::size_t>(count) * 20);
        CHECK(Selections > count / 20);
        CHECK(Resting.Desktop.Messages.empty());
    }

private:
    ObjectCanvas Resting{3, Width, Height};
    ObjectCanvas Awake{4, Width, Height};
    std::mt19937 Random;
    CPoint       At;
    std::size_t  MostResting = 0;
    std::size_t  SumResting = 0;
    int          Selections = 0;

    int Between(int low, int high)
    {
        return low + static_cast<int>(Random() % static_cast<unsigned>(high - low + 1));
    }

    template <typename Action>
    void Both(Action&& action)
    {
        action(Resting);
        action(Awake);
    }

    void CompareFields()
    {
        const VostelImage& resting = Resting.Canvas();
        const VostelImage& awake = Awake.Canvas();
        for (std::size_t i = 0; i < resting.Elements.size(); ++i) {
            CAPTURE(i);
            REQUIRE(FieldsOf(*resting.Elements[i]) == FieldsOf(*awake.Elements[i]));
        }
    }
    void CompareFrames()
    {
        const Frame frame = Resting.PaintAndCapture();
        REQUIRE(FrameDifference(frame, Awake.PaintAndCapture()) == "");
    }

    static std::unique_ptr<VostelObj> Make(int kind)
    {
        switch (kind) {
        case 0:
            return std::make_unique<VostelRect>();
        case 1:
            return std::make_unique<VostelCustomRect>();
        case 2:
            return std::make_unique<VostelSpline>();
        case 3:
            return std::make_unique<VostelCrayonOneStroke>();
        case 4:
            return std::make_unique<VostelCrayonMStroke>();
        case 5:
            return std::make_unique<VostelMeasureLine>();
        case 6:
            return std::make_unique<VostelMeasureAngle4Pts>();
        case 7:
            return std::make_unique<VostelLineProfile>();
        default:
            return std::make_unique<VostelPolygon>();
        }
    }

    void Add()
    {
        const int                              kind = Between(0, 14);
        const bool                             paired = kind < 2 || kind == 5 || kind == 7;
        const int                              count = paired ? 2 : kind == 6 ? 4 : Between(1, 7);
        const double                           x = Between(-20, ImageSide + 20);
        const double                           y = Between(-20, ImageSide + 20);
        const int                              reach = Between(0, 9) == 0 ? 150 : 20;
        std::vector<PointTemplateBase<double>> points;
        for (int i = 0; i < count; ++i)
            points.emplace_back(x + Between(-reach, reach) + Between(0, 3) / 4.0, y + Between(-reach, reach));
        if (Between(0, 19) == 0) {
            constexpr double Far[] = {NAN, INFINITY, -1e12, 3e6, 2e5};
            points[Random() % points.size()].x = Far[Between(0, 4)];
        }
        const bool         open = Between(0, 3) == 0;
        const bool         ellipse = Between(0, 3) == 0;
        const int          radius = Between(0, 3) == 0 ? Between(0, 15) : 4;
        const unsigned int fill = Between(0, 3) == 0 ? 0x40FF8000u : 0u;
        const double       wide = Between(0, 5) == 0 ? Between(1, 9) : 1.0;
        Both([&](ObjectCanvas& host) {
            std::unique_ptr<VostelObj> made = Make(kind);
            made->SetOwnerImage(&host.Canvas());
            made->OpenMade = open;
            made->EllipseMode = ellipse;
            made->HandleRadius = radius;
            made->FillColor = fill;
            made->LineWidth = wide;
            made->ImagePoints = points;
            if (kind == 4)
                made->StrokeStarts = {0};
            host.Canvas().Append(std::move(made)).SetCanvasView(&host.Canvas().View);
        });
    }

    // Near the last place, about some object's point or edge, or anywhere.
    void Aim()
    {
        const int how = Between(0, 9);
        if (how < 3) {
            At = CPoint(At.x + Between(-6, 6), At.y + Between(-6, 6));
        } else if (how < 9 && !Resting.Canvas().Elements.empty()) {
            const auto&      all = Resting.Canvas().Elements.AsTheyLie();
            const VostelObj& object = *all[Random() % all.size()];
            if (!object.ImagePoints.empty()) {
                const auto&  point = object.ImagePoints[Random() % object.ImagePoints.size()];
                const CPoint client = Resting.Canvas().View.ImageToClient(point);
                const int    off = std::min(16, object.HandleRadius + 2);
                At = CPoint(client.x + Between(-off, off), client.y + Between(-off, off));
            }
        } else {
            At = CPoint(Between(-10, Width + 10), Between(-10, Height + 10));
        }
    }

    unsigned int Flags(unsigned int button)
    {
        return button | (Between(0, 3) == 0 ? MK_SHIFT : 0u) | (Between(0, 9) == 0 ? MK_CONTROL : 0u);
    }

    void Wheel()
    {
        const double scale = Resting.Canvas().View.Scale;
        const int    delta = scale > 8.0 ? -120 : scale < 0.2 ? 120 : Between(0, 1) == 0 ? 120 : -120;
        Both([&](ObjectCanvas& host) { host.Wheel(At.x, At.y, delta); });
    }

    // Back to a middle scale, by numbers.
    void Place()
    {
        const double scale = Between(1, 12) / 4.0;
        const CPoint centre(Between(100, 300), Between(80, 220));
        Both([&](ObjectCanvas& host) {
            host.Canvas().View.PlaceCentre(scale, centre.x, centre.y);
            host.Canvas().ViewMoved();
        });
    }

    // What a call with an object in hand may do.
    void Change()
    {
        if (Resting.Canvas().Elements.empty())
            return;
        const std::size_t index = Random() % Resting.Canvas().Elements.size();
        const int         what = Between(0, 5);
        const double      x = Between(0, ImageSide);
        Both([&](ObjectCanvas& host) {
            VostelObj& object = *host.Canvas().Elements[index];
            switch (what) {
            case 0:
                object.Hidden = !object.Hidden;
                break;
            case 1:
                object.Locked = !object.Locked;
                break;
            case 2:
                if (!object.ImagePoints.empty())
                    object.ImagePoints[0].x = x;
                break;
            case 3:
                object.HandleRadius = static_cast<int>(x) % 12;
                break;
            case 4:
                object.SetCanvasView(&host.Canvas().View);
                object.DerivePainted();
                break;
            default:
                host.Canvas().Insert(index / 2, host.Canvas().Detach(index));
            }
        });
    }

    void Event()
    {
        const int what = Between(0, 999);
        if (what < 400) {
            Aim();
            const unsigned int flags = Flags(Between(0, 2) != 0 ? MK_LBUTTON : 0);
            Both([&](ObjectCanvas& host) { host.Move(At.x, At.y, flags); });
        } else if (what < 600) {
            Aim();
            const unsigned int flags = Flags(MK_LBUTTON);
            Both([&](ObjectCanvas& host) { host.Press(At.x, At.y, flags); });
        } else if (what < 760) {
            Both([&](ObjectCanvas& host) { host.Release(At.x, At.y); });
        } else if (what < 830) {
            CompareFrames();
        } else if (what < 870) {
            Wheel();
        } else if (what < 885) {
            Place();
        } else if (what < 935) {
            Change();
        } else if (what < 950) {
            Add();
        } else if (what < 965) {
            Both([](ObjectCanvas& host) { gCVSDelSelElement(host.Number); });
        } else if (what < 975) {
            constexpr unsigned int Keys[] = {'E', 'I', 'A', 'S', VK_TAB};
            const unsigned int     key = Keys[Between(0, 4)];
            Both([&](ObjectCanvas& host) { host.Key(key); });
        } else if (what < 985) {
            const int width = Between(200, Width);
            Both([&](ObjectCanvas& host) { host.Resize(width, Height); });
        } else if (what < 995) {
            const bool selectedOnly = Between(0, 1) == 0;
            const int  first = gCVSGenerateLabel(Resting.Number, selectedOnly);
            REQUIRE(first == gCVSGenerateLabel(Awake.Number, selectedOnly));
            const ClassData2DIO<int>& labels = gCVSGetLabelIma(Resting.Number);
            REQUIRE(std::equal(labels.Ptr1D, labels.Ptr1D + labels.Width * labels.Height,
                               gCVSGetLabelIma(Awake.Number).Ptr1D));
        } else {
            const int side = Between(150, ImageSide);
            Both([&](ObjectCanvas& host) { host.ShowGray(side, side, Noise, false); });
        }
        if (Resting.Canvas().Elements.size() > 220)
            Both([](ObjectCanvas& host) {
                while (host.Canvas().Elements.size() > 140)
                    host.Canvas().DeleteAt(host.Canvas().Elements.size() / 2);
            });
    }
};

}

TEST_CASE("objects that rest look, act and are as those that never do, through random events")
{
    for (unsigned seed = 1; seed <= VOSTEL_RESTING_SEEDS; ++seed) {
        CAPTURE(seed);
        Twins(seed).Run(2000);
    }
}

TEST_CASE("of many regions that nobody has in hand a move derives none, and a look derives one")
{
    ObjectCanvas host(0, Width, Height);
    host.ShowFlatGray(ImageSide, ImageSide, 0x40);
    VostelImage& canvas = host.Canvas();
    for (int i = 0; i < 100; ++i) {
        auto polygon = std::make_unique<VostelPolygon>();
        polygon->ImagePoints = {{10.0 + i, 10.0}, {20.0 + i, 10.0}, {15.0 + i, 20.0}};
        canvas.Append(std::move(polygon));
    }
    const VostelObj& object = *canvas.Elements.AsTheyLie()[7];
    host.Press(1, 1);    // all were added as selected ones
    host.Release(1, 1);
    host.Move(1, 1);
    host.Move(1, 1);    // begins with letting those rest that the one before has derived
    CHECK(canvas.Elements.NotResting().empty());
    const CPoint before = object.ClientPoints[0];
    host.Pan(30, 0);
    CHECK(object.ClientPoints[0].x == before.x);
    CHECK(std::as_const(canvas).Elements[7]->ClientPoints[0].x == before.x + 30);
    CHECK(canvas.Elements.NotResting().empty());
    CHECK(canvas.Elements[7] == &object);    // whoever may change it keeps it awake
    CHECK(canvas.Elements.NotResting().size() == 1);
}
