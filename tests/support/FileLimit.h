#pragma once

#include <doctest/doctest.h>

#include <sys/resource.h>

#include <csignal>

// A disk that is full, as a limit of the process: while it lives, no file grows beyond so many bytes.
class FileLimit {
public:
    explicit FileLimit(rlim_t bytes) : Handler(std::signal(SIGXFSZ, SIG_IGN))
    {
        REQUIRE(getrlimit(RLIMIT_FSIZE, &Before) == 0);
        const rlimit limit = {bytes, Before.rlim_max};
        REQUIRE(setrlimit(RLIMIT_FSIZE, &limit) == 0);
    }
    ~FileLimit()
    {
        setrlimit(RLIMIT_FSIZE, &Before);
        std::signal(SIGXFSZ, Handler);
    }
    FileLimit(const FileLimit&) = delete;
    FileLimit& operator=(const FileLimit&) = delete;

private:
    rlimit Before = {};
    void (*Handler)(int);
};
