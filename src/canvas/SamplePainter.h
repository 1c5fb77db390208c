#pragma once

#include "canvas/PixelSurface.h"
#include "geometry/PlaneView.h"
#include "output/ContrastState.h"
#include "output/ContrastTables.h"
#include "output/FloatWindow.h"

#include <optional>
#include <span>
#include <vector>

namespace vostel {

// Draws samples of a type onto a canvas surface through a contrast window. Making one takes all the memory
// that it needs; Prepare of a state with gamma 1 takes no more.
class SamplePainter {
public:
    explicit SamplePainter(SampleType type);
    SamplePainter(SampleType type, const ContrastState& state);

    void Prepare(const ContrastState& state);

    // The surface has the plane's size.
    void Draw(const PlaneView& plane, PixelSurface& surface) const;
    void Draw(const PlaneView& plane, std::span<const PixelRun> runs, PixelSurface& surface) const;

private:
    SampleType                 Type;
    bool                       AsUploaded = false;    // bytes show as they are
    std::optional<FloatWindow> Floats;
    std::vector<unsigned>      Table;    // of whole gray values
    std::optional<ColorTables> Colors;

    void DrawRun(const PlaneView& plane, const PixelRun& run, unsigned* pixels, bool streaming) const;
    void ShowRun(const PlaneView& plane, int row, int begin, int count, unsigned* pixels) const;
};

}
