#include "vostel/Directories.h"

#include "platform/DirectoryWalk.h"
#include "platform/FileSaving.h"
#include "platform/Files.h"
#include "platform/HostServices.h"

#include <algorithm>
#include <set>
#include <string>
#include <string_view>

using namespace vostel;

namespace {

const wchar_t* const Cancelled = L"NULL";
const wchar_t* const Everything = L"*.*";

const wchar_t* const AllFilter =
    L"所有文件(*.*)|*.*|(*.raw) |*.raw|(*.bmp) |*.bmp|(*.jpg) |*.jpg|(*.gif) |*.gif|(*.tif) |*.tif||";
const wchar_t* const PictureFilter =
    L"图像文件格式(*.bmp) |*.bmp|(*.jpg) |*.jpg|(*.gif) |*.gif|所有文件(*.*)|*.*||";
const wchar_t* const RawFilter = L"图像文件格式(*.raw) |*.raw|(*.hraw) |*.hraw|所有文件(*.*)|*.*||";
const wchar_t* const PictureOrTiffFilter =
    L"图像文件格式(*.bmp) |*.bmp|(*.jpg) |*.jpg|(*.gif) |*.gif|(*.tiff) |*.tiff||";

constexpr unsigned SaveFlags = OFN_HIDEREADONLY | OFN_NOCHANGEDIR;
constexpr unsigned PromptingSaveFlags = SaveFlags | OFN_OVERWRITEPROMPT;

CString AskSaveName(const wchar_t* extension, unsigned flags, const wchar_t* filter)
{
    VostelFileRequest request;
    request.Save = true;
    request.DefaultExtension = extension;
    request.DefaultName = L"未命名";
    request.Flags = flags;
    request.Filter = filter;
    std::vector<CString> paths;
    return ChooseFiles(request, paths) && !paths.empty() ? paths.front() : CString(Cancelled);
}

std::wstring WithoutPattern(const CString& pattern)
{
    std::wstring      text(pattern.GetString());
    const std::size_t length = std::wstring_view(Everything).size() + 1;
    if (text.size() >= length && text.compare(text.size() - length + 1, length - 1, Everything) == 0 &&
        IsPathSeparator(text[text.size() - length]))
        text.resize(text.size() - length);
    return text;
}

std::wstring Inside(const std::wstring& folder, const std::wstring& name)
{
    return folder + PathSeparator + name;
}

// One copy of a tree. Links are followed, and what lies behind them is copied once: links that lead to each
// other would make a path of every order in which they can be followed.
class TreeCopy {
public:
    explicit TreeCopy(const std::wstring& goal) : Closed{FolderIdentity(goal)} {}

    // linked: the folder lies behind a link.
    bool Copy(const std::wstring& from, const std::wstring& to, bool linked)
    {
        bool result = false;
        Closed.push_back(FolderIdentity(from));
        for (const DirectoryEntry& entry : MatchingEntries(Inside(from, Everything))) {
            const std::wstring source = Inside(from, entry.Name);
            const std::wstring target = Inside(to, entry.Name);
            if (!entry.IsDirectory) {
                result = CopyOneFile(source, target);
            } else {
                const std::wstring identity = FolderIdentity(source);
                if (!identity.empty() && std::find(Closed.begin(), Closed.end(), identity) != Closed.end())
                    continue;
                const bool behindLink = linked || entry.IsLink;
                result = (behindLink && !BehindLinks.insert(identity).second) ||
                         (MakeFolder(target) && Copy(source, target, behindLink));
            }
            if (!result)
                break;
        }
        Closed.pop_back();
        return result;
    }

private:
    // The target, which may lie inside the source, and those on the way here, which links may lead back to.
    std::vector<std::wstring> Closed;
    std::set<std::wstring>    BehindLinks;    // those copied already
};

// A line takes far more memory than the byte that ends it.
constexpr std::size_t MostLines = std::size_t{1} << 20;

// Calls take(line) for the pieces of a text file until it returns false. If no line is left at the end, the
// one before comes once more.
template <typename Take>
void ForEachLine(std::FILE* file, Take take)
{
    char line[1024] = "";
    bool more = true;
    while (more && !std::feof(file) && !std::ferror(file)) {
        [[maybe_unused]] const char* const read = std::fgets(line, sizeof line, file);
        more = take(line);
    }
}

void ListFiles(const std::wstring& dir, std::vector<CString>& out, bool recursive,
               const std::wstring& pattern)
{
    for (const DirectoryEntry& entry : MatchingEntries(Inside(dir, pattern))) {
        if (!entry.IsDirectory)
            out.push_back(CString(Inside(dir, entry.Name).c_str()));
    }
    if (!recursive)
        return;
    for (const DirectoryEntry& entry : MatchingEntries(Inside(dir, Everything))) {
        if (entry.IsDirectory && !entry.IsLink)
            ListFiles(Inside(dir, entry.Name), out, recursive, pattern);
    }
}

}

CString OSDIR::GetFile()
{
    return AskSaveName(L"bmp", SaveFlags, AllFilter);
}

CString OSDIR::GetBmpFile()
{
    return AskSaveName(L"bmp", PromptingSaveFlags, PictureFilter);
}

CString OSDIR::GetRawFile()
{
    return AskSaveName(L"raw", PromptingSaveFlags, RawFilter);
}

CString OSDIR::GetBmpFileNoOverWritePrompt()
{
    return AskSaveName(L"bmp", SaveFlags, PictureOrTiffFilter);
}

CString OSDIR::GetRawFileNoOverWritePrompt()
{
    return AskSaveName(L"raw", SaveFlags, RawFilter);
}

// The services make their own room for the names, so bufferChars is ignored.
bool OSDIR::GetMultiFile(std::vector<CString>& names, int)
{
    VostelFileRequest request;
    request.DefaultExtension = Everything;
    request.Flags = OFN_ALLOWMULTISELECT | OFN_HIDEREADONLY;
    request.Filter = L"All files and folders(*.*)|*.*||";
    std::vector<CString> paths;
    if (!ChooseFiles(request, paths))
        return false;
    names.insert(names.end(), paths.begin(), paths.end());
    return !names.empty();
}

CString OSDIR::GetDir()
{
    CString folder;
    return ChooseFolder(L"选择待处理文件的文件夹", folder) && !folder.IsEmpty() ? folder : CString(Cancelled);
}

bool OSDIR::IsDir(CString& path)
{
    return IsDirectory(path);
}

bool OSDIR::CheckFolderExist(const CString& path)
{
    return FindFirst(path.GetString()).IsDirectory;
}

bool OSDIR::DirectoryOperate(CString from, CString to, unsigned int)
{
    const std::wstring goal = FolderPath(WithoutPattern(to));
    return TreeCopy(goal).Copy(FolderPath(WithoutPattern(from)), goal, false);
}

void OSDIR::FindFile(wchar_t* dir, std::vector<CString>& out, bool recursive, wchar_t* pattern)
{
    if (dir && pattern)
        ListFiles(dir, out, recursive, pattern);
}

void OSDIR::Write(char* path, std::vector<CString> list)
{
    FileReplacement file(CString(path), "w");
    if (!file.Stream())
        return;
    for (const CString& line : list) {
        const std::string narrow = NarrowAnsi(line, line.GetLength());
        std::fwrite(narrow.data(), 1, narrow.size(), file.Stream());
        std::fputc('\n', file.Stream());
    }
    file.Keep();    // a failure is not reported
}

bool OSDIR::Read(char* path, std::vector<CString>& list)
{
    const OwnedFile file = OpenFile(path, "r");
    // What has no length, as a device, may have no end.
    if (!file || FileLength(file.get()) < 0)
        return true;
    std::size_t lines = 0;
    ForEachLine(file.get(), [&](const char*) { return ++lines <= MostLines; });
    if (lines > MostLines || std::fseek(file.get(), 0, SEEK_SET) != 0)
        return true;
    list.reserve(list.size() + lines);
    ForEachLine(file.get(), [&](const char* line) {
        CString text = WidenAnsi(line).c_str();
        text.Trim();
        list.push_back(text);
        return lines-- > 1;    // the file may have grown since
    });
    return false;
}

bool OSGetFileListFromDir(std::string pattern, std::vector<std::string>& names)
{
    names.clear();
    const std::wstring wide = WidenAnsi(pattern.c_str());
    bool               found = FindFirst(wide).Found;
    for (const DirectoryEntry& entry : MatchingEntries(wide)) {
        found = true;
        if (!entry.IsDirectory)
            names.push_back(NarrowAnsi(entry.Name.c_str(), static_cast<int>(entry.Name.size())));
    }
    return found;
}
