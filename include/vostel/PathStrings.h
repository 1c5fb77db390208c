#pragma once

// Helpers between the wide paths of the interface and the narrow paths of the C file functions.

#include "vostel/export.h"
#include "vostel/platform.h"

#include <cstdio>
#include <string>

// A new narrow copy, to be freed with gDLLDelete. On Windows it is sized by the ANSI code page and
// converted by the OEM code page; elsewhere it is UTF-8. Null answers an empty text.
VOSTEL_API char* gCStringToChar(CString* s);
VOSTEL_API void  gDLLDelete(char* p);    // null is allowed
// Narrow copy in the ANSI code page (UTF-8 elsewhere).
VOSTEL_API std::string CStringToString(CString& s);

VOSTEL_API unsigned long cFileSize(FILE* f);             // bytes; the position is kept
VOSTEL_API unsigned long cFileSize(const char* path);    // 0xFFFFFFFF if it cannot be opened
VOSTEL_API bool          cFileExist(const char* path);
VOSTEL_API bool          cDirExist(const char* path);    // the same test: a plain file answers true too

// Path operations. The members that take a CString do not use Text. "nul" and "notfile" are the two
// reserved answers for a path without extension: "notfile" for an existing directory, else "nul".
class VOSTEL_API OSCString {
public:
    char* Text = nullptr;    // from gCStringToChar; owned

    OSCString() = default;
    explicit OSCString(CString& s);
    OSCString(const OSCString&) = default;
    // Copies the pointer only: both objects then free one text, so that only one of them may be destroyed.
    OSCString& operator=(const OSCString&) = default;
    ~OSCString();

    void  SetCString(CString& s);
    char* GetChar() const;    // still owned by the object

    CString GetDir(CString& path);        // up to and including the last separator
    CString GetNextDir(CString& path);    // the parent of that, with its separator
    // Without extension, if the last dot stands at index 3 or later; with full false without directory.
    CString GetName(CString& path, bool full);
    CString GetExt(CString& path);    // lower case, no dot
    // Replaces all from the first dot on.
    CString ChangeExt(CString name, CString ext);
};
