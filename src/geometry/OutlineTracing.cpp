#include "geometry/OutlineTracing.h"

#include <algorithm>
#include <numeric>
#include <span>
#include <unordered_map>

namespace vostel {

namespace {

using Index = std::uint32_t;

constexpr Index None = UINT32_MAX;

// Sets of runs, each known by its first one.
class RunSets {
public:
    explicit RunSets(std::size_t count) : Parents(count) { std::iota(Parents.begin(), Parents.end(), 0u); }

    Index First(Index run)
    {
        while (Parents[run] != run)
            run = Parents[run] = Parents[Parents[run]];
        return run;
    }
    void Join(Index a, Index b)
    {
        a = First(a);
        b = First(b);
        Parents[std::max(a, b)] = std::min(a, b);
    }

private:
    std::vector<Index> Parents;
};

std::size_t EndOfRow(std::span<const LabelRun> runs, std::size_t begin)
{
    std::size_t end = begin;
    while (end < runs.size() && runs[end].Row == runs[begin].Row)
        ++end;
    return end;
}

// Joins the runs that lie below each other. Those of a row lie apart, so two of a pair of rows that is walked
// from left to right are never passed by.
RunSets JoinedRuns(std::span<const LabelRun> runs)
{
    RunSets     sets(runs.size());
    std::size_t above = 0;
    for (std::size_t begin = EndOfRow(runs, 0); begin < runs.size();) {
        const std::size_t end = EndOfRow(runs, begin);
        if (runs[above].Row + 1 == runs[begin].Row) {
            std::size_t a = above;
            std::size_t b = begin;
            while (a < begin && b < end) {
                if (runs[a].Label == runs[b].Label && runs[a].Begin < runs[b].End &&
                    runs[b].Begin < runs[a].End)
                    sets.Join(static_cast<Index>(a), static_cast<Index>(b));
                ++(runs[a].End < runs[b].End ? a : b);
            }
        }
        above = begin;
        begin = end;
    }
    return sets;
}

// The outline of one part. Each run has two upright edges of one pixel: number 2 i is the left edge of run i
// and is walked upwards, 2 i + 1 the right one, walked downwards, so that the part always lies to the right.
class PartOutline {
public:
    explicit PartOutline(std::span<const LabelRun> runs)
        : Runs(runs), Following(2 * runs.size(), None), Seen(2 * runs.size(), false)
    {
        LinkAll();
        MarkLoop(0);
        BridgeHoles();
    }

    std::vector<ImagePoint> Walk();

private:
    // One end of an edge: where it is entered or where it is left.
    struct Place {
        Index Edge = 0;
        bool  Leaving = false;
    };
    // The walk around a hole ends where it began and goes on with the loop that it interrupted.
    struct Interrupted {
        Place At;
        Index Start = 0;
    };

    std::span<const LabelRun>        Runs;
    std::vector<Index>               Following;    // of each edge: the next one of its loop
    std::vector<bool>                Seen;
    std::unordered_map<Index, Index> Bridges;    // by the end of an edge: the first edge of the hole behind
    std::vector<ImagePoint>          Corners;

    static bool  GoesDown(Index edge) { return edge % 2 == 1; }
    static Index EndKey(Place at) { return 2 * at.Edge + (at.Leaving ? 1u : 0u); }

    int X(Index edge) const
    {
        const LabelRun& run = Runs[edge / 2];
        return GoesDown(edge) ? run.End : run.Begin;
    }
    ImagePoint PointAt(Place at) const
    {
        const bool lower = GoesDown(at.Edge) == at.Leaving;
        return {static_cast<double>(X(at.Edge)),
                static_cast<double>(Runs[at.Edge / 2].Row + (lower ? 1 : 0))};
    }
    void Put(ImagePoint corner)
    {
        if (Corners.empty() || !SamePlace(Corners.back(), corner))
            Corners.push_back(corner);
    }

    void LinkAll();
    void LinkRows(std::size_t above, std::size_t between, std::size_t below);
    void MarkLoop(Index first);
    void BridgeHoles();
};

// The level line between two rows of runs: on it, what one row covers and the other does not is bounded by
// pairs of edges, from left to right. Where an edge above stands on one below, it goes straight on; where the
// part is only on one side of such a place and then only on the other, its pixels touch at a corner, and the
// loop stays with the pixel that it came along.
void PartOutline::LinkRows(std::size_t above, std::size_t between, std::size_t below)
{
    Index       a = static_cast<Index>(2 * above);
    const Index aEnd = static_cast<Index>(2 * between);
    Index       b = aEnd;
    const Index bEnd = static_cast<Index>(2 * below);
    const auto  arrives = [aEnd](Index edge) { return GoesDown(edge) == (edge < aEnd); };
    const auto  link = [&](Index one, Index other) {
        if (arrives(one))
            Following[one] = other;
        else
            Following[other] = one;
    };
    Index open = None;
    while (a < aEnd || b < bEnd) {
        const bool same = a < aEnd && b < bEnd && X(a) == X(b);
        if (same && open == None) {
            link(a++, b++);
            continue;
        }
        const bool  takeAbove = same ? GoesDown(a) : b == bEnd || (a < aEnd && X(a) < X(b));
        const Index edge = takeAbove ? a++ : b++;
        if (open == None) {
            open = edge;
        } else {
            link(open, edge);
            open = None;
        }
    }
}

void PartOutline::LinkAll()
{
    std::size_t above = 0;
    std::size_t begin = 0;
    while (begin < Runs.size()) {
        const std::size_t end = EndOfRow(Runs, begin);
        LinkRows(above, begin, end);
        above = begin;
        begin = end;
    }
    LinkRows(above, begin, begin);
}

void PartOutline::MarkLoop(Index first)
{
    Index edge = first;
    do {
        Seen[edge] = true;
        edge = Following[edge];
    } while (edge != first);
}

// Left of the upper left corner of a hole the part lies above and below the level line through it, as far as
// the nearer one of the runs there begins. The loop that passes there has a higher or more leftward corner
// than the hole: so all holes hang on the outer loop in the end.
void PartOutline::BridgeHoles()
{
    std::size_t above = 0;
    std::size_t begin = 0;
    while (begin < Runs.size()) {
        const std::size_t end = EndOfRow(Runs, begin);
        std::size_t       over = above;    // the run above, of row begin - 1
        for (std::size_t i = begin; i < end; ++i) {
            const Index right = static_cast<Index>(2 * i + 1);
            if (Seen[right])
                continue;
            MarkLoop(right);
            while (over < begin && Runs[over].End < Runs[i].End)
                ++over;
            const bool  fromRun = Runs[i].Begin >= Runs[over].Begin;
            const Index left = static_cast<Index>(2 * (fromRun ? i : over));
            Bridges[EndKey({left, fromRun})] = right;
        }
        above = begin;
        begin = end;
    }
}

std::vector<ImagePoint> PartOutline::Walk()
{
    std::vector<Interrupted> outer;
    Index                    start = 0;
    Place                    at;
    for (;;) {
        const auto bridge = Bridges.find(EndKey(at));
        if (bridge != Bridges.end()) {
            Put(PointAt(at));
            outer.push_back({at, start});
            start = bridge->second;
            at = {start, false};
            Put(PointAt(at));
            Bridges.erase(bridge);
            continue;
        }
        if (!at.Leaving) {
            at.Leaving = true;
            continue;
        }
        const Place next = {Following[at.Edge], false};
        if (X(next.Edge) != X(at.Edge)) {
            Put(PointAt(at));
            Put(PointAt(next));
        }
        if (next.Edge != start) {
            at = next;
            continue;
        }
        if (outer.empty())
            break;
        at = outer.back().At;
        start = outer.back().Start;
        outer.pop_back();
        Put(PointAt(at));
    }
    if (SamePlace(Corners.front(), Corners.back()))
        Corners.pop_back();
    return std::move(Corners);
}

}

LabelParts::LabelParts(const std::vector<LabelRun>& runs)
{
    if (runs.empty())
        return;
    RunSets            sets = JoinedRuns(runs);
    std::vector<Index> partOf(runs.size());
    std::vector<Index> firsts;    // the first run of each part as they come
    for (std::size_t i = 0; i < runs.size(); ++i) {
        const Index first = sets.First(static_cast<Index>(i));
        if (first == i) {
            partOf[i] = static_cast<Index>(firsts.size());
            firsts.push_back(first);
        } else {
            partOf[i] = partOf[first];
        }
    }
    std::vector<Index> order(firsts.size());
    std::iota(order.begin(), order.end(), 0u);
    std::stable_sort(order.begin(), order.end(),
                     [&](Index a, Index b) { return runs[firsts[a]].Label < runs[firsts[b]].Label; });
    std::vector<std::size_t> places(firsts.size(), 0);    // first the number of runs, then where they go
    for (const Index part : partOf)
        ++places[part];
    Parts.reserve(order.size());
    std::size_t begin = 0;
    for (const Index part : order) {
        const std::size_t count = places[part];
        Parts.push_back({runs[firsts[part]].Label, begin, begin + count});
        places[part] = begin;
        begin += count;
    }
    Runs.resize(runs.size());
    for (std::size_t i = 0; i < runs.size(); ++i)
        Runs[places[partOf[i]]++] = runs[i];
}

std::vector<ImagePoint> LabelParts::OutlineOf(std::size_t part) const
{
    const Part& found = Parts[part];
    return PartOutline(std::span(Runs).subspan(found.Begin, found.End - found.Begin)).Walk();
}

}
