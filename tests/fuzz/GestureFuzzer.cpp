// Calls of both interfaces and gestures in any order, on two canvases. Undo gives the start, redo the end.

#include "fuzz/Fuzzing.h"
#include "fuzz/InputBytes.h"

#include <VostelObj.h>

#include <climits>

namespace {

class Gestures {
public:
    explicit Gestures(std::string_view input) : Input(input)
    {
        First.AddRectangle();
        AddKind(VOSTEL_SPLINE, {{30, 30}, {50, 28}, {44, 44}});
        AddKind(VOSTEL_LENGTH, {{5, 40}, {25, 33}});
        Begin();
    }

    void Run()
    {
        while (!Input.IsAtEnd())
            Call();
        while (vostel_history_end(First.Number) == VOSTEL_OK) {
        }
        Settle();
        const std::string end = StateOf(First.Number);
        int               steps = 0;
        while (vostel_undo(First.Number) == VOSTEL_OK)
            ++steps;
        Settle();
        CAPTURE(FirstDifference(StateOf(First.Number), Start));
        CHECK(StateOf(First.Number) == Start);
        CHECK(FrameOf(First.Number) == StartFrame);
        // There may be steps beyond the end, which the input took back itself.
        for (; steps > 0; --steps)
            REQUIRE(vostel_redo(First.Number) == VOSTEL_OK);
        Settle();
        CHECK(StateOf(First.Number) == end);
    }

private:
    InputBytes            Input;
    FuzzCanvas            First, Second;
    std::int32_t          Number = First.Number;    // the canvas that calls are for
    std::string           Start;
    std::vector<uint32_t> StartFrame;

    void AddKind(VostelKind kind, const std::vector<VostelPoint>& points)
    {
        VostelObject object = 0;
        REQUIRE(vostel_object_add(First.Number, kind, points.data(), points.size(), &object) == VOSTEL_OK);
    }

    // What no step holds, as at the start.
    void Settle()
    {
        const VostelView view = {sizeof view, 2.0, 10.0, 12.0};
        gCVSSetUseClientMemDCPixelDirect(First.Number, false);
        gCVSShowContrastCtrl(First.Number, false);
        gCVSShowProgress(First.Number, false);
        REQUIRE(vostel_view_link(First.Number, First.Number) == VOSTEL_OK);
        REQUIRE(vostel_canvas_resize(First.Number, 160, 120) == VOSTEL_OK);
        REQUIRE(vostel_canvas_set_pixel_ratio(First.Number, 1.0) == VOSTEL_OK);
        REQUIRE(vostel_canvas_set_language(First.Number, "zh") == VOSTEL_OK);
        REQUIRE(vostel_view_set_smooth(First.Number, 0) == VOSTEL_OK);
        REQUIRE(vostel_view_set(First.Number, &view) == VOSTEL_OK);
        REQUIRE(vostel_event_release(First.Number, -1.0, -1.0, 0) == VOSTEL_OK);
    }
    void Begin()
    {
        Settle();
        REQUIRE(vostel_history_limit(First.Number, 0) == VOSTEL_OK);
        REQUIRE(vostel_history_limit(First.Number, std::size_t(1) << 30) == VOSTEL_OK);
        Start = StateOf(First.Number);
        StartFrame = FrameOf(First.Number);
    }

    VostelObject Any()
    {
        const std::vector<VostelObject> all = ObjectsOf(Number);
        const int                       which = Input.Byte();
        return all.empty() || which == 255 ? 0 : all[static_cast<std::size_t>(which) % all.size()];
    }
    std::vector<VostelPoint> Points(int count)
    {
        std::vector<VostelPoint> points;
        for (int i = 0; i < count; ++i) {
            const double x = Input.Coordinate();
            points.push_back({x, Input.Coordinate()});
        }
        return points;
    }
    std::uint32_t Flags() { return static_cast<std::uint32_t>(Input.Byte()); }
    CPoint        Place()
    {
        const int x = Input.Take<std::int16_t>();
        const int y = Input.Take<std::int16_t>();
        return x == SHRT_MIN ? CPoint(INT_MIN, INT_MAX) : CPoint(x % 400, y % 300);
    }
    const char* Text()
    {
        static const char* const texts[] = {"", "a", "edge \"3\"\n left", "\xe6\xb5\x8b\xe9\x87\x8f",
                                            "\xff\xfe"};
        return Input.Of(texts);
    }

    void Call()
    {
        const int choice = Input.Below(64);
        Number = choice < 60 ? First.Number : Second.Number;
        switch (choice / 12 % 5) {
        case 0:
            return Gesture();
        case 1:
            return ChangeObject();
        case 2:
            return ChangeCanvas();
        case 3:
            return CallClassic();
        default:
            return Look();
        }
    }

    void Gesture()
    {
        const double x = Input.Coordinate() * 4.0;
        const double y = Input.Coordinate() * 4.0;
        switch (Input.Below(7)) {
        case 0:
            vostel_event_press(Number, x, y, Flags());
            return;
        case 1:
            vostel_event_release(Number, x, y, Flags());
            return;
        case 2:
            vostel_event_move(Number, x, y, Flags());
            return;
        case 3:
            vostel_event_wheel(Number, x, y, Input.Take<std::int8_t>() / 4.0, Flags());
            return;
        case 4:
            vostel_event_key(Number, Flags(), 0);
            return;
        case 5: {
            VostelObject object = 0;
            vostel_draw_next(Number, Input.Below(24), &object);
            return;
        }
        default: {    // a whole drag
            const std::uint32_t shift = Input.Coin() ? VOSTEL_SHIFT : 0;
            vostel_event_press(Number, x, y, shift);
            const double toX = Input.Coordinate() * 4.0;
            const double toY = Input.Coordinate() * 4.0;
            vostel_event_move(Number, toX, toY, shift | VOSTEL_LEFT_BUTTON);
            vostel_event_release(Number, toX, toY, shift);
            return;
        }
        }
    }

    void ChangeObject()
    {
        VostelObject object = Any();
        switch (Input.Below(14)) {
        case 0:
        case 1:
        case 2: {
            const VostelKind               kind = Input.Below(24);
            const std::vector<VostelPoint> points = Points(Input.Below(8));
            vostel_object_add(Number, kind, points.data(), points.size(), &object);
            return;
        }
        case 3:
            vostel_object_remove(Number, object);
            return;
        case 4: {
            const std::vector<VostelPoint> points = Points(Input.Below(6));
            vostel_object_set_points(Number, object, points.data(), points.size());
            return;
        }
        case 5:
            vostel_object_set_name(Number, object, Text());
            return;
        case 6:
            vostel_object_set_text(Number, object, Text());
            return;
        case 7:
            vostel_object_set_flags(Number, object, Flags() % 20);
            return;
        case 8:
            vostel_object_set_label(Number, object, Input.Take<std::int8_t>());
            return;
        case 9:
            vostel_object_move_to(Number, object, Flags());
            return;
        case 10: {
            VostelStyle style = {sizeof style, 0, 0, 0, 0, 0.0, 0.0};
            style.line_color = style.selected_color = Flags() << 12;
            style.fill_color = Input.Take<std::uint32_t>();
            style.line_width = Input.Coordinate() / 4.0;
            style.text_height = Input.Coordinate();
            vostel_object_set_style(Number, object, &style);
            return;
        }
        case 11: {
            const double low = Input.Coordinate();
            vostel_contrast_of_object(Number, object, low, Input.Coordinate());
            return;
        }
        case 12:
            vostel_select(Number, &object, 1);
            return;
        default: {
            const std::vector<VostelObject> all = ObjectsOf(Number);
            vostel_select(Number, all.data(), all.size());
            return;
        }
        }
    }

    void ChangeCanvas()
    {
        const double a = Input.Coordinate();
        switch (Input.Below(18)) {
        case 0:
            vostel_contrast_set(Number, a, Input.Coordinate());
            return;
        case 1:
            vostel_contrast_gamma(Number, a / 16.0);
            return;
        case 2: {
            static const char* const maps[] = {"gray", "inverted", "fire", "viridis", "none"};
            vostel_contrast_map(Number, Input.Of(maps));
            return;
        }
        case 3:
            vostel_contrast_marks(Number, Input.Take<std::uint32_t>(), 0xFF00FF00, 0x80112233);
            return;
        case 4:
            vostel_contrast_percentiles(Number, a, Input.Coordinate());
            return;
        case 5:
            vostel_set_scale(Number, a, Text());
            return;
        case 6:
            vostel_undo(Number);
            return;
        case 7:
            vostel_redo(Number);
            return;
        case 8:
            vostel_history_begin(Number, Text());
            return;
        case 9:
            vostel_history_end(Number);
            return;
        case 10:
            First.ShowImage(VOSTEL_KEEP_OBJECTS | VOSTEL_KEEP_CONTRAST | Flags() % 8);
            return;
        case 11: {
            const VostelView view = {sizeof view, a / 8.0, Input.Coordinate(), Input.Coordinate()};
            vostel_view_set(Number, &view);
            return;
        }
        case 12:
            vostel_view_zoom(Number, a / 8.0, Input.Coordinate(), 20.0);
            return;
        case 13:
            Input.Coin() ? vostel_view_fit(Number) : vostel_view_actual(Number);
            return;
        case 14:
            vostel_view_set_smooth(Number, Input.Below(2));
            return;
        case 15:
            vostel_canvas_set_language(Number, Input.Coin() ? "en" : "zh");
            return;
        case 16:
            vostel_view_link(Number, Input.Coin() ? Second.Number : First.Number);
            return;
        default:
            vostel_canvas_resize(Number, 1 + Input.Byte(), 1 + Input.Byte());
            vostel_canvas_set_pixel_ratio(Number, a / 16.0);
            return;
        }
    }

    void AddClassic()
    {
        static void (*const adds[])(int) = {
            gCVSAddMRectangle,       gCVSAddPoly,      gCVSAddSpline,      gCVSAddFreeRegion,
            gCVSAddFreeStroke,       gCVSAddInfoWin,   gCVSAddLineProfile, gCVSAddMeasureAngle3Pts,
            gCVSAddMeasureAngle4Pts, gCVSAddNeighborPV};
        Input.Of(adds)(Number);
    }

    void CallClassic()
    {
        const CPoint point = Place();
        switch (Input.Below(18)) {
        case 0:
        case 1:
            return AddClassic();
        case 2:
            return gCVSAddMeasureLine(Number, 1.0);
        case 3:
            return gCVSAddTextOL(Number, L"text", point.x, point.y, static_cast<FontType>(Input.Below(5)),
                                 Input.Below(3), 0x123456, Input.Take<std::int8_t>());
        case 4: {
            std::vector<CString> lines(static_cast<std::size_t>(Input.Below(4)), L"\x4e09 line");
            return gCVSAddTextML(Number, lines, point.x, point.y);
        }
        case 5:
            return gCVSOnLButtonDown(Number, Flags(), point);
        case 6:
            return gCVSOnLButtonUp(Number, Flags(), point);
        case 7:
            return gCVSOnMouseMove(Number, Flags(), point);
        case 8:
            return gCVSOnMouseWheel(Number, Flags(), Input.Take<std::int8_t>(), point);
        case 9:
            return gCVSOnKeyDown(Number, Flags(), 1, 0);
        case 10:
            return gCVSDelSelElement(Number);
        case 11:
            return Input.Below(8) == 7 ? gCVSDelAllElement(Number) : gCVSOnTimer(Number, 0);
        case 12:
            return gCVSShowContrastCtrl(Number, Input.Coin());
        case 13:
            return gCVSSetContrastCtrlRectPos(Number, point.x, point.y, Input.Byte(), Input.Byte());
        case 14:
            return gCVSSetCanvasMoveMode(Number, static_cast<DisplayMode>(Input.Below(5)));
        case 15:
            gCVSShowProgress(Number, Input.Coin());
            gCVSSetProgressRectPos(Number, point.x, point.y, Input.Byte(), Input.Byte());
            return gCVSSetPos(Number, point.y);
        case 16:
            return gCVSSetUseClientMemDCPixelDirect(Number, Input.Coin());
        default:
            gCVSGenerateLabel(Number, Input.Coin());
            gCVSGetImaPixelValue(Number, point);
            return gCVSOnDraw(Number, nullptr);
        }
    }

    // What changes nothing.
    void Look()
    {
        const VostelObject object = Any();
        switch (Input.Below(7)) {
        case 0: {
            VostelFrame frame = {sizeof frame, 0, 0, 0, nullptr};
            CHECK(vostel_frame_render(Number, &frame) == VOSTEL_OK);
            return;
        }
        case 1: {
            VostelMeasures measures = {};
            measures.size = sizeof measures;
            vostel_measure(Number, object, Input.Below(5), &measures);
            return;
        }
        case 2: {
            std::vector<std::uint8_t> mask(64 * 48);
            vostel_mask(Number, object, mask.data(), 0);
            std::vector<std::int32_t> labels(64 * 48);
            CHECK(vostel_labels(Number, labels.data(), 0) == VOSTEL_OK);
            return;
        }
        case 3: {
            std::vector<double> values(100);
            std::size_t         count = 0;
            vostel_profile(Number, object, 0, 1 + Input.Below(9), nullptr, values.data(), values.size(),
                           &count);
            return;
        }
        case 4: {
            std::size_t length = 0;
            CHECK(vostel_table(Number, "csv", nullptr, 0, &length) == VOSTEL_OK);
            return;
        }
        case 5: {
            std::vector<VostelPoint> points(64);
            std::size_t              count = 0;
            vostel_object_outline(Number, object, points.data(), points.size(), &count);
            return;
        }
        default: {
            VostelObject found = 0;
            const double x = Input.Coordinate();
            vostel_object_at(Number, x, Input.Coordinate(), &found);
            return;
        }
        }
    }
};

}

void FuzzOne(std::string_view input)
{
    Gestures(input).Run();
}
