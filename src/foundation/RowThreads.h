#pragma once

// Work on the rows of an image by several threads.

#include <functional>

namespace vostel {

// Rows first..end-1.
struct RowRun {
    int First = 0;
    int End = 0;
};

// The rows of one thread out of several: equal runs, and to the last thread also what the division leaves
// over. With fewer rows than threads all runs but the last are empty.
RowRun RowRunOf(int rows, int threads, int thread);

// Calls work once for each run that has rows, on this thread and on others beside it, and waits for all of
// them. There are as many runs as processors, or as the limit on threads allows; the caller does those for
// which no thread is free. What a run throws reaches the caller after the last one ended: the exception of
// the first such run.
void ForEachRowRun(int rows, const std::function<void(RowRun)>& work);

// Splits into this many runs from now on; 0: one per processor again. For tests, since results must not
// depend on it.
void ForceRowThreads(int threads);

}
