#pragma once

// Directories, one source per platform.

#include <string>
#include <vector>

namespace vostel {

struct DirectoryEntry {
    std::wstring Name;    // without its folder
    bool         IsDirectory = false;
    bool         IsLink = false;
};

extern const wchar_t PathSeparator;

// What matches a pattern: a folder, a separator and a name with * and ? wildcards, letters of either case.
// A trailing ".*" matches names without a dot too, so that "*.*" is every name. The two dot entries are left
// out. Sorted by name, so that every platform lists alike.
std::vector<DirectoryEntry> MatchingEntries(const std::wstring& pattern);

// What a search for the pattern comes upon first. Dot entries count here: the pattern "*" finds the folder
// itself even where nothing is in it. A name without wildcards has to be the exact one.
struct FirstMatch {
    bool Found = false;
    bool IsDirectory = false;
};
FirstMatch FindFirst(const std::wstring& pattern);

// The path of a folder in the platform's own notation. The calls below take paths letter by letter, made of
// such a path and of names of entries: off Windows a name may hold a backslash.
std::wstring FolderPath(const std::wstring& path);

// A name for the folder behind a path, whatever links and spellings lead to it; empty if there is none.
std::wstring FolderIdentity(const std::wstring& path);

// True also if it is there already; a link to a folder does not count.
bool MakeFolder(const std::wstring& path);
// Takes the place of a file, or of a link, whose own target stays as it is. A copy that fails leaves what was
// there, and nothing else; so does one of a file onto itself.
bool CopyOneFile(const std::wstring& from, const std::wstring& to);

}
