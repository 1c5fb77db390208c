#pragma once

#include "vostel/platform.h"

#include <functional>
#include <string>
#include <string_view>

namespace vostel {

// Fails with VOSTEL_NOT_READ, and with VOSTEL_TOO_LARGE beyond the limit of files.
std::string ReadWholeFile(const char* utf8Path);

// Has a file written under a name beside its path, with the same ending, and moved over the path then. What
// fails leaves the file that was there, and nothing else: VOSTEL_NOT_WRITTEN.
void SaveBeside(const CString& path, const std::function<bool(const CString& beside)>& write);
void WriteWholeFile(const char* utf8Path, std::string_view bytes);

}
