#include "SettingsFile.h"

#include "commands/RecentFileList.h"
#include "commands/Utf8Text.h"

#include <cwchar>

namespace vostel::viewer {

namespace {

const wchar_t* const RecentFiles = L"RecentFiles";

// The names of the routine and the parameter outlive their numbers.
std::wstring SectionOf(const Routine& routine)
{
    return L"Routines/" + WideOf(routine.Title);
}

}

SettingsFile::SettingsFile()
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
}

std::vector<std::wstring> SettingsFile::LoadRecentFiles() const
{
    std::vector<std::wstring> files;
    for (std::size_t i = 1; i <= RecentFileList::MaxFiles; ++i)
        if (const std::wstring name = Read(RecentFiles, std::to_wstring(i)); !name.empty())
            files.push_back(name);
    return files;
}

void SettingsFile::SaveRecentFiles(const std::vector<std::wstring>& newest) const
{
    for (std::size_t i = 0; i < RecentFileList::MaxFiles; ++i)
        Write(RecentFiles, std::to_wstring(i + 1), i < newest.size() ? newest[i].c_str() : nullptr);
}

std::optional<double> SettingsFile::LoadValue(const Routine& routine, const RoutineParameter& parameter) const
{
    const std::wstring text = Read(SectionOf(routine), WideOf(parameter.Name));
    wchar_t*           end = nullptr;
    const double       value = std::wcstod(text.c_str(), &end);
    return text.empty() || *end != L'\0' ? std::nullopt : std::optional(value);
}

void SettingsFile::SaveValue(const Routine& routine, const RoutineParameter& parameter, double value) const
{
    wchar_t text[40];
    std::swprintf(text, 40, L"%.17g", value);
    Write(SectionOf(routine), WideOf(parameter.Name), text);
}

std::wstring SettingsFile::LoadTextLine() const
{
    return Read(L"Text", L"Line");
}

void SettingsFile::SaveTextLine(const std::wstring& text) const
{
    Write(L"Text", L"Line", text.c_str());
}

std::optional<Language> SettingsFile::LoadLanguage() const
{
    const std::wstring name = Read(L"Window", L"Language");
    return name == L"zh"   ? std::optional(Language::Chinese)
           : name == L"en" ? std::optional(Language::English)
                           : std::nullopt;
}

void SettingsFile::SaveLanguage(Language language) const
{
    Write(L"Window", L"Language", language == Language::Chinese ? L"zh" : L"en");
}

bool SettingsFile::LoadPlacement(WINDOWPLACEMENT& placement) const
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

void SettingsFile::SavePlacement(HWND window) const
{
    WINDOWPLACEMENT placement = {};
    placement.length = sizeof placement;
    if (!GetWindowPlacement(window, &placement))
        return;
    const RECT& place = placement.rcNormalPosition;
    wchar_t     text[100];
    std::swprintf(text, 100, L"%ld %ld %ld %ld %d", place.left, place.top, place.right, place.bottom,
                  placement.showCmd == SW_SHOWMAXIMIZED ? 1 : 0);
    Write(L"Window", L"Place", text);
}

std::wstring SettingsFile::Read(const std::wstring& section, const std::wstring& key) const
{
    std::vector<wchar_t> text(4096);
    GetPrivateProfileStringW(section.c_str(), key.c_str(), L"", text.data(), static_cast<DWORD>(text.size()),
                             Path.c_str());
    return text.data();
}

void SettingsFile::Write(const std::wstring& section, const std::wstring& key, const wchar_t* text) const
{
    if (!Path.empty())
        WritePrivateProfileStringW(section.c_str(), key.c_str(), text, Path.c_str());
}

}
