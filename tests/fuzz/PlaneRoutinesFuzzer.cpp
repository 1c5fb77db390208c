// The routines of the open interface on planes of every type, packed, padded or upside down, in memory of
// exactly their size. How the rows lie makes no difference, and what cannot be meant changes nothing.

#include "fuzz/Fuzzing.h"
#include "fuzz/InputBytes.h"

#include <climits>
#include <cmath>
#include <cstring>
#include <vector>

namespace {

std::size_t SampleBytes(VostelPixel type)
{
    return type == VOSTEL_U8 ? 1 : type == VOSTEL_U16 ? 2 : 4;
}

// Samples and the plane that looks at them.
struct Samples {
    std::vector<unsigned char> Bytes;
    VostelPlane                Plane = {};

    Samples(VostelPixel type, int width, int height, int padding, bool upsideDown)
    {
        Plane = {sizeof Plane, type, width, height, 0, nullptr};
        if (width <= 0 || height <= 0 || std::int64_t{width} * height > 1 << 16)
            return;
        const std::size_t row = static_cast<std::size_t>(width) * SampleBytes(type);
        const std::size_t step = row + static_cast<std::size_t>(padding) * SampleBytes(type);
        Bytes.resize(step * static_cast<std::size_t>(height - 1) + row, 0xA5);
        Plane.data = Bytes.data() + (upsideDown ? step * static_cast<std::size_t>(height - 1) : 0);
        Plane.row_bytes = static_cast<std::ptrdiff_t>(padding == 0 && !upsideDown ? 0 : step);
        if (upsideDown)
            Plane.row_bytes = -Plane.row_bytes;
    }
    Samples(const Samples&) = delete;
    Samples& operator=(const Samples&) = delete;

    unsigned char* Row(int y) const
    {
        const std::ptrdiff_t packed =
            static_cast<std::ptrdiff_t>(SampleBytes(Plane.type)) * static_cast<std::ptrdiff_t>(Plane.width);
        return static_cast<unsigned char*>(Plane.data) +
               y * (Plane.row_bytes == 0 ? packed : Plane.row_bytes);
    }
    std::size_t RowBytes() const { return static_cast<std::size_t>(Plane.width) * SampleBytes(Plane.type); }
    void        Fill(std::uint32_t seed)
    {
        for (int y = 0; y < Plane.height && Plane.data; ++y) {
            for (int x = 0; x < Plane.width; ++x) {
                seed = seed * 1664525u + 1013904223u;
                const float value = static_cast<float>(seed >> 20) / 8.0f - 20.0f;
                if (Plane.type == VOSTEL_F32)
                    std::memcpy(Row(y) + 4 * x, &value, 4);
                else
                    std::memcpy(Row(y) + SampleBytes(Plane.type) * static_cast<std::size_t>(x), &seed,
                                SampleBytes(Plane.type));
            }
        }
    }
};

bool SameRows(const Samples& a, const Samples& b)
{
    for (int y = 0; y < a.Plane.height && a.Plane.data; ++y)
        if (std::memcmp(a.Row(y), b.Row(y), a.RowBytes()) != 0)
            return false;
    return true;
}

// Numbers of one call.
struct Arguments {
    int    Routine;
    int    Size;
    double Real;
};

VostelStatus Call(const Arguments& arguments, const Samples& image, const Samples& second, Samples& result)
{
    switch (arguments.Routine) {
    case 0:
        return vostel_correlate(&image.Plane, &second.Plane, &result.Plane);
    case 1:
        return vostel_gaussian(&image.Plane, arguments.Size, arguments.Real, &result.Plane);
    case 2:
        return vostel_resize(&image.Plane, &result.Plane);
    case 3:
        return vostel_adaptive_threshold(&image.Plane, arguments.Size, arguments.Real, &result.Plane);
    case 4:
        return vostel_stitch(&image.Plane, &second.Plane, arguments.Size, &result.Plane);
    default:
        return vostel_ramp_filter(&image.Plane, arguments.Size, arguments.Real, &result.Plane);
    }
}

int SizeOf(InputBytes& input)
{
    static const int hard[] = {-1, INT_MIN, INT_MAX, -7};
    const int        byte = input.Byte();
    return byte < 250 ? byte % 40 : hard[byte % 4];
}

}

void FuzzOne(std::string_view bytes)
{
    static const VostelPixel types[] = {VOSTEL_U8, VOSTEL_U16, VOSTEL_F32};
    InputBytes               input(bytes);
    const Arguments          arguments = {input.Below(6), SizeOf(input), input.Coordinate()};
    const VostelPixel        from = input.Of(types), other = input.Of(types), to = input.Of(types);
    const int                width = SizeOf(input), height = SizeOf(input);
    const int  secondWidth = SizeOf(input), secondHeight = input.Coin() ? height : SizeOf(input);
    const bool joined = arguments.Routine == 4 && arguments.Size < 100 && arguments.Size >= 0;
    const int  resultWidth = input.Coin() ? joined ? width / 2 + secondWidth / 2 : width : SizeOf(input);
    const int  resultHeight = input.Coin() ? height : SizeOf(input);
    const int  padding = input.Below(5);
    const bool upsideDown = input.Coin();
    const auto seed = input.Take<std::uint32_t>();

    Samples image(from, width, height, 0, false), image2(from, width, height, padding, upsideDown);
    Samples second(other, secondWidth, secondHeight, 0, false),
        second2(other, secondWidth, secondHeight, padding, upsideDown);
    Samples result(to, resultWidth, resultHeight, 0, false),
        result2(to, resultWidth, resultHeight, padding, upsideDown),
        before(to, resultWidth, resultHeight, 0, false);
    for (Samples* const each : {&image, &image2, &second, &second2})
        each->Fill(seed);
    for (Samples* const each : {&result, &result2, &before})
        each->Fill(7);
    const VostelStatus status = Call(arguments, image, second, result);
    CHECK(status > VOSTEL_INTERNAL);
    CHECK(Call(arguments, image2, second2, result2) == status);
    CHECK(SameRows(result, result2));
    if (status != VOSTEL_OK)
        CHECK(SameRows(result, before));
}
