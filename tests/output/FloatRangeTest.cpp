#include "output/FloatRange.h"

#include "support/EveryVariant.h"

#include <doctest/doctest.h>

using namespace vostel;

namespace {

constexpr float NotANumber = std::numeric_limits<float>::quiet_NaN();
constexpr float Infinity = std::numeric_limits<float>::infinity();

void PlainMinMax(const float* data, std::size_t count, float& lo, float& hi)
{
    lo = 10000000.0f;
    hi = -10000000.0f;
    for (std::size_t i = 0; i < count; ++i) {
        if (data[i] < lo)
            lo = data[i];
        if (data[i] > hi)
            hi = data[i];
    }
}

// The documented steps, on one element; the rule's own arithmetic is not used.
float PlainRemap(float v, float a, float b, float outLow, float outHigh)
{
    const float k = (outHigh - outLow) / (b - a);
    if (b > a) {
        if (v <= a)
            return outLow;
        if (v >= b)
            return outHigh;
    } else {
        if (v <= b)
            return outLow;
        if (v >= a)
            return outHigh;
    }
    const float distance = v - a;
    const float product = distance * k;
    return product + outLow;
}

ClassData2DIO<float> PlaneOf(const std::vector<float>& values, int width)
{
    ClassData2DIO<float> plane;
    plane.Allocate(width, static_cast<int>(values.size()) / width);
    std::copy(values.begin(), values.end(), plane.Ptr1D);
    return plane;
}

bool SameBits(float a, float b)
{
    return std::memcmp(&a, &b, sizeof a) == 0;
}

}

TEST_CASE("an empty plane reports the start values of the scan")
{
    ClassData2DIO<float> plane;
    CHECK(FloatMin(plane) == 10000000.0f);
    CHECK(FloatMax(plane) == -10000000.0f);
    plane.Allocate(0, 0);
    CHECK(FloatMin(plane) == 10000000.0f);
    CHECK(FloatMax(plane) == -10000000.0f);
    plane.Release();
    CHECK(FloatMin(plane) == 10000000.0f);
}

TEST_CASE("data wholly beyond a start value reports the start value")
{
    ClassData2DIO<float> above = PlaneOf({2e7f, 3e7f}, 2);
    CHECK(FloatMin(above) == 10000000.0f);
    CHECK(FloatMax(above) == 3e7f);
    ClassData2DIO<float> below = PlaneOf({-2e7f, -3e7f}, 2);
    CHECK(FloatMin(below) == -3e7f);
    CHECK(FloatMax(below) == -10000000.0f);
}

TEST_CASE("not a number is passed over, infinities count")
{
    ClassData2DIO<float> plane = PlaneOf({NotANumber, 5.0f, NotANumber, 7.0f, -NotANumber}, 5);
    CHECK(FloatMin(plane) == 5.0f);
    CHECK(FloatMax(plane) == 7.0f);
    ClassData2DIO<float> infinite = PlaneOf({1.0f, Infinity, -Infinity}, 3);
    CHECK(FloatMin(infinite) == -Infinity);
    CHECK(FloatMax(infinite) == Infinity);
}

TEST_CASE("of equal zeros the first one's sign is reported, in every variant")
{
    InEveryVariant([](const char* variant) {
        for (std::size_t negative = 0; negative < 300; negative += 7) {
            std::vector<float> values(300, 0.0f);
            values[negative] = -0.0f;
            float lo;
            float hi;
            FloatMinMax(values.data(), values.size(), lo, hi);
            CHECK_MESSAGE(std::signbit(lo) == (negative == 0), variant << ", " << negative);
            CHECK_MESSAGE(std::signbit(hi) == (negative == 0), variant << ", " << negative);

            // The first zero lies anywhere, and others of either sign follow.
            std::fill_n(values.begin(), negative, 1.0f);
            FloatMinMax(values.data(), values.size(), lo, hi);
            CHECK_MESSAGE(SameBits(lo, -0.0f), variant << ", " << negative);
            std::fill_n(values.begin(), negative, -1.0f);
            FloatMinMax(values.data(), values.size(), lo, hi);
            CHECK_MESSAGE(SameBits(hi, -0.0f), variant << ", " << negative);
        }
    });
}

TEST_CASE(
    "smallest and largest equal the plain scan for lengths 0 to 140, odd starts, with and without a copy")
{
    const unsigned seed = 26011;
    InEveryVariant([&](const char* variant) {
        const auto minMax = ActiveFloatRangeVariant().MinMax;
        for (std::size_t count = 0; count <= 140; ++count) {
            const std::size_t        start = count % 19;
            const std::vector<float> values = MixedFloats(count + start, seed + static_cast<unsigned>(count));
            const float*             source = values.data() + start;
            float                    lo;
            float                    hi;
            PlainMinMax(source, count, lo, hi);
            float foundLo;
            float foundHi;
            FloatMinMax(source, count, foundLo, foundHi);
            CHECK_MESSAGE(SameBits(lo, foundLo), variant << ", seed " << seed << ", length " << count);
            CHECK_MESSAGE(SameBits(hi, foundHi), variant << ", seed " << seed << ", length " << count);

            GuardedRun<float> copy(count, start, 123.0f);
            FloatCopyMinMax(source, copy.Data(), count, foundLo, foundHi);
            CHECK_MESSAGE(SameBits(lo, foundLo), variant << ", seed " << seed << ", length " << count);
            CHECK_MESSAGE(SameBits(hi, foundHi), variant << ", seed " << seed << ", length " << count);
            CHECK_MESSAGE(SameFloats(source, copy.Data(), count), variant << ", length " << count);
            CHECK_MESSAGE(copy.GuardsStand(), variant << ", length " << count);

            GuardedRun<float> streamed(count, 18 - start, 123.0f);
            bool              negativeZero = false;
            foundLo = 10000000.0f;
            foundHi = -10000000.0f;
            minMax(source, streamed.Data(), count, true, foundLo, foundHi, negativeZero);
            CHECK_MESSAGE(lo == foundLo, variant << ", seed " << seed << ", length " << count);
            CHECK_MESSAGE(hi == foundHi, variant << ", seed " << seed << ", length " << count);
            CHECK_MESSAGE(SameFloats(source, streamed.Data(), count), variant << ", length " << count);
            CHECK_MESSAGE(streamed.GuardsStand(), variant << ", length " << count);
        }
    });
}

TEST_CASE("the extreme of a long plane is found wherever it lies")
{
    InEveryVariant([](const char* variant) {
        std::vector<float> values(257, 5.0f);
        for (std::size_t i = 0; i < values.size(); ++i) {
            values[i] = -9.0f;
            float lo;
            float hi;
            FloatMinMax(values.data(), values.size(), lo, hi);
            CHECK_MESSAGE(lo == -9.0f, variant << ", at " << i);
            values[i] = 9.0f;
            FloatMinMax(values.data(), values.size(), lo, hi);
            CHECK_MESSAGE(hi == 9.0f, variant << ", at " << i);
            values[i] = 5.0f;
        }
    });
}

TEST_CASE("a plane larger than the caches is scanned, copied and remapped like a small one")
{
    const std::size_t        count = (std::size_t{16} << 18) + 37;    // floats; a little over 16 MiB
    const std::vector<float> values = MixedFloats(count, 26012);
    float                    lo;
    float                    hi;
    PlainMinMax(values.data(), count, lo, hi);
    const RemapRule rule = MakeRemapRule(0.0f, 65535.0f, 0.0f, 255.0f);
    InEveryVariant([&](const char* variant) {
        GuardedRun<float> copy(count, 3, 4.0f);
        float             foundLo;
        float             foundHi;
        FloatCopyMinMax(values.data(), copy.Data(), count, foundLo, foundHi);
        CHECK_MESSAGE(foundLo == lo, variant);
        CHECK_MESSAGE(foundHi == hi, variant);
        CHECK_MESSAGE(SameFloats(values.data(), copy.Data(), count), variant);
        RemapFloats(rule, values.data(), copy.Data(), count);
        std::size_t wrong = 0;
        for (std::size_t i = 0; i < count; ++i) {
            const float expected = PlainRemap(values[i], 0.0f, 65535.0f, 0.0f, 255.0f);
            wrong += !SameFloats(&expected, copy.Data() + i, 1);
        }
        CHECK_MESSAGE(wrong == 0, variant);
        CHECK_MESSAGE(copy.GuardsStand(), variant);
    });
}

TEST_CASE("a rising range clamps outside and is a ramp inside")
{
    ClassData2DIO<float> plane = PlaneOf({-5.0f, 10.0f, 15.0f, 20.0f, 99.0f}, 5);
    RemapRange(plane, plane, 10.0f, 20.0f, 0.0f, 100.0f, 1);
    CHECK(plane.Ptr1D[0] == 0.0f);
    CHECK(plane.Ptr1D[1] == 0.0f);
    CHECK(plane.Ptr1D[2] == 50.0f);
    CHECK(plane.Ptr1D[3] == 100.0f);
    CHECK(plane.Ptr1D[4] == 100.0f);
}

TEST_CASE("a falling range keeps its clamps although they do not join the ramp")
{
    ClassData2DIO<float> plane = PlaneOf({5.0f, 10.0f, 12.0f, 18.0f, 20.0f, 25.0f}, 6);
    RemapRange(plane, plane, 20.0f, 10.0f, 0.0f, 100.0f, 1);
    CHECK(plane.Ptr1D[0] == 0.0f);
    CHECK(plane.Ptr1D[1] == 0.0f);
    CHECK(plane.Ptr1D[2] == 80.0f);
    CHECK(plane.Ptr1D[3] == 20.0f);
    CHECK(plane.Ptr1D[4] == 100.0f);
    CHECK(plane.Ptr1D[5] == 100.0f);
}

TEST_CASE("a span below 1e-10 on either side leaves the target untouched")
{
    ClassData2DIO<float> source = PlaneOf({1.0f, 2.0f}, 2);
    ClassData2DIO<float> target = PlaneOf({7.0f, 8.0f}, 2);
    RemapRange(source, target, 5.0f, 5.0f, 0.0f, 255.0f, 1);
    RemapRange(source, target, 0.0f, 5e-11f, 0.0f, 255.0f, 1);
    RemapRange(source, target, 0.0f, 2.0f, 3.0f, 3.0f, 1);
    CHECK(target.Ptr1D[0] == 7.0f);
    CHECK(target.Ptr1D[1] == 8.0f);
    RemapRange(source, target, 0.0f, 2.0f, 0.0f, 255.0f, 1);
    CHECK(target.Ptr1D[0] == 127.5f);
    CHECK(target.Ptr1D[1] == 255.0f);
}

TEST_CASE("without a given range the data's own is stretched to 0..255")
{
    ClassData2DIO<float> plane = PlaneOf({10.0f, 20.0f, 30.0f}, 3);
    RemapRange(plane, plane, 1.0f, 2.0f, 3.0f, 4.0f, 0);
    CHECK(plane.Ptr1D[0] == 0.0f);
    CHECK(plane.Ptr1D[1] == 127.5f);
    CHECK(plane.Ptr1D[2] == 255.0f);

    ClassData2DIO<float> flat = PlaneOf({10.0f, 10.0f}, 2);
    RemapRange(flat, flat, 1.0f, 2.0f, 3.0f, 4.0f, 0);
    CHECK(flat.Ptr1D[0] == 10.0f);
}

TEST_CASE("a target of another size stays untouched")
{
    ClassData2DIO<float> source = PlaneOf({1.0f, 2.0f, 3.0f, 4.0f}, 2);
    ClassData2DIO<float> target = PlaneOf({7.0f, 8.0f}, 2);
    ClassData2DIO<float> nothing;
    RemapRange(source, target, 1.0f, 4.0f, 0.0f, 255.0f, 1);
    RemapRange(source, nothing, 1.0f, 4.0f, 0.0f, 255.0f, 1);
    RemapRange(nothing, nothing, 1.0f, 4.0f, 0.0f, 255.0f, 1);
    CHECK(target.Ptr1D[0] == 7.0f);
    CHECK(target.Ptr1D[1] == 8.0f);
}

TEST_CASE("not a number stays so through a remap, infinities are clamped")
{
    InEveryVariant([](const char* variant) {
        std::vector<float> values(40, NotANumber);
        values[3] = Infinity;
        values[4] = -Infinity;
        ClassData2DIO<float> plane = PlaneOf(values, 40);
        RemapRange(plane, plane, 0.0f, 10.0f, -1.0f, 1.0f, 1);
        CHECK_MESSAGE(plane.Ptr1D[3] == 1.0f, variant);
        CHECK_MESSAGE(plane.Ptr1D[4] == -1.0f, variant);
        int nans = 0;
        for (int i = 0; i < 40; ++i)
            nans += std::isnan(plane.Ptr1D[i]);
        CHECK_MESSAGE(nans == 38, variant);
    });
}

TEST_CASE("the remap equals the formula for lengths 0 to 70, odd starts and hard limits, in place too")
{
    const unsigned seed = 26013;
    const float    ranges[][4] = {
           {0.0f, 65535.0f, 0.0f, 65535.0f}, {-0.5f, 65536.0f, 0.0f, 65535.0f}, {65535.0f, 0.0f, 0.0f, 255.0f},
           {10.0f, -10.0f, -0.0f, -5.0f},    {-0.0f, 1e-40f, 0.0f, 1.0f},       {0.0f, Infinity, 0.0f, 255.0f},
           {-Infinity, 0.0f, 0.0f, 255.0f},  {NotANumber, 5.0f, 0.0f, 255.0f},  {0.0f, 5.0f, NotANumber, 255.0f},
           {-1e7f, 1e7f, 65535.0f, -0.0f},   {0.0f, 0.001f, 0.0f, 3e38f},       {-3e38f, 3e38f, -1.0f, 1.0f}};
    InEveryVariant([&](const char* variant) {
        const auto remap = ActiveFloatRangeVariant().Remap;
        int        n = 0;
        for (const auto& range : ranges) {
            const RemapRule rule = MakeRemapRule(range[0], range[1], range[2], range[3]);
            ++n;
            for (std::size_t count = 0; count <= 70; ++count) {
                const std::size_t        start = (count + static_cast<std::size_t>(n)) % 17;
                const std::vector<float> values =
                    MixedFloats(count + start, seed + static_cast<unsigned>(count));
                const float*       source = values.data() + start;
                std::vector<float> expected(source, source + count);
                if (rule.Active)
                    for (float& v : expected)
                        v = PlainRemap(v, range[0], range[1], range[2], range[3]);
                GuardedRun<float> target(count, start, 55.0f);
                RemapFloats(rule, source, target.Data(), count);
                CHECK_MESSAGE(SameFloats(expected.data(), target.Data(), count),
                              variant << ", seed " << seed << ", range " << n << ", length " << count);
                CHECK_MESSAGE(target.GuardsStand(), variant << ", range " << n << ", length " << count);
                std::copy(source, source + count, target.Data());
                RemapFloats(rule, target.Data(), target.Data(), count);
                CHECK_MESSAGE(SameFloats(expected.data(), target.Data(), count),
                              variant << ", seed " << seed << ", range " << n << ", length " << count
                                      << ", in place");
                if (rule.Active) {
                    GuardedRun<float> streamed(count, 16 - start, 55.0f);
                    remap(rule, source, streamed.Data(), count, true);
                    CHECK_MESSAGE(SameFloats(expected.data(), streamed.Data(), count),
                                  variant << ", seed " << seed << ", range " << n << ", length " << count);
                    CHECK_MESSAGE(streamed.GuardsStand(), variant << ", range " << n << ", length " << count);
                }
            }
        }
    });
}
