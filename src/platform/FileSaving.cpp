#include "platform/FileSaving.h"

#include "platform/Files.h"
#include "platform/System.h"

#include <atomic>
#include <new>
#include <string>

namespace vostel {

CString NameBeside(const CString& path)
{
    static std::atomic<unsigned> last{0};
    constexpr std::size_t        LongestEnding = 16;
    const std::wstring           text(path, static_cast<std::size_t>(path.GetLength()));
    const std::size_t            folder = text.find_last_of(L"/\\:") + 1;    // 0 where there is none
    const std::size_t            dot = text.find_last_of(L'.');
    std::wstring                 name = text.substr(0, folder);
    // The name itself may be as long as names can be.
    name += L"~" + std::to_wstring(ClockCount()) + L"-" + std::to_wstring(++last);
    if (dot != std::wstring::npos && dot >= folder && text.size() - dot <= LongestEnding)
        name += text.substr(dot);
    return CString(name.c_str());
}

FileReplacement::FileReplacement(const CString& path, const char* mode) : Path(path)
{
    switch (WayOfSaving(Path)) {
    case SaveWay::Nowhere:
        break;
    case SaveWay::InPlace:
        File = OpenFile(NarrowAnsi(Path, Path.GetLength()).c_str(), mode);
        break;
    case SaveWay::Beside:
        Beside = NameBeside(Path);
        File = CreateFileLike(Path, Beside, mode);
        if (!File)
            Beside.Empty();
        break;
    }
    Opened = File != nullptr;
}

FileReplacement::~FileReplacement()
{
    Discard();
}

CString FileReplacement::CloseToName()
{
    if (!Opened)
        return CString();
    File.reset();
    return Beside.IsEmpty() ? Path : Beside;
}

bool FileReplacement::Keep()
{
    bool good = Opened;
    if (File) {
        good = std::ferror(File.get()) == 0 && good;
        good = std::fclose(File.release()) == 0 && good;
    }
    good = good && (Beside.IsEmpty() || MoveFileOver(Beside, Path));
    if (good)
        Beside.Empty();
    else
        Discard();
    Opened = false;
    return good;
}

void FileReplacement::Discard()
{
    File.reset();
    if (Beside.IsEmpty())
        return;
    try {
        RemoveFile(Beside);
    } catch (const std::bad_alloc&) {
        // Nor is there any memory to say so.
    }
    Beside.Empty();
}

}
