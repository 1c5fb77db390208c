#pragma once

#include <string>

namespace vostel::viewer {

// One save by the library, which writes where its file dialog says and tells nobody what became of it. It
// gets a name beside the wanted one, so that a file that stands there afterwards is the answer; what fails
// leaves the file that was there.
class LibrarySave {
public:
    std::wstring        Begin(const std::wstring& wanted);    // the name for the library
    bool                HasBegun() const { return !Target.empty(); }
    const std::wstring& Wanted() const { return Target; }

    // After the library has returned. What is wrong, in English, or nothing.
    const char* End();

private:
    std::wstring Target;
    std::wstring Beside;
};

}
