#include "imaging/FourierPasses.h"

#include "base/simd/SimdAvx2.h"

namespace vostel {

namespace {

struct FourierSimd : SimdAvx2 {
    static constexpr int PassStages = 2;    // as many as the registers hold the values of

    // Column i of the eight vectors goes to to + i * step.
    VOSTEL_INLINE static void StoreTransposed(float* to, std::ptrdiff_t step, const Floats* v)
    {
        Floats low[4], high[4];
        VOSTEL_UNROLL
        for (int i = 0; i < 4; ++i) {
            low[i] = _mm256_permute2f128_ps(v[i], v[i + 4], 0x20);
            high[i] = _mm256_permute2f128_ps(v[i], v[i + 4], 0x31);
        }
        StoreHalfTransposed(to, step, low);
        StoreHalfTransposed(to + 4 * step, step, high);
    }

    VOSTEL_INLINE static void StoreHalfTransposed(float* to, std::ptrdiff_t step, const Floats* v)
    {
        const Floats a = _mm256_unpacklo_ps(v[0], v[1]);
        const Floats b = _mm256_unpackhi_ps(v[0], v[1]);
        const Floats c = _mm256_unpacklo_ps(v[2], v[3]);
        const Floats d = _mm256_unpackhi_ps(v[2], v[3]);
        Store(to, _mm256_shuffle_ps(a, c, 0x44));
        Store(to + step, _mm256_shuffle_ps(a, c, 0xEE));
        Store(to + 2 * step, _mm256_shuffle_ps(b, d, 0x44));
        Store(to + 3 * step, _mm256_shuffle_ps(b, d, 0xEE));
    }
};

void Transform(const FourierRun& run)
{
    if (run.Length < FourierSimd::Lanes << 3)
        FourierPlain.Transform(run);
    else if (run.Length < FourierSimd::Lanes << 4)
        TransformInPasses<FourierSimd, 3>(run);
    else
        TransformInPasses<FourierSimd, 4>(run);
}

const float* Filter(const FourierRun& forward, const FourierRun& inverse)
{
    if (forward.Length >= 256)
        return FilterInPasses<FourierSimd, 4>(forward, inverse);
    Transform(forward);
    Transform(inverse);
    return forward.Re;    // two runs: an even number of exchanges
}

}

const FourierVariant FourierAvx2 = {.Transform = Transform, .Filter = Filter};

}
