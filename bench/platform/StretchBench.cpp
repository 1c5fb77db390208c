// The stretches and copies of the portable GDI beside the picture libraries: a 4096 x 4096 canvas shown in a
// client area of 1920 x 1080, everybody on one thread and for the same visible region. Where the picture is
// smaller than the client area only its own part is worked on.

#include "common/MemoryBitmap.h"
#include "support/PeerBench.h"

#include "platform/portable/StretchAxis.h"
#include "vostel/platform.h"

#include <QImage>
#include <QPainter>
#include <cairo.h>
#include <opencv2/core.hpp>
#include <opencv2/imgproc.hpp>
#include <pixman.h>

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <random>
#include <string>
#include <vector>

using namespace vostel;

namespace {

constexpr int CanvasSize = 4096;
constexpr int ClientWidth = 1920;
constexpr int ClientHeight = 1080;

// What the engine asks for at a scale around the middle: the visible part, or the whole for the smooth one.
struct View {
    int Left, Top, Width, Height;                            // target
    int SourceLeft, SourceTop, SourceWidth, SourceHeight;    // source
};

View ViewAt(double scale)
{
    View         view;
    const double shown = CanvasSize * scale;
    view.Width = static_cast<int>(std::min<double>(shown, ClientWidth));
    view.Height = static_cast<int>(std::min<double>(shown, ClientHeight));
    view.Left = (ClientWidth - view.Width) / 2;
    view.Top = (ClientHeight - view.Height) / 2;
    view.SourceWidth = std::min(static_cast<int>(view.Width / scale), CanvasSize);
    view.SourceHeight = std::min(static_cast<int>(view.Height / scale), CanvasSize);
    view.SourceLeft = (CanvasSize - view.SourceWidth) / 2;
    view.SourceTop = (CanvasSize - view.SourceHeight) / 2;
    return view;
}

// The peers' picture of the same canvas: rows from the top.
struct PeerImages {
    PeerImages() : Source(CanvasSize, CanvasSize, CV_8UC4), Target(ClientHeight, ClientWidth, CV_8UC4) {}
    cv::Mat Source, Target;

    // A middle pixel is near what the canvas has there; then the target is cleared for the next one.
    bool Drawn(const View& view)
    {
        const cv::Vec4b drawn = Target.at<cv::Vec4b>(view.Top + view.Height / 2, view.Left + view.Width / 2);
        const cv::Vec4b middle = Source.at<cv::Vec4b>(view.SourceTop + view.SourceHeight / 2,
                                                      view.SourceLeft + view.SourceWidth / 2);
        Target.setTo(0);
        bool near = true;
        for (int channel = 0; channel < 3; ++channel)
            near = near && std::abs(drawn[channel] - middle[channel]) < 40;
        return near && drawn != cv::Vec4b(0, 0, 0, 0);
    }
};

std::string ScaleText(double scale)
{
    char text[16];
    std::snprintf(text, sizeof text, "%g", scale);
    return text;
}

class Arena {
public:
    Arena(bench::PeerBench& bench)
        : Bench(bench), Canvas(CanvasSize, CanvasSize), Client(ClientWidth, ClientHeight)
    {
        // Smooth shades with noise, opaque for those peers that would blend.
        std::mt19937 random(4096);
        for (int y = 0; y < CanvasSize; ++y)
            for (int x = 0; x < CanvasSize; ++x) {
                const unsigned      noise = random();
                const unsigned      red = (static_cast<unsigned>(x) / 20 + (noise & 31u)) & 255u;
                const unsigned      green = (static_cast<unsigned>(y) / 20 + (noise >> 8 & 31u)) & 255u;
                const unsigned      blue = (static_cast<unsigned>(x + y) / 40 + (noise >> 16 & 31u)) & 255u;
                const std::uint32_t pixel = 0xFF000000u | red << 16 | green << 8 | blue;
                Canvas.Pixels()[static_cast<std::size_t>(CanvasSize - 1 - y) * CanvasSize +
                                static_cast<std::size_t>(x)] = pixel;
                std::memcpy(Images.Source.ptr(y) + static_cast<std::ptrdiff_t>(x) * 4, &pixel, 4);
            }
        SourceImage =
            QImage(Images.Source.data, CanvasSize, CanvasSize, CanvasSize * 4, QImage::Format_RGB32);
        TargetImage =
            QImage(Images.Target.data, ClientWidth, ClientHeight, ClientWidth * 4, QImage::Format_RGB32);
        SourceCairo = cairo_image_surface_create_for_data(Images.Source.data, CAIRO_FORMAT_RGB24, CanvasSize,
                                                          CanvasSize, CanvasSize * 4);
        TargetCairo = cairo_image_surface_create_for_data(Images.Target.data, CAIRO_FORMAT_RGB24, ClientWidth,
                                                          ClientHeight, ClientWidth * 4);
        SourcePixman =
            pixman_image_create_bits(PIXMAN_x8r8g8b8, CanvasSize, CanvasSize,
                                     reinterpret_cast<std::uint32_t*>(Images.Source.data), CanvasSize * 4);
        TargetPixman =
            pixman_image_create_bits(PIXMAN_x8r8g8b8, ClientWidth, ClientHeight,
                                     reinterpret_cast<std::uint32_t*>(Images.Target.data), ClientWidth * 4);
    }
    ~Arena()
    {
        pixman_image_unref(SourcePixman);
        pixman_image_unref(TargetPixman);
        cairo_surface_destroy(SourceCairo);
        cairo_surface_destroy(TargetCairo);
    }
    Arena(const Arena&) = delete;
    Arena& operator=(const Arena&) = delete;

    // Between two paints of a host other work passes through the caches. Again, for comparison, is for a
    // picture and a target that still lie there: large frames are streamed by non-temporal stores, which pays
    // only when they do not.
    void Fast(double scale, double atMost, bool again)
    {
        const View     view = ViewAt(scale);
        bench::Contest contest;
        contest.Title = "fast stretch " + ScaleText(scale) + (again ? " again" : "");
        contest.AtMost = atMost;
        contest.ColdCaches = !again;
        contest.Run = [this, view] {
            SetStretchBltMode(Client.Dc, COLORONCOLOR);
            StretchBlt(Client.Dc, view.Left, view.Top, view.Width, view.Height, Canvas.Dc, view.SourceLeft,
                       view.SourceTop, view.SourceWidth, view.SourceHeight, SRCCOPY);
        };
        contest.Check = [this, view] { return FastIsRight(view); };
        AddOpenCv(contest, "opencv nearest", view, cv::INTER_NEAREST);
        AddQt(contest, "qpainter", view, false);
        AddCairo(contest, "cairo nearest", view, CAIRO_FILTER_NEAREST);
        AddPixman(contest, "pixman nearest", view, PIXMAN_FILTER_NEAREST);
        Run(contest);
    }

    void Smooth(double scale)
    {
        const View     view = ViewAt(scale);
        const double   shown = CanvasSize * scale;
        const int      width = static_cast<int>(shown);
        const int      left = static_cast<int>(ClientWidth / 2 - shown / 2);
        const int      top = static_cast<int>(ClientHeight / 2 - shown / 2);
        bench::Contest contest;
        contest.Run = [this, left, top, width] {
            SetStretchBltMode(Client.Dc, HALFTONE);
            StretchBlt(Client.Dc, left, top, width, width, Canvas.Dc, 0, 0, CanvasSize, CanvasSize, SRCCOPY);
        };
        // The plain form is the reference of the others; the tests hold it against the formula.
        contest.Check = [this] {
            if (ActiveCpuVariant() == CpuVariant::Plain)
                Reference.assign(Client.Pixels(), Client.Pixels() + Client.PixelCount());
            return std::memcmp(Reference.data(), Client.Bits, Reference.size() * 4) == 0;
        };
        const std::string text = ScaleText(scale);
        if (scale < 1.0) {
            contest.Title = "quality stretch " + text + " (area)";
            contest.AtMost = 0.2;
            AddOpenCv(contest, "opencv area", view, cv::INTER_AREA);
            Run(contest);
            contest.Title = "quality stretch " + text + " (qt)";
            contest.AtMost = 0.5;
            contest.Peers.clear();
            AddQtScaled(contest, view);
            Run(contest);
        } else {
            contest.Title = "quality stretch " + text;
            AddOpenCv(contest, "opencv linear", view, cv::INTER_LINEAR);
            AddQt(contest, "qpainter smooth", view, true);
            AddPixman(contest, "pixman bilinear", view, PIXMAN_FILTER_BILINEAR);
            Run(contest);
        }
    }

    void Copy()
    {
        MemoryBitmap   from(ClientWidth, ClientHeight);
        bench::Contest contest;
        std::memcpy(from.Bits, Canvas.Bits, static_cast<std::size_t>(ClientWidth) * ClientHeight * 4);
        contest.Title = "copy 1920x1080";
        contest.AtMost = 1.1;
        contest.Run = [this, &from] {
            BitBlt(Client.Dc, 0, 0, ClientWidth, ClientHeight, from.Dc, 0, 0, SRCCOPY);
        };
        contest.Check = [this, &from] {
            return std::memcmp(from.Bits, Client.Bits,
                               static_cast<std::size_t>(ClientWidth) * ClientHeight * 4) == 0;
        };
        contest.Peers.push_back({"memcpy",
                                 [this, &from] {
                                     std::memcpy(Images.Target.data, from.Bits,
                                                 static_cast<std::size_t>(ClientWidth) * ClientHeight * 4);
                                 },
                                 {},
                                 {}});
        Run(contest);
    }

private:
    void Run(const bench::Contest& contest)
    {
        std::memset(Client.Bits, 0, static_cast<std::size_t>(ClientWidth) * ClientHeight * 4);
        Images.Target.setTo(0);
        Bench.Compare(contest);
    }

    // Pixel by pixel after the rule: the last column and the first row of those that fall on the pixel.
    bool FastIsRight(const View& view) const
    {
        gdi::AxisRuns    columns, rows;
        gdi::StretchAxis axis;
        axis.TargetStart = view.Left;
        axis.TargetExtent = view.Width;
        axis.SourceStart = view.SourceLeft;
        axis.SourceExtent = view.SourceWidth;
        axis.TargetSize = ClientWidth;
        axis.SourceSize = CanvasSize;
        columns.Find(axis);
        axis.TargetStart = view.Top;
        axis.TargetExtent = view.Height;
        axis.SourceStart = view.SourceTop;
        axis.SourceExtent = view.SourceHeight;
        axis.TargetSize = ClientHeight;
        rows.Find(axis);
        if (columns.Count != view.Width || rows.Count != view.Height)
            return false;
        for (int y = 0; y < rows.Count; ++y)
            for (int x = 0; x < columns.Count; ++x)
                if (Client.PixelAt(columns.Target + x, rows.Target + y) !=
                    Canvas.PixelAt(columns.Far[static_cast<std::size_t>(x)],
                                   rows.Near[static_cast<std::size_t>(y)]))
                    return false;
        return true;
    }

    void Add(bench::Contest& contest, const std::string& name, const View& view, std::function<void()> run)
    {
        contest.Peers.push_back({name, std::move(run), {}, [this, view] { return Images.Drawn(view); }});
    }

    void AddOpenCv(bench::Contest& contest, const std::string& name, const View& view, int filter)
    {
        const cv::Mat from =
            Images.Source(cv::Rect(view.SourceLeft, view.SourceTop, view.SourceWidth, view.SourceHeight));
        const cv::Mat to = Images.Target(cv::Rect(view.Left, view.Top, view.Width, view.Height));
        Add(contest, name, view, [from, to, filter] {
            cv::Mat target = to;
            cv::resize(from, target, target.size(), 0, 0, filter);
        });
    }

    void AddQt(bench::Contest& contest, const std::string& name, const View& view, bool smooth)
    {
        Add(contest, name, view, [this, view, smooth] {
            QPainter painter(&TargetImage);
            painter.setCompositionMode(QPainter::CompositionMode_Source);
            painter.setRenderHint(QPainter::SmoothPixmapTransform, smooth);
            painter.drawImage(QRect(view.Left, view.Top, view.Width, view.Height), SourceImage,
                              QRect(view.SourceLeft, view.SourceTop, view.SourceWidth, view.SourceHeight));
        });
    }

    void AddQtScaled(bench::Contest& contest, const View& view)
    {
        const QImage part(Images.Source.ptr(view.SourceTop) +
                              static_cast<std::ptrdiff_t>(view.SourceLeft) * 4,
                          view.SourceWidth, view.SourceHeight, CanvasSize * 4, QImage::Format_RGB32);
        Add(contest, "qt smooth", view, [this, part, view] {
            const QImage scaled =
                part.scaled(view.Width, view.Height, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
            for (int y = 0; y < view.Height; ++y)
                std::memcpy(Images.Target.ptr(view.Top + y) + static_cast<std::ptrdiff_t>(view.Left) * 4,
                            scaled.constScanLine(y), static_cast<std::size_t>(view.Width) * 4);
        });
    }

    void AddCairo(bench::Contest& contest, const std::string& name, const View& view, cairo_filter_t filter)
    {
        Add(contest, name, view, [this, view, filter] {
            cairo_t* cairo = cairo_create(TargetCairo);
            cairo_rectangle(cairo, view.Left, view.Top, view.Width, view.Height);
            cairo_clip(cairo);
            cairo_translate(cairo, view.Left, view.Top);
            cairo_scale(cairo, static_cast<double>(view.Width) / view.SourceWidth,
                        static_cast<double>(view.Height) / view.SourceHeight);
            cairo_set_source_surface(cairo, SourceCairo, -view.SourceLeft, -view.SourceTop);
            cairo_pattern_set_filter(cairo_get_source(cairo), filter);
            cairo_set_operator(cairo, CAIRO_OPERATOR_SOURCE);
            cairo_paint(cairo);
            cairo_destroy(cairo);
        });
    }

    void AddPixman(bench::Contest& contest, const std::string& name, const View& view, pixman_filter_t filter)
    {
        Add(contest, name, view, [this, view, filter] {
            pixman_transform_t transform;
            pixman_transform_init_scale(
                &transform, pixman_double_to_fixed(static_cast<double>(view.SourceWidth) / view.Width),
                pixman_double_to_fixed(static_cast<double>(view.SourceHeight) / view.Height));
            transform.matrix[0][2] = pixman_int_to_fixed(view.SourceLeft);
            transform.matrix[1][2] = pixman_int_to_fixed(view.SourceTop);
            pixman_image_set_transform(SourcePixman, &transform);
            pixman_image_set_filter(SourcePixman, filter, nullptr, 0);
            pixman_image_composite32(PIXMAN_OP_SRC, SourcePixman, nullptr, TargetPixman, 0, 0, 0, 0,
                                     view.Left, view.Top, view.Width, view.Height);
        });
    }

    bench::PeerBench&          Bench;
    MemoryBitmap               Canvas, Client;
    PeerImages                 Images;
    QImage                     SourceImage, TargetImage;
    cairo_surface_t*           SourceCairo = nullptr;
    cairo_surface_t*           TargetCairo = nullptr;
    pixman_image_t*            SourcePixman = nullptr;
    pixman_image_t*            TargetPixman = nullptr;
    std::vector<std::uint32_t> Reference;
};

}

int main(int argc, char** argv)
{
    cv::setNumThreads(1);
    bench::PeerBench bench(argc, argv);
    Arena            arena(bench);
    for (const bool again : {false, true}) {
        arena.Fast(0.28, again ? 0.0 : 0.95, again);
        arena.Fast(1.0, again ? 0.0 : 0.75, again);
        arena.Fast(3.6, again ? 0.0 : 0.6, again);
    }
    arena.Smooth(0.28);
    arena.Smooth(1.5);
    arena.Smooth(3.6);
    arena.Copy();
    return bench.Finish();
}
