// WindowTexts WINDOW-CLASS FILE: writes what can be read in a window and in the dialogs over it, as UTF-8 and
// one text a line: "title ...", "status ..." for each part of its bar, "dialog ..." for each dialog and "text
// ..." for each of its controls, "column ..." and "row ..." with tabs between the cells for its lists. 0 when
// it has them all.
#include <windows.h>

#include <commctrl.h>

#include <shellapi.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <utility>
#include <vector>

namespace {

constexpr int Room = 4096;    // characters

// Memory of another process, where its controls leave their answers.
class Shared {
public:
    explicit Shared(HWND window)
    {
        DWORD number = 0;
        GetWindowThreadProcessId(window, &number);
        Process = OpenProcess(PROCESS_VM_OPERATION | PROCESS_VM_READ | PROCESS_VM_WRITE, FALSE, number);
        Memory = static_cast<char*>(
            VirtualAllocEx(Process, nullptr, Size, MEM_COMMIT | MEM_RESERVE, PAGE_READWRITE));
    }
    ~Shared()
    {
        VirtualFreeEx(Process, Memory, 0, MEM_RELEASE);
        CloseHandle(Process);
    }
    Shared(const Shared&) = delete;
    Shared& operator=(const Shared&) = delete;

    LPARAM TextPlace() const { return reinterpret_cast<LPARAM>(Memory + TextAt); }
    LPARAM Place() const { return reinterpret_cast<LPARAM>(Memory); }
    template <typename Record>
    void Give(const Record& record) const
    {
        WriteProcessMemory(Process, Memory, &record, sizeof record, nullptr);
    }
    std::wstring Text() const
    {
        std::vector<wchar_t> text(Room + 1);
        ReadProcessMemory(Process, Memory + TextAt, text.data(), Room * sizeof(wchar_t), nullptr);
        return text.data();
    }

private:
    static constexpr int Size = 65536, TextAt = 1024;    // bytes

    HANDLE Process = nullptr;
    char*  Memory = nullptr;
};

std::ofstream Output;

void Say(const char* kind, const std::wstring& text)
{
    std::string utf8(text.size() * 4 + 1, '\0');
    utf8.resize(static_cast<std::size_t>(
        WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), utf8.data(),
                            static_cast<int>(utf8.size()), nullptr, nullptr)));
    Output << kind << ' ' << utf8 << '\n';
}

// What a control says of itself; unlike GetWindowText it works for those of other programs.
std::wstring TextOf(HWND window)
{
    std::vector<wchar_t> text(Room);
    SendMessageW(window, WM_GETTEXT, Room, reinterpret_cast<LPARAM>(text.data()));
    return text.data();
}

std::wstring ClassOf(HWND window)
{
    wchar_t name[64] = L"";
    GetClassNameW(window, name, 64);
    return name;
}

void SayStatus(HWND bar)
{
    const Shared shared(bar);
    const int    parts = static_cast<int>(SendMessageW(bar, SB_GETPARTS, 0, 0));
    for (int part = 0; part < parts; ++part) {
        SendMessageW(bar, SB_GETTEXTW, static_cast<WPARAM>(part), shared.TextPlace());
        Say("status", shared.Text());
    }
}

void SayList(HWND list)
{
    const Shared shared(list);
    const HWND   head = reinterpret_cast<HWND>(SendMessageW(list, LVM_GETHEADER, 0, 0));
    const int    columns = static_cast<int>(SendMessageW(head, HDM_GETITEMCOUNT, 0, 0));
    const int    rows = static_cast<int>(SendMessageW(list, LVM_GETITEMCOUNT, 0, 0));
    for (int column = 0; column < columns; ++column) {
        HDITEMW item = {};
        item.mask = HDI_TEXT;
        item.pszText = reinterpret_cast<LPWSTR>(shared.TextPlace());
        item.cchTextMax = Room;
        shared.Give(item);
        SendMessageW(head, HDM_GETITEMW, static_cast<WPARAM>(column), shared.Place());
        Say("column", shared.Text());
    }
    for (int row = 0; row < rows; ++row) {
        std::wstring line;
        for (int column = 0; column < columns; ++column) {
            LVITEMW item = {};
            item.iSubItem = column;
            item.pszText = reinterpret_cast<LPWSTR>(shared.TextPlace());
            item.cchTextMax = Room;
            shared.Give(item);
            SendMessageW(list, LVM_GETITEMTEXTW, static_cast<WPARAM>(row), shared.Place());
            line += (column > 0 ? L"\t" : L"") + shared.Text();
        }
        Say("row", line);
    }
}

BOOL CALLBACK SayControl(HWND control, LPARAM)
{
    if (ClassOf(control) == WC_LISTVIEWW)
        SayList(control);
    else if (const std::wstring text = TextOf(control); !text.empty())
        Say("text", text);
    return TRUE;
}

void SayClipboard()
{
    if (!OpenClipboard(nullptr))
        return;
    if (const HANDLE data = GetClipboardData(CF_UNICODETEXT)) {
        std::wstring line;
        for (const auto* at = static_cast<const wchar_t*>(GlobalLock(data)); *at != L'\0'; ++at) {
            if (*at == L'\n')
                Say("clipboard", std::exchange(line, {}));
            else if (*at != L'\r')
                line += *at;
        }
        if (!line.empty())
            Say("clipboard", line);
        GlobalUnlock(data);
    }
    CloseClipboard();
}

// The dialogs of a program belong to its main window or to another dialog.
BOOL CALLBACK SayDialog(HWND window, LPARAM main)
{
    DWORD of = 0, ofMain = 0;
    GetWindowThreadProcessId(window, &of);
    GetWindowThreadProcessId(reinterpret_cast<HWND>(main), &ofMain);
    if (of != ofMain || !IsWindowVisible(window) || ClassOf(window) != L"#32770")
        return TRUE;
    Say("dialog", TextOf(window));
    EnumChildWindows(window, SayControl, 0);
    return TRUE;
}

}

int main()
{
    int           count = 0;
    LPWSTR* const words = CommandLineToArgvW(GetCommandLineW(), &count);
    if (count < 3)
        return 2;
    const HWND window = FindWindowW(words[1], nullptr);
    if (!window)
        return 3;
    const std::wstring target = words[2], beside = target + L"~";
    Output.open(std::filesystem::path(beside), std::ios::binary);
    Say("title", TextOf(window));
    SayStatus(FindWindowExW(window, nullptr, STATUSCLASSNAMEW, nullptr));
    EnumWindows(SayDialog, reinterpret_cast<LPARAM>(window));
    SayClipboard();
    Output.close();
    return Output && MoveFileW(beside.c_str(), target.c_str()) ? 0 : 4;
}
