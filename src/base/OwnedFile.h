#pragma once

#include <cstdio>
#include <memory>

namespace vostel {

struct FileCloser {
    void operator()(std::FILE* file) const { std::fclose(file); }
};

// A C stream that its scope closes. Who has to know whether closing succeeded releases it and closes it.
using OwnedFile = std::unique_ptr<std::FILE, FileCloser>;

}
