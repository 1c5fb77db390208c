// Single calls through the exports, as a host makes them between other work: before each one, memory as large
// as the caches passes through them, so that neither ours nor a peer's finds what it left there itself. The
// benches beside this one repeat short calls, which leaves their data in the caches. Processors as many as
// there are, unless a title says otherwise.

#include "common/MemoryBitmap.h"
#include "support/PeerBench.h"

#include "foundation/RowThreads.h"
#include "platform/System.h"

#include <VostelObj.h>

#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <cairo.h>
#include <fftw3.h>
#include <opencv2/core.hpp>
#include <opencv2/imgcodecs.hpp>
#include <opencv2/imgproc.hpp>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <functional>
#include <memory>
#include <random>
#include <string>
#include <vector>

using namespace vostel;

namespace {

using FloatPlane = ClassData2DIO<float>;
using BytePlane = ClassData2DIO<unsigned char>;

constexpr int Canvas = 0;
constexpr int Side = 4096;

template <typename T>
void FillRandomly(ClassData2DIO<T>& plane, int width, int height, double low, double high)
{
    std::mt19937                           random(4096);
    std::uniform_real_distribution<double> values(low, high);
    plane.Allocate(width, height);
    for (std::ptrdiff_t i = 0; i < static_cast<std::ptrdiff_t>(width) * height; ++i)
        plane.Ptr1D[i] = static_cast<T>(values(random));
}

cv::Mat View(FloatPlane& plane)
{
    return cv::Mat(plane.Height, plane.Width, CV_32FC1, plane.Ptr1D);
}

void UseThreads(int threads)
{
    ForceRowThreads(threads);
    cv::setNumThreads(threads);
}

// What the plain variant gives is the reference of the others; the tests and the other benches hold it
// against the formulas.
std::function<bool()> SameAsPlain(std::function<std::pair<const void*, std::size_t>()> result)
{
    const auto plain = std::make_shared<std::vector<unsigned char>>();
    return [result = std::move(result), plain] {
        const auto [data, bytes] = result();
        const auto* const first = static_cast<const unsigned char*>(data);
        if (ActiveCpuVariant() == CpuVariant::Plain)
            plain->assign(first, first + bytes);
        return plain->size() == bytes && std::memcmp(plain->data(), first, bytes) == 0;
    };
}

template <typename T>
std::function<bool()> SameAsPlain(const ClassData2DIO<T>& plane)
{
    return SameAsPlain([&plane] {
        return std::pair<const void*, std::size_t>(
            plane.Ptr1D, sizeof(T) * static_cast<std::size_t>(plane.Width) * plane.Height);
    });
}

bench::Contest ColdContest(const std::string& title, double atMost)
{
    bench::Contest contest;
    contest.Title = title;
    contest.AtMost = atMost;
    contest.ColdCaches = true;
    return contest;
}

// A canvas of 4096 x 4096 in a client area of 1920 x 1080: background, image and copy to the screen.
class Frames {
public:
    explicit Frames(bench::PeerBench& peers) : Peers(peers), Screen(Width, Height)
    {
        CRect client(0, 0, Width, Height);
        gCVSSetClient(Canvas, client, Screen.Dc);
        BytePlane gray;
        FillRandomly(gray, Side, Side, 0.0, 256.0);
        gCVSShowUCGray(Canvas, gray, true);
        Image = QImage(reinterpret_cast<const uchar*>(gCVSGetCanvasPixelPtr(Canvas)), Side, Side,
                       QImage::Format_RGB32);
        Buffer = QImage(Width, Height, QImage::Format_RGB32);
        Shown = QImage(Width, Height, QImage::Format_RGB32);
        Buffer.fill(0);
        Shown.fill(0);
    }

    // By wheel steps of 1.2 from the scale before.
    void Compare(int steps, const std::string& scale, double atMost)
    {
        for (int i = 0; i < std::abs(steps); ++i) {
            gCVSOnMouseWheel(Canvas, MK_CONTROL, steps > 0 ? 120 : -120, CPoint(Width / 2, Height / 2));
            gCVSOnDraw(Canvas, Screen.Dc);
        }
        bench::Contest contest = ColdContest("gCVSOnDraw at " + scale, atMost);
        contest.Run = [this] { gCVSOnDraw(Canvas, Screen.Dc); };
        contest.Check = SameAsPlain(
            [this] { return std::pair<const void*, std::size_t>(Screen.Pixels(), 4 * Screen.PixelCount()); });
        contest.Peers.push_back({"qpainter hatch, drawImage, copy",
                                 [this] { PaintByQt(); },
                                 {},
                                 [this] { return Shown.pixel(Width / 2, Height / 2) == Middle(); }});
        Peers.Compare(contest);
    }

private:
    static constexpr int Width = 1920;
    static constexpr int Height = 1080;

    void PaintByQt()
    {
        const CRect  place = gCVSGetCanvasRegion(Canvas);
        const double scale = place.Width() / static_cast<double>(Side);
        {
            QPainter painter(&Buffer);
            painter.fillRect(0, 0, Width, Height, QColor(0x77, 0x88, 0x99));
            painter.fillRect(0, 0, Width, Height, QBrush(QColor(0x80, 0x80, 0x80), Qt::DiagCrossPattern));
            Part = QRect(place.left < 0 ? static_cast<int>(-place.left / scale) : 0,
                         place.top < 0 ? static_cast<int>(-place.top / scale) : 0,
                         static_cast<int>(std::min<double>(Side, Width / scale)),
                         static_cast<int>(std::min<double>(Side, Height / scale)));
            Target = QRect(std::max<int>(place.left, 0), std::max<int>(place.top, 0),
                           std::min(place.Width(), Width), std::min(place.Height(), Height));
            painter.drawImage(Target, Image, Part);
        }
        QPainter painter(&Shown);
        painter.setCompositionMode(QPainter::CompositionMode_Source);
        painter.drawImage(0, 0, Buffer);
    }
    // The image is gray throughout, which the background is nowhere.
    QRgb Middle() const
    {
        const QRgb shown = Shown.pixel(Width / 2, Height / 2);
        return qRgb(qRed(shown), qRed(shown), qRed(shown));
    }

    bench::PeerBench& Peers;
    MemoryBitmap      Screen;
    QImage            Image;    // upside down as the surface is; the work is the same
    QImage            Buffer, Shown;
    QRect             Part, Target;
};

void CompareContrast(bench::PeerBench& peers, int side, double atMost)
{
    FloatPlane floats;
    FillRandomly(floats, side, side, -300.0, 4000.0);
    gCVSShowRawFloat(Canvas, floats, true, true);
    cv::Mat           gray(side, side, CV_8U, cv::Scalar(1)), pixels(side, side, CV_8UC4, cv::Scalar(1));
    const std::size_t count = static_cast<std::size_t>(side) * static_cast<std::size_t>(side);
    cv::setNumThreads(1);    // the call has one
    // The two ends alternate, as a host's slider moves: the same ones again would leave the tables as they
    // are.
    bool              turn = false;
    const std::string size = std::to_string(side) + " x " + std::to_string(side);
    bench::Contest    contest = ColdContest("gCVSSetLutPara " + size + ", label plane", atMost);
    contest.Run = [&] {
        turn = !turn;
        gCVSSetLutPara(Canvas, turn ? 0.1f : 0.11f, 0.9f);
    };
    const std::function<bool()> pixelsAreRight = SameAsPlain(
        [&] { return std::pair<const void*, std::size_t>(gCVSGetCanvasPixelPtr(Canvas), 4 * count); });
    contest.Check = [&] {
        const int* const label = gCVSGetLabelImaPtr1D(Canvas);
        turn = false;
        gCVSSetLutPara(Canvas, 0.11f, 0.9f);
        return pixelsAreRight() && std::count(label, label + count, 1) == static_cast<std::ptrdiff_t>(count);
    };
    contest.Peers.push_back({"opencv convertTo, cvtColor",
                             [&] {
                                 const double slope = 255.0 / (58981 - 6553);
                                 View(floats).convertTo(gray, CV_8U, slope, -6553 * slope);
                                 cv::cvtColor(gray, pixels, cv::COLOR_GRAY2BGRA);
                             },
                             {},
                             {}});
    peers.Compare(contest);
    UseThreads(ProcessorCount());
}

void CompareBmpReads(bench::PeerBench& peers)
{
    const char* const memory = "/dev/shm";
    const auto        root = std::filesystem::is_directory(memory) ? std::filesystem::path(memory)
                                                                   : std::filesystem::temp_directory_path();
    const std::string folder = (root / ("vostel-cold-" + std::to_string(std::random_device()()))).string();
    std::filesystem::create_directory(folder);
    std::string grayPath = folder + "/gray.bmp";
    std::string colorPath = folder + "/color.bmp";
    BytePlane   red, green, blue, alpha;
    FillRandomly(red, Side, Side, 0.0, 256.0);
    green = red;
    blue = red;
    std::reverse(green.Ptr1D, green.Ptr1D + static_cast<std::ptrdiff_t>(Side) * Side);
    ZEKSaveGrayBmp(grayPath.data(), red);
    ZEKSaveColorBmp(colorPath.c_str(), &red, &green, &blue);

    BytePlane      gray;
    bench::Contest contest = ColdContest("ZEKReadGrayBmp 4096 x 4096, container of another size", 0.75);
    contest.Prepare = [&] {
        gray.Allocate(Side / 2, Side);
        std::memset(gray.Ptr1D, 1, static_cast<std::size_t>(Side) * Side / 2);
    };
    contest.Run = [&] { ZEKReadGrayBmp(grayPath.data(), &gray); };
    contest.Check = SameAsPlain(gray);
    QImage read;
    contest.Peers.push_back({"QImage", [&] { read = QImage(QString::fromStdString(grayPath)); },
                             [&] {
                                 read = QImage(Side / 2, Side, QImage::Format_Grayscale8);
                                 read.fill(1);
                             },
                             [&] { return read.width() == Side; }});
    peers.Compare(contest);

    contest = ColdContest("ZEKReadColorBmp 4096 x 4096", 0.5);
    contest.Run = [&] { ZEKReadColorBmp(colorPath.data(), &red, &green, &blue, &alpha); };
    contest.Check = SameAsPlain(green);
    std::vector<cv::Mat> planes;
    contest.Peers.push_back({"opencv imread, split",
                             [&] {
                                 std::vector<cv::Mat> fresh;
                                 cv::split(cv::imread(colorPath, cv::IMREAD_COLOR), fresh);
                                 planes.swap(fresh);
                             },
                             {},
                             [&] { return planes.size() == 3; }});
    peers.Compare(contest);
    std::filesystem::remove_all(folder);
}

void CompareFilters(bench::PeerBench& peers)
{
    const auto filter = [&peers](const std::string& title, int side, int taps, double atMost,
                                 void (*run)(FloatPlane*, FloatPlane*)) {
        FloatPlane image, kernel, work;
        FillRandomly(image, side, side, 0.0, 4096.0);
        FillRandomly(kernel, taps, taps, -1.0, 1.0);
        work = image;
        FloatPlane     theirs = image;
        cv::Mat        filtered;
        bench::Contest contest = ColdContest(title, atMost);
        contest.Prepare = [&] {
            std::memcpy(work.Ptr1D, image.Ptr1D, sizeof(float) * static_cast<std::size_t>(side) * side);
        };
        contest.Run = [&] { run(&work, &kernel); };
        contest.Check = SameAsPlain(work);
        contest.Peers.push_back({"opencv filter2D",
                                 [&] {
                                     cv::filter2D(View(theirs), filtered, CV_32F, View(kernel),
                                                  cv::Point(-1, -1), 0, cv::BORDER_REFLECT_101);
                                 },
                                 [&] {
                                     std::memcpy(theirs.Ptr1D, image.Ptr1D,
                                                 sizeof(float) * static_cast<std::size_t>(side) * side);
                                 },
                                 {}});
        peers.Compare(contest);
    };
    filter("gConv2 5 on 512 x 512", 512, 5, 0.7,
           [](FloatPlane* image, FloatPlane* kernel) { gConv2(image, kernel); });
    UseThreads(1);
    for (const int taps : {3, 5, 7}) {
        filter("ConvFltVer0 " + std::to_string(taps) + " on 2048 x 2048, one thread", 2048, taps, 0.9,
               [](FloatPlane* image, FloatPlane* kernel) { ConvFltVer0(image, kernel); });
    }
    UseThreads(ProcessorCount());
}

void CompareScalings(bench::PeerBench& peers)
{
    FloatPlane image;
    FillRandomly(image, 2048, 2048, 0.0, 65535.0);
    for (const int side : {1024, 3000}) {
        FloatPlane target;
        cv::Mat    scaled;
        target.Allocate(side, side);
        bench::Contest contest =
            ColdContest("ResizeMC 2048 to " + std::to_string(side), side == 3000 ? 0.95 : 1.0);
        contest.Run = [&] { ResizeMC(&image, &target); };
        contest.Check = SameAsPlain(target);
        contest.Peers.push_back(
            {"opencv resize",
             [&] { cv::resize(View(image), scaled, cv::Size(side, side), 0, 0, cv::INTER_LINEAR); },
             {},
             {}});
        peers.Compare(contest);
    }
}

// Both ways, so that the values stay in range. A single pair of 256 is over in a microsecond: many of them.
void CompareTransforms(bench::PeerBench& peers)
{
    for (const int n : {256, 1024, 4096}) {
        const int  pairs = 131072 / n;
        FloatPlane values;
        FillRandomly(values, n, 2, -1.0, 1.0);
        ZEKPP1DFFT fft;
        fft.Init(n, true);
        bench::Contest contest = ColdContest("RunFFT N = " + std::to_string(n), 1.0);
        contest.Prepare = [&] {
            fft.UpLoadRe(values.Ptr2D[0], n);
            fft.UpLoadIm(values.Ptr2D[1], n);
        };
        contest.Run = [&] {
            for (int i = 0; i < pairs; ++i) {
                fft.RunFFT(true);
                fft.RunFFT(false);
            }
        };
        contest.Check = SameAsPlain([&] {
            return std::pair<const void*, std::size_t>(fft.Re, sizeof(float) * static_cast<std::size_t>(n));
        });
        const auto       there = fftwf_alloc_complex(static_cast<std::size_t>(n));
        const auto       back = fftwf_alloc_complex(static_cast<std::size_t>(n));
        const fftwf_plan forward = fftwf_plan_dft_1d(n, back, there, FFTW_FORWARD, FFTW_MEASURE);
        const fftwf_plan inverse = fftwf_plan_dft_1d(n, there, back, FFTW_BACKWARD, FFTW_MEASURE);
        std::fill_n(&back[0][0], 2 * n, 0.0f);    // the peer scales neither way: others would leave the range
        contest.Peers.push_back({"fftw measured",
                                 [&] {
                                     for (int i = 0; i < pairs; ++i) {
                                         fftwf_execute(forward);
                                         fftwf_execute(inverse);
                                     }
                                 },
                                 {},
                                 {}});
        peers.Compare(contest);
        fftwf_destroy_plan(forward);
        fftwf_destroy_plan(inverse);
        fftwf_free(there);
        fftwf_free(back);
    }
    for (const int n : {256, 1024, 4096, 65536, 1048576}) {
        ZEKPP1DFFT made, fft;
        fft.Init(n, true);
        const int      turns = std::max(1, 65536 / n);
        bench::Contest contest = ColdContest("Init N = " + std::to_string(n), 1.0);
        contest.Run = [&] {
            for (int i = 0; i < turns; ++i)
                made.Init(n, true);
        };
        contest.Check = [&] { return made.SinInverse[n / 4] == 1.0f; };
        contest.Peers.push_back({"ten times RunFFT",
                                 [&] {
                                     for (int i = 0; i < 10 * turns; ++i)
                                         fft.RunFFT(i % 2 == 0);
                                 },
                                 {},
                                 {}});
        peers.Compare(contest);
    }
}

void CompareFill(bench::PeerBench& peers)
{
    using Point = PointTemplateBase<int>;
    std::mt19937                           random(68);
    std::uniform_real_distribution<double> share(0.5, 1.0);
    std::vector<Point>                     outline, points;
    for (int i = 0; i < 100; ++i) {
        const double angle = 6.283185307179586 * i / 100, r = 2040.0 * share(random);
        outline.emplace_back(static_cast<int>(2048.0 + r * std::cos(angle)),
                             static_cast<int>(2048.0 + r * std::sin(angle)));
    }
    ClassData2DIO<int> plane;
    FillRandomly(plane, Side, Side, 0.0, 1.0);
    cairo_surface_t* const surface = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, Side, Side);
    cairo_t* const         cairo = cairo_create(surface);
    cairo_set_antialias(cairo, CAIRO_ANTIALIAS_NONE);
    cairo_set_operator(cairo, CAIRO_OPERATOR_SOURCE);
    cairo_set_source_rgba(cairo, 1.0, 1.0, 1.0, 1.0);
    cairo_paint(cairo);
    bench::Contest contest = ColdContest("fill of 100 vertices, 4096 x 4096", 0.45);
    contest.Run = [&] {
        points = outline;
        FillPolygon(plane, points, 7);
    };
    contest.Check = SameAsPlain(plane);
    contest.Peers.push_back({"cairo fill, no antialiasing",
                             [&] {
                                 cairo_set_source_rgba(cairo, 1.0, 0.5, 0.25, 1.0);
                                 cairo_new_path(cairo);
                                 for (const Point& p : outline)
                                     cairo_line_to(cairo, p.x, p.y);
                                 cairo_close_path(cairo);
                                 cairo_fill(cairo);
                                 cairo_surface_flush(surface);
                             },
                             {},
                             {}});
    peers.Compare(contest);
    cairo_destroy(cairo);
    cairo_surface_destroy(surface);
}

void CompareStitch(bench::PeerBench& peers)
{
    constexpr int side = 2048, overlap = 200, left = side - overlap;
    FloatPlane    a, b, work;
    FillRandomly(a, side, side, 100.0, 1000.0);
    FillRandomly(b, side, side, 200.0, 900.0);
    cv::Mat joined, weightsA(1, overlap, CV_32F), weightsB(1, overlap, CV_32F);
    for (int i = 0; i < overlap; ++i) {
        weightsB.at<float>(i) = static_cast<float>(i) / (overlap - 1);
        weightsA.at<float>(i) = 1.0f - weightsB.at<float>(i);
    }
    bench::Contest contest = ColdContest("gImaConcate 2048 twice", 0.7);
    contest.Prepare = [&] { work = a; };
    contest.Run = [&] { gImaConcate(&work, &b, overlap, 0, true); };
    contest.Check = SameAsPlain(work);
    const auto join = [&](cv::Mat& target) {
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
    contest.Peers.push_back({"opencv, new Mat",
                             [&] {
                                 cv::Mat fresh;
                                 join(fresh);
                                 joined = fresh;
                             },
                             {},
                             {}});
    contest.Peers.push_back({"opencv, last Mat", [&] { join(joined); }, {}, {}});
    peers.Compare(contest);
}

}

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication  application(argc, argv);
    bench::PeerBench peers(argc, argv);
    UseThreads(ProcessorCount());
    {
        Frames frames(peers);
        frames.Compare(-7, "0.279", 0.4);
        frames.Compare(7, "1", 0.45);
        frames.Compare(7, "3.58", 0.35);
    }
    CompareContrast(peers, Side, 0.86);
    CompareContrast(peers, 1024, 0.9);
    CompareBmpReads(peers);
    CompareFilters(peers);
    CompareScalings(peers);
    CompareTransforms(peers);
    CompareFill(peers);
    CompareStitch(peers);
    return peers.Finish();
}
