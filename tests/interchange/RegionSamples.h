#pragma once

// Objects of files for tests of formats.

#include "document/KindRules.h"
#include "document/ObjectLooks.h"
#include "geometry/Coverage.h"
#include "interchange/RegionKinds.h"

#include "base/Failure.h"

#include <doctest/doctest.h>

#include <random>
#include <string>
#include <utility>
#include <vector>

constexpr int SampleSide = 64;    // px of the image

// As an object leaves its canvas.
inline vostel::FileObject Leaving(vostel::FileObject object)
{
    if (vostel::IsRegion(object.Kind))
        object.Outline = vostel::ExactOutline(object).Flattened(vostel::OutlineTolerance);
    return object;
}

inline vostel::FileObject MakeSample(int kind, std::vector<vostel::ImagePoint> points, std::string name = "")
{
    vostel::FileObject object;
    object.Kind = kind;
    object.Points = std::move(points);
    object.Name = std::move(name);
    return Leaving(std::move(object));
}

inline std::vector<bool> MaskOf(const vostel::FileObject& region)
{
    std::vector<bool> mask(static_cast<std::size_t>(SampleSide) * SampleSide);
    for (const vostel::PixelRun& run :
         vostel::CoverageOf(vostel::ExactOutline(region), SampleSide, SampleSide)) {
        for (int x = run.Begin; x < run.End; ++x)
            mask[static_cast<std::size_t>(run.Row * SampleSide + x)] = true;
    }
    return mask;
}

inline const std::vector<int> RegionKinds = {VOSTEL_RECTANGLE, VOSTEL_POLYGON, VOSTEL_SPLINE,
                                             VOSTEL_FREE_REGION};
inline const std::vector<int> ImageKinds = {VOSTEL_RECTANGLE,   VOSTEL_POLYGON,      VOSTEL_SPLINE,
                                            VOSTEL_FREE_REGION, VOSTEL_FREE_STROKES, VOSTEL_LENGTH,
                                            VOSTEL_ANGLE,       VOSTEL_ANGLE_LINES,  VOSTEL_PROFILE,
                                            VOSTEL_POINTS,      VOSTEL_POLYLINE,     VOSTEL_ARROW};

// Of a kind with random points, a name, for regions a label, and flags.
inline vostel::FileObject RandomSample(std::mt19937& random, int kind, int number)
{
    std::uniform_real_distribution<double> place(-5.0, SampleSide + 5.0);
    const vostel::PointCounts              counts = vostel::PointCountsOf(kind);
    const std::size_t  count = counts.Most > counts.Least ? counts.Least + random() % 9 : counts.Least;
    vostel::FileObject object;
    object.Kind = kind;
    for (std::size_t i = 0; i < count; ++i)
        object.Points.push_back({place(random), place(random)});
    object.Name = "no. " + std::to_string(number) + ", \"ä\"\n";
    if (kind == VOSTEL_FREE_STROKES)
        object.StrokeStarts = count >= 4 ? std::vector<int>{0, 2} : std::vector<int>{0};
    if (vostel::IsRegion(kind))
        object.Label = number;
    if (kind == VOSTEL_RECTANGLE && random() % 2 == 0)
        object.Flags |= VOSTEL_ELLIPSE;
    return Leaving(std::move(object));
}

// Feeds a reader the text cut at every length and with every byte changed. It takes what it gets or says what
// is wrong with it; everything else ends the test.
template <typename Read>
void FeedDamaged(const std::string& text, Read read)
{
    const auto feed = [&](const std::string& damaged) {
        try {
            read(damaged);
        } catch (const vostel::Failure& failure) {
            REQUIRE(!failure.Message.empty());
        }
    };
    for (std::size_t length = 0; length < text.size(); ++length)
        feed(text.substr(0, length));
    for (std::size_t i = 0; i < text.size(); ++i) {
        for (const unsigned change : {0x01u, 0x10u, 0x80u, 0xFFu}) {
            std::string damaged = text;
            damaged[i] = static_cast<char>(static_cast<unsigned char>(damaged[i]) ^ change);
            feed(damaged);
        }
    }
}

// The status that reading fails with.
template <typename Read>
VostelStatus StatusOf(Read read)
{
    try {
        read();
    } catch (const vostel::Failure& failure) {
        return failure.Status;
    }
    return VOSTEL_OK;
}

// The message that reading fails with.
template <typename Read>
std::string MessageOf(Read read)
{
    try {
        read();
    } catch (const vostel::Failure& failure) {
        return failure.Message;
    }
    return std::string();
}
