#include "platform/portable/StretchRows.h"

#include <emmintrin.h>

namespace vostel::gdi {
namespace {

void CopyPixels(std::uint32_t* target, const std::uint32_t* source, int count, const std::uint32_t* rowAhead)
{
    // The processor guesses what follows within a row; where the next row starts it cannot.
    const std::uint32_t* ahead = rowAhead != nullptr ? rowAhead : source;
    int                  i = 0;
    for (; i < count && (reinterpret_cast<std::uintptr_t>(target + i) & 15u) != 0; ++i)
        target[i] = source[i];    // so that no store straddles two cache lines
    for (; i + 16 <= count; i += 16) {
        _mm_prefetch(reinterpret_cast<const char*>(ahead + i), _MM_HINT_T0);
        const __m128i* from = reinterpret_cast<const __m128i*>(source + i);
        const __m128i  pixels0 = _mm_loadu_si128(from), pixels1 = _mm_loadu_si128(from + 1);
        const __m128i  pixels2 = _mm_loadu_si128(from + 2), pixels3 = _mm_loadu_si128(from + 3);
        __m128i*       to = reinterpret_cast<__m128i*>(target + i);
        _mm_storeu_si128(to, pixels0);
        _mm_storeu_si128(to + 1, pixels1);
        _mm_storeu_si128(to + 2, pixels2);
        _mm_storeu_si128(to + 3, pixels3);
    }
    for (; i < count; ++i)
        target[i] = source[i];
}

void StreamPixels(std::uint32_t* target, const std::uint32_t* source, int count,
                  const std::uint32_t* rowAhead)
{
    const std::uint32_t* ahead = rowAhead != nullptr ? rowAhead : source;
    int                  i = 0;
    for (; i < count && (reinterpret_cast<std::uintptr_t>(target + i) & 15u) != 0; ++i)
        target[i] = source[i];    // streaming takes aligned addresses only
    for (; i + 16 <= count; i += 16) {
        _mm_prefetch(reinterpret_cast<const char*>(ahead + i), _MM_HINT_T0);
        const __m128i* from = reinterpret_cast<const __m128i*>(source + i);
        const __m128i  pixels0 = _mm_loadu_si128(from), pixels1 = _mm_loadu_si128(from + 1);
        const __m128i  pixels2 = _mm_loadu_si128(from + 2), pixels3 = _mm_loadu_si128(from + 3);
        __m128i*       to = reinterpret_cast<__m128i*>(target + i);
        _mm_stream_si128(to, pixels0);
        _mm_stream_si128(to + 1, pixels1);
        _mm_stream_si128(to + 2, pixels2);
        _mm_stream_si128(to + 3, pixels3);
    }
    for (; i < count; ++i)
        target[i] = source[i];
}

void EndStream()
{
    _mm_sfence();
}

void PickPixels(std::uint32_t* target, const std::uint32_t* source, const int* columns, int count,
                const std::uint32_t*)
{
    PickPixelsPlain(target, source, columns, 0, count);
}

void RepeatPixels(std::uint32_t* target, const std::uint32_t* source, int, const int* columns, int count)
{
    PickPixelsPlain(target, source, columns, 0, count);
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
    const __m128i zero = _mm_setzero_si128();
    int           i = 0;
    for (; i + 16 <= count; i += 16) {
        __m128i sum0 = _mm_set1_epi32(64);
        __m128i sum1 = sum0, sum2 = sum0, sum3 = sum0;
        for (int k = 0; k < rowCount; k += 2) {
            const __m128i pair = _mm_set1_epi32(static_cast<int>(
                static_cast<std::uint16_t>(weights[k]) | static_cast<unsigned>(weights[k + 1]) << 16));
            const __m128i upper = _mm_loadu_si128(reinterpret_cast<const __m128i*>(rows[k] + i));
            const __m128i lower = _mm_loadu_si128(reinterpret_cast<const __m128i*>(rows[k + 1] + i));
            const __m128i low = _mm_unpacklo_epi8(upper, lower);
            Hint(rows[k] + i, ahead);
            Hint(rows[k + 1] + i, ahead);
            const __m128i high = _mm_unpackhi_epi8(upper, lower);
            sum0 = _mm_add_epi32(sum0, _mm_madd_epi16(_mm_unpacklo_epi8(low, zero), pair));
            sum1 = _mm_add_epi32(sum1, _mm_madd_epi16(_mm_unpackhi_epi8(low, zero), pair));
            sum2 = _mm_add_epi32(sum2, _mm_madd_epi16(_mm_unpacklo_epi8(high, zero), pair));
            sum3 = _mm_add_epi32(sum3, _mm_madd_epi16(_mm_unpackhi_epi8(high, zero), pair));
        }
        __m128i* out = reinterpret_cast<__m128i*>(target + i);
        _mm_storeu_si128(out, _mm_packs_epi32(_mm_srai_epi32(sum0, 7), _mm_srai_epi32(sum1, 7)));
        _mm_storeu_si128(out + 1, _mm_packs_epi32(_mm_srai_epi32(sum2, 7), _mm_srai_epi32(sum3, 7)));
    }
    BlendRowsPlain(target, rows, weights, rowCount, i, count);
}

// Two pixels of a row with their channels side by side: b0 b1 g0 g1 r0 r1 a0 a1.
__m128i TwoPixels(const std::uint16_t* pixel)
{
    const __m128i both = _mm_loadu_si128(reinterpret_cast<const __m128i*>(pixel));
    return _mm_unpacklo_epi16(both, _mm_srli_si128(both, 8));
}

void BlendColumns(std::uint32_t* target, const std::uint16_t* row, const int* columns,
                  const std::uint32_t* pairs, int pairsEach, int count)
{
    const __m128i colours = _mm_set1_epi32(0x00FFFFFF);
    int           i = 0;
    for (; i + 4 <= count; i += 4) {
        const std::uint16_t* pixel0 = row + static_cast<std::ptrdiff_t>(columns[i]) * 4;
        const std::uint16_t* pixel1 = row + static_cast<std::ptrdiff_t>(columns[i + 1]) * 4;
        const std::uint16_t* pixel2 = row + static_cast<std::ptrdiff_t>(columns[i + 2]) * 4;
        const std::uint16_t* pixel3 = row + static_cast<std::ptrdiff_t>(columns[i + 3]) * 4;
        const std::uint32_t* pair = pairs +
                                    static_cast<std::ptrdiff_t>(i / StretchBlock) * pairsEach * StretchBlock +
                                    i % StretchBlock;
        __m128i sum0 = _mm_set1_epi32(1 << 20);
        __m128i sum1 = sum0, sum2 = sum0, sum3 = sum0;
        for (int p = 0; p < pairsEach; ++p, pair += StretchBlock) {
            const __m128i        weights = _mm_loadu_si128(reinterpret_cast<const __m128i*>(pair));
            const std::ptrdiff_t at = static_cast<std::ptrdiff_t>(p) * 8;
            sum0 =
                _mm_add_epi32(sum0, _mm_madd_epi16(TwoPixels(pixel0 + at), _mm_shuffle_epi32(weights, 0x00)));
            sum1 =
                _mm_add_epi32(sum1, _mm_madd_epi16(TwoPixels(pixel1 + at), _mm_shuffle_epi32(weights, 0x55)));
            sum2 =
                _mm_add_epi32(sum2, _mm_madd_epi16(TwoPixels(pixel2 + at), _mm_shuffle_epi32(weights, 0xAA)));
            sum3 =
                _mm_add_epi32(sum3, _mm_madd_epi16(TwoPixels(pixel3 + at), _mm_shuffle_epi32(weights, 0xFF)));
        }
        const __m128i low = _mm_packs_epi32(_mm_srai_epi32(sum0, 21), _mm_srai_epi32(sum1, 21));
        const __m128i high = _mm_packs_epi32(_mm_srai_epi32(sum2, 21), _mm_srai_epi32(sum3, 21));
        _mm_storeu_si128(reinterpret_cast<__m128i*>(target + i),
                         _mm_and_si128(_mm_packus_epi16(low, high), colours));
    }
    BlendColumnsPlain(target, row, columns, pairs, pairsEach, i, count);
}

}

const StretchKernels& StretchKernelsSse2()
{
    static const StretchKernels kernels = {CopyPixels,   StreamPixels, EndStream,   PickPixels,
                                           RepeatPixels, BlendRows,    BlendColumns};
    return kernels;
}

}
