#include "platform/portable/StretchRows.h"

#include <immintrin.h>

namespace vostel::gdi {
namespace {

void CopyPixels(std::uint32_t* target, const std::uint32_t* source, int count, const std::uint32_t* rowAhead)
{
    // The processor guesses what follows within a row; where the next row starts it cannot.
    const std::uint32_t* ahead = rowAhead != nullptr ? rowAhead : source;
    int                  i = 0;
    for (; i < count && (reinterpret_cast<std::uintptr_t>(target + i) & 31u) != 0; ++i)
        target[i] = source[i];    // so that no store straddles two cache lines
    for (; i + 32 <= count; i += 32) {
        _mm_prefetch(reinterpret_cast<const char*>(ahead + i), _MM_HINT_T0);
        _mm_prefetch(reinterpret_cast<const char*>(ahead + i + 16), _MM_HINT_T0);
        const __m256i* from = reinterpret_cast<const __m256i*>(source + i);
        const __m256i  pixels0 = _mm256_loadu_si256(from), pixels1 = _mm256_loadu_si256(from + 1);
        const __m256i  pixels2 = _mm256_loadu_si256(from + 2), pixels3 = _mm256_loadu_si256(from + 3);
        __m256i*       to = reinterpret_cast<__m256i*>(target + i);
        _mm256_storeu_si256(to, pixels0);
        _mm256_storeu_si256(to + 1, pixels1);
        _mm256_storeu_si256(to + 2, pixels2);
        _mm256_storeu_si256(to + 3, pixels3);
    }
    for (; i < count; ++i)
        target[i] = source[i];
}

void StreamPixels(std::uint32_t* target, const std::uint32_t* source, int count,
                  const std::uint32_t* rowAhead)
{
    const std::uint32_t* ahead = rowAhead != nullptr ? rowAhead : source;
    int                  i = 0;
    for (; i < count && (reinterpret_cast<std::uintptr_t>(target + i) & 31u) != 0; ++i)
        target[i] = source[i];    // streaming takes aligned addresses only
    for (; i + 32 <= count; i += 32) {
        _mm_prefetch(reinterpret_cast<const char*>(ahead + i), _MM_HINT_T0);
        _mm_prefetch(reinterpret_cast<const char*>(ahead + i + 16), _MM_HINT_T0);
        const __m256i* from = reinterpret_cast<const __m256i*>(source + i);
        const __m256i  pixels0 = _mm256_loadu_si256(from), pixels1 = _mm256_loadu_si256(from + 1);
        const __m256i  pixels2 = _mm256_loadu_si256(from + 2), pixels3 = _mm256_loadu_si256(from + 3);
        __m256i*       to = reinterpret_cast<__m256i*>(target + i);
        _mm256_stream_si256(to, pixels0);
        _mm256_stream_si256(to + 1, pixels1);
        _mm256_stream_si256(to + 2, pixels2);
        _mm256_stream_si256(to + 3, pixels3);
    }
    for (; i < count; ++i)
        target[i] = source[i];
}

void EndStream()
{
    _mm_sfence();
}

void PickPixels(std::uint32_t* target, const std::uint32_t* source, const int* columns, int count,
                const std::uint32_t* rowAhead)
{
    // The rows of a shrunk picture lie too far apart for the processor to see the next one coming.
    const std::uint32_t* ahead = rowAhead != nullptr ? rowAhead : source;
    int                  i = 0;
    for (; i + 8 <= count; i += 8) {
        const __m128i low =
            _mm_set_epi32(static_cast<int>(source[columns[i + 3]]), static_cast<int>(source[columns[i + 2]]),
                          static_cast<int>(source[columns[i + 1]]), static_cast<int>(source[columns[i]]));
        const __m128i high =
            _mm_set_epi32(static_cast<int>(source[columns[i + 7]]), static_cast<int>(source[columns[i + 6]]),
                          static_cast<int>(source[columns[i + 5]]), static_cast<int>(source[columns[i + 4]]));
        _mm_prefetch(reinterpret_cast<const char*>(ahead + columns[i]), _MM_HINT_T0);
        _mm_prefetch(reinterpret_cast<const char*>(ahead + columns[i + 4]), _MM_HINT_T0);
        _mm256_storeu_si256(reinterpret_cast<__m256i*>(target + i), _mm256_set_m128i(high, low));
    }
    PickPixelsPlain(target, source, columns, i, count);
}

void RepeatPixels(std::uint32_t* target, const std::uint32_t* source, int width, const int* columns,
                  int count)
{
    int i = 0;
    for (; i + 8 <= count; i += 8) {
        // Eight neighbours reach from one end's column over at most seven more.
        int first = columns[i] < columns[i + 7] ? columns[i] : columns[i + 7];
        if (first > width - 8) {
            first = width - 8;
            if (first < 0)
                break;
        }
        const __m256i pixels = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(source + first));
        const __m256i places = _mm256_sub_epi32(
            _mm256_loadu_si256(reinterpret_cast<const __m256i*>(columns + i)), _mm256_set1_epi32(first));
        _mm256_storeu_si256(reinterpret_cast<__m256i*>(target + i),
                            _mm256_permutevar8x32_epi32(pixels, places));
    }
    PickPixelsPlain(target, source, columns, i, count);
}

// The address may lie outside the picture: it is never read.
void Hint(const std::uint8_t* bytes, std::ptrdiff_t ahead)
{
    _mm_prefetch(reinterpret_cast<const char*>(reinterpret_cast<std::uintptr_t>(bytes) +
                                               static_cast<std::uintptr_t>(ahead)),
                 _MM_HINT_T0);
}

void BlendRows(std::uint16_t* target, const std::uint8_t* const* rows, const std::int16_t* weights,
               int rowCount, int count, std::ptrdiff_t ahead)
{
    const __m256i zero = _mm256_setzero_si256();
    int           i = 0;
    for (; i + 64 <= count; i += 64) {
        __m256i sum0 = _mm256_set1_epi32(64);
        __m256i sum1 = sum0, sum2 = sum0, sum3 = sum0, sum4 = sum0, sum5 = sum0, sum6 = sum0, sum7 = sum0;
        for (int k = 0; k < rowCount; k += 2) {
            const __m256i  pair = _mm256_set1_epi32(static_cast<int>(
                static_cast<std::uint16_t>(weights[k]) | static_cast<unsigned>(weights[k + 1]) << 16));
            const __m256i* upper = reinterpret_cast<const __m256i*>(rows[k] + i);
            const __m256i* lower = reinterpret_cast<const __m256i*>(rows[k + 1] + i);
            const __m256i  upper0 = _mm256_loadu_si256(upper), lower0 = _mm256_loadu_si256(lower);
            const __m256i  upper1 = _mm256_loadu_si256(upper + 1), lower1 = _mm256_loadu_si256(lower + 1);
            Hint(rows[k] + i, ahead);
            Hint(rows[k + 1] + i, ahead);
            const __m256i low0 = _mm256_unpacklo_epi8(upper0, lower0);
            const __m256i high0 = _mm256_unpackhi_epi8(upper0, lower0);
            const __m256i low1 = _mm256_unpacklo_epi8(upper1, lower1);
            const __m256i high1 = _mm256_unpackhi_epi8(upper1, lower1);
            sum0 = _mm256_add_epi32(sum0, _mm256_madd_epi16(_mm256_unpacklo_epi8(low0, zero), pair));
            sum1 = _mm256_add_epi32(sum1, _mm256_madd_epi16(_mm256_unpackhi_epi8(low0, zero), pair));
            sum2 = _mm256_add_epi32(sum2, _mm256_madd_epi16(_mm256_unpacklo_epi8(high0, zero), pair));
            sum3 = _mm256_add_epi32(sum3, _mm256_madd_epi16(_mm256_unpackhi_epi8(high0, zero), pair));
            sum4 = _mm256_add_epi32(sum4, _mm256_madd_epi16(_mm256_unpacklo_epi8(low1, zero), pair));
            sum5 = _mm256_add_epi32(sum5, _mm256_madd_epi16(_mm256_unpackhi_epi8(low1, zero), pair));
            sum6 = _mm256_add_epi32(sum6, _mm256_madd_epi16(_mm256_unpacklo_epi8(high1, zero), pair));
            sum7 = _mm256_add_epi32(sum7, _mm256_madd_epi16(_mm256_unpackhi_epi8(high1, zero), pair));
        }
        // Each half of a register holds sixteen values of its own half of the 32 bytes.
        const __m256i values0 = _mm256_packs_epi32(_mm256_srai_epi32(sum0, 7), _mm256_srai_epi32(sum1, 7));
        const __m256i values1 = _mm256_packs_epi32(_mm256_srai_epi32(sum2, 7), _mm256_srai_epi32(sum3, 7));
        const __m256i values2 = _mm256_packs_epi32(_mm256_srai_epi32(sum4, 7), _mm256_srai_epi32(sum5, 7));
        const __m256i values3 = _mm256_packs_epi32(_mm256_srai_epi32(sum6, 7), _mm256_srai_epi32(sum7, 7));
        __m256i*      out = reinterpret_cast<__m256i*>(target + i);
        _mm256_storeu_si256(out, _mm256_permute2x128_si256(values0, values1, 0x20));
        _mm256_storeu_si256(out + 1, _mm256_permute2x128_si256(values0, values1, 0x31));
        _mm256_storeu_si256(out + 2, _mm256_permute2x128_si256(values2, values3, 0x20));
        _mm256_storeu_si256(out + 3, _mm256_permute2x128_si256(values2, values3, 0x31));
    }
    BlendRowsPlain(target, rows, weights, rowCount, i, count);
}

// Two pixels for one target pixel in the low half and two for another in the high half, channels side by
// side: b0 b1 g0 g1 r0 r1 a0 a1.
__m256i TwoPixelsTwice(const std::uint16_t* low, const std::uint16_t* high)
{
    const __m256i order = _mm256_setr_epi8(0, 1, 8, 9, 2, 3, 10, 11, 4, 5, 12, 13, 6, 7, 14, 15, 0, 1, 8, 9,
                                           2, 3, 10, 11, 4, 5, 12, 13, 6, 7, 14, 15);
    const __m256i both = _mm256_inserti128_si256(
        _mm256_castsi128_si256(_mm_loadu_si128(reinterpret_cast<const __m128i*>(low))),
        _mm_loadu_si128(reinterpret_cast<const __m128i*>(high)), 1);
    return _mm256_shuffle_epi8(both, order);
}

void BlendColumns(std::uint32_t* target, const std::uint16_t* row, const int* columns,
                  const std::uint32_t* pairs, int pairsEach, int count)
{
    const __m256i colours = _mm256_set1_epi32(0x00FFFFFF);
    int           i = 0;
    for (; i + 8 <= count; i += 8) {
        const std::uint16_t* pixel0 = row + static_cast<std::ptrdiff_t>(columns[i]) * 4;
        const std::uint16_t* pixel1 = row + static_cast<std::ptrdiff_t>(columns[i + 1]) * 4;
        const std::uint16_t* pixel2 = row + static_cast<std::ptrdiff_t>(columns[i + 2]) * 4;
        const std::uint16_t* pixel3 = row + static_cast<std::ptrdiff_t>(columns[i + 3]) * 4;
        const std::uint16_t* pixel4 = row + static_cast<std::ptrdiff_t>(columns[i + 4]) * 4;
        const std::uint16_t* pixel5 = row + static_cast<std::ptrdiff_t>(columns[i + 5]) * 4;
        const std::uint16_t* pixel6 = row + static_cast<std::ptrdiff_t>(columns[i + 6]) * 4;
        const std::uint16_t* pixel7 = row + static_cast<std::ptrdiff_t>(columns[i + 7]) * 4;
        const std::uint32_t* pair = pairs + static_cast<std::ptrdiff_t>(i) * pairsEach;
        __m256i              sum0 = _mm256_set1_epi32(1 << 20);
        __m256i              sum1 = sum0, sum2 = sum0, sum3 = sum0;
        for (int p = 0; p < pairsEach; ++p, pair += StretchBlock) {
            const __m256i        weights = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(pair));
            const std::ptrdiff_t at = static_cast<std::ptrdiff_t>(p) * 8;
            sum0 = _mm256_add_epi32(sum0, _mm256_madd_epi16(TwoPixelsTwice(pixel0 + at, pixel4 + at),
                                                            _mm256_shuffle_epi32(weights, 0x00)));
            sum1 = _mm256_add_epi32(sum1, _mm256_madd_epi16(TwoPixelsTwice(pixel1 + at, pixel5 + at),
                                                            _mm256_shuffle_epi32(weights, 0x55)));
            sum2 = _mm256_add_epi32(sum2, _mm256_madd_epi16(TwoPixelsTwice(pixel2 + at, pixel6 + at),
                                                            _mm256_shuffle_epi32(weights, 0xAA)));
            sum3 = _mm256_add_epi32(sum3, _mm256_madd_epi16(TwoPixelsTwice(pixel3 + at, pixel7 + at),
                                                            _mm256_shuffle_epi32(weights, 0xFF)));
        }
        const __m256i low = _mm256_packs_epi32(_mm256_srai_epi32(sum0, 21), _mm256_srai_epi32(sum1, 21));
        const __m256i high = _mm256_packs_epi32(_mm256_srai_epi32(sum2, 21), _mm256_srai_epi32(sum3, 21));
        _mm256_storeu_si256(reinterpret_cast<__m256i*>(target + i),
                            _mm256_and_si256(_mm256_packus_epi16(low, high), colours));
    }
    BlendColumnsPlain(target, row, columns, pairs, pairsEach, i, count);
}

}

const StretchKernels& StretchKernelsAvx2()
{
    static const StretchKernels kernels = {CopyPixels,   StreamPixels, EndStream,   PickPixels,
                                           RepeatPixels, BlendRows,    BlendColumns};
    return kernels;
}

}
