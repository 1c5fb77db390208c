#include "platform/DirectoryWalk.h"

#include "platform/FileSaving.h"
#include "platform/Files.h"
#include "vostel/platform.h"

#include <algorithm>
#include <cwchar>

namespace vostel {

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

FirstMatch FindFirst(const std::wstring& pattern)
{
    WIN32_FIND_DATAW found;
    const HANDLE     search = FindFirstFileW(pattern.c_str(), &found);
    if (search == INVALID_HANDLE_VALUE)
        return {};
    FindClose(search);
    return {true, (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0};
}

std::wstring FolderPath(const std::wstring& path)
{
    return path;
}

std::wstring FolderIdentity(const std::wstring& path)
{
    constexpr DWORD ShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    const HANDLE    folder = CreateFileW(path.c_str(), 0, ShareAll, nullptr, OPEN_EXISTING,
                                         FILE_FLAG_BACKUP_SEMANTICS, nullptr);    // the flag that folders need
    if (folder == INVALID_HANDLE_VALUE)
        return std::wstring();
    BY_HANDLE_FILE_INFORMATION facts;
    const bool                 known = GetFileInformationByHandle(folder, &facts) != 0;
    CloseHandle(folder);
    if (!known || (facts.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0)
        return std::wstring();
    return std::to_wstring(facts.dwVolumeSerialNumber) + L':' + std::to_wstring(facts.nFileIndexHigh) + L':' +
           std::to_wstring(facts.nFileIndexLow);
}

bool MakeFolder(const std::wstring& path)
{
    if (CreateDirectoryW(path.c_str(), nullptr))
        return true;
    constexpr DWORD Kind = FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_REPARSE_POINT;
    const DWORD     facts = GetFileAttributesW(path.c_str());
    return facts != INVALID_FILE_ATTRIBUTES && (facts & Kind) == FILE_ATTRIBUTE_DIRECTORY;
}

bool CopyOneFile(const std::wstring& from, const std::wstring& to)
{
    const CString beside = NameBeside(to.c_str());
    if (_wcsicmp(from.c_str(), to.c_str()) == 0)
        return false;
    if (CopyFileW(from.c_str(), beside, TRUE) && MoveFileOver(beside, to.c_str()))
        return true;
    SetFileAttributesW(beside, FILE_ATTRIBUTE_NORMAL);    // of a source for reading alone
    RemoveFile(beside);
    return false;
}

}
