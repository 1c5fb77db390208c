#pragma once

/// @file
/// One-dimensional complex Fourier transforms of a power-of-two length on split real and imaginary parts:
///
///     X[k] = sum over j of x[j] * exp(-i * 6.2831852 * j * k / N)          forward, unscaled
///     x[j] = 1/N * sum over k of X[k] * exp(+i * 6.2831852 * j * k / N)    inverse
///
/// by Stockham's autosort algorithm in radix 2: two pairs of arrays take turns as source and target of the
/// stages. All arithmetic is 32 bits wide, so that the same input gives the same bits on every processor.
/// Not-a-number and infinite samples spread as the arithmetic has it.

#include "vostel/export.h"

#include <complex>
#include <cstdint>
#include <vector>

#pragma pack(push, 1)
/// A transform of one length, with its data and its tables. An object belongs to one thread at a time.
class VOSTEL_API ZEKPP1DFFT {
public:
    std::int32_t Length = 0;          ///< N; 0 before Init
    float        Scale = 0.0f;        ///< 1 / N
    std::int32_t Stages = 0;          ///< doublings from 1 up to N
    std::int32_t EvenStages = 0;      ///< 1 when Stages is even, else 0
    bool         Forward = false;     ///< direction of the next run
    float*       Re = nullptr;        ///< N real parts: the input before a run, the result after it; owned
    float*       Im = nullptr;        ///< N imaginary parts, as Re; owned
    float*       WorkRe = nullptr;    ///< N elements of scratch; a run leaves anything here; owned
    float*       WorkIm = nullptr;    ///< as WorkRe; owned
    float*       CosForward = nullptr;    ///< cos(k * -6.2831852 / N), rounded from double; owned
    float*       SinForward = nullptr;    ///< sin of the same angle; owned
    float*       CosInverse = nullptr;    ///< cos(k * 6.2831852 / N), rounded from double; owned
    float*       SinInverse = nullptr;    ///< sin of the same angle; owned

    /// An object without arrays, on which nothing has an effect before Init.
    ZEKPP1DFFT() = default;
    /// Frees the arrays.
    ~ZEKPP1DFFT();
    ZEKPP1DFFT(const ZEKPP1DFFT&) = delete;
    /// Copies all fields as they stand, so that two objects share their arrays: only one of them may be
    /// destroyed or initialised again, and what this object held before is not freed.
    ZEKPP1DFFT& operator=(const ZEKPP1DFFT&) = default;

    /// Allocates and clears the arrays and fills the tables; may be repeated. A length below 1 leaves an
    /// object without arrays. A length that is not a power of two gives arrays and tables, but runs leave the
    /// data as it is; ComputeFFTN gives a valid length.
    void Init(int length, bool forward);

    /// Transforms Re and Im in the stored direction. The inverse transform is scaled by 1/N. With an odd
    /// number of stages Re and Im trade arrays with WorkRe and WorkIm: pointers taken from these fields
    /// before a run may name scratch after it. Allocates nothing.
    void RunFFT();
    /// Stores the direction and runs.
    void RunFFT(bool forward);
    /// Runs as RunFFT, but the inverse transform is not scaled for N below 8.
    void RunFFTOri();
    /// Stores the direction of the next run.
    void ChangeDir(bool forward);

    /// Multiplies by the other object, element by element, as complex numbers. Elements that the other one
    /// does not have stay as they are.
    void Multiply(ZEKPP1DFFT& other);
    /// Multiplies by a list of factors, element by element. Elements that the list does not have stay as they
    /// are.
    void MultiplyV(std::vector<std::complex<float>>& factors);

    /// Clears Re.
    void SetReZero();
    /// Clears Im.
    void SetImZero();
    /// Clears Re and Im.
    void SetReImZero();

    /// Sets the first count elements of Re; the rest stays. Nothing happens when count is above N.
    void UpLoadRe(float* data, int count);
    /// Sets the first count elements of Re from 16-bit samples, as UpLoadRe.
    void UpLoadReUs(unsigned short* data, int count);
    /// Sets Im. Nothing happens unless count is N.
    void UpLoadIm(float* data, int count);

    /// Reads out[i] = Re[start + i] for i below count; 0 where the array has no such element.
    void DownLoadRe(float* out, int count, int start);
    /// Reads out[i] = Im[start + i] for i below count; 0 where the array has no such element.
    void DownLoadIm(float* out, int count, int start);

protected:
    /// Returns whether n is a power of two, or 0.
    bool CheckInputToFFT(int n);

private:
    void Clear();
    void Run(bool scaled);
};
#pragma pack(pop)
static_assert(sizeof(void*) != 8 || sizeof(ZEKPP1DFFT) == 81,
              "hosts reach the fields at their packed places");

/// Returns whether a number is odd, negative ones too.
VOSTEL_API bool IsOdd(int n);

/// Returns the smallest power of two that is not below n; 1 for n below 2; 0 if that leaves 31 bits.
VOSTEL_API int ComputeFFTN(int n);
