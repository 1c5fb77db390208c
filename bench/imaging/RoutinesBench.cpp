// The routines on float and byte images beside OpenCV, on one thread each: its filter2D does not split its
// work. Every result is held against a plain reference first. Behind, what the threads bring.

#include "support/PeerBench.h"

#include "foundation/RowThreads.h"
#include "platform/System.h"

#include <VostelObj.h>

#include <cblas.h>
#include <opencv2/core.hpp>
#include <opencv2/imgproc.hpp>

#include <cmath>
#include <cstring>
#include <functional>
#include <memory>
#include <random>
#include <string>

using namespace vostel;

namespace {

using FloatPlane = ClassData2DIO<float>;
using BytePlane = ClassData2DIO<unsigned char>;

FloatPlane RandomFloats(int width, int height, std::mt19937& random, float low, float high)
{
    FloatPlane                            plane;
    std::uniform_real_distribution<float> values(low, high);
    plane.Allocate(width, height);
    for (int k = 0; k < width * height; ++k)
        plane.Ptr1D[k] = values(random);
    return plane;
}

cv::Mat View(FloatPlane& plane)
{
    return cv::Mat(plane.Height, plane.Width, CV_32FC1, plane.Ptr1D);
}

template <typename T>
bool SamePlane(const ClassData2DIO<T>& a, const ClassData2DIO<T>& b)
{
    return a.Width == b.Width && a.Height == b.Height &&
           std::memcmp(a.Ptr1D, b.Ptr1D, sizeof(T) * static_cast<std::size_t>(a.Width) * a.Height) == 0;
}

int Mirrored(int c, int extent)
{
    c = (c < 0 ? -c : c) % (2 * extent);
    return c >= extent ? 2 * extent - c - 2 : c;
}

// Every pixel of a small kernel; of a large one every seventh in both directions.
bool IsCorrelation(const FloatPlane& image, const FloatPlane& kernel, const FloatPlane& result)
{
    const int step = kernel.Width > 9 ? 7 : 1;
    for (int y = 0; y < image.Height; y += step) {
        for (int x = 0; x < image.Width; x += step) {
            float sum = 0.0f;
            for (int j = 0; j < kernel.Height; ++j)
                for (int i = 0; i < kernel.Width; ++i)
                    sum += kernel.Ptr2D[j][i] * image.Ptr2D[Mirrored(y + j - kernel.Height / 2, image.Height)]
                                                           [Mirrored(x + i - kernel.Width / 2, image.Width)];
            if (std::memcmp(&sum, &result.Ptr2D[y][x], sizeof sum) != 0)
                return false;
        }
    }
    return true;
}

// On so many threads, ours and the peer's.
void UseThreads(int threads)
{
    ForceRowThreads(threads);
    cv::setNumThreads(threads);
}

// Filters the image in place and holds it against the sums.
bench::Contest CorrelationContest(const std::string& title, FloatPlane& image, FloatPlane& kernel,
                                  const std::function<void(FloatPlane&)>& filter)
{
    struct Planes {
        FloatPlane Work, Theirs, Checked;
        cv::Mat    Filtered;
    };
    const auto        planes = std::make_shared<Planes>();
    const std::size_t bytes = sizeof(float) * static_cast<std::size_t>(image.Width) * image.Height;
    planes->Work = planes->Theirs = image;
    bench::Contest contest;
    contest.Title = title;
    // The image shall be the same each time; copying into the buffers that it has does not count.
    contest.Prepare = [&image, planes, bytes] { std::memcpy(planes->Work.Ptr1D, image.Ptr1D, bytes); };
    contest.Run = [planes, filter] { filter(planes->Work); };
    contest.Check = [&image, &kernel, planes] {
        // Once against the sums, then against that.
        if (!planes->Checked.Ptr1D && IsCorrelation(image, kernel, planes->Work))
            planes->Checked = planes->Work;
        return SamePlane(planes->Checked, planes->Work);
    };
    // The peer's image comes fresh out of a copy too.
    contest.Peers.push_back(
        {"opencv filter2D",
         [&kernel, planes] {
             cv::filter2D(View(planes->Theirs), planes->Filtered, CV_32F, View(kernel), cv::Point(-1, -1), 0,
                          cv::BORDER_REFLECT_101);
         },
         [&image, planes, bytes] { std::memcpy(planes->Theirs.Ptr1D, image.Ptr1D, bytes); },
         {}});
    contest.PlainIsSlow = kernel.Width > 9;
    if (kernel.Width > 9)
        contest.Rounds = 9;
    return contest;
}

void CompareThreaded(bench::PeerBench& peers, bench::Contest contest, double atMost)
{
    contest.Title += ", a thread per processor";
    contest.AtMost = contest.AtMostAvx512 = atMost;
    UseThreads(ProcessorCount());
    peers.Compare(contest);
    UseThreads(1);
}

void CompareCorrelations(bench::PeerBench& peers)
{
    std::mt19937 random(2048);
    FloatPlane   image = RandomFloats(2048, 2048, random, 0.0f, 4096.0f);
    struct {
        int    Side;
        double AtMost, AtMostAvx512, AtMostInPlace;
    } const sizes[] = {{3, 1.0, 0.85, 0.9},  {5, 0.9, 0.85, 0.9}, {7, 0.85, 0.7, 0.9},
                       {9, 0.95, 0.85, 0.0}, {15, 0.4, 0.3, 0.0}, {31, 0.95, 0.95, 0.0}};
    for (const auto& size : sizes) {
        FloatPlane     kernel = RandomFloats(size.Side, size.Side, random, -1.0f, 1.0f);
        bench::Contest contest = CorrelationContest("gConv2 " + std::to_string(size.Side), image, kernel,
                                                    [&](FloatPlane& work) { gConv2(&work, &kernel); });
        contest.AtMost = size.AtMost;
        contest.AtMostAvx512 = size.AtMostAvx512;
        peers.Compare(contest);
        CompareThreaded(peers, contest, 0.0);
        if (size.AtMostInPlace > 0.0) {
            contest = CorrelationContest("ConvFltVer0 " + std::to_string(size.Side), image, kernel,
                                         [&](FloatPlane& work) { ConvFltVer0(&work, &kernel); });
            contest.AtMost = contest.AtMostAvx512 = size.AtMostInPlace;
            peers.Compare(contest);
        }
    }
    FloatPlane     small = RandomFloats(512, 512, random, 0.0f, 4096.0f);
    FloatPlane     kernel = RandomFloats(5, 5, random, -1.0f, 1.0f);
    bench::Contest contest = CorrelationContest("gConv2 5, 512x512", small, kernel,
                                                [&](FloatPlane& work) { gConv2(&work, &kernel); });
    peers.Compare(contest);
    CompareThreaded(peers, contest, 0.7);
}

void CompareGaussians(bench::PeerBench& peers)
{
    std::mt19937 random(31);
    FloatPlane   image = RandomFloats(2048, 2048, random, 0.0f, 4096.0f);
    const float  sigma = 5.0f;
    FloatPlane   kernel;
    TwoDGaussian_LSE(&kernel, 31, sigma, 31, sigma, 0.0f);
    bench::Contest contest = CorrelationContest("gGauss 31", image, kernel,
                                                [&](FloatPlane& work) { gGauss(&work, 31, sigma, 0.0f); });
    contest.AtMost = contest.AtMostAvx512 = 0.95;
    peers.Compare(contest);
    FloatPlane theirs = image;
    cv::Mat    filtered;
    contest.Title = "gGauss 31, separable peer";
    contest.Peers = {{"opencv GaussianBlur",
                      [&] {
                          cv::GaussianBlur(View(theirs), filtered, cv::Size(31, 31), sigma, sigma,
                                           cv::BORDER_REFLECT_101);
                      },
                      [&] { std::memcpy(theirs.Ptr1D, image.Ptr1D, sizeof(float) * 2048 * 2048); },
                      {}}};
    contest.AtMost = contest.AtMostAvx512 = 0.0;
    peers.Compare(contest);
}

bool IsScaled(const FloatPlane& source, const FloatPlane& target)
{
    const float scaleX = static_cast<float>(source.Width) / static_cast<float>(target.Width);
    const float scaleY = static_cast<float>(source.Height) / static_cast<float>(target.Height);
    for (int y = 0; y < target.Height; ++y) {
        for (int x = 0; x < target.Width; ++x) {
            const float fx = static_cast<float>(x) * scaleX, fy = static_cast<float>(y) * scaleY;
            const int   ix = static_cast<int>(std::floor(fx)), iy = static_cast<int>(std::floor(fy));
            float       value = 0.0f;
            if (ix <= source.Width - 2 && iy <= source.Height - 2) {
                const float  tx = fx - static_cast<float>(ix), ty = fy - static_cast<float>(iy);
                const float* s = source.Ptr2D[iy] + ix;
                const float* t = source.Ptr2D[iy + 1] + ix;
                const float  topRight = tx * s[1], bottomRight = tx * t[1];
                const double top = static_cast<double>(s[0]) * (1.0 - static_cast<double>(tx)) + topRight;
                const double bottom =
                    static_cast<double>(t[0]) * (1.0 - static_cast<double>(tx)) + bottomRight;
                value = static_cast<float>(top * (1.0 - static_cast<double>(ty)) +
                                           bottom * static_cast<double>(ty));
            }
            if (std::memcmp(&value, &target.Ptr2D[y][x], sizeof value) != 0)
                return false;
        }
    }
    return true;
}

void CompareScalings(bench::PeerBench& peers)
{
    std::mt19937 random(3000);
    FloatPlane   image = RandomFloats(2048, 2048, random, 0.0f, 65535.0f);
    for (const int side : {3000, 1024}) {
        FloatPlane work, target;
        cv::Mat    scaled;
        target.Allocate(side, side);
        bench::Contest contest;
        contest.Title = "ResizeMC 2048 to " + std::to_string(side);
        contest.Run = [&] { ResizeMC(&image, &target); };
        contest.Check = [&] { return IsScaled(image, target); };
        const bench::Peer peer = {
            "opencv resize",
            [&] { cv::resize(View(image), scaled, cv::Size(side, side), 0, 0, cv::INTER_LINEAR); },
            {},
            {}};
        contest.Peers.push_back(peer);
        contest.AtMost = side == 3000 ? 1.1 : 1.2;
        contest.AtMostAvx512 = 1.0;
        peers.Compare(contest);
        CompareThreaded(peers, contest, side == 3000 ? 0.95 : 1.0);
        // In place: a new image each time, as the peer's.
        contest.Title = "Resize 2048 to " + std::to_string(side);
        contest.Prepare = [&] { work = image; };
        contest.Run = [&] { Resize(work, side, side); };
        contest.Check = [&] { return IsScaled(image, work); };
        contest.Peers = {{"opencv resize, new Mat",
                          [&] {
                              cv::Mat fresh;
                              cv::resize(View(image), fresh, cv::Size(side, side), 0, 0, cv::INTER_LINEAR);
                              scaled = fresh;
                          },
                          {},
                          {}}};
        peers.Compare(contest);
    }
}

// The sums slid as plain integers, and the comparison as it reads.
BytePlane Thresholded(const BytePlane& image, int size)
{
    const int  r = size / 2, area = (2 * r + 1) * (2 * r + 1);
    const auto fold = [](int c, int extent) { return c < 0 ? -c - 1 : c >= extent ? 2 * extent - 1 - c : c; };
    BytePlane  result;
    result.Allocate(image.Width, image.Height);
    std::vector<int> columns(static_cast<std::size_t>(image.Width));
    for (int y = 0; y < image.Height; ++y) {
        for (int x = 0; x < image.Width; ++x) {
            int& sum = columns[static_cast<std::size_t>(x)];
            if (y == 0)
                for (int j = -r; j <= r; ++j)
                    sum += image.Ptr2D[fold(j, image.Height)][x];
            else
                sum +=
                    image.Ptr2D[fold(y + r, image.Height)][x] - image.Ptr2D[fold(y - r - 1, image.Height)][x];
        }
        int sum = 0;
        for (int i = -r - 1; i < r; ++i)
            sum += columns[static_cast<std::size_t>(fold(i, image.Width))];
        for (int x = 0; x < image.Width; ++x) {
            sum += columns[static_cast<std::size_t>(fold(x + r, image.Width))] -
                   columns[static_cast<std::size_t>(fold(x - r - 1, image.Width))];
            const bool above =
                static_cast<double>(image.Ptr2D[y][x] * area) > static_cast<double>(sum) * 0.85;
            result.Ptr2D[y][x] = above ? 255 : 0;
        }
    }
    return result;
}

void CompareThresholds(bench::PeerBench& peers)
{
    std::mt19937 random(4096);
    BytePlane    image;
    image.Allocate(4096, 4096);
    for (int k = 0; k < 4096 * 4096; ++k)
        image.Ptr1D[k] = static_cast<unsigned char>(random());
    const cv::Mat view(4096, 4096, CV_8UC1, image.Ptr1D);
    cv::Mat       binary;
    for (const int size : {15, 51, 201, 601, 1001}) {
        BytePlane       work = image;
        const BytePlane expected = Thresholded(image, size);
        bench::Contest  contest;
        contest.Title = "LAT_Constant " + std::to_string(size);
        contest.Prepare = [&] { std::memcpy(work.Ptr1D, image.Ptr1D, 4096 * 4096); };
        contest.Run = [&] { LAT_Constant(work, size); };
        contest.Check = [&] { return SamePlane(work, expected); };
        contest.Peers.push_back({"opencv adaptiveThreshold",
                                 [&] {
                                     cv::adaptiveThreshold(view, binary, 255, cv::ADAPTIVE_THRESH_MEAN_C,
                                                           cv::THRESH_BINARY, size, 20);
                                 },
                                 {},
                                 {}});
        contest.AtMost = size <= 201 ? 0.4 : 0.0;
        contest.AtMostAvx512 = size <= 201 ? 0.3 : 0.0;
        peers.Compare(contest);
    }
}

FloatPlane Stitched(const FloatPlane& a, const FloatPlane& b, int overlap)
{
    const int   left = a.Width - overlap;
    const float step = static_cast<float>(1.0 / static_cast<double>(static_cast<float>(overlap - 1)));
    FloatPlane  result;
    result.Allocate(a.Width + b.Width - overlap, a.Height);
    for (int y = 0; y < a.Height; ++y) {
        float sumA = 0.0f, sumB = 0.0f;
        for (int i = 0; i < overlap; ++i) {
            sumA += a.Ptr2D[y][left + i];
            sumB += b.Ptr2D[y][i];
        }
        const float gain = (sumA / static_cast<float>(overlap)) / (sumB / static_cast<float>(overlap));
        for (int x = 0; x < result.Width; ++x) {
            const float wB = static_cast<float>(x - left) * step;
            const float wA = static_cast<float>(1.0 - static_cast<double>(wB));
            result.Ptr2D[y][x] = x < left      ? a.Ptr2D[y][x]
                                 : x < a.Width ? b.Ptr2D[y][x - left] * wB * gain + a.Ptr2D[y][x] * wA
                                               : gain * b.Ptr2D[y][x - left];
        }
    }
    return result;
}

void CompareStitches(bench::PeerBench& peers)
{
    std::mt19937     random(200);
    const int        side = 2048, overlap = 200, left = side - overlap;
    FloatPlane       a = RandomFloats(side, side, random, 100.0f, 1000.0f);
    FloatPlane       b = RandomFloats(side, side, random, 100.0f, 1000.0f);
    const FloatPlane expected = Stitched(a, b, overlap);
    FloatPlane       work;
    cv::Mat          joined, weightsA(1, overlap, CV_32F), weightsB(1, overlap, CV_32F);
    for (int i = 0; i < overlap; ++i) {
        weightsB.at<float>(i) = static_cast<float>(i) / (overlap - 1);
        weightsA.at<float>(i) = 1.0f - weightsB.at<float>(i);
    }
    bench::Contest contest;
    contest.Title = "gImaConcate 2048 twice";
    contest.Prepare = [&] { work = a; };
    contest.Run = [&] { gImaConcate(&work, &b, overlap, 0, true); };
    contest.Check = [&] { return SamePlane(work, expected); };
    const auto peer = [&](cv::Mat& target) {
        cv::Mat meansA, meansB, gains;
        cv::reduce(View(a).colRange(left, side), meansA, 1, cv::REDUCE_AVG);
        cv::reduce(View(b).colRange(0, overlap), meansB, 1, cv::REDUCE_AVG);
        cv::divide(meansA, meansB, gains);
        target.create(side, 2 * side - overlap, CV_32F);
        View(a).colRange(0, left).copyTo(target.colRange(0, left));
        for (int y = 0; y < side; ++y) {
            cv::Mat row = target.row(y);
            cv::Mat zone = row.colRange(left, side), rest = row.colRange(side, row.cols);
            cv::Mat fadedA, fadedB;
            cv::multiply(View(b).row(y).colRange(0, overlap), weightsB, fadedB, gains.at<float>(y));
            cv::multiply(View(a).row(y).colRange(left, side), weightsA, fadedA);
            cv::add(fadedA, fadedB, zone);
            View(b).row(y).colRange(overlap, side).convertTo(rest, CV_32F, gains.at<float>(y));
        }
    };
    contest.Peers.push_back({"opencv reduce, multiply, copy, new Mat",
                             [&] {
                                 cv::Mat fresh;
                                 peer(fresh);
                                 joined = fresh;
                             },
                             {},
                             {}});
    contest.Peers.push_back({"the same into the last result", [&] { peer(joined); }, {}, {}});
    contest.AtMost = 0.75;
    peers.Compare(contest);
}

// What a plain loop takes with the same flags.
__attribute__((noinline)) void MultiplyPlainly(const FloatPlane& a, const FloatPlane& b, FloatPlane& c)
{
    for (int i = 0; i < a.Height; ++i) {
        for (int j = 0; j < b.Width; ++j) {
            float sum = 0.0f;
            for (int k = 0; k < a.Width; ++k)
                sum += a.Ptr2D[i][k] * b.Ptr2D[k][j];
            c.Ptr2D[i][j] = sum;
        }
    }
}

void CompareProducts(bench::PeerBench& peers)
{
    std::mt19937 random(512);
    FloatPlane   a = RandomFloats(512, 512, random, -1.0f, 1.0f);
    FloatPlane   b = RandomFloats(512, 512, random, -1.0f, 1.0f);
    FloatPlane   c, expected, other;
    expected.Allocate(512, 512);
    other.Allocate(512, 512);
    MultiplyPlainly(a, b, expected);
    bench::Contest contest;
    contest.Title = "MatrixMul 512";
    contest.Run = [&] { MatrixMul(a, b, c); };
    contest.Check = [&] { return SamePlane(c, expected); };
    contest.Peers.push_back({"plain loop",
                             [&] { MultiplyPlainly(a, b, other); },
                             {},
                             [&] { return SamePlane(other, expected); }});
    contest.AtMost = 0.2;
    peers.Compare(contest);
    contest.Title = "MatrixMul 512, peer sums in any order";
    openblas_set_num_threads(1);
    contest.Peers = {{"OpenBLAS sgemm",
                      [&] {
                          cblas_sgemm(CblasRowMajor, CblasNoTrans, CblasNoTrans, b.Width, b.Width, b.Width,
                                      1.0f, a.Ptr1D, a.Width, b.Ptr1D, b.Width, 0.0f, other.Ptr1D,
                                      other.Width);
                      },
                      {},
                      {}}};
    contest.AtMost = 0.0;
    peers.Compare(contest);
}

}

int main(int argc, char** argv)
{
    bench::PeerBench peers(argc, argv);
    UseThreads(1);
    CompareCorrelations(peers);
    CompareGaussians(peers);
    CompareScalings(peers);
    CompareThresholds(peers);
    CompareStitches(peers);
    CompareProducts(peers);
    return peers.Finish();
}
