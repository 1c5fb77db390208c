#include "hosts/viewer/Hand.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QPixmap>
#include <QTimer>
#include <QWindow>

#include <atomic>
#include <thread>

namespace hand {

namespace {

constexpr int Calm = 30;    // ms without an event

Place OnScreen(const QWidget& widget, QPoint at)
{
    const QPoint global = (QPointF(widget.mapToGlobal(at)) * widget.devicePixelRatioF()).toPoint();
    return {global.x(), global.y()};
}

}

void Settle()
{
    QElapsedTimer calm;
    calm.start();
    while (calm.elapsed() < Calm) {
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        if (QApplication::eventDispatcher()->processEvents(QEventLoop::AllEvents))
            calm.restart();
        else
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
}

void Do(const std::function<void(XScreen&)>& input)
{
    constexpr int Patience = 20000;    // ms; a dialog that nobody answers would keep the test for ever
    QTimer        guard;
    QObject::connect(&guard, &QTimer::timeout, [] {
        if (QWidget* const dialog = QApplication::activeModalWidget())
            dialog->close();
    });
    guard.start(Patience);
    std::atomic<bool> done = false;
    std::thread       person([&] {
        input(Desk());
        done = true;
    });
    while (!done)
        QApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents, 5);
    person.join();
    Settle();
}

void Show(QWidget& window, QRect place)
{
    window.setGeometry(place);
    window.show();
    Wait([&] { return window.windowHandle() && window.windowHandle()->isExposed(); });
    Do([](XScreen& screen) { screen.FocusTop(); });
    Wait([&] { return window.isActiveWindow(); });
    Settle();
}

void Click(QWidget& on, QPoint at)
{
    const Place place = OnScreen(on, at);
    Do([&](XScreen& screen) { screen.Click(place); });
}

void Click(QWidget& on)
{
    Click(on, on.rect().center());
}

void DoubleClick(QWidget& on, QPoint at)
{
    const Place place = OnScreen(on, at);
    Do([&](XScreen& screen) {
        screen.Click(place);
        screen.Click(place);
    });
}

void Drag(QWidget& on, QPoint from, QPoint to)
{
    DragAlong(on, {from, to});
}

void DragAlong(QWidget& on, const std::vector<QPoint>& path)
{
    std::vector<Place> places;
    for (const QPoint& point : path)
        places.push_back(OnScreen(on, point));
    Do([&](XScreen& screen) { screen.DragAlong(places); });
}

void DragMiddle(QWidget& on, QPoint from, QPoint to)
{
    const std::vector<Place> places = {OnScreen(on, from), OnScreen(on, to)};
    Do([&](XScreen& screen) { screen.DragAlong(places, 2); });
}

void RightClick(QWidget& on, QPoint at)
{
    const Place place = OnScreen(on, at);
    Do([&](XScreen& screen) { screen.Click(place, 3); });
}

void Move(QWidget& on, QPoint to)
{
    const Place place = OnScreen(on, to);
    Do([&](XScreen& screen) { screen.Move(place); });
}

void Press(QWidget& on, QPoint at)
{
    const Place place = OnScreen(on, at);
    Do([&](XScreen& screen) { screen.Press(place); });
}

void Lift()
{
    Do([](XScreen& screen) { screen.Lift(); });
}

bool Drop(QWidget& on, const QString& path)
{
    const Place       place = OnScreen(on, on.rect().center());
    const std::string file = path.toStdString();
    bool              taken = false;
    Do([&](XScreen& screen) { taken = screen.Drop(file, place); });
    return taken;
}

void Wheel(QWidget& on, QPoint at, int steps)
{
    const Place place = OnScreen(on, at);
    Do([&](XScreen& screen) {
        screen.Move(place);
        screen.Wheel(steps);
    });
}

void Key(const char* chord)
{
    Do([&](XScreen& screen) { screen.Key(chord); });
}

void Type(const char* text)
{
    Do([&](XScreen& screen) { screen.Type(text); });
}

void With(const char* key, const std::function<void()>& act)
{
    Do([&](XScreen& screen) { screen.Hold(key); });
    act();
    Do([&](XScreen& screen) { screen.Release(key); });
}

bool Wait(const std::function<bool()>& condition, int milliseconds)
{
    QElapsedTimer waited;
    waited.start();
    while (!condition()) {
        if (waited.elapsed() > milliseconds)
            return false;
        QApplication::processEvents(QEventLoop::AllEvents, 10);
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
    return true;
}

void InDialog(const std::function<void(QDialog&)>& act)
{
    constexpr int Look = 2 * Calm, Patience = 20000;    // ms; more often would never let Settle rest
    auto* const   clock = new QTimer(qApp);
    QObject::connect(clock, &QTimer::timeout, clock, [clock, act, looks = 0]() mutable {
        auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (!dialog && ++looks < Patience / Look)
            return;
        clock->stop();
        clock->deleteLater();
        if (!dialog)
            return;
        Settle();
        act(*dialog);
    });
    clock->start(Look);
}

void Keep(QWidget& window, const char* name)
{
    const QString folder = qEnvironmentVariable("VOSTEL_TEST_PICTURES");
    if (!folder.isEmpty())
        window.grab().save(QDir(folder).filePath(QString::fromLatin1(name) + QStringLiteral(".png")));
}

}
