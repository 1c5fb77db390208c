#include "imaging/FourierArrays.h"

#include <cstdint>
#include <new>

namespace vostel {

namespace {

constexpr std::size_t Page = 4096;

}

float* NewFourierArray(std::size_t count, int place)
{
    const std::size_t offset = static_cast<std::size_t>(place) * (Page / FourierPlaces);
    void* const block = ::operator new (offset + count * sizeof(float), std::align_val_t{Page});
    return reinterpret_cast<float*>(static_cast<unsigned char*>(block) + offset);
}

void DeleteFourierArray(float* array)
{
    if (!array)
        return;
    // The block begins where the array's first page does.
    const std::uintptr_t offset = reinterpret_cast<std::uintptr_t>(array) % Page;
    ::operator delete (reinterpret_cast<unsigned char*>(array) - offset, std::align_val_t{Page});
}

}
