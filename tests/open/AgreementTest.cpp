// What is drawn of a region, what its mask and its label take in and what a press finds are one thing, at
// every zoom to one device px.

#include "support/Frame.h"
#include "support/OpenCanvas.h"
#include "support/OpenShapes.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <string>

namespace {

constexpr int      Columns = 64, Rows = 48;
constexpr int      ClientWidth = 300, ClientHeight = 200;
constexpr unsigned LineColor = 0x00FF00;
constexpr unsigned InsideShade = 0xFFFFFF, OutsideShade = 0x646464;

// A gray image with one region, inside which a contrast window of its own shows it white.
class Scene {
public:
    OpenCanvas   Canvas{ClientWidth, ClientHeight};
    VostelObject Region = 0;

    Scene(VostelKind kind, const Points& points, uint32_t flags)
    {
        ShowBytes(Canvas.Number, Columns, Rows, [](int, int) { return 100; });
        Region = Add(Canvas.Number, kind, points);
        REQUIRE(vostel_object_set_flags(Canvas.Number, Region, flags) == VOSTEL_OK);
        VostelStyle style = {};
        style.size = sizeof style;
        REQUIRE(vostel_object_style(Canvas.Number, Region, &style) == VOSTEL_OK);
        style.line_color = LineColor;
        REQUIRE(vostel_object_set_style(Canvas.Number, Region, &style) == VOSTEL_OK);
        REQUIRE(vostel_contrast_of_object(Canvas.Number, Region, 50.0, 100.0) == VOSTEL_OK);
        Mask.resize(std::size_t{Columns} * Rows);
        REQUIRE(vostel_mask(Canvas.Number, Region, Mask.data(), 0) == VOSTEL_OK);
        std::size_t count = 0;
        REQUIRE(vostel_object_outline(Canvas.Number, Region, nullptr, 0, &count) == VOSTEL_OK);
        Outline.resize(count);
        REQUIRE(vostel_object_outline(Canvas.Number, Region, Outline.data(), count, &count) == VOSTEL_OK);
    }

    void LookAt(double scale, VostelPoint place)
    {
        const VostelView view = {sizeof view, scale, ClientWidth * 0.5 - place.x * scale,
                                 ClientHeight * 0.5 - place.y * scale};
        REQUIRE(vostel_view_set(Canvas.Number, &view) == VOSTEL_OK);
        Shown = {sizeof Shown, 0.0, 0.0, 0.0};
        REQUIRE(vostel_view_get(Canvas.Number, &Shown) == VOSTEL_OK);
        // From the middle of a px, whose corners lie 0.71 px away, to one px beside it; the outline that is
        // given lies within 0.01 image px of the exact one.
        Reach = 1.8 + 0.01 * scale;
        Handles = ClientOf(PointsOf(Canvas.Number, Region));
        ClientOutline = ClientOf(Outline);
        VostelFrame frame = {};
        frame.size = sizeof frame;
        REQUIRE(vostel_frame_render(Canvas.Number, &frame) == VOSTEL_OK);
        Pixels = Frame(ClientWidth, ClientHeight);
        for (int y = 0; y < ClientHeight; ++y)
            std::memcpy(&Pixels.At(0, y), reinterpret_cast<const char*>(frame.pixels) + y * frame.row_bytes,
                        std::size_t{4} * ClientWidth);
    }

    // The label is that of the mask.
    bool LabelIsMask() const
    {
        std::vector<int32_t> labels(Mask.size());
        REQUIRE(vostel_labels(Canvas.Number, labels.data(), 0) == VOSTEL_OK);
        return std::equal(labels.begin(), labels.end(), Mask.begin(),
                          [](int32_t label, std::uint8_t mask) { return (label == 1) == (mask == 255); });
    }

    // Px whose surroundings of one px lie in image px of one kind and that show another.
    int WronglyShaded() const
    {
        int wrong = 0;
        for (int y = 0; y < ClientHeight; ++y) {
            for (int x = 0; x < ClientWidth; ++x) {
                const unsigned shade = Pixels.At(x, y) & 0xFFFFFF;
                const int      kind = KindAround(x, y);
                wrong += (kind == 1 && shade == OutsideShade) || (kind == 0 && shade == InsideShade);
            }
        }
        return wrong;
    }

    // Px of the line farther than one px from the outline.
    int StrayLinePixels() const
    {
        int stray = 0;
        for (int y = 0; y < ClientHeight; ++y) {
            for (int x = 0; x < ClientWidth; ++x)
                stray += (Pixels.At(x, y) & 0xFFFFFF) == LineColor && !IsNearHandle(x, y) &&
                         DistanceToOutline(x + 0.5, y + 0.5) > Reach;
        }
        return stray;
    }

    // Places of the outline without a px of the line within one px.
    int GapsInLine() const
    {
        int gaps = 0;
        for (std::size_t i = 0; i < ClientOutline.size(); ++i) {
            const VostelPoint& a = ClientOutline[i];
            const VostelPoint& b = ClientOutline[(i + 1) % ClientOutline.size()];
            const int          steps = static_cast<int>(std::hypot(b.x - a.x, b.y - a.y)) + 1;
            for (int step = 0; step < std::min(steps, 20000); ++step) {
                const double x = a.x + (b.x - a.x) * step / steps;
                const double y = a.y + (b.y - a.y) * step / steps;
                if (x < 2.0 || y < 2.0 || x >= ClientWidth - 2.0 || y >= ClientHeight - 2.0)
                    continue;
                const int column = static_cast<int>(x), row = static_cast<int>(y);
                gaps += !IsNearHandle(column, row) && !HasLineAround(column, row);
            }
        }
        return gaps;
    }

    // Px farther than one px from the outline where a press finds what does not lie there, or finds nothing.
    int WronglyHit() const
    {
        int wrong = 0;
        for (int y = 0; y < ClientHeight; y += 6) {
            for (int x = 0; x < ClientWidth; x += 6) {
                if (IsNearHandle(x, y) || DistanceToOutline(x + 0.5, y + 0.5) <= Reach)
                    continue;
                VostelObject hit = 0;
                REQUIRE(vostel_object_at(Canvas.Number, x + 0.5, y + 0.5, &hit) == VOSTEL_OK);
                wrong += (hit == Region) != IsInside(x + 0.5, y + 0.5);
            }
        }
        return wrong;
    }

private:
    std::vector<std::uint8_t> Mask;
    Points                    Outline;
    Points                    ClientOutline;
    Points                    Handles;
    double                    Reach = 0.0;    // client px
    VostelView                Shown = {};
    Frame                     Pixels{1, 1};

    Points ClientOf(const Points& points) const
    {
        Points client;
        for (const VostelPoint& point : points)
            client.push_back({point.x * Shown.scale + Shown.left, point.y * Shown.scale + Shown.top});
        return client;
    }

    // 1 inside, 0 outside, -1 for neither: both around, or not on the image.
    int KindAround(int x, int y) const
    {
        int kind = -2;
        for (const double byX : {-0.5, 0.5, 1.5}) {
            for (const double byY : {-0.5, 0.5, 1.5}) {
                const double column = (x + byX - Shown.left) / Shown.scale;
                const double row = (y + byY - Shown.top) / Shown.scale;
                if (column < 0.0 || row < 0.0 || column >= Columns || row >= Rows)
                    return -1;
                const int here =
                    Mask[static_cast<std::size_t>(row) * Columns + static_cast<std::size_t>(column)] == 255;
                if (kind != -2 && kind != here)
                    return -1;
                kind = here;
            }
        }
        // Below scale 1 there are image px in between.
        return Shown.scale >= 1.0 ? kind : -1;
    }

    bool IsNearHandle(int x, int y) const
    {
        return std::any_of(Handles.begin(), Handles.end(), [&](const VostelPoint& handle) {
            return std::fabs(handle.x - x) < 8.0 && std::fabs(handle.y - y) < 8.0;
        });
    }

    bool HasLineAround(int column, int row) const
    {
        for (int y = row - 1; y <= row + 1; ++y) {
            for (int x = column - 1; x <= column + 1; ++x) {
                if ((Pixels.At(x, y) & 0xFFFFFF) == LineColor)
                    return true;
            }
        }
        return false;
    }

    double DistanceToOutline(double x, double y) const
    {
        double least = 1e9;
        for (std::size_t i = 0; i < ClientOutline.size(); ++i) {
            const VostelPoint& a = ClientOutline[i];
            const VostelPoint& b = ClientOutline[(i + 1) % ClientOutline.size()];
            const double       dx = b.x - a.x, dy = b.y - a.y;
            const double       squared = dx * dx + dy * dy;
            const double       along =
                squared > 0.0 ? std::clamp(((x - a.x) * dx + (y - a.y) * dy) / squared, 0.0, 1.0) : 0.0;
            least = std::min(least, std::hypot(a.x + dx * along - x, a.y + dy * along - y));
        }
        return least;
    }

    bool IsInside(double x, double y) const
    {
        bool inside = false;
        for (std::size_t i = 0, j = ClientOutline.size() - 1; i < ClientOutline.size(); j = i++) {
            const VostelPoint& a = ClientOutline[i];
            const VostelPoint& b = ClientOutline[j];
            if ((a.y > y) != (b.y > y) && x < (b.x - a.x) * (y - a.y) / (b.y - a.y) + a.x)
                inside = !inside;
        }
        return inside;
    }
};

struct Shape {
    const char* Name;
    VostelKind  Kind;
    uint32_t    Flags;
    Points      Corners;
};

}

TEST_CASE("outline, mask, label and what a press finds agree at every zoom to one device px")
{
    const Shape shapes[] = {
        {"rectangle", VOSTEL_RECTANGLE, 0, {{9.3, 8.7}, {50.6, 40.2}}},
        {"ellipse", VOSTEL_RECTANGLE, VOSTEL_ELLIPSE, {{9.3, 8.7}, {50.6, 40.2}}},
        {"polygon", VOSTEL_POLYGON, 0, {{9.3, 8.7}, {50.6, 12.4}, {44.1, 40.2}, {30.5, 20.9}, {12.2, 37.8}}},
        {"spline", VOSTEL_SPLINE, 0, {{9.3, 8.7}, {50.6, 12.4}, {44.1, 40.2}, {30.5, 20.9}, {12.2, 37.8}}},
        {"free region", VOSTEL_FREE_REGION, 0, {{9.3, 8.7}, {50.6, 12.4}, {44.1, 40.2}, {12.2, 37.8}}}};
    for (const Shape& shape : shapes) {
        CAPTURE(std::string(shape.Name));
        Scene scene(shape.Kind, shape.Corners, shape.Flags);
        CHECK(scene.LabelIsMask());
        for (const double scale : {0.37, 1.0, 1.37, 3.3, 7.3, 40.0, 75.5}) {
            // In the middle and on a side.
            for (const VostelPoint& place : Points{{30.0, 24.0}, {47.9, 30.3}}) {
                CAPTURE(scale);
                CAPTURE(place.x);
                scene.LookAt(scale, place);
                CHECK(scene.WronglyShaded() == 0);
                CHECK(scene.StrayLinePixels() == 0);
                CHECK(scene.GapsInLine() == 0);
                CHECK(scene.WronglyHit() == 0);
            }
        }
    }
}
