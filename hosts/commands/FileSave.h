#pragma once

#include <string>

namespace vostel::viewer {

// One save into a file under a name beside the wanted one, which what was written takes at the end: what
// fails leaves the file that was there. So it is known, too, what became of a save by the library, which
// writes where its file dialog says and tells nobody.
class FileSave {
public:
    std::wstring        Begin(const std::wstring& wanted);    // the name to write under
    bool                HasBegun() const { return !Target.empty(); }
    const std::wstring& Wanted() const { return Target; }

    // After the writing. What is wrong, in English, or nothing.
    const char* End();

private:
    std::wstring Target;
    std::wstring Beside;
};

}
