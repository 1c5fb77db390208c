// Showing data and changing its contrast, through the exports, beside the same steps in OpenCV into matrices
// that are used again. OpenCV draws no label image and keeps no mapping.

#include "support/PeerBench.h"

#include <VostelObj.h>

#include <algorithm>
#include <cstddef>
#include <functional>
#include <opencv2/core.hpp>
#include <opencv2/imgproc.hpp>
#include <random>
#include <string>
#include <vector>

using namespace vostel;

namespace {

constexpr int CanvasNumber = 0;

// Everybody starts with caches full of other data and nothing of his forerunner's left to write back.
class ColdCaches {
public:
    void operator()()
    {
        for (std::size_t i = 0; i < Data.size(); i += 16)
            Sum = Sum + Data[i];
    }

private:
    std::vector<unsigned> Data = std::vector<unsigned>(std::size_t{24} << 20, 1u);
    volatile unsigned     Sum = 0;
};

struct Images {
    int                          Side;
    std::size_t                  Count;
    ClassData2DIO<float>         Floats;
    ClassData2DIO<unsigned char> Planes[3];

    explicit Images(int side)
        : Side(side), Count(static_cast<std::size_t>(side) * static_cast<std::size_t>(side))
    {
        std::mt19937                          random(4096);
        std::uniform_real_distribution<float> values(-300.0f, 4000.0f);
        Floats.Allocate(side, side);
        for (std::size_t i = 0; i < Count; ++i)
            Floats.Ptr1D[i] = values(random);
        for (ClassData2DIO<unsigned char>& plane : Planes) {
            plane.Allocate(side, side);
            for (std::size_t i = 0; i < Count; ++i)
                plane.Ptr1D[i] = static_cast<unsigned char>(random());
        }
    }

    cv::Mat FloatMat() { return cv::Mat(Side, Side, CV_32F, Floats.Ptr1D); }
    cv::Mat PlaneMat(int i) { return cv::Mat(Side, Side, CV_8U, Planes[i].Ptr1D); }
};

// Whether surface row y holds word(column, data row Side - 1 - y) throughout.
template <typename Word>
bool SurfaceHolds(int side, Word word)
{
    const unsigned int* pixels = gCVSGetCanvasPixelPtr(CanvasNumber);
    for (int y = 0; y < side; ++y)
        for (int x = 0; x < side; ++x)
            if (pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(side) +
                       static_cast<std::size_t>(x)] != word(x, side - 1 - y))
                return false;
    return true;
}

bool LabelIsOne(std::size_t count)
{
    const int* label = gCVSGetLabelImaPtr1D(CanvasNumber);
    return std::count(label, label + count, 1) == static_cast<std::ptrdiff_t>(count);
}

// The data stretched over 0..65535 and the word that a window of the mapping gives it, by the formulas.
struct PlainDisplay {
    Images&            Shown;
    std::vector<float> Raw;

    explicit PlainDisplay(Images& images) : Shown(images), Raw(images.Count)
    {
        const float* data = images.Floats.Ptr1D;
        const float  low = *std::min_element(data, data + images.Count);
        const float  high = *std::max_element(data, data + images.Count);
        const float  slope = 65535.0f / (high - low);
        for (std::size_t i = 0; i < images.Count; ++i)
            Raw[i] = data[i] <= low ? 0.0f : data[i] >= high ? 65535.0f : (data[i] - low) * slope + 0.0f;
    }

    bool OnCanvas(int low, int high) const
    {
        std::vector<unsigned> words(65536);
        for (int i = 0; i < 65536; ++i) {
            const double quotient = static_cast<double>(i - low) * 255.0 / static_cast<double>(high - low);
            words[static_cast<std::size_t>(i)] = (i <= low   ? 0u
                                                  : i < high ? static_cast<unsigned>(quotient)
                                                             : 255u) *
                                                 0x010101u;
        }
        const std::size_t side = static_cast<std::size_t>(Shown.Side);
        return SurfaceHolds(Shown.Side,
                            [&](int x, int row) {
                                return words[static_cast<std::size_t>(
                                    Raw[static_cast<std::size_t>(row) * side + static_cast<std::size_t>(x)])];
                            }) &&
               std::equal(Raw.begin(), Raw.end(), gCVSGetRawPtr1D(CanvasNumber)) && LabelIsOne(Shown.Count);
    }
};

// What the peers draw into; made once, so that no fresh memory is touched while the clock runs.
struct PeerMats {
    cv::Mat Copy, Original, Gray, Triples, Words, Turned;

    explicit PeerMats(int side)
        : Copy(side, side, CV_32F, cv::Scalar(1)), Original(side, side, CV_32F, cv::Scalar(1)),
          Gray(side, side, CV_8U, cv::Scalar(1)), Triples(side, side, CV_8UC3, cv::Scalar(1)),
          Words(side, side, CV_8UC4, cv::Scalar(1)), Turned(side, side, CV_8UC4, cv::Scalar(1))
    {
    }
};

void CompareAll(bench::PeerBench& peers, int side, bool bounded)
{
    Images             images(side);
    const PlainDisplay plain(images);
    PeerMats           mats(side);
    ColdCaches         cold;
    const std::string  size = " " + std::to_string(side) + "x" + std::to_string(side);
    const auto         contest = [&](const std::string& title, double atMost) {
        bench::Contest made;
        made.Title = title + size;
        made.Prepare = std::ref(cold);
        made.AtMost = bounded ? atMost : 0.0;
        return made;
    };
    const auto peer = [&](std::function<void()> run) {
        return bench::Peer{"opencv", std::move(run), std::ref(cold), {}};
    };

    bench::Contest raw = contest("show float data, original kept", 1.0);
    raw.Run = [&] { gCVSShowRawFloat(CanvasNumber, images.Floats, true, true); };
    raw.Check = [&] {
        return plain.OnCanvas(0, 65535) && std::equal(images.Floats.Ptr1D, images.Floats.Ptr1D + images.Count,
                                                      gCVSGetRawOriPtr1D(CanvasNumber));
    };
    raw.Peers.push_back(peer([&] {
        double low;
        double high;
        images.FloatMat().copyTo(mats.Copy);
        mats.Copy.copyTo(mats.Original);
        cv::minMaxLoc(mats.Copy, &low, &high);
        const double slope = 65535.0 / (high - low);
        mats.Copy.convertTo(mats.Copy, CV_32F, slope, -low * slope);
        mats.Copy.convertTo(mats.Gray, CV_8U, 1.0 / 257.0);
        cv::cvtColor(mats.Gray, mats.Words, cv::COLOR_GRAY2BGRA);
    }));
    peers.Compare(raw);

    // 0.1 and 0.9 of 65535, truncated.
    gCVSShowRawFloat(CanvasNumber, images.Floats, true, true);
    bench::Contest contrast = contest("contrast change with label image", 0.95);
    contrast.Run = [&] { gCVSSetLutPara(CanvasNumber, 0.1f, 0.9f); };
    contrast.Check = [&] { return plain.OnCanvas(6553, 58981); };
    contrast.Peers.push_back(peer([&] {
        const double slope = 255.0 / (58981 - 6553);
        mats.Copy.convertTo(mats.Gray, CV_8U, slope, -6553 * slope);
        cv::cvtColor(mats.Gray, mats.Words, cv::COLOR_GRAY2BGRA);
    }));
    peers.Compare(contrast);

    bench::Contest gray = contest("show gray", 1.0);
    gray.Run = [&] { gCVSShowUCGray(CanvasNumber, images.Planes[0], true); };
    gray.Check = [&] {
        return SurfaceHolds(side, [&](int x, int row) { return images.Planes[0].Ptr2D[row][x] * 0x010101u; });
    };
    gray.Peers.push_back(peer([&] {
        cv::cvtColor(images.PlaneMat(0), mats.Words, cv::COLOR_GRAY2BGRA);
        cv::flip(mats.Words, mats.Turned, 0);
    }));
    peers.Compare(gray);

    bench::Contest color = contest("show color planes", 1.0);
    color.Run = [&] {
        gCVSShowUCColor(CanvasNumber, images.Planes[0], images.Planes[1], images.Planes[2], true);
    };
    color.Check = [&] {
        const auto at = [&](int plane, int x, int row) -> unsigned {
            const std::size_t position =
                static_cast<std::size_t>(row) * static_cast<std::size_t>(side) + static_cast<std::size_t>(x);
            return position < images.Count ? images.Planes[plane].Ptr1D[position] : 0u;
        };
        return SurfaceHolds(side, [&](int x, int row) {
            return at(0, x, row) << 16 | at(1, x + 1, row) << 8 | at(2, x + 2, row);
        });
    };
    color.Peers.push_back(peer([&] {
        const cv::Mat planes[] = {images.PlaneMat(2), images.PlaneMat(1), images.PlaneMat(0)};
        cv::merge(planes, 3, mats.Triples);
        cv::cvtColor(mats.Triples, mats.Words, cv::COLOR_BGR2BGRA);
        cv::flip(mats.Words, mats.Turned, 0);
    }));
    peers.Compare(color);
}

}

int main(int argc, char** argv)
{
    bench::PeerBench peers(argc, argv);
    cv::setNumThreads(1);
    HDC   dc = CreateCompatibleDC(nullptr);
    CRect client(0, 0, 800, 600);
    gCVSSetClient(CanvasNumber, client, dc);
    CompareAll(peers, 4096, true);
    CompareAll(peers, 4095, false);    // rows that end inside a cache line
    CompareAll(peers, 1024, false);
    DeleteDC(dc);
    return peers.Finish();
}
