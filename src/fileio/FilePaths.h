#pragma once

// Paths in UTF-8, in any notation that the platform has.

#include <string>

namespace vostel {

// As the process now understands the path; the path itself where the system does not say.
std::string AbsolutePath(const std::string& path);

// How a file is named in another one: relative to the folder of that, with forward slashes, where both have
// the same root; else absolute. Both are absolute.
std::string PathInFile(const std::string& path, const std::string& file);
// The path that is meant by what PathInFile gave.
std::string PathFromFile(const std::string& named, const std::string& file);

}
