#pragma once

// Reads pictures of bytes in memory through a file, for the tests of their samples.

#include "platform/PictureFiles.h"
#include "platform/SamplePictures.h"
#include "support/TempFolder.h"

#include <doctest/doctest.h>

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

// The bytes of values as they lie in memory.
template <typename Sample>
Bytes BytesOf(const std::vector<Sample>& values)
{
    Bytes bytes(values.size() * sizeof(Sample));
    std::memcpy(bytes.data(), values.data(), bytes.size());
    return bytes;
}

}
