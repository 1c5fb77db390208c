#pragma once

// Files that take the place of others only when they are whole.

#include "base/OwnedFile.h"
#include "vostel/platform.h"

namespace vostel {

// A name in the folder of the path, with the same ending, that no other call uses.
CString NameBeside(const CString& path);

// A file that is written beside its path and then moved there. Until Keep has succeeded, the path leads to
// what was there; what is not kept is removed. Off Windows links are followed, and the file gets the mode and
// the owner of the one before. A device, whose place nothing can take, is written to as it is.
class FileReplacement {
public:
    // The mode is one of fopen that writes.
    explicit FileReplacement(const CString& path, const char* mode = "wb");
    ~FileReplacement();
    FileReplacement(const FileReplacement&) = delete;
    FileReplacement& operator=(const FileReplacement&) = delete;

    // Null where the path cannot be written, and after the stream is closed.
    std::FILE* Stream() const { return File.get(); }
    // Closes the stream, for who writes by name; empty where the path cannot be written.
    CString CloseToName();
    // Closes and moves. False, with the file before in its place, if a write, the close or the move fails.
    bool Keep();

private:
    CString   Path;      // at the end of links
    CString   Beside;    // empty for a device, and when there is nothing to remove
    OwnedFile File;
    bool      Opened = false;    // and not kept yet

    void Discard();
};

}
