#include "CallQueue.h"

#include <utility>

namespace vostel::viewer {

void CallQueue::Post(HWND window, std::function<void()> call)
{
    {
        const std::lock_guard lock(Mutex);
        Calls.push_back(std::move(call));
    }
    PostMessageW(window, Message, 0, 0);
}

void CallQueue::Run()
{
    std::vector<std::function<void()>> waiting;
    {
        const std::lock_guard lock(Mutex);
        waiting.swap(Calls);
    }
    for (const std::function<void()>& call : waiting)
        call();
}

}
