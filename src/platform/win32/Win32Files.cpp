// Files by their names in the system's code page.

#include "platform/Files.h"

#include <io.h>
#include <shlwapi.h>
#include <sys/stat.h>

#include <algorithm>
#include <cwchar>
#include <fstream>

namespace vostel {

namespace {

std::string Narrow(UINT codePage, const wchar_t* text, int length)
{
    if (!text)
        return std::string();
    const int count = length < 0 ? static_cast<int>(std::wcslen(text)) : length;
    const int bytes =
        count > 0 ? WideCharToMultiByte(codePage, 0, text, count, nullptr, 0, nullptr, nullptr) : 0;
    if (bytes <= 0)
        return std::string();
    std::string narrow(static_cast<std::size_t>(bytes), '\0');
    WideCharToMultiByte(codePage, 0, text, count, narrow.data(), bytes, nullptr, nullptr);
    return narrow;
}

std::wstring Widen(UINT codePage, const char* text)
{
    if (!text)
        return std::wstring();
    const int count = MultiByteToWideChar(codePage, 0, text, -1, nullptr, 0);
    if (count <= 1)
        return std::wstring();
    std::wstring wide(static_cast<std::size_t>(count), L'\0');
    MultiByteToWideChar(codePage, 0, text, -1, wide.data(), count);
    wide.resize(static_cast<std::size_t>(count) - 1);
    return wide;
}

}

bool PathExists(const char* path)
{
    return path && _access(path, 0) == 0;
}

bool IsDirectory(const CString& path)
{
    return PathIsDirectoryW(path) != FALSE;
}

bool IsPlainFile(const char* path)
{
    struct _stat64 facts;
    return path && _stat64(path, &facts) == 0 && (facts.st_mode & _S_IFMT) == _S_IFREG;
}

OwnedFile OpenFile(const char* path, const char* mode)
{
    std::FILE* file = nullptr;
    if (!path || !mode || fopen_s(&file, path, mode) != 0)
        return nullptr;
    return OwnedFile(file);
}

OwnedFile OpenUtf8File(const char* path, const char* mode)
{
    std::FILE* file = nullptr;
    if (!path || !mode)
        return nullptr;
    const std::wstring wide = Widen(CP_UTF8, path);
    const std::wstring wideMode = Widen(CP_UTF8, mode);
    if (wide.empty() || _wfopen_s(&file, wide.c_str(), wideMode.c_str()) != 0)
        return nullptr;
    return OwnedFile(file);
}

bool OpenStream(std::filebuf& stream, const char* path, std::ios_base::openmode mode)
{
    return path && stream.open(path, mode);
}

bool SeekFile(std::FILE* file, long long place)
{
    return _fseeki64(file, place, SEEK_SET) == 0;
}

std::size_t ReadFileAt(std::FILE* file, long long place, void* bytes, std::size_t count)
{
    const HANDLE handle = reinterpret_cast<HANDLE>(_get_osfhandle(_fileno(file)));
    std::size_t  done = 0;
    while (done < count) {
        // With a place given, a read does not begin at the position that all threads share.
        const unsigned long long from = static_cast<unsigned long long>(place) + done;
        OVERLAPPED               at = {};
        at.Offset = static_cast<DWORD>(from);
        at.OffsetHigh = static_cast<DWORD>(from >> 32);
        const DWORD wanted = static_cast<DWORD>(std::min<std::size_t>(count - done, 1 << 30));
        DWORD       got = 0;
        if (!ReadFile(handle, static_cast<char*>(bytes) + done, wanted, &got, &at) || got == 0)
            break;
        done += got;
    }
    return done;
}

long long FileLength(std::FILE* file)
{
    struct _stat64 facts;
    if (!file || _fstat64(_fileno(file), &facts) != 0 || (facts.st_mode & _S_IFMT) != _S_IFREG)
        return -1;
    return facts.st_size;
}

bool FlushToDisk(std::FILE* file)
{
    return std::fflush(file) == 0 && _commit(_fileno(file)) == 0;
}

bool MoveFileOver(const CString& from, const CString& to)
{
    return MoveFileExW(from, to, MOVEFILE_REPLACE_EXISTING) != 0;
}

void RemoveFile(const CString& path)
{
    DeleteFileW(path);
}

SaveWay WayOfSaving(CString& path)
{
    constexpr DWORD Refused = FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_READONLY;
    const DWORD     facts = GetFileAttributesW(path);
    if (path.IsEmpty())
        return SaveWay::Nowhere;
    if (facts == INVALID_FILE_ATTRIBUTES)
        return SaveWay::Beside;
    if ((facts & Refused) != 0)
        return SaveWay::Nowhere;
    return (facts & FILE_ATTRIBUTE_DEVICE) != 0 ? SaveWay::InPlace : SaveWay::Beside;
}

OwnedFile CreateFileLike(const CString&, const CString& path, const char* mode)
{
    std::FILE*         file = nullptr;
    const std::wstring wideMode = Widen(CP_UTF8, mode);
    if (GetFileAttributesW(path) != INVALID_FILE_ATTRIBUTES || _wfopen_s(&file, path, wideMode.c_str()) != 0)
        return nullptr;
    return OwnedFile(file);
}

std::string NarrowAnsi(const wchar_t* text, int length)
{
    return Narrow(CP_ACP, text, length);
}

std::string NarrowOem(const wchar_t* text, int length)
{
    return Narrow(CP_OEMCP, text, length);
}

std::wstring WidenAnsi(const char* text)
{
    return Widen(CP_ACP, text);
}

bool IsPathSeparator(wchar_t character)
{
    return character == L'\\';
}

std::string FullUtf8Path(const std::string& path)
{
    const std::wstring wide = Widen(CP_UTF8, path.c_str());
    const DWORD        most = GetFullPathNameW(wide.c_str(), 0, nullptr, nullptr);
    std::wstring       full(most, L'\0');
    const DWORD        length = GetFullPathNameW(wide.c_str(), most, full.data(), nullptr);
    if (length == 0 || length >= most)
        return std::string();
    return WithSlashes(Narrow(CP_UTF8, full.c_str(), static_cast<int>(length)));
}

std::string WithSlashes(std::string utf8Path)
{
    std::replace(utf8Path.begin(), utf8Path.end(), '\\', '/');
    return utf8Path;
}

std::size_t RootLength(std::string_view utf8Path)
{
    if (utf8Path.size() > 1 && utf8Path[1] == ':')
        return utf8Path.size() > 2 && utf8Path[2] == '/' ? 3 : 2;
    if (!utf8Path.starts_with("//"))
        return utf8Path.starts_with('/') ? 1 : 0;
    const std::size_t server = utf8Path.find('/', 2);
    const std::size_t share = server == std::string_view::npos ? server : utf8Path.find('/', server + 1);
    return std::min(share, utf8Path.size() - 1) + 1;
}

}
