#pragma once

// One section of an .ini file in which a dialog keeps its last values. A bare file name means the folder
// VostelObj in the user's application data, a name with a folder or a drive stands for itself. The file is
// made as Unicode text, so that Chinese values come back. What cannot be written is forgotten silently.

#include "vostel/platform.h"

#include <string>

namespace vostel {

class ParameterFile {
public:
    ParameterFile(const CString& file, const CString& section);

    bool Read(const wchar_t* key, std::wstring& text) const;    // false: the section has no such key
    void Write(const wchar_t* key, const std::wstring& text) const;

private:
    std::wstring Path;
    std::wstring Section;
};

}
