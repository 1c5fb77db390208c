#include "docks/HistogramPanel.h"

#include "canvas/CanvasView.h"
#include "docks/ColourMenu.h"
#include "hosts/viewer/docks/ShownPanel.h"
#include "hosts/viewer/window/Speaking.h"
#include "plots/HistogramPlot.h"

#include <doctest/doctest.h>

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QElapsedTimer>
#include <QLabel>

#include <limits>
#include <numeric>

using namespace vostel::viewer;

namespace {

struct ShownHistogram : ShownPanel<HistogramPanel> {
    HistogramPlot& Plot = Of<HistogramPlot>("histogram");

    ShownHistogram() : ShownPanel(QSize(420, 420)) {}

    std::uint64_t Total()
    {
        return std::accumulate(Plot.Counts().begin(), Plot.Counts().end(), std::uint64_t(0));
    }
    QString                   Source() { return Of<QLabel>("histogramSource").text(); }
    QPoint                    At(double value) { return QPoint(Plot.PlaceOf(value), Plot.height() / 3); }
    std::pair<double, double> Contrast() { return Open().contrast_get(); }
    void                      Enter(const char* spin, const char* number)
    {
        auto& box = Of<QDoubleSpinBox>(spin);
        hand::Click(box, QPoint(12, box.height() / 2));
        hand::Key("ctrl+a");
        hand::Type(number);
        hand::Key("Return");
    }
};

}

TEST_CASE("the histogram counts the image, or the selected region, and says which")
{
    ShownHistogram at;
    CHECK(at.Source() == "Values of the whole image");
    CHECK(at.Total() == 200 * 150);
    vostel::Object region = at.Open().add_rectangle(10, 10, 30, 20);
    region.set_name("bore");
    at.Open().select({region});
    hand::Settle();
    CHECK(at.Source() == "Values in Rectangle bore");
    CHECK(at.Total() == 200);
    region.set_points({{10, 10}, {40, 20}});
    hand::Settle();
    CHECK(at.Total() == 300);
    at.Open().select({});
    hand::Settle();
    CHECK(at.Total() == 200 * 150);
}

TEST_CASE("both edges of the window and its middle are dragged, one step each")
{
    ShownHistogram at;
    CHECK(at.Contrast() == std::pair(0.0, 199.0));
    hand::Drag(at.Plot, at.At(0), at.At(50));
    CHECK(at.Contrast().first == doctest::Approx(50).epsilon(0.03));
    CHECK(at.Contrast().second == 199.0);
    CHECK(at.Undos() == 1);
    hand::Drag(at.Plot, at.At(199), at.At(150));
    CHECK(at.Contrast().second == doctest::Approx(150).epsilon(0.03));
    const double width = at.Contrast().second - at.Contrast().first;
    hand::Drag(at.Plot, at.At(100), at.At(60));
    CHECK(at.Contrast().first == doctest::Approx(10).epsilon(0.1));
    CHECK(at.Contrast().second - at.Contrast().first == doctest::Approx(width));
    CHECK(at.Undos() == 3);
    CHECK(at.Of<QDoubleSpinBox>("windowLow").value() == doctest::Approx(at.Contrast().first).epsilon(0.01));
    hand::Drag(at.Plot, at.At(80), {-200, 30});
    CHECK(at.Contrast().first == 0.0);    // it stops at the end and keeps its width
    CHECK(at.Contrast().second == doctest::Approx(width));
    at.Open().contrast_marks(0xFF0000FF, 0xFFFF0000, 0);
    at.Open().contrast_map("viridis");
    at.Keep("histogram");
}

TEST_CASE("numbers, percentiles, full range and reset set the window in the image's own values")
{
    ShownHistogram at;
    at.Enter("windowLow", "20.5");
    CHECK(at.Contrast() == std::pair(20.5, 199.0));
    at.Enter("windowHigh", "120");
    CHECK(at.Contrast() == std::pair(20.5, 120.0));
    at.Press("percent1");
    CHECK(at.Contrast().first == doctest::Approx(1.99));    // of 150 equal ones for each value
    CHECK(at.Contrast().second == doctest::Approx(197.01));
    at.Press("percent0.1");
    CHECK(at.Contrast() == std::pair(0.0, 199.0));
    at.Enter("gamma", "2");
    CHECK(at.Open().contrast_info().gamma == 2.0);
    at.Enter("windowLow", "90");
    at.Press("fullRange");
    CHECK(at.Contrast() == std::pair(0.0, 199.0));
    CHECK(at.Open().contrast_info().gamma == 2.0);
    at.Press("resetContrast");
    CHECK(at.Open().contrast_info().gamma == 1.0);
    CHECK(at.LastStep() == "Reset contrast");
    at.Open().undo();
    hand::Settle();
    CHECK(at.Of<QDoubleSpinBox>("gamma").value() == 2.0);
}

TEST_CASE("color maps have Chinese names where those are words, and mean the same maps")
{
    const Speaking chinese("zh_CN");
    ShownHistogram at;
    auto&          map = at.Of<QComboBox>("colorMap");
    CHECK(map.currentText() == QString::fromUtf8("灰度"));
    map.setCurrentText(QString::fromUtf8("反相"));
    CHECK(at.Open().contrast_map_name() == "inverted");
    map.setCurrentText(QStringLiteral("viridis"));
    CHECK(at.Open().contrast_map_name() == "viridis");
    at.Open().contrast_map("fire");
    hand::Settle();
    CHECK(map.currentText() == QString::fromUtf8("火焰"));
}

TEST_CASE("color maps, marks and the scale of counts are chosen")
{
    ShownHistogram at;
    auto&          map = at.Of<QComboBox>("colorMap");
    hand::Click(map);
    hand::Key("Down");
    hand::Key("Return");
    CHECK(at.Open().contrast_map_name() == map.itemText(1).toStdString());
    CHECK(map.itemText(0) == "gray");
    at.Press("markAbove");
    for (ColourMenu* const menu : at.Window.findChildren<ColourMenu*>())
        if (menu->isVisible())
            hand::Choose(*menu, "Red");
    CHECK(at.Open().contrast_info().above == 0xFFFF3B30);
    CHECK(at.Open().contrast_info().below == 0);
    const QImage linear = at.Plot.grab().toImage();
    hand::Click(at.Of<QComboBox>("histogramScale"));
    hand::Key("Down");
    hand::Key("Return");
    CHECK(at.Of<QComboBox>("histogramScale").currentText() == "Logarithmic counts");
    CHECK_FALSE(at.Of<QComboBox>("histogramChannel").isVisible());
}

TEST_CASE("of colors a channel is chosen, of whole numbers no bin is counted twice")
{
    ShownHistogram            at;
    std::vector<std::uint8_t> red(3 * 100, 0);
    for (std::size_t i = 0; i < red.size(); i += 3)
        red[i] = 200;
    at.Open().image_show(VOSTEL_RGB8, red.data(), 10, 10);
    hand::Settle();
    REQUIRE(at.Plot.Counts().size() == 256);
    CHECK(at.Plot.Counts()[59] == 100);    // luma
    at.Of<QComboBox>("histogramChannel").setCurrentIndex(1);
    hand::Settle();
    CHECK(at.Plot.Counts()[200] == 100);
    CHECK(at.Contrast() == std::pair(0.0, 255.0));
    std::vector<std::uint16_t> ramp(1000);
    std::iota(ramp.begin(), ramp.end(), std::uint16_t(0));
    at.Open().image_show(VOSTEL_U16, ramp.data(), 100, 10);
    hand::Settle();
    REQUIRE(at.Plot.Counts().size() == 500);
    CHECK(at.Plot.Counts()[0] == 2);
    CHECK(at.Plot.Counts()[499] == 2);
}

TEST_CASE("values that are not finite are told, and an empty canvas too")
{
    ShownHistogram     at;
    std::vector<float> values(100, 1.0F);
    values[3] = std::numeric_limits<float>::quiet_NaN();
    at.Open().image_show(VOSTEL_F32, values.data(), 10, 10);
    hand::Settle();
    CHECK(at.Source().contains("1 not finite"));
    CHECK(at.Total() == 99);
    at.Window.SetCanvas(nullptr);
    CHECK(at.Source() == "No canvas");
    CHECK(at.Total() == 0);
}

TEST_CASE("a drag of the window follows at once on an image of 4096 x 4096 floats")
{
    ShownHistogram     at;
    std::vector<float> values(4096 * 4096);
    for (std::size_t i = 0; i < values.size(); ++i)
        values[i] = static_cast<float>(i * 2654435761U % 10007);
    at.Open().image_show(VOSTEL_F32, values.data(), 4096, 4096);
    hand::Settle();
    REQUIRE(at.Total() == values.size());
    QElapsedTimer time;
    constexpr int Moves = 30;
    const double  low = at.Contrast().first;
    time.start();
    for (int i = 1; i <= Moves; ++i) {
        Q_EMIT at.Plot.windowDragged(low + 100 * i, 10006.0);
        QApplication::processEvents();
    }
    const double each = static_cast<double>(time.elapsed()) / Moves;
    MESSAGE("a move of the window with its panel drawn: ", each, " ms");
    CHECK(at.Contrast().first == low + 100 * Moves);
    CHECK(each < 100.0);    // of a busy computer; 16 are wanted
}
