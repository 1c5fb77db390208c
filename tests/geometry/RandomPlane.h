#pragma once

// Planes of random values for the tests of statistics, with the values of their pixels read in a plain way.

#include "geometry/PlaneView.h"

#include <cstdint>
#include <cstring>
#include <random>
#include <vector>

struct RandomPlane {
    std::vector<std::uint8_t> Memory;
    vostel::PlaneView         View;

    // Rows with a gap behind; any byte for whole numbers, about -50..50 for floats.
    RandomPlane(vostel::SampleType type, int width, int height, unsigned seed)
    {
        using vostel::SampleType;
        const int bytes = type == SampleType::U8                                 ? 1
                          : type == SampleType::U16 || type == SampleType::I16   ? 2
                          : type == SampleType::F32 || type == SampleType::Bgra8 ? 4
                                                                                 : 3;
        View.Type = type;
        View.Width = width;
        View.Height = height;
        View.RowBytes = (static_cast<std::ptrdiff_t>(width) * bytes + 15) / 8 * 8;
        Memory.resize(static_cast<std::size_t>(View.RowBytes) * static_cast<std::size_t>(height));
        View.Data = Memory.data();
        std::mt19937                          random(seed);
        std::uniform_real_distribution<float> real(-50.0f, 50.0f);
        for (std::uint8_t& byte : Memory)
            byte = static_cast<std::uint8_t>(random());
        if (type == SampleType::F32) {
            for (int y = 0; y < height; ++y)
                for (int x = 0; x < width; ++x)
                    SetFloat(x, y, real(random));
        }
    }

    void SetFloat(int x, int y, float v)
    {
        std::memcpy(Memory.data() + y * View.RowBytes + 4 * static_cast<std::ptrdiff_t>(x), &v, sizeof v);
    }

    double Value(int channel, int x, int y) const
    {
        using vostel::SampleType;
        const std::uint8_t* const row = Memory.data() + y * View.RowBytes;
        if (View.Type == SampleType::U8)
            return row[x];
        if (View.Type == SampleType::U16)
            return row[2 * x] + 256 * row[2 * x + 1];
        if (View.Type == SampleType::I16)
            return static_cast<std::int16_t>(row[2 * x] + 256 * row[2 * x + 1]);
        if (View.Type == SampleType::F32) {
            float v;
            std::memcpy(&v, row + 4 * x, sizeof v);
            return static_cast<double>(v);
        }
        const std::uint8_t* const pixel = row + x * (View.Type == SampleType::Bgra8 ? 4 : 3);
        const bool                redFirst = View.Type == SampleType::Rgb8;
        const int components[] = {redFirst ? pixel[0] : pixel[2], pixel[1], redFirst ? pixel[2] : pixel[0]};
        if (channel > 0)
            return components[channel - 1];
        return (299 * components[0] + 587 * components[1] + 114 * components[2]) / 1000.0;
    }

    std::vector<double> Values(int channel, const std::vector<vostel::PixelRun>& runs) const
    {
        std::vector<double> values;
        for (const vostel::PixelRun& run : runs)
            for (int x = run.Begin; x < run.End; ++x)
                values.push_back(Value(channel, x, run.Row));
        return values;
    }
};

inline constexpr vostel::SampleType AllSampleTypes[] = {
    vostel::SampleType::U8,   vostel::SampleType::U16,  vostel::SampleType::I16,  vostel::SampleType::F32,
    vostel::SampleType::Rgb8, vostel::SampleType::Bgr8, vostel::SampleType::Bgra8};
