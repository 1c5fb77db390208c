// The standard library's iterators end the process where memory runs out for a name, so that folders are read
// by the system's own calls.

#include "platform/DirectoryWalk.h"

#include "platform/FileSaving.h"
#include "platform/Files.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cwctype>
#include <memory>
#include <new>

namespace vostel {

namespace {

wchar_t Lower(wchar_t character)
{
    return static_cast<wchar_t>(std::towlower(static_cast<std::wint_t>(character)));
}

// On a mismatch the last star takes one character more.
bool MatchesLetterByLetter(const std::wstring& pattern, const std::wstring& name)
{
    std::size_t p = 0, n = 0, star = std::wstring::npos, resume = 0;
    while (n < name.size()) {
        if (p < pattern.size() && pattern[p] == L'*') {
            star = p++;
            resume = n;
        } else if (p < pattern.size() && (pattern[p] == L'?' || Lower(pattern[p]) == Lower(name[n]))) {
            ++p;
            ++n;
        } else if (star != std::wstring::npos) {
            p = star + 1;
            n = ++resume;
        } else {
            return false;
        }
    }
    while (p < pattern.size() && pattern[p] == L'*')
        ++p;
    return p == pattern.size();
}

bool Matches(std::wstring pattern, const std::wstring& name)
{
    while (!MatchesLetterByLetter(pattern, name)) {
        if (pattern.size() < 2 || pattern.compare(pattern.size() - 2, 2, L".*") != 0)
            return false;
        pattern.resize(pattern.size() - 2);
    }
    return true;
}

struct FolderAndName {
    std::wstring Folder;
    std::wstring Name;
};

FolderAndName Split(const std::wstring& pattern)
{
    const std::size_t cut = pattern.find_last_of(L"\\/");
    if (cut == std::wstring::npos)
        return {L".", pattern};
    return {cut == 0 ? L"/" : pattern.substr(0, cut), pattern.substr(cut + 1)};
}

std::string Narrow(const std::wstring& path)
{
    return NarrowAnsi(path.c_str(), static_cast<int>(path.size()));
}

// Both separators count in what a host gives, and a file system may hold a backslash in a name.
std::string NativePath(const std::wstring& text)
{
    std::string path = Narrow(text);
    struct stat facts;
    if (lstat(path.c_str(), &facts) != 0)
        std::replace(path.begin(), path.end(), '\\', '/');
    return path;
}

struct FolderCloser {
    void operator()(DIR* folder) const { closedir(folder); }
};

// Null for what cannot be listed.
std::unique_ptr<DIR, FolderCloser> OpenFolder(const std::string& path)
{
    DIR* const folder = opendir(path.c_str());
    if (!folder && errno == ENOMEM)
        throw std::bad_alloc();
    return std::unique_ptr<DIR, FolderCloser>(folder);
}

DirectoryEntry EntryOf(DIR* folder, const char* name)
{
    DirectoryEntry entry;
    struct stat    facts;
    entry.Name = WidenAnsi(name);
    entry.IsLink = fstatat(dirfd(folder), name, &facts, AT_SYMLINK_NOFOLLOW) == 0 && S_ISLNK(facts.st_mode);
    entry.IsDirectory = fstatat(dirfd(folder), name, &facts, 0) == 0 && S_ISDIR(facts.st_mode);
    return entry;
}

// To the end of the file, wherever that is by now.
bool CopyBytes(int from, int to)
{
    char block[65536];
    for (;;) {
        const ssize_t got = read(from, block, sizeof block);
        if (got <= 0)
            return got == 0;
        for (ssize_t done = 0; done < got;) {
            const ssize_t written = write(to, block + done, static_cast<std::size_t>(got - done));
            if (written < 0)
                return false;
            done += written;
        }
    }
}

}

const wchar_t PathSeparator = L'/';

std::vector<DirectoryEntry> MatchingEntries(const std::wstring& pattern)
{
    std::vector<DirectoryEntry> entries;
    const FolderAndName         wanted = Split(pattern);
    const auto                  folder = OpenFolder(NativePath(wanted.Folder));
    while (const dirent* const found = folder ? readdir(folder.get()) : nullptr) {
        const std::wstring name = WidenAnsi(found->d_name);
        if (name != L"." && name != L".." && Matches(wanted.Name, name))
            entries.push_back(EntryOf(folder.get(), found->d_name));
    }
    std::sort(entries.begin(), entries.end(),
              [](const DirectoryEntry& a, const DirectoryEntry& b) { return a.Name < b.Name; });
    return entries;
}

FirstMatch FindFirst(const std::wstring& pattern)
{
    const auto factsOf = [](const std::string& path) {
        struct stat facts;
        const bool  found = stat(path.c_str(), &facts) == 0;
        return FirstMatch{found, found && S_ISDIR(facts.st_mode)};
    };
    const FolderAndName wanted = Split(pattern);
    if (wanted.Name.find_first_of(L"*?") == std::wstring::npos)
        return wanted.Name.empty() ? FirstMatch() : factsOf(NativePath(pattern));
    if (Matches(wanted.Name, L".") && factsOf(NativePath(wanted.Folder)).IsDirectory)
        return {true, true};
    const std::vector<DirectoryEntry> entries = MatchingEntries(pattern);
    return entries.empty() ? FirstMatch() : FirstMatch{true, entries.front().IsDirectory};
}

std::wstring FolderPath(const std::wstring& path)
{
    return WidenAnsi(NativePath(path).c_str());
}

std::wstring FolderIdentity(const std::wstring& path)
{
    struct stat facts;
    if (stat(Narrow(path).c_str(), &facts) != 0 || !S_ISDIR(facts.st_mode))
        return std::wstring();
    return std::to_wstring(facts.st_dev) + L':' + std::to_wstring(facts.st_ino);
}

bool MakeFolder(const std::wstring& path)
{
    struct stat       facts;
    const std::string name = Narrow(path);
    return mkdir(name.c_str(), 0777) == 0 || (lstat(name.c_str(), &facts) == 0 && S_ISDIR(facts.st_mode));
}

bool CopyOneFile(const std::wstring& from, const std::wstring& to)
{
    const CString     besideName = NameBeside(to.c_str());
    const std::string target = Narrow(to);
    const std::string beside = NarrowAnsi(besideName, besideName.GetLength());
    const OwnedFile   file = OpenFile(Narrow(from).c_str(), "rb");
    struct stat       source, replaced;
    if (!file || fstat(fileno(file.get()), &source) != 0 || !S_ISREG(source.st_mode))
        return false;
    if (lstat(target.c_str(), &replaced) == 0 && !S_ISLNK(replaced.st_mode)) {
        const bool itself = replaced.st_dev == source.st_dev && replaced.st_ino == source.st_ino;
        if (itself || !S_ISREG(replaced.st_mode) ||
            faccessat(AT_FDCWD, target.c_str(), W_OK, AT_EACCESS) != 0)
            return false;
    }
    const int copy = open(beside.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
    if (copy < 0)
        return false;
    const bool whole = fchmod(copy, source.st_mode) == 0 && CopyBytes(fileno(file.get()), copy);
    if (close(copy) == 0 && whole && std::rename(beside.c_str(), target.c_str()) == 0)
        return true;
    std::remove(beside.c_str());
    return false;
}

}
