#pragma once

// Small conveniences for host code: a progress counter, a stopwatch, the processor count, debug message
// boxes and the keyboard state.

#include "vostel/export.h"

#include <cstdint>

#pragma pack(push, 1)
class VOSTEL_API ZEKProgressMonitor {
public:
    bool  Finished = false;
    float Indicator = 0.0f;    // progress so far; not capped
    float Step = 1.0f;         // added per step

    void SetRange(int total);    // Step becomes total / 100, not 100 / total
    void StepForward();
    int  GetIndicator() const;    // truncated
    void SetState(bool finished);
    bool IsFinished() const;
};
#pragma pack(pop)
static_assert(sizeof(ZEKProgressMonitor) == 9, "hosts share this record byte-packed");

class VOSTEL_API PrecisionTime {
public:
    std::int64_t Frequency = 0;    // counts per second
    std::int64_t StartCount = 0;
    std::int64_t EndCount = 0;
    double       Seconds = 0.0;    // as ShowTime last computed it

    void   Start();
    void   End();
    void   ShowTime();    // computes Seconds, prints it and shows it in a message box
    double GetSecond() const;
};

class VOSTEL_API ZEKOSSystem {
public:
    int GetProcessorNum() const;    // logical processors of the machine
};

VOSTEL_API int KEYDOWN(int key);    // 1 while the virtual key is held, else 0
VOSTEL_API int KEYUP(int key);      // 1 while it is not, else 0

// Message boxes for debugging: "%d", "%d %d", "%4.4f", "%4.4f %4.4f", and a narrow text.
VOSTEL_API void ZEKBInt(int a);
VOSTEL_API void ZEKBInt(int a, int b);
VOSTEL_API void ZEKBFloat(float a);
VOSTEL_API void ZEKBFloat(float a, float b);
VOSTEL_API void ZEKBChar(char* text);
