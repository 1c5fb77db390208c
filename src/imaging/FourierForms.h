#pragma once

// One transform of 2^Stages elements: stages in radix 2 between two pairs of arrays. Each form computes the
// same butterflies as the plain one; they differ in how many stages pass through registers at a time.

struct FourierRun {
    float*       Re = nullptr;    // input; the result too if Stages is even
    float*       Im = nullptr;
    float*       OtherRe = nullptr;    // the result if Stages is odd
    float*       OtherIm = nullptr;
    const float* Cos = nullptr;    // tables of the direction, Length elements
    const float* Sin = nullptr;
    int          Length = 0;
    int          Stages = 0;
    bool         Scaled = false;    // multiply the result by Scale
    float        Scale = 1.0f;
    // With a row, the input is its RowLength real elements, then zeros, and Re and Im need no content.
    const float* Row = nullptr;
    int          RowLength = 0;
    // With factors, each input element is multiplied by its factor first.
    const float* FactorRe = nullptr;
    const float* FactorIm = nullptr;
};

using FourierForm = void (*)(const FourierRun& run);

// The form that ActiveCpuForm names at the time of the call.
FourierForm ActiveFourierForm();

void TransformPlain(const FourierRun& run);
void TransformAvx2(const FourierRun& run);
void TransformAvx512(const FourierRun& run);

// (a, b) times (c, d), both from the old a and b: a c - b d, a d + b c.
void MultiplyComplex(float* re, float* im, const float* factorRe, const float* factorIm, int count);
