#pragma once

#include <VostelObj.h>

#include <functional>
#include <mutex>
#include <vector>

namespace vostel::viewer {

// Calls that other threads want made on the thread of a window, which gets Message for each and then calls
// Run.
class CallQueue {
public:
    static constexpr UINT Message = WM_APP + 1;

    void Post(HWND window, std::function<void()> call);    // on any thread
    void Run();                                            // makes the calls that are waiting

private:
    std::mutex                         Mutex;
    std::vector<std::function<void()>> Calls;
};

}
