#include "document/Listeners.h"

#include "vostel.h"

#include <algorithm>

namespace vostel {

void Listeners::Add(std::int64_t token, std::uint32_t events, Function function, void* user)
{
    All.push_back({token, events, function, user});
    Wanted |= events;
}

bool Listeners::Remove(std::int64_t token)
{
    const auto removed =
        std::erase_if(All, [&](const Listener& listener) { return listener.Token == token; });
    Wanted = 0;
    for (const Listener& listener : All)
        Wanted |= listener.Events;
    return removed > 0;
}

void Listeners::Tell(std::uint32_t type, std::uint64_t object) noexcept
{
    if (!Want(type))
        return;
    try {
        Queue.push_back({type, object});
    } catch (...) {
        return;    // a call that has come this far must not fail
    }
}

void Listeners::Deliver(int canvas) noexcept
{
    if (Delivering)
        return;
    Delivering = true;
    while (!Queue.empty()) {
        const Waiting waiting = Queue.front();
        Queue.pop_front();
        const VostelEvent event = {sizeof event, waiting.Type, canvas, waiting.Object};
        // A listener may add and remove others; those that are there now hear of it unless they go before.
        try {
            const std::vector<Listener> now = All;
            for (const Listener& listener : now) {
                if ((listener.Events & waiting.Type) != 0 && Find(listener.Token))
                    listener.Call(&event, listener.User);
            }
        } catch (...) {
            continue;    // out of memory, or a listener that does not keep to the rules
        }
    }
    Delivering = false;
}

const Listeners::Listener* Listeners::Find(std::int64_t token) const
{
    const auto found = std::find_if(All.begin(), All.end(),
                                    [&](const Listener& listener) { return listener.Token == token; });
    return found == All.end() ? nullptr : &*found;
}

}
