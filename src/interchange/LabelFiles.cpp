#include "interchange/LabelFiles.h"

#include "base/AsciiCase.h"
#include "base/Failure.h"
#include "base/LittleEndian.h"
#include "canvas/VostelImage.h"
#include "document/Document.h"
#include "document/KindRules.h"
#include "document/LabelImage.h"
#include "fileio/ImageFiles.h"
#include "foundation/Limits.h"
#include "geometry/OutlineTracing.h"
#include "interchange/DeflatedPixels.h"
#include "interchange/FileBytes.h"
#include "interchange/LabelLegend.h"
#include "interchange/SampleHash.h"
#include "platform/Files.h"

#include <algorithm>
#include <limits>
#include <optional>
#include <span>

namespace vostel {

namespace {

constexpr std::size_t  MostRuns = std::size_t{1} << 25;
constexpr std::size_t  MostParts = std::size_t{1} << 20;
constexpr std::int32_t HighestInPng = 65535;

std::size_t PixelsOf(ImageSize size)
{
    return static_cast<std::size_t>(size.Width) * static_cast<std::size_t>(size.Height);
}

template <typename Sample>
std::vector<Sample> Painted(const std::vector<LabelledRegion>& regions, ImageSize size)
{
    std::vector<Sample> labels(PixelsOf(size));
    for (const LabelledRegion& region : regions) {
        for (const PixelRun& run : region.Runs) {
            const auto row = labels.begin() + static_cast<std::ptrdiff_t>(run.Row) * size.Width;
            std::fill(row + run.Begin, row + run.End, static_cast<Sample>(region.Label));
        }
    }
    return labels;
}

// 32 bits a label, low byte first.
template <typename Sample>
void WriteLabels(std::span<const Sample> labels, std::span<unsigned char> bytes)
{
    for (std::size_t i = 0; i < labels.size(); ++i)
        WriteLittleEndian(bytes.subspan(4 * i, 4), static_cast<std::uint32_t>(labels[i]));
}

// Of labels from the first row on, whatever the bits that they come in.
class LabelHash {
public:
    template <typename Sample>
    void Take(std::span<const Sample> row)
    {
        Bytes.resize(4 * row.size());
        WriteLabels(row, std::span(Bytes));
        Hash.Take(Bytes);
    }
    std::string Text() const { return HashText(Hash); }

private:
    Hash64                     Hash;
    std::vector<unsigned char> Bytes;
};

template <typename Sample>
std::string HashOf(const std::vector<Sample>& labels, ImageSize size)
{
    const std::size_t width = static_cast<std::size_t>(size.Width);
    LabelHash         hash;
    for (std::size_t first = 0; first < labels.size(); first += width)
        hash.Take(std::span(labels).subspan(first, width));
    return hash.Text();
}

std::string RawOf(const std::vector<std::int32_t>& labels)
{
    std::string file(4 * labels.size(), '\0');
    WriteLabels(std::span(labels), std::span(reinterpret_cast<unsigned char*>(file.data()), file.size()));
    return file;
}

// What a region loses to those above it is lost, so that is told.
bool AreOverlapping(const std::vector<LabelledRegion>& regions, ImageSize size)
{
    std::vector<bool> covered(PixelsOf(size));
    for (const LabelledRegion& region : regions) {
        for (const PixelRun& run : region.Runs) {
            const auto row = covered.begin() + static_cast<std::ptrdiff_t>(run.Row) * size.Width;
            if (std::find(row + run.Begin, row + run.End, true) != row + run.End)
                return true;
            std::fill(row + run.Begin, row + run.End, true);
        }
    }
    return false;
}

void TellLosses(const RegionExport& file, const std::vector<LabelledRegion>& regions, ImageSize size)
{
    for (const VostelObj* const object : file.Canvas.Elements.AsTheyLie()) {
        if (!IsRegion(object->TypeCode))
            file.Told.LeftOut(KindName(object->TypeCode));
        else if (object->Hidden)
            file.Told.LeftOut("hidden region");
        else if (file.Notes.NotesOf(*object).NoLabel)
            file.Told.LeftOut("region without a label");
    }
    for (const LabelledRegion& region : regions) {
        if (region.Runs.empty())
            file.Told.LeftOut("region without pixels");
    }
    if (AreOverlapping(regions, size))
        file.Told.Add("regions overlap: the upper ones take the pixels of the lower ones");
}

// The picture that a path means: itself, or NAME.png for the files beside it.
std::string PicturePath(const std::string& path)
{
    return HasEnding(path, LegendEnding) || HasEnding(path, RawEnding) ? LabelNameOf(path) + ".png" : path;
}

std::optional<LabelLegend> LegendBeside(const std::string& path)
{
    const std::string legend = LabelNameOf(path) + LegendEnding;
    if (!OpenUtf8File(legend.c_str(), "rb"))
        return std::nullopt;
    return LegendOfText(ReadWholeFile(legend.c_str()));
}

void NeedSize(ImageSize labels, ImageSize image)
{
    const auto text = [](ImageSize size) {
        return std::to_string(size.Width) + " x " + std::to_string(size.Height);
    };
    if (image.Width > 0 && (labels.Width != image.Width || labels.Height != image.Height))
        Fail(VOSTEL_BAD_FORMAT,
             "the labels are of " + text(labels) + " px and the image of " + text(image) + " px");
}

// Rows of labels become runs; too many of them are refused before they fill the memory.
class RunCollector {
public:
    std::vector<LabelRun> Runs;
    LabelHash             Hash;

    template <typename Sample>
    void Take(const Sample* row, int width, int y)
    {
        Hash.Take(std::span(row, static_cast<std::size_t>(width)));
        AppendRuns(row, width, y, Runs);
        if (Runs.size() > MostRuns)
            Fail(VOSTEL_TOO_LARGE,
                 "the labels change more often than " + std::to_string(MostRuns) + " times");
    }
};

RunCollector RunsOfPicture(const std::string& path, ImageSize image)
{
    ImageSamples samples = ReadImagePage(path, 0, PaletteUse::Indices);
    if (samples.Type != SampleType::U8 && samples.Type != SampleType::U16)
        Fail(VOSTEL_NOT_SUPPORTED, "\"" + path + "\" is not gray of 8 or 16 bits, as label images are");
    NeedSize({samples.Width, samples.Height}, image);
    RunCollector collector;
    for (int y = 0; y < samples.Height; ++y) {
        if (samples.Type == SampleType::U8)
            collector.Take(samples.Row<std::uint8_t>(y), samples.Width, y);
        else
            collector.Take(samples.Row<std::uint16_t>(y), samples.Width, y);
    }
    return collector;
}

RunCollector RunsOfRaw(const std::string& path, ImageSize size, ImageSize image)
{
    const Limits limits = LimitsInForce();
    if (size.Width > limits.MaxSide || size.Height > limits.MaxSide ||
        size.Width > limits.MaxPixels / size.Height)
        Fail(VOSTEL_TOO_LARGE, "the size in the legend is beyond the limits");
    NeedSize(size, image);
    const std::string file = ReadWholeFile(path.c_str());
    if (file.size() != 4 * PixelsOf(size))
        Fail(VOSTEL_BAD_FORMAT, "\"" + path + "\" is not as long as its legend says");
    const std::span           bytes(reinterpret_cast<const unsigned char*>(file.data()), file.size());
    std::vector<std::int32_t> row(static_cast<std::size_t>(size.Width));
    RunCollector              collector;
    for (int y = 0; y < size.Height; ++y) {
        const std::size_t first = static_cast<std::size_t>(y) * row.size();
        for (std::size_t x = 0; x < row.size(); ++x) {
            const std::uint32_t label = ReadLittleEndian(bytes.subspan(4 * (first + x), 4));
            if (label > INT32_MAX)
                Fail(VOSTEL_BAD_FORMAT, "\"" + path + "\" has a label beyond 2^31 - 1 in row " +
                                            std::to_string(y) + ", column " + std::to_string(x));
            row[x] = static_cast<std::int32_t>(label);
        }
        collector.Take(row.data(), size.Width, y);
    }
    return collector;
}

std::vector<FileObject> ObjectsOfParts(const LabelParts& parts, const LabelLegend& legend)
{
    if (parts.Count() > MostParts)
        Fail(VOSTEL_TOO_LARGE, "the labels have more than " + std::to_string(MostParts) + " connected parts");
    std::vector<FileObject> objects(parts.Count());
    for (std::size_t i = 0; i < objects.size(); ++i) {
        const auto name = legend.Names.find(parts.LabelOf(i));
        objects[i].Kind = VOSTEL_POLYGON;
        objects[i].Label = parts.LabelOf(i);
        objects[i].Points = parts.OutlineOf(i);
        if (name != legend.Names.end())
            objects[i].Name = name->second;
    }
    return objects;
}

}

void ExportLabels(const RegionExport& file)
{
    const PlaneView plane = file.Canvas.ShownPlane();
    if (!plane.Data)
        Fail(VOSTEL_NO_IMAGE, "a label image is of the size of the image, and there is none");
    const std::vector<LabelledRegion> regions =
        LabelledRegions(file.Canvas, file.Notes, plane.Width, plane.Height);
    LabelLegend  legend;
    std::int32_t highest = 0;
    legend.Size = {plane.Width, plane.Height};
    for (const LabelledRegion& region : regions) {
        highest = std::max(highest, region.Label);
        if (region.Label <= 0)
            continue;
        std::string& name = legend.Names[region.Label];
        if (name.empty())
            name = file.Notes.NotesOf(*region.Object).Name;
    }
    TellLosses(file, regions, legend.Size);
    FileContent picture;
    if (highest > HighestInPng) {
        const auto labels = Painted<std::int32_t>(regions, legend.Size);
        legend.Bits = 32;
        legend.Hash = HashOf(labels, legend.Size);
        picture = {LabelNameOf(file.Path) + RawEnding, RawOf(labels)};
    } else {
        const auto labels = Painted<std::uint16_t>(regions, legend.Size);
        legend.Hash = HashOf(labels, legend.Size);
        picture = {PicturePath(file.Path), PngOf(DeflateGray16(labels.data(), plane.Width, plane.Height))};
    }
    // The legend comes last: one that was there before does not have the hash of these labels.
    WriteWholeFiles(picture, {LabelNameOf(file.Path) + LegendEnding, LegendTextOf(legend)});
}

std::vector<FileObject> ImportLabels(const char* utf8Path, ImageSize image, Remarks& told)
{
    const std::string                path = utf8Path;
    const std::optional<LabelLegend> legend = LegendBeside(path);
    if (!legend && HasEnding(path, RawEnding))
        Fail(VOSTEL_NOT_READ, "the legend of the raw labels is missing, which says their size");
    const bool         raw = legend && legend->Bits == 32;
    const RunCollector labels = raw ? RunsOfRaw(LabelNameOf(path) + RawEnding, legend->Size, image)
                                    : RunsOfPicture(PicturePath(path), image);
    if (legend && !legend->Hash.empty() && legend->Hash != labels.Hash.Text())
        told.Add("the legend was written for other labels: its names need not fit");
    return ObjectsOfParts(LabelParts(labels.Runs), legend.value_or(LabelLegend()));
}

}
