#pragma once

// Work in a process of its own, which is killed as it is about to change a file.

#include "support/WatchedProcess.h"

// Kills the process in the place of change number n, counted from 1, to any file.
ProcessEnd RunAndKillAt(int n, const std::function<void()>& work);

// Has the system kill it where it makes a file longer than so many bytes.
ProcessEnd RunAndKillBeyond(unsigned long bytes, const std::function<void()>& work);
