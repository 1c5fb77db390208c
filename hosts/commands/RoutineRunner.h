#pragma once

#include "commands/Routines.h"

#include <atomic>
#include <functional>
#include <memory>
#include <thread>
#include <vector>

namespace vostel::viewer {

// Runs one routine at a time on a thread of its own. All members, and the two callbacks, belong to the thread
// that owns the runner.
class RoutineRunner {
public:
    // Takes a call from the worker and makes it later on the owner's thread.
    using Poster = std::function<void(std::function<void()> call)>;

    explicit RoutineRunner(Poster post);
    ~RoutineRunner();    // cancels, and waits for the step under way; no callback comes any more
    RoutineRunner(const RoutineRunner&) = delete;
    RoutineRunner& operator=(const RoutineRunner&) = delete;

    bool IsRunning() const { return Worker.joinable(); }    // until finished is called

    // False while another one runs.
    bool Start(const Routine& routine, std::vector<ImagePointer> inputs, std::vector<double> values,
               std::function<void(int done, int total)>  progressed,
               std::function<void(const RoutineResult&)> finished);
    void Cancel() { Cancelled = true; }    // takes effect at the routine's next step

private:
    Poster                Post;
    std::thread           Worker;
    std::atomic<bool>     Cancelled = false;
    std::shared_ptr<bool> Alive = std::make_shared<bool>(true);    // expires before posted calls may come
};

}
