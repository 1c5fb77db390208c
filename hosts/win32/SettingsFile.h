#pragma once

#include "commands/Routines.h"

#include <optional>
#include <string>
#include <vector>

namespace vostel::viewer {

// What the viewer keeps between runs, in Viewer.ini in the folder VostelObj of the user's application data.
class SettingsFile {
public:
    SettingsFile();

    std::vector<std::wstring> LoadRecentFiles() const;    // newest first
    void                      SaveRecentFiles(const std::vector<std::wstring>& newest) const;

    std::optional<double> LoadValue(const Routine& routine, const RoutineParameter& parameter) const;
    void SaveValue(const Routine& routine, const RoutineParameter& parameter, double value) const;

    std::wstring LoadTextLine() const;    // what was put on a canvas last
    void         SaveTextLine(const std::wstring& text) const;

    std::optional<Language> LoadLanguage() const;    // nothing before a person has chosen one
    void                    SaveLanguage(Language language) const;

    bool LoadPlacement(WINDOWPLACEMENT& placement) const;    // false: none is known
    void SavePlacement(HWND window) const;

private:
    std::wstring Path;    // empty if there is no such folder

    std::wstring Read(const std::wstring& section, const std::wstring& key) const;
    void         Write(const std::wstring& section, const std::wstring& key,
                       const wchar_t* text) const;    // null removes
};

}
