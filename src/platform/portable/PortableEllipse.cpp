#include "platform/portable/PortableEllipse.h"

#include <algorithm>
#include <cmath>

namespace vostel::gdi {
namespace {

// A walk along the outline is exact and takes as many steps as the outline has pixels. Ellipses beyond this
// extent are measured by rows instead, so that one of any size is drawn in the time of its visible rows.
constexpr std::int64_t WalkLimit = 1 << 17;

bool CanWalk(std::int64_t width, std::int64_t height)
{
    return width <= WalkLimit && height <= WalkLimit;
}

// Calls visit(x, upper row, lower row) for the pixels of the left half, from the middle to the two tips.
// The box's right and bottom are included. The error is the value of the ellipse's equation at the midpoint
// of the next step, scaled to whole numbers. A tip much narrower than it is tall ends early.
template <typename Visit>
void Walk(std::int64_t left, std::int64_t top, std::int64_t right, std::int64_t bottom, Visit visit)
{
    std::int64_t a = right - left, b = bottom - top, odd = b & 1;
    std::int64_t dx = 4 * (1 - a) * b * b, dy = 4 * (odd + 1) * a * a, error = dx + dy + odd * a * a;
    std::int64_t lower = top + (b + 1) / 2, upper = lower - odd;
    std::int64_t stepX = 8 * b * b, stepY = 8 * a * a;
    do {
        visit(left, upper, lower);
        std::int64_t twice = 2 * error;
        if (twice <= dy) {
            ++lower;
            --upper;
            dy += stepY;
            error += dy;
        }
        if (twice >= dx) {
            ++left;
            --right;
            dx += stepX;
            error += dx;
        }
    } while (left <= right);
}

}

EllipseRows::EllipseRows(const Bitmap& surface, std::int64_t left, std::int64_t top, std::int64_t right,
                         std::int64_t bottom)
    : Surface(surface), Left(left), Top(top), Right(right - 1), Bottom(bottom - 1)
{
    FirstRow = std::max<std::int64_t>(top, 0);
    std::int64_t lastRow = std::min<std::int64_t>(bottom, surface.Height) - 1;
    if (FirstRow > lastRow || left >= surface.Width || right <= 0 || surface.BitsPerPixel < 24)
        return;
    Runs.resize(static_cast<std::size_t>(lastRow - FirstRow + 1));
    if (CanWalk(right - left, bottom - top))
        Walk(this->Left, this->Top, this->Right, this->Bottom,
             [this](std::int64_t x, std::int64_t upper, std::int64_t lower) {
                 Note(x, upper);
                 Note(x, lower);
             });
    else
        MeasureFar();
}

void EllipseRows::Note(std::int64_t x, std::int64_t y)
{
    if (y >= FirstRow && y < FirstRow + static_cast<std::int64_t>(Runs.size())) {
        Run& run = Runs[static_cast<std::size_t>(y - FirstRow)];
        run.Outer = std::min(run.Outer, x);
        run.Inner = std::max(run.Inner, x);
    }
}

// The edge of row y lies at half the width times the root of 1 - v v, v being the row's distance from the
// middle in half heights. The outline of a row reaches to where the row nearer to the tip begins.
void EllipseRows::MeasureFar()
{
    const double halfWidth = static_cast<double>(Right - Left) / 2,
                 halfHeight = static_cast<double>(Bottom - Top) / 2;
    auto edge = [&](double distance) {
        double v = halfHeight > 0 ? std::min(1.0, distance / halfHeight) : 0.0;
        return Left + static_cast<std::int64_t>(halfWidth - halfWidth * std::sqrt((1.0 - v) * (1.0 + v)));
    };
    for (std::size_t i = 0; i < Runs.size(); ++i) {
        double distance =
            std::fabs(static_cast<double>(FirstRow + static_cast<std::int64_t>(i) - Top) - halfHeight);
        Runs[i].Outer = edge(distance);
        Runs[i].Inner = std::max(Runs[i].Outer, edge(distance + 1) - 1);
    }
}

void EllipseRows::Fill(const Paint& paint) const
{
    for (std::size_t i = 0; i < Runs.size(); ++i)
        if (Runs[i].Outer <= Runs[i].Inner)
            FillRow(Surface, paint, FirstRow + static_cast<std::int64_t>(i), Runs[i].Outer,
                    Left + Right - Runs[i].Outer + 1);
}

void EllipseRows::Outline(const Paint& paint) const
{
    for (std::size_t i = 0; i < Runs.size(); ++i)
        if (Runs[i].Outer <= Runs[i].Inner) {
            std::int64_t y = FirstRow + static_cast<std::int64_t>(i);
            FillRow(Surface, paint, y, Runs[i].Outer, Runs[i].Inner + 1);
            FillRow(Surface, paint, y, Left + Right - Runs[i].Inner, Left + Right - Runs[i].Outer + 1);
        }
}

std::vector<DevicePoint> EllipseRing(std::int64_t left, std::int64_t top, std::int64_t right,
                                     std::int64_t bottom)
{
    std::vector<DevicePoint> upper, lower, ring;
    if (!CanWalk(right - left, bottom - top))
        return ring;
    --right;
    --bottom;
    Walk(left, top, right, bottom, [&](std::int64_t x, std::int64_t upperRow, std::int64_t lowerRow) {
        upper.push_back({x, upperRow});
        lower.push_back({x, lowerRow});
    });
    auto add = [&](DevicePoint point, bool mirrored) {
        if (mirrored)
            point.X = left + right - point.X;
        if (ring.empty() || ring.back().X != point.X || ring.back().Y != point.Y)
            ring.push_back(point);
    };
    for (auto point = upper.begin(); point != upper.end(); ++point)
        add(*point, true);
    for (auto point = upper.rbegin(); point != upper.rend(); ++point)
        add(*point, false);
    for (auto point = lower.begin(); point != lower.end(); ++point)
        add(*point, false);
    for (auto point = lower.rbegin(); point != lower.rend(); ++point)
        add(*point, true);
    if (ring.size() > 1 && ring.front().X == ring.back().X && ring.front().Y == ring.back().Y)
        ring.pop_back();
    return ring;
}

}
