#pragma once

// Reads pictures of bytes in memory through a file, for the tests of their samples.

#include "platform/PictureFiles.h"
#include "platform/SamplePictures.h"
#include "support/TempFolder.h"

#include <doctest/doctest.h>

#include <cstdint>
#include <cstring>
#include <vector>

namespace files {

struct ReadSamples {
    vostel::PictureOutcome Outcome = vostel::PictureOutcome::NotRead;
    vostel::ImageSamples   Samples;
};

inline ReadSamples Read(const Bytes& file, int page = 0, const vostel::PictureLimits& limits = {})
{
    const TempFolder folder;
    REQUIRE(WriteBytes(folder.Path("picture"), file));
    ReadSamples read;
    read.Outcome = vostel::ReadPicture(folder.Path("picture").c_str(), page, limits, read.Samples);
    return read;
}

template <typename Sample>
std::vector<Sample> ValuesOf(const vostel::ImageSamples& samples)
{
    std::vector<Sample> values(samples.Bytes() / sizeof(Sample));
    if (!values.empty())
        std::memcpy(values.data(), samples.Data(), values.size() * sizeof(Sample));
    return values;
}

// Whether the file is a picture of that type with these values.
template <typename Sample>
bool Holds(const Bytes& file, vostel::SampleType type, const std::vector<Sample>& values, int page = 0)
{
    const ReadSamples read = Read(file, page);
    CHECK(read.Outcome == vostel::PictureOutcome::Taken);
    CHECK(read.Samples.Type == type);
    return ValuesOf<Sample>(read.Samples) == values;
}

// A picture of 3 x 2 pixels 1 2 3 / 4 5 6 as each orientation tag shows it, and how wide.
struct Turned {
    int                       Orientation;
    int                       Width;
    std::vector<std::uint8_t> Values;
};

inline const Turned AllTurned[] = {{1, 3, {1, 2, 3, 4, 5, 6}}, {2, 3, {3, 2, 1, 6, 5, 4}},
                                   {3, 3, {6, 5, 4, 3, 2, 1}}, {4, 3, {4, 5, 6, 1, 2, 3}},
                                   {5, 2, {1, 4, 2, 5, 3, 6}}, {6, 2, {4, 1, 5, 2, 6, 3}},
                                   {7, 2, {6, 3, 5, 2, 4, 1}}, {8, 2, {3, 6, 2, 5, 1, 4}}};

// An orientation as cameras note it beside a picture.
inline Bytes OrientationTags(int orientation, bool big)
{
    Bytes      tags = big ? Bytes{'M', 'M'} : Bytes{'I', 'I'};
    const auto number = [&](std::uint32_t value, int bytes) {
        big ? Big(tags, value, bytes) : Little(tags, value, bytes);
    };
    number(42, 2);
    number(8, 4);
    number(1, 2);
    number(274, 2);
    number(3, 2);
    number(1, 4);
    number(static_cast<std::uint32_t>(orientation), 2);
    number(0, 2);
    number(0, 4);
    return tags;
}

// The bytes of values as they lie in memory.
template <typename Sample>
Bytes BytesOf(const std::vector<Sample>& values)
{
    Bytes bytes(values.size() * sizeof(Sample));
    std::memcpy(bytes.data(), values.data(), bytes.size());
    return bytes;
}

}
