// Undo and redo, over calls of both interfaces and gestures.

#include "common/MemoryBitmap.h"
#include "support/OpenCanvas.h"

#include <VostelObj.h>

#include <algorithm>
#include <random>

namespace {

const VostelPoint Triangle[] = {{10, 10}, {90, 12}, {50, 80}};

VostelObject AddTriangle(int32_t canvas)
{
    VostelObject object = 0;
    REQUIRE(vostel_object_add(canvas, VOSTEL_POLYGON, Triangle, 3, &object) == VOSTEL_OK);
    return object;
}

std::string StepName(int32_t canvas, int32_t step)
{
    return TextOf([&](char* buffer, std::size_t capacity, std::size_t* length) {
        return vostel_history_name(canvas, step, buffer, capacity, length);
    });
}

void ShowImage(int32_t canvas, uint32_t flags)
{
    const std::vector<unsigned char> gray(200 * 150, 100);
    REQUIRE(vostel_image_show(canvas, VOSTEL_U8, gray.data(), 200, 150, 0, flags) == VOSTEL_OK);
}

// Random calls of both interfaces, some of which make no sense where they come.
class Storm {
public:
    Storm(int32_t canvas, unsigned seed) : Number(canvas), Random(seed) {}

    void Call()
    {
        switch (Upto(24)) {
        case 0:
        case 1:
        case 2:
            Add();
            break;
        case 3:
            vostel_object_remove(Number, Any());
            break;
        case 4:
            vostel_object_set_name(Number, Any(), Upto(2) == 0 ? "孔" : "bore");
            break;
        case 5:
            vostel_object_set_label(Number, Any(), 1 + Upto(9));
            break;
        case 6:
            vostel_object_set_flags(Number, Any(), static_cast<uint32_t>(Upto(16)));
            break;
        case 7:
            vostel_object_move_to(Number, Any(), static_cast<std::size_t>(Upto(12)));
            break;
        case 8:
            SetStyle();
            break;
        case 9:
            SetPoints();
            break;
        case 10:
            Group();
            break;
        case 11:
            vostel_object_set_text(Number, Any(), Upto(2) == 0 ? "one" : "a longer text");
            break;
        case 12:
            AddByGesture();
            break;
        case 13:
            gCVSDelSelElement(Number);
            break;
        case 14:
            if (Upto(40) == 0)
                gCVSDelAllElement(Number);
            break;
        case 15:
            Key();
            break;
        case 16:
            vostel_set_scale(Number, 0.25 * (1 + Upto(8)), Upto(2) == 0 ? "mm" : "px");
            break;
        case 17:
            SelectSome();
            break;
        case 18:
            Contrast();
            break;
        case 19:
            Look();
            break;
        case 20:
            ShowImage(Number, VOSTEL_KEEP_OBJECTS | VOSTEL_KEEP_CONTRAST | VOSTEL_KEEP_VIEW);
            break;
        case 21:
            BackAndForth();
            break;
        case 22:
            DrawNext();
            break;
        default:
            Gesture();
            break;
        }
    }

private:
    int32_t      Number;
    std::mt19937 Random;

    int          Upto(int end) { return static_cast<int>(Random() % static_cast<unsigned>(end)); }
    uint32_t     AnyColor() { return static_cast<uint32_t>(Random()); }
    VostelObject Any()
    {
        const std::vector<VostelObject> all = ObjectsOf(Number);
        return all.empty() ? 0 : all[Random() % all.size()];
    }
    VostelPoint Point() { return {Upto(2000) / 10.0, Upto(1500) / 10.0}; }

    void Add()
    {
        static const struct {
            VostelKind Kind;
            int        Points;
        } kinds[] = {{VOSTEL_RECTANGLE, 2},    {VOSTEL_POLYGON, 5},    {VOSTEL_SPLINE, 6},
                     {VOSTEL_FREE_REGION, 9},  {VOSTEL_TEXT, 1},       {VOSTEL_LENGTH, 2},
                     {VOSTEL_FREE_STROKES, 4}, {VOSTEL_ANGLE, 3},      {VOSTEL_ANGLE_LINES, 4},
                     {VOSTEL_PANEL, 1},        {VOSTEL_NEIGHBOURS, 1}, {VOSTEL_PROFILE, 2},
                     {VOSTEL_POINTS, 3},       {VOSTEL_POLYLINE, 4},   {VOSTEL_ARROW, 2}};
        const auto&              chosen = kinds[Random() % std::size(kinds)];
        std::vector<VostelPoint> points;
        for (int i = 0; i < chosen.Points; ++i)
            points.push_back(Point());
        VostelObject object = 0;
        CAPTURE(chosen.Kind);
        CHECK(vostel_object_add(Number, chosen.Kind, points.data(), points.size(), &object) == VOSTEL_OK);
    }
    void SetPoints()
    {
        const VostelObject object = Any();
        std::size_t        count = 0;
        if (vostel_object_points(Number, object, nullptr, 0, &count) != VOSTEL_OK)
            return;
        std::vector<VostelPoint> points;
        for (std::size_t i = 0; i < count; ++i)
            points.push_back(Point());
        vostel_object_set_points(Number, object, points.data(), count);
    }
    void SetStyle()
    {
        VostelStyle style = {};
        style.size = sizeof style;
        const VostelObject object = Any();
        if (vostel_object_style(Number, object, &style) != VOSTEL_OK)
            return;
        style.line_color = Random() & 0xFFFFFF;
        style.line_width = 1.0 + Upto(4);
        style.fill_color = Random() & 0xFFFFFFFF;
        CHECK(vostel_object_set_style(Number, object, &style) == VOSTEL_OK);
    }
    void Group()
    {
        CHECK(vostel_history_begin(Number, "several") == VOSTEL_OK);
        Add();
        SetPoints();
        vostel_object_remove(Number, Any());
        SetStyle();
        CHECK(vostel_history_end(Number) == VOSTEL_OK);
    }
    void AddByGesture()
    {
        static void (*const add[])(int) = {gCVSAddMRectangle,  gCVSAddPoly,
                                           gCVSAddSpline,      gCVSAddFreeRegion,
                                           gCVSAddFreeStroke,  gCVSAddMeasureAngle3Pts,
                                           gCVSAddLineProfile, gCVSAddMeasureAngle4Pts};
        if (Upto(6) == 0)
            gCVSAddMeasureLine(Number, 1.0);
        else
            add[Random() % std::size(add)](Number);
        for (int i = Upto(5); i-- > 0;)
            Drag(MK_SHIFT);
    }
    void Gesture() { Drag(Upto(4) == 0 ? MK_SHIFT : 0); }
    void Drag(unsigned flags)
    {
        CPoint at(Upto(300), Upto(200));
        gCVSOnLButtonDown(Number, flags | MK_LBUTTON, at);
        for (int i = Upto(4); i-- > 0;) {
            at = CPoint(at.x + Upto(21) - 10, at.y + Upto(21) - 10);
            gCVSOnMouseMove(Number, flags | MK_LBUTTON, at);
        }
        gCVSOnLButtonUp(Number, flags, at);
    }
    void Key() { CHECK(vostel_event_key(Number, static_cast<uint32_t>("ADERZ"[Upto(5)]), 0) == VOSTEL_OK); }
    void Contrast()
    {
        const double low = Upto(200);
        CHECK(vostel_contrast_set(Number, low, low + 1 + Upto(50)) == VOSTEL_OK);
        CHECK(vostel_contrast_gamma(Number, 0.5 + Upto(3)) == VOSTEL_OK);
        CHECK(vostel_contrast_marks(Number, AnyColor(), AnyColor(), AnyColor()) == VOSTEL_OK);
        const VostelObject region = Any();
        if (Upto(3) == 0)
            vostel_contrast_of_object(Number, region, low, low + Upto(50));
        CHECK(vostel_contrast_map(Number, Upto(2) == 0 ? "fire" : "gray") == VOSTEL_OK);
    }
    void Look()
    {
        CHECK(vostel_view_zoom(Number, 0.8 + 0.1 * Upto(6), Upto(300), Upto(200)) == VOSTEL_OK);
        if (Upto(4) == 0)
            CHECK(vostel_view_fit(Number) == VOSTEL_OK);
        vostel_view_set_smooth(Number, Upto(2));
        vostel_canvas_set_language(Number, Upto(2) == 0 ? "en" : "zh");
    }
    // What is done next gives up what could be redone.
    void BackAndForth()
    {
        for (int i = Upto(4); i-- > 0;)
            vostel_undo(Number);
        for (int i = Upto(4); i-- > 0;)
            vostel_redo(Number);
    }
    void DrawNext()
    {
        static const VostelKind kinds[] = {VOSTEL_RECTANGLE, VOSTEL_POLYGON,  VOSTEL_SPLINE,
                                           VOSTEL_LENGTH,    VOSTEL_POLYLINE, VOSTEL_POINTS};
        VostelObject            object = 0;
        CHECK(vostel_draw_next(Number, kinds[Random() % std::size(kinds)], &object) == VOSTEL_OK);
        for (int i = Upto(5); i-- > 0;) {
            const double x = Upto(3000) / 10.0, y = Upto(2000) / 10.0;
            vostel_event_press(Number, x, y, VOSTEL_SHIFT);
            vostel_event_move(Number, x + Upto(9), y + Upto(9), VOSTEL_SHIFT | VOSTEL_LEFT_BUTTON);
            vostel_event_release(Number, x, y, VOSTEL_SHIFT);
        }
    }
    void SelectSome()
    {
        const VostelObject chosen[] = {Any()};
        vostel_select(Number, chosen, static_cast<std::size_t>(Upto(2)));
    }
};

// In the same view, as after the first image.
std::vector<uint32_t> SettledFrameOf(int32_t canvas)
{
    const VostelView view = {sizeof view, 1.0, 50.0, 25.0};
    REQUIRE(vostel_view_set(canvas, &view) == VOSTEL_OK);
    REQUIRE(vostel_view_set_smooth(canvas, 0) == VOSTEL_OK);
    REQUIRE(vostel_canvas_set_language(canvas, "zh") == VOSTEL_OK);
    return FrameOf(canvas);
}

int DifferentPixels(const std::vector<uint32_t>& a, const std::vector<uint32_t>& b)
{
    int different = 0;
    for (std::size_t i = 0; i < a.size(); ++i)
        different += a[i] != b[i] ? 1 : 0;
    return a.size() == b.size() ? different : -1;
}

int UndoAll(int32_t canvas)
{
    int steps = 0;
    while (vostel_undo(canvas) == VOSTEL_OK)
        ++steps;
    return steps;
}

int RedoAll(int32_t canvas)
{
    int steps = 0;
    while (vostel_redo(canvas) == VOSTEL_OK)
        ++steps;
    return steps;
}

}

TEST_CASE("each change is a step of its own, with a name")
{
    const OpenCanvas   canvas;
    const std::string  empty = StateOf(canvas.Number);
    const VostelObject object = AddTriangle(canvas.Number);
    CHECK(StepName(canvas.Number, -1) == "Add polygon");
    const std::string added = StateOf(canvas.Number);
    CHECK(vostel_object_set_name(canvas.Number, object, "bore") == VOSTEL_OK);
    CHECK(vostel_object_set_name(canvas.Number, object, "bore") == VOSTEL_OK);    // changes nothing
    CHECK(HistoryOf(canvas.Number).undo_count == 2);
    const std::string named = StateOf(canvas.Number);

    CHECK(vostel_undo(canvas.Number) == VOSTEL_OK);
    CHECK(StateOf(canvas.Number) == added);
    CHECK(vostel_undo(canvas.Number) == VOSTEL_OK);
    CHECK(StateOf(canvas.Number) == empty);
    CHECK(vostel_undo(canvas.Number) == VOSTEL_NOT_FOUND);
    CHECK(StepName(canvas.Number, 1) == "Add polygon");
    CHECK(vostel_redo(canvas.Number) == VOSTEL_OK);
    CHECK(ObjectsOf(canvas.Number) == std::vector<VostelObject>{object});
    CHECK(vostel_redo(canvas.Number) == VOSTEL_OK);
    CHECK(StateOf(canvas.Number) == named);
    CHECK(vostel_redo(canvas.Number) == VOSTEL_NOT_FOUND);
}

TEST_CASE("a begin and an end make one step, and nest")
{
    const OpenCanvas canvas;
    CHECK(vostel_history_end(canvas.Number) == VOSTEL_NOT_FOUND);
    CHECK(vostel_history_begin(canvas.Number, "move all") == VOSTEL_OK);
    AddTriangle(canvas.Number);
    CHECK(vostel_history_begin(canvas.Number, "inner") == VOSTEL_OK);
    AddTriangle(canvas.Number);
    CHECK(vostel_undo(canvas.Number) == VOSTEL_INVALID_ARGUMENT);
    CHECK(vostel_history_end(canvas.Number) == VOSTEL_OK);
    CHECK(HistoryOf(canvas.Number).undo_count == 0);
    CHECK(vostel_history_end(canvas.Number) == VOSTEL_OK);
    CHECK(HistoryOf(canvas.Number).undo_count == 1);
    CHECK(StepName(canvas.Number, -1) == "move all");
    CHECK(vostel_undo(canvas.Number) == VOSTEL_OK);
    CHECK(ObjectsOf(canvas.Number).empty());
}

TEST_CASE("a step that changes nothing in the end is none, and one object is noted once")
{
    const OpenCanvas   canvas;
    const VostelObject object = AddTriangle(canvas.Number);
    CHECK(vostel_history_begin(canvas.Number, "there and back") == VOSTEL_OK);
    CHECK(vostel_object_set_name(canvas.Number, object, "q") == VOSTEL_OK);
    CHECK(vostel_object_set_name(canvas.Number, object, "") == VOSTEL_OK);
    CHECK(vostel_history_end(canvas.Number) == VOSTEL_OK);
    CHECK(HistoryOf(canvas.Number).undo_count == 1);
    const std::string before = StateOf(canvas.Number);
    const uint64_t    bytes = HistoryOf(canvas.Number).bytes;
    CHECK(vostel_history_begin(canvas.Number, "many") == VOSTEL_OK);
    for (int i = 0; i < 100; ++i)
        CHECK(vostel_object_set_label(canvas.Number, object, 10 + i) == VOSTEL_OK);
    CHECK(vostel_history_end(canvas.Number) == VOSTEL_OK);
    CHECK(HistoryOf(canvas.Number).bytes < bytes + 2048);
    CHECK(vostel_undo(canvas.Number) == VOSTEL_OK);
    CHECK(StateOf(canvas.Number) == before);
}

TEST_CASE("a step in which all comes and goes again is none, counts nothing and leaves what can be redone")
{
    const OpenCanvas canvas;
    ShowImage(canvas.Number, 0);
    const VostelObject first = AddTriangle(canvas.Number);
    const VostelObject second = AddTriangle(canvas.Number);
    AddTriangle(canvas.Number);
    REQUIRE(vostel_undo(canvas.Number) == VOSTEL_OK);
    const std::string state = StateOf(canvas.Number);
    const auto        stepOf = [&](const auto& changes) {
        REQUIRE(vostel_history_begin(canvas.Number, "there and back") == VOSTEL_OK);
        changes();
        REQUIRE(vostel_history_end(canvas.Number) == VOSTEL_OK);
    };
    const auto add = [&](VostelKind kind) {
        VostelObject object = 0;
        REQUIRE(vostel_object_add(canvas.Number, kind, Triangle, kind == VOSTEL_LENGTH ? 2 : 3, &object) ==
                VOSTEL_OK);
        return object;
    };
    stepOf([&] {
        const VostelObject line = add(VOSTEL_LENGTH);
        const VostelObject region = add(VOSTEL_POLYGON);
        CHECK(vostel_object_set_name(canvas.Number, line, "short-lived") == VOSTEL_OK);
        CHECK(vostel_object_remove(canvas.Number, line) == VOSTEL_OK);
        CHECK(vostel_object_remove(canvas.Number, region) == VOSTEL_OK);
        CHECK(vostel_set_scale(canvas.Number, 0.5, "mm") == VOSTEL_OK);
        CHECK(vostel_set_scale(canvas.Number, 1.0, "px") == VOSTEL_OK);
        CHECK(vostel_contrast_set(canvas.Number, 10.0, 20.0) == VOSTEL_OK);
        CHECK(vostel_contrast_set(canvas.Number, 0.0, 255.0) == VOSTEL_OK);
    });
    CHECK(HistoryOf(canvas.Number).undo_count == 2);
    stepOf([&] {
        CHECK(vostel_object_move_to(canvas.Number, first, 1) == VOSTEL_OK);
        CHECK(vostel_object_move_to(canvas.Number, second, 1) == VOSTEL_OK);
    });
    CHECK(HistoryOf(canvas.Number).undo_count == 2);
    CHECK(StateOf(canvas.Number) == state);
    CHECK(gCVSGenerateLabel(canvas.Number, false) == 2);
    REQUIRE(vostel_redo(canvas.Number) == VOSTEL_OK);
    CHECK(gCVSGenerateLabel(canvas.Number, false) == 3);

    stepOf([&] { CHECK(vostel_object_move_to(canvas.Number, first, 1) == VOSTEL_OK); });
    CHECK(HistoryOf(canvas.Number).undo_count == 4);
    stepOf([&] {
        CHECK(vostel_object_remove(canvas.Number, add(VOSTEL_POLYGON)) == VOSTEL_OK);
        add(VOSTEL_LENGTH);
    });
    CHECK(HistoryOf(canvas.Number).undo_count == 5);
    stepOf([&] {
        CHECK(vostel_object_remove(canvas.Number, first) == VOSTEL_OK);
        add(VOSTEL_POLYGON);
    });
    CHECK(HistoryOf(canvas.Number).undo_count == 6);
}

TEST_CASE("undo gives back the scale of measures that the canvas calls had set")
{
    gCVSSetMeasureScale(3, 0.25);
    REQUIRE(vostel_history_limit(3, 1 << 20) == VOSTEL_OK);
    const auto lengthDrawn = [] {
        gCVSAddMeasureLine(3, 1.0);
        gCVSOnMouseMove(3, 0, CPoint(5, 5));
        gCVSOnLButtonDown(3, MK_LBUTTON | MK_SHIFT, CPoint(10, 10));
        gCVSOnMouseMove(3, MK_LBUTTON | MK_SHIFT, CPoint(40, 50));
        gCVSOnLButtonUp(3, 0, CPoint(40, 50));
        const VostelObject drawn = ObjectsOf(3).back();
        return TextOf([&](char* buffer, std::size_t capacity, std::size_t* length) {
            return vostel_object_text(3, drawn, buffer, capacity, length);
        });
    };
    MemoryBitmap window(200, 150);
    CRect        client(0, 0, 200, 150);
    gCVSSetClient(3, client, window.Dc);
    std::vector<unsigned char> gray(100 * 80, 9);
    gCVSShowUCGray(3, gray.data(), 100, 80, true);
    const std::string first = lengthDrawn();
    CHECK(vostel_set_scale(3, 0.5, "mm") == VOSTEL_OK);
    CHECK(lengthDrawn() != first);
    CHECK(vostel_undo(3) == VOSTEL_OK);
    while (HistoryOf(3).undo_count > 2)
        CHECK(vostel_undo(3) == VOSTEL_OK);
    gCVSDelAllElement(3);
    CHECK(lengthDrawn() == first);
    gCVSDelAllElement(3);
    REQUIRE(vostel_history_limit(3, 0) == VOSTEL_OK);
    gCVSSetMeasureScale(3, 1.0);
    gCVSSetClient(3, client, nullptr);
}

TEST_CASE("a drag from press to release is one step, of either interface")
{
    const OpenCanvas canvas;
    ShowImage(canvas.Number, 0);
    const VostelObject object = AddTriangle(canvas.Number);
    const std::string  before = StateOf(canvas.Number);
    const VostelPoint  inside = {50 + 50, 25 + 30};    // the image of 200 x 150 lies at 50, 25
    gCVSOnLButtonDown(canvas.Number, MK_LBUTTON, CPoint(100, 55));
    for (int i = 1; i <= 10; ++i)
        CHECK(vostel_event_move(canvas.Number, inside.x + i, inside.y, VOSTEL_LEFT_BUTTON) == VOSTEL_OK);
    CHECK(HistoryOf(canvas.Number).undo_count == 1);
    gCVSOnLButtonUp(canvas.Number, 0, CPoint(110, 55));
    CHECK(HistoryOf(canvas.Number).undo_count == 2);
    CHECK(StepName(canvas.Number, -1) == "Change polygon");
    CHECK(PointsOf(canvas.Number, object)[0].x == doctest::Approx(20));
    CHECK(vostel_undo(canvas.Number) == VOSTEL_OK);
    CHECK(StateOf(canvas.Number) == before);
}

TEST_CASE("what a drag changed of the contrast before another image came is a step")
{
    const OpenCanvas canvas;
    ShowImage(canvas.Number, 0);
    const std::vector<uint32_t> before = FrameOf(canvas.Number);
    CHECK(vostel_event_press(canvas.Number, 1.0, 1.0, 0) == VOSTEL_OK);
    CHECK(vostel_contrast_gamma(canvas.Number, 3.0) == VOSTEL_OK);
    const uint32_t keep = VOSTEL_KEEP_OBJECTS | VOSTEL_KEEP_CONTRAST | VOSTEL_KEEP_VIEW;
    ShowImage(canvas.Number, keep);
    CHECK(vostel_event_release(canvas.Number, 1.0, 1.0, 0) == VOSTEL_OK);
    CHECK(HistoryOf(canvas.Number).undo_count == 1);
    CHECK(StepName(canvas.Number, -1) == "Change contrast");
    CHECK(FrameOf(canvas.Number) != before);
    CHECK(vostel_undo(canvas.Number) == VOSTEL_OK);
    CHECK(FrameOf(canvas.Number) == before);

    // What the image itself brings is none.
    CHECK(vostel_event_press(canvas.Number, 1.0, 1.0, 0) == VOSTEL_OK);
    ShowImage(canvas.Number, VOSTEL_KEEP_OBJECTS);
    CHECK(vostel_event_release(canvas.Number, 1.0, 1.0, 0) == VOSTEL_OK);
    CHECK(HistoryOf(canvas.Number).undo_count == 0);
}

TEST_CASE("selection, view and image make no step; an image without its objects ends the history")
{
    const OpenCanvas   canvas;
    const VostelObject object = AddTriangle(canvas.Number);
    CHECK(vostel_select(canvas.Number, &object, 1) == VOSTEL_OK);
    ShowImage(canvas.Number, VOSTEL_KEEP_OBJECTS);
    CHECK(HistoryOf(canvas.Number).undo_count == 1);
    ShowImage(canvas.Number, 0);
    CHECK(HistoryOf(canvas.Number).undo_count == 0);
    CHECK(HistoryOf(canvas.Number).bytes == 0);
    CHECK(ObjectsOf(canvas.Number).empty());
}

TEST_CASE("beyond the limit the oldest steps go")
{
    const OpenCanvas canvas;
    CHECK(HistoryOf(canvas.Number).limit == 64u << 20);
    for (int i = 0; i < 50; ++i)
        AddTriangle(canvas.Number);
    const uint64_t bytes = HistoryOf(canvas.Number).bytes;
    CHECK(vostel_history_limit(canvas.Number, bytes / 2) == VOSTEL_OK);
    const uint32_t kept = HistoryOf(canvas.Number).undo_count;
    CHECK(kept > 20);
    CHECK(kept < 30);
    CHECK(HistoryOf(canvas.Number).bytes <= bytes / 2);
    CHECK(UndoAll(canvas.Number) == static_cast<int>(kept));
    CHECK(ObjectsOf(canvas.Number).size() == 50 - kept);
    CHECK(vostel_history_limit(canvas.Number, 0) == VOSTEL_OK);
    AddTriangle(canvas.Number);
    CHECK(HistoryOf(canvas.Number).undo_count == 0);
}

TEST_CASE("a drag among 10,000 objects costs the bytes of one")
{
    const OpenCanvas canvas;
    ShowImage(canvas.Number, 0);
    for (int i = 0; i < 10000; ++i)
        AddTriangle(canvas.Number);
    const uint64_t bytes = HistoryOf(canvas.Number).bytes;
    CHECK(vostel_event_press(canvas.Number, 100, 55, 0) == VOSTEL_OK);
    CHECK(vostel_event_move(canvas.Number, 105, 55, VOSTEL_LEFT_BUTTON) == VOSTEL_OK);
    CHECK(vostel_event_release(canvas.Number, 105, 55, 0) == VOSTEL_OK);
    CHECK(HistoryOf(canvas.Number).bytes > bytes);
    CHECK(HistoryOf(canvas.Number).bytes < bytes + 4096);
}

TEST_CASE("undo to the start gives the start and redo to the end gives the end")
{
    for (unsigned seed = 1; seed <= 3; ++seed) {
        CAPTURE(seed);
        const OpenCanvas canvas;
        ShowImage(canvas.Number, 0);
        REQUIRE(vostel_history_limit(canvas.Number, std::size_t(1) << 30) == VOSTEL_OK);
        Storm storm(canvas.Number, seed);
        for (int i = 0; i < 5; ++i)
            storm.Call();
        REQUIRE(vostel_history_limit(canvas.Number, 0) == VOSTEL_OK);
        REQUIRE(vostel_history_limit(canvas.Number, std::size_t(1) << 30) == VOSTEL_OK);
        const std::vector<uint32_t> startFrame = SettledFrameOf(canvas.Number);
        const std::string           start = StateOf(canvas.Number);
        const int                   operations = seed == 1 ? 10000 : 1000;
        for (int i = 0; i < operations; ++i) {
            storm.Call();
            if (i % 50 == 0) {
                const std::string now = StateOf(canvas.Number);
                for (int k = 0; k < 7; ++k)
                    vostel_undo(canvas.Number);
                for (int k = 0; k < 7; ++k)
                    vostel_redo(canvas.Number);
                REQUIRE(FirstDifference(StateOf(canvas.Number), now) == "");
            }
        }
        const std::vector<uint32_t> endFrame = SettledFrameOf(canvas.Number);
        const std::string           end = StateOf(canvas.Number);
        const int                   steps = UndoAll(canvas.Number);
        CHECK(steps > operations / 5);
        CHECK(DifferentPixels(SettledFrameOf(canvas.Number), startFrame) == 0);
        CHECK(FirstDifference(StateOf(canvas.Number), start) == "");
        CHECK(RedoAll(canvas.Number) == steps);
        CHECK(DifferentPixels(SettledFrameOf(canvas.Number), endFrame) == 0);
        CHECK(FirstDifference(StateOf(canvas.Number), end) == "");
    }
}
