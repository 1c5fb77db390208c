#include "interchange/FileBytes.h"

#include "base/Failure.h"
#include "base/Utf8.h"
#include "foundation/Limits.h"
#include "platform/FileReading.h"
#include "platform/FileSaving.h"
#include "platform/Files.h"

namespace vostel {

namespace {

CString WidePath(const char* utf8Path)
{
    const std::optional<std::wstring> path = WideOf(utf8Path);
    if (!path)
        Fail(VOSTEL_INVALID_ARGUMENT, "path is not UTF-8");
    return CString(path->c_str());
}

[[noreturn]] void FailToWrite()
{
    Fail(VOSTEL_NOT_WRITTEN, "path cannot be written");
}

void Write(FileReplacement& file, std::string_view bytes)
{
    if (!file.Stream() || std::fwrite(bytes.data(), 1, bytes.size(), file.Stream()) != bytes.size() ||
        !FlushToDisk(file.Stream()))
        FailToWrite();
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
    if (!ReadToEnd(file.get(), bytes.data(), bytes.size()))
        Fail(VOSTEL_NOT_READ, "path cannot be read to its end");
    return bytes;
}

void WriteWholeFile(const char* utf8Path, std::string_view bytes)
{
    FileReplacement file(WidePath(utf8Path));
    Write(file, bytes);
    if (!file.Keep())
        FailToWrite();
}

void WriteWholeFiles(const FileContent& first, const FileContent& second)
{
    FileReplacement before(WidePath(first.Path.c_str()));
    Write(before, first.Bytes);
    FileReplacement after(WidePath(second.Path.c_str()));
    Write(after, second.Bytes);
    if (!before.Keep() || !after.Keep())
        FailToWrite();
}

}
