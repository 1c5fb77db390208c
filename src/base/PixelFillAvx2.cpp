#include "base/PixelFill.h"

#include "base/CacheLimits.h"
#include "base/simd/SimdAvx2.h"

namespace vostel {

namespace {

using Simd = SimdAvx2;

void Fill(std::uint32_t* target, std::size_t count, std::uint32_t value, bool streaming)
{
    const Simd::Ints pixels = Simd::Set(static_cast<int>(value));
    std::size_t      x = 0;
    if (streaming) {
        x = ElementsToCacheLine(target, count);
        PixelFillPlain.Fill(target, x, value, false);
        for (; x + 16 <= count; x += 16) {
            Simd::StreamInts(target + x, pixels);
            Simd::StreamInts(target + x + 8, pixels);
        }
    } else {
        for (; x + 8 <= count; x += 8)
            Simd::StoreInts(target + x, pixels);
    }
    PixelFillPlain.Fill(target + x, count - x, value, false);
}

void Copy(const std::uint32_t* source, std::uint32_t* target, std::size_t count, bool streaming)
{
    std::size_t x = 0;
    if (streaming) {
        x = ElementsToCacheLine(target, count);
        PixelFillPlain.Copy(source, target, x, false);
        for (; x + 16 <= count; x += 16) {
            const Simd::Ints first = Simd::LoadInts(source + x);
            const Simd::Ints second = Simd::LoadInts(source + x + 8);
            Simd::StreamInts(target + x, first);
            Simd::StreamInts(target + x + 8, second);
        }
    }
    PixelFillPlain.Copy(source + x, target + x, count - x, false);
}

}

const PixelFillVariant PixelFillAvx2 = {.Fill = Fill, .Copy = Copy, .Fence = Simd::Fence};

}
