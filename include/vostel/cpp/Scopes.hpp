#pragma once

/// @file
/// What lasts as long as a scope: listening, and a step of history.

#include "vostel/cpp/Values.hpp"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <utility>

namespace vostel {
inline namespace cpp {

class Canvas;

/// Every event that listeners can hear of.
inline constexpr std::uint32_t AllEvents = 2 * VOSTEL_CANVAS_DESTROYED - 1;

/// Hears of events as long as it lives.
class Subscription {
public:
    /// Ends at once.
    Subscription() = default;
    /// The listener goes along.
    Subscription(Subscription&&) noexcept = default;
    /// Ends what was heard before.
    Subscription& operator=(Subscription&& other) noexcept
    {
        if (this != &other) {
            end();
            listener = std::move(other.listener);
            token = std::exchange(other.token, 0);
        }
        return *this;
    }
    /// Ends it.
    ~Subscription() { end(); }

    /// Before its scope does. May be called by the listener itself.
    void end() noexcept
    {
        if (listener)
            vostel_unlisten(token);
        listener.reset();
    }

private:
    friend class Canvas;
    // Kept alive while it runs, even if it ends itself.
    using Function = std::shared_ptr<std::function<void(const Event&)>>;

    std::unique_ptr<Function> listener;
    std::int64_t              token = 0;

    static void hear(const Event* event, void* user)
    {
        const Function function = *static_cast<const Function*>(user);
        try {
            (*function)(*event);
        } catch (...) {
            return;    // the library goes on, whatever a listener throws
        }
    }
};

/// Makes one step of history of what happens in its scope.
class Step {
public:
    /// It ends with one scope.
    Step(const Step&) = delete;
    /// It ends with one scope.
    Step& operator=(const Step&) = delete;
    /// Ends the step.
    ~Step() { vostel_history_end(place); }

private:
    friend class Canvas;
    Step(std::int32_t canvas, const std::string& name) : place(canvas)
    {
        detail::check(vostel_history_begin(place, name.c_str()));
    }

    std::int32_t place;
};

}
}
