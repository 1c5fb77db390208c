// Files that are written over good ones, on a disk that is full.

#include "support/FileLimit.h"
#include "support/TempFolder.h"

#include <VostelObj.h>

#include <doctest/doctest.h>

namespace {

using Plane = ClassData2DIO<unsigned char>;
using Bytes = std::vector<unsigned char>;

void Fill(Plane& plane, int width, int height, unsigned char level)
{
    plane.Allocate(width, height);
    std::fill_n(plane.Ptr1D, width * height, level);
}

// A save of one level over one of another, at sizes of a file up to one byte less than it takes.
template <typename Save>
void CheckSave(const char* name, Save save)
{
    CAPTURE(name);
    TempFolder        folder;
    const std::string path = folder.Path(name);
    save(path, 1);
    const Bytes before = ReadBytes(path);
    REQUIRE(before.size() > 10);
    for (const std::size_t bytes : {std::size_t{0}, std::size_t{7}, before.size() / 2, before.size() - 1}) {
        CAPTURE(bytes);
        {
            const FileLimit limit(bytes);
            save(path, 2);
        }
        CHECK(ReadBytes(path) == before);
        CHECK(folder.EntryCount() == 1);
    }
    save(path, 2);
    CHECK(ReadBytes(path) != before);
    CHECK(folder.EntryCount() == 1);
}

}

TEST_CASE("bitmaps of planes replace a file when they are whole, and count as written even if they are not")
{
    for (const int width : {8, 9, 700}) {    // with and without padding, and beyond one transfer
        CAPTURE(width);
        CheckSave("gray.bmp", [&](std::string path, unsigned char level) {
            Plane plane;
            Fill(plane, width, 300, level);
            CHECK(ZEKSaveGrayBmp(path.data(), plane));
        });
        CheckSave("color.bmp", [&](const std::string& path, unsigned char level) {
            Plane plane;
            Fill(plane, width, 300, level);
            CHECK(ZEKSaveColorBmp(path.c_str(), &plane, &plane, &plane));
        });
    }
}

TEST_CASE("pictures replace a file when they are whole, in every format")
{
    for (const char* name : {"a.bmp", "a.png", "a.gif", "a.tif", "a.jpg"})
        CheckSave(name, [&](const std::string& path, unsigned char level) {
            Plane plane;
            Fill(plane, 64, 64, static_cast<unsigned char>(100 * level));
            CString wide(path.c_str());
            CHECK(gSaveUcData(&plane, wide));
        });
}

TEST_CASE("a list replaces the one before when it is whole")
{
    CheckSave("list.txt", [](std::string path, int value) {
        OSDIR().Write(path.data(), std::vector<CString>(20, value == 1 ? L"one" : L"two"));
    });
}
