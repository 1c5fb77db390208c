#pragma once

#include <functional>
#include <thread>
#include <vector>

// Runs it on several threads at once, each with its own number.
inline void AtOnce(const std::function<void(int)>& work, int threads = 4)
{
    std::vector<std::thread> running;
    for (int i = 0; i < threads; ++i)
        running.emplace_back(work, i);
    for (std::thread& thread : running)
        thread.join();
}
