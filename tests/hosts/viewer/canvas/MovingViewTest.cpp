#include "hosts/viewer/canvas/ShownView.h"
#include "hosts/viewer/docks/ShownPanel.h"

#include <doctest/doctest.h>

using namespace vostel::viewer;

namespace {

// What the window shows, and what a frame made now would.
QImage Seen(CanvasView& view)
{
    return view.grab().toImage().convertToFormat(QImage::Format_RGB32);
}

QImage Wanted(vostel::Canvas& canvas, QSize size)
{
    QImage frame(size, QImage::Format_RGB32);
    canvas.frame_render_to(frame.bits(), frame.width(), frame.height(), frame.bytesPerLine());
    return frame;
}

}

TEST_CASE("after a move over many objects the canvas shows them where they lie, to the pixel")
{
    ShownView at;
    {
        const vostel::Step         many = at.Open().step("many");
        std::vector<vostel::Point> zigzag;
        for (int i = 0; i < 400; ++i)
            zigzag.push_back({static_cast<double>(i % 190 + 5), i % 2 == 0 ? 5.0 : 140.0});
        for (int i = 0; i < Many / 100; ++i)
            at.Open().add_polygon(zigzag);
        at.Open().select({});
    }
    hand::Settle();
    hand::DragMiddle(at.View, {200, 150}, {150, 110});
    const vostel::View moved = at.Open().view_get();
    CHECK(moved.left != 0.0);
    CHECK(hand::Wait([&] { return Seen(at.View) == Wanted(at.Open(), Seen(at.View).size()); }));
    hand::Wheel(at.View, {200, 150}, 2);
    CHECK(at.Open().view_get().scale > moved.scale);
    CHECK(hand::Wait([&] { return Seen(at.View) == Wanted(at.Open(), Seen(at.View).size()); }));
}

TEST_CASE("while a large picture is read its preview stands in the middle, and goes with it")
{
    CanvasModel model;
    CanvasView  view(model);
    hand::Show(view, QRect(50, 40, 400, 300));
    view.SetWaiting(true);
    CHECK_FALSE(view.ShowsPicture());
    QImage preview(100, 100, QImage::Format_RGB32);
    preview.fill(Qt::red);
    view.ShowPreview(preview);
    const QImage seen = Seen(view);
    CHECK(view.ShowsPicture());
    CHECK(QColor(seen.pixel(200, 150)) == QColor(Qt::red));
    CHECK(QColor(seen.pixel(20, 150)) != QColor(Qt::red));    // as high as the canvas, and square
    view.SetWaiting(false);
    CHECK(QColor(Seen(view).pixel(200, 150)) != QColor(Qt::red));
}
