#pragma once

#include "geometry/ImagePoint.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace vostel {

// Pixels Begin..End-1 of a row that have one label.
struct LabelRun {
    int          Row = 0;
    int          Begin = 0;
    int          End = 0;
    std::int32_t Label = 0;
};

// The connected parts of the labels of an image and their outlines along pixel edges.
//
// Pixels of one label that share an edge are one part; those that touch at a corner only are two. A part
// becomes one polygon whose even-odd interior is the part to the pixel: its holes are joined to it by
// bridges, level lines that are walked there and back and enclose nothing. Time and memory grow with the
// runs.
class LabelParts {
public:
    // Takes the longest runs of labels other than 0, from top to bottom and from left to right; fewer than
    // 2^31.
    explicit LabelParts(const std::vector<LabelRun>& runs);

    // In the order of their labels, those of one label in the order of their first runs.
    std::size_t  Count() const { return Parts.size(); }
    std::int32_t LabelOf(std::size_t part) const { return Parts[part].Label; }
    // Clockwise as it is seen, from the upper left corner of the first run on; no point follows itself.
    std::vector<ImagePoint> OutlineOf(std::size_t part) const;

private:
    struct Part {
        std::int32_t Label = 0;
        std::size_t  Begin = 0;    // of its runs
        std::size_t  End = 0;
    };
    std::vector<LabelRun> Runs;    // those of a part together, in their order
    std::vector<Part>     Parts;
};

// Appends the runs of a row.
template <typename Sample>
void AppendRuns(const Sample* samples, int width, int row, std::vector<LabelRun>& runs)
{
    for (int x = 0; x < width;) {
        const int    begin = x;
        const Sample label = samples[x];
        while (x < width && samples[x] == label)
            ++x;
        if (label != 0)
            runs.push_back({row, begin, x, static_cast<std::int32_t>(label)});
    }
}

}
