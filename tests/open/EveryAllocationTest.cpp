// Every function of the open interface with each of its allocations failing once, the first, then the second,
// until it comes through without: it succeeds all the same or says that memory is out and has changed
// nothing, and the same call with memory succeeds. Instrumented builds, which are slow, leave some out. Not
// on Windows, where reading and writing files reports some failed allocations as files that cannot be had.

#include "open/OpenFunctions.h"
#include "support/FailingAllocator.h"
#include "support/OpenCanvas.h"

#include <cstring>

namespace {

// Whether the function leaves its canvas and all that is on it to a second call.
bool CanBeRepeated(const Function& function)
{
    return function.Name != "vostel_canvas_destroy" && function.Name != "vostel_undo" &&
           function.Name != "vostel_redo" && function.Name != "vostel_object_remove" &&
           function.Name != "vostel_history_end" && function.Name != "vostel_unlisten";
}

// The status with failure number n; whether there was one goes to *failed.
VostelStatus CallWithFailure(const Function& function, const std::vector<Value>& values, long n, bool* failed)
{
    FailAt(n);
    const VostelStatus status = function.Call(values);
    *failed = HasAllocationFailed();
    FailAt(0);
    return status;
}

}

TEST_CASE("each allocation of each function fails in turn")
{
    int refused = 0;
    for (const Function& function : AllFunctions()) {
        CAPTURE(function.Name);
        bool failed = true;
        for (long n = 1; failed; n += VOSTEL_ALLOCATION_STEP) {
            CAPTURE(n);
            REQUIRE(n < 20000);
            BadInputWorld            world(true);
            const std::vector<Value> values = GoodValues(world, function);
            const std::string        before = world.Snapshot();
            const VostelStatus       status = CallWithFailure(function, values, n, &failed);
            CHECK(world.GuardsStand());
            if (status != VOSTEL_OK) {
                ++refused;
                CHECK(failed);
                CHECK(status == VOSTEL_OUT_OF_MEMORY);
                CHECK(std::strcmp(vostel_last_message(), "out of memory") == 0);
                CHECK(world.Snapshot() == before);
            }
            if (status != VOSTEL_OK || CanBeRepeated(function))
                CHECK_MESSAGE(function.Call(values) == VOSTEL_OK, vostel_last_message());
        }
    }
    CHECK(refused * VOSTEL_ALLOCATION_STEP > 500);
}
