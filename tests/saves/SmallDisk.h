#pragma once

// A file system of its own that is soon full, where the system lets a process mount one.

#include <cstddef>
#include <functional>
#include <string>

inline constexpr char CannotMount[] = "no file system can be mounted here";

// Calls work, in a process of its own, with the folder of an empty disk of a megabyte. Returns what work
// returns, CannotMount, or how the process ended.
std::string FaultOnSmallDisk(const std::function<std::string(const std::string& disk)>& work);

// Writes a file until no byte is left.
void FillDisk(const std::string& path);
