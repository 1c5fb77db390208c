#pragma once

/// @file
/// Named parameters in a text file, one "name = value" per line.

#include "vostel/export.h"

#include <fstream>
#include <map>
#include <string>

/// A parameter file that is written or read. Paths are those of the C++ streams; a null one counts as a file
/// that cannot be opened, and so does a named pipe off Windows, whose other end may never come. What is read
/// has to be a plain file: a device may have no end.
class VOSTEL_API ZEKIODisk {
public:
    std::map<std::string, std::string>           ParaMap;      ///< name to value, filled by ReadMap
    std::ofstream                                Out;          ///< the file that is written
    std::ifstream                                In;           ///< the file that is read
    std::map<std::string, std::string>::iterator MapIter{};    ///< cursor of whoever walks the map

    /// Opens nothing.
    ZEKIODisk();
    /// Closes both files.
    ~ZEKIODisk();

    /// Opens a file to append to it. As all three, it sets the stream's failure bit when it fails.
    void OpenWrite(char* path);
    /// Opens a file to write and empties it: at once and in place, so that what was there is gone whatever
    /// becomes of the new lines.
    void OpenWriteEmpty(char* path);
    /// Opens a file to read.
    void OpenRead(char* path);
    /// Closes Out. A file that could not be written whole is not reported but by Out's failure bit.
    void CloseWrite();
    /// Closes In.
    void CloseRead();

    /// Writes "name = value" and a line end, and flushes: type 0 takes value for an int*, type 1 for a
    /// float*, written with six significant digits; any other type writes nothing.
    void WritePara(char* name, void* value, int type);
    /// Writes a text without a line end; nothing for null.
    void WriteChar(char* text);
    /// Writes a text without a line end.
    void WriteString(std::string text);
    /// Writes a line end and flushes.
    void NextLine();

    /// Reads In to its end and adds what the map does not have. A line is split by kinds of character, not at
    /// the sign: the name is what is left without digits, the value what is left without letters, both
    /// without white space and '='. So "gain2 = 1e-5" reads as gain, 21-5, and "x = -1" as x-, -1. Empty
    /// lines add nothing. Of a line only the first 99 characters count. Ends at once on a stream that is not
    /// open.
    void ReadMap();

    /// Returns 0: it looks nothing up.
    int ReadInt(const char* name);
    /// Returns 0: it looks nothing up.
    float ReadFlt(const char* name);
};
