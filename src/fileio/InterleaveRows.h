#pragma once

// Interleaved pixels from and to separate 8-bit planes, and the gray of such planes, over runs of any length.
// Sources and targets may start anywhere; they do not overlap unless it is said.

#include <cstddef>

namespace vostel {

// Every variant writes the same bytes, and none outside its run.
struct InterleaveVariant {
    // Blue, green, red triples to planes and back.
    void (*DeinterleaveTriples)(const unsigned char* triples, unsigned char* red, unsigned char* green,
                                unsigned char* blue, std::size_t pixels);
    void (*InterleaveTriples)(const unsigned char* red, const unsigned char* green, const unsigned char* blue,
                              unsigned char* triples, std::size_t pixels);
    // Blue, green, red and a fourth byte that is dropped.
    void (*DeinterleaveQuads)(const unsigned char* quads, unsigned char* red, unsigned char* green,
                              unsigned char* blue, std::size_t pixels);
    // gray = trunc(0.587 g + 0.299 r + 0.114 b), in double, added in that order.
    void (*ColorToGray)(const unsigned char* red, const unsigned char* green, const unsigned char* blue,
                        unsigned char* gray, std::size_t pixels);
    // The same formula where all three channels are the level; gray may be levels.
    void (*LevelToGray)(const unsigned char* levels, unsigned char* gray, std::size_t pixels);
};

const InterleaveVariant& ActiveInterleaveVariant();

extern const InterleaveVariant InterleavePlain;
extern const InterleaveVariant InterleaveSse2;
extern const InterleaveVariant InterleaveAvx2;
extern const InterleaveVariant InterleaveAvx512;

// A set of levels: bit v % 8 of byte v / 8.
struct LevelSet {
    unsigned char Bits[32];
};
// Those whose equal triple (v, v, v) the truncation lowers, always by one.
extern const LevelSet LoweredLevels;

// Byte orders for vectors. 16 triples lie in three parts of 16 bytes, and since 16 % 3 is 1, position p
// of part k holds channel (p + k) % 3, blue being 0. A channel takes every third position of each part and
// the three sets are disjoint: two blends gather a channel into one vector, in which its pixel x lies at
// (3 x + channel) % 16. The reverse takes pixel 11 (p - channel) % 16 to position p, for 3 * 11 % 16 is 1.
struct TripleOrders {
    signed char Gathered[3][16];
    signed char Scattered[3][16];
};
extern const TripleOrders OrdersOfTriples;

}
