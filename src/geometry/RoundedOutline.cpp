#include "geometry/RoundedOutline.h"

#include "geometry/Coverage.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <map>
#include <numbers>
#include <utility>

namespace vostel {

namespace {

constexpr int         MostRounds = 32;          // two are what most take
constexpr std::size_t MostDiffering = 16384;    // pixels; more are no matter of rounding
constexpr double      NotchReach = 0.125;       // px along the edge, to both sides of the centre
constexpr double      LeastDepth = 0x1p-8;      // px
constexpr double      DepthShare = 0x1p-21;     // of the coordinate: some steps of a float

// Centres that one of two lists of runs has and the other has not. Both come from CoverageOf.
void CollectDiffering(const std::vector<PixelRun>& a, const std::vector<PixelRun>& b,
                      std::vector<ImagePoint>& centres)
{
    std::size_t next = 0;
    for (const PixelRun& run : a) {
        int x = run.Begin;
        while (next < b.size() && (b[next].Row < run.Row || (b[next].Row == run.Row && b[next].End <= x)))
            ++next;
        for (std::size_t other = next; x < run.End && centres.size() < MostDiffering; ++other) {
            const bool inRow = other < b.size() && b[other].Row == run.Row;
            const int  end = inRow ? std::min(run.End, b[other].Begin) : run.End;
            for (; x < end && centres.size() < MostDiffering; ++x)
                centres.emplace_back(x + 0.5, run.Row + 0.5);
            if (inRow)
                x = std::max(x, b[other].End);
        }
    }
}

std::vector<ImagePoint> DifferingCentres(const std::vector<PixelRun>& a, const std::vector<PixelRun>& b)
{
    std::vector<ImagePoint> centres;
    CollectDiffering(a, b, centres);
    CollectDiffering(b, a, centres);
    return centres;
}

// The place on a polygon that is closest to a centre.
struct Foot {
    std::size_t Edge = 0;        // from this corner to the next
    double      Along = 0.0;     // px from that corner
    double      Length = 0.0;    // px, of the edge
    ImagePoint  Direction;       // of the edge, of length 1
    ImagePoint  Centre;

    ImagePoint At(ImagePoint corner, double along) const
    {
        return {corner.x + along * Direction.x, corner.y + along * Direction.y};
    }
};

Foot FootOf(const std::vector<ImagePoint>& corners, ImagePoint centre)
{
    Foot   best;
    double leastDistance = std::numeric_limits<double>::infinity();
    for (std::size_t i = 0; i < corners.size(); ++i) {
        const ImagePoint& a = corners[i];
        const ImagePoint& b = corners[i + 1 < corners.size() ? i + 1 : 0];
        const double      length = std::hypot(b.x - a.x, b.y - a.y);
        if (length == 0.0)
            continue;
        const ImagePoint direction((b.x - a.x) / length, (b.y - a.y) / length);
        const double     along =
            std::clamp((centre.x - a.x) * direction.x + (centre.y - a.y) * direction.y, 0.0, length);
        const double distance =
            std::hypot(a.x + along * direction.x - centre.x, a.y + along * direction.y - centre.y);
        if (distance < leastDistance) {
            leastDistance = distance;
            best = {i, along, length, direction, centre};
        }
    }
    return best;
}

class Notching {
public:
    Notching(std::vector<ImagePoint>& corners, double (*rounding)(double), int round)
        : Corners(corners), Rounding(rounding), Round(round)
    {
    }

    void Notch(const std::vector<ImagePoint>& centres)
    {
        std::map<std::pair<std::size_t, double>, Foot> feet;    // in the order of the polygon
        for (const ImagePoint& centre : centres) {
            const Foot foot = FootOf(Corners, centre);
            if (foot.Length > 0.0 && !MovedCorner(foot))
                feet.emplace(std::pair(foot.Edge, foot.Along), foot);
        }
        std::vector<ImagePoint> notched;
        notched.reserve(Corners.size() + 3 * feet.size());
        auto foot = feet.begin();
        for (std::size_t i = 0; i < Corners.size(); ++i) {
            notched.push_back(Corners[i]);
            for (; foot != feet.end() && foot->first.first == i; ++foot)
                AppendNotch(notched, foot->second, Corners[i]);
        }
        Corners = std::move(notched);
    }

private:
    std::vector<ImagePoint>& Corners;
    double (*Rounding)(double);
    int Round;

    double DepthAt(ImagePoint centre) const
    {
        return std::max(LeastDepth, DepthShare * std::max(std::abs(centre.x), std::abs(centre.y)));
    }
    ImagePoint Rounded(ImagePoint p) const { return {Rounding(p.x), Rounding(p.y)}; }

    // Corners at the centre go to another side of it in every round, until the right one is found: the
    // closest alone first, and since an outline may come by more than once, then all of them.
    bool MovedCorner(const Foot& foot)
    {
        const bool        atNext = foot.Along > 0.5 * foot.Length;
        const std::size_t closest = atNext ? (foot.Edge + 1) % Corners.size() : foot.Edge;
        const double      depth = DepthAt(foot.Centre);
        const auto        isThere = [&](ImagePoint corner) {
            return std::hypot(corner.x - foot.Centre.x, corner.y - foot.Centre.y) <= 2.0 * depth;
        };
        if (!isThere(Corners[closest]))
            return false;
        const double     turn = TurnOf(closest, foot.Centre);
        const ImagePoint place =
            Rounded({foot.Centre.x + depth * std::cos(turn), foot.Centre.y + depth * std::sin(turn)});
        if (Round / 8 % 2 != 0)
            std::replace_if(Corners.begin(), Corners.end(), isThere, place);
        Corners[closest] = place;
        return true;
    }

    // Where a corner is tried: away from its neighbours and towards them, as the tip of a thin spike must,
    // then about an eighth of a turn further each round.
    double TurnOf(std::size_t corner, ImagePoint centre) const
    {
        const ImagePoint& before = Corners[corner > 0 ? corner - 1 : Corners.size() - 1];
        const ImagePoint& after = Corners[(corner + 1) % Corners.size()];
        const double      away =
            std::atan2(2.0 * centre.y - before.y - after.y, 2.0 * centre.x - before.x - after.x);
        return Round % 8 < 2 ? away + std::numbers::pi * (Round % 2) : 0.75 * Round + 0.4;
    }

    // The edge passes the centre on the wrong side: it is drawn over it. An edge through the centre moves to
    // the side of the hair by which centres on edges are decided.
    void AppendNotch(std::vector<ImagePoint>& notched, const Foot& foot, ImagePoint from) const
    {
        const ImagePoint at = foot.At(from, foot.Along);
        ImagePoint       across(foot.Centre.x - at.x, foot.Centre.y - at.y);
        const double     distance = std::hypot(across.x, across.y);
        if (distance > 0.0) {
            across = {across.x / distance, across.y / distance};
        } else {
            across = {-foot.Direction.y, foot.Direction.x};
            if (across.x < 0.0 || (across.x == 0.0 && across.y < 0.0))
                across = {-across.x, -across.y};
        }
        const double depth = DepthAt(foot.Centre);
        if (foot.Along > 2.0 * NotchReach)
            notched.push_back(Rounded(foot.At(from, foot.Along - NotchReach)));
        notched.push_back(Rounded({foot.Centre.x + depth * across.x, foot.Centre.y + depth * across.y}));
        if (foot.Length - foot.Along > 2.0 * NotchReach)
            notched.push_back(Rounded(foot.At(from, foot.Along + NotchReach)));
    }
};

}

RoundedOutline RoundOutline(const Outline& outline, double tolerance, double (*rounding)(double), int width,
                            int height)
{
    RoundedOutline rounded;
    bool           isExact = outline.Form == OutlineForm::Polygon;
    for (const ImagePoint& point : outline.Flattened(tolerance)) {
        rounded.Corners.emplace_back(rounding(point.x), rounding(point.y));
        isExact = isExact && SamePlace(point, rounded.Corners.back());
    }
    if (isExact || width <= 0 || height <= 0)
        return rounded;
    const std::vector<PixelRun> covered = CoverageOf(outline, width, height);
    for (int round = 0; round <= MostRounds; ++round) {
        const std::vector<ImagePoint> differing =
            DifferingCentres(covered, CoverageOf(Outline::OfPolygon(rounded.Corners), width, height));
        rounded.CoversTheSame = differing.empty();
        if (differing.empty() || differing.size() >= MostDiffering || round == MostRounds)
            break;
        Notching(rounded.Corners, rounding, round).Notch(differing);
    }
    return rounded;
}

}
