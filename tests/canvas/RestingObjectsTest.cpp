// What the open interface says of canvases whose objects rest as soon as they can, beside canvases with the
// same objects that never do: with a history, listeners and all calls that change or read an object.

#include "canvas/exports/CanvasTable.h"
#include "support/OpenCanvas.h"

#include <algorithm>
#include <cstdint>
#include <random>
#include <utility>
#include <vector>

using namespace vostel;

namespace {

constexpr int Width = 320;
constexpr int Height = 240;
constexpr int Side = 200;

void CountEvent(const VostelEvent*, void* user)
{
    ++*static_cast<int*>(user);
}

class OpenTwins {
public:
    explicit OpenTwins(unsigned seed) : Random(seed)
    {
        std::vector<unsigned char> gray(static_cast<std::size_t>(Side) * Side);
        for (std::size_t i = 0; i < gray.size(); ++i)
            gray[i] = static_cast<unsigned char>(i * 37 >> 3);
        CanvasCall(Resting.Number)->Elements.MostAwake = 0;
        CanvasCall(Awake.Number)->Elements.MostAwake = SIZE_MAX;
        Both([&](int32_t canvas) {
            return vostel_image_show(canvas, VOSTEL_U8, gray.data(), Side, Side, Side, 0);
        });
        REQUIRE(vostel_listen(Resting.Number, ~0u, CountEvent, &RestingEvents, &Token) == VOSTEL_OK);
        REQUIRE(vostel_listen(Awake.Number, ~0u, CountEvent, &AwakeEvents, &Token) == VOSTEL_OK);
        for (int i = 0; i < 120; ++i)
            Add();
    }
    OpenTwins(const OpenTwins&) = delete;
    OpenTwins& operator=(const OpenTwins&) = delete;

    void Run(int count)
    {
        for (int i = 0; i < count; ++i) {
            CAPTURE(i);
            Step();
            REQUIRE(RestingEvents == AwakeEvents);
            const CanvasCall call(Resting.Number);
            SumResting += call->Elements.size() - call->Elements.NotResting().size();
            if (Between(0, 15) == 0)
                Compare();
        }
        CHECK(SumResting > static_cast<std::size_t>(count) * 20);
        CHECK(Hits > count / 50);
    }

private:
    OpenCanvas   Resting{Width, Height};
    OpenCanvas   Awake{Width, Height};
    std::mt19937 Random;
    int64_t      Token = 0;
    int          RestingEvents = 0;
    int          AwakeEvents = 0;
    int          Hits = 0;
    std::size_t  SumResting = 0;

    int Between(int low, int high)
    {
        return low + static_cast<int>(Random() % static_cast<unsigned>(high - low + 1));
    }

    template <typename Call>
    void Both(Call&& call)
    {
        const VostelStatus status = call(Resting.Number);
        REQUIRE(status == call(Awake.Number));
    }

    // The objects in the same place on both.
    template <typename Call>
    void BothAt(std::size_t index, Call&& call)
    {
        Both([&](int32_t canvas) { return call(canvas, ObjectsOf(canvas)[index]); });
    }

    std::vector<VostelPoint> Points(int count)
    {
        const double             x = Between(-10, Side + 10);
        const double             y = Between(-10, Side + 10);
        const int                reach = Between(0, 9) == 0 ? 120 : 15;
        std::vector<VostelPoint> points;
        for (int i = 0; i < count; ++i)
            points.push_back({x + Between(-reach, reach) + Between(0, 3) / 4.0, y + Between(-reach, reach)});
        return points;
    }

    static int CountOf(VostelKind kind)
    {
        return kind == VOSTEL_RECTANGLE || kind == VOSTEL_CUSTOM_RECTANGLE || kind == VOSTEL_LENGTH ? 2 : 5;
    }

    void Add()
    {
        constexpr VostelKind Kinds[] = {
            VOSTEL_RECTANGLE,    VOSTEL_CUSTOM_RECTANGLE, VOSTEL_POLYGON,  VOSTEL_SPLINE,  VOSTEL_FREE_REGION,
            VOSTEL_FREE_STROKES, VOSTEL_LENGTH,           VOSTEL_POLYLINE, VOSTEL_POLYGON, VOSTEL_POLYGON};
        const VostelKind               kind = Kinds[Between(0, 9)];
        const std::vector<VostelPoint> points = Points(CountOf(kind));
        Both([&](int32_t canvas) {
            VostelObject object = 0;
            return vostel_object_add(canvas, kind, points.data(), points.size(), &object);
        });
    }

    static std::vector<VostelObject> SelectionOf(int32_t canvas)
    {
        std::vector<VostelObject> list(ObjectsOf(canvas).size());
        std::size_t               count = 0;
        REQUIRE(vostel_selection(canvas, list.data(), list.size(), &count) == VOSTEL_OK);
        list.resize(count);
        return list;
    }

    static std::size_t PlaceOf(int32_t canvas, VostelObject object)
    {
        const std::vector<VostelObject> list = ObjectsOf(canvas);
        return static_cast<std::size_t>(std::find(list.begin(), list.end(), object) - list.begin());
    }

    // As of one canvas, with the numbers of its objects in its place.
    static std::string Told(int32_t canvas)
    {
        std::string       told;
        const std::string state = StateOf(canvas);
        for (std::size_t at = 0; at < state.size();) {
            const std::size_t end = state.find('\n', at);
            const std::size_t kind = state.find(' ', at);
            told += state.substr(kind, end - kind) + '\n';
            at = end + 1;
        }
        for (const VostelObject object : SelectionOf(canvas))
            told += std::to_string(PlaceOf(canvas, object)) + ' ';
        return told;
    }

    void Compare()
    {
        REQUIRE(FirstDifference(Told(Resting.Number), Told(Awake.Number)) == "");
        const VostelHistoryInfo first = HistoryOf(Resting.Number);
        const VostelHistoryInfo second = HistoryOf(Awake.Number);
        REQUIRE(first.undo_count == second.undo_count);
        REQUIRE(first.redo_count == second.redo_count);
    }

    std::vector<uint32_t> Frame(int32_t canvas)
    {
        VostelFrame frame = {};
        frame.size = sizeof frame;
        REQUIRE(vostel_frame_render(canvas, &frame) == VOSTEL_OK);
        std::vector<uint32_t> pixels;
        for (int y = 0; y < frame.height; ++y) {
            const uint32_t* const row = reinterpret_cast<const uint32_t*>(
                reinterpret_cast<const char*>(frame.pixels) + y * frame.row_bytes);
            pixels.insert(pixels.end(), row, row + frame.width);
        }
        return pixels;
    }

    void AskAt(double x, double y)
    {
        VostelObject first = 0;
        VostelObject second = 0;
        REQUIRE(vostel_object_at(Resting.Number, x, y, &first) == VOSTEL_OK);
        REQUIRE(vostel_object_at(Awake.Number, x, y, &second) == VOSTEL_OK);
        REQUIRE((first == 0) == (second == 0));
        if (first == 0)
            return;
        ++Hits;
        REQUIRE(PlaceOf(Resting.Number, first) == PlaceOf(Awake.Number, second));
    }

    void ChangeOne()
    {
        const std::size_t count = ObjectsOf(Resting.Number).size();
        if (count == 0)
            return;
        const std::size_t index = Random() % count;
        const std::size_t other = Random() % count;
        switch (Between(0, 6)) {
        case 0: {
            const uint32_t flags = static_cast<uint32_t>(Between(0, 3));
            return BothAt(index, [&](int32_t canvas, VostelObject object) {
                return vostel_object_set_flags(canvas, object, flags);
            });
        }
        case 1: {
            VostelStyle style = {};
            style.size = sizeof style;
            REQUIRE(vostel_object_style(Awake.Number, ObjectsOf(Awake.Number)[index], &style) == VOSTEL_OK);
            style.fill_color = Between(0, 1) == 0 ? 0x40FF8000u : 0;
            style.line_width = Between(1, 8);
            return BothAt(index, [&](int32_t canvas, VostelObject object) {
                return vostel_object_set_style(canvas, object, &style);
            });
        }
        case 2: {
            const std::vector<VostelPoint> points = Points(Between(1, 6));
            return BothAt(index, [&](int32_t canvas, VostelObject object) {
                return vostel_object_set_points(canvas, object, points.data(), points.size());
            });
        }
        case 3:
            return BothAt(index, [&](int32_t canvas, VostelObject object) {
                return vostel_object_move_to(canvas, object, other);
            });
        case 4:
            return BothAt(index, [&](int32_t canvas, VostelObject object) {
                return vostel_contrast_of_object(canvas, object, 20.0, 20.0 + static_cast<double>(other));
            });
        case 5:
            return BothAt(index, [&](int32_t canvas, VostelObject object) {
                return vostel_object_remove(canvas, object);
            });
        default:
            return Both([&](int32_t canvas) {
                const std::vector<VostelObject> list = ObjectsOf(canvas);
                const VostelObject              chosen[] = {list[index], list[other]};
                return vostel_select(canvas, chosen, 2);
            });
        }
    }

    void Step()
    {
        const double   x = Between(-5, Width + 5);
        const double   y = Between(-5, Height + 5);
        const uint32_t keys = Between(0, 4) == 0   ? static_cast<uint32_t>(VOSTEL_SHIFT)
                              : Between(0, 9) == 0 ? static_cast<uint32_t>(VOSTEL_CONTROL)
                                                   : 0u;
        const int      what = Between(0, 99);
        if (what < 30) {
            Both([&](int32_t canvas) { return vostel_event_move(canvas, x, y, keys | VOSTEL_LEFT_BUTTON); });
        } else if (what < 45) {
            Both([&](int32_t canvas) { return vostel_event_press(canvas, x, y, keys | VOSTEL_LEFT_BUTTON); });
        } else if (what < 57) {
            Both([&](int32_t canvas) { return vostel_event_release(canvas, x, y, 0); });
        } else if (what < 67) {
            REQUIRE(Frame(Resting.Number) == Frame(Awake.Number));
        } else if (what < 77) {
            AskAt(x, y);
        } else if (what < 82) {
            const VostelView view = {sizeof(VostelView), Between(1, 16) / 4.0,
                                     static_cast<double>(Between(-300, 100)),
                                     static_cast<double>(Between(-300, 100))};
            Both([&](int32_t canvas) { return vostel_view_set(canvas, &view); });
        } else if (what < 90) {
            ChangeOne();
        } else if (what < 93) {
            if (ObjectsOf(Resting.Number).size() < 200)
                Add();
        } else if (what < 96) {
            Both([](int32_t canvas) { return vostel_undo(canvas); });
        } else if (what < 97) {
            Both([](int32_t canvas) { return vostel_redo(canvas); });
        } else if (what < 98) {
            const double ratio = Between(2, 5) / 2.0;
            Both([&](int32_t canvas) { return vostel_canvas_set_pixel_ratio(canvas, ratio); });
        } else if (what < 99) {
            const int width = Between(200, Width);
            Both([&](int32_t canvas) { return vostel_canvas_resize(canvas, width, Height); });
        } else {
            std::vector<int32_t> first(static_cast<std::size_t>(Side) * Side);
            std::vector<int32_t> second(first.size());
            constexpr int        rowBytes = Side * static_cast<int>(sizeof(int32_t));
            REQUIRE(vostel_labels(Resting.Number, first.data(), rowBytes) == VOSTEL_OK);
            REQUIRE(vostel_labels(Awake.Number, second.data(), rowBytes) == VOSTEL_OK);
            REQUIRE(first == second);
        }
    }
};

}

TEST_CASE("through the open interface objects that rest are as those that never do")
{
    for (const unsigned seed : {1u, 2u, 3u, 4u}) {
        CAPTURE(seed);
        OpenTwins(seed).Run(1200);
    }
}
