#pragma once

/// @file
/// Small conveniences for host code: a progress counter, a stopwatch, the processor count, debug message
/// boxes and the keyboard state. Messages and keys go through VostelHostServices.

#include "vostel/export.h"

#include <cstdint>

#pragma pack(push, 1)
/// A progress counter of a host; the progress bar of a canvas does not know it.
class VOSTEL_API ZEKProgressMonitor {
public:
    bool  Finished = false;    ///< as SetState left it
    float Indicator = 0.0f;    ///< progress so far; not capped
    float Step = 1.0f;         ///< added per step

    /// Sets the step to total / 100, not 100 / total.
    void SetRange(int total);
    /// Adds one step.
    void StepForward();
    /// Returns the progress, truncated.
    int GetIndicator() const;
    /// Sets Finished.
    void SetState(bool finished);
    /// Returns Finished.
    bool IsFinished() const;
};
#pragma pack(pop)
static_assert(sizeof(ZEKProgressMonitor) == 9, "hosts share this record byte-packed");

/// A stopwatch on the finest clock of the system.
class VOSTEL_API PrecisionTime {
public:
    std::int64_t Frequency = 0;     ///< counts per second, from Start on
    std::int64_t StartCount = 0;    ///< counts at Start
    std::int64_t EndCount = 0;      ///< counts at End
    double       Seconds = 0.0;     ///< as ShowTime last computed it

    /// Notes the time at which the measurement starts.
    void Start();
    /// Notes the time at which the measurement ends.
    void End();
    /// Computes Seconds, prints it on standard output and shows it in a message box.
    void ShowTime();
    /// Returns Seconds: after End alone still the measurement before.
    double GetSecond() const;
};

/// Facts about the machine.
class VOSTEL_API ZEKOSSystem {
public:
    /// Returns the number of logical processors.
    int GetProcessorNum() const;
};

/// Returns 1 while the virtual key is held, else 0.
VOSTEL_API int KEYDOWN(int key);
/// Returns 0 while the virtual key is held, else 1.
VOSTEL_API int KEYUP(int key);

/// Shows a message box for debugging, "%d".
VOSTEL_API void ZEKBInt(int a);
/// Shows a message box for debugging, "%d %d".
VOSTEL_API void ZEKBInt(int a, int b);
/// Shows a message box for debugging, "%4.4f".
VOSTEL_API void ZEKBFloat(float a);
/// Shows a message box for debugging, "%4.4f %4.4f".
VOSTEL_API void ZEKBFloat(float a, float b);
/// Shows a narrow text, in the system's code page (UTF-8 off Windows), in a message box; null counts as
/// empty.
VOSTEL_API void ZEKBChar(char* text);
