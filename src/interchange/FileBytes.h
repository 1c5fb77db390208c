#pragma once

#include <string>
#include <string_view>

namespace vostel {

// Fails with VOSTEL_NOT_READ, and with VOSTEL_TOO_LARGE beyond the limit of files.
std::string ReadWholeFile(const char* utf8Path);

// Writes the bytes beside the path, has them stand on the disk and moves them there. What fails leaves the
// file that was there, and nothing else: VOSTEL_NOT_WRITTEN.
void WriteWholeFile(const char* utf8Path, std::string_view bytes);

struct FileContent {
    std::string Path;    // in UTF-8
    std::string Bytes;
};
// The same for two files that belong together. Neither is moved before both stand on the disk, then the first
// one is.
void WriteWholeFiles(const FileContent& first, const FileContent& second);

}
