// Canvases that keep what rests as it was drawn, beside canvases with the same objects that draw all of it at
// each paint. Whatever happens to both, their frames are the same.

#include "support/EveryObject.h"
#include "support/ObjectCanvas.h"

#include <vostel.h>

#include <random>
#include <utility>

using namespace vostel;

namespace {

constexpr int Width = 260;
constexpr int Height = 200;
constexpr int ImageWidth = 210;
constexpr int ImageHeight = 170;
constexpr int RestingKinds = 5;    // of EveryClass, the first ones
#ifdef _WIN32
constexpr double FarAway = 3e4;    // Wine draws each dash of a longer line
#else
constexpr double FarAway = 3e7;
#endif

class Twins {
public:
    // So many of ten objects are of kinds that never rest.
    Twins(unsigned seed, int restless) : Random(seed), Restless(restless)
    {
        Both([&](ObjectCanvas& host) {
            host.Canvas().Elements.MostAwake = seed % 2 == 0 ? 0 : ElementList::FewAwake;
            host.Canvas().Kept.Fewest = &host == &Keeping ? 10 : SIZE_MAX;
        });
        ShowImage();
    }
    ~Twins()
    {
        Both([](ObjectCanvas& host) {
            host.Canvas().Elements.MostAwake = ElementList::FewAwake;
            host.Canvas().Kept.Fewest = KeptFrame::FewResting;
            host.Canvas().View.Settings = CanvasSettings();
        });
    }
    Twins(const Twins&) = delete;
    Twins& operator=(const Twins&) = delete;

    void Run(int count)
    {
        while (Keeping.Canvas().Elements.size() < 40)
            Add();
        for (int i = 0; i < count; ++i) {
            CAPTURE(i);
            Event();
            if (Chance(2))
                CompareFrames();
            if (Chance(4))
                CompareFrames();
        }
        CHECK(KeptFrames > count / 6);
        CHECK(PartlyDrawn > count / 15);
        CHECK(Keeping.Desktop.Messages.empty());
    }

private:
    ObjectCanvas Keeping{3, Width, Height};
    ObjectCanvas Plain{4, Width, Height};
    std::mt19937 Random;
    const int    Restless;
    CPoint       At;
    int          ShownRows = ImageHeight;    // of each image one more or less: another one to hold
    int          KeptFrames = 0;
    int          PartlyDrawn = 0;    // of them, with objects in motion

    int Between(int low, int high)
    {
        return low + static_cast<int>(Random() % static_cast<unsigned>(high - low + 1));
    }
    bool Chance(int of) { return Between(1, of) == 1; }

    template <typename Action>
    void Both(Action&& action)
    {
        action(Keeping);
        action(Plain);
    }
    VostelImage& Canvas() { return Keeping.Canvas(); }

    void CompareFrames()
    {
        const Frame frame = Keeping.PaintAndCapture();
        REQUIRE(FrameDifference(frame, Plain.PaintAndCapture()) == "");
        REQUIRE(Canvas().View.SourceRect == Plain.Canvas().View.SourceRect);
        REQUIRE(!Plain.Canvas().Kept.IsTaken());
        KeptFrames += Canvas().Kept.IsTaken();
        PartlyDrawn += Canvas().Kept.IsTaken() && !Canvas().Kept.Shown.IsRectEmpty();
    }

    void ShowImage()
    {
        const int slope = Between(1, 9);
        const int rows = ShownRows = ImageHeight + ImageHeight + 1 - ShownRows;
        Both([&](ObjectCanvas& host) {
            host.ShowFloat(
                ImageWidth, rows, [&](int x, int y) { return Noise(x, y) + slope * y; }, true, false);
        });
    }

    void Add()
    {
        const std::vector<ObjectClass> classes = EveryClass();
        const int                      shown = static_cast<int>(classes.size()) - 2;    // no controls
        const int                      kind =
            Between(1, 10) <= Restless ? Between(RestingKinds, shown - 1) : Between(0, RestingKinds - 1);
        const ObjectClass& made = classes[static_cast<std::size_t>(kind)];
        const std::size_t  count = std::min<std::size_t>(made.Most, made.Fewest + Random() % 5);
        const int          x = Between(-10, ImageWidth + 10), y = Between(-10, ImageHeight + 10);
        const int          reach = Chance(10) ? 120 : 25;
        ImagePoints        points;
        for (std::size_t i = 0; i < count; ++i)
            points.emplace_back(x + Between(-reach, reach) + Between(0, 3) / 4.0, y + Between(-reach, reach));
        if (Chance(25))
            points[0].x = Chance(2) ? FarAway : -2e5;
        const bool         open = Chance(3), ellipse = Chance(4);
        const int          radius = Chance(4) ? Between(0, 15) : 4;
        const unsigned int fill = Chance(4) ? 0x40FF8000u : Chance(8) ? 0xFF00C0C0u : 0u;
        const double       wide = Chance(5) ? Between(1, 9) : 1.0;
        Both([&](ObjectCanvas& host) {
            std::unique_ptr<VostelObj> object = made.Make();
            object->SetOwnerImage(&host.Canvas());
            object->OpenMade = open;
            object->EllipseMode = ellipse;
            object->HandleRadius = radius;
            object->FillColor = fill;
            object->LineWidth = wide;
            object->ImagePoints = points;
            object->StrokeStarts = {0};
            host.Canvas().Append(std::move(object)).SetCanvasView(&host.Canvas().View);
        });
    }

    std::size_t AnyIndex() { return Random() % Canvas().Elements.size(); }

    // About some object's point, or anywhere.
    void Aim()
    {
        const VostelObj& object = *Canvas().Elements.AsTheyLie()[AnyIndex()];
        At = CPoint(Between(-10, Width + 10), Between(-10, Height + 10));
        if (object.ImagePoints.empty() || Chance(6))
            return;
        const auto&  point = object.ImagePoints[Random() % object.ImagePoints.size()];
        const CPoint client = Canvas().View.ImageToClient(point);
        At = CPoint(client.x + Between(-9, 9), client.y + Between(-9, 9));
    }

    void Drag()
    {
        const unsigned int flags = MK_LBUTTON | (Chance(4) ? MK_SHIFT : 0u) | (Chance(9) ? MK_CONTROL : 0u);
        Aim();
        Both([&](ObjectCanvas& host) { host.Press(At.x, At.y, flags); });
        for (int steps = Between(1, 7); steps > 0; --steps) {
            const int reach = Chance(4) ? 90 : 6;
            At = CPoint(At.x + Between(-reach, reach), At.y + Between(-reach, reach));
            Both([&](ObjectCanvas& host) { host.Move(At.x, At.y, flags); });
            if (!Chance(5))
                CompareFrames();
        }
        if (!Chance(6))
            Both([&](ObjectCanvas& host) { host.Release(At.x, At.y); });
    }

    // What a call with an object in hand may do.
    void Change()
    {
        const std::size_t index = AnyIndex();
        const int         what = Between(0, 8);
        const int         v = Between(0, ImageWidth);
        Both([&](ObjectCanvas& host) {
            VostelObj& object = *host.Canvas().Elements[index];
            switch (what) {
            case 0:
                object.Hidden = !object.Hidden;
                break;
            case 1:
                if (!object.ImagePoints.empty())
                    object.ImagePoints[0].x = v;
                break;
            case 2:
                object.HandleRadius = v % 12;
                break;
            case 3:
                object.FillColor = object.FillColor == 0 ? 0x30800000u + static_cast<unsigned int>(v) : 0;
                break;
            case 4:
                object.LineColorIdle = static_cast<COLORREF>(v * 0x010307);
                break;
            case 5:
                object.LineWidth = 1.0 + v % 7;
                break;
            case 6:    // a contrast window of its own
                object.WindowLow = v;
                object.WindowHigh = v % 3 == 0 ? v : v + 200.0;
                break;
            case 7:
                object.Selected = !object.Selected;
                break;
            default:
                host.Canvas().Insert(index / 2, host.Canvas().Detach(index));
            }
        });
    }

    void ChangeSettings()
    {
        const int what = Between(0, 4);
        const int v = Between(0, 3);
        Both([&](ObjectCanvas& host) {
            CanvasSettings& settings = host.Canvas().View.Settings;
            switch (what) {
            case 0:
                settings.Handles = !settings.Handles;
                break;
            case 1:
                settings.Captions = !settings.Captions;
                break;
            case 2:
                settings.English = !settings.English;
                break;
            case 3:
                settings.PixelRatio = 1.0 + v / 4.0;
                host.Canvas().ViewMoved();
                break;
            default:
                settings.UnitsPerPixel = 1.0 + v;
                settings.Unit = v % 2 == 0 ? L"px" : L"mm";
            }
        });
    }

    void MoveView()
    {
        const double scale = Canvas().View.Scale;
        const int    delta = scale > 6.0 ? -120 : scale < 0.3 ? 120 : Chance(2) ? 120 : -120;
        const bool   byNumbers = Chance(2);
        const CPoint centre(Between(90, 170), Between(70, 130));
        const double wanted = Between(1, 12) / 4.0;
        Both([&](ObjectCanvas& host) {
            if (!byNumbers) {
                host.Wheel(centre.x, centre.y, delta);
                return;
            }
            host.Canvas().View.PlaceCentre(wanted, centre.x, centre.y);
            host.Canvas().ViewMoved();
        });
    }

    // What changes the image, or may change it unseen.
    void ChangeImage()
    {
        const int   what = Between(0, 7);
        const float low = static_cast<float>(Between(0, 40)) / 100.0f;
        const int   x = Between(0, ImageWidth - 1), y = Between(0, ImageHeight - 1);
        if (what == 0)
            ShowImage();
        Both([&](ObjectCanvas& host) {
            switch (what) {
            case 1:
            case 2:
                gCVSSetLutPara(host.Number, low, low + 0.5f);
                break;
            case 3:
                gCVSGenerateLabel(host.Number, low < 0.2f);
                break;
            case 4:
                gCVSSetCanvasFastDisplayMode(host.Number, low < 0.2f);
                break;
            case 5:
                if (unsigned int* const pixels = gCVSGetCanvasPixelPtr(host.Number))
                    pixels[y * ImageWidth + x] = 0x00ABCDEF;
                break;
            case 6:
                gCVSSetCanvasColor(host.Number, 0x00203040u + static_cast<unsigned int>(y));
                break;
            default:
                break;
            }
        });
        if (what >= 5) {
            CompareFrames();
            ShowImage();
        }
    }

    // What happens to the client area.
    void ChangeArea()
    {
        const int what = Between(0, 4);
        const int width = Between(150, Width);
        Both([&](ObjectCanvas& host) {
            switch (what) {
            case 0:
            case 1:
                host.Resize(width, Height);
                break;
            case 2: {
                GdiFlush();
                unsigned int* const pixels = gCVSGetClientPixelPtr(host.Number);
                std::fill_n(pixels, host.Window.PixelCount(), 0x00C0FFEEu);
                break;
            }
            case 3:
                gCVSShowContrastCtrl(host.Number, width % 2 == 0);
                gCVSSetContrastCtrlRectPos(host.Number, 10, 10, 120, 20);
                break;
            default:
                SetViewportOrgEx(gCVSGetClientMemDC(host.Number), 0, 0, nullptr);
                gCVSShowProgress(host.Number, width % 2 == 0);
                gCVSSetProgressRectPos(host.Number, 20, 40, 100, 20);
            }
        });
        if (what == 3 || what == 4) {
            CompareFrames();
            CompareFrames();
            Both([&](ObjectCanvas& host) {
                gCVSShowContrastCtrl(host.Number, false);
                gCVSShowProgress(host.Number, false);
            });
        }
        if (what >= 2 && !Chance(4))
            Both([](ObjectCanvas& host) { host.Resize(Width, Height); });
    }

    void Event()
    {
        const int what = Between(0, 99);
        if (what < 45) {
            Drag();
        } else if (what < 53) {
            Aim();
            Both([&](ObjectCanvas& host) { host.Move(At.x, At.y); });
        } else if (what < 58) {
            MoveView();
        } else if (what < 68) {
            ChangeSettings();
        } else if (what < 78) {
            Change();
        } else if (what < 86) {
            ChangeImage();
        } else if (what < 89) {
            ChangeArea();
        } else if (what < 95) {
            Add();
        } else if (what < 98) {
            Both([](ObjectCanvas& host) { gCVSDelSelElement(host.Number); });
        } else {
            const unsigned int key = Chance(2) ? 'E' : 'I';
            Both([&](ObjectCanvas& host) { host.Key(key); });
        }
        if (Canvas().Elements.size() > 70 || (Chance(60) && Canvas().Elements.size() > 30))
            Both([](ObjectCanvas& host) {
                while (host.Canvas().Elements.size() > 30)
                    host.Canvas().DeleteAt(host.Canvas().Elements.size() / 2);
            });
        while (Canvas().Elements.size() < 20)
            Add();
    }
};

// Polygons in rows, of which none is in hand after it was painted.
void AddResting(ObjectCanvas& host, int count)
{
    for (int i = 0; i < count; ++i) {
        auto         polygon = std::make_unique<VostelPolygon>();
        const double x = 5.0 + i % 20 * 10, y = 5.0 + i / 20 * 10;
        polygon->ImagePoints = {{x, y}, {x + 9, y}, {x + 4, y + 9}};
        host.Canvas().Append(std::move(polygon));
    }
    host.Press(-50, -50);
    host.Release(-50, -50);
    for (int i = 0; i < 3; ++i) {
        host.Move(1, 1);
        host.Paint();
    }
}

}

TEST_CASE("frames with what rests as it was drawn are those of whole paints, through random events")
{
    for (unsigned seed = 1; seed <= VOSTEL_KEPT_SEEDS; ++seed) {
        CAPTURE(seed);
        Twins(seed, 0).Run(300);
        Twins(seed + 1000, 1).Run(300);
    }
}

TEST_CASE("frames of few objects are not kept, and those of many are as long as they are many")
{
    ObjectCanvas host(0, Width, Height);
    host.ShowFlatGray(ImageWidth, ImageHeight, 0x40);
    KeptFrame& kept = host.Canvas().Kept;
    AddResting(host, 200);
    CHECK_FALSE(kept.IsTaken());
    AddResting(host, 100);
    CHECK(kept.IsTaken());
    gCVSDelAllElement(host.Number);
    host.Paint();
    CHECK_FALSE(kept.IsTaken());
}

TEST_CASE("a host that holds the pixels of the image sees what it writes there")
{
    ObjectCanvas host(0, Width, Height);
    host.ShowFlatGray(ImageWidth, ImageHeight, 0x40);
    AddResting(host, 300);
    CHECK(host.Canvas().Kept.IsTaken());
    unsigned int* const pixels = gCVSGetCanvasPixelPtr(host.Number);
    host.Paint();
    std::fill_n(pixels, ImageWidth * ImageHeight, 0x00102030u);
    host.Paint();
    const CRect region = host.Region();
    CHECK(host.Pixel(region.left + 1, region.top + 1) == 0x102030);
}

TEST_CASE("looking at objects by number leaves the frame as it is kept, and a changed one is drawn as it is")
{
    ObjectCanvas keeping(3, Width, Height), plain(4, Width, Height);
    plain.Canvas().Kept.Fewest = SIZE_MAX;
    for (ObjectCanvas* const host : {&keeping, &plain}) {
        host->ShowFlatGray(ImageWidth, ImageHeight, 0x40);
        AddResting(*host, 300);
    }
    const auto objectsOf = [](const ObjectCanvas& host) {
        std::vector<VostelObject> list(300);
        std::size_t               count = 0;
        REQUIRE(vostel_object_list(host.Number, list.data(), list.size(), &count) == VOSTEL_OK);
        REQUIRE(count == list.size());
        return list;
    };
    const auto look = [](const ObjectCanvas& host, VostelObject object) {
        VostelObjectInfo info = {};
        info.size = sizeof info;
        VostelMeasures measures = {};
        measures.size = sizeof measures;
        VostelStyle style = {};
        style.size = sizeof style;
        VostelPoint points[3];
        char        text[64];
        std::size_t count = 0;
        CHECK(vostel_object_get(host.Number, object, &info) == VOSTEL_OK);
        CHECK(vostel_object_style(host.Number, object, &style) == VOSTEL_OK);
        CHECK(vostel_object_points(host.Number, object, points, 3, &count) == VOSTEL_OK);
        CHECK(vostel_object_name(host.Number, object, text, sizeof text, &count) == VOSTEL_OK);
        CHECK(vostel_measure(host.Number, object, 0, &measures) == VOSTEL_OK);
    };
    const std::vector<VostelObject> kept = objectsOf(keeping), drawn = objectsOf(plain);
    for (int i = 0; i < 3; ++i) {    // whoever first asks for numbers wakes all
        keeping.Move(1, 1);
        keeping.Paint();
    }
    REQUIRE(keeping.Canvas().Kept.IsTaken());
    const std::uint64_t resting = keeping.Canvas().Elements.RestingStamp();
    for (const VostelObject object : kept)
        look(keeping, object);
    keeping.Paint();
    CHECK(keeping.Canvas().Elements.RestingStamp() == resting);
    CHECK(keeping.Canvas().Kept.IsTaken());

    Frame before = keeping.PaintAndCapture();
    for (std::size_t i = 7; i < kept.size(); i += 41) {
        CAPTURE(i);
        const double      shift = static_cast<double>(i % 5);
        const VostelPoint moved[] = {{shift + 60, 60}, {shift + 90, 65}, {shift + 70, 95}};
        look(keeping, kept[i]);
        REQUIRE(vostel_object_set_points(keeping.Number, kept[i], moved, 3) == VOSTEL_OK);
        REQUIRE(vostel_object_set_points(plain.Number, drawn[i], moved, 3) == VOSTEL_OK);
        look(keeping, kept[i]);
        const Frame after = keeping.PaintAndCapture();
        CHECK(FrameDifference(after, plain.PaintAndCapture()) == "");
        CHECK(FrameDifference(after, before) != "");
        before = after;
    }
    CHECK_FALSE(plain.Canvas().Kept.IsTaken());
    plain.Canvas().Kept.Fewest = KeptFrame::FewResting;
}
