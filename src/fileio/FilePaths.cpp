#include "fileio/FilePaths.h"

#include "platform/Files.h"

#include <algorithm>
#include <string_view>
#include <vector>

namespace vostel {

namespace {

// std::filesystem::path is not used here: the one of GCC 12 loses names without a word when memory runs out.
struct PathParts {
    std::string              Root;
    std::vector<std::string> Names;

    // A name and the ".." behind it cancel out; nothing lies above the root.
    void Append(std::string_view rest)
    {
        while (!rest.empty()) {
            const std::string_view name = rest.substr(0, rest.find('/'));
            rest.remove_prefix(std::min(name.size() + 1, rest.size()));
            if (name.empty() || name == ".")
                continue;
            if (name == ".." && !Names.empty() && Names.back() != "..")
                Names.pop_back();
            else if (name != ".." || Root.empty())
                Names.emplace_back(name);
        }
    }
};

PathParts PartsOf(const std::string& utf8Path)
{
    const std::string path = WithSlashes(utf8Path);
    PathParts         parts;
    parts.Root = path.substr(0, RootLength(path));
    parts.Append(std::string_view(path).substr(parts.Root.size()));
    return parts;
}

PathParts FolderOf(const std::string& file)
{
    PathParts folder = PartsOf(file);
    if (!folder.Names.empty())
        folder.Names.pop_back();
    return folder;
}

std::string TextOf(const PathParts& parts)
{
    std::string text = parts.Root;
    for (std::size_t i = 0; i < parts.Names.size(); ++i)
        text += (i > 0 ? "/" : "") + parts.Names[i];
    return text;
}

}

std::string AbsolutePath(const std::string& path)
{
    const std::string full = FullUtf8Path(path);
    return full.empty() ? path : TextOf(PartsOf(full));
}

std::string PathInFile(const std::string& path, const std::string& file)
{
    const PathParts there = PartsOf(path);
    const PathParts folder = FolderOf(file);
    if (there.Root != folder.Root)
        return TextOf(there);
    const auto [down, up] =
        std::mismatch(there.Names.begin(), there.Names.end(), folder.Names.begin(), folder.Names.end());
    PathParts relative;
    relative.Names.assign(static_cast<std::size_t>(folder.Names.end() - up), "..");
    relative.Names.insert(relative.Names.end(), down, there.Names.end());
    return TextOf(relative);
}

std::string PathFromFile(const std::string& named, const std::string& file)
{
    PathParts there = PartsOf(named);
    if (there.Root.size() > 1)
        return TextOf(there);
    // A slash alone is the root of whatever the file lies on.
    PathParts folder = FolderOf(file);
    if (!there.Root.empty())
        folder.Names.clear();
    for (const std::string& name : there.Names)
        folder.Append(name);
    return TextOf(folder);
}

}
