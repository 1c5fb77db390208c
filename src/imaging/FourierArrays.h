#pragma once

// Memory of transforms. A pass walks several arrays in rows that lie a power of two apart. If those began at
// the same place of their pages, all rows would meet in the same few sets of the cache and push each other
// out; so each array of a transform has a place of its own, on a whole line of the cache.

#include <cstddef>
#include <memory>

namespace vostel {

inline constexpr int FourierPlaces = 8;

// count elements, not cleared.
float* NewFourierArray(std::size_t count, int place);
// Takes null too.
void DeleteFourierArray(float* array);

struct FourierArrayDeleter {
    void operator()(float* array) const { DeleteFourierArray(array); }
};
using FourierArray = std::unique_ptr<float[], FourierArrayDeleter>;

}
