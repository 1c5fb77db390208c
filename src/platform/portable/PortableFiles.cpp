// Files by their UTF-8 names. Bytes of a name that are not UTF-8 stand as U+DC80 to U+DCFF in wide text, so
// that every name survives the way there and back.

#include "platform/Files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <ext/stdio_filebuf.h>

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstring>
#include <cwchar>

namespace vostel {

namespace {

int FlagsOf(const char* mode)
{
    return mode[0] == 'r'   ? O_RDONLY
           : mode[0] == 'a' ? O_WRONLY | O_CREAT | O_APPEND
                            : O_WRONLY | O_CREAT | O_TRUNC;
}

// Opening a pipe would wait for whoever opens its other end, and a path may come to lead to one at any
// moment.
int OpenDescriptor(const char* path, int flags)
{
    const auto isRefused = [](const struct stat& facts) {
        return S_ISFIFO(facts.st_mode) || S_ISDIR(facts.st_mode);
    };
    struct stat facts;
    if (stat(path, &facts) == 0 && isRefused(facts))
        return -1;
    const int descriptor = open(path, flags | O_NONBLOCK | O_CLOEXEC, 0666);
    if (descriptor < 0)
        return -1;
    if (fstat(descriptor, &facts) == 0 && !isRefused(facts) &&
        fcntl(descriptor, F_SETFL, flags & O_APPEND) == 0)
        return descriptor;
    close(descriptor);
    return -1;
}

}

bool PathExists(const char* path)
{
    struct stat facts;
    return path && stat(path, &facts) == 0;
}

bool IsDirectory(const CString& path)
{
    // Both separators count in path strings, and a file system may hold a backslash in a name.
    std::string narrow = NarrowAnsi(path, path.GetLength());
    const auto  isFolder = [](const std::string& name) {
        struct stat facts;
        return stat(name.c_str(), &facts) == 0 && S_ISDIR(facts.st_mode);
    };
    if (isFolder(narrow))
        return true;
    std::replace(narrow.begin(), narrow.end(), '\\', '/');
    return isFolder(narrow);
}

bool IsPlainFile(const char* path)
{
    struct stat facts;
    return path && stat(path, &facts) == 0 && S_ISREG(facts.st_mode);
}

OwnedFile OpenFile(const char* path, const char* mode)
{
    const int descriptor = path && mode ? OpenDescriptor(path, FlagsOf(mode)) : -1;
    OwnedFile file(descriptor < 0 ? nullptr : fdopen(descriptor, mode));
    if (!file && descriptor >= 0)
        close(descriptor);
    return file;
}

bool OpenStream(std::filebuf& stream, const char* path, std::ios_base::openmode mode)
{
    if (!path || stream.is_open())
        return false;
    const bool reads = (mode & std::ios_base::in) != 0;
    const bool appends = (mode & std::ios_base::app) != 0;
    const int  descriptor = OpenDescriptor(path, FlagsOf(reads ? "r" : appends ? "a" : "w"));
    if (descriptor < 0)
        return false;
    __gnu_cxx::stdio_filebuf<char> opened(descriptor, mode);
    stream.swap(opened);
    return stream.is_open();
}

OwnedFile OpenUtf8File(const char* path, const char* mode)
{
    return OpenFile(path, mode);
}

bool SeekFile(std::FILE* file, long long place)
{
    return fseeko(file, static_cast<off_t>(place), SEEK_SET) == 0;
}

std::size_t ReadFileAt(std::FILE* file, long long place, void* bytes, std::size_t count)
{
    std::size_t done = 0;
    while (done < count) {
        const ssize_t got = pread(fileno(file), static_cast<char*>(bytes) + done, count - done,
                                  static_cast<off_t>(place + static_cast<long long>(done)));
        if (got < 0 && errno == EINTR)
            continue;
        if (got <= 0)
            break;
        done += static_cast<std::size_t>(got);
    }
    return done;
}

long long FileLength(std::FILE* file)
{
    struct stat facts;
    if (!file || fstat(fileno(file), &facts) != 0 || !S_ISREG(facts.st_mode))
        return -1;
    return facts.st_size;
}

bool FlushToDisk(std::FILE* file)
{
    // What lies on no disk, as a pipe, has nothing to wait for.
    return std::fflush(file) == 0 && (fsync(fileno(file)) == 0 || errno == EINVAL);
}

bool MoveFileOver(const CString& from, const CString& to)
{
    return std::rename(NarrowAnsi(from, from.GetLength()).c_str(), NarrowAnsi(to, to.GetLength()).c_str()) ==
           0;
}

void RemoveFile(const CString& path)
{
    std::remove(NarrowAnsi(path, path.GetLength()).c_str());
}

SaveWay WayOfSaving(CString& path)
{
    std::string name = NarrowAnsi(path, path.GetLength());
    struct stat reached, named;
    const bool  exists = stat(name.c_str(), &reached) == 0;
    if (name.empty() || (!exists && errno != ENOENT))
        return SaveWay::Nowhere;
    if (exists && !S_ISREG(reached.st_mode))
        return S_ISDIR(reached.st_mode) || S_ISFIFO(reached.st_mode) ? SaveWay::Nowhere : SaveWay::InPlace;
    if (exists && faccessat(AT_FDCWD, name.c_str(), W_OK, AT_EACCESS) != 0)
        return SaveWay::Nowhere;
    int links = 40;    // as many as the system follows
    while (lstat(name.c_str(), &named) == 0 && S_ISLNK(named.st_mode)) {
        std::string   target(4096, '\0');
        const ssize_t length = readlink(name.c_str(), target.data(), target.size());
        if (links-- == 0 || length <= 0 || static_cast<std::size_t>(length) == target.size())
            return SaveWay::Nowhere;
        target.resize(static_cast<std::size_t>(length));
        name = target[0] == '/' ? target : name.substr(0, name.rfind('/') + 1) + target;
    }
    // What a link of the process table says may lead elsewhere than the link.
    if (exists &&
        (stat(name.c_str(), &named) != 0 || named.st_dev != reached.st_dev || named.st_ino != reached.st_ino))
        return SaveWay::InPlace;
    path = WidenAnsi(name.c_str()).c_str();
    return SaveWay::Beside;
}

OwnedFile CreateFileLike(const CString& like, const CString& path, const char* mode)
{
    const std::string example = NarrowAnsi(like, like.GetLength());
    const std::string name = NarrowAnsi(path, path.GetLength());
    const int         descriptor = open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (descriptor < 0)
        return nullptr;
    struct stat facts;
    if (stat(example.c_str(), &facts) == 0) {
        // Only a privileged process can give a file away.
        [[maybe_unused]] const int given = fchown(descriptor, facts.st_uid, facts.st_gid);
        fchmod(descriptor, facts.st_mode & 0777);
    }
    OwnedFile file(fdopen(descriptor, mode));
    if (!file) {
        close(descriptor);
        unlink(name.c_str());
    }
    return file;
}

std::string NarrowAnsi(const wchar_t* text, int length)
{
    std::string narrow;
    if (!text)
        return narrow;
    const std::size_t count = length < 0 ? std::wcslen(text) : static_cast<std::size_t>(length);
    narrow.reserve(count);
    for (std::size_t i = 0; i < count; ++i) {
        std::uint32_t code = static_cast<std::uint32_t>(text[i]);
        if (code >= 0xDC80 && code <= 0xDCFF) {
            narrow += static_cast<char>(code & 0xFF);
            continue;
        }
        if (code > 0x10FFFF || (code >= 0xD800 && code <= 0xDFFF))
            code = 0xFFFD;
        const int more = code < 0x80 ? 0 : code < 0x800 ? 1 : code < 0x10000 ? 2 : 3;
        const int marks[] = {0, 0xC0, 0xE0, 0xF0};
        narrow += static_cast<char>(marks[more] | static_cast<int>(code >> 6 * more));
        for (int left = more - 1; left >= 0; --left)
            narrow += static_cast<char>(0x80 | (code >> 6 * left & 0x3F));
    }
    return narrow;
}

std::string NarrowOem(const wchar_t* text, int length)
{
    return NarrowAnsi(text, length);
}

std::wstring WidenAnsi(const char* text)
{
    std::wstring wide;
    if (!text)
        return wide;
    const std::uint32_t  smallest[] = {0, 0x80, 0x800, 0x10000};    // what a sequence has to be used for
    const unsigned char* at = reinterpret_cast<const unsigned char*>(text);
    while (*at != 0) {
        const unsigned first = *at;
        const int      more = first < 0x80             ? 0
                              : (first & 0xE0) == 0xC0 ? 1
                              : (first & 0xF0) == 0xE0 ? 2
                              : (first & 0xF8) == 0xF0 ? 3
                                                       : -1;
        std::uint32_t  code = more <= 0 ? first : first & (0x3Fu >> more);
        bool           whole = more >= 0;
        for (int i = 1; whole && i <= more; ++i) {
            whole = (at[i] & 0xC0) == 0x80;    // false at the terminator, which stays ahead
            code = code << 6 | (at[i] & 0x3F);
        }
        if (!whole || code < smallest[more] || code > 0x10FFFF || (code >= 0xD800 && code <= 0xDFFF)) {
            wide += static_cast<wchar_t>(0xDC00 | first);
            ++at;
            continue;
        }
        wide += static_cast<wchar_t>(code);
        at += more + 1;
    }
    return wide;
}

bool IsPathSeparator(wchar_t character)
{
    return character == L'\\' || character == L'/';
}

std::string FullUtf8Path(const std::string& path)
{
    if (path.empty() || path[0] == '/')
        return path;
    std::string folder(256, '\0');
    while (!getcwd(folder.data(), folder.size())) {
        if (errno != ERANGE)
            return std::string();
        folder.resize(2 * folder.size());
    }
    folder.resize(std::strlen(folder.c_str()));
    return folder + "/" + path;
}

std::string WithSlashes(std::string utf8Path)
{
    return utf8Path;
}

std::size_t RootLength(std::string_view utf8Path)
{
    return utf8Path.starts_with('/') ? 1 : 0;
}

}
