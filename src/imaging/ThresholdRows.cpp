#include "imaging/ThresholdRows.h"

#include "base/CpuVariants.h"

namespace vostel {

namespace {

void Slide(int* columns, int factor, const unsigned char* entering, const unsigned char* leaving, int width)
{
    for (int x = 0; x < width; ++x)
        columns[x] += factor * (entering[x] - leaving[x]);
}

void Decide(const int* columns, int side, int before, int scale, const unsigned char* pixels,
            unsigned char* target, int width)
{
    int sum = before;
    for (int x = 0; x < width; ++x) {
        sum += columns[x + side] - columns[x];
        target[x] = pixels[x] * scale > sum ? 255 : 0;
    }
}

void DecideInDouble(const int* columns, int side, int before, int scale, const unsigned char* pixels,
                    unsigned char* target, int width)
{
    int sum = before;
    for (int x = 0; x < width; ++x) {
        sum += columns[x + side] - columns[x];
        target[x] = static_cast<double>(pixels[x] * scale) > static_cast<double>(sum) * 0.85 ? 255 : 0;
    }
}

}

const ThresholdVariant ThresholdPlain = {.Slide = Slide, .Decide = Decide, .DecideInDouble = DecideInDouble};

const ThresholdVariant& ActiveThresholdVariant()
{
    return Choose<ThresholdVariant>({.Plain = &ThresholdPlain,
                                     .Avx2 = VOSTEL_X86(&ThresholdAvx2),
                                     .Avx512 = VOSTEL_X86(&ThresholdAvx512)});
}

}
