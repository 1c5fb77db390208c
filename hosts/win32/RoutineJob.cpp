#include "RoutineJob.h"

#include <utility>

namespace vostel::viewer {

void RoutineJob::Start(HWND window, const Routine& routine, std::vector<ImagePointer> inputs,
                       std::vector<double> values, int canvas)
{
    Stop();
    Asked = &routine;
    OnCanvas = canvas;
    Cancelled = false;
    Worker = std::thread([this, window, inputs = std::move(inputs), values = std::move(values)] {
        Result = RunRoutine(*Asked, inputs, values, [this, window](int done, int total) {
            PostMessageW(window, Progress, static_cast<WPARAM>(done), total);
            return !Cancelled;
        });
        PostMessageW(window, Finished, 0, 0);
    });
}

RoutineResult RoutineJob::Take()
{
    if (Worker.joinable())
        Worker.join();
    return std::exchange(Result, RoutineResult());
}

void RoutineJob::Stop()
{
    Cancel();
    Take();
}

}
