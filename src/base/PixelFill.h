#pragma once

// Runs of 32-bit pixels. Where a plane is larger than the caches they are stored with non-temporal
// (streaming) stores: others would first read every cache line that is about to be overwritten.

#include <cstddef>
#include <cstdint>

namespace vostel {

// True for a write of so many bytes that the caches would not hold it until it is read again.
bool UsesStreamingStores(std::size_t bytes);

// With streaming, FenceStreamingStores has to follow before another thread may read what was written.
void FillPixels(std::uint32_t* target, std::size_t count, std::uint32_t value, bool streaming);
void CopyPixels(const std::uint32_t* source, std::uint32_t* target, std::size_t count, bool streaming);
void FenceStreamingStores();

struct PixelFillVariant {
    void (*Fill)(std::uint32_t* target, std::size_t count, std::uint32_t value, bool streaming);
    void (*Copy)(const std::uint32_t* source, std::uint32_t* target, std::size_t count, bool streaming);
    void (*Fence)();
};
const PixelFillVariant& ActivePixelFillVariant();

extern const PixelFillVariant PixelFillPlain;
extern const PixelFillVariant PixelFillAvx2;

}
