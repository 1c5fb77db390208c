#pragma once

// The user dialogs for files and folders, and directory walks. A dialog that the user cancels answers the
// text "NULL". Listings and copies use the platform's own separator in what they return.

#include "vostel/export.h"
#include "vostel/platform.h"

#include <string>
#include <vector>

class VOSTEL_API OSDIR {
public:
    std::vector<CString> FileList;    // the host's; no member touches it

    // Save dialogs, all of them, with the default name "未命名". The two bmp and raw pairs differ in the
    // prompt before an existing file is chosen.
    CString GetFile();
    CString GetBmpFile();
    CString GetRawFile();
    CString GetBmpFileNoOverWritePrompt();
    CString GetRawFileNoOverWritePrompt();

    // An open dialog for several files; the paths are appended. bufferChars is the room that a dialog gets
    // for its answer where it needs one. True if names is not empty afterwards, false when cancelled.
    bool    GetMultiFile(std::vector<CString>& names, int bufferChars);
    CString GetDir();    // a folder

    bool IsDir(CString& path);
    bool CheckFolderExist(const CString& path);

    // Copies a tree. Both are patterns that end with a separator and "*.*"; op is of no effect. Files that
    // exist are overwritten. False at the first thing that fails, where the walk stops; a folder without
    // entries counts as failed, so that an empty subfolder is made and ends the walk.
    bool DirectoryOperate(CString from, CString to, unsigned int op);

    // Appends the paths of the files in dir that match the pattern, then with recursive those of each
    // subfolder. Links to folders are not followed.
    void FindFile(wchar_t* dir, std::vector<CString>& out, bool recursive, wchar_t* pattern);

    // A list as a text file in the system's code page, a line each.
    void Write(char* path, std::vector<CString> list);
    // Appends the trimmed lines of a text file. True when it cannot be opened: the answer is inverted, and a
    // file that ends in a line break gives its last line once more. Lines are taken in pieces of 1023 bytes.
    bool Read(char* path, std::vector<CString>& list);
};

// Bare names of the files that match a pattern. False if nothing matches; the list is cleared first.
VOSTEL_API bool OSGetFileListFromDir(std::string pattern, std::vector<std::string>& names);
