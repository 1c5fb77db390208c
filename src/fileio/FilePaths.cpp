#include "fileio/FilePaths.h"

#include <filesystem>
#include <system_error>

namespace vostel {

namespace {

using Path = std::filesystem::path;

Path PathOf(const std::string& utf8)
{
    return Path(std::u8string(utf8.begin(), utf8.end()));
}

std::string TextOf(const Path& path)
{
    const std::u8string text = path.generic_u8string();
    return std::string(text.begin(), text.end());
}

}

std::string AbsolutePath(const std::string& path)
{
    std::error_code failure;
    const Path      absolute = std::filesystem::absolute(PathOf(path), failure);
    return failure ? path : TextOf(absolute.lexically_normal());
}

std::string PathInFile(const std::string& path, const std::string& file)
{
    const Path relative = PathOf(path).lexically_relative(PathOf(file).parent_path());
    return relative.empty() ? path : TextOf(relative);
}

std::string PathFromFile(const std::string& named, const std::string& file)
{
    return TextOf((PathOf(file).parent_path() / PathOf(named)).lexically_normal());
}

}
