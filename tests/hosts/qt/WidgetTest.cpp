// The widget and the dialogs inside this program, on the toolkit's screen in memory.

#include "FramePainter.h"
#include "NameFilters.h"
#include "VostelWidget.h"
#include "dialogs/ParameterDialogs.h"
#include "dialogs/RawLayoutDialog.h"
#include "dialogs/RegionDialog.h"

#include "support/TempFolder.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QFile>
#include <QImage>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QPushButton>
#include <QSpinBox>
#include <QTimer>
#include <QWheelEvent>

#include <doctest/doctest.h>

#include <vector>

using namespace vostel::widget;

namespace {

// A widget of 200 x 150 that shows an image of 100 x 80.
struct ShownCanvas {
    VostelWidget Widget{0};

    ShownCanvas()
    {
        Widget.resize(200, 150);
        Widget.show();
        QApplication::processEvents();
        std::vector<float> ramp(100 * 80);
        for (std::size_t i = 0; i < ramp.size(); ++i)
            ramp[i] = static_cast<float>(i);
        gCVSShowRawFloat(0, ramp.data(), 100, 80, true, true);
        Widget.refresh();
        QApplication::processEvents();
    }
    ~ShownCanvas() { gCVSDelAllElement(0); }

    void Wheel(int delta, Qt::KeyboardModifiers modifiers)
    {
        const QPointF at(100, 75);
        QWheelEvent   event(at, Widget.mapToGlobal(at), QPoint(), QPoint(0, delta), Qt::NoButton, modifiers,
                            Qt::NoScrollPhase, false);
        QApplication::sendEvent(&Widget, &event);
    }
    void Mouse(QEvent::Type type, QPointF at, Qt::KeyboardModifiers modifiers)
    {
        QMouseEvent event(type, at, Widget.mapToGlobal(at),
                          type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton,
                          type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton, modifiers);
        QApplication::sendEvent(&Widget, &event);
    }
    void DrawRectangle()
    {
        gCVSAddMRectangle(0);
        Mouse(QEvent::MouseButtonPress, {60, 50}, Qt::ShiftModifier);
        Mouse(QEvent::MouseMove, {90, 80}, Qt::ShiftModifier);
        Mouse(QEvent::MouseButtonRelease, {90, 80}, Qt::ShiftModifier);
    }
    void Key(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QKeyEvent event(QEvent::KeyPress, key, modifiers);
        QApplication::sendEvent(&Widget, &event);
    }
    bool HasRegion()
    {
        gCVSGenerateLabel(0, false);
        return gCVSGetLabelImaPtr2D(0)[0][0] == 0;    // without a region every pixel is 1
    }
};

QString VerdictOf(const QDialog& dialog)
{
    for (const QLabel* const label : dialog.findChildren<QLabel*>())
        if (!label->styleSheet().isEmpty())
            return label->text();
    return {};
}

}

TEST_CASE("two half steps of the wheel zoom once, and a turn back starts anew")
{
    ShownCanvas  shown;
    const double before = shown.Widget.zoom();
    shown.Wheel(60, Qt::ControlModifier);
    CHECK(shown.Widget.zoom() == before);
    shown.Wheel(60, Qt::ControlModifier);
    CHECK(shown.Widget.zoom() == doctest::Approx(before * 1.2));
    shown.Wheel(100, Qt::ControlModifier);
    shown.Wheel(-100, Qt::ControlModifier);
    CHECK(shown.Widget.zoom() == doctest::Approx(before * 1.2));
    shown.Wheel(-20, Qt::ControlModifier);
    CHECK(shown.Widget.zoom() == doctest::Approx(before));
    shown.Wheel(120, Qt::NoModifier);
    CHECK(shown.Widget.zoom() == doctest::Approx(before));
}

TEST_CASE("R deletes the selected object, Control and R do not reach the canvas")
{
    ShownCanvas shown;
    REQUIRE_FALSE(shown.HasRegion());
    shown.DrawRectangle();    // a press without a move before it draws too
    REQUIRE(shown.HasRegion());
    shown.Key(Qt::Key_R, Qt::ControlModifier);
    shown.Key(Qt::Key_C, Qt::ControlModifier);
    CHECK(shown.HasRegion());
    shown.Key(Qt::Key_R);
    CHECK_FALSE(shown.HasRegion());
}

TEST_CASE("the cursor signal carries image position and value, and stops outside the image")
{
    ShownCanvas shown;
    QPointF     position;
    float       value = -1.0f;
    int         told = 0, left = 0;
    QObject::connect(&shown.Widget, &VostelWidget::cursorMoved, [&](QPointF at, float v) {
        position = at;
        value = v;
        ++told;
    });
    QObject::connect(&shown.Widget, &VostelWidget::cursorLeft, [&] { ++left; });
    const QPointF at = shown.Widget.widgetPosition({30.0, 20.0});
    shown.Mouse(QEvent::MouseMove, at, Qt::NoModifier);
    CHECK(position == QPointF(30.0, 20.0));
    CHECK(value == 2030.0f);
    shown.Mouse(QEvent::MouseMove, {2, 2}, Qt::NoModifier);
    CHECK(told == 1);
    CHECK(left == 1);
}

TEST_CASE("the frame is the same on an opaque device and on one with transparency")
{
    ShownCanvas shown;
    QImage opaque(200, 150, QImage::Format_RGB32), layered(200, 150, QImage::Format_ARGB32_Premultiplied);
    for (QImage* const image : {&opaque, &layered}) {
        image->fill(Qt::magenta);
        QPainter painter(image);
        PaintFrame(painter, 0, 1.0);
    }
    for (int y = 0; y < 150; ++y)
        for (int x = 0; x < 200; ++x) {
            REQUIRE(qAlpha(layered.pixel(x, y)) == 255);
            REQUIRE((layered.pixel(x, y) & 0xFFFFFF) == (opaque.pixel(x, y) & 0xFFFFFF));
        }
    CHECK((opaque.pixel(100, 75) & 0xFFFFFF) != 0xFF00FF);
}

TEST_CASE("the window services know a living widget by its handle and no other")
{
    ShownCanvas shown;
    int         painted = 0;
    QObject::connect(&shown.Widget, &VostelWidget::painted, [&] { ++painted; });
    MSG message = {};
    message.message = WM_MOUSEMOVE;
    message.hwnd = reinterpret_cast<HWND>(&message);    // no widget
    gCVSRespondToMessage(&message, 0);
    QApplication::processEvents();
    CHECK(painted == 0);
    message.hwnd = shown.Widget.handle();
    gCVSRespondToMessage(&message, 0);
    QApplication::processEvents();
    CHECK(painted == 1);
}

TEST_CASE("a file that cannot be read or whose dialog is cancelled leaves the image and its objects")
{
    ShownCanvas shown;
    shown.DrawRectangle();
    const TempFolder folder;
    const auto       write = [&](const char* name) {
        const QString path = QString::fromStdString(folder.Path(name));
        QFile         file(path);
        REQUIRE(file.open(QIODevice::WriteOnly));
        file.write(QByteArray(64 * 64 * 2, '\0'));
        return path;
    };
    CHECK_FALSE(shown.Widget.open(write("broken.png")));
    CHECK_FALSE(shown.Widget.open(QString::fromStdString(folder.Path("missing.png"))));
    QTimer::singleShot(0, [] {
        if (auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget()))
            dialog->reject();
    });
    CHECK_FALSE(shown.Widget.open(write("plane.raw")));
    CHECK(shown.Widget.imageSize() == QSize(100, 80));
    CHECK(shown.HasRegion());
    QTimer::singleShot(0, [] {
        if (auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget()))
            dialog->accept();
    });
    CHECK(shown.Widget.open(write("plane.raw")));    // asked once only, or it would never end
    CHECK(shown.Widget.imageSize() == QSize(64, 64));
    CHECK_FALSE(shown.HasRegion());
}

TEST_CASE("a raw dialog of the program's own is asked once for a file")
{
    ShownCanvas      shown;
    const TempFolder folder;
    const QString    path = QString::fromStdString(folder.Path("plane.raw"));
    QFile            file(path);
    REQUIRE(file.open(QIODevice::WriteOnly));
    file.write(QByteArray(8 * 4, '\0'));
    file.close();
    int           asked = 0;
    TessikDialogs own;
    own.ImaLoadPara = [&asked](tagZEKImaLoadPara& para) {
        ++asked;
        para.Width = 8;
        para.Height = 4;
        para.DataType = 3;
        return true;
    };
    gDlgSetDialogs(own);
    CHECK(shown.Widget.open(path));
    InstallParameterDialogs();
    CHECK(shown.Widget.imageSize() == QSize(8, 4));
    CHECK(asked == 1);
}

TEST_CASE("a filter becomes one entry a kind, named by its text or by its last extension")
{
    CHECK(
        NameFilters(QStringLiteral("text (*.x)|*.x;*.y|(*.z)|*.z|all|*.*||")) ==
        QStringList{QStringLiteral("text (*.x *.y)"), QStringLiteral("Z (*.z)"), QStringLiteral("all (*)")});
    CHECK(NameFilters(QString()).isEmpty());
}

TEST_CASE("the raw dialog tells at once whether the layout fits the file")
{
    const TempFolder folder;
    const QString    path = QString::fromStdString(folder.Path("data.raw"));
    QFile            file(path);
    REQUIRE(file.open(QIODevice::WriteOnly));
    file.write(QByteArray(640 * 480 * 2, '\0'));
    file.close();
    RawLayoutDialog dialog(path);
    CHECK(dialog.Layout().Width == 640);
    CHECK(dialog.Layout().Height == 480);
    CHECK(VerdictOf(dialog).contains(QStringLiteral("exactly")));
    QSpinBox* const width = dialog.findChildren<QSpinBox*>().front();
    width->setValue(641);
    CHECK(VerdictOf(dialog).contains(QStringLiteral("960 bytes short")));
    width->setValue(639);
    CHECK(VerdictOf(dialog).contains(QStringLiteral("960 bytes more")));
    auto* const ok = dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok);
    CHECK(ok->isEnabled());
    width->setValue(100000);
    dialog.findChildren<QSpinBox*>()[1]->setValue(100000);
    CHECK_FALSE(ok->isEnabled());    // 10^10 pixels
}

TEST_CASE("the region dialog stays inside the image and wants right beyond left")
{
    RegionDialog               dialog(QSize(50, 40));
    const tagZEKImaROIRectPara region = dialog.Region();
    CHECK(region.RoiRight <= 50);
    CHECK(region.RoiBottom <= 40);
    CHECK(region.RoiLeft < region.RoiRight);
    auto* const ok = dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok);
    CHECK(ok->isEnabled());
    dialog.findChildren<QSpinBox*>()[1]->setValue(0);    // right
    CHECK_FALSE(ok->isEnabled());
}
