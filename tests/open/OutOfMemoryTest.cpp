// What the open interface does when memory runs out: each allocation of a call fails once, first the first,
// then the second, until the call comes through without. A call that says so has changed nothing.

#include "support/FailingAllocator.h"
#include "support/OpenCanvas.h"

#include <functional>

namespace {

const VostelPoint Corners[] = {{10, 10}, {60, 14}, {40, 50}, {12, 44}};

// A canvas with an image, a few objects and steps in both directions of the history.
class Furnished : public OpenCanvas {
public:
    VostelObject Polygon = 0;
    VostelObject Length = 0;
    VostelObject Text = 0;

    Furnished() : OpenCanvas(120, 90)
    {
        std::vector<float> ramp(80 * 60);
        for (std::size_t i = 0; i < ramp.size(); ++i)
            ramp[i] = static_cast<float>(i);
        REQUIRE(vostel_image_show(Number, VOSTEL_F32, ramp.data(), 80, 60, 0, 0) == VOSTEL_OK);
        REQUIRE(vostel_object_add(Number, VOSTEL_POLYGON, Corners, 4, &Polygon) == VOSTEL_OK);
        REQUIRE(vostel_object_add(Number, VOSTEL_LENGTH, Corners, 2, &Length) == VOSTEL_OK);
        REQUIRE(vostel_object_add(Number, VOSTEL_TEXT, Corners, 1, &Text) == VOSTEL_OK);
        REQUIRE(vostel_object_set_text(Number, Text, "text") == VOSTEL_OK);
        REQUIRE(vostel_object_remove(Number, Length) == VOSTEL_OK);
        REQUIRE(vostel_undo(Number) == VOSTEL_OK);
    }
};

using Call = std::function<VostelStatus(const Furnished&)>;

// View and state without the numbers of objects, which are never the same.
std::string Comparable(int32_t canvas)
{
    std::string state = StateOf(canvas);
    std::string kept;
    bool        number = true;
    for (const char c : state) {
        number = number && c != ' ';
        if (!number)
            kept += c;
        number = number || c == '\n';
    }
    VostelView view = {};
    view.size = sizeof view;
    REQUIRE(vostel_view_get(canvas, &view) == VOSTEL_OK);
    return kept + std::to_string(view.scale) + " " + std::to_string(view.left) + " " +
           std::to_string(view.top);
}

void CheckEachFailure(const std::string& name, const Call& call)
{
    CAPTURE(name);
    std::string before, after;
    {
        const Furnished canvas;
        before = Comparable(canvas.Number);
        REQUIRE(call(canvas) == VOSTEL_OK);
        after = Comparable(canvas.Number);
    }
    int refused = 0;
    for (long n = 1; n < 2000; ++n) {
        CAPTURE(n);
        const Furnished canvas;
        FailAt(n);
        const VostelStatus status = call(canvas);
        const bool         failed = HasAllocationFailed();
        FailAt(0);
        if (!failed) {
            CHECK(status == VOSTEL_OK);
            return;
        }
        if (status != VOSTEL_OK) {
            CHECK(status == VOSTEL_OUT_OF_MEMORY);
            ++refused;
        }
        CHECK(FirstDifference(Comparable(canvas.Number), status == VOSTEL_OK ? after : before) == "");
    }
    FAIL("the call never came through");
}

}

TEST_CASE("objects")
{
    CheckEachFailure("add", [](const Furnished& canvas) {
        VostelObject object = 0;
        return vostel_object_add(canvas.Number, VOSTEL_SPLINE, Corners, 4, &object);
    });
    CheckEachFailure("add a length", [](const Furnished& canvas) {
        VostelObject object = 0;
        return vostel_object_add(canvas.Number, VOSTEL_LENGTH, Corners, 2, &object);
    });
    CheckEachFailure(
        "remove", [](const Furnished& canvas) { return vostel_object_remove(canvas.Number, canvas.Length); });
    CheckEachFailure("set points", [](const Furnished& canvas) {
        return vostel_object_set_points(canvas.Number, canvas.Polygon, Corners, 3);
    });
    CheckEachFailure("set name", [](const Furnished& canvas) {
        return vostel_object_set_name(canvas.Number, canvas.Polygon,
                                      "a name that is longer than a short string");
    });
    CheckEachFailure("set text", [](const Furnished& canvas) {
        return vostel_object_set_text(canvas.Number, canvas.Text,
                                      "a text that is longer than a short string");
    });
    CheckEachFailure("set style", [](const Furnished& canvas) {
        VostelStyle style = {};
        style.size = sizeof style;
        const VostelStatus read = vostel_object_style(canvas.Number, canvas.Polygon, &style);
        style.line_color = 0x123456;
        return read != VOSTEL_OK ? read : vostel_object_set_style(canvas.Number, canvas.Polygon, &style);
    });
    CheckEachFailure("set label", [](const Furnished& canvas) {
        return vostel_object_set_label(canvas.Number, canvas.Polygon, 7);
    });
    CheckEachFailure("move to", [](const Furnished& canvas) {
        return vostel_object_move_to(canvas.Number, canvas.Text, 0);
    });
    CheckEachFailure("draw next", [](const Furnished& canvas) {
        VostelObject object = 0;
        return vostel_draw_next(canvas.Number, VOSTEL_ANGLE, &object);
    });
}

TEST_CASE("history, scale and contrast")
{
    CheckEachFailure("undo", [](const Furnished& canvas) { return vostel_undo(canvas.Number); });
    CheckEachFailure("redo", [](const Furnished& canvas) { return vostel_redo(canvas.Number); });
    CheckEachFailure("scale", [](const Furnished& canvas) {
        return vostel_set_scale(canvas.Number, 0.25, "micrometres");
    });
    CheckEachFailure("contrast",
                     [](const Furnished& canvas) { return vostel_contrast_set(canvas.Number, 100, 900); });
}

TEST_CASE("an image that does not fit into memory leaves the one before")
{
    const std::vector<unsigned short> deep(90 * 70, 4000);
    CheckEachFailure("show", [&](const Furnished& canvas) {
        return vostel_image_show(canvas.Number, VOSTEL_U16, deep.data(), 90, 70, 0, 0);
    });
}

TEST_CASE("numbers")
{
    CheckEachFailure("measure", [](const Furnished& canvas) {
        VostelMeasures measures = {};
        measures.size = sizeof measures;
        return vostel_measure(canvas.Number, canvas.Polygon, 0, &measures);
    });
    CheckEachFailure("labels", [](const Furnished& canvas) {
        static std::vector<int32_t> labels(80 * 60);
        return vostel_labels(canvas.Number, labels.data(), 0);
    });
    CheckEachFailure("table", [](const Furnished& canvas) {
        std::size_t length = 0;
        return vostel_table(canvas.Number, "json", nullptr, 0, &length);
    });
    CheckEachFailure("frame", [](const Furnished& canvas) {
        VostelFrame frame = {};
        frame.size = sizeof frame;
        return vostel_frame_render(canvas.Number, &frame);
    });
}

TEST_CASE("views")
{
    CheckEachFailure("set", [](const Furnished& canvas) {
        const VostelView view = {sizeof view, 3.0, -20.0, 9.0};
        return vostel_view_set(canvas.Number, &view);
    });
    CheckEachFailure("fit", [](const Furnished& canvas) { return vostel_view_fit(canvas.Number); });
}

TEST_CASE("profiles, masks and pictures")
{
    CheckEachFailure("profile", [](const Furnished& canvas) {
        std::size_t count = 0;
        return vostel_profile(canvas.Number, canvas.Length, 0, 3.0, nullptr, nullptr, 0, &count);
    });
    CheckEachFailure("mask", [](const Furnished& canvas) {
        static std::vector<std::uint8_t> mask(80 * 60);
        return vostel_mask(canvas.Number, canvas.Polygon, mask.data(), 0);
    });
}
