#include "interchange/FileBytes.h"

#include "base/Failure.h"
#include "base/Utf8.h"
#include "foundation/Limits.h"
#include "platform/Files.h"
#include "platform/System.h"

#include <atomic>

namespace vostel {

namespace {

CString EndingOf(const CString& path)
{
    const int dot = path.ReverseFind(L'.');
    return dot < 0 ? CString() : path.Mid(dot);
}

// A name beside the path, with the same ending, that no other call uses.
CString NameBeside(const CString& path)
{
    static std::atomic<unsigned> last{0};
    const CString                ending = EndingOf(path);
    const std::wstring           number = std::to_wstring(ClockCount()) + L"-" + std::to_wstring(++last);
    return path.Left(path.GetLength() - ending.GetLength()) + L"~" + number.c_str() + ending;
}

bool WriteBytes(const CString& path, std::string_view bytes)
{
    const std::wstring_view name(path, static_cast<std::size_t>(path.GetLength()));
    OwnedFile               file = OpenUtf8File(Utf8Of(name).c_str(), "wb");
    if (!file)
        return false;
    const bool written =
        std::fwrite(bytes.data(), 1, bytes.size(), file.get()) == bytes.size() && FlushToDisk(file.get());
    return std::fclose(file.release()) == 0 && written;
}

}

std::string ReadWholeFile(const char* utf8Path)
{
    const OwnedFile file = OpenUtf8File(utf8Path, "rb");
    const long long length = file ? FileLength(file.get()) : -1;
    if (length < 0)
        Fail(VOSTEL_NOT_READ, "path cannot be read");
    if (length > LimitsInForce().MaxFileBytes)
        Fail(VOSTEL_TOO_LARGE, "the file is larger than max_file_bytes");
    std::string bytes(static_cast<std::size_t>(length), '\0');
    if (std::fread(bytes.data(), 1, bytes.size(), file.get()) != bytes.size())
        Fail(VOSTEL_NOT_READ, "path cannot be read to its end");
    return bytes;
}

void SaveBeside(const CString& path, const std::function<bool(const CString& beside)>& write)
{
    const CString beside = NameBeside(path);
    if (!write(beside) || !MoveFileOver(beside, path)) {
        RemoveFile(beside);
        Fail(VOSTEL_NOT_WRITTEN, "path cannot be written");
    }
}

void WriteWholeFile(const char* utf8Path, std::string_view bytes)
{
    const std::optional<std::wstring> path = WideOf(utf8Path);
    if (!path)
        Fail(VOSTEL_INVALID_ARGUMENT, "path is not UTF-8");
    SaveBeside(path->c_str(), [&](const CString& beside) { return WriteBytes(beside, bytes); });
}

}
