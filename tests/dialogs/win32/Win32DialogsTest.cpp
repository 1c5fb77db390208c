#include "dialogs/win32/FieldIds.h"

#include <Tessik.h>

#include <chrono>
#include <functional>
#include <map>
#include <string>
#include <thread>

#include <doctest/doctest.h>

using namespace vostel;

namespace {

// Sends the applications' data to a folder of the test's own, empty at the start.
struct OwnDataFolder {
    std::wstring Path;

    OwnDataFolder()
    {
        wchar_t temporary[MAX_PATH] = L"";
        GetTempPathW(MAX_PATH, temporary);
        Path = std::wstring(temporary) + L"vostel-dialogs-" + std::to_wstring(GetCurrentProcessId());
        Clear();
        CreateDirectoryW(Path.c_str(), nullptr);
        SetEnvironmentVariableW(L"APPDATA", Path.c_str());
        gDlgSetDialogs(TessikDialogs());
    }
    ~OwnDataFolder() { Clear(); }

    std::wstring File(const wchar_t* name) const { return Path + L"\\VostelObj\\" + name; }
    void         Clear() const
    {
        for (const wchar_t* name : {L"Tessik.ini", L"TextInfo.ini"})
            DeleteFileW(File(name).c_str());
        RemoveDirectoryW((Path + L"\\VostelObj").c_str());
        RemoveDirectoryW(Path.c_str());
    }
};

// The dialog of another thread, once it is up.
HWND WaitForDialog(DWORD thread)
{
    for (int tries = 0; tries < 1000; ++tries) {
        HWND found = nullptr;
        EnumThreadWindows(
            thread,
            [](HWND window, LPARAM target) -> BOOL {
                wchar_t name[16] = L"";
                GetClassNameW(window, name, 16);
                if (std::wstring(name) != L"#32770" || !IsWindowVisible(window))
                    return TRUE;
                *reinterpret_cast<HWND*>(target) = window;
                return FALSE;
            },
            reinterpret_cast<LPARAM>(&found));
        if (found)
            return found;
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return nullptr;
}

std::wstring TextOf(HWND dialog, int id)
{
    wchar_t text[200] = L"";
    SendDlgItemMessageW(dialog, id, WM_GETTEXT, 200, reinterpret_cast<LPARAM>(text));
    return text;
}

void Type(HWND dialog, int id, const wchar_t* text)
{
    SendDlgItemMessageW(dialog, id, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text));
}

void Press(HWND dialog, int button)
{
    SendMessageW(dialog, WM_COMMAND, static_cast<WPARAM>(button), 0);
}

// Lets a second thread be the person while the call shows its dialog on this one.
bool Answer(const std::function<bool()>& call, const std::function<void(HWND)>& person)
{
    const DWORD thread = GetCurrentThreadId();
    bool        seen = false;
    std::thread hands([&] {
        const HWND dialog = WaitForDialog(thread);
        seen = dialog != nullptr;
        if (!seen)
            return;
        person(dialog);
        if (IsWindow(dialog))
            Press(dialog, IDCANCEL);
    });
    const bool  answer = call();
    hands.join();
    REQUIRE(seen);
    return answer;
}

const std::map<int, const wchar_t*> Layout = {
    {field::Width, L"640"},  {field::Height, L"480"},   {field::HeaderBytes, L"4294967295"},
    {field::InLow, L"-0.5"}, {field::InHigh, L"65535"}, {field::OutLow, L"1.25"},
    {field::OutHigh, L"254"}};

void TypeLayout(HWND dialog)
{
    for (const auto& [id, text] : Layout)
        Type(dialog, id, text);
    SendDlgItemMessageW(dialog, field::DataType, CB_SETCURSEL, 2, 0);
    SendDlgItemMessageW(dialog, field::MapToByte, BM_SETCHECK, BST_CHECKED, 0);
}

}

TEST_CASE("a confirmed layout dialog fills every field of the record")
{
    const OwnDataFolder folder;
    tagZEKImaLoadPara   para;
    CHECK(Answer([&] { return gDlgGetImaLoadPara(para); },
                 [](HWND dialog) {
                     TypeLayout(dialog);
                     Press(dialog, IDOK);
                 }));
    CHECK(para.Width == 640);
    CHECK(para.Height == 480);
    CHECK(para.DataType == 2);
    CHECK(para.HeaderBytes == 4294967295u);
    CHECK(para.MapToByte == 1);
    CHECK(para.InLow == -0.5f);
    CHECK(para.InHigh == 65535.0f);
    CHECK(para.OutLow == 1.25f);
    CHECK(para.OutHigh == 254.0f);
}

TEST_CASE("the layout dialog starts with the values confirmed last and not with a cancelled one")
{
    const OwnDataFolder folder;
    tagZEKImaLoadPara   para;
    Answer([&] { return gDlgGetImaLoadPara(para); },
           [](HWND dialog) {
               TypeLayout(dialog);
               Press(dialog, IDOK);
           });
    tagZEKImaLoadPara other;
    CHECK_FALSE(Answer([&] { return gDlgGetImaLoadPara(other); },
                       [](HWND dialog) {
                           Type(dialog, field::Width, L"1");
                           Press(dialog, IDCANCEL);
                       }));
    CHECK(other.Width == 0);

    std::map<int, std::wstring> shown;
    LRESULT                     type = -1, check = -1;
    Answer([&] { return gDlgGetImaLoadPara(other); },
           [&](HWND dialog) {
               for (const auto& [id, text] : Layout)
                   shown[id] = TextOf(dialog, id);
               type = SendDlgItemMessageW(dialog, field::DataType, CB_GETCURSEL, 0, 0);
               check = SendDlgItemMessageW(dialog, field::MapToByte, BM_GETCHECK, 0, 0);
           });
    for (const auto& [id, text] : Layout)
        CHECK(shown[id] == text);
    CHECK(type == 2);
    CHECK(check == BST_CHECKED);
}

TEST_CASE("the last values are kept in a file, and what the file says comes first")
{
    const OwnDataFolder folder;
    tagZEKImaLoadPara   para;
    Answer([&] { return gDlgGetImaLoadPara(para); },
           [](HWND dialog) {
               TypeLayout(dialog);
               Press(dialog, IDOK);
           });
    const std::wstring file = folder.File(L"Tessik.ini");
    CHECK(GetPrivateProfileIntW(L"ImaLoadPara", L"Width", -1, file.c_str()) == 640);

    // As another process would.
    WritePrivateProfileStringW(L"ImaLoadPara", L"Width", L"320", file.c_str());
    WritePrivateProfileStringW(L"ImaLoadPara", L"Height", L"nonsense", file.c_str());
    std::wstring width, height;
    Answer([&] { return gDlgGetImaLoadPara(para); },
           [&](HWND dialog) {
               width = TextOf(dialog, field::Width);
               height = TextOf(dialog, field::Height);
           });
    CHECK(width == L"320");
    CHECK(height == L"480");
}

TEST_CASE("confirming is refused while a field holds no number, and that field has the focus")
{
    const OwnDataFolder folder;
    tagZEKImaLoadPara   para;
    para.Height = 3;
    bool up = false;
    int  focused = 0;
    CHECK_FALSE(Answer([&] { return gDlgGetImaLoadPara(para); },
                       [&](HWND dialog) {
                           TypeLayout(dialog);
                           Type(dialog, field::InHigh, L"12 apples");
                           Press(dialog, IDOK);
                           up = IsWindow(dialog);
                           GUITHREADINFO info = {};
                           info.cbSize = sizeof info;
                           GetGUIThreadInfo(GetWindowThreadProcessId(dialog, nullptr), &info);
                           focused = GetDlgCtrlID(info.hwndFocus);
                       }));
    CHECK(up);
    CHECK(focused == field::InHigh);
    CHECK(para.Height == 3);

    // The same values with the field mended are taken.
    CHECK(Answer([&] { return gDlgGetImaLoadPara(para); },
                 [](HWND dialog) {
                     TypeLayout(dialog);
                     Type(dialog, field::InHigh, L"12 apples");
                     Press(dialog, IDOK);
                     Type(dialog, field::InHigh, L"12");
                     Press(dialog, IDOK);
                 }));
    CHECK(para.InHigh == 12.0f);
}

TEST_CASE("a confirmed rectangle dialog fills the four edges and remembers them")
{
    const OwnDataFolder  folder;
    tagZEKImaROIRectPara para;
    CHECK(Answer([&] { return gDlgGetImaROIRectPara(para); },
                 [](HWND dialog) {
                     Type(dialog, field::RoiLeft, L"-3");
                     Type(dialog, field::RoiRight, L"30");
                     Type(dialog, field::RoiTop, L"4");
                     Type(dialog, field::RoiBottom, L"40");
                     Press(dialog, IDOK);
                 }));
    CHECK(para.RoiLeft == -3);
    CHECK(para.RoiRight == 30);
    CHECK(para.RoiTop == 4);
    CHECK(para.RoiBottom == 40);

    tagZEKImaROIRectPara next;
    CHECK(Answer([&] { return gDlgGetImaROIRectPara(next); }, [](HWND dialog) { Press(dialog, IDOK); }));
    CHECK(next.RoiLeft == -3);
    CHECK(next.RoiBottom == 40);
}

TEST_CASE("the text dialog keeps its value under the caller's section of the caller's file")
{
    const OwnDataFolder  folder;
    tagZEKImaGeneralPara para;
    CString              section(L"TextInfo"), file(L"TextInfo.ini");
    CHECK(Answer([&] { return gDlgGetImaGeneralParaV2(para, section, file); },
                 [](HWND dialog) {
                     Type(dialog, field::Value, L" 两个 \"词\" ");
                     Press(dialog, IDOK);
                 }));
    CHECK(para.Value == L" 两个 \"词\" ");

    std::wstring         shown, elsewhere;
    tagZEKImaGeneralPara next;
    Answer([&] { return gDlgGetImaGeneralParaV2(next, section, file); },
           [&](HWND dialog) { shown = TextOf(dialog, field::Value); });
    CHECK(shown == L" 两个 \"词\" ");
    CHECK(next.Value.IsEmpty());

    CString otherSection(L"MeasureScaleInfo");
    next.Value = L"1.5";
    Answer([&] { return gDlgGetImaGeneralParaV2(next, otherSection, file); },
           [&](HWND dialog) { elsewhere = TextOf(dialog, field::Value); });
    CHECK(elsewhere == L"1.5");
}

TEST_CASE("a file named with its folder is used where it is")
{
    const OwnDataFolder  folder;
    CString              section(L"TextInfo"), file((folder.Path + L"\\own.ini").c_str());
    tagZEKImaGeneralPara para;
    Answer([&] { return gDlgGetImaGeneralParaV2(para, section, file); },
           [](HWND dialog) {
               Type(dialog, field::Value, L"2.5");
               Press(dialog, IDOK);
           });
    wchar_t kept[16] = L"";
    GetPrivateProfileStringW(L"TextInfo", L"Value", L"", kept, 16, file);
    CHECK(std::wstring(kept) == L"2.5");
    DeleteFileW(file);
}

namespace {

// Room of a text in px against the control that shows it; the texts that do not fit, one a line.
std::wstring TextsCutOff(HWND dialog)
{
    std::wstring cutOff;
    for (HWND child = GetWindow(dialog, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
        wchar_t kind[20] = L"", text[100] = L"";
        GetClassNameW(child, kind, 20);
        SendMessageW(child, WM_GETTEXT, 100, reinterpret_cast<LPARAM>(text));
        if (std::wstring(kind) == L"Edit")
            continue;
        RECT rect = {};
        SIZE size = {};
        GetClientRect(child, &rect);
        const HDC     dc = GetDC(child);
        const HGDIOBJ before =
            SelectObject(dc, reinterpret_cast<HFONT>(SendMessageW(child, WM_GETFONT, 0, 0)));
        GetTextExtentPoint32W(dc, text, static_cast<int>(std::wstring(text).size()), &size);
        SelectObject(dc, before);
        ReleaseDC(child, dc);
        const bool hasMark = (GetWindowLongW(child, GWL_STYLE) & BS_TYPEMASK) == BS_AUTOCHECKBOX ||
                             std::wstring(kind) == L"ComboBox";
        const LONG mark = hasMark ? GetSystemMetrics(SM_CXVSCROLL) + 4 : 0;
        if (size.cx + mark > rect.right || size.cy > rect.bottom)
            cutOff += std::wstring(text) + L"\n";
    }
    return cutOff;
}

void CheckLooks(HWND dialog)
{
    int controls = 0;
    for (HWND child = GetWindow(dialog, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
        ++controls;
        LOGFONTW font = {};
        GetObjectW(reinterpret_cast<HFONT>(SendMessageW(child, WM_GETFONT, 0, 0)), sizeof font, &font);
        CHECK(font.lfCharSet == GB2312_CHARSET);
    }
    CHECK(controls >= 4);
    CHECK(TextsCutOff(dialog) == L"");
}

}

TEST_CASE("every control of the dialogs has a font for Chinese, and no text is cut off")
{
    const OwnDataFolder  folder;
    tagZEKImaLoadPara    layout;
    tagZEKImaROIRectPara rect;
    tagZEKImaGeneralPara general;
    CString              section = L"MeasureScaleInfo", file = L"TextInfo.ini";
    CHECK_FALSE(Answer([&] { return gDlgGetImaLoadPara(layout); }, CheckLooks));
    CHECK_FALSE(Answer([&] { return gDlgGetImaROIRectPara(rect); }, CheckLooks));
    CHECK_FALSE(Answer([&] { return gDlgGetImaGeneralParaV2(general, section, file); }, CheckLooks));
}
