#include "base/PixelFill.h"

#include "base/CacheLimits.h"
#include "base/CpuVariants.h"

#include <algorithm>
#include <cstring>

namespace vostel {

namespace {

void Fill(std::uint32_t* target, std::size_t count, std::uint32_t value, bool)
{
    std::fill_n(target, count, value);
}

void Copy(const std::uint32_t* source, std::uint32_t* target, std::size_t count, bool)
{
    if (count > 0)
        std::memcpy(target, source, count * sizeof(std::uint32_t));
}

void Fence() {}

}

const PixelFillVariant PixelFillPlain = {.Fill = Fill, .Copy = Copy, .Fence = Fence};

// Registers wider than AVX2's do not pay: memory is the limit.
const PixelFillVariant& ActivePixelFillVariant()
{
    return Choose<PixelFillVariant>({.Plain = &PixelFillPlain, .Avx2 = VOSTEL_X86(&PixelFillAvx2)});
}

bool UsesStreamingStores(std::size_t bytes)
{
    return bytes >= ProcessorCacheBytes;
}

void FillPixels(std::uint32_t* target, std::size_t count, std::uint32_t value, bool streaming)
{
    ActivePixelFillVariant().Fill(target, count, value, streaming);
}

void CopyPixels(const std::uint32_t* source, std::uint32_t* target, std::size_t count, bool streaming)
{
    ActivePixelFillVariant().Copy(source, target, count, streaming);
}

void FenceStreamingStores()
{
    ActivePixelFillVariant().Fence();
}

}
