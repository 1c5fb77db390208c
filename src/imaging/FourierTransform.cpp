#include "vostel/FourierTransform.h"

#include "imaging/Fourier.h"
#include "imaging/FourierArrays.h"
#include "imaging/FourierTables.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <functional>

using namespace vostel;

namespace {

std::size_t Bytes(int count)
{
    return static_cast<std::size_t>(count) * sizeof(float);
}

bool IsPowerOfTwo(int n)
{
    return n > 0 && (n & (n - 1)) == 0;
}

void RepeatEntries(float* table, long long length)
{
    for (int stage = 1; stage < FourierTableStages; ++stage) {
        float* const to = table + FourierTableStage(length, stage);
        for (long long k = 0; k < length / 2 >> stage; ++k)
            to[k] = table[k << stage];
    }
}

void DownLoad(const float* from, int length, float* out, int count, int start)
{
    if (!out)
        return;
    for (int i = 0; i < count; ++i) {
        const long long k = static_cast<long long>(start) + i;
        out[i] = from && k >= 0 && k < length ? from[k] : 0.0f;
    }
}

}

ZEKPP1DFFT::~ZEKPP1DFFT()
{
    Clear();
}

void ZEKPP1DFFT::Clear()
{
    for (float* array : {Re, Im, WorkRe, WorkIm, CosForward, SinForward, CosInverse, SinInverse})
        DeleteFourierArray(array);
    Re = Im = WorkRe = WorkIm = nullptr;
    CosForward = SinForward = CosInverse = SinInverse = nullptr;
}

void ZEKPP1DFFT::Init(int length, bool forward)
{
    Clear();
    Forward = forward;
    Length = 0;
    Scale = 0.0f;
    Stages = 0;
    EvenStages = 1;
    if (length < 1)
        return;
    // Held by scope until all are there: the object stays empty when memory runs out. The order of places
    // keeps those that one pass walks furthest apart.
    const std::size_t count = static_cast<std::size_t>(length);
    const std::size_t tableSize = static_cast<std::size_t>(FourierTableSize(length));
    const int         places[8] = {0, 2, 4, 6, 1, 3, 5, 7};
    FourierArray      arrays[8];
    for (int i = 0; i < 8; ++i)
        arrays[i].reset(NewFourierArray(i < 4 ? count : tableSize, places[i]));
    for (int i = 0; i < 4; ++i)
        std::memset(arrays[i].get(), 0, Bytes(length));
    Re = arrays[0].release();
    Im = arrays[1].release();
    WorkRe = arrays[2].release();
    WorkIm = arrays[3].release();
    CosForward = arrays[4].release();
    SinForward = arrays[5].release();
    CosInverse = arrays[6].release();
    SinInverse = arrays[7].release();
    Length = length;
    Scale = static_cast<float>(1.0 / static_cast<double>(static_cast<float>(length)));
    for (long long p = 1; p < length; p *= 2)
        ++Stages;
    EvenStages = Stages % 2 == 0 ? 1 : 0;
    FillFourierTables(length, CosForward, SinInverse);
    RepeatEntries(CosForward, length);
    RepeatEntries(SinInverse, length);
    std::copy_n(CosForward, tableSize, CosInverse);
    // The sine of the negated angle is the negated sine, to the sign of zero.
    std::transform(SinInverse, SinInverse + tableSize, SinForward, std::negate<>());
}

void ZEKPP1DFFT::Run(bool scaled)
{
    // Between other lengths the butterflies would reach past the arrays.
    if (!Re || !IsPowerOfTwo(Length))
        return;
    FourierRun run;
    run.Re = Re;
    run.Im = Im;
    run.OtherRe = WorkRe;
    run.OtherIm = WorkIm;
    run.Cos = Forward ? CosForward : CosInverse;
    run.Sin = Forward ? SinForward : SinInverse;
    run.Length = Length;
    run.Stages = Stages;
    run.Scaled = scaled;
    run.Scale = Scale;
    ActiveFourierVariant().Transform(run);
    if (EvenStages == 0) {
        // Packed fields cannot be bound to the references of std::swap.
        Re = run.OtherRe;
        Im = run.OtherIm;
        WorkRe = run.Re;
        WorkIm = run.Im;
    }
}

void ZEKPP1DFFT::RunFFT()
{
    Run(!Forward);
}

void ZEKPP1DFFT::RunFFT(bool forward)
{
    Forward = forward;
    RunFFT();
}

// It scales N / 8 groups of eight, which is all or, for N below 8, nothing.
void ZEKPP1DFFT::RunFFTOri()
{
    Run(!Forward && Length >= 8);
}

void ZEKPP1DFFT::ChangeDir(bool forward)
{
    Forward = forward;
}

void ZEKPP1DFFT::Multiply(ZEKPP1DFFT& other)
{
    if (Re && other.Re)
        MultiplyComplex(Re, Im, other.Re, other.Im, std::min<int>(Length, other.Length));
}

void ZEKPP1DFFT::MultiplyV(std::vector<std::complex<float>>& factors)
{
    if (!Re)
        return;
    const std::size_t count = std::min(static_cast<std::size_t>(Length), factors.size());
    for (std::size_t k = 0; k < count; ++k) {
        const float c = factors[k].real();
        const float d = factors[k].imag();
        MultiplyComplex(Re + k, Im + k, &c, &d, 1);
    }
}

bool ZEKPP1DFFT::CheckInputToFFT(int n)
{
    const unsigned bits = static_cast<unsigned>(n);
    return (bits & (bits - 1)) == 0;
}

void ZEKPP1DFFT::SetReZero()
{
    if (Re)
        std::memset(Re, 0, Bytes(Length));
}

void ZEKPP1DFFT::SetImZero()
{
    if (Im)
        std::memset(Im, 0, Bytes(Length));
}

void ZEKPP1DFFT::SetReImZero()
{
    SetReZero();
    SetImZero();
}

void ZEKPP1DFFT::UpLoadRe(float* data, int count)
{
    if (Re && data && count > 0 && count <= Length)
        std::memcpy(Re, data, Bytes(count));
}

void ZEKPP1DFFT::UpLoadReUs(unsigned short* data, int count)
{
    if (!Re || !data || count > Length)
        return;
    for (int i = 0; i < count; ++i)
        Re[i] = static_cast<float>(data[i]);
}

void ZEKPP1DFFT::UpLoadIm(float* data, int count)
{
    if (Im && data && count == Length)
        std::memcpy(Im, data, Bytes(count));
}

void ZEKPP1DFFT::DownLoadRe(float* out, int count, int start)
{
    DownLoad(Re, Length, out, count, start);
}

void ZEKPP1DFFT::DownLoadIm(float* out, int count, int start)
{
    DownLoad(Im, Length, out, count, start);
}

bool IsOdd(int n)
{
    return n % 2 != 0;
}

int ComputeFFTN(int n)
{
    long long power = 1;
    while (power < n)
        power *= 2;
    return power <= 0x40000000 ? static_cast<int>(power) : 0;
}
