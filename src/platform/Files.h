#pragma once

// Files and narrow names, one source per platform. Narrow paths are what the C file functions take.

#include "base/OwnedFile.h"
#include "vostel/platform.h"

#include <cstddef>
#include <cstdio>
#include <ios>
#include <iosfwd>
#include <string>
#include <string_view>

namespace vostel {

bool      PathExists(const char* path);                        // a file or a directory; false for null
bool      IsDirectory(const CString& path);                    // an existing directory
bool      IsPlainFile(const char* path);                       // no directory, pipe or device
OwnedFile OpenFile(const char* path, const char* mode);        // null on failure, or for a null argument
OwnedFile OpenUtf8File(const char* path, const char* mode);    // the same for a path in UTF-8
// The same for a stream that is closed; a file that is neither read nor added to is cut.
bool OpenStream(std::filebuf& stream, const char* path, std::ios_base::openmode mode);
bool SeekFile(std::FILE* file, long long place);    // counted from the beginning
// Reads from a place of a regular file, whatever its position, which may change; several threads may do so at
// once. Returns how many bytes came, fewer at its end.
std::size_t ReadFileAt(std::FILE* file, long long place, void* bytes, std::size_t count);
// Bytes of an open regular file whatever its size, -1 if it is unknown; the position is kept.
long long FileLength(std::FILE* file);
// Has all that was written to a file stand on the disk; false if it does not.
bool FlushToDisk(std::FILE* file);
// Gives a file another name in the same folder, whatever has it; false if the file keeps the old one.
bool MoveFileOver(const CString& from, const CString& to);
void RemoveFile(const CString& path);

// How a save gets to a path: by a file beside it, into what is there, as into a device, or not at all.
enum class SaveWay { Beside, InPlace, Nowhere };
// Off Windows the path becomes that at the end of links.
SaveWay WayOfSaving(CString& path);
// A new file, off Windows with mode and owner of the one that it is like, if there is that one; null if the
// name is taken or cannot be had.
OwnedFile CreateFileLike(const CString& like, const CString& path, const char* mode);

std::string  NarrowAnsi(const wchar_t* text, int length);    // system code page; UTF-8 off Windows
std::string  NarrowOem(const wchar_t* text, int length);     // console code page; UTF-8 off Windows
std::wstring WidenAnsi(const char* text);
bool         IsPathSeparator(wchar_t character);    // backslash; off Windows a slash too

// A path in UTF-8 from its root on, with forward slashes; empty where the system does not say.
std::string FullUtf8Path(const std::string& path);
// With forward slashes in the place of the separators that the system takes too.
std::string WithSlashes(std::string utf8Path);
// Bytes of the root of a path with forward slashes: of "/", "C:/" or "//server/share/"; 0 of a relative one.
std::size_t RootLength(std::string_view utf8Path);

}
