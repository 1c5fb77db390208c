#include "vostel/PathStrings.h"

#include "platform/Files.h"

#include <algorithm>
#include <cstring>

using namespace vostel;

namespace {

constexpr unsigned long UnknownSize = 0xFFFFFFFFul;

int LastSeparator(const CString& text)
{
    int at = text.GetLength() - 1;
    while (at >= 0 && !IsPathSeparator(text[at]))
        --at;
    return at;
}

CString NameWithoutExtension(const CString& path)
{
    return IsDirectory(path) ? CString(L"notfile") : CString(L"nul");
}

}

char* gCStringToChar(CString* s)
{
    const CString  empty;
    const CString& text = s ? *s : empty;
    // The buffer has the length of the ANSI text and takes the OEM text, cut short if that is longer and
    // followed by zeros if it is shorter.
    const std::size_t size = NarrowAnsi(text.GetString(), text.GetLength()).size();
    const std::string narrow = NarrowOem(text.GetString(), text.GetLength());
    char* const       copy = new char[size + 1]();
    std::memcpy(copy, narrow.data(), std::min(size, narrow.size()));
    return copy;
}

void gDLLDelete(char* p)
{
    delete[] p;
}

std::string CStringToString(CString& s)
{
    // Up to the first terminator, which may come before the end of the string.
    return NarrowAnsi(s.GetString(), static_cast<int>(std::wcslen(s.GetString())));
}

unsigned long cFileSize(FILE* f)
{
    // A seek stores what was written, so that it counts.
    const long long bytes = f && std::fseek(f, 0, SEEK_CUR) == 0 ? FileLength(f) : -1;
    return bytes < 0 ? UnknownSize : static_cast<unsigned long>(bytes);
}

unsigned long cFileSize(const char* path)
{
    const OwnedFile file = OpenFile(path, "rb");
    return file ? cFileSize(file.get()) : UnknownSize;
}

bool cFileExist(const char* path)
{
    return PathExists(path);
}

bool cDirExist(const char* path)
{
    return PathExists(path);
}

OSCString::OSCString(CString& s) : Text(gCStringToChar(&s)) {}

OSCString::~OSCString()
{
    gDLLDelete(Text);
}

void OSCString::SetCString(CString& s)
{
    gDLLDelete(Text);
    Text = nullptr;    // the copy may fail
    Text = gCStringToChar(&s);
}

char* OSCString::GetChar() const
{
    return Text;
}

CString OSCString::GetDir(CString& path)
{
    return path.Left(LastSeparator(path) + 1);
}

CString OSCString::GetNextDir(CString& path)
{
    const CString directory = path.Left(LastSeparator(path));
    return directory.Left(LastSeparator(directory) + 1);
}

CString OSCString::GetName(CString& path, bool full)
{
    const int     dot = path.ReverseFind(L'.');
    const CString name = dot >= 3 ? path.Left(dot) : NameWithoutExtension(path);
    return full ? name : name.Mid(LastSeparator(name) + 1);
}

CString OSCString::GetExt(CString& path)
{
    const int dot = path.ReverseFind(L'.');
    if (dot < 0)
        return NameWithoutExtension(path);
    CString extension = path.Mid(dot + 1);
    extension.MakeLower();
    return extension;
}

CString OSCString::ChangeExt(CString name, CString ext)
{
    if (GetExt(name) == L"nul")
        return name + L"." + ext;
    return name.Left(name.Find(L'.')) + L"." + ext;
}
