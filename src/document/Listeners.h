#pragma once

#include <cstdint>
#include <deque>
#include <vector>

struct VostelEvent;

namespace vostel {

// Who hears of events, and the events that wait for the call to end.
class Listeners {
public:
    using Function = void (*)(const VostelEvent* event, void* user);

    void Add(std::int64_t token, std::uint32_t events, Function function, void* user);
    bool Remove(std::int64_t token);

    bool AreThere() const { return !All.empty(); }
    bool Want(std::uint32_t type) const { return (Wanted & type) != 0; }

    // Without memory for it an event is lost.
    void Tell(std::uint32_t type, std::uint64_t object) noexcept;
    // Calls the listeners for all that waits, and for what they cause in turn. Within a listener it does
    // nothing: the outer call goes on. What a listener throws is dropped.
    void Deliver(int canvas) noexcept;

private:
    struct Listener {
        std::int64_t  Token;
        std::uint32_t Events;
        Function      Call;
        void*         User;
    };
    struct Waiting {
        std::uint32_t Type;
        std::uint64_t Object;
    };

    std::vector<Listener> All;
    std::deque<Waiting>   Queue;
    std::uint32_t         Wanted = 0;    // of all listeners together
    bool                  Delivering = false;

    const Listener* Find(std::int64_t token) const;
};

}
