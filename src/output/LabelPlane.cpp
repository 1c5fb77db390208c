#include "output/LabelPlane.h"

#include "base/PixelFill.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace vostel {

void FillLabelPlane(int* plane, int width, int height, int value)
{
    if (!plane || width <= 0 || height <= 0)
        return;
    const std::size_t count = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
    const bool        streaming = UsesStreamingStores(count * sizeof(int));
    FillPixels(reinterpret_cast<std::uint32_t*>(plane), count, static_cast<std::uint32_t>(value), streaming);
    if (streaming)
        FenceStreamingStores();
}

void FlipLabelPlane(int* plane, int width, int height)
{
    if (!plane || width <= 0 || height <= 0)
        return;
    constexpr std::size_t Chunk = 2048;
    int                   chunk[Chunk];
    const std::size_t     row = static_cast<std::size_t>(width);
    for (int y = 0; y < height / 2; ++y) {
        int* upper = plane + static_cast<std::size_t>(y) * row;
        int* lower = plane + static_cast<std::size_t>(height - 1 - y) * row;
        for (std::size_t x = 0; x < row; x += Chunk) {
            const std::size_t bytes = std::min(Chunk, row - x) * sizeof(int);
            std::memcpy(chunk, upper + x, bytes);
            std::memcpy(upper + x, lower + x, bytes);
            std::memcpy(lower + x, chunk, bytes);
        }
    }
}

}
