#pragma once

// The most memory that the process comes to hold, beyond what it has at the beginning of a scope. Linux only.

#include <malloc.h>

#include <cstdio>

class PeakMemory {
public:
    PeakMemory()
    {
        malloc_trim(0);    // what is kept for later allocations would hide them
        // Has the system count from here.
        if (std::FILE* const file = std::fopen("/proc/self/clear_refs", "w")) {
            std::fputs("5", file);
            std::fclose(file);
        }
        Before = Peak();
    }

    long KiB() const { return Peak() - Before; }
    long MiB() const { return KiB() / 1024; }

private:
    long Before = 0;

    static long Peak()
    {
        long             peak = 0;
        char             line[256];
        std::FILE* const file = std::fopen("/proc/self/status", "r");
        while (file && std::fgets(line, sizeof line, file)) {
            if (std::sscanf(line, "VmHWM: %ld", &peak) == 1)
                break;
        }
        if (file)
            std::fclose(file);
        return peak;
    }
};
