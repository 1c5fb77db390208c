#include "MainWindow.h"
#include "commands/Utf8Text.h"

#include <shellapi.h>

#include <cstdio>

using namespace vostel::viewer;

namespace {

const wchar_t* const HelpText = L"vostel-viewer-win32 [--help] [--version] [FILE...]\n"
                                L"Shows images on up to five canvases, to mark and to measure in them.\n";
const wchar_t* const VersionText = L"vostel-viewer-win32 " VIEWER_VERSION L"\n";

// To the output that the program was started with, else in a box.
void Print(const std::wstring& text)
{
    HANDLE output = GetStdHandle(STD_OUTPUT_HANDLE);
    if (!output || output == INVALID_HANDLE_VALUE) {
        AttachConsole(ATTACH_PARENT_PROCESS);
        output = GetStdHandle(STD_OUTPUT_HANDLE);
    }
    const std::string narrow(text.begin(), text.end());    // plain ASCII
    DWORD             written = 0;
    if (!output || output == INVALID_HANDLE_VALUE ||
        !WriteFile(output, narrow.data(), static_cast<DWORD>(narrow.size()), &written, nullptr))
        MessageBoxW(nullptr, text.c_str(), WideOf(ViewerName).c_str(), MB_OK);
}

}

int WINAPI wWinMain(HINSTANCE, HINSTANCE, wchar_t*, int show)
{
    int                       count = 0;
    wchar_t** const           arguments = CommandLineToArgvW(GetCommandLineW(), &count);
    std::vector<std::wstring> files;
    for (int i = 1; i < count; ++i)
        files.push_back(arguments[i]);
    LocalFree(arguments);
    if (!files.empty() && files[0].rfind(L"--", 0) == 0) {
        const bool known = files[0] == L"--help" || files[0] == L"--version";
        Print(files[0] == L"--version" ? VersionText
              : known                  ? HelpText
                                       : L"There is no option " + files[0] + L".\n" + HelpText);
        return known ? 0 : 2;
    }
    MainWindow window;
    if (!window.Create(show == SW_SHOWNORMAL ? SW_SHOWDEFAULT : show))
        return 1;
    window.OpenFiles(files);
    return window.Run();
}
