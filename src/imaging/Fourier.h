#pragma once

// One transform of 2^Stages elements: stages in radix 2 between two pairs of arrays. Each variant computes
// the same butterflies as the plain one; they differ in how many stages pass through registers at a time.

namespace vostel {

struct FourierRun {
    float*       Re = nullptr;    // input; the result too if Stages is even
    float*       Im = nullptr;
    float*       OtherRe = nullptr;    // the result if Stages is odd
    float*       OtherIm = nullptr;
    const float* Cos = nullptr;    // tables of the direction, FourierTableSize elements
    const float* Sin = nullptr;
    int          Length = 0;
    int          Stages = 0;
    bool         Scaled = false;    // multiply the result by Scale
    float        Scale = 1.0f;
    // With a row, the input is its RowLength real elements, then zeros, and Re and Im need no content. It
    // fills at most a third of the length, rounded up.
    const float* Row = nullptr;
    int          RowLength = 0;
    // With factors, each input element is multiplied by its factor first.
    const float* FactorRe = nullptr;
    const float* FactorIm = nullptr;
    // Arrays of Length elements for a filter to work in.
    float* SpareRe = nullptr;
    float* SpareIm = nullptr;
    // Of the result, only the first half of the real part is wanted; the rest may be anything.
    bool RealHalf = false;
};

// A table has the entries of all Length angles. Behind them it repeats every second, every fourth and every
// eighth entry of its first half, side by side: what lanes along p take in stages 1, 2 and 3.
inline constexpr int FourierTableStages = 4;

constexpr long long FourierTableSize(long long length)
{
    return length + length / 2;
}

// Where those of a stage begin.
constexpr long long FourierTableStage(long long length, int stage)
{
    return stage == 0 ? 0 : length + length / 2 - (length >> stage);
}

struct FourierVariant {
    void (*Transform)(const FourierRun& run);
    // A row forward and back: the first run takes the row and has spare arrays, the second takes its result
    // with factors. Returns where its real part lies.
    const float* (*Filter)(const FourierRun& forward, const FourierRun& inverse);
};

const FourierVariant& ActiveFourierVariant();

extern const FourierVariant FourierPlain;
extern const FourierVariant FourierAvx2;
extern const FourierVariant FourierAvx512;

// (a, b) times (c, d), both from the old a and b: a c - b d, a d + b c.
void MultiplyComplex(float* re, float* im, const float* factorRe, const float* factorIm, int count);

}
