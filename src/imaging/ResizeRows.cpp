#include "imaging/ResizeRows.h"

#include "base/CpuVariants.h"

namespace vostel {

namespace {

double Between(const float* samples, float fraction)
{
    const float right = fraction * samples[1];
    return static_cast<double>(samples[0]) * (1.0 - static_cast<double>(fraction)) +
           static_cast<double>(right);
}

void Spread(const float* source, const ResizeColumns& columns, double* spread)
{
    for (int x = 0; x < columns.Count; ++x)
        spread[x] = Between(source + columns.Index[x], columns.Fraction[x]);
}

void Blend(const double* top, const double* bottom, float fraction, float* target, int count)
{
    const double lower = static_cast<double>(fraction);
    const double upper = 1.0 - lower;
    for (int x = 0; x < count; ++x)
        target[x] = static_cast<float>(top[x] * upper + bottom[x] * lower);
}

void SpreadAndBlend(const float* topSource, const float* bottomSource, const ResizeColumns& columns,
                    float fraction, float* target)
{
    const double lower = static_cast<double>(fraction);
    const double upper = 1.0 - lower;
    for (int x = 0; x < columns.Count; ++x) {
        const double top = Between(topSource + columns.Index[x], columns.Fraction[x]);
        const double bottom = Between(bottomSource + columns.Index[x], columns.Fraction[x]);
        target[x] = static_cast<float>(top * upper + bottom * lower);
    }
}

}

const ResizeVariant ResizePlain = {.Spread = Spread, .Blend = Blend, .SpreadAndBlend = SpreadAndBlend};

const ResizeVariant& ActiveResizeVariant()
{
    return Choose<ResizeVariant>(
        {.Plain = &ResizePlain, .Avx2 = VOSTEL_X86(&ResizeAvx2), .Avx512 = VOSTEL_X86(&ResizeAvx512)});
}

}
