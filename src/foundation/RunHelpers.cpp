#include "vostel/RunHelpers.h"

#include "base/Truncate.h"
#include "platform/Files.h"
#include "platform/HostServices.h"
#include "platform/System.h"

#include <cstdio>
#include <cwchar>

using namespace vostel;

namespace {

template <typename... Values>
void ShowFormatted(const wchar_t* format, Values... values)
{
    wchar_t text[700];    // two floats of full length fit
    std::swprintf(text, sizeof text / sizeof text[0], format, values...);
    ShowMessage(text);
}

}

void ZEKProgressMonitor::SetRange(int total)
{
    Step = static_cast<float>(static_cast<double>(static_cast<float>(total)) / 100.0);
}

void ZEKProgressMonitor::StepForward()
{
    Indicator += Step;
}

int ZEKProgressMonitor::GetIndicator() const
{
    return TruncToInt(Indicator);
}

void ZEKProgressMonitor::SetState(bool finished)
{
    Finished = finished;
}

bool ZEKProgressMonitor::IsFinished() const
{
    return Finished;
}

void PrecisionTime::Start()
{
    Frequency = ClockFrequency();
    StartCount = ClockCount();
}

void PrecisionTime::End()
{
    EndCount = ClockCount();
}

void PrecisionTime::ShowTime()
{
    Seconds = static_cast<double>(EndCount - StartCount) / static_cast<double>(Frequency);
    PrintElapsedTime(Seconds);
    ZEKBFloat(static_cast<float>(Seconds));
}

double PrecisionTime::GetSecond() const
{
    return Seconds;
}

int ZEKOSSystem::GetProcessorNum() const
{
    return ProcessorCount();
}

int KEYDOWN(int key)
{
    return IsKeyDown(key) ? 1 : 0;
}

int KEYUP(int key)
{
    return IsKeyDown(key) ? 0 : 1;
}

void ZEKBInt(int a)
{
    ShowFormatted(L"%d", a);
}

void ZEKBInt(int a, int b)
{
    ShowFormatted(L"%d %d", a, b);
}

void ZEKBFloat(float a)
{
    ShowFormatted(L"%4.4f", static_cast<double>(a));
}

void ZEKBFloat(float a, float b)
{
    ShowFormatted(L"%4.4f %4.4f", static_cast<double>(a), static_cast<double>(b));
}

void ZEKBChar(char* text)
{
    ShowMessage(WidenAnsi(text ? text : "").c_str());
}
