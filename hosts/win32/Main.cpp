#include "MainWindow.h"
#include "commands/Utf8Text.h"

#include <shellapi.h>

#include <optional>
#include <string>
#include <vector>

using namespace vostel::viewer;

namespace {

const wchar_t* const HelpText =
    L"vostel-viewer-win32 [--help] [--version] [--language en|zh_CN] [FILE...]\n"
    L"Shows images on up to five canvases, to mark and to measure in them.\n"
    L"Without --language the texts are in the language chosen last, at first in that of the system.\n";
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

std::vector<std::wstring> Arguments()
{
    int                       count = 0;
    wchar_t** const           arguments = CommandLineToArgvW(GetCommandLineW(), &count);
    std::vector<std::wstring> words;
    for (int i = 1; i < count; ++i)
        words.push_back(arguments[i]);
    LocalFree(arguments);
    return words;
}

// "en", "zh" and names that go on, such as "zh_CN" and "en-GB".
std::optional<Language> LanguageOf(const std::wstring& name)
{
    const std::wstring head = name.substr(0, 2);
    const bool         ends = name.size() == 2 || (name.size() > 2 && (name[2] == L'_' || name[2] == L'-'));
    return ends && head == L"zh"   ? std::optional(Language::Chinese)
           : ends && head == L"en" ? std::optional(Language::English)
                                   : std::nullopt;
}

int Refuse(const std::wstring& why)
{
    Print(why + L"\n" + HelpText);
    return 2;
}

}

int WINAPI wWinMain(HINSTANCE, HINSTANCE, wchar_t*, int show)
{
    std::vector<std::wstring> files = Arguments();
    std::optional<Language>   language;
    while (!files.empty() && files[0].rfind(L"--", 0) == 0) {
        if (files[0] == L"--help" || files[0] == L"--version") {
            Print(files[0] == L"--help" ? HelpText : VersionText);
            return 0;
        }
        if (files[0] != L"--language")
            return Refuse(L"There is no option " + files[0] + L".");
        language = files.size() > 1 ? LanguageOf(files[1]) : std::nullopt;
        if (!language)
            return Refuse(L"--language takes en or zh_CN.");
        files.erase(files.begin(), files.begin() + 2);
    }
    MainWindow window(language);
    if (!window.Create(show == SW_SHOWNORMAL ? SW_SHOWDEFAULT : show))
        return 1;
    window.OpenFiles(files);
    return window.Run();
}
