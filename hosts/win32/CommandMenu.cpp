#include "CommandMenu.h"

#include "commands/Utf8Text.h"

#include <cstdlib>
#include <cstring>

namespace vostel::viewer {

namespace {

// "Ctrl+Shift+S" and the like; false for a key that is not known.
bool ParseShortcut(std::string shortcut, ACCEL& accelerator)
{
    accelerator.fVirt = FVIRTKEY;
    const struct {
        const char* Prefix;
        BYTE        Flag;
    } modifiers[] = {{"Ctrl+", FCONTROL}, {"Shift+", FSHIFT}, {"Alt+", FALT}};
    for (const auto& modifier : modifiers)
        if (shortcut.rfind(modifier.Prefix, 0) == 0) {
            accelerator.fVirt |= modifier.Flag;
            shortcut.erase(0, std::strlen(modifier.Prefix));
        }
    if (shortcut.size() == 1)    // letters and digits are their own keys
        accelerator.key = static_cast<WORD>(shortcut[0]);
    else if (shortcut == "Del")
        accelerator.key = VK_DELETE;
    else if (shortcut == "Esc")
        accelerator.key = VK_ESCAPE;
    else if (shortcut.size() > 1 && shortcut[0] == 'F')
        accelerator.key = static_cast<WORD>(VK_F1 + std::atoi(shortcut.c_str() + 1) - 1);
    return accelerator.key != 0;
}

std::wstring MenuText(const CommandEntry& entry, std::wstring text)
{
    if (*entry.Shortcut != '\0')
        text += L"\t" + WideOf(entry.Shortcut);
    return text;
}

bool IsCommandOf(HMENU menu, int position, Command& id)
{
    const UINT number = GetMenuItemID(menu, position);
    if (number == static_cast<UINT>(-1) || number >= FirstRecentFile)
        return false;
    id = static_cast<Command>(number);
    return FindCommand(id) != nullptr;
}

HMENU FindRecentFilesMenu(HMENU menuBar)
{
    MENUITEMINFOW item = {};
    item.cbSize = sizeof item;
    item.fMask = MIIM_SUBMENU;
    const UINT number = static_cast<UINT>(Command::RecentFiles);
    return GetMenuItemInfoW(menuBar, number, FALSE, &item) ? item.hSubMenu : nullptr;
}

// A submenu that is found by the command's number.
void AppendSubmenu(HMENU menu, const CommandEntry& entry, Language language)
{
    const std::wstring text = MenuText(entry, TextIn(language, entry.Text));
    AppendMenuW(menu, MF_POPUP, reinterpret_cast<UINT_PTR>(CreatePopupMenu()), text.c_str());
    MENUITEMINFOW item = {};
    item.cbSize = sizeof item;
    item.fMask = MIIM_ID;
    item.wID = static_cast<UINT>(entry.Id);
    SetMenuItemInfoW(menu, static_cast<UINT>(GetMenuItemCount(menu) - 1), TRUE, &item);
}

}

HMENU MakeMenuBar(Language language)
{
    const HMENU bar = CreateMenu();
    for (Menu in : AllMenus()) {
        const HMENU menu = CreatePopupMenu();
        for (const CommandEntry& entry : AllCommands()) {
            if (entry.In != in)
                continue;
            if (entry.SeparatorBefore)
                AppendMenuW(menu, MF_SEPARATOR, 0, nullptr);
            if (entry.Kind == CommandKind::Submenu)
                AppendSubmenu(menu, entry, language);
            else
                AppendMenuW(menu, MF_STRING, static_cast<UINT_PTR>(entry.Id),
                            MenuText(entry, TextIn(language, entry.Text)).c_str());
        }
        AppendMenuW(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(menu), TextIn(language, MenuTitle(in)).c_str());
    }
    return bar;
}

HACCEL MakeAccelerators()
{
    std::vector<ACCEL> table;
    for (const CommandEntry& entry : AllCommands()) {
        ACCEL accelerator = {};
        accelerator.cmd = static_cast<WORD>(entry.Id);
        if (*entry.Shortcut != '\0' && ParseShortcut(entry.Shortcut, accelerator))
            table.push_back(accelerator);
    }
    return CreateAcceleratorTableW(table.data(), static_cast<int>(table.size()));
}

void RefreshMenu(HMENU menu, const std::function<bool(Command)>& isEnabled,
                 const std::function<bool(Command)>& isOn, const std::function<std::wstring(Command)>& textOf)
{
    for (int position = 0; position < GetMenuItemCount(menu); ++position) {
        Command id = {};
        if (!IsCommandOf(menu, position, id))
            continue;
        MENUITEMINFOW item = {};
        item.cbSize = sizeof item;
        item.fMask = MIIM_STATE | MIIM_FTYPE | MIIM_STRING;
        std::wstring text = MenuText(*FindCommand(id), textOf(id));
        item.dwTypeData = text.data();
        item.fType = FindCommand(id)->Kind == CommandKind::Choice ? MFT_RADIOCHECK : 0;
        item.fState = static_cast<UINT>((isEnabled(id) ? MFS_ENABLED : MFS_GRAYED) |
                                        (isOn(id) ? MFS_CHECKED : MFS_UNCHECKED));
        SetMenuItemInfoW(menu, static_cast<UINT>(position), TRUE, &item);
    }
}

void ShowRecentFiles(HMENU menuBar, const std::vector<std::wstring>& files, Language language)
{
    const HMENU menu = FindRecentFilesMenu(menuBar);
    if (!menu)
        return;
    while (DeleteMenu(menu, 0, MF_BYPOSITION)) {
    }
    UINT number = 0;
    for (const std::wstring& file : files) {
        std::wstring text = L"&" + std::to_wstring(number + 1) + L"  ";
        for (wchar_t character : file) {
            text += character;
            if (character == L'&')    // else it would mark a mnemonic
                text += character;
        }
        AppendMenuW(menu, MF_STRING, FirstRecentFile + number++, text.c_str());
    }
    if (files.empty())
        AppendMenuW(menu, MF_STRING | MF_GRAYED, 0, TextIn(language, Words("No file yet")).c_str());
}

}
