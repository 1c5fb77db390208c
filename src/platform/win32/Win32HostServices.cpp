// The desktop's own message box, dialogs, keyboard and windows.

#include "platform/HostServices.h"

#include <commdlg.h>
#include <ole2.h>
#include <shlobj.h>

#include <algorithm>
#include <cwchar>
#include <string>

namespace vostel {

namespace desktop {
namespace {

constexpr std::size_t NameBuffer = 1u << 16;    // characters: thousands of chosen names

// "text|pattern||" as the dialogs take it: zeros for bars, two at the end.
std::wstring DialogFilter(const CString& filter)
{
    std::wstring parts(filter.GetString(), static_cast<std::size_t>(filter.GetLength()));
    std::replace(parts.begin(), parts.end(), L'|', L'\0');
    while (!parts.empty() && parts.back() == L'\0')
        parts.pop_back();
    return parts.empty() ? parts : parts + std::wstring(2, L'\0');
}

// Several files come as their folder and then their names, each with its own end; one as a whole path.
void TakeChosen(const wchar_t* chosen, std::vector<CString>& paths)
{
    const std::wstring folder = chosen;
    const wchar_t*     name = chosen + folder.size() + 1;
    if (*name == L'\0') {
        paths.push_back(CString(chosen));
        return;
    }
    const bool bare = !folder.empty() && folder.back() != L'\\';
    for (; *name != L'\0'; name += std::wcslen(name) + 1)
        paths.push_back(CString((folder + (bare ? L"\\" : L"") + name).c_str()));
}

}

void ShowMessage(const CString& text)
{
    MessageBoxW(GetActiveWindow(), text, L"VostelObj", MB_OK | MB_ICONEXCLAMATION);
}

bool ChooseFiles(const VostelFileRequest& request, std::vector<CString>& paths)
{
    const std::wstring   filter = DialogFilter(request.Filter);
    std::vector<wchar_t> names(NameBuffer);    // ends in zeros whatever the dialog writes before them
    const std::size_t    known =
        static_cast<std::size_t>(std::min(request.DefaultName.GetLength(), MAX_PATH - 1));
    std::copy_n(request.DefaultName.GetString(), known, names.data());

    OPENFILENAMEW dialog = {};
    dialog.lStructSize = sizeof dialog;
    dialog.lpstrFilter = filter.empty() ? nullptr : filter.c_str();
    dialog.nFilterIndex = 1;
    dialog.lpstrFile = names.data();
    dialog.nMaxFile = static_cast<DWORD>(names.size() - 2);
    dialog.lpstrDefExt = request.DefaultExtension.IsEmpty() ? nullptr : request.DefaultExtension.GetString();
    dialog.Flags = request.Flags | OFN_EXPLORER;
    if (!(request.Save ? GetSaveFileNameW(&dialog) : GetOpenFileNameW(&dialog)))
        return false;
    if (request.Flags & OFN_ALLOWMULTISELECT)
        TakeChosen(names.data(), paths);
    else
        paths.push_back(CString(names.data()));
    return true;
}

bool ChooseFolder(const CString& title, CString& folder)
{
    const bool  started = SUCCEEDED(OleInitialize(nullptr));
    BROWSEINFOW browse = {};
    browse.lpszTitle = title;
    browse.ulFlags = BIF_NEWDIALOGSTYLE | BIF_EDITBOX;
    bool chosen = false;
    if (LPITEMIDLIST items = SHBrowseForFolderW(&browse)) {
        wchar_t path[MAX_PATH] = {};
        chosen = SHGetPathFromIDListW(items, path) && path[0] != L'\0';
        CoTaskMemFree(items);
        if (chosen)
            folder = CString(path);
    }
    if (started)
        OleUninitialize();
    return chosen;
}

bool IsKeyDown(int virtualKey)
{
    return GetAsyncKeyState(virtualKey) < 0;
}

void InvalidateWindow(HWND window)
{
    // Without a window the call would repaint the whole desktop.
    if (window)
        InvalidateRect(window, nullptr, FALSE);
}

POINT ScreenToWindow(HWND window, POINT screen)
{
    ScreenToClient(window, &screen);
    return screen;
}

}

}
