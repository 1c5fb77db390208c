#include "platform/portable/StretchRows.h"

#include "base/CpuVariants.h"

#include <cstring>

namespace vostel::gdi {
namespace {

void CopyPixels(std::uint32_t* target, const std::uint32_t* source, int count, const std::uint32_t*)
{
    std::memcpy(target, source, static_cast<std::size_t>(count) * 4);
}

void Fence() {}

void PickPixels(std::uint32_t* target, const std::uint32_t* source, const int* columns, int count,
                const std::uint32_t*)
{
    PickPixelsPlain(target, source, columns, 0, count);
}

void RepeatPixels(std::uint32_t* target, const std::uint32_t* source, int, const int* columns, int count)
{
    PickPixelsPlain(target, source, columns, 0, count);
}

void BlendRows(std::uint16_t* target, const std::uint8_t* const* rows, const std::int16_t* weights,
               int rowCount, int count, std::ptrdiff_t)
{
    BlendRowsPlain(target, rows, weights, rowCount, 0, count);
}

void BlendColumns(std::uint32_t* target, const std::uint16_t* row, const int* columns,
                  const std::uint32_t* pairs, int pairsEach, int count)
{
    BlendColumnsPlain(target, row, columns, pairs, pairsEach, 0, count);
}

}

void PickPixelsPlain(std::uint32_t* target, const std::uint32_t* source, const int* columns, int from,
                     int count)
{
    for (int i = from; i < count; ++i)
        target[i] = source[columns[i]];
}

void BlendRowsPlain(std::uint16_t* target, const std::uint8_t* const* rows, const std::int16_t* weights,
                    int rowCount, int from, int count)
{
    for (int i = from; i < count; ++i) {
        int sum = 64;
        for (int k = 0; k < rowCount; ++k)
            sum += rows[k][i] * weights[k];
        target[i] = static_cast<std::uint16_t>(sum >> 7);
    }
}

void BlendColumnsPlain(std::uint32_t* target, const std::uint16_t* row, const int* columns,
                       const std::uint32_t* pairs, int pairsEach, int from, int count)
{
    for (int i = from; i < count; ++i) {
        const std::uint16_t* pixel = row + static_cast<std::ptrdiff_t>(columns[i]) * 4;
        int                  sums[3] = {1 << 20, 1 << 20, 1 << 20};
        for (int p = 0; p < pairsEach; ++p, pixel += 8) {
            const std::uint32_t pair =
                pairs[(i / StretchBlock * pairsEach + p) * StretchBlock + i % StretchBlock];
            const int first = static_cast<int>(pair & 0xFFFFu);
            const int second = static_cast<int>(pair >> 16);
            for (int channel = 0; channel < 3; ++channel)
                sums[channel] += pixel[channel] * first + pixel[channel + 4] * second;
        }
        target[i] = static_cast<std::uint32_t>(sums[0] >> 21 | sums[1] >> 21 << 8 | sums[2] >> 21 << 16);
    }
}

const StretchVariant StretchPlain = {.CopyPixels = CopyPixels,
                                     .StreamPixels = CopyPixels,
                                     .Fence = Fence,
                                     .PickPixels = PickPixels,
                                     .RepeatPixels = RepeatPixels,
                                     .BlendRows = BlendRows,
                                     .BlendColumns = BlendColumns};

const StretchVariant& ActiveStretchVariant()
{
    return Choose<StretchVariant>({.Plain = &StretchPlain,
                                   .Baseline = VOSTEL_X86(&StretchSse2),
                                   .Avx2 = VOSTEL_X86(&StretchAvx2),
                                   .Avx512 = VOSTEL_X86(&StretchAvx512)});
}

}
