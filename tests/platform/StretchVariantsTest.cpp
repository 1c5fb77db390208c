#include "platform/portable/PortableStretch.h"
#include "platform/portable/StretchRows.h"
#include "support/EveryVariant.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <random>
#include <string>
#include <vector>

using namespace vostel;

namespace {

using Wide = long long;
constexpr std::uint32_t Guard = 0xDEADBEEF;

// A bitmap with a guard behind its last byte.
struct GuardedBitmap : gdi::Bitmap {
    std::vector<unsigned char> Memory;

    GuardedBitmap(int width, int height, int bits, bool topDown)
    {
        Width = width;
        Height = height;
        BitsPerPixel = bits;
        RowBytes = (width * bits + 31) / 32 * 4;
        TopDown = topDown;
        Memory.assign(static_cast<std::size_t>(RowBytes) * static_cast<std::size_t>(height) + 64, 0xB7);
        Bits = Memory.data();
    }
    GuardedBitmap(const GuardedBitmap&) = delete;
    GuardedBitmap& operator=(const GuardedBitmap&) = delete;

    void Randomise(std::mt19937& random)
    {
        for (int y = 0; y < Height; ++y)
            for (int i = 0; i < RowBytes; ++i)
                Row(y)[i] = static_cast<unsigned char>(random());
    }
    int Channel(int x, int y, int channel) const { return Row(y)[x * (BitsPerPixel / 8) + channel]; }
    std::uint32_t& Word(int x, int y) { return reinterpret_cast<std::uint32_t*>(Row(y))[x]; }
};

int Between(std::mt19937& random, int low, int high)
{
    return low + static_cast<int>(random() % static_cast<unsigned>(high - low + 1));
}

gdi::StretchAxis AxisOf(int target, int targetExtent, int source, int sourceExtent, int targetSize,
                        int sourceSize)
{
    gdi::StretchAxis axis;
    axis.TargetStart = target;
    axis.TargetExtent = targetExtent;
    axis.SourceStart = source;
    axis.SourceExtent = sourceExtent;
    axis.TargetSize = targetSize;
    axis.SourceSize = sourceSize;
    return axis;
}

gdi::StretchAxis RandomAxis(std::mt19937& random, int targetSize, int sourceSize)
{
    int target = 0, source = 0;
    do {
        target = Between(random, -3 * targetSize, 3 * targetSize);
        source = Between(random, -2 * sourceSize, 2 * sourceSize);
    } while (target == 0 || source == 0);
    // Centres inside, so that most of them draw something.
    return AxisOf(Between(random, 0, targetSize - 1) - target / 2, target,
                  Between(random, 0, sourceSize - 1) - source / 2, source, targetSize, sourceSize);
}

std::string Text(const gdi::StretchAxis& axis)
{
    return std::to_string(axis.TargetStart) + "+" + std::to_string(axis.TargetExtent) + " of " +
           std::to_string(axis.TargetSize) + " from " + std::to_string(axis.SourceStart) + "+" +
           std::to_string(axis.SourceExtent) + " of " + std::to_string(axis.SourceSize) + "; ";
}

void Stretch(GuardedBitmap& target, const GuardedBitmap& source, const gdi::StretchAxis& columns,
             const gdi::StretchAxis& rows, int mode)
{
    gdi::PixelCopy copy;
    copy.Target = &target;
    copy.Source = &source;
    gdi::StretchPixels(copy, columns, rows, mode);
}

// The weights of one axis in real numbers: the source pixels under a target pixel by the covered part, or
// the two nearest centres by distance. Pixels outside fold onto the last one inside.
std::vector<double> RealWeights(const gdi::StretchAxis& axis, int target)
{
    std::vector<double> weights(static_cast<std::size_t>(axis.SourceSize), 0.0);
    const int           targetLength = std::abs(axis.TargetExtent);
    const int           sourceLength = std::abs(axis.SourceExtent);
    const int           i =
        static_cast<int>(axis.TargetExtent > 0 ? target - axis.TargetStart : axis.TargetStart - target);
    const double ratio = static_cast<double>(sourceLength) / targetLength;
    const auto   place = [&](int j) {
        return static_cast<int>(axis.SourceExtent > 0 ? axis.SourceStart + j : axis.SourceStart - j);
    };
    const auto add = [&](int j, double weight) {
        j = std::clamp(j, 0, sourceLength - 1);
        weights[static_cast<std::size_t>(std::clamp(place(j), 0, axis.SourceSize - 1))] += weight;
    };
    const int middle = static_cast<int>((2LL * i + 1) * sourceLength / (2LL * targetLength));
    if (i < 0 || i >= targetLength || place(middle) < 0 || place(middle) >= axis.SourceSize)
        return {};
    if (sourceLength > targetLength) {
        for (int j = 0; j < sourceLength; ++j) {
            const double covered =
                std::min((i + 1) * ratio, j + 1.0) - std::max(i * ratio, static_cast<double>(j));
            if (covered > 0.0)
                add(j, covered / ratio);
        }
    } else {
        const double centre = (i + 0.5) * ratio - 0.5;
        const int    first = static_cast<int>(std::floor(centre));
        add(first, 1.0 - (centre - first));
        add(first + 1, centre - first);
    }
    return weights;
}

}

TEST_CASE("row copies of every variant equal the reference for all lengths from 0 to 70 and odd starts")
{
    std::mt19937  random(11);
    std::uint32_t source[80], ahead[80];
    for (int i = 0; i < 80; ++i)
        source[i] = ahead[i] = static_cast<std::uint32_t>(random());
    for (const CpuVariant variant : FastVariants()) {
        const VariantScope scope(variant);
        const std::string  name = NameOf(variant);
        CAPTURE(name);
        for (int count = 0; count <= 70; ++count)
            for (int start = 0; start < 4; ++start) {
                for (const bool streams : {false, true}) {
                    const gdi::StretchVariant& functions = gdi::ActiveStretchVariant();
                    std::uint32_t              target[80];
                    std::fill(std::begin(target), std::end(target), Guard);
                    (streams ? functions.StreamPixels : functions.CopyPixels)(
                        target + start, source + start, count, count % 2 != 0 ? ahead : nullptr);
                    functions.Fence();
                    int wrong = 0;
                    for (int i = 0; i < 80; ++i)
                        wrong += target[i] != (i >= start && i < start + count ? source[i] : Guard);
                    CAPTURE(count);
                    CAPTURE(streams);
                    CHECK(wrong == 0);
                }
            }
    }
}

TEST_CASE("picked and repeated pixels of every variant equal the reference for all lengths from 0 to 70")
{
    std::mt19937 random(12);
    for (const CpuVariant variant : FastVariants()) {
        const VariantScope scope(variant);
        const std::string  name = NameOf(variant);
        CAPTURE(name);
        for (int count = 0; count <= 70; ++count)
            for (int width : {1, 2, 7, 8, 9, 15, 16, 17, 40, 90}) {
                // Exactly as long as the row: reads behind it are found by the sanitiser.
                std::vector<std::uint32_t> source(static_cast<std::size_t>(width));
                for (std::uint32_t& word : source)
                    word = static_cast<std::uint32_t>(random());
                std::vector<int> anywhere, steps, back;
                int              column = Between(random, 0, width / 2);
                for (int i = 0; i < count; ++i) {
                    anywhere.push_back(Between(random, 0, width - 1));
                    steps.push_back(column);
                    column = std::min(column + Between(random, 0, 1), width - 1);
                }
                back.assign(steps.rbegin(), steps.rend());
                const gdi::StretchVariant& functions = gdi::ActiveStretchVariant();
                const auto                 check = [&](const std::vector<int>& columns, bool repeats) {
                    std::vector<std::uint32_t> target(static_cast<std::size_t>(count) + 9, Guard);
                    std::uint32_t*             at = target.data() + 1;
                    if (repeats)
                        functions.RepeatPixels(at, source.data(), width, columns.data(), count);
                    else
                        functions.PickPixels(at, source.data(), columns.data(), count,
                                             count % 2 != 0 ? source.data() : nullptr);
                    int wrong = target[0] != Guard;
                    for (int i = 0; i < count + 8; ++i)
                        wrong += at[i] !=
                                 (i < count
                                                      ? source[static_cast<std::size_t>(columns[static_cast<std::size_t>(i)])]
                                                      : Guard);
                    CAPTURE(count);
                    CAPTURE(width);
                    CAPTURE(repeats);
                    CHECK(wrong == 0);
                };
                check(anywhere, false);
                check(steps, true);
                check(back, true);
            }
    }
}

TEST_CASE("blended rows of every variant equal the reference for all lengths from 0 to 280 bytes")
{
    std::mt19937 random(13);
    for (const CpuVariant variant : FastVariants()) {
        const VariantScope scope(variant);
        const std::string  name = NameOf(variant);
        CAPTURE(name);
        for (int count = 0; count <= 280; ++count) {
            const int                              rowCount = 2 * Between(random, 1, 4);
            std::vector<std::vector<std::uint8_t>> memory;
            std::vector<const std::uint8_t*>       rows;
            std::vector<std::int16_t>              weights(static_cast<std::size_t>(rowCount), 0);
            for (int k = 0; k < rowCount; ++k) {
                memory.emplace_back(static_cast<std::size_t>(count) + 1);
                for (std::uint8_t& byte : memory.back())
                    byte = static_cast<std::uint8_t>(count % 3 == 0 ? 255 : random());
            }
            for (const std::vector<std::uint8_t>& row : memory)
                rows.push_back(row.data() + 1);
            int rest = gdi::AxisTaps::One;
            for (int k = 0; k + 1 < rowCount && count % 5 != 0; ++k) {
                weights[static_cast<std::size_t>(k)] =
                    static_cast<std::int16_t>(Between(random, 0, rest / 2));
                rest -= weights[static_cast<std::size_t>(k)];
            }
            weights.back() = static_cast<std::int16_t>(rest);
            std::vector<std::uint16_t> target(static_cast<std::size_t>(count) + 40, 0xABCD);
            std::vector<std::uint16_t> expected = target;
            for (int i = 0; i < count; ++i) {
                int sum = 64;
                for (int k = 0; k < rowCount; ++k)
                    sum += rows[static_cast<std::size_t>(k)][i] * weights[static_cast<std::size_t>(k)];
                expected[static_cast<std::size_t>(i)] = static_cast<std::uint16_t>(sum >> 7);
            }
            gdi::ActiveStretchVariant().BlendRows(target.data(), rows.data(), weights.data(), rowCount, count,
                                                  count % 2 != 0 ? 4096 : 0);
            CAPTURE(count);
            CHECK(target == expected);
        }
    }
}

TEST_CASE("blended columns of every variant equal the reference for all lengths from 0 to 70")
{
    std::mt19937 random(14);
    for (const CpuVariant variant : FastVariants()) {
        const VariantScope scope(variant);
        const std::string  name = NameOf(variant);
        CAPTURE(name);
        for (int count = 0; count <= 70; ++count)
            for (int pairsEach = 1; pairsEach <= 4; ++pairsEach) {
                const int                  width = 60;
                std::vector<std::uint16_t> row(static_cast<std::size_t>(width + 2 * pairsEach) * 4);
                for (std::uint16_t& value : row)
                    value = static_cast<std::uint16_t>(count % 3 == 0 ? 32640 : random() % 32641);
                std::vector<int>           columns(static_cast<std::size_t>(count));
                std::vector<std::uint32_t> pairs(static_cast<std::size_t>((count + 7) / 8 * 8 * pairsEach),
                                                 0);
                std::vector<std::uint32_t> expected(static_cast<std::size_t>(count) + 20, Guard);
                for (int i = 0; i < count; ++i) {
                    columns[static_cast<std::size_t>(i)] = Between(random, 0, width);
                    int rest = gdi::AxisTaps::One;
                    int sums[3] = {1 << 20, 1 << 20, 1 << 20};
                    for (int tap = 0; tap < 2 * pairsEach; ++tap) {
                        const int weight = tap == 2 * pairsEach - 1 ? rest : Between(random, 0, rest);
                        rest -= weight;
                        pairs[static_cast<std::size_t>((i / 8 * pairsEach + tap / 2) * 8 + i % 8)] |=
                            static_cast<std::uint32_t>(weight) << (tap % 2 != 0 ? 16 : 0);
                        for (int channel = 0; channel < 3; ++channel)
                            sums[channel] +=
                                weight * row[static_cast<std::size_t>(
                                             (columns[static_cast<std::size_t>(i)] + tap) * 4 + channel)];
                    }
                    expected[static_cast<std::size_t>(i)] =
                        static_cast<std::uint32_t>(sums[0] >> 21 | sums[1] >> 21 << 8 | sums[2] >> 21 << 16);
                }
                std::vector<std::uint32_t> target(static_cast<std::size_t>(count) + 20, Guard);
                gdi::ActiveStretchVariant().BlendColumns(target.data(), row.data(), columns.data(),
                                                         pairs.data(), pairsEach, count);
                CAPTURE(count);
                CAPTURE(pairsEach);
                CHECK(target == expected);
            }
    }
}

TEST_CASE("stretches of every mode, depth and direction give the same bits in every variant")
{
    const unsigned seed = 4711;
    std::mt19937   random(seed);
    CAPTURE(seed);
    int changed = 0;
    for (int round = 0; round < 600; ++round) {
        const int     bits[] = {24, 32, 32};
        GuardedBitmap source(Between(random, 1, 90), Between(random, 1, 50), bits[random() % 3],
                             random() % 2 != 0);
        const int     targetBits = bits[random() % 3];
        const int     width = Between(random, 1, 140), height = Between(random, 1, 60);
        const bool    topDown = random() % 2 != 0;
        source.Randomise(random);
        const gdi::StretchAxis columns = RandomAxis(random, width, source.Width);
        const gdi::StretchAxis rows = RandomAxis(random, height, source.Height);
        const int              mode = round % 3 == 0 ? 4 : 1 + round % 4;
        GuardedBitmap          expected(width, height, targetBits, topDown);
        {
            const VariantScope plain(CpuVariant::Plain);
            Stretch(expected, source, columns, rows, mode);
        }
        changed += std::count(expected.Memory.begin(), expected.Memory.end(), 0xB7) !=
                   static_cast<std::ptrdiff_t>(expected.Memory.size());
        for (const CpuVariant variant : FastVariants()) {
            const VariantScope scope(variant);
            GuardedBitmap      target(width, height, targetBits, topDown);
            Stretch(target, source, columns, rows, mode);
            const std::string what = NameOf(variant) + std::string(": ") + Text(columns) + Text(rows);
            CAPTURE(what);
            CAPTURE(mode);
            CHECK(target.Memory == expected.Memory);
        }
    }
    CHECK(changed > 300);
}

TEST_CASE("copies and enlargements too large for the caches give the same bits in every variant")
{
    std::mt19937 random(31);
    const int    width = 1201, height = 1001;    // more pixels than are kept in the caches
    static_assert(std::int64_t{width - 13} * (height - 9) >= gdi::StreamedPixels);
    GuardedBitmap source(1300, 1010, 32, false);
    source.Randomise(random);
    for (const bool topDown : {false, true})
        for (const int extent : {width - 13, 2 * width, 3 * width})
            for (const CpuVariant variant : FastVariants()) {
                const VariantScope     scope(variant);
                GuardedBitmap          target(width, height, 32, topDown);
                const gdi::StretchAxis columns = AxisOf(13, extent, 7, width - 13, width, 1300);
                const gdi::StretchAxis rows = AxisOf(9, extent, 3, width - 13, height, 1010);
                gdi::PixelCopy         copy;
                copy.Target = &target;
                copy.Source = &source;
                if (columns.KeepsSize())
                    gdi::CopyPixels(copy, columns, rows);
                else
                    gdi::StretchPixels(copy, columns, rows, COLORONCOLOR);
                gdi::AxisRuns across, down;
                across.Find(columns);
                down.Find(rows);
                REQUIRE(across.Count == width - 13);
                REQUIRE(down.Count == height - 9);
                int wrong = 0;
                for (int y = 0; y < height; ++y)
                    for (int x = 0; x < width; ++x) {
                        std::uint32_t expected = 0xB7B7B7B7u;
                        if (x >= 13 && y >= 9)
                            expected = source.Word(across.Far[static_cast<std::size_t>(x - 13)],
                                                   down.Near[static_cast<std::size_t>(y - 9)]);
                        wrong += target.Word(x, y) != expected;
                    }
                const std::string name = NameOf(variant);
                CAPTURE(name);
                CAPTURE(extent);
                CHECK(wrong == 0);
            }
}

TEST_CASE("the smooth stretch is within one of the average in real numbers, wherever it draws")
{
    const unsigned seed = 1234;
    std::mt19937   random(seed);
    CAPTURE(seed);
    int drawn = 0;
    for (int round = 0; round < 150; ++round) {
        GuardedBitmap source(Between(random, 1, 40), Between(random, 1, 40), round % 2 != 0 ? 24 : 32,
                             random() % 2 != 0);
        GuardedBitmap target(Between(random, 1, 30), Between(random, 1, 30), 32, random() % 2 != 0);
        source.Randomise(random);
        const gdi::StretchAxis columns = RandomAxis(random, target.Width, source.Width);
        const gdi::StretchAxis rows = RandomAxis(random, target.Height, source.Height);
        if (columns.KeepsSize() && rows.KeepsSize())
            continue;
        Stretch(target, source, columns, rows, HALFTONE);
        std::vector<std::vector<double>> across;
        for (int x = 0; x < target.Width; ++x)
            across.push_back(RealWeights(columns, x));
        int wrong = 0;
        for (int y = 0; y < target.Height; ++y) {
            const std::vector<double> down = RealWeights(rows, y);
            for (int x = 0; x < target.Width; ++x) {
                const std::vector<double>& weights = across[static_cast<std::size_t>(x)];
                if (down.empty() || weights.empty()) {
                    wrong += target.Word(x, y) != 0xB7B7B7B7u;
                    continue;
                }
                ++drawn;
                wrong += target.Word(x, y) >> 24 != 0;
                for (int channel = 0; channel < 3; ++channel) {
                    double sum = 0.0;
                    for (int j = 0; j < source.Height; ++j)
                        for (int i = 0; i < source.Width; ++i)
                            sum += down[static_cast<std::size_t>(j)] * weights[static_cast<std::size_t>(i)] *
                                   source.Channel(i, j, channel);
                    wrong += std::abs(target.Channel(x, y, channel) - sum) > 0.55;
                }
            }
        }
        const std::string what = Text(columns) + Text(rows);
        CAPTURE(what);
        CHECK(wrong == 0);
    }
    CHECK(drawn > 5000);
}

TEST_CASE("shrinking 4 x 2 pixels to 2 x 1 averages four by four")
{
    GuardedBitmap       source(4, 2, 32, true);
    GuardedBitmap       target(2, 1, 32, true);
    const std::uint32_t words[2][4] = {{0x000010, 0x000020, 0xFF0000, 0x00FF00},
                                       {0x000030, 0x000043, 0, 0x000004}};
    for (int y = 0; y < 2; ++y)
        for (int x = 0; x < 4; ++x)
            source.Word(x, y) = words[y][x] | 0xEE000000u;
    Stretch(target, source, AxisOf(0, 2, 0, 4, 2, 4), AxisOf(0, 1, 0, 2, 1, 2), HALFTONE);
    CHECK(target.Word(0, 0) == 0x000029u);    // 16 + 32 + 48 + 67 = 163, a quarter is 40.75
    CHECK(target.Word(1, 0) == 0x404001u);    // 255 / 4 = 63.75, 4 / 4 = 1
}

TEST_CASE("shrinking 9 pixels to 3 and 5 pixels to 1 averages threes and fives")
{
    GuardedBitmap source(9, 5, 32, false);
    GuardedBitmap target(3, 1, 32, false);
    for (int y = 0; y < 5; ++y)
        for (int x = 0; x < 9; ++x)
            source.Word(x, y) = static_cast<std::uint32_t>((x == 1 && y == 2) || x >= 6 ? 255 : 30 * (x / 3));
    Stretch(target, source, AxisOf(0, 3, 0, 9, 3, 9), AxisOf(0, 1, 0, 5, 1, 5), HALFTONE);
    CHECK(target.Word(0, 0) == 17u);    // 255 / 15
    CHECK(target.Word(1, 0) == 30u);
    CHECK(target.Word(2, 0) == 255u);
}

TEST_CASE("shrinking 3 pixels to 2 shares the middle one")
{
    GuardedBitmap source(3, 1, 32, true);
    GuardedBitmap target(2, 1, 32, true);
    source.Word(0, 0) = 90;
    source.Word(1, 0) = 30;
    source.Word(2, 0) = 0;
    Stretch(target, source, AxisOf(0, 2, 0, 3, 2, 3), AxisOf(0, 1, 0, 1, 1, 1), HALFTONE);
    CHECK(target.Word(0, 0) == 70u);    // (90 + 30 / 2) / 1.5
    CHECK(target.Word(1, 0) == 10u);    // (30 / 2 + 0) / 1.5
}

TEST_CASE("enlarging 2 pixels to 4 goes over from centre to centre and keeps the ends")
{
    GuardedBitmap source(2, 1, 32, true);
    GuardedBitmap target(4, 1, 32, true);
    source.Word(0, 0) = 0;
    source.Word(1, 0) = 200;
    Stretch(target, source, AxisOf(0, 4, 0, 2, 4, 2), AxisOf(0, 1, 0, 1, 1, 1), HALFTONE);
    CHECK(target.Word(0, 0) == 0u);
    CHECK(target.Word(1, 0) == 50u);
    CHECK(target.Word(2, 0) == 150u);
    CHECK(target.Word(3, 0) == 200u);
}

TEST_CASE("a whole surface smoothly stretched beyond every side shows the same pixels as the large target")
{
    std::mt19937  random(99);
    GuardedBitmap source(64, 48, 32, false);
    source.Randomise(random);
    for (int extent : {40, 64, 150, 300}) {
        const int     rowExtent = extent * 3 / 4;
        GuardedBitmap whole(extent, rowExtent, 32, false);
        GuardedBitmap window(30, 20, 32, false);
        Stretch(whole, source, AxisOf(0, extent, 0, 64, extent, 64),
                AxisOf(0, rowExtent, 0, 48, rowExtent, 48), HALFTONE);
        Stretch(window, source, AxisOf(-5, extent, 0, 64, 30, 64), AxisOf(-7, rowExtent, 0, 48, 20, 48),
                HALFTONE);
        int wrong = 0;
        for (int y = 0; y < 20; ++y)
            for (int x = 0; x < 30; ++x)
                wrong += window.Word(x, y) != (y + 7 < rowExtent ? whole.Word(x + 5, y + 7) : 0xB7B7B7B7u);
        CAPTURE(extent);
        CHECK(wrong == 0);
    }
}

TEST_CASE("weights of every target pixel add up to one whole")
{
    std::mt19937 random(5);
    int          pixels = 0;
    for (int round = 0; round < 500; ++round) {
        const gdi::StretchAxis axis = RandomAxis(random, 60, 45);
        gdi::AxisTaps          taps;
        taps.Find(axis);
        const std::string what = Text(axis);
        CAPTURE(what);
        for (int i = 0; i < taps.Count; ++i) {
            int sum = 0;
            for (int k = 0; k < taps.Each; ++k) {
                const int weight = taps.Weights[static_cast<std::size_t>(i * taps.Each + k)];
                CHECK(weight >= 0);
                if (weight > 0)
                    CHECK(taps.First[static_cast<std::size_t>(i)] + k < 45);
                sum += weight;
            }
            CHECK(sum == gdi::AxisTaps::One);
            CHECK(taps.First[static_cast<std::size_t>(i)] >= 0);
            ++pixels;
        }
    }
    CHECK(pixels > 1000);
}

TEST_CASE("any raster operation but the copy fails and changes nothing")
{
    HDC dc = CreateCompatibleDC(nullptr);
    HDC from = CreateCompatibleDC(nullptr);
    CHECK_FALSE(BitBlt(dc, 0, 0, 1, 1, from, 0, 0, 0x00550009));
    CHECK_FALSE(StretchBlt(dc, 0, 0, 1, 1, from, 0, 0, 2, 2, 0x008800C6));
    CHECK(BitBlt(dc, 0, 0, 1, 1, from, 0, 0, SRCCOPY));
    DeleteDC(from);
    DeleteDC(dc);
}
