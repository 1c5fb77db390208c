#pragma once

/// @file
/// Helpers between the wide paths of the interface and the narrow paths of the C file functions. Narrow text
/// is in the system's ANSI code page on Windows, UTF-8 elsewhere.

#include "vostel/export.h"
#include "vostel/platform.h"

#include <cstdio>
#include <string>

/// Returns a new narrow copy, to be freed with gDLLDelete; an empty text for null. On Windows it is sized by
/// the ANSI code page and converted by the OEM code page.
VOSTEL_API char* gCStringToChar(CString* s);

/// Frees a text of gCStringToChar; null is allowed.
VOSTEL_API void gDLLDelete(char* p);

/// Returns a narrow copy, up to the first zero character.
VOSTEL_API std::string CStringToString(CString& s);

/// Returns the length of an open file in bytes, its low 32 bits where long has no more; the position is kept.
/// 0xFFFFFFFF if it cannot be found out.
VOSTEL_API unsigned long cFileSize(FILE* f);
/// Returns the length of a file in bytes; 0xFFFFFFFF if it cannot be opened.
VOSTEL_API unsigned long cFileSize(const char* path);

/// Returns whether a file or folder of that path exists.
VOSTEL_API bool cFileExist(const char* path);
/// Returns whether a file or folder of that path exists: the same test as cFileExist.
VOSTEL_API bool cDirExist(const char* path);

/// A narrow copy of a path, and operations on paths. Separators are the backslash and, where paths use it,
/// the slash. "nul" and "notfile" are the two reserved results for a path without extension: "notfile" for an
/// existing folder, else "nul".
class VOSTEL_API OSCString {
public:
    char* Text = nullptr;    ///< from gCStringToChar; owned

    /// An object without a text.
    OSCString() = default;
    /// An object with a narrow copy.
    explicit OSCString(CString& s);
    /// Copies the pointer only: of two objects that share a text only one may be destroyed.
    OSCString(const OSCString&) = default;
    /// Copies the pointer only, as the constructor; the text held before is not freed.
    OSCString& operator=(const OSCString&) = default;
    /// Frees the text.
    ~OSCString();

    /// Replaces the text by a narrow copy.
    void SetCString(CString& s);
    /// Returns the text, still owned by the object.
    char* GetChar() const;

    /// Returns the path up to and including the last separator. As all below, it does not use Text.
    CString GetDir(CString& path);
    /// Returns the parent of GetDir, with its separator.
    CString GetNextDir(CString& path);
    /// Returns the path without its extension, if the last dot stands at index 3 or later, else a reserved
    /// result; with full false without the folder.
    CString GetName(CString& path, bool full);
    /// Returns the extension in lower case, without the dot, or a reserved result.
    CString GetExt(CString& path);
    /// Returns the name with all from its first dot on replaced by the extension.
    CString ChangeExt(CString name, CString ext);
};
