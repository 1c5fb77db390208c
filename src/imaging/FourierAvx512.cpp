#include "imaging/FourierPasses.h"

#include "base/simd/SimdAvx512.h"

namespace vostel {

namespace {

struct FourierSimd : SimdAvx512 {
    static constexpr int PassStages = 3;    // as many as the registers hold the values of

    // Column i of the sixteen vectors goes to to + i * step.
    VOSTEL_INLINE static void StoreTransposed(float* to, std::ptrdiff_t step, const Floats* v)
    {
        Floats a[16], b[16];
        VOSTEL_UNROLL
        for (int i = 0; i < 16; i += 2) {
            a[i] = _mm512_unpacklo_ps(v[i], v[i + 1]);
            a[i + 1] = _mm512_unpackhi_ps(v[i], v[i + 1]);
        }
        VOSTEL_UNROLL
        for (int i = 0; i < 16; i += 4) {
            b[i] = _mm512_shuffle_ps(a[i], a[i + 2], 0x44);
            b[i + 1] = _mm512_shuffle_ps(a[i], a[i + 2], 0xEE);
            b[i + 2] = _mm512_shuffle_ps(a[i + 1], a[i + 3], 0x44);
            b[i + 3] = _mm512_shuffle_ps(a[i + 1], a[i + 3], 0xEE);
        }
        VOSTEL_UNROLL
        for (int i = 0; i < 4; ++i) {
            a[i] = _mm512_shuffle_f32x4(b[i], b[i + 4], 0x88);
            a[i + 4] = _mm512_shuffle_f32x4(b[i], b[i + 4], 0xDD);
            a[i + 8] = _mm512_shuffle_f32x4(b[i + 8], b[i + 12], 0x88);
            a[i + 12] = _mm512_shuffle_f32x4(b[i + 8], b[i + 12], 0xDD);
        }
        VOSTEL_UNROLL
        for (int i = 0; i < 4; ++i) {
            Store(to + i * step, _mm512_shuffle_f32x4(a[i], a[i + 8], 0x88));
            Store(to + (i + 4) * step, _mm512_shuffle_f32x4(a[i + 4], a[i + 12], 0x88));
            Store(to + (i + 8) * step, _mm512_shuffle_f32x4(a[i], a[i + 8], 0xDD));
            Store(to + (i + 12) * step, _mm512_shuffle_f32x4(a[i + 4], a[i + 12], 0xDD));
        }
    }
};

void Transform(const FourierRun& run)
{
    if (run.Length < FourierSimd::Lanes * FourierSimd::Lanes)
        FourierAvx2.Transform(run);
    else
        TransformInPasses<FourierSimd, 4>(run);
}

const float* Filter(const FourierRun& forward, const FourierRun& inverse)
{
    return forward.Length < 256 ? FourierAvx2.Filter(forward, inverse)
                                : FilterInPasses<FourierSimd, 4>(forward, inverse);
}

}

const FourierVariant FourierAvx512 = {.Transform = Transform, .Filter = Filter};

}
