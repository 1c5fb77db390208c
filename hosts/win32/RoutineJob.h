#pragma once

// One image routine on a thread of its own. It posts messages to a window: Progress while it runs, Finished
// at its end; the window then calls Take.

#include "commands/Routines.h"

#include <atomic>
#include <thread>

namespace vostel::viewer {

class RoutineJob {
public:
    static constexpr UINT Progress = WM_APP + 1;    // wParam done, lParam total
    static constexpr UINT Finished = WM_APP + 2;

    RoutineJob() = default;
    ~RoutineJob() { Stop(); }
    RoutineJob(const RoutineJob&) = delete;
    RoutineJob& operator=(const RoutineJob&) = delete;

    void Start(HWND window, const Routine& routine, std::vector<ImagePointer> inputs,
               std::vector<double> values, int canvas);

    bool           IsRunning() const { return Worker.joinable(); }    // until Take
    int            Canvas() const { return OnCanvas; }                // where the result belongs
    const Routine* What() const { return Asked; }

    void          Cancel() { Cancelled = true; }    // takes effect at the routine's next step
    RoutineResult Take();
    void          Stop();    // cancels and waits

private:
    std::thread       Worker;
    std::atomic<bool> Cancelled = false;
    RoutineResult     Result;    // the worker's until it has ended
    const Routine*    Asked = nullptr;
    int               OnCanvas = -1;
};

}
