#pragma once

#include "common/Host.h"

#include <cstdio>
#include <filesystem>
#include <string>

// Numbers the frames of a run and remembers whether all could be written.
class Frames {
public:
    Frames(Host& host, std::filesystem::path folder) : User(host), Folder(std::move(folder)) {}

    void Write(const char* name)
    {
        char numbered[80];
        std::snprintf(numbered, sizeof numbered, "%02d-%s.png", ++Count, name);
        const std::string path = (Folder / numbered).string();
        if (User.WriteFrame(path)) {
            std::printf("  %s\n", path.c_str());
        } else {
            std::fprintf(stderr, "vostel-demo: cannot write %s\n", path.c_str());
            Failed = true;
        }
    }
    std::filesystem::path Path(const char* name) const { return Folder / name; }

    bool Failed = false;

private:
    Host&                 User;
    std::filesystem::path Folder;
    int                   Count = 0;
};
