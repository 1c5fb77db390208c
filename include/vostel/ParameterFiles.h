#pragma once

// Named parameters in a text file, one "name = value" per line.

#include "vostel/export.h"

#include <fstream>
#include <map>
#include <string>

class VOSTEL_API ZEKIODisk {
public:
    std::map<std::string, std::string>           ParaMap;    // name to value, filled by ReadMap
    std::ofstream                                Out;
    std::ifstream                                In;
    std::map<std::string, std::string>::iterator MapIter{};    // cursor of whoever walks the map

    ZEKIODisk();
    ~ZEKIODisk();

    // Opening clears the state of the stream, and sets its failure bit when it fails.
    void OpenWrite(char* path);         // appends
    void OpenWriteEmpty(char* path);    // empties the file
    void OpenRead(char* path);
    void CloseWrite();
    void CloseRead();

    // "name = value" and a line end, flushed: type 0 takes value for an int*, type 1 for a float* (written
    // with six significant digits); any other type writes nothing.
    void WritePara(char* name, void* value, int type);
    void WriteChar(char* text);    // no line end
    void WriteString(std::string text);
    void NextLine();

    // Reads In to its end and adds what the map does not have. A line is split by kinds of character, not at
    // the sign: the name is what is left without digits, the value what is left without letters, both without
    // white space and '='. So "gain2 = 1e-5" reads as gain, 21-5, and "x = -1" as x-, -1. Empty lines add
    // nothing. Of a line only the first 99 characters count. Ends at once on a stream that is not open.
    void ReadMap();

    // Always 0: they look nothing up.
    int   ReadInt(const char* name);
    float ReadFlt(const char* name);
};
