#pragma once

#include <cstddef>
#include <cstdint>

namespace vostel {

// The forms of PixelFill.h. Plain first: what the others do, too.
void FillPixelsPlain(std::uint32_t* target, std::size_t count, std::uint32_t value, bool streaming);
void CopyPixelsPlain(const std::uint32_t* source, std::uint32_t* target, std::size_t count, bool streaming);
void FenceStreamingStoresPlain();

void FillPixelsAvx2(std::uint32_t* target, std::size_t count, std::uint32_t value, bool streaming);
void CopyPixelsAvx2(const std::uint32_t* source, std::uint32_t* target, std::size_t count, bool streaming);
void FenceStreamingStoresAvx2();

// The form in use.
struct PixelFillVariants {
    decltype(&FillPixelsPlain)           Fill;
    decltype(&CopyPixelsPlain)           Copy;
    decltype(&FenceStreamingStoresPlain) Fence;
};
const PixelFillVariants& ActivePixelFillVariants();

}
