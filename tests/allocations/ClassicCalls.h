#pragma once

// The exported calls of the classic interface that may allocate, each with arguments of a small world.

#include "support/HostCanvas.h"
#include "support/TempFolder.h"

#include <map>
#include <string>
#include <vector>

// A canvas with an image, objects and controls, containers of each type, and files.
struct ClassicWorld {
    HostCanvas                    Host{0, 64, 48};
    TestDialogs                   Dialogs;
    const TempFolder&             Folder;    // the same for all worlds; what is written there may stay
    ClassData2DIO<float>          Floats, Kernel, Result;
    ClassData2DIO<unsigned char>  Bytes, Red, Green, Blue;
    ClassData2DIO<unsigned short> Words;
    ClassData2DIO<short>          Shorts;
    ClassData2DIO<int>            Labels;
    CImage                        Picture;
    ZEKPP1DFFT                    Transform;
    std::vector<CString>          Lines;

    ClassicWorld();
    ~ClassicWorld();

    std::string Path(const char* name) const { return Folder.Path(name); }
    CString     WidePath(const char* name) const { return Folder.WidePath(name); }
};

using ClassicCall = void (*)(ClassicWorld& world);

// By their names in the list of exports.
const std::map<std::string, ClassicCall>& CanvasCalls();     // gCVS...
const std::map<std::string, ClassicCall>& ClassCalls();      // members of classes
const std::map<std::string, ClassicCall>& RoutineCalls();    // the others
