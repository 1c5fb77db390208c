#pragma once

#include "geometry/PlaneView.h"

#include <cstdint>
#include <span>
#include <string>

namespace vostel {

// XXH64 of a stream of bytes, with the seed 0. It tells changed images from others, not forged ones: it was
// chosen for its speed, which is that of memory.
class Hash64 {
public:
    Hash64();

    void          Take(std::span<const unsigned char> bytes);
    std::uint64_t Value() const;

private:
    static constexpr std::size_t StripeBytes = 32;

    std::uint64_t Lanes[4];
    unsigned char Rest[StripeBytes] = {};    // of a stripe that is not full
    std::uint64_t Count = 0;                 // bytes

    void TakeStripe(const unsigned char* bytes);
};

// "xxh64:" and 16 digits.
std::string HashText(const Hash64& hash);

// The text of the samples' hash: of the samples as they came, row by row from the top, without what lies
// between rows.
std::string HashOfSamples(const PlaneView& plane);

}
