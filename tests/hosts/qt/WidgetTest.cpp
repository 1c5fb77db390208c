// The widget inside this program, on the toolkit's screen in memory.

#include "FramePainter.h"
#include "HostServices.h"
#include "NameFilters.h"
#include "dialogs/ParameterDialogs.h"

#include "hosts/qt/ShownCanvas.h"
#include "support/TempFolder.h"

#include <QDialog>
#include <QFile>
#include <QPainter>
#include <QTimer>

#include <doctest/doctest.h>

using namespace vostel::widget;

namespace {

// Counts the library's messages in the place of boxes that nobody would close.
struct CountedMessages {
    int Count = 0;

    CountedMessages()
    {
        VostelHostServices services;
        services.ShowMessage = [this](const CString&) { ++Count; };
        gSetHostServices(services);
    }
    ~CountedMessages() { InstallHostServices(); }
    CountedMessages(const CountedMessages&) = delete;
    CountedMessages& operator=(const CountedMessages&) = delete;
};

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

TEST_CASE("after refresh a press that no move came before lands on a new object where it points")
{
    ShownCanvas           shown;
    const CountedMessages messages;
    gCVSAddPoly(0);
    shown.Widget.refresh();
    for (const QPointF corner : {QPointF(10, 20), QPointF(40, 20), QPointF(40, 60)}) {
        CPoint at;
        gCVSGetDisplayPt(0, corner.x(), corner.y(), at);
        gCVSOnLButtonDown(0, MK_LBUTTON | MK_SHIFT, at);
        gCVSOnLButtonUp(0, MK_SHIFT, at);
    }
    CHECK(messages.Count == 0);    // an object without a view says so
    REQUIRE(gCVSGenerateLabel(0, false) == 1);
    int** const labels = gCVSGetLabelImaPtr2D(0);
    CHECK(labels[79 - 30][30] == 1);
    CHECK(labels[79 - 30][9] == 0);
    CHECK(labels[79 - 19][30] == 0);
}

TEST_CASE("after refresh a rectangle set by numbers is shown without a message")
{
    ShownCanvas           shown;
    const CountedMessages messages;
    TessikDialogs         own;
    own.ImaROIRectPara = [](tagZEKImaROIRectPara& para) {
        para = {10, 60, 20, 50};
        return true;
    };
    gDlgSetDialogs(own);
    gCVSAddCustomRectangle(0);
    InstallParameterDialogs();
    shown.Widget.refresh();
    const QImage  frame = shown.Frame();
    const QPointF corner = shown.Widget.widgetPosition({10.0, 20.0});
    CHECK(messages.Count == 0);
    CHECK(frame.pixelColor(corner.toPoint() + QPoint(5, 0)) == QColor(Qt::red));    // it is selected
}

TEST_CASE("a length drawn without a paint between looks like one that was painted at every step")
{
    const auto drawn = [](bool painted) {
        ShownCanvas shown;
        const auto  mouse = [&](QEvent::Type type, QPointF at) {
            shown.Mouse(type, at, Qt::ShiftModifier);
            if (painted)
                QApplication::processEvents();
        };
        gCVSAddMeasureLine(0, 0.0);
        mouse(QEvent::MouseButtonPress, {20, 120});
        mouse(QEvent::MouseMove, {60, 120});
        mouse(QEvent::MouseButtonRelease, {60, 120});
        return shown.Frame();
    };
    const QImage atOnce = drawn(false);
    CHECK(atOnce == drawn(true));
    CHECK(atOnce.pixelColor(145, 20) == QColor(Qt::white));    // the caption's box, 100 px from the middle
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
