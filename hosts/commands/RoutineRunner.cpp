#include "commands/RoutineRunner.h"

#include <utility>

namespace vostel::viewer {

RoutineRunner::RoutineRunner(Poster post) : Post(std::move(post)) {}

RoutineRunner::~RoutineRunner()
{
    Cancel();
    if (Worker.joinable())
        Worker.join();
}

bool RoutineRunner::Start(const Routine& routine, std::vector<ImagePointer> inputs,
                          std::vector<double> values, std::function<void(int done, int total)> progressed,
                          std::function<void(const RoutineResult&)> finished)
{
    if (IsRunning())
        return false;
    Cancelled = false;
    // A call that was posted may come after the runner has gone: it then finds the mark expired.
    const auto post = [this, mark = std::weak_ptr(Alive)](std::function<void()> call) {
        Post([mark, call = std::move(call)] {
            if (!mark.expired())
                call();
        });
    };
    Worker = std::thread([this, &routine, inputs = std::move(inputs), values = std::move(values), post,
                          progressed = std::move(progressed), finished = std::move(finished)] {
        RoutineResult result = RunRoutine(routine, inputs, values, [&](int done, int total) {
            post([progressed, done, total] { progressed(done, total); });
            return !Cancelled;
        });
        post([this, finished, result = std::move(result)] {
            Worker.join();    // it has nothing left to do
            finished(result);
        });
    });
    return true;
}

}
