#include "FileDialogs.h"

#include <commdlg.h>

#include <algorithm>
#include <string>

namespace vostel::viewer {

namespace {

constexpr std::size_t Room = 32768;    // characters for all chosen names

// Texts and patterns, each with an end of its own instead of the bar, and one more at the end.
std::wstring WithEnds(std::wstring filter)
{
    std::replace(filter.begin(), filter.end(), L'|', L'\0');
    return filter + std::wstring(2, L'\0');
}

// One path, or a folder followed by the names of files in it.
std::vector<CString> PathsIn(const std::vector<wchar_t>& chosen)
{
    std::vector<std::wstring> parts;
    for (const wchar_t* part = chosen.data(); *part != L'\0'; part += parts.back().size() + 1)
        parts.push_back(part);
    std::vector<CString> paths;
    if (parts.size() == 1)
        paths.push_back(parts[0].c_str());
    for (std::size_t i = 1; i < parts.size(); ++i)
        paths.push_back((parts[0] + L"\\" + parts[i]).c_str());
    return paths;
}

}

bool AskForFileNames(HWND owner, const VostelFileRequest& request, std::vector<CString>& paths)
{
    const std::wstring   filter = WithEnds(request.Filter.GetString());
    const std::wstring   name = request.DefaultName.GetString();
    std::vector<wchar_t> chosen(Room);
    std::copy_n(name.data(), std::min<std::size_t>(name.size(), MAX_PATH), chosen.data());

    OPENFILENAMEW dialog = {};
    dialog.lStructSize = sizeof dialog;
    dialog.hwndOwner = owner;
    dialog.lpstrFilter = filter[0] == L'\0' ? nullptr : filter.c_str();
    dialog.lpstrFile = chosen.data();
    dialog.nMaxFile = static_cast<DWORD>(chosen.size() - 2);
    dialog.lpstrDefExt = request.DefaultExtension.IsEmpty() ? nullptr : request.DefaultExtension.GetString();
    // The current folder stays, for names on the command line and in other dialogs.
    dialog.Flags = request.Flags | OFN_EXPLORER | OFN_NOCHANGEDIR;
    if (request.Save ? !GetSaveFileNameW(&dialog) : !GetOpenFileNameW(&dialog))
        return false;
    paths = PathsIn(chosen);
    return !paths.empty();
}

}
