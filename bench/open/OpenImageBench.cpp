// Images by the open interface: shown again and rendered, and a change of contrast, beside the classic calls;
// histogram and percentiles beside OpenCV and the standard library. 4096 x 4096 floats.

#include "canvas/exports/CanvasTable.h"
#include "common/MemoryBitmap.h"
#include "support/PeerBench.h"

#include <VostelObj.h>
#include <vostel.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <functional>
#include <opencv2/core.hpp>
#include <opencv2/imgproc.hpp>
#include <random>
#include <string>
#include <vector>

using namespace vostel;

namespace {

constexpr int Side = 4096;
constexpr int ClassicCanvas = 0;
constexpr int ClientWidth = 1920;
constexpr int ClientHeight = 1080;

// Everybody starts with caches full of other data and nothing of his forerunner's left to write back. The
// classic calls are peers here, and run as hosts run them: in the best variant.
class FairStart {
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

std::function<void()> InBestVariant(std::function<void()> run)
{
    return [run = std::move(run)] {
        const CpuVariant before = ActiveCpuVariant();
        ForceCpuVariant(BestCpuVariant());
        run();
        ForceCpuVariant(before);
    };
}

std::vector<float> RandomFloats()
{
    std::mt19937                          random(4096);
    std::uniform_real_distribution<float> values(-300.0f, 4000.0f);
    std::vector<float>                    floats(std::size_t{Side} * Side);
    for (float& v : floats)
        v = values(random);
    return floats;
}

// Each surface pixel within one level of the formula.
bool ShowsWindow(int canvas, const std::vector<float>& floats, double low, double high)
{
    const unsigned int* const pixels = gCVSGetCanvasPixelPtr(canvas);
    for (int y = 0; y < Side; ++y) {
        const unsigned int* const row = pixels + static_cast<std::size_t>(Side - 1 - y) * Side;
        for (int x = 0; x < Side; ++x) {
            const double v =
                static_cast<double>(floats[static_cast<std::size_t>(y) * Side + static_cast<std::size_t>(x)]);
            const double share = std::clamp((v - low) / (high - low), 0.0, 1.0);
            if (std::fabs(static_cast<double>(row[x] & 0xFF) - share * 255.0) > 1.0)
                return false;
        }
    }
    return true;
}

class Arena {
public:
    Arena(bench::PeerBench& peers) : Peers(peers), Floats(RandomFloats()), Screen(ClientWidth, ClientHeight)
    {
        vostel_canvas_create(ClientWidth, ClientHeight, &Canvas);
        vostel_image_show(Canvas, VOSTEL_F32, Floats.data(), Side, Side, 0, 0);
        CRect client(0, 0, ClientWidth, ClientHeight);
        gCVSSetClient(Canvas, client, Screen.Dc);
        gCVSSetClient(ClassicCanvas, client, Screen.Dc);
        gCVSShowRawFloat(ClassicCanvas, Floats.data(), Side, Side, true, true);
        for (int canvas : {static_cast<int>(Canvas), ClassicCanvas}) {
            for (int i = 0; i < 7; ++i)
                gCVSOnMouseWheel(canvas, MK_CONTROL, -120, CPoint(ClientWidth / 2, ClientHeight / 2));
        }
    }

    void Contrast(const char* title, const char* map, double gamma, std::uint32_t marks, double atMost)
    {
        vostel_contrast_map(Canvas, map);
        vostel_contrast_gamma(Canvas, gamma);
        vostel_contrast_marks(Canvas, marks, marks, marks);
        bench::Contest contest = Start(title, atMost);
        contest.Run = [this] { vostel_contrast_set(Canvas, 100.0, 3000.0); };
        if (std::string(map) == "gray" && gamma == 1.0 && marks == 0)
            contest.Check = [this] { return ShowsWindow(Canvas, Floats, 100.0, 3000.0); };
        contest.Peers.push_back({"gCVSSetLutPara",
                                 InBestVariant([] { gCVSSetLutPara(ClassicCanvas, 0.1f, 0.7f); }),
                                 std::ref(Cold),
                                 {}});
        Peers.Compare(contest);
    }

    void ShowAndPaint()
    {
        constexpr std::uint32_t keep = VOSTEL_KEEP_OBJECTS | VOSTEL_KEEP_VIEW | VOSTEL_KEEP_CONTRAST;
        vostel_contrast_map(Canvas, "gray");
        vostel_contrast_gamma(Canvas, 1.0);
        vostel_contrast_marks(Canvas, 0, 0, 0);
        vostel_contrast_set(Canvas, 100.0, 3000.0);
        bench::Contest contest = Start("show floats again and paint, 0.28, a thread per processor", 1.05);
        contest.Run = [this, keep] {
            vostel_image_show(Canvas, VOSTEL_F32, Floats.data(), Side, Side, 0, keep);
            gCVSOnDraw(Canvas, Screen.Dc);
        };
        contest.Check = [this] { return ShowsWindow(Canvas, Floats, 100.0, 3000.0); };
        contest.Peers.push_back({"gCVSShowRawFloat",
                                 InBestVariant([this] {
                                     gCVSShowRawFloat(ClassicCanvas, Floats.data(), Side, Side, true, false);
                                     gCVSOnDraw(ClassicCanvas, Screen.Dc);
                                 }),
                                 std::ref(Cold),
                                 {}});
        Peers.Compare(contest);
    }

    void Histogram()
    {
        constexpr int              bins = 1024;
        std::vector<std::uint64_t> counts(bins);
        bench::Contest             contest = Start("histogram, 1,024 bins", 0.9);
        contest.Run = [&] { vostel_histogram(Canvas, 0, 0, -300.0, 4000.0, bins, counts.data()); };
        contest.Check = [&] {
            std::vector<std::uint64_t> plain(bins + 1);
            const double               width = 4300.0 / bins;
            for (const float v : Floats) {
                int bin = static_cast<int>((static_cast<double>(v) + 300.0) / width);
                bin = std::clamp(bin, 0, bins - 1);
                while (bin > 0 && static_cast<double>(v) < -300.0 + bin * width)
                    --bin;
                while (bin < bins - 1 && static_cast<double>(v) >= -300.0 + (bin + 1) * width)
                    ++bin;
                ++plain[static_cast<std::size_t>(bin)];
            }
            return std::equal(counts.begin(), counts.end(), plain.begin());
        };
        const cv::Mat mat(Side, Side, CV_32F, Floats.data());
        cv::Mat       peer;
        contest.Peers.push_back({"opencv calcHist",
                                 [&] {
                                     const int    channel = 0, size = bins;
                                     const float  range[] = {-300.0f, 4000.0f};
                                     const float* ranges[] = {range};
                                     cv::calcHist(&mat, 1, &channel, cv::Mat(), peer, 1, &size, ranges);
                                 },
                                 std::ref(Cold),
                                 {}});
        Peers.Compare(contest);
    }

    void Percentiles()
    {
        bench::Contest contest = Start("percentiles 0.5 and 99.5, shown", 0.3);
        contest.Run = [this] { vostel_contrast_percentiles(Canvas, 0.5, 99.5); };
        contest.Check = [this] {
            std::vector<float> sorted = Floats;
            std::sort(sorted.begin(), sorted.end());
            double ends[2];
            vostel_contrast_get(Canvas, &ends[0], &ends[1]);
            for (int i = 0; i < 2; ++i) {
                const double      place = (i == 0 ? 0.005 : 0.995) * static_cast<double>(sorted.size() - 1);
                const std::size_t below = static_cast<std::size_t>(place);
                const double      a = static_cast<double>(sorted[below]),
                             b = static_cast<double>(sorted[below + 1]);
                if (std::fabs(ends[i] - (a + (b - a) * (place - static_cast<double>(below)))) > 1e-9)
                    return false;
            }
            return true;
        };
        // Both ranks and their neighbours, in one partition after the other.
        std::vector<float> scratch(Floats.size());
        contest.Peers.push_back({"std::nth_element",
                                 [&] {
                                     std::copy(Floats.begin(), Floats.end(), scratch.begin());
                                     const auto place = [&](double share) {
                                         return scratch.begin() +
                                                static_cast<std::ptrdiff_t>(
                                                    share * static_cast<double>(scratch.size() - 1));
                                     };
                                     std::nth_element(scratch.begin(), place(0.005), scratch.end());
                                     std::nth_element(place(0.005) + 1, place(0.995), scratch.end());
                                     std::nth_element(place(0.005) + 1, place(0.005) + 1, place(0.995));
                                     std::nth_element(place(0.995) + 1, place(0.995) + 1, scratch.end());
                                 },
                                 std::ref(Cold),
                                 {}});
        Peers.Compare(contest);
    }

private:
    bench::PeerBench&  Peers;
    std::vector<float> Floats;
    MemoryBitmap       Screen;
    std::int32_t       Canvas = -1;
    FairStart          Cold;

    bench::Contest Start(const char* title, double atMost)
    {
        bench::Contest contest;
        contest.Title = title;
        contest.Prepare = std::ref(Cold);
        contest.AtMost = atMost;
        return contest;
    }
};

}

int main(int argc, char** argv)
{
    bench::PeerBench peers(argc, argv);
    cv::setNumThreads(1);
    Arena arena(peers);
    arena.Contrast("contrast change, a thread per processor", "gray", 1.0, 0, 1.1);
    arena.Contrast("contrast change with a color map, a thread per processor", "viridis", 1.0, 0, 1.1);
    arena.Contrast("contrast change with map and marks, a thread per processor", "viridis", 1.0, 0xFFFF0000u,
                   1.1);
    arena.Contrast("contrast change with gamma, a thread per processor", "gray", 2.2, 0, 0.0);
    arena.ShowAndPaint();
    arena.Histogram();
    arena.Percentiles();
    return peers.Finish();
}
