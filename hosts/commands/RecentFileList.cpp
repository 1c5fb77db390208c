#include "commands/RecentFileList.h"

#include <VostelObj.h>

#include <filesystem>
#include <type_traits>
#include <utility>

namespace vostel::viewer {

namespace {

// Where paths are wide, the file system takes either case for the same name.
bool IsSamePath(const std::wstring& a, const std::wstring& b)
{
    if constexpr (std::is_same_v<std::filesystem::path::value_type, wchar_t>)
        return CString(a.c_str()).CompareNoCase(b.c_str()) == 0;
    return a == b;
}

}

RecentFileList::RecentFileList(std::vector<std::wstring> known, Save save)
    : Files(std::move(known)), SaveFiles(std::move(save))
{
    if (Files.size() > MaxFiles)
        Files.resize(MaxFiles);
}

void RecentFileList::Add(const std::wstring& path)
{
    std::erase_if(Files, [&path](const std::wstring& known) { return IsSamePath(known, path); });
    Files.insert(Files.begin(), path);
    if (Files.size() > MaxFiles)
        Files.resize(MaxFiles);
    Changed();
}

void RecentFileList::Remove(const std::wstring& path)
{
    std::erase_if(Files, [&path](const std::wstring& known) { return IsSamePath(known, path); });
    Changed();
}

void RecentFileList::Clear()
{
    Files.clear();
    Changed();
}

void RecentFileList::Changed()
{
    if (SaveFiles)
        SaveFiles(Files);
}

}
