#pragma once

// Reads of files that may vanish or change at any moment.

#include "base/OwnedFile.h"

#include <cstddef>

namespace vostel {

// For reading. Null if it cannot be opened; that there is no such file is shown to the person.
OwnedFile OpenOrTell(const char* path);

// Reads a file of so many bytes from where it stands to its end; false if it is of another length by now.
bool ReadToEnd(std::FILE* file, void* bytes, std::size_t count);

}
