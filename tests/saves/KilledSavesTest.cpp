// The process ends in the middle of a save: each file is the old one or the new one.

#include "saves/KilledProcess.h"
#include "saves/SaveCalls.h"

TEST_CASE("a process that is killed before any of the changes of a save leaves old or new files")
{
    SaveScene scene;
    for (const SaveCall& call : SaveCalls()) {
        CAPTURE(call.File);
        SavedFolder folder(scene, call);
        ProcessEnd  end = ProcessEnd::Killed;
        int         kills = 0;
        for (int n = 1; n < 200 && end == ProcessEnd::Killed; ++n) {
            CAPTURE(n);
            folder.PutBack();
            end = RunAndKillAt(n, [&] { folder.Save(); });
            if (end == ProcessEnd::Unknown) {
                MESSAGE("processes cannot be watched here");
                return;
            }
            kills += end == ProcessEnd::Killed;
            CHECK(folder.IsWhole());
        }
        CHECK(end == ProcessEnd::Done);
        CHECK(folder.Found() == folder.After);
        CHECK(kills >= 3);    // a file is made, written and moved
    }
}

TEST_CASE("a process that is killed where its file gets too long leaves the old files")
{
    SaveScene scene;
    for (const SaveCall& call : SaveCalls()) {
        CAPTURE(call.File);
        SavedFolder folder(scene, call);
        for (const unsigned long bytes : {0ul, 20ul}) {
            CAPTURE(bytes);
            CHECK(RunAndKillBeyond(bytes, [&] { folder.Save(); }) == ProcessEnd::Killed);
            CHECK(folder.Found() == folder.Before);
        }
        // What it has left over does not stand in the way of the next save.
        CHECK(folder.Save());
        CHECK(folder.Found() == folder.After);
    }
}
