#include "open/OpenCall.h"

#include <atomic>

using namespace vostel;
using namespace vostel::open;

namespace {

constexpr std::uint32_t AllEvents = 2047;

// A token tells its canvas: the number in the lower half, and what tells listeners apart in the upper one.
std::int64_t NewToken(int32_t canvas)
{
    static std::atomic<std::uint32_t> last{0};
    const std::uint32_t               serial = ++last & 0x7FFFFFFF;
    return static_cast<std::int64_t>(serial) << 32 | static_cast<std::uint32_t>(canvas);
}

}

VostelStatus vostel_listen(int32_t canvas, uint32_t events, VostelListener listener, void* user,
                           int64_t* token)
{
    return OnCanvas(canvas, [&](VostelImage&, Document& notes) {
        if (!listener)
            Fail(VOSTEL_INVALID_ARGUMENT, "listener is null");
        NeedPointer(token, "token");
        if ((events & AllEvents) == 0)
            Fail(VOSTEL_INVALID_ARGUMENT, "events names none");
        const std::int64_t made = NewToken(canvas);
        notes.Listen(made, events, listener, user);
        Give(token, made);
    });
}

VostelStatus vostel_unlisten(int64_t token)
{
    const auto canvas = static_cast<int32_t>(static_cast<std::uint32_t>(token & 0xFFFFFFFF));
    return OnCanvas(canvas, [&](VostelImage&, Document& notes) {
        if (!notes.Unlisten(token))
            Fail(VOSTEL_NOT_FOUND, "there is no such listener");
    });
}
