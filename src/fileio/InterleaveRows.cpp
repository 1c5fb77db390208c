#include "fileio/InterleaveRows.h"

#include "base/CpuVariants.h"

#include <array>

namespace vostel {

namespace {

// Never negative and at most 255, so that a plain conversion truncates.
constexpr unsigned char GrayOf(unsigned char red, unsigned char green, unsigned char blue)
{
    return static_cast<unsigned char>(static_cast<int>(green * 0.587 + red * 0.299 + blue * 0.114));
}

constexpr std::array<unsigned char, 256> GrayOfLevels()
{
    std::array<unsigned char, 256> gray{};
    for (unsigned level = 0; level < 256; ++level) {
        const unsigned char v = static_cast<unsigned char>(level);
        gray[level] = GrayOf(v, v, v);
    }
    return gray;
}
constexpr std::array<unsigned char, 256> GrayOfLevel = GrayOfLevels();

constexpr LevelSet FindLoweredLevels()
{
    LevelSet lowered{};
    for (unsigned v = 0; v < 256; ++v) {
        if (GrayOfLevel[v] != v)
            lowered.Bits[v / 8] = static_cast<unsigned char>(lowered.Bits[v / 8] | 1u << v % 8);
    }
    return lowered;
}

constexpr TripleOrders FindOrdersOfTriples()
{
    TripleOrders orders{};
    for (int channel = 0; channel < 3; ++channel) {
        for (int i = 0; i < 16; ++i) {
            orders.Gathered[channel][i] = static_cast<signed char>((3 * i + channel) % 16);
            orders.Scattered[channel][i] = static_cast<signed char>(11 * (i + 16 - channel) % 16);
        }
    }
    return orders;
}

void DeinterleaveTriples(const unsigned char* triples, unsigned char* red, unsigned char* green,
                         unsigned char* blue, std::size_t pixels)
{
    for (std::size_t x = 0; x < pixels; ++x) {
        blue[x] = triples[3 * x];
        green[x] = triples[3 * x + 1];
        red[x] = triples[3 * x + 2];
    }
}

void InterleaveTriples(const unsigned char* red, const unsigned char* green, const unsigned char* blue,
                       unsigned char* triples, std::size_t pixels)
{
    for (std::size_t x = 0; x < pixels; ++x) {
        triples[3 * x] = blue[x];
        triples[3 * x + 1] = green[x];
        triples[3 * x + 2] = red[x];
    }
}

void DeinterleaveQuads(const unsigned char* quads, unsigned char* red, unsigned char* green,
                       unsigned char* blue, std::size_t pixels)
{
    for (std::size_t x = 0; x < pixels; ++x) {
        blue[x] = quads[4 * x];
        green[x] = quads[4 * x + 1];
        red[x] = quads[4 * x + 2];
    }
}

void ColorToGray(const unsigned char* red, const unsigned char* green, const unsigned char* blue,
                 unsigned char* gray, std::size_t pixels)
{
    for (std::size_t x = 0; x < pixels; ++x)
        gray[x] = GrayOf(red[x], green[x], blue[x]);
}

void LevelToGray(const unsigned char* levels, unsigned char* gray, std::size_t pixels)
{
    for (std::size_t x = 0; x < pixels; ++x)
        gray[x] = GrayOfLevel[levels[x]];
}

}

constinit const LevelSet     LoweredLevels = FindLoweredLevels();
constinit const TripleOrders OrdersOfTriples = FindOrdersOfTriples();

const InterleaveVariant InterleavePlain = {.DeinterleaveTriples = DeinterleaveTriples,
                                           .InterleaveTriples = InterleaveTriples,
                                           .DeinterleaveQuads = DeinterleaveQuads,
                                           .ColorToGray = ColorToGray,
                                           .LevelToGray = LevelToGray};

const InterleaveVariant& ActiveInterleaveVariant()
{
    return Choose<InterleaveVariant>({.Plain = &InterleavePlain,
                                      .Baseline = VOSTEL_X86(&InterleaveSse2),
                                      .Avx2 = VOSTEL_X86(&InterleaveAvx2),
                                      .Avx512 = VOSTEL_X86(&InterleaveAvx512)});
}

}
