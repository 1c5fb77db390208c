#include "geometry/Keyhole.h"

#include "geometry/LocalFrame.h"
#include "geometry/Outline.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <functional>
#include <unordered_map>

namespace vostel {

namespace {

struct DirectedEdge {
    ImagePoint From;
    ImagePoint To;

    bool operator==(const DirectedEdge& other) const
    {
        return SamePlace(From, other.From) && SamePlace(To, other.To);
    }
};

struct EdgeHash {
    std::size_t operator()(const DirectedEdge& edge) const
    {
        std::size_t hash = 0;
        for (const double coordinate : {edge.From.x, edge.From.y, edge.To.x, edge.To.y})
            hash = (hash ^ std::hash<double>()(coordinate)) * 0x9E3779B97F4A7C15u;
        return hash ^ hash >> 29;
    }
};

// The loops into which pairs of opposite edges cut a polygon; what encloses nothing is left out.
std::vector<Ring> LoopsOf(const Ring& polygon)
{
    std::vector<Ring>                                       loops;
    std::vector<DirectedEdge>                               walked;
    std::unordered_map<DirectedEdge, std::size_t, EdgeHash> places;    // in what was walked
    for (std::size_t i = 0; i < polygon.size(); ++i) {
        const DirectedEdge edge = {polygon[i], polygon[(i + 1) % polygon.size()]};
        const auto         opposite = places.find({edge.To, edge.From});
        if (opposite == places.end()) {
            places.emplace(edge, walked.size());
            walked.push_back(edge);
            continue;
        }
        const std::size_t bridge = opposite->second;
        Ring              loop;
        for (std::size_t k = walked.size(); k > bridge; --k) {
            if (k - 1 > bridge)
                loop.push_back(walked[k - 1].From);
            const auto place = places.find(walked[k - 1]);
            if (place != places.end() && place->second == k - 1)
                places.erase(place);
        }
        walked.resize(bridge);
        std::reverse(loop.begin(), loop.end());
        if (loop.size() >= 3)
            loops.push_back(std::move(loop));
    }
    Ring outer;
    for (const DirectedEdge& edge : walked)
        outer.push_back(edge.From);
    if (outer.size() >= 3)
        loops.push_back(std::move(outer));
    return loops;
}

bool Contains(const Bounds& outer, const Bounds& inner)
{
    return outer.Left <= inner.Left && outer.Top <= inner.Top && outer.Right >= inner.Right &&
           outer.Bottom >= inner.Bottom;
}

// How far two points are apart, in the larger of the two coordinates.
double Apart(ImagePoint a, ImagePoint b)
{
    return std::max(std::fabs(a.x - b.x), std::fabs(a.y - b.y));
}

std::size_t NearestOf(const Ring& ring, ImagePoint to)
{
    const auto distance = [to](ImagePoint p) {
        return (p.x - to.x) * (p.x - to.x) + (p.y - to.y) * (p.y - to.y);
    };
    const auto nearest = std::min_element(
        ring.begin(), ring.end(), [&](ImagePoint a, ImagePoint b) { return distance(a) < distance(b); });
    return static_cast<std::size_t>(nearest - ring.begin());
}

}

Ring JoinRings(std::span<const Ring> rings)
{
    constexpr std::size_t    MostComparisons = std::size_t(1) << 27;
    std::vector<const Ring*> holes;
    for (std::size_t i = 1; i < rings.size(); ++i) {
        if (!rings[i].empty())
            holes.push_back(&rings[i]);
    }
    if (rings.empty() || holes.empty() || rings[0].empty())
        return rings.empty() ? Ring() : rings[0];
    const Ring& outer = rings[0];
    // Holes by the point of the ring that they hang on.
    std::vector<std::vector<const Ring*>> hanging(outer.size());
    const bool                            few = outer.size() <= MostComparisons / holes.size();
    for (const Ring* const hole : holes)
        hanging[few ? NearestOf(outer, hole->front()) : 0].push_back(hole);
    Ring joined;
    for (std::size_t i = 0; i < outer.size(); ++i) {
        joined.push_back(outer[i]);
        for (const Ring* const hole : hanging[i]) {
            joined.insert(joined.end(), hole->begin(), hole->end());
            joined.push_back(hole->front());
            joined.push_back(outer[i]);
        }
    }
    return joined;
}

std::vector<Ring> SplitRings(const Ring& polygon)
{
    std::vector<Ring> loops = LoopsOf(polygon);
    if (loops.size() < 2)
        return {polygon};
    const auto size = [](const Ring& ring) { return std::fabs(SignedArea(ring)); };
    std::iter_swap(loops.begin(), std::max_element(loops.begin(), loops.end(),
                                                   [&](auto& a, auto& b) { return size(a) < size(b); }));
    const Bounds box = BoundsOf(loops[0]);
    const double way = SignedArea(loops[0]);
    for (std::size_t i = 1; i < loops.size(); ++i) {
        if (!Contains(box, BoundsOf(loops[i])) || SignedArea(loops[i]) * way >= 0.0)
            return {polygon};
    }
    return loops;
}

double SignedArea(std::span<const ImagePoint> ring)
{
    const LocalFrame frame(ring);
    double           twice = 0.0;
    for (std::size_t i = 0; i < ring.size(); ++i) {
        const ImagePoint a = frame.ToLocal(ring[i]);
        const ImagePoint b = frame.ToLocal(ring[(i + 1) % ring.size()]);
        twice += a.x * b.y - a.y * b.x;
    }
    return frame.ToImageArea(0.5 * twice);
}

bool AreSameRing(std::span<const ImagePoint> a, std::span<const ImagePoint> b, double tolerance)
{
    constexpr int MostStarts = 64;
    if (a.size() != b.size())
        return false;
    const std::size_t count = a.size();
    int               starts = 0;
    for (std::size_t start = 0; start < count && starts < MostStarts; ++start) {
        if (Apart(a[0], b[start]) > tolerance)
            continue;
        ++starts;
        bool forwards = true;
        bool backwards = true;
        for (std::size_t i = 0; i < count && (forwards || backwards); ++i) {
            forwards = forwards && Apart(a[i], b[(start + i) % count]) <= tolerance;
            backwards = backwards && Apart(a[i], b[(start + count - i) % count]) <= tolerance;
        }
        if (forwards || backwards)
            return true;
    }
    return count == 0;
}

}
