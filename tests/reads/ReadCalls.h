#pragma once

// Every exported call that reads files or folders, with files to read and what it makes of them as text.

#include "support/HostCanvas.h"
#include "support/TempFolder.h"

#include <string>
#include <vector>

// A canvas with an image and an object, as calls find it.
class ReadScene {
public:
    HostCanvas  Host{0, 64, 48};
    TestDialogs Dialogs;
    int         RawType = 3;    // the dialog's answer: 0 of 16 bits, 1 floats, 2 signed, 3 bytes

    ReadScene();

    // The canvas with all that is on it, to the bit.
    std::string Shown() const;
};

struct ReadCall {
    std::string Export;     // as the list of exported names has it
    std::string File;       // what it is told to read, in its folder
    std::string Other;      // what changes meanwhile, where that is another file
    bool        InParts;    // it may have the first part of one content and the rest of another
    std::string (*Run)(ReadScene& scene, const std::string& path);
};

// What a call that leaves everything as it was and reports a failure has for text.
extern const char Refused[];

const std::vector<ReadCall>& ReadCalls();

// The files of all calls, in one of two contents that differ in each.
void WriteFiles(const TempFolder& folder, int content);
