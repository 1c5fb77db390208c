#include "platform/DirectoryWalk.h"

#include "vostel/platform.h"

#include <algorithm>

const wchar_t PathSeparator = L'\\';

std::vector<DirectoryEntry> MatchingEntries(const std::wstring& pattern)
{
    std::vector<DirectoryEntry> entries;
    WIN32_FIND_DATAW            found;
    const HANDLE                search = FindFirstFileW(pattern.c_str(), &found);
    if (search == INVALID_HANDLE_VALUE)
        return entries;
    do {
        const std::wstring name = found.cFileName;
        if (name != L"." && name != L"..")
            entries.push_back({name, (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0,
                               (found.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0});
    } while (FindNextFileW(search, &found));
    FindClose(search);
    std::sort(entries.begin(), entries.end(),
              [](const DirectoryEntry& a, const DirectoryEntry& b) { return a.Name < b.Name; });
    return entries;
}

bool MakeFolder(const std::wstring& path)
{
    return CreateDirectoryW(path.c_str(), nullptr) || GetLastError() == ERROR_ALREADY_EXISTS;
}

bool CopyOneFile(const std::wstring& from, const std::wstring& to)
{
    return CopyFileW(from.c_str(), to.c_str(), FALSE) != 0;
}
