#pragma once

// One-dimensional complex transforms of a power-of-two length on split real and imaginary parts:
//     X[k] = sum over j of x[j] * exp(-i * 6.2831852 * j * k / N)    forward, unscaled
//     x[j] = 1/N * sum over k of X[k] * exp(+i * 6.2831852 * j * k / N)    inverse
// All arithmetic is 32 bits wide and goes stage by stage in radix 2, so that the same input gives the same
// bits on every processor. Not-a-number and infinite samples spread as the arithmetic has it.

#include "vostel/export.h"

#include <complex>
#include <cstdint>
#include <vector>

#pragma pack(push, 1)
class VOSTEL_API ZEKPP1DFFT {
public:
    std::int32_t Length = 0;              // N; 0 before Init
    float        Scale = 0.0f;            // 1 / N
    std::int32_t Stages = 0;              // doublings from 1 up to N
    std::int32_t EvenStages = 0;          // 1 when Stages is even, else 0
    bool         Forward = false;         // direction of the next run
    float*       Re = nullptr;            // N elements: the input before a run, the result after it
    float*       Im = nullptr;            // as Re
    float*       WorkRe = nullptr;        // N elements of scratch; a run leaves anything here
    float*       WorkIm = nullptr;        // as WorkRe
    float*       CosForward = nullptr;    // cos(k * -6.2831852 / N), rounded from double
    float*       SinForward = nullptr;    // sin of the same angle
    float*       CosInverse = nullptr;    // cos(k * 6.2831852 / N)
    float*       SinInverse = nullptr;

    ZEKPP1DFFT() = default;
    ~ZEKPP1DFFT();
    ZEKPP1DFFT(const ZEKPP1DFFT&) = delete;
    // Copies all fields as they stand, so that two objects share their arrays: only one of them may be
    // destroyed or initialised again, and what this object held before is not freed.
    ZEKPP1DFFT& operator=(const ZEKPP1DFFT&) = default;

    // Allocates and clears the arrays and fills the tables; may be repeated. A length below 1 leaves an
    // object without arrays, on which nothing has an effect. A length that is no power of two gives arrays
    // and tables, but runs leave the data as it is; ComputeFFTN gives a valid length.
    void Init(int length, bool forward);

    // One transform in the stored direction, or in the one given, which is then stored. The inverse one is
    // scaled by 1/N. With an odd number of stages Re and Im trade arrays with WorkRe and WorkIm: pointers
    // taken from these fields before a run may name scratch after it. Allocates nothing.
    void RunFFT();
    void RunFFT(bool forward);
    // The same, but the inverse transform is not scaled for N below 8.
    void RunFFTOri();
    void ChangeDir(bool forward);

    // This object times the other, element by element, as complex numbers. Elements that the other object,
    // or the list, does not have stay as they are.
    void Multiply(ZEKPP1DFFT& other);
    void MultiplyV(std::vector<std::complex<float>>& factors);

    void SetReZero();
    void SetImZero();
    void SetReImZero();

    // The first count elements of Re; the rest stays. Nothing happens when count is above N.
    void UpLoadRe(float* data, int count);
    void UpLoadReUs(unsigned short* data, int count);
    // Nothing happens unless count is N.
    void UpLoadIm(float* data, int count);

    // out[i] = Re[start + i] for i below count; 0 where the array has no such element.
    void DownLoadRe(float* out, int count, int start);
    void DownLoadIm(float* out, int count, int start);

protected:
    bool CheckInputToFFT(int n);    // a power of two, or 0

private:
    void Clear();
    void Run(bool scaled);
};
#pragma pack(pop)
static_assert(sizeof(void*) != 8 || sizeof(ZEKPP1DFFT) == 81,
              "hosts reach the fields at their packed places");

// True for odd numbers, negative ones too.
VOSTEL_API bool IsOdd(int n);

// The smallest power of two that is not below n; 1 for n below 2; 0 if that leaves 31 bits.
VOSTEL_API int ComputeFFTN(int n);
