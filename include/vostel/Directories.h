#pragma once

/// @file
/// Dialogs for files and folders, and directory walks. Dialogs go through VostelHostServices. Listings and
/// copies use the platform's own separator in what they return.

#include "vostel/export.h"
#include "vostel/platform.h"

#include <string>
#include <vector>

/// Dialogs, directories and text lists. A dialog that the user cancels returns the text "NULL".
class VOSTEL_API OSDIR {
public:
    std::vector<CString> FileList;    ///< the host's; no member touches it

    /// Returns the path of a save dialog for any file, with the default name "未命名" as all of these. No
    /// prompt before an existing file is chosen.
    CString GetFile();
    /// Returns the path of a save dialog for a picture, with a prompt before an existing file is chosen.
    CString GetBmpFile();
    /// Returns the path of a save dialog for raw data, with a prompt before an existing file is chosen.
    CString GetRawFile();
    /// Returns the path of a save dialog for a picture, without that prompt.
    CString GetBmpFileNoOverWritePrompt();
    /// Returns the path of a save dialog for raw data, without that prompt.
    CString GetRawFileNoOverWritePrompt();

    /// Appends the paths of an open dialog for several files. Returns false when it is cancelled, else
    /// whether names has an entry. bufferChars is not used: there is room for any number of paths.
    bool GetMultiFile(std::vector<CString>& names, int bufferChars);
    /// Returns the path of a folder dialog.
    CString GetDir();

    /// Returns whether the path is an existing folder.
    bool IsDir(CString& path);
    /// Returns whether the path, in which the last part may be a pattern, leads to an existing folder.
    bool CheckFolderExist(const CString& path);

    /// Copies a tree. Both paths are patterns that end with a separator and "*.*"; op has no effect. Files
    /// that exist are overwritten. Returns false at the first thing that fails, where the walk stops; a
    /// folder without entries counts as failed, so that an empty subfolder is made and ends the walk.
    ///
    /// Links in the source are followed: what they lead to is copied in their place, but what lies in a
    /// folder behind links only once, by the first of them in the order of names; further ways there are left
    /// out, as are links back to a folder on the way. Links in the target are not: a file takes the place of
    /// a link, and a link where a folder would go ends the walk, so that nothing outside the target is
    /// written. A file that cannot be copied whole leaves the one that was there.
    bool DirectoryOperate(CString from, CString to, unsigned int op);

    /// Appends the paths of the files in dir that match the pattern, then, if recursive, those of each
    /// subfolder. The pattern "*.*" matches every name. Links to folders are not followed.
    void FindFile(wchar_t* dir, std::vector<CString>& out, bool recursive, wchar_t* pattern);

    /// Writes a list as a text file in the system's code page, UTF-8 off Windows, an entry per line. A
    /// failure, on Windows also because someone holds the old file open, is not reported, and leaves the file
    /// that was there.
    void Write(char* path, std::vector<CString> list);
    /// Appends the lines of a text file, without white space at their ends. Returns true when the file cannot
    /// be opened, is a device or has more than 2^20 lines, and leaves the list then: the result is inverted.
    /// A file that ends in a line break gives its last line once more. Lines are taken in pieces of 1023
    /// bytes, and each piece counts.
    bool Read(char* path, std::vector<CString>& list);
};

/// Replaces names by the bare names of the files that match a pattern. Returns false if nothing matches.
VOSTEL_API bool OSGetFileListFromDir(std::string pattern, std::vector<std::string>& names);
