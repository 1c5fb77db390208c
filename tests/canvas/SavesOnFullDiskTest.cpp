// Saves of a canvas over good files, on a disk that is full.

#include "canvas/SavingHost.h"
#include "support/FileLimit.h"

namespace {

struct CanvasSave {
    void (*Operation)(int);
    const char* File;
    bool        Reports;    // by a message
};

const CanvasSave Saves[] = {
    {gCVSSaveClient, "client.png", true},     {gCVSSaveImaWithOverlap, "overlap.bmp", true},
    {gCVSSaveNowShowIma, "shown.bmp", false}, {gCVSSaveNowShowIma, "shown.tif", false},
    {gCVSSave8bit, "gray.bmp", false},        {gCVSSaveRaw, "data.raw", false},
    {gCVSSaveLabel, "labels.raw", false}};

}

TEST_CASE("a full disk costs no save the file that was there, and only the frame's saves report it")
{
    SavingHost saving;
    saving.Host.ShowFloat(Width, Height, [](int x, int y) { return x * y % 71; });
    saving.Host.Paint();
    for (const CanvasSave& save : Saves) {
        CAPTURE(save.File);
        const std::string                path = saving.Save(save.Operation, save.File);
        const std::vector<unsigned char> before = ReadBytes(path);
        REQUIRE(before.size() > 100);
        const std::size_t files = saving.Folder.EntryCount();
        for (const std::size_t bytes : {std::size_t{0}, std::size_t{1}, before.size() - 1}) {
            CAPTURE(bytes);
            saving.Host.Desktop.Messages.clear();
            {
                const FileLimit limit(bytes);
                saving.Save(save.Operation, save.File);
            }
            CHECK(ReadBytes(path) == before);
            CHECK(saving.Folder.EntryCount() == files);
            CHECK(saving.Host.Desktop.Messages.size() == (save.Reports ? 1u : 0u));
        }
    }
    // With room again, each save takes the place of its file.
    saving.Host.ShowFloat(Width, Height, [](int x, int y) { return x + y; });
    saving.Host.Paint();
    saving.DrawRect(CPoint(20, 20), CPoint(60, 50));
    saving.Deselect();
    saving.Host.Paint();
    for (const CanvasSave& save : Saves) {
        CAPTURE(save.File);
        const std::vector<unsigned char> before = ReadBytes(saving.Folder.Path(save.File));
        CHECK(ReadBytes(saving.Save(save.Operation, save.File)) != before);
    }
}

TEST_CASE("a part of the image that finds the disk full leaves the file that was there")
{
    SavingHost saving;
    saving.ShowPicture();
    saving.DrawRect(CPoint(20, 20), CPoint(60, 50));
    saving.Host.Paint();
    const std::string                path = saving.Save(gCVSSaveNowShowIma, "part.png");
    const std::vector<unsigned char> before = ReadBytes(path);
    REQUIRE(before.size() > 100);
    {
        const FileLimit limit(50);
        saving.Save(gCVSSaveNowShowIma, "part.png");
    }
    CHECK(ReadBytes(path) == before);
    CHECK(saving.Folder.EntryCount() == 1);
    CHECK(saving.Host.Desktop.Messages.empty());
}
