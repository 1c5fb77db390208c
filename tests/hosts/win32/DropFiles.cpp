// DropFiles WINDOW-CLASS X Y FILE...: drops files on a client point of a window, as the desktop does: with
// WM_DROPFILES and the names in memory of the window's own process. 0 when the window has taken them.
#include <windows.h>

#include <shellapi.h>
#include <shlobj.h>

#include <cstring>
#include <string>
#include <vector>

int main()
{
    int           count = 0;
    LPWSTR* const words = CommandLineToArgvW(GetCommandLineW(), &count);
    if (count < 5)
        return 2;
    const HWND window = FindWindowW(words[1], nullptr);
    if (!window)
        return 3;

    DROPFILES head = {};
    head.pFiles = sizeof head;
    head.pt = {std::stoi(words[2]), std::stoi(words[3])};
    head.fWide = TRUE;
    std::wstring names;    // each with its end, and one more end
    for (int i = 4; i < count; ++i)
        names += std::wstring(words[i]) + L'\0';
    names += L'\0';
    std::vector<char> block(sizeof head + names.size() * sizeof(wchar_t));
    std::memcpy(block.data(), &head, sizeof head);
    std::memcpy(block.data() + sizeof head, names.data(), names.size() * sizeof(wchar_t));

    DWORD number = 0;
    GetWindowThreadProcessId(window, &number);
    const HANDLE process = OpenProcess(PROCESS_VM_OPERATION | PROCESS_VM_WRITE, FALSE, number);
    void* const  memory =
        VirtualAllocEx(process, nullptr, block.size(), MEM_COMMIT | MEM_RESERVE, PAGE_READWRITE);
    if (!memory || !WriteProcessMemory(process, memory, block.data(), block.size(), nullptr))
        return 4;
    CloseHandle(process);
    return PostMessageW(window, WM_DROPFILES, reinterpret_cast<WPARAM>(memory), 0) ? 0 : 5;
}
