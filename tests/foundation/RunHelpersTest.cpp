#include <VostelObj.h>

#include "support/HostCanvas.h"

#include <doctest/doctest.h>

#include <cfloat>
#include <chrono>
#include <climits>
#include <cstddef>
#include <cstring>
#include <thread>

TEST_CASE("the progress counter is a packed record that starts at 0 with steps of 1")
{
    const ZEKProgressMonitor monitor;
    CHECK(sizeof monitor == 9);
    CHECK(offsetof(ZEKProgressMonitor, Indicator) == 1);
    CHECK(offsetof(ZEKProgressMonitor, Step) == 5);
    CHECK_FALSE(monitor.IsFinished());
    CHECK(monitor.GetIndicator() == 0);
    const float step = monitor.Step;
    CHECK(step == 1.0f);
}

TEST_CASE("a range of 100 reaches 100 after 100 steps, one of 1000 after ten hundred")
{
    ZEKProgressMonitor monitor;
    monitor.SetRange(100);
    for (int i = 0; i < 100; ++i)
        monitor.StepForward();
    CHECK(monitor.GetIndicator() == 100);

    ZEKProgressMonitor wide;
    wide.SetRange(1000);
    const float step = wide.Step;
    CHECK(step == 10.0f);    // the total divided by 100, not 100 divided by the total
    for (int i = 0; i < 10; ++i)
        wide.StepForward();
    CHECK(wide.GetIndicator() == 100);
    for (int i = 0; i < 90; ++i)
        wide.StepForward();
    CHECK(wide.GetIndicator() == 1000);    // nothing caps it
}

TEST_CASE("the indicator is truncated")
{
    ZEKProgressMonitor monitor;
    monitor.SetRange(50);
    const float step = monitor.Step;
    CHECK(step == 0.5f);
    monitor.StepForward();
    CHECK(monitor.GetIndicator() == 0);
    monitor.StepForward();
    CHECK(monitor.GetIndicator() == 1);
    monitor.SetRange(-150);
    monitor.StepForward();
    CHECK(monitor.GetIndicator() == 0);    // -0.5
    monitor.StepForward();
    CHECK(monitor.GetIndicator() == -2);
}

TEST_CASE("the total passes through float before it is divided")
{
    ZEKProgressMonitor monitor;
    for (const int total : {16777217, 123456789, INT_MAX, INT_MIN, 1, 7}) {
        CAPTURE(total);
        monitor.SetRange(total);
        const float step = monitor.Step;
        CHECK(step == static_cast<float>(static_cast<double>(static_cast<float>(total)) / 100.0));
    }
}

TEST_CASE("an indicator beyond 32 bits reads as the lowest integer")
{
    ZEKProgressMonitor monitor;
    monitor.SetRange(INT_MAX);
    for (int i = 0; i < 200; ++i)
        monitor.StepForward();
    CHECK(monitor.GetIndicator() == INT_MIN);
}

TEST_CASE("the finished state is what was set last, and assignment copies all three fields")
{
    ZEKProgressMonitor monitor;
    monitor.SetState(true);
    CHECK(monitor.IsFinished());
    monitor.SetRange(300);
    monitor.StepForward();
    ZEKProgressMonitor copy;
    copy = monitor;
    CHECK(copy.IsFinished());
    CHECK(copy.GetIndicator() == 3);
    copy.StepForward();
    CHECK(copy.GetIndicator() == 6);
    monitor.SetState(false);
    CHECK_FALSE(monitor.IsFinished());
}

TEST_CASE("the stopwatch counts between start and end")
{
    const TestDesktop desktop;
    PrecisionTime     watch;
    watch.Start();
    CHECK(watch.Frequency > 0);
    const auto start = watch.StartCount;
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    watch.End();
    CHECK(watch.StartCount == start);
    CHECK(watch.EndCount > start);
    watch.ShowTime();
    CHECK(watch.GetSecond() > 0.01);
    CHECK(watch.GetSecond() < 60.0);
}

TEST_CASE("the seconds are those of the last ShowTime, not of the last End")
{
    const TestDesktop desktop;
    PrecisionTime     watch;
    watch.Start();
    watch.Frequency = 1000;
    watch.StartCount = 5000;
    watch.EndCount = 7250;
    CHECK(watch.GetSecond() == 0.0);
    watch.ShowTime();
    CHECK(watch.GetSecond() == 2.25);
    CHECK(desktop.Messages == std::vector<CString>{L"2.2500"});
    watch.EndCount = 9000;
    CHECK(watch.GetSecond() == 2.25);
    watch.ShowTime();
    CHECK(watch.GetSecond() == 4.0);
    CHECK(desktop.Messages.back() == L"4.0000");
}

TEST_CASE("showing the time before the start divides by nothing and does no harm")
{
    const TestDesktop desktop;
    PrecisionTime     watch;
    watch.ShowTime();
    CHECK(watch.GetSecond() != watch.GetSecond());
    CHECK(desktop.Messages.size() == 1);
}

TEST_CASE("the processor count is at least one and does not change")
{
    const ZEKOSSystem system;
    CHECK(system.GetProcessorNum() >= 1);
    CHECK(system.GetProcessorNum() == system.GetProcessorNum());
}

TEST_CASE("a held key is down and not up, all others are up and not down")
{
    TestDesktop desktop;
    CHECK(KEYDOWN('S') == 0);
    CHECK(KEYUP('S') == 1);
    desktop.KeysDown.insert('S');
    CHECK(KEYDOWN('S') == 1);
    CHECK(KEYUP('S') == 0);
    CHECK(KEYDOWN('T') == 0);
    CHECK(KEYUP('T') == 1);
}

TEST_CASE("integers show as %d")
{
    const TestDesktop desktop;
    ZEKBInt(42);
    ZEKBInt(INT_MIN);
    ZEKBInt(-1, INT_MAX);
    ZEKBInt(INT_MIN, INT_MIN);
    CHECK(desktop.Messages ==
          std::vector<CString>{L"42", L"-2147483648", L"-1 2147483647", L"-2147483648 -2147483648"});
}

TEST_CASE("floats show with four decimals")
{
    const TestDesktop desktop;
    ZEKBFloat(1.5f);
    ZEKBFloat(-0.03127f);
    ZEKBFloat(0.1f, 1234567.0f);
    CHECK(desktop.Messages == std::vector<CString>{L"1.5000", L"-0.0313", L"0.1000 1234567.0000"});
}

TEST_CASE("the longest floats show in full")
{
    const TestDesktop desktop;
    ZEKBFloat(-FLT_MAX, -FLT_MAX);
    REQUIRE(desktop.Messages.size() == 1);
    CHECK(desktop.Messages[0] ==
          L"-340282346638528859811704183484516925440.0000 -340282346638528859811704183484516925440.0000");
}

TEST_CASE("narrow text shows widened")
{
    const TestDesktop desktop;
    char              text[] = "plain text 123";
    char              none[] = "";
    ZEKBChar(text);
    ZEKBChar(none);
    ZEKBChar(nullptr);
    CHECK(desktop.Messages == std::vector<CString>{L"plain text 123", L"", L""});
}
