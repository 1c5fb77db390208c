// Raster fills of label images, the curve of splines, stitching, matrix products. A fill writes its value
// alone, where its shape can be.

#include "fuzz/Fuzzing.h"
#include "fuzz/RoutineRuns.h"

using namespace vostel;

namespace {

using LabelPlane = ClassData2DIO<int>;
using IntPoint = PointTemplateBase<int>;

constexpr int Background = -3;

LabelPlane Empty(int width, int height)
{
    LabelPlane plane;
    plane.Allocate(width, height);
    std::fill_n(plane.Ptr1D, width * height, Background);
    return plane;
}

// Beside the plane too, and where 31 bits end.
int Place(InputBytes& input)
{
    static const int hard[] = {INT_MIN, INT_MIN + 1, INT_MAX, INT_MAX - 1,
                               1 << 20, -(1 << 20),  1 << 30, 65536};
    const int        byte = input.Byte();
    return byte < 236 ? byte % 80 - 16 : hard[byte % 8];
}

std::vector<IntPoint> Places(InputBytes& input, int count)
{
    std::vector<IntPoint> points;
    for (int i = 0; i < count; ++i) {
        IntPoint point;
        point.x = Place(input);
        point.y = Place(input);
        points.push_back(point);
    }
    return points;
}

void CheckLabel(const LabelPlane& plane, const ZEKRECT& box, int value)
{
    for (int y = 0; y < plane.Height; ++y) {
        for (int x = 0; x < plane.Width; ++x) {
            const int label = plane.Ptr2D[y][x];
            CHECK((label == value || label == Background));
            if (label == value)
                CHECK((x >= box.left && x <= box.right && y >= box.top && y <= box.bottom));
        }
    }
}

void CheckFill(InputBytes& input)
{
    LabelPlane plane = Empty(input.Below(64), input.Below(64));
    const int  value = 1 + input.Below(9);
    ZEKRECT    box;
    switch (input.Below(3)) {
    case 0: {
        const int x1 = Place(input), y1 = Place(input), x2 = Place(input), y2 = Place(input);
        DrawEcllipse(plane, x1, y1, x2, y2, true, value);
        // Flat ones step out of their box, beside it by one pixel.
        box.left = std::max(std::min(x1, x2), INT_MIN + 1) - 1;
        box.right = std::min(std::max(x1, x2), INT_MAX - 1) + 1;
        box.top = INT_MIN;
        box.bottom = INT_MAX;
        CheckLabel(plane, box, value);
        break;
    }
    case 1: {
        std::vector<IntPoint> points = Places(input, input.Below(12));
        FillPolygon(plane, points, value);
        box.left = box.top = INT_MAX;
        box.right = box.bottom = INT_MIN;
        for (const IntPoint& point : points) {
            box.left = std::min(box.left, point.x);
            box.right = std::max(box.right, point.x);
            box.top = std::min(box.top, point.y);
            box.bottom = std::max(box.bottom, point.y);
            if (plane.Width > 0 && plane.Height > 0)
                CHECK((point.x >= 0 && point.x < plane.Width && point.y >= 0 && point.y < plane.Height));
        }
        CheckLabel(plane, box, value);
        break;
    }
    default: {
        std::vector<IntPoint>       points = Places(input, input.Byte() % 220);
        const std::vector<IntPoint> before = points;
        FillSpline(plane, points, value);
        CHECK(points.size() == before.size());
        break;
    }
    }
    GetBlobOutRect(plane, box, value);
    CheckLabel(plane, box, value);
}

void CheckCurve(InputBytes& input)
{
    const std::vector<IntPoint> points = Places(input, input.Byte());
    std::vector<IntPoint>       curve, controls;
    mB3Line(points, curve, controls);
    const bool has = points.size() >= 2 && points.size() <= 199;
    CHECK(controls.size() == (has ? points.size() + 3 : 0));
    CHECK(curve.size() == (has ? 11 * (points.size() - 1) : 0));
}

void CheckProduct(InputBytes& input)
{
    const int        rows = input.Below(40), inner = input.Below(40), columns = input.Below(40);
    const FloatPlane a = FloatsOf(input, inner, rows);
    const FloatPlane b = FloatsOf(input, columns, inner);
    const auto       result = CheckRuns([&] {
        FloatPlane first = a, second = b, product;
        MatrixMul(first, second, product);
        return LeftOf(product);
    });
    REQUIRE(result.has_value());
    for (std::size_t at = 0; at < result->Values.size(); ++at) {
        const int y = static_cast<int>(at) / columns, x = static_cast<int>(at) % columns;
        float     sum = 0.0f;
        for (int k = 0; k < inner; ++k)
            sum += a.Ptr2D[y][k] * b.Ptr2D[k][x];
        CHECK(SameFloats(&result->Values[at], &sum, 1));
    }
}

void CheckStitched(InputBytes& input)
{
    const FloatPlane a = FloatsOf(input, input.Below(48), input.Below(48));
    const FloatPlane b = FloatsOf(input, input.Below(48), input.Below(48));
    const int        overlap = SizeOf(input), trim = SizeOf(input) % 50;
    const bool       equalise = input.Coin();
    const auto       result = CheckRuns([&] {
        FloatPlane left = a, right = b;
        gImaConcate(&left, &right, overlap, trim, equalise);
        return LeftOf(left);
    });
    if (!result || overlap != 0 || a.Height <= 0)
        return;
    CHECK(result->Width == a.Width + b.Width);
    for (int y = 0; y < result->Height; ++y) {
        for (int x = 0; x < result->Width; ++x) {
            const float value = result->Values[static_cast<std::size_t>(y * result->Width + x)];
            const float right = x >= a.Width && y < b.Height ? b.Ptr2D[y][x - a.Width] : 0.0f;
            CHECK(SameFloats(&value, x < a.Width ? &a.Ptr2D[y][x] : &right, 1));
        }
    }
}

}

void FuzzOne(std::string_view bytes)
{
    InputBytes input(bytes);
    switch (input.Below(4)) {
    case 0:
        return CheckFill(input);
    case 1:
        return CheckCurve(input);
    case 2:
        return CheckProduct(input);
    default:
        return CheckStitched(input);
    }
}
