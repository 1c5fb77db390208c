#include "imaging/Fourier.h"
#include "support/EveryVariant.h"

#include <VostelObj.h>

#include <doctest/doctest.h>

using namespace vostel;

namespace {

struct Signal {
    std::vector<float> Re, Im;
};

Signal RandomSignal(int n, unsigned seed)
{
    std::mt19937                          random(seed);
    std::uniform_real_distribution<float> values(-100.0f, 100.0f);
    Signal                                signal;
    for (int i = 0; i < n; ++i) {
        signal.Re.push_back(values(random));
        signal.Im.push_back(values(random));
    }
    return signal;
}

// One stage after the other, as the formula reads.
Signal TransformedByHand(Signal in, bool forward, bool scaled)
{
    const int n = static_cast<int>(in.Re.size());
    Signal    out = in;
    for (int s = 1; s < n; s *= 2) {
        for (int l = 0; l < n / 2; l += s) {
            const double angle = static_cast<double>(l) * (forward ? -6.2831852 : 6.2831852) / n;
            const float  c = static_cast<float>(std::cos(angle));
            const float  m = static_cast<float>(std::sin(angle));
            for (int q = 0; q < s; ++q) {
                const int   a = l + q;
                const int   b = a + n / 2;
                const int   o = 2 * l + q;
                const float dr = in.Re[a] - in.Re[b];
                const float di = in.Im[a] - in.Im[b];
                out.Re[o] = in.Re[a] + in.Re[b];
                out.Im[o] = in.Im[a] + in.Im[b];
                out.Re[o + s] = dr * c - di * m;
                out.Im[o + s] = dr * m + di * c;
            }
        }
        std::swap(in, out);
    }
    if (scaled)
        for (int i = 0; i < n; ++i) {
            in.Re[i] *= static_cast<float>(1.0 / n);
            in.Im[i] *= static_cast<float>(1.0 / n);
        }
    return in;
}

void UpLoad(ZEKPP1DFFT& fft, Signal& signal)
{
    const int n = static_cast<int>(signal.Re.size());
    fft.UpLoadRe(signal.Re.data(), n);
    fft.UpLoadIm(signal.Im.data(), n);
}

bool Holds(const ZEKPP1DFFT& fft, const Signal& signal)
{
    return SameFloats(fft.Re, signal.Re.data(), signal.Re.size()) &&
           SameFloats(fft.Im, signal.Im.data(), signal.Im.size());
}

}

TEST_CASE("every variant gives the bits of one stage after the other, for every length to 32768")
{
    InEveryVariant([](const char* variant) {
        for (int n = 1; n <= 32768; n *= 2)
            for (const bool forward : {true, false}) {
                const unsigned seed = 77u + static_cast<unsigned>(n);
                CAPTURE(variant);
                CAPTURE(n);
                CAPTURE(forward);
                CAPTURE(seed);
                Signal     signal = RandomSignal(n, seed);
                ZEKPP1DFFT fft;
                fft.Init(n, forward);
                UpLoad(fft, signal);
                fft.RunFFT();
                CHECK(Holds(fft, TransformedByHand(signal, forward, !forward)));
            }
    });
}

TEST_CASE("lengths that outgrow the caches give the same bits too")
{
    for (const int n : {131072, 1048576}) {
        Signal       signal = RandomSignal(n, 78);
        const Signal expected = TransformedByHand(signal, false, true);
        InEveryVariant([&](const char* variant) {
            CAPTURE(variant);
            CAPTURE(n);
            ZEKPP1DFFT fft;
            fft.Init(n, false);
            UpLoad(fft, signal);
            fft.RunFFT();
            CHECK(Holds(fft, expected));
        });
    }
}

TEST_CASE("every variant spreads samples that are not finite, and signs of zero, as the arithmetic has it")
{
    InEveryVariant([](const char* variant) {
        for (const int n : {64, 256, 2048})
            for (const bool zeros : {true, false}) {
                CAPTURE(variant);
                CAPTURE(n);
                Signal signal = RandomSignal(n, 5);
                if (zeros)
                    for (int i = 0; i < n; ++i) {
                        signal.Re[i] = i % 3 ? 0.0f : -0.0f;
                        signal.Im[i] = i % 5 ? -0.0f : 0.0f;
                    }
                else {
                    signal.Re[7] = std::numeric_limits<float>::infinity();
                    signal.Im[n - 3] = std::numeric_limits<float>::quiet_NaN();
                }
                ZEKPP1DFFT fft;
                fft.Init(n, true);
                UpLoad(fft, signal);
                fft.RunFFT();
                CHECK(Holds(fft, TransformedByHand(signal, true, false)));
            }
    });
}

TEST_CASE("the tables hold the angles of 6.2831852, each rounded once")
{
    ZEKPP1DFFT fft;
    fft.Init(64, true);
    bool same = true;
    for (int k = 0; k < 64; ++k)
        same = same && fft.CosForward[k] == static_cast<float>(std::cos(k * -6.2831852 / 64.0)) &&
               fft.SinForward[k] == static_cast<float>(std::sin(k * -6.2831852 / 64.0)) &&
               fft.CosInverse[k] == static_cast<float>(std::cos(k * 6.2831852 / 64.0)) &&
               fft.SinInverse[k] == static_cast<float>(std::sin(k * 6.2831852 / 64.0));
    CHECK(same);
    CHECK(fft.SinInverse[32] > 1e-8f);    // not an exact root of unity: 3.1415926
    CHECK(+fft.Scale == 1.0f / 64.0f);
    CHECK(+fft.Stages == 6);
    CHECK(+fft.EvenStages == 1);
}

TEST_CASE("the tables of any length hold what cosine and sine give for either direction")
{
    for (const int n : {1, 2, 3, 7, 16, 100, 127, 128, 256, 1000, 4096, 65536, 1 << 20}) {
        CAPTURE(n);
        ZEKPP1DFFT fft;
        fft.Init(n, true);
        bool same = true;
        for (int k = 0; k < n; ++k) {
            const float forward[2] = {static_cast<float>(std::cos(k * -6.2831852 / n)),
                                      static_cast<float>(std::sin(k * -6.2831852 / n))};
            const float inverse[2] = {static_cast<float>(std::cos(k * 6.2831852 / n)),
                                      static_cast<float>(std::sin(k * 6.2831852 / n))};
            // Down to the sign of zero.
            same = same && SameFloats(fft.CosForward + k, forward, 1) &&
                   SameFloats(fft.SinForward + k, forward + 1, 1) &&
                   SameFloats(fft.CosInverse + k, inverse, 1) &&
                   SameFloats(fft.SinInverse + k, inverse + 1, 1);
        }
        CHECK(same);
    }
}

TEST_CASE("the arrays of a transform begin on lines of the cache, each at another place of its page")
{
    ZEKPP1DFFT fft;
    fft.Init(1024, true);
    std::vector<std::uintptr_t> places;
    for (const float* array : {+fft.Re, +fft.Im, +fft.WorkRe, +fft.WorkIm, +fft.CosForward, +fft.SinForward,
                               +fft.CosInverse, +fft.SinInverse}) {
        const std::uintptr_t at = reinterpret_cast<std::uintptr_t>(array);
        CHECK(at % 64 == 0);
        places.push_back(at % 4096);
    }
    std::sort(places.begin(), places.end());
    CHECK(std::unique(places.begin(), places.end()) == places.end());
}

TEST_CASE("a run of length 1 has no stage and changes nothing")
{
    ZEKPP1DFFT fft;
    fft.Init(1, false);
    CHECK(+fft.Stages == 0);
    CHECK(+fft.EvenStages == 1);
    float value = 2.5f;
    fft.UpLoadRe(&value, 1);
    float* const before = fft.Re;
    fft.RunFFT();
    CHECK(+fft.Re == before);
    CHECK(fft.Re[0] == 2.5f);
}

TEST_CASE("an odd number of stages trades the arrays, in every variant")
{
    InEveryVariant([](const char* variant) {
        CAPTURE(variant);
        for (const int n : {2, 128, 512, 2048, 256, 1024}) {
            ZEKPP1DFFT fft;
            fft.Init(n, true);
            float* const re = fft.Re;
            float* const work = fft.WorkRe;
            fft.RunFFT();
            CHECK(+fft.Re == (fft.EvenStages ? re : work));
            CHECK(+fft.WorkRe == (fft.EvenStages ? work : re));
        }
    });
}

TEST_CASE("forward and inverse return the input")
{
    Signal     signal = RandomSignal(1024, 9);
    ZEKPP1DFFT fft;
    fft.Init(1024, true);
    UpLoad(fft, signal);
    fft.RunFFT();
    CHECK(std::fabs(fft.Re[5] - signal.Re[5]) > 1.0f);
    fft.RunFFT(false);
    CHECK_FALSE(fft.Forward);
    float worst = 0.0f;
    for (int i = 0; i < 1024; ++i)
        worst = std::max(worst, std::fabs(fft.Re[i] - signal.Re[i]) + std::fabs(fft.Im[i] - signal.Im[i]));
    CHECK(worst < 1e-3f);
}

TEST_CASE("the unit impulse becomes ones, in every variant")
{
    InEveryVariant([](const char* variant) {
        CAPTURE(variant);
        for (const int n : {2, 64, 1024, 4096}) {
            ZEKPP1DFFT fft;
            fft.Init(n, true);
            fft.Re[0] = 1.0f;
            fft.RunFFT();
            CHECK(std::all_of(fft.Re, fft.Re + n, [](float v) { return v == 1.0f; }));
            CHECK(std::all_of(fft.Im, fft.Im + n, [](float v) { return v == 0.0f; }));
        }
    });
}

TEST_CASE("a forward run multiplies the energy by the length, and is linear")
{
    const int  n = 512;
    Signal     a = RandomSignal(n, 21), b = RandomSignal(n, 22), sum = a;
    ZEKPP1DFFT ofA, ofB, ofSum;
    for (int i = 0; i < n; ++i) {
        sum.Re[i] += 2.0f * b.Re[i];
        sum.Im[i] += 2.0f * b.Im[i];
    }
    ofA.Init(n, true);
    ofB.Init(n, true);
    ofSum.Init(n, true);
    UpLoad(ofA, a);
    UpLoad(ofB, b);
    UpLoad(ofSum, sum);
    ofA.RunFFT();
    ofB.RunFFT();
    ofSum.RunFFT();
    double before = 0.0, after = 0.0, worst = 0.0;
    for (int i = 0; i < n; ++i) {
        before += static_cast<double>(a.Re[i]) * a.Re[i] + static_cast<double>(a.Im[i]) * a.Im[i];
        after += static_cast<double>(ofA.Re[i]) * ofA.Re[i] + static_cast<double>(ofA.Im[i]) * ofA.Im[i];
        worst = std::max(worst, std::fabs(static_cast<double>(ofSum.Re[i]) - ofA.Re[i] - 2.0 * ofB.Re[i]));
    }
    CHECK(after / (n * before) == doctest::Approx(1.0).epsilon(1e-5));
    CHECK(worst < 0.02);
}

TEST_CASE("Re may be filled in part, Im only in full")
{
    ZEKPP1DFFT fft;
    fft.Init(4, true);
    float data[5] = {1.0f, 2.0f, 3.0f, 4.0f, 5.0f};
    fft.UpLoadIm(data, 3);
    CHECK(fft.Im[0] == 0.0f);
    fft.UpLoadIm(data, 4);
    CHECK(fft.Im[3] == 4.0f);
    fft.UpLoadRe(data, 5);
    CHECK(fft.Re[0] == 0.0f);
    fft.UpLoadRe(data, 3);
    CHECK(fft.Re[2] == 3.0f);
    CHECK(fft.Re[3] == 0.0f);
    unsigned short words[5] = {65535, 2, 3, 4, 5};
    fft.UpLoadReUs(words, 5);
    CHECK(fft.Re[0] == 1.0f);
    fft.UpLoadReUs(words, 2);
    CHECK(fft.Re[0] == 65535.0f);
    CHECK(fft.Re[2] == 3.0f);
    fft.SetReImZero();
    CHECK(fft.Re[0] == 0.0f);
    CHECK(fft.Im[3] == 0.0f);
}

TEST_CASE("RunFFTOri leaves an inverse transform of four unscaled, and otherwise does what RunFFT does")
{
    for (const int n : {2, 4, 8, 64}) {
        CAPTURE(n);
        Signal     signal = RandomSignal(n, 3);
        ZEKPP1DFFT fft;
        fft.Init(n, false);
        UpLoad(fft, signal);
        fft.RunFFTOri();
        CHECK(Holds(fft, TransformedByHand(signal, false, n >= 8)));
    }
    ZEKPP1DFFT fft;
    fft.Init(4, false);
    fft.Re[0] = 1.0f;
    fft.RunFFT();
    CHECK(fft.Re[3] == 0.25f);
}

TEST_CASE("products take both parts from the old values, and stop where the factors end")
{
    ZEKPP1DFFT a, b;
    a.Init(4, true);
    b.Init(2, true);
    for (int k = 0; k < 4; ++k) {
        a.Re[k] = 2.0f;
        a.Im[k] = 3.0f;
    }
    b.Re[0] = 5.0f;
    b.Im[0] = 7.0f;
    a.Multiply(b);
    CHECK(a.Re[0] == -11.0f);
    CHECK(a.Im[0] == 29.0f);
    CHECK(a.Re[1] == 0.0f);
    CHECK(a.Re[2] == 2.0f);
    std::vector<std::complex<float>> factors = {{1.0f, 0.0f}, {1.0f, 0.0f}, {0.0f, 1.0f}};
    a.MultiplyV(factors);
    CHECK(a.Re[0] == -11.0f);
    CHECK(a.Re[2] == -3.0f);
    CHECK(a.Im[2] == 2.0f);
    CHECK(a.Re[3] == 2.0f);
    a.Multiply(a);
    CHECK(a.Re[3] == -5.0f);
    CHECK(a.Im[3] == 12.0f);
}

TEST_CASE("downloads beyond the array give zeros, and nothing is read there")
{
    ZEKPP1DFFT fft;
    fft.Init(4, true);
    float data[4] = {1.0f, 2.0f, 3.0f, 4.0f};
    fft.UpLoadRe(data, 4);
    float out[6] = {9.0f, 9.0f, 9.0f, 9.0f, 9.0f, 9.0f};
    fft.DownLoadRe(out, 5, 2);
    CHECK(out[0] == 3.0f);
    CHECK(out[1] == 4.0f);
    CHECK(out[2] == 0.0f);
    CHECK(out[5] == 9.0f);
    fft.DownLoadRe(out, 2, -1);
    CHECK(out[0] == 0.0f);
    CHECK(out[1] == 1.0f);
    fft.DownLoadIm(out, 2, 2147483647);
    CHECK(out[0] == 0.0f);
}

TEST_CASE("an object without arrays ignores every call")
{
    ZEKPP1DFFT                       fft, other;
    float                            value = 3.0f;
    std::vector<std::complex<float>> factors(3);
    other.Init(4, true);
    for (const int length : {1, 0, -5}) {
        fft.Init(length, true);
        CHECK((fft.Re != nullptr) == (length == 1));
        CHECK(+fft.Length == std::max(length, 0));
        fft.RunFFT();
        fft.RunFFT(false);
        fft.RunFFTOri();
        fft.Multiply(other);
        other.Multiply(fft);
        fft.MultiplyV(factors);
        fft.SetReImZero();
        fft.UpLoadRe(&value, 1);
        fft.DownLoadRe(&value, 1, 0);
        CHECK(value == (length == 1 ? 3.0f : 0.0f));
    }
    ZEKPP1DFFT fresh;
    fresh.RunFFT();
    CHECK(+fresh.Re == nullptr);
}

TEST_CASE("runs of a length that is no power of two leave the data as it is")
{
    for (const int n : {3, 6, 100, 1000}) {
        Signal     signal = RandomSignal(n, 4);
        ZEKPP1DFFT fft;
        fft.Init(n, true);
        UpLoad(fft, signal);
        fft.RunFFT();
        CHECK(Holds(fft, signal));
    }
}

TEST_CASE("null data is ignored")
{
    ZEKPP1DFFT fft;
    fft.Init(2, true);
    fft.Re[0] = 4.0f;
    fft.UpLoadRe(nullptr, 2);
    fft.UpLoadReUs(nullptr, 2);
    fft.UpLoadIm(nullptr, 2);
    fft.DownLoadRe(nullptr, 2, 0);
    CHECK(fft.Re[0] == 4.0f);
}

TEST_CASE("assignment shares the arrays")
{
    ZEKPP1DFFT fft;
    fft.Init(8, true);
    {
        ZEKPP1DFFT twin;
        twin = fft;
        CHECK(+twin.Re == +fft.Re);
        CHECK(+twin.Length == 8);
        ZEKPP1DFFT empty;
        twin = empty;    // only one of them may free
    }
    fft.RunFFT();
    CHECK(+fft.Length == 8);
}

TEST_CASE("IsOdd and ComputeFFTN answer for small, negative and large numbers")
{
    CHECK(IsOdd(-3));
    CHECK(IsOdd(7));
    CHECK_FALSE(IsOdd(0));
    CHECK_FALSE(IsOdd(-4));
    CHECK(ComputeFFTN(-7) == 1);
    CHECK(ComputeFFTN(0) == 1);
    CHECK(ComputeFFTN(1) == 1);
    CHECK(ComputeFFTN(2) == 2);
    CHECK(ComputeFFTN(5) == 8);
    CHECK(ComputeFFTN(1024) == 1024);
    CHECK(ComputeFFTN(1073741824) == 1073741824);
    CHECK(ComputeFFTN(1073741825) == 0);
}
