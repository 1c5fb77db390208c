#include "ViewerSettings.h"

#include <algorithm>
#include <cwchar>

namespace vostel::viewer {

namespace {

// Files and folders have one name in either case here.
bool SamePath(const std::wstring& a, const std::wstring& b)
{
    return lstrcmpiW(a.c_str(), b.c_str()) == 0;
}

}

ViewerSettings::ViewerSettings()
{
    wchar_t folder[MAX_PATH] = L"";
    if (GetEnvironmentVariableW(L"APPDATA", folder, MAX_PATH) == 0)
        return;
    Path = std::wstring(folder) + L"\\VostelObj";
    CreateDirectoryW(Path.c_str(), nullptr);
    Path += L"\\Viewer.ini";
    // A file that starts as Unicode keeps names in any script.
    const HANDLE file =
        CreateFileW(Path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file != INVALID_HANDLE_VALUE) {
        const wchar_t mark = 0xFEFF;
        DWORD         written = 0;
        WriteFile(file, &mark, sizeof mark, &written, nullptr);
        CloseHandle(file);
    }
    for (std::size_t i = 1; i <= MostRecentFiles; ++i) {
        const std::wstring name = Read(L"RecentFiles", std::to_wstring(i).c_str());
        if (!name.empty())
            Recent.push_back(name);
    }
}

void ViewerSettings::AddRecentFile(const std::wstring& path)
{
    std::erase_if(Recent, [&path](const std::wstring& known) { return SamePath(known, path); });
    Recent.insert(Recent.begin(), path);
    if (Recent.size() > MostRecentFiles)
        Recent.resize(MostRecentFiles);
    SaveRecentFiles();
}

void ViewerSettings::RemoveRecentFile(const std::wstring& path)
{
    std::erase_if(Recent, [&path](const std::wstring& known) { return SamePath(known, path); });
    SaveRecentFiles();
}

bool ViewerSettings::LoadPlacement(WINDOWPLACEMENT& placement) const
{
    RECT& place = placement.rcNormalPosition;
    long  left = 0, top = 0, right = 0, bottom = 0;
    int   maximised = 0;
    if (std::swscanf(Read(L"Window", L"Place").c_str(), L"%ld %ld %ld %ld %d", &left, &top, &right, &bottom,
                     &maximised) != 5)
        return false;
    place = {left, top, right, bottom};
    if (right - left < 200 || bottom - top < 150 || !MonitorFromRect(&place, MONITOR_DEFAULTTONULL))
        return false;
    placement.length = sizeof placement;
    placement.showCmd = maximised ? SW_SHOWMAXIMIZED : SW_SHOWNORMAL;
    return true;
}

void ViewerSettings::SavePlacement(HWND window) const
{
    WINDOWPLACEMENT placement = {};
    placement.length = sizeof placement;
    if (Path.empty() || !GetWindowPlacement(window, &placement))
        return;
    const RECT& place = placement.rcNormalPosition;
    wchar_t     text[100];
    std::swprintf(text, 100, L"%ld %ld %ld %ld %d", place.left, place.top, place.right, place.bottom,
                  placement.showCmd == SW_SHOWMAXIMIZED ? 1 : 0);
    WritePrivateProfileStringW(L"Window", L"Place", text, Path.c_str());
}

std::wstring ViewerSettings::Read(const wchar_t* section, const wchar_t* key) const
{
    std::vector<wchar_t> text(4096);
    GetPrivateProfileStringW(section, key, L"", text.data(), static_cast<DWORD>(text.size()), Path.c_str());
    return text.data();
}

void ViewerSettings::SaveRecentFiles() const
{
    if (Path.empty())
        return;
    for (std::size_t i = 0; i < MostRecentFiles; ++i)
        WritePrivateProfileStringW(L"RecentFiles", std::to_wstring(i + 1).c_str(),
                                   i < Recent.size() ? Recent[i].c_str() : nullptr, Path.c_str());
}

}
