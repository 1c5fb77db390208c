#pragma once

// Threads that help with a task and are kept for the next one.

namespace vostel {

// Calls task(context) here and, beside it, on up to so many other threads, and returns when no thread is in
// it any more. Threads that the system refuses, or that are busy until this one is done, are left out: the
// task finds out itself what is still to do. May be called on any thread, and in a task.
// Each of these threads computes with the rounding and the exceptions that one made here for it would have.
void CallWithHelpers(int helpers, void (*task)(void*) noexcept, void* context) noexcept;

}
