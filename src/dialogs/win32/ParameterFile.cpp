#include "dialogs/win32/ParameterFile.h"

#include <shlobj.h>

#include <vector>

namespace vostel {

namespace {

std::wstring ApplicationDataFolder()
{
    wchar_t folder[MAX_PATH] = L"";
    // The variable comes first: it is how a person sends a program's data elsewhere.
    const DWORD length = GetEnvironmentVariableW(L"APPDATA", folder, MAX_PATH);
    if (length == 0 || length >= MAX_PATH)
        SHGetFolderPathW(nullptr, CSIDL_APPDATA, nullptr, SHGFP_TYPE_CURRENT, folder);
    return folder;
}

std::wstring FullPath(const std::wstring& file)
{
    // The profile calls would look for a relative name in the system's own folder.
    wchar_t     path[MAX_PATH] = L"";
    const DWORD length = GetFullPathNameW(file.c_str(), MAX_PATH, path, nullptr);
    return length > 0 && length < MAX_PATH ? path : file;
}

void MakeUnicodeFile(const std::wstring& path)
{
    const HANDLE file =
        CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        return;
    const wchar_t mark = 0xFEFF;
    DWORD         written = 0;
    WriteFile(file, &mark, sizeof mark, &written, nullptr);
    CloseHandle(file);
}

}

ParameterFile::ParameterFile(const CString& file, const CString& section) : Section(section.GetString())
{
    const std::wstring name = file.GetString();
    if (name.find_first_of(L"\\/:") != std::wstring::npos) {
        Path = FullPath(name);
        return;
    }
    const std::wstring folder = ApplicationDataFolder() + L"\\VostelObj";
    CreateDirectoryW(folder.c_str(), nullptr);
    Path = folder + L"\\" + name;
}

bool ParameterFile::Read(const wchar_t* key, std::wstring& text) const
{
    // No value holds a line end, so this stands for a key that is not there.
    const wchar_t* const missing = L"\n";
    std::vector<wchar_t> buffer(256);
    for (;;) {
        const DWORD length = GetPrivateProfileStringW(Section.c_str(), key, missing, buffer.data(),
                                                      static_cast<DWORD>(buffer.size()), Path.c_str());
        if (length + 1 < buffer.size() || buffer.size() >= 65536) {
            if (std::wstring(buffer.data()) == missing)
                return false;
            text.assign(buffer.data(), length);
            return true;
        }
        buffer.resize(buffer.size() * 4);    // a value that fills the buffer was cut short
    }
}

void ParameterFile::Write(const wchar_t* key, const std::wstring& text) const
{
    MakeUnicodeFile(Path);
    // Reading takes one pair of quotes off again; without it, blanks at the ends would be lost.
    const std::wstring quoted = L"\"" + text + L"\"";
    WritePrivateProfileStringW(Section.c_str(), key, quoted.c_str(), Path.c_str());
}

}
