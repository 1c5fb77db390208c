#pragma once

// Directories, one source per platform.

#include <string>
#include <vector>

struct DirectoryEntry {
    std::wstring Name;    // without its folder
    bool         IsDirectory = false;
    bool         IsLink = false;
};

extern const wchar_t PathSeparator;

// What matches a pattern: a folder, a separator and a name with * and ? wildcards, letters of either case.
// "*.*" is every name. The two dot entries are left out. Sorted by name, so that every platform lists alike.
std::vector<DirectoryEntry> MatchingEntries(const std::wstring& pattern);

bool MakeFolder(const std::wstring& path);                             // true also if it is there already
bool CopyOneFile(const std::wstring& from, const std::wstring& to);    // overwrites
