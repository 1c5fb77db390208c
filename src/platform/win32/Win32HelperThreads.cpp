// The threads are those of the system's pool of the process. None of them is in the library when a call has
// returned, so there is nothing to end when the library is unloaded or the process exits.

#include "platform/HelperThreads.h"

#include "vostel/platform.h"

#include <cfenv>

namespace vostel {

namespace {

struct Help {
    void (*Task)(void*) noexcept;
    void* Context;
};

// A new thread of Windows computes by the default, whatever its maker or the pool's last user has set.
void Run(const Help& help) noexcept
{
    std::fenv_t own;
    std::fegetenv(&own);
    std::fesetenv(FE_DFL_ENV);
    help.Task(help.Context);
    std::fesetenv(&own);
}

void CALLBACK RunBeside(PTP_CALLBACK_INSTANCE, void* help, PTP_WORK)
{
    Run(*static_cast<const Help*>(help));
}

}

void CallWithHelpers(int helpers, void (*task)(void*) noexcept, void* context) noexcept
{
    Help           help = {task, context};
    const PTP_WORK work = helpers > 0 ? CreateThreadpoolWork(RunBeside, &help, nullptr) : nullptr;
    for (int i = 0; work && i < helpers; ++i)
        SubmitThreadpoolWork(work);
    Run(help);
    if (work) {
        WaitForThreadpoolWorkCallbacks(work, TRUE);    // what has not begun is taken back
        CloseThreadpoolWork(work);
    }
}

}
