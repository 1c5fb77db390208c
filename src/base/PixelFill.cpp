#include "base/PixelFill.h"

#include "base/CpuVariants.h"
#include "base/PixelFillVariants.h"

#include <algorithm>
#include <cstring>

namespace vostel {

bool UsesStreamingStores(std::size_t bytes)
{
    return bytes >= std::size_t{16} << 20;
}

void FillPixelsPlain(std::uint32_t* target, std::size_t count, std::uint32_t value, bool)
{
    std::fill_n(target, count, value);
}

void CopyPixelsPlain(const std::uint32_t* source, std::uint32_t* target, std::size_t count, bool)
{
    if (count > 0)
        std::memcpy(target, source, count * sizeof(std::uint32_t));
}

void FenceStreamingStoresPlain() {}

const PixelFillVariants& ActivePixelFillVariants()
{
    static const PixelFillVariants plain = {FillPixelsPlain, CopyPixelsPlain, FenceStreamingStoresPlain};
#if defined(__x86_64__) || defined(_M_X64)
    static const PixelFillVariants avx2 = {FillPixelsAvx2, CopyPixelsAvx2, FenceStreamingStoresAvx2};
    if (ActiveCpuVariant() >= CpuVariant::Avx2)    // wider registers do not pay: memory is the limit
        return avx2;
#endif
    return plain;
}

void FillPixels(std::uint32_t* target, std::size_t count, std::uint32_t value, bool streaming)
{
    ActivePixelFillVariants().Fill(target, count, value, streaming);
}

void CopyPixels(const std::uint32_t* source, std::uint32_t* target, std::size_t count, bool streaming)
{
    ActivePixelFillVariants().Copy(source, target, count, streaming);
}

void FenceStreamingStores()
{
    ActivePixelFillVariants().Fence();
}

}
