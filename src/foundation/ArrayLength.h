

namespace vostel {

#pragma once

// Fails as an array that no allocator can serve: by std::bad_array_new_length. In a file of its own, because
// a Windows file with exported templates would show the exception's type as a name of the library.
[[noreturn]] void FailArrayLength();

}
