#pragma once

// Every exported call that writes files, with something to write.

#include "support/HostCanvas.h"
#include "support/TempFolder.h"

#include <map>
#include <string>
#include <vector>

// Whether a call that cannot write tells of it, by its result or by a message.
enum class Tells {
    Never,
    WhenNothingIsMade,    // but not of a file that gets no further
    Always
};

class SaveScene;

struct SaveCall {
    std::string Export;    // as the list of exported names has it
    std::string File;      // what it is told to write
    Tells       Telling;
    bool (*Run)(SaveScene& scene, const std::string& path);    // false: it tells of a failure by its result
};

const std::vector<SaveCall>& SaveCalls();

// What the calls save, in two contents that differ in every file.
class SaveScene {
public:
    HostCanvas                   Host{0, 64, 48};
    ClassData2DIO<unsigned char> Plane;
    CImage                       Picture;
    TempFolder                   Tree;    // of which a copy is made
    int                          Content = 0;

    void Take(int content);
    // True if the call tells of no failure.
    bool Save(const SaveCall& call, const std::string& path);
};

// By their paths from the folder.
using Files = std::map<std::string, std::vector<unsigned char>>;

// The files below a folder, without what an ended process may have left beside them.
Files FilesBelow(const std::string& folder);

// A folder in which a call has saved the first content; the scene holds the second one then.
class SavedFolder {
public:
    Files Before, After;    // with the first content, and with the second one over it

    SavedFolder(SaveScene& scene, const SaveCall& call);

    bool  Save() { return Scene.Save(Call, Folder.Path(Call.File)); }
    Files Found() const { return FilesBelow(Folder.Path()); }
    // Whether each file is whole, and one of Before or of After.
    bool IsWhole() const;
    // As it was before, without anything else.
    void PutBack() const;

    SaveScene&      Scene;
    const SaveCall& Call;
    TempFolder      Folder;
};
