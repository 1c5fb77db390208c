#pragma once

// Work on the rows of an image by several threads.

#include <functional>

namespace vostel {

// Rows first..end-1.
struct RowRun {
    int First = 0;
    int End = 0;
};

// Calls work once for each of several runs of about equal length, on this thread and on others beside it, and
// waits for all of them. There are as many threads as processors, or as the limit on threads allows; each
// takes the next run until none is left, and the caller does those for which no other thread is free. What a
// run throws reaches the caller after the last one ended: the exception of the first such run.
void ForEachRowRun(int rows, const std::function<void(RowRun)>& work);

// How many threads that is: for work that needs memory for each, made before the first of them starts.
int RowThreadsInForce();

// Splits for this many threads from now on; 0: one per processor again. For tests, since results must not
// depend on it.
void ForceRowThreads(int threads);

}
