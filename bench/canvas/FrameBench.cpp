// Whole frames: what a host waits for between an event and the screen. A canvas of 4096 x 4096 pixels in a
// client area of 1920 x 1080, with background, outline, slider and progress bar, beside QPainter doing the
// same: a hatched fill, an outline, the image, the controls and the copy to the screen. And a mouse move over
// many objects, beside a loop that touches the same fields.

#include "common/MemoryBitmap.h"
#include "support/PeerBench.h"

#include "canvas/exports/CanvasTable.h"

#include <VostelObj.h>

#include <QGuiApplication>
#include <QImage>
#include <QPainter>

#include <algorithm>

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <random>
#include <string>
#include <vector>

using namespace vostel;

namespace {

constexpr int Canvas = 0;
constexpr int ImageSize = 4096;
constexpr int ClientWidth = 1920;
constexpr int ClientHeight = 1080;

// The host's screen.
class Screen : public MemoryBitmap {
public:
    Screen() : MemoryBitmap(ClientWidth, ClientHeight) {}

    std::vector<std::uint32_t> Copy() const
    {
        return std::vector<std::uint32_t>(Pixels(), Pixels() + PixelCount());
    }
};

// The same frame by QPainter, from the same image.
class QtFrame {
public:
    QtFrame()
        : Image(reinterpret_cast<const uchar*>(gCVSGetCanvasPixelPtr(Canvas)), ImageSize, ImageSize,
                QImage::Format_RGB32),
          Buffer(ClientWidth, ClientHeight, QImage::Format_RGB32), Shown(Buffer.size(), QImage::Format_RGB32)
    {
        Buffer.fill(0);
        Shown.fill(0);
    }

    void Paint()
    {
        const CRect client(0, 0, ClientWidth, ClientHeight);
        const CRect place = gCVSGetCanvasRegion(Canvas);
        {
            QPainter painter(&Buffer);
            painter.fillRect(0, 0, client.right, client.bottom, QColor(0x77, 0x88, 0x99));
            painter.fillRect(0, 0, client.right, client.bottom,
                             QBrush(QColor(0x80, 0x80, 0x80), Qt::DiagCrossPattern));
            painter.setPen(QColor(0, 0, 255));
            painter.drawRect(place.left, place.top, place.Width() - 1, place.Height() - 1);
            const double scale = place.Width() / static_cast<double>(ImageSize);
            const QRect  part(place.left < 0 ? static_cast<int>(-place.left / scale) : 0,
                             place.top < 0 ? static_cast<int>(-place.top / scale) : 0,
                             static_cast<int>(std::min<double>(ImageSize, ClientWidth / scale)),
                             static_cast<int>(std::min<double>(ImageSize, ClientHeight / scale)));
            const QRect target(std::max<int>(place.left, 0), std::max<int>(place.top, 0),
                               std::min(place.Width(), ClientWidth), std::min(place.Height(), ClientHeight));
            painter.drawImage(target, Image, part);
            const QColor face(180, 180, 180), edge(150, 150, 150);
            painter.fillRect(20, 1029, 400, 30, face);
            painter.setPen(QColor(0, 0, 0));
            painter.drawText(QRect(22, 1031, 56, 26), Qt::AlignCenter, QString::fromUtf8("阈值"));
            painter.setPen(edge);
            painter.drawRect(22, 1031, 55, 25);
            painter.drawRect(82, 1031, 335, 25);
            painter.fillRect(82, 1031, 10, 26, QColor(80, 80, 80));
            painter.fillRect(408, 1031, 10, 26, QColor(220, 220, 220));
            painter.fillRect(440, 1029, 300, 30, face);
            painter.fillRect(443, 1032, 147, 24, QColor(100, 100, 100));
        }
        QPainter painter(&Shown);
        painter.setCompositionMode(QPainter::CompositionMode_Source);
        painter.drawImage(0, 0, Buffer);
    }
    bool IsPainted() const { return Shown.pixel(30, 1050) == qRgb(180, 180, 180); }

private:
    QImage Image;    // upside down as the surface is; the work is the same
    QImage Buffer;
    QImage Shown;
};

void ShowNoise()
{
    ClassData2DIO<unsigned char> gray;
    gray.Allocate(ImageSize, ImageSize);
    std::mt19937 random(42);
    for (std::size_t i = 0; i < static_cast<std::size_t>(ImageSize) * ImageSize; ++i)
        gray.Ptr1D[i] = static_cast<unsigned char>(random());
    gCVSShowUCGray(Canvas, gray, true);
}

void BenchFrames(bench::PeerBench& peers, Screen& screen)
{
    struct Step {
        const char* Title;
        int         Zoom;    // wheel steps of 1.2 from the step before
        double      AtMost;
    };
    // 1.2 to the power of -7, 0 and 7.
    const Step steps[] = {{"frame at 0.28", -7, 0.7}, {"frame at 1", 7, 0.6}, {"frame at 3.6", 7, 0.4}};
    QtFrame    qt;
    for (const Step& step : steps) {
        for (int i = 0; i < std::abs(step.Zoom); ++i) {
            gCVSOnMouseWheel(Canvas, MK_CONTROL, step.Zoom > 0 ? 120 : -120, CPoint(960, 540));
            gCVSOnDraw(Canvas, screen.Dc);
        }
        const CpuVariant before = ActiveCpuVariant();
        ForceCpuVariant(CpuVariant::Plain);
        gCVSOnDraw(Canvas, screen.Dc);
        const std::vector<std::uint32_t> reference = screen.Copy();
        ForceCpuVariant(before);

        bench::Contest contest;
        contest.Title = step.Title;
        contest.Run = [&] { gCVSOnDraw(Canvas, screen.Dc); };
        contest.Check = [&] { return screen.Copy() == reference; };
        contest.Peers.push_back({"qpainter", [&] { qt.Paint(); }, {}, [&] { return qt.IsPainted(); }});
        contest.AtMost = step.AtMost;
        peers.Compare(contest);
    }
}

// Polygons of four nodes; the move refreshes the client geometry of each.
void BenchMoves(bench::PeerBench& peers)
{
    for (const int count : {100, 1000, 10000}) {
        gCVSDelAllElement(Canvas);
        for (int i = 0; i < count; ++i)
            gCVSAddPoly(Canvas);
        for (VostelObj* element : gCanvasTable[Canvas].Elements)
            element->ImagePoints = {{10.0, 10.0}, {50.0, 10.0}, {50.0, 40.0}, {10.0, 40.0}};
        gCVSOnMouseMove(Canvas, 0, CPoint(5, 5));

        bench::Contest contest;
        contest.Title = "mouse move over " + std::to_string(count) + " polygons";
        contest.Run = [] { gCVSOnMouseMove(Canvas, 0, CPoint(7, 7)); };
        contest.Check = [] {
            const VostelObj* last = gCanvasTable[Canvas].Elements.back();
            return last->ClientPoints.size() == 4 && last->HandleRects.size() == 4;
        };
        contest.Peers.push_back({"fields touched once",
                                 [] {
                                     CanvasView& view = gCanvasTable[Canvas].View;
                                     for (VostelObj* element : gCanvasTable[Canvas].Elements) {
                                         element->View = &view;
                                         for (std::size_t i = 0; i < element->ImagePoints.size(); ++i) {
                                             const CPoint at(static_cast<int>(element->ImagePoints[i].x),
                                                             static_cast<int>(element->ImagePoints[i].y));
                                             element->ClientPoints[i] = at;
                                             element->HandleRects[i] = CRect(at, at);
                                         }
                                     }
                                 },
                                 {},
                                 {}});
        peers.Compare(contest);
    }
    gCVSDelAllElement(Canvas);
}

}

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication  application(argc, argv);
    bench::PeerBench peers(argc, argv);
    Screen           screen;
    CRect            client(0, 0, ClientWidth, ClientHeight);
    gCVSSetClient(Canvas, client, screen.Dc);
    ShowNoise();
    gCVSShowContrastCtrl(Canvas, true);
    gCVSSetContrastCtrlRectPos(Canvas, 20, 20, 400, 30);
    gCVSShowProgress(Canvas, true);
    gCVSSetProgressRectPos(Canvas, 440, 20, 300, 30);
    BenchFrames(peers, screen);
    BenchMoves(peers);
    return peers.Finish();
}
