#include "canvas/SamplePainter.h"

#include "base/PixelFill.h"
#include "foundation/RowThreads.h"
#include "output/PlaneUploads.h"

#include <algorithm>
#include <cstddef>
#include <new>

namespace vostel {

namespace {

// Pixels at a time: a block stays in the first-level cache until it is copied onto the surface, past the
// caches if that is large.
constexpr int Block = 1024;

// Pixels from which threads pay.
constexpr std::size_t ThreadsFrom = std::size_t{1} << 20;

std::size_t TableEntries(SampleType type)
{
    return type == SampleType::U8 ? 256 : type == SampleType::U16 || type == SampleType::I16 ? 65536 : 0;
}

unsigned* SurfaceRow(PixelSurface& surface, int y)
{
    return surface.Pixels +
           static_cast<std::size_t>(surface.Height - 1 - y) * static_cast<std::size_t>(surface.Width);
}

template <typename Sample>
const Sample* SamplesAt(const PlaneView& plane, int row, int begin)
{
    return plane.Row<Sample>(row) + begin;
}

const std::uint8_t* PixelsAt(const PlaneView& plane, int row, int begin)
{
    return plane.Row<std::uint8_t>(row) + static_cast<std::size_t>(begin) * PixelBytes(plane.Type);
}

}

SamplePainter::SamplePainter(SampleType type) : Type(type)
{
    Table.reserve(TableEntries(type));
}

SamplePainter::SamplePainter(SampleType type, const ContrastState& state) : SamplePainter(type)
{
    Prepare(state);
}

void SamplePainter::Prepare(const ContrastState& state)
{
    const ContrastCurve curve(state);
    AsUploaded = false;
    switch (Type) {
    case SampleType::F32:
        Floats.emplace(state);
        break;
    case SampleType::U16:
        FillTable<std::uint16_t>(curve, Table);
        break;
    case SampleType::I16:
        FillTable<std::int16_t>(curve, Table);
        break;
    case SampleType::U8:
        FillTable<std::uint8_t>(curve, Table);
        AsUploaded = curve.IsIdentity();
        break;
    default:
        Colors.emplace(state);
        AsUploaded = Colors->IsIdentity && Type != SampleType::Rgb8;
    }
}

void SamplePainter::Draw(const PlaneView& plane, PixelSurface& surface) const
{
    surface.PixelsToChange();
    const std::size_t pixels = static_cast<std::size_t>(plane.Width) * static_cast<std::size_t>(plane.Height);
    const bool        streaming = UsesStreamingStores(pixels * sizeof(unsigned));
    const auto        drawRows = [&](RowRun rows) {
        for (int y = rows.First; y < rows.End; ++y)
            DrawRun(plane, {y, 0, plane.Width}, SurfaceRow(surface, y), streaming);
        if (streaming)
            FenceStreamingStores();
    };
    const RowRun all = {0, plane.Height};
    if (pixels < ThreadsFrom) {
        drawRows(all);
        return;
    }
    try {
        ForEachRowRun(plane.Height, drawRows);
    } catch (const std::bad_alloc&) {
        drawRows(all);    // without the memory that threads take
    }
}

void SamplePainter::Draw(const PlaneView& plane, std::span<const PixelRun> runs, PixelSurface& surface) const
{
    surface.PixelsToChange();
    for (const PixelRun& run : runs)
        DrawRun(plane, run, SurfaceRow(surface, run.Row), false);
}

void SamplePainter::DrawRun(const PlaneView& plane, const PixelRun& run, unsigned* pixels,
                            bool streaming) const
{
    if (AsUploaded) {
        const auto upload = Type == SampleType::U8     ? UploadGrayRow
                            : Type == SampleType::Bgr8 ? UploadTripleRow
                                                       : UploadQuadRow;
        upload(PixelsAt(plane, run.Row, run.Begin), pixels + run.Begin, run.End - run.Begin, streaming);
        return;
    }
    if (Type == SampleType::F32) {
        ShowFloats(*Floats, SamplesAt<float>(plane, run.Row, run.Begin), pixels + run.Begin,
                   static_cast<std::size_t>(run.End - run.Begin), streaming);
        return;
    }
    alignas(64) unsigned block[Block];
    for (int x = run.Begin; x < run.End; x += Block) {
        const int count = std::min(Block, run.End - x);
        ShowRun(plane, run.Row, x, count, block);
        CopyPixels(block, pixels + x, static_cast<std::size_t>(count), streaming);
    }
}

void SamplePainter::ShowRun(const PlaneView& plane, int row, int begin, int count, unsigned* pixels) const
{
    const std::size_t all = static_cast<std::size_t>(count);
    switch (Type) {
    case SampleType::U16:
        ShowByTable(Table, SamplesAt<std::uint16_t>(plane, row, begin), pixels, all);
        break;
    case SampleType::I16:
        ShowByTable(Table, SamplesAt<std::int16_t>(plane, row, begin), pixels, all);
        break;
    case SampleType::U8:
        ShowByTable(Table, SamplesAt<std::uint8_t>(plane, row, begin), pixels, all);
        break;
    default: {
        const ColorLayout layout(Type);
        ShowColors(*Colors, {layout.PixelBytes, layout.Red, layout.Blue}, PixelsAt(plane, row, begin), pixels,
                   all);
    }
    }
}

}
