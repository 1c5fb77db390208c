#include "platform/DirectoryWalk.h"

#include "platform/Files.h"

#include <algorithm>
#include <cwctype>
#include <filesystem>

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

std::filesystem::path NativePath(const std::wstring& text)
{
    std::wstring slashed = text;
    std::replace(slashed.begin(), slashed.end(), L'\\', L'/');
    return NarrowAnsi(slashed.c_str(), static_cast<int>(slashed.size()));
}

}

const wchar_t PathSeparator = L'/';

std::vector<DirectoryEntry> MatchingEntries(const std::wstring& pattern)
{
    std::vector<DirectoryEntry> entries;
    const FolderAndName         wanted = Split(pattern);
    std::error_code             failure;
    for (std::filesystem::directory_iterator at(NativePath(wanted.Folder), failure), end;
         !failure && at != end; at.increment(failure)) {
        const std::wstring name = WidenAnsi(at->path().filename().c_str());
        std::error_code    unknown;
        if (Matches(wanted.Name, name))
            entries.push_back({name, at->is_directory(unknown), at->is_symlink(unknown)});
    }
    std::sort(entries.begin(), entries.end(),
              [](const DirectoryEntry& a, const DirectoryEntry& b) { return a.Name < b.Name; });
    return entries;
}

FirstMatch FindFirst(const std::wstring& pattern)
{
    std::error_code     failure;
    const FolderAndName wanted = Split(pattern);
    if (wanted.Name.find_first_of(L"*?") == std::wstring::npos) {
        const auto facts = std::filesystem::status(NativePath(pattern), failure);
        const bool found = !wanted.Name.empty() && std::filesystem::exists(facts);
        return {found, found && std::filesystem::is_directory(facts)};
    }
    if (Matches(wanted.Name, L".") && std::filesystem::is_directory(NativePath(wanted.Folder), failure))
        return {true, true};
    const std::vector<DirectoryEntry> entries = MatchingEntries(pattern);
    return entries.empty() ? FirstMatch() : FirstMatch{true, entries.front().IsDirectory};
}

std::wstring FolderIdentity(const std::wstring& path)
{
    std::error_code   failure;
    const std::string real = std::filesystem::canonical(NativePath(path), failure).string();
    return failure || !std::filesystem::is_directory(real, failure) ? std::wstring()
                                                                    : WidenAnsi(real.c_str());
}

bool MakeFolder(const std::wstring& path)
{
    std::error_code failure;
    std::filesystem::create_directory(NativePath(path), failure);
    return std::filesystem::is_directory(NativePath(path), failure);
}

bool CopyOneFile(const std::wstring& from, const std::wstring& to)
{
    std::error_code failure;
    return std::filesystem::copy_file(NativePath(from), NativePath(to),
                                      std::filesystem::copy_options::overwrite_existing, failure);
}

}
