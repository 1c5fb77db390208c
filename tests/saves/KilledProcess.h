#pragma once

// Work in a process of its own, which is killed as it is about to change a file.

#include <functional>

enum class ProcessEnd {
    Killed,
    Done,
    Unknown    // the system does not let processes be watched
};

// Kills the process in the place of change number n, counted from 1, to any file.
ProcessEnd RunAndKillAt(int n, const std::function<void()>& work);

// Has the system kill it where it makes a file longer than so many bytes.
ProcessEnd RunAndKillBeyond(unsigned long bytes, const std::function<void()>& work);
