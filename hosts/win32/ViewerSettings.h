#pragma once

// What the viewer remembers: the files that were open and the place of its window, in Viewer.ini in the
// folder VostelObj of the user's application data.

#include <VostelObj.h>

#include <string>
#include <vector>

namespace vostel::viewer {

class ViewerSettings {
public:
    static constexpr std::size_t MostRecentFiles = 9;

    ViewerSettings();

    const std::vector<std::wstring>& RecentFiles() const { return Recent; }    // the last one first
    void                             AddRecentFile(const std::wstring& path);
    void                             RemoveRecentFile(const std::wstring& path);

    bool LoadPlacement(WINDOWPLACEMENT& placement) const;    // false: none is known
    void SavePlacement(HWND window) const;

private:
    std::wstring              Path;
    std::vector<std::wstring> Recent;

    std::wstring Read(const wchar_t* section, const wchar_t* key) const;
    void         SaveRecentFiles() const;
};

}
