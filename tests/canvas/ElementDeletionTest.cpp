// What becomes of objects that are taken out of a canvas: their numbers, their owners, and deletion by a host
// in the middle of an event.

#include "canvas/exports/CanvasTable.h"
#include "support/HostCanvas.h"
#include "support/ProbeObject.h"

#include <memory>
#include <new>
#include <random>

using namespace vostel;

namespace {

// A canvas of its own, so that its end can be watched.
struct OwnCanvas {
    std::unique_ptr<VostelImage> Canvas = std::make_unique<VostelImage>();
    std::vector<std::string>     Log;

    ~OwnCanvas()
    {
        Canvas.reset();
        CHECK(Probe::Alive == 0);
    }

    Probe* Add(const char* name, int kind = OverlayRect, CRect hit = CRect())
    {
        Probe* probe = new Probe(name, Log, hit, kind);
        probe->SerialNo = Canvas->RegionSerial++;
        Canvas->ElementSerial++;
        if (int* const count = CountOf(kind))
            probe->TypeSerial = (*count)++;
        Canvas->Elements.push_back(probe);
        Canvas->SelIndex = static_cast<int>(Canvas->Elements.size()) - 1;
        probe->Selected = true;
        return probe;
    }
    int* CountOf(int kind)
    {
        switch (kind) {
        case 0:
            return &Canvas->RectCount;
        case 1:
            return &Canvas->CustomRectCount;
        case 3:
            return &Canvas->PolygonCount;
        case 4:
            return &Canvas->SplineCount;
        case 5:
            return &Canvas->OneStrokeCount;
        default:
            return nullptr;
        }
    }
    std::vector<std::string> Names() const
    {
        std::vector<std::string> names;
        for (const VostelObj* element : Canvas->Elements)
            names.push_back(static_cast<const Probe*>(element)->Name);
        return names;
    }
};

using Lines = std::vector<std::string>;

}

TEST_CASE("deleting the selected object closes the gap in the list and in the numbers")
{
    OwnCanvas host;
    host.Add("a", 0);
    host.Add("b", 3);
    Probe* c = host.Add("c", 0);
    Probe* d = host.Add("d", 3);
    Probe* e = host.Add("e", 0);
    host.Canvas->SelIndex = 1;
    d->Selected = e->Selected = c->Selected = false;
    host.Canvas->DeleteSelected();
    CHECK(host.Names() == Lines{"a", "c", "d", "e"});
    CHECK(c->SerialNo == 1);
    CHECK(d->SerialNo == 2);
    CHECK(e->SerialNo == 3);
    CHECK(c->TypeSerial == 1);    // of another kind
    CHECK(d->TypeSerial == 0);
    CHECK(e->TypeSerial == 2);
    CHECK(host.Canvas->PolygonCount == 1);
    CHECK(host.Canvas->RectCount == 3);
    CHECK(host.Canvas->RegionSerial == 4);
    CHECK(host.Canvas->ElementSerial == 5);
    CHECK(host.Canvas->SelIndex == 0);
    CHECK_FALSE(c->Selected);
}

TEST_CASE("deleting the first object selects none, deleting the last selects the one before it")
{
    OwnCanvas host;
    host.Add("a");
    host.Add("b");
    host.Canvas->SelIndex = 0;
    host.Canvas->DeleteSelected();
    CHECK(host.Canvas->SelIndex == -1);
    CHECK(host.Names() == Lines{"b"});
    host.Canvas->DeleteSelected();    // none is selected
    CHECK(host.Names() == Lines{"b"});
    host.Add("c");
    host.Canvas->DeleteSelected();
    CHECK(host.Canvas->SelIndex == 0);
    CHECK(host.Names() == Lines{"b"});
    host.Canvas->DeleteSelected();
    CHECK(host.Names().empty());
    CHECK(host.Canvas->SelIndex == -1);
}

TEST_CASE("each region kind lowers its own counter, other kinds none, all lower RegionSerial")
{
    for (int kind = -1; kind <= 20; ++kind) {
        CAPTURE(kind);
        OwnCanvas    host;
        VostelImage& canvas = *host.Canvas;
        int* const   counters[] = {&canvas.RectCount,    &canvas.CustomRectCount, &canvas.PolygonCount,
                                   &canvas.SplineCount,  &canvas.OneStrokeCount,  &canvas.RegionSerial,
                                   &canvas.MStrokeCount, &canvas.TextCount,       &canvas.MeasureLineCount,
                                   &canvas.Angle3Count,  &canvas.Angle4Count,     &canvas.SpareCount,
                                   &canvas.ElementSerial};
        host.Add("a", kind);
        for (int* counter : counters)
            *counter = 10;
        int* const own = host.CountOf(kind);
        canvas.DeleteSelected();
        for (int* counter : counters)
            CHECK(*counter == (counter == own || counter == &canvas.RegionSerial ? 9 : 10));
    }
}

TEST_CASE("deleting all zeroes every counter and leaves SelIndex stale")
{
    OwnCanvas    host;
    VostelImage& canvas = *host.Canvas;
    host.Add("a");
    host.Add("b");
    int* const counters[] = {&canvas.RectCount,    &canvas.CustomRectCount, &canvas.PolygonCount,
                             &canvas.SplineCount,  &canvas.OneStrokeCount,  &canvas.RegionSerial,
                             &canvas.MStrokeCount, &canvas.TextCount,       &canvas.MeasureLineCount,
                             &canvas.Angle3Count,  &canvas.Angle4Count,     &canvas.SpareCount,
                             &canvas.ElementSerial};
    for (int* counter : counters)
        *counter = 7;
    canvas.DeleteAll();
    for (int* counter : counters)
        CHECK(*counter == 0);
    CHECK(canvas.Elements.empty());
    CHECK(canvas.Elements.capacity() == 0);
    CHECK(canvas.SelIndex == 1);
    CHECK(Probe::Alive == 0);
    // The stale index harms no event and no further deletion.
    canvas.OnLButtonDown(MK_SHIFT, CPoint(1, 1));
    canvas.OnMouseMove(MK_SHIFT, CPoint(1, 1));
    canvas.OnLButtonUp(MK_SHIFT, CPoint(1, 1));
    canvas.OnMouseWheel(0, 1, CPoint(1, 1));
    canvas.DeleteSelected();
    CHECK(canvas.SelIndex == 1);
    CHECK(canvas.RegionSerial == 0);
}

TEST_CASE("key C deletes all objects, so that none gets the key")
{
    OwnCanvas host;
    host.Add("a");
    host.Add("b");
    host.Canvas->OnKeyDown('c', 1, 0);    // no such virtual key
    CHECK(host.Log == Lines{"a key 99 1 0", "b key 99 1 0"});
    host.Log.clear();
    host.Canvas->OnKeyDown(0x10043, 1, 0);    // the whole value counts
    CHECK(host.Names() == Lines{"a", "b"});
    host.Log.clear();
    host.Canvas->OnKeyDown('C', 1, 0);
    CHECK(host.Names().empty());
    CHECK(host.Log.empty());
    CHECK(Probe::Alive == 0);
}

TEST_CASE("key R deletes the selected object, and the others get the key")
{
    OwnCanvas host;
    host.Add("a");
    host.Add("b");
    host.Add("c");
    host.Canvas->SelIndex = 1;
    host.Canvas->OnKeyDown('R', 1, 0);
    CHECK(host.Names() == Lines{"a", "c"});
    CHECK(host.Log == Lines{"a key 82 1 0", "c key 82 1 0"});
}

TEST_CASE("a deleted object lives until all are deleted or the canvas ends")
{
    OwnCanvas host;
    host.Add("a");
    Probe* b = host.Add("b");
    host.Canvas->DeleteSelected();
    CHECK(Probe::Alive == 2);
    b->SerialNo = 17;    // a host may still hold it
    host.Canvas->DeleteAll();
    CHECK(Probe::Alive == 0);

    host.Add("c");
    host.Canvas->DeleteSelected();
    CHECK(Probe::Alive == 1);
    host.Canvas.reset();
    CHECK(Probe::Alive == 0);
}

TEST_CASE("a canvas that ends destroys what is on it")
{
    OwnCanvas host;
    for (int i = 0; i < 10; ++i)
        host.Add("a");
    CHECK(Probe::Alive == 10);
    host.Canvas.reset();
    CHECK(Probe::Alive == 0);
}

TEST_CASE("a new image deletes objects if asked, a file always, also when its dialog is cancelled")
{
    TessikDialogs dialogs;
    dialogs.ImaLoadPara = [](tagZEKImaLoadPara&) { return false; };
    const TestDialogs            answers(dialogs);
    HostCanvas                   host(0, 50, 50);
    std::vector<std::string>     log;
    ClassData2DIO<unsigned char> gray;
    ClassData2DIO<float>         raw;
    FillPlane(gray, 3, 3, [](int, int) { return 1; });
    FillPlane(raw, 3, 3, [](int x, int) { return x; });
    const auto shows = [&](auto&& show) {
        gCVSDelAllElement(0);
        gCanvasTable[0].Elements.push_back(new Probe("a", log));
        show();
        return Probe::Alive;
    };
    for (const bool clear : {false, true}) {
        CAPTURE(clear);
        const int left = clear ? 0 : 1;
        CHECK(shows([&] { gCVSShowUCGray(0, gray, clear); }) == left);
        CHECK(shows([&] { gCVSShowUCGray(0, gray.Ptr1D, 3, 3, clear); }) == left);
        CHECK(shows([&] { gCVSShowUCColor(0, gray, gray, gray, clear); }) == left);
        CHECK(shows([&] { gCVSShowUCColor(0, gray.Ptr1D, gray.Ptr1D, gray.Ptr1D, 3, 3, clear); }) == left);
        CHECK(shows([&] { gCVSShowRawFloat(0, raw, true, clear); }) == left);
        CHECK(shows([&] { gCVSShowRawFloat(0, raw.Ptr1D, 3, 3, true, clear); }) == left);
    }
    CHECK(shows([&] { gCVSPrepareCanvas(0, 2, 2); }) == 0);
    CString rawPath(L"nothing.raw");
    CString picturePath(L"nothing.png");
    CHECK(shows([&] { gCVSReadFile(0, rawPath, true); }) == 0);
    CHECK(shows([&] { gCVSReadFile(0, picturePath, true); }) == 0);
    CHECK(shows([&] { gCVSSetLutPara(0, 0.1f, 0.9f); }) == 1);
    CHECK(shows([&] { gCVSDelAllElement(0); }) == 0);
    CHECK(shows([&] {
              gCanvasTable[0].SelIndex = 0;
              gCVSDelSelElement(0);
          }) == 1);
    CHECK(gCanvasTable[0].Elements.empty());
    gCVSDelAllElement(0);
    CHECK(Probe::Alive == 0);
}

TEST_CASE("a host may delete all objects, or the selected one, while any event is on its way")
{
    for (const char* event : {"hit?", "down", "up", "move", "key", "view", "draw", "refresh"}) {
        for (const int kind : {0, 14, 15}) {
            for (int actor = 0; actor < 4; ++actor) {
                for (const int deletion : {0, 1, 2, 3}) {
                    CAPTURE(event);
                    CAPTURE(kind);
                    CAPTURE(actor);
                    CAPTURE(deletion);
                    OwnCanvas    host;
                    VostelImage& canvas = *host.Canvas;
                    CRect        client(0, 0, 30, 30);
                    canvas.SetClient(client, nullptr);
                    Probe* probes[4];
                    for (int i = 0; i < 4; ++i)
                        probes[i] = host.Add("p", i == 2 ? kind : 0, CRect(0, 0, 10, 10));
                    int told = 0;
                    probes[actor]->OnEvent = [&](const std::string& what) {
                        if (what.find(event) != 0)
                            return;
                        ++told;
                        switch (deletion) {
                        case 0:
                            canvas.DeleteAll();
                            break;
                        case 1:
                            canvas.DeleteSelected();
                            break;
                        case 2:
                            canvas.DeleteSelected();
                            canvas.DeleteAll();
                            host.Add("new", 14, CRect(0, 0, 10, 10));
                            break;
                        default:
                            canvas.OnKeyDown('C', 1, 0);    // an event within the event
                            break;
                        }
                    };
                    canvas.SelIndex = actor;
                    canvas.OnLButtonDown(MK_SHIFT, CPoint(5, 5));
                    canvas.OnMouseMove(0, CPoint(5, 5));
                    canvas.OnLButtonUp(0, CPoint(5, 5));
                    canvas.OnLButtonDown(0, CPoint(5, 5));
                    canvas.OnMouseMove(0, CPoint(5, 5));
                    canvas.OnLButtonUp(0, CPoint(5, 5));
                    canvas.OnMouseWheel(0, 1, CPoint(5, 5));
                    canvas.OnKeyDown('Q', 1, 0);
                    canvas.PaintAll();
                    canvas.SetClient(client, nullptr);
                    canvas.OnMouseMove(0, CPoint(6, 6));
                    CHECK((told > 0 || std::string(event) == "hit?"));
                }
            }
        }
    }
}

TEST_CASE("a host may delete all objects while a new window or image hands them the view")
{
    for (const char* event : {"view", "refresh"}) {
        OwnCanvas host;
        Probe*    a = host.Add("a");
        host.Add("b");
        a->OnEvent = [&](const std::string& what) {
            if (what == event)
                host.Canvas->DeleteAll();
        };
        host.Canvas->SetClient(CRect(0, 0, 9, 9), nullptr);
        CHECK(host.Names().empty());
        CHECK(Probe::Alive == 0);
    }
}

TEST_CASE("what a host deletes in the middle of an event is destroyed when the event is over")
{
    OwnCanvas host;
    Probe*    a = host.Add("a", 14);
    int       aliveInside = -1;
    a->OnEvent = [&](const std::string&) {
        host.Canvas->DeleteAll();
        aliveInside = Probe::Alive;
    };
    host.Canvas->OnKeyDown('Q', 1, 0);
    CHECK(aliveInside == 1);
    CHECK(Probe::Alive == 0);
}

TEST_CASE("ten thousand objects are routed to, numbered and destroyed")
{
    OwnCanvas host;
    CRect     client(0, 0, 30, 30);
    host.Canvas->SetClient(client, nullptr);
    for (int i = 0; i < 10000; ++i)
        host.Add("a", i % 6, i == 5000 ? CRect(0, 0, 10, 10) : CRect());
    host.Canvas->OnLButtonDown(0, CPoint(5, 5));
    CHECK(host.Canvas->SelIndex == 5000);
    CHECK(host.Log.size() == 5001);    // 5000 tests and a press
    host.Log.clear();
    host.Canvas->OnMouseMove(0, CPoint(5, 5));
    CHECK(host.Log.size() == 10001);
    host.Canvas->PaintAll();
    for (int i = 0; i < 1000; ++i)
        host.Canvas->DeleteSelected();
    CHECK(host.Canvas->Elements.size() == 9000);
    CHECK(host.Canvas->Elements[4001]->SerialNo == 4001);
    CHECK(host.Canvas->Elements[8999]->SerialNo == 8999);
    CHECK(Probe::Alive == 10000);
    host.Canvas->DeleteAll();
    CHECK(Probe::Alive == 0);
}

TEST_CASE("after random additions and deletions the regions are numbered without a gap")
{
    for (unsigned int seed = 1; seed <= 20; ++seed) {
        CAPTURE(seed);
        std::mt19937 random(seed);
        OwnCanvas    host;
        const int    kinds[] = {0, 1, 3, 4, 5};
        for (int step = 0; step < 200; ++step) {
            if (random() % 3 != 0) {
                host.Add("a", kinds[random() % 5]);
            } else if (!host.Canvas->Elements.empty()) {
                host.Canvas->SelIndex = static_cast<int>(random() % host.Canvas->Elements.size());
                host.Canvas->DeleteSelected();
            }
            int counts[6] = {};
            for (std::size_t i = 0; i < host.Canvas->Elements.size(); ++i) {
                const VostelObj& element = *host.Canvas->Elements[i];
                if (element.SerialNo != static_cast<int>(i) ||
                    element.TypeSerial != counts[element.TypeCode]++)
                    FAIL("step " << step << ": object " << i << " has number " << element.SerialNo);
            }
            CHECK(host.Canvas->RegionSerial == static_cast<int>(host.Canvas->Elements.size()));
        }
    }
}

TEST_CASE(
    "labels with objects that are not regions: none without a selection, ones only where nothing is selected")
{
    OwnCanvas    host;
    VostelImage& canvas = *host.Canvas;
    canvas.PrepareImage(4, 3, true);
    Probe*     text = host.Add("text", 6);
    const auto all = [&](int value) {
        for (int i = 0; i < 12; ++i)
            if (canvas.LabelIma.Ptr1D[i] != value)
                return false;
        return true;
    };
    text->Selected = false;
    CHECK(canvas.GenerateLabel(false) == 1);
    CHECK(all(0));
    CHECK(canvas.GenerateLabel(true) == 1);
    CHECK(all(1));
    text->Selected = true;
    CHECK(canvas.GenerateLabel(false) == 1);
    CHECK(all(0));
    CHECK(canvas.GenerateLabel(true) == 1);
    CHECK(all(0));
    canvas.DeleteSelected();
    CHECK(canvas.GenerateLabel(false) == 1);
    CHECK(all(1));
}

TEST_CASE("while an object is selected a contrast change touches its region only")
{
    OwnCanvas            host;
    VostelImage&         canvas = *host.Canvas;
    ClassData2DIO<float> data;
    FillPlane(data, 4, 3, [](int x, int y) { return 4 * y + x; });
    canvas.ShowRaw(data, true, true);
    Probe*             text = host.Add("text", 6);    // it has no region
    const unsigned int before = canvas.CanvasSurface.Pixels[1];
    canvas.SetLutPara(0.9f, 1.0f);
    CHECK(canvas.CanvasSurface.Pixels[1] == before);
    text->Selected = false;
    canvas.SetLutPara(0.9f, 1.0f);
    CHECK(canvas.CanvasSurface.Pixels[1] != before);
}
