#include "platform/portable/StretchRows.h"

#include <immintrin.h>

namespace vostel::gdi {
namespace {

void CopyPixels(std::uint32_t* target, const std::uint32_t* source, int count, const std::uint32_t* rowAhead)
{
    // The processor guesses what follows within a row; where the next row starts it cannot.
    const std::uint32_t* ahead = rowAhead != nullptr ? rowAhead : source;
    int                  i = 0;
    for (; i < count && (reinterpret_cast<std::uintptr_t>(target + i) & 63u) != 0; ++i)
        target[i] = source[i];    // so that no store straddles two cache lines
    for (; i + 32 <= count; i += 32) {
        _mm_prefetch(reinterpret_cast<const char*>(ahead + i), _MM_HINT_T0);
        _mm_prefetch(reinterpret_cast<const char*>(ahead + i + 16), _MM_HINT_T0);
        const __m512i low = _mm512_loadu_si512(source + i);
        const __m512i high = _mm512_loadu_si512(source + i + 16);
        _mm512_storeu_si512(target + i, low);
        _mm512_storeu_si512(target + i + 16, high);
    }
    for (; i < count; ++i)
        target[i] = source[i];
}

void StreamPixels(std::uint32_t* target, const std::uint32_t* source, int count,
                  const std::uint32_t* rowAhead)
{
    const std::uint32_t* ahead = rowAhead != nullptr ? rowAhead : source;
    int                  i = 0;
    for (; i < count && (reinterpret_cast<std::uintptr_t>(target + i) & 63u) != 0; ++i)
        target[i] = source[i];    // streaming takes aligned addresses only
    for (; i + 32 <= count; i += 32) {
        _mm_prefetch(reinterpret_cast<const char*>(ahead + i), _MM_HINT_T0);
        _mm_prefetch(reinterpret_cast<const char*>(ahead + i + 16), _MM_HINT_T0);
        const __m512i low = _mm512_loadu_si512(source + i);
        const __m512i high = _mm512_loadu_si512(source + i + 16);
        _mm512_stream_si512(reinterpret_cast<__m512i*>(target + i), low);
        _mm512_stream_si512(reinterpret_cast<__m512i*>(target + i + 16), high);
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
    for (; i + 16 <= count; i += 16) {
        // Sixteen neighbours reach from one end's column over at most fifteen more.
        int first = columns[i] < columns[i + 15] ? columns[i] : columns[i + 15];
        if (first > width - 16) {
            first = width - 16;
            if (first < 0)
                break;
        }
        const __m512i places = _mm512_sub_epi32(_mm512_loadu_si512(columns + i), _mm512_set1_epi32(first));
        _mm512_storeu_si512(target + i, _mm512_permutexvar_epi32(places, _mm512_loadu_si512(source + first)));
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
    const __m512i zero = _mm512_setzero_si512();
    const __m512i firstHalf = _mm512_setr_epi64(0, 1, 8, 9, 2, 3, 10, 11);
    const __m512i secondHalf = _mm512_setr_epi64(4, 5, 12, 13, 6, 7, 14, 15);
    int           i = 0;
    for (; i + 64 <= count; i += 64) {
        __m512i sum0 = _mm512_set1_epi32(64);
        __m512i sum1 = sum0, sum2 = sum0, sum3 = sum0;
        for (int k = 0; k < rowCount; k += 2) {
            const __m512i pair = _mm512_set1_epi32(static_cast<int>(
                static_cast<std::uint16_t>(weights[k]) | static_cast<unsigned>(weights[k + 1]) << 16));
            const __m512i upper = _mm512_loadu_si512(rows[k] + i);
            const __m512i lower = _mm512_loadu_si512(rows[k + 1] + i);
            Hint(rows[k] + i, ahead);
            Hint(rows[k + 1] + i, ahead);
            const __m512i low = _mm512_unpacklo_epi8(upper, lower);
            const __m512i high = _mm512_unpackhi_epi8(upper, lower);
            sum0 = _mm512_add_epi32(sum0, _mm512_madd_epi16(_mm512_unpacklo_epi8(low, zero), pair));
            sum1 = _mm512_add_epi32(sum1, _mm512_madd_epi16(_mm512_unpackhi_epi8(low, zero), pair));
            sum2 = _mm512_add_epi32(sum2, _mm512_madd_epi16(_mm512_unpacklo_epi8(high, zero), pair));
            sum3 = _mm512_add_epi32(sum3, _mm512_madd_epi16(_mm512_unpackhi_epi8(high, zero), pair));
        }
        // Each quarter of a register holds eight values of its own quarter of the 64 bytes.
        const __m512i values0 = _mm512_packs_epi32(_mm512_srai_epi32(sum0, 7), _mm512_srai_epi32(sum1, 7));
        const __m512i values1 = _mm512_packs_epi32(_mm512_srai_epi32(sum2, 7), _mm512_srai_epi32(sum3, 7));
        _mm512_storeu_si512(target + i, _mm512_permutex2var_epi64(values0, firstHalf, values1));
        _mm512_storeu_si512(target + i + 32, _mm512_permutex2var_epi64(values0, secondHalf, values1));
    }
    BlendRowsPlain(target, rows, weights, rowCount, i, count);
}

__m512i FourPairs(const std::uint16_t* row, const int* columns, std::ptrdiff_t at)
{
    const auto load = [row, columns, at](int pixel) {
        return _mm_loadu_si128(
            reinterpret_cast<const __m128i*>(row + static_cast<std::ptrdiff_t>(columns[pixel]) * 4 + at));
    };
    const __m256i low = _mm256_inserti128_si256(_mm256_castsi128_si256(load(0)), load(4), 1);
    const __m256i high = _mm256_inserti128_si256(_mm256_castsi128_si256(load(8)), load(12), 1);
    const __m512i order =
        _mm512_broadcast_i32x4(_mm_setr_epi8(0, 1, 8, 9, 2, 3, 10, 11, 4, 5, 12, 13, 6, 7, 14, 15));
    return _mm512_shuffle_epi8(_mm512_inserti64x4(_mm512_castsi256_si512(low), high, 1), order);
}

void BlendColumns(std::uint32_t* target, const std::uint16_t* row, const int* columns,
                  const std::uint32_t* pairs, int pairsEach, int count)
{
    const __m512i colours = _mm512_set1_epi32(0x00FFFFFF);
    int           i = 0;
    for (; i + 16 <= count; i += 16) {
        const std::uint32_t* pair = pairs + static_cast<std::ptrdiff_t>(i) * pairsEach;
        const std::ptrdiff_t nextBlock = static_cast<std::ptrdiff_t>(pairsEach) * StretchBlock;
        __m512i              sum0 = _mm512_set1_epi32(1 << 20);
        __m512i              sum1 = sum0, sum2 = sum0, sum3 = sum0;
        for (int p = 0; p < pairsEach; ++p, pair += StretchBlock) {
            const __m512i weights = _mm512_inserti64x4(
                _mm512_castsi256_si512(_mm256_loadu_si256(reinterpret_cast<const __m256i*>(pair))),
                _mm256_loadu_si256(reinterpret_cast<const __m256i*>(pair + nextBlock)), 1);
            const std::ptrdiff_t at = static_cast<std::ptrdiff_t>(p) * 8;
            sum0 = _mm512_add_epi32(sum0, _mm512_madd_epi16(FourPairs(row, columns + i, at),
                                                            _mm512_shuffle_epi32(weights, _MM_PERM_AAAA)));
            sum1 = _mm512_add_epi32(sum1, _mm512_madd_epi16(FourPairs(row, columns + i + 1, at),
                                                            _mm512_shuffle_epi32(weights, _MM_PERM_BBBB)));
            sum2 = _mm512_add_epi32(sum2, _mm512_madd_epi16(FourPairs(row, columns + i + 2, at),
                                                            _mm512_shuffle_epi32(weights, _MM_PERM_CCCC)));
            sum3 = _mm512_add_epi32(sum3, _mm512_madd_epi16(FourPairs(row, columns + i + 3, at),
                                                            _mm512_shuffle_epi32(weights, _MM_PERM_DDDD)));
        }
        const __m512i low = _mm512_packs_epi32(_mm512_srai_epi32(sum0, 21), _mm512_srai_epi32(sum1, 21));
        const __m512i high = _mm512_packs_epi32(_mm512_srai_epi32(sum2, 21), _mm512_srai_epi32(sum3, 21));
        _mm512_storeu_si512(target + i, _mm512_and_si512(_mm512_packus_epi16(low, high), colours));
    }
    BlendColumnsPlain(target, row, columns, pairs, pairsEach, i, count);
}

}

const StretchKernels& StretchKernelsAvx512()
{
    static const StretchKernels kernels = {CopyPixels,   StreamPixels, EndStream,   PickPixels,
                                           RepeatPixels, BlendRows,    BlendColumns};
    return kernels;
}

}
