#include "hosts/viewer/documents/MadeFiles.h"
#include "hosts/viewer/users/AtTheWindow.h"

#include "plots/HistogramPlot.h"

#include <QDoubleSpinBox>
#include <QTimer>

using namespace vostel::viewer;

namespace {

QImage Frame(ShownWindow& at)
{
    QImage frame(at.View().size(), QImage::Format_RGB32);
    at.Open().frame_render_to(frame.bits(), frame.width(), frame.height(), frame.bytesPerLine());
    return frame;
}

// The place of all pixels that differ, and how many they are.
struct Difference {
    QRect Place;
    int   Count = 0;

    Difference(const QImage& a, const QImage& b)
    {
        for (int y = 0; y < a.height(); ++y)
            for (int x = 0; x < a.width(); ++x)
                if (a.pixel(x, y) != b.pixel(x, y)) {
                    Place |= QRect(x, y, 1, 1);
                    ++Count;
                }
    }
};

// How many white pixels an object has; nearly all are the paper of its caption.
int Paper(ShownWindow& at, vostel::Object object)
{
    const QImage with = Frame(at);
    object.set_flags(VOSTEL_HIDDEN);
    const QImage without = Frame(at);
    at.Open().undo();
    int count = 0;
    for (int y = 0; y < with.height(); ++y)
        for (int x = 0; x < with.width(); ++x)
            if (QColor(with.pixel(x, y)) == QColor(Qt::white) && with.pixel(x, y) != without.pixel(x, y))
                ++count;
    return count;
}

void ShowGray(ShownWindow& at)
{
    const std::vector<std::uint8_t> gray(400 * 300, 90);
    at.Open().image_show(VOSTEL_U8, gray.data(), 400, 300);
    at.View().Fit();
    hand::Settle();
}

}

TEST_CASE("the caption of a length is whole at every edge of the picture")
{
    ShownWindow at;
    ShowGray(at);
    hand::Key("l");
    at.Drag(150, 150, 250, 150);
    at.Drag(150, 1, 250, 1);
    at.Drag(150, 298, 250, 298);
    at.Drag(1, 100, 1, 200);
    at.Drag(398, 100, 398, 200);
    hand::Key("Escape");
    at.Open().select({});
    hand::Keep(at.Window, "captions-at-edges");
    const std::vector<vostel::Object> lengths = at.Open().object_list();
    REQUIRE(lengths.size() == 5);
    const int middle = Paper(at, lengths[0]);
    CHECK(middle > 1000);
    for (std::size_t i = 1; i < lengths.size(); ++i) {
        INFO(i);
        CHECK(Paper(at, lengths[i]) * 10 > middle * 9);
    }
}

TEST_CASE("windows of values lie where they were clicked, none over another")
{
    ShownWindow at;
    ShowGray(at);
    const QImage bare = Frame(at);
    hand::Choose(at.Window, "measure.panel");
    hand::Click(at.View(), QPoint(20, 20));
    const Difference panel(bare, Frame(at));
    hand::Choose(at.Window, "measure.neighbours");
    const QImage before = Frame(at);
    hand::Click(at.View(), QPoint(20, at.View().height() / 2));
    const Difference neighbours(before, Frame(at));
    hand::Keep(at.Window, "windows-of-values");
    REQUIRE(at.Open().object_list().size() == 2);
    const vostel::ObjectInfo one = at.Open().object_list()[0].info(),
                             other = at.Open().object_list()[1].info();
    CHECK(panel.Count > 0);
    CHECK(neighbours.Count > 0);
    CHECK(one.top == doctest::Approx(20.0).epsilon(0.2));
    CHECK(one.bottom < other.top);
    CHECK_FALSE(at.View().IsArmed());    // another click adds none
}

TEST_CASE("the contrast of gray, color and deep pictures follows the histogram and its numbers")
{
    const MadeFiles files;
    QImage          color(40, 30, QImage::Format_RGB32);
    for (int y = 0; y < 30; ++y)
        for (int x = 0; x < 40; ++x)
            color.setPixel(x, y, qRgb(6 * x, 8 * y, 120));
    REQUIRE(color.save(files.Path("color.png")));
    for (const QString& path :
         {ShownWindow::Sample(), files.Path("color.png"), files.Deep("deep.png", 40, 30, 20000)}) {
        INFO(path.toStdString());
        ShownWindow at({path});
        if (!hand::Of<QWidget>(at.Window, "Histogram").isVisible())
            hand::Key("F6");
        auto&        plot = hand::Of<HistogramPlot>(at.Window, "histogram");
        const auto   was = at.Open().contrast_get();
        const QImage before = Frame(at);
        const int    y = plot.height() / 3;
        hand::Drag(plot, {plot.PlaceOf(was.second), y},
                   {plot.PlaceOf(was.first + (was.second - was.first) * 0.4), y});
        CHECK(at.Open().contrast_get().second < was.first + (was.second - was.first) * 0.6);
        CHECK(Difference(before, Frame(at)).Count > 100);
        CHECK(hand::Of<QDoubleSpinBox>(at.Window, "windowHigh").value() ==
              doctest::Approx(at.Open().contrast_get().second).epsilon(0.01));
        at.View().setFocus();
        hand::Key("ctrl+z");
        CHECK(at.Open().contrast_get() == was);
        CHECK(Difference(before, Frame(at)).Count == 0);
    }
}

TEST_CASE("the whole image is in the middle and fills the canvas after any way of zooming")
{
    ShownWindow at;
    for (const int steps : {-40, 40, 3}) {
        INFO(steps);
        hand::Wheel(at.View(), at.View().rect().center() + QPoint(90, 40), steps);
        hand::Key("ctrl+0");
        const QPointF first = at.View().PositionOf({0, 0}), last = at.View().PositionOf({384, 303});
        CHECK(first.x() >= -1.0);
        CHECK(first.y() >= -1.0);
        CHECK(std::abs(first.x() - (at.View().width() - last.x())) <= 2.0);
        CHECK(std::abs(first.y() - (at.View().height() - last.y())) <= 2.0);
        CHECK(std::min(first.x(), first.y()) <= 2.0);    // no room is left unused
    }
}

TEST_CASE("a right click selects what is under it and offers what can be done with it")
{
    ShownWindow at;
    hand::Key("r");
    at.Drag(100, 100, 200, 160);
    hand::Key("Escape");
    hand::Key("Escape");
    CHECK(at.Open().selection().empty());
    QStringList offered;
    QTimer      look;
    QObject::connect(&look, &QTimer::timeout, &look, [&] {
        auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        if (!menu)
            return;
        look.stop();
        for (const QAction* const action : menu->actions())
            if (action->isEnabled() && !action->isSeparator())
                offered << action->objectName();
        menu->close();
    });
    look.start(10);
    hand::RightClick(at.View(), at.At(100, 130));
    REQUIRE(hand::Wait([&] { return !look.isActive(); }));
    for (const char* const command :
         {"edit.delete", "edit.copy", "edit.duplicate", "view.fit", "view.actual"})
        CHECK_MESSAGE(offered.contains(QLatin1String(command)), command);
    CHECK(at.Open().selection().size() == 1);
}

TEST_CASE("while a picture is read the canvas is busy and says so")
{
    ShownWindow at{QStringList()};
    at.Window.OpenFiles({ShownWindow::Sample()});
    CHECK(at.View().cursor().shape() == Qt::BusyCursor);
    hand::Wait([&] { return !at.Window.Shown().IsReading(); });
    hand::Settle();
    CHECK(at.View().cursor().shape() != Qt::BusyCursor);
    CHECK(at.View().isEnabled());
}
