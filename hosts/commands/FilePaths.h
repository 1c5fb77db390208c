#pragma once

#include <VostelObj.h>

#include <filesystem>
#include <string>

namespace vostel::viewer {

// File names between the library's wide texts and the file system. Not through the locale of the program,
// which may know ASCII only and then refuses other names.
std::filesystem::path PathOf(const CString& name);
std::wstring          WideName(const std::filesystem::path& path);

// With its folder, without "." and ".."; unchanged when the system cannot tell.
std::wstring AbsolutePath(const std::wstring& name);

}
