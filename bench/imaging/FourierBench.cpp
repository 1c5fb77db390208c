// Complex transforms beside FFTW's measured plan and KissFFT, and the ramp filter beside FFTW's real
// transforms, on one thread each. Peers work on their own layout, interleaved.

#include "support/PeerBench.h"

#include "foundation/RowThreads.h"

#include <VostelObj.h>

#include <fftw3.h>
#include <kissfft/kiss_fft.h>

#include <algorithm>
#include <cstring>
#include <random>

using namespace vostel;

namespace {

std::vector<float> RandomFloats(std::size_t count)
{
    std::mt19937                          random(4096);
    std::uniform_real_distribution<float> values(-1.0f, 1.0f);
    std::vector<float>                    result(count);
    for (float& v : result)
        v = values(random);
    return result;
}

// Forward and inverse in turns, so that the values stay in range over any number of runs.
void CompareTransform(bench::PeerBench& peers, int n, double atMost, double atMostAvx512)
{
    const int          pairs = std::max(1, 131072 / n);
    std::vector<float> re = RandomFloats(static_cast<std::size_t>(n)), im(re.rbegin(), re.rend());
    ZEKPP1DFFT         fft;
    fft.Init(n, true);
    const auto upLoad = [&] {
        fft.UpLoadRe(re.data(), n);
        fft.UpLoadIm(im.data(), n);
    };
    const auto run = [&] {
        for (int i = 0; i < pairs; ++i) {
            fft.RunFFT(true);
            fft.RunFFT(false);
        }
    };
    const CpuVariant before = ActiveCpuVariant();
    ForceCpuVariant(CpuVariant::Plain);
    upLoad();
    run();
    const std::vector<float> expectedRe(fft.Re, fft.Re + n), expectedIm(fft.Im, fft.Im + n);
    ForceCpuVariant(before);

    const std::size_t         bytes = sizeof(fftwf_complex) * static_cast<std::size_t>(n);
    const auto                there = static_cast<fftwf_complex*>(fftwf_malloc(bytes));
    const auto                back = static_cast<fftwf_complex*>(fftwf_malloc(bytes));
    const fftwf_plan          forward = fftwf_plan_dft_1d(n, back, there, FFTW_FORWARD, FFTW_MEASURE);
    const fftwf_plan          inverse = fftwf_plan_dft_1d(n, there, back, FFTW_BACKWARD, FFTW_MEASURE);
    kiss_fft_cfg              kissForward = kiss_fft_alloc(n, 0, nullptr, nullptr);
    kiss_fft_cfg              kissInverse = kiss_fft_alloc(n, 1, nullptr, nullptr);
    std::vector<kiss_fft_cpx> kissThere(static_cast<std::size_t>(n)), kissBack(kissThere.size());
    // Neither scales, so that any other values would leave the range after a few runs.
    const auto prepare = [&] {
        for (int i = 0; i < n; ++i) {
            back[i][0] = back[i][1] = 0.0f;
            kissBack[static_cast<std::size_t>(i)] = {0.0f, 0.0f};
        }
    };
    prepare();

    bench::Contest contest;
    contest.Title = "RunFFT N = " + std::to_string(n);
    contest.Prepare = upLoad;
    contest.Run = run;
    contest.Check = [&] {
        return std::memcmp(fft.Re, expectedRe.data(), bytes / 2) == 0 &&
               std::memcmp(fft.Im, expectedIm.data(), bytes / 2) == 0;
    };
    contest.Peers.push_back({"fftw measured",
                             [&] {
                                 for (int i = 0; i < pairs; ++i) {
                                     fftwf_execute(forward);
                                     fftwf_execute(inverse);
                                 }
                             },
                             {},
                             {}});
    contest.Peers.push_back({"kissfft",
                             [&] {
                                 for (int i = 0; i < pairs; ++i) {
                                     kiss_fft(kissForward, kissBack.data(), kissThere.data());
                                     kiss_fft(kissInverse, kissThere.data(), kissBack.data());
                                 }
                             },
                             {},
                             {}});
    contest.AtMost = atMost;
    contest.AtMostAvx512 = atMostAvx512;
    peers.Compare(contest);
    kiss_fft_free(kissForward);
    kiss_fft_free(kissInverse);
    fftwf_destroy_plan(forward);
    fftwf_destroy_plan(inverse);
    fftwf_free(there);
    fftwf_free(back);
}

// Tables and arrays of a transform, beside so many of its transforms, and a plan that FFTW estimates anew.
void CompareInit(bench::PeerBench& peers, int n)
{
    constexpr int Transforms = 10;
    const int     turns = std::max(1, 65536 / n);
    ZEKPP1DFFT    made, fft;
    fft.Init(n, true);
    const auto     values = fftwf_alloc_complex(static_cast<std::size_t>(n));
    bench::Contest contest;
    contest.Title = "Init N = " + std::to_string(n) + ", peer: ten runs, AVX-512 if there";
    contest.Run = [&] {
        for (int i = 0; i < turns; ++i)
            made.Init(n, true);
    };
    contest.Check = [&] { return made.SinInverse[n / 4] == 1.0f; };
    contest.Peers.push_back({"RunFFT",
                             [&] {
                                 for (int i = 0; i < Transforms * turns; ++i)
                                     fft.RunFFT(i % 2 == 0);
                             },
                             {},
                             {}});
    contest.AtMost = 1.0;
    peers.Compare(contest);
    contest.Title = "Init N = " + std::to_string(n);
    contest.Peers = {{"fftw estimated plan",
                      [&] {
                          for (int i = 0; i < turns; ++i) {
                              fftwf_destroy_plan(
                                  fftwf_plan_dft_1d(n, values, values, FFTW_FORWARD, FFTW_ESTIMATE));
                          }
                      },
                      {},
                      {}}};
    contest.AtMost = 0.0;
    peers.Compare(contest);
    fftwf_free(values);
}

void CompareFilter(bench::PeerBench& peers, int width, int height)
{
    const int                n = ComputeFFTN(3 * width - 1);
    const std::size_t        count = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
    const std::vector<float> source = RandomFloats(count);
    ClassData2DIO<float>     image;
    image.Allocate(width, height);
    const auto       load = [&] { std::memcpy(image.Ptr1D, source.data(), count * sizeof(float)); };
    const CpuVariant before = ActiveCpuVariant();
    ForceCpuVariant(CpuVariant::Plain);
    load();
    ZEKFilter1DForRec(&image, 0.7f);
    const std::vector<float> expected(image.Ptr1D, image.Ptr1D + count);
    ForceCpuVariant(before);

    float* const     row = fftwf_alloc_real(static_cast<std::size_t>(n));
    const auto       spectrum = fftwf_alloc_complex(static_cast<std::size_t>(n / 2 + 1));
    const fftwf_plan forward = fftwf_plan_dft_r2c_1d(n, row, spectrum, FFTW_MEASURE);
    const fftwf_plan inverse = fftwf_plan_dft_c2r_1d(n, spectrum, row, FFTW_MEASURE);
    ZEKPP1DFFT       kernel;
    GetKernerlFFT(kernel, n, 2 * width - 1, 0.7f);
    std::vector<float> result(count);

    bench::Contest contest;
    contest.Title = "ZEKFilter1DForRec " + std::to_string(height) + " rows of " + std::to_string(width);
    contest.Prepare = load;
    contest.Run = [&] { ZEKFilter1DForRec(&image, 0.7f); };
    contest.Check = [&] { return std::memcmp(image.Ptr1D, expected.data(), count * sizeof(float)) == 0; };
    contest.Peers.push_back({"fftw r2c, c2r",
                             [&] {
                                 const float scale = 1.0f / static_cast<float>(n);
                                 for (int y = 0; y < height; ++y) {
                                     const std::ptrdiff_t at = static_cast<std::ptrdiff_t>(y) * width;
                                     std::copy(source.data() + at, source.data() + at + width, row);
                                     std::fill(row + width, row + n, 0.0f);
                                     fftwf_execute(forward);
                                     for (int k = 0; k <= n / 2; ++k) {
                                         const float a = spectrum[k][0] * scale;
                                         const float b = spectrum[k][1] * scale;
                                         spectrum[k][0] = a * kernel.Re[k] - b * kernel.Im[k];
                                         spectrum[k][1] = a * kernel.Im[k] + b * kernel.Re[k];
                                     }
                                     fftwf_execute(inverse);
                                     std::copy(row + width - 1, row + 2 * width - 1, result.data() + at);
                                 }
                             },
                             {},
                             [&] {
                                 for (std::size_t i = 0; i < count; ++i)
                                     if (std::abs(result[i] - expected[i]) > 1e-3f)
                                         return false;
                                 return true;
                             }});
    ForceRowThreads(1);
    peers.Compare(contest);
    ForceRowThreads(0);
    contest.AtMost = 0.95;    // as a host calls it
    contest.Title += ", a thread per processor";
    peers.Compare(contest);
    fftwf_destroy_plan(forward);
    fftwf_destroy_plan(inverse);
    fftwf_free(row);
    fftwf_free(spectrum);
}

}

int main(int argc, char** argv)
{
    bench::PeerBench peers(argc, argv);
    CompareTransform(peers, 256, 1.0, 1.0);
    CompareTransform(peers, 1024, 1.0, 1.0);
    CompareTransform(peers, 4096, 1.0, 1.0);
    CompareTransform(peers, 65536, 1.05, 0.75);
    CompareTransform(peers, 1048576, 0.9, 0.8);
    for (const int n : {256, 1024, 4096, 65536, 1048576})
        CompareInit(peers, n);
    for (const int rows : {90, 360, 1440})
        CompareFilter(peers, 1024, rows);
    return peers.Finish();
}
