// Each allocation of saving and opening, of exports and imports fails once. A call that says so has changed
// nothing, on the canvas and on the disk.

#include "interchange/CanvasContent.h"
#include "support/FailingAllocator.h"
#include "support/OpenCanvas.h"
#include "support/OpenShapes.h"
#include "support/TempFolder.h"

#include <map>

namespace {

void Furnish(int32_t canvas, int objects)
{
    ShowFloats(canvas, 40, 30, [](int x, int y) { return x + y; });
    Add(canvas, VOSTEL_POLYGON, {{5, 5}, {25, 6}, {14.5, 22}});
    Add(canvas, VOSTEL_LENGTH, {{3, 4}, {20, 9}});
    if (objects < 3)
        return;
    const VostelObject text = Add(canvas, VOSTEL_TEXT, {{3, 4}});
    REQUIRE(vostel_object_set_text(canvas, text, "a text that is longer than a short one") == VOSTEL_OK);
    const VostelObject region = Add(canvas, VOSTEL_SPLINE, {{3, 4}, {9, 9}, {20, 3}});
    REQUIRE(vostel_contrast_of_object(canvas, region, 1, 30) == VOSTEL_OK);
    Add(canvas, VOSTEL_PROFILE, {{3, 4}, {30, 4}});
    REQUIRE(vostel_set_scale(canvas, 0.5, "a unit that is longer than a short one") == VOSTEL_OK);
    REQUIRE(vostel_contrast_set(canvas, 10, 20) == VOSTEL_OK);
    const VostelView view = {sizeof view, 2.0, 5, 6};
    REQUIRE(vostel_view_set(canvas, &view) == VOSTEL_OK);
}

template <typename Call>
void CheckEachFailure(const char* name, uint32_t flags, Call prepare)
{
    CAPTURE(name);
    const TempFolder  folder;
    const std::string path = folder.Path("s.vostel.json");
    const OpenCanvas  first;
    Furnish(first.Number, 5);
    prepare(first.Number, folder);
    REQUIRE(vostel_session_save(first.Number, path.c_str(), 0) == VOSTEL_OK);
    const std::string after = ContentOf(first.Number);
    int               refused = 0;
    for (long n = 1; n < 20000; ++n) {
        CAPTURE(n);
        const OpenCanvas canvas;
        Furnish(canvas.Number, 2);
        const std::string before = ContentOf(canvas.Number);
        const auto        objects = ObjectsOf(canvas.Number);
        FailAt(n);
        const VostelStatus status = vostel_session_open(canvas.Number, path.c_str(), flags);
        const bool         failed = HasAllocationFailed();
        FailAt(0);
        if (status != VOSTEL_OK) {
            ++refused;
            CHECK(status == VOSTEL_OUT_OF_MEMORY);
            CHECK(ObjectsOf(canvas.Number) == objects);
            CHECK(HistoryOf(canvas.Number).undo_count == 2);
        }
        REQUIRE(FirstDifference(ContentOf(canvas.Number), status == VOSTEL_OK ? after : before) == "");
        if (!failed) {
            CHECK(refused > 100);
            return;
        }
    }
    FAIL("the call never came through");
}

struct Leaving {
    const char* Name;
    const char* Format;
};
constexpr Leaving Formats[] = {{"a.json", nullptr}, {"a.geojson", nullptr},  {"a.zip", "imagej"},
                               {"a.csv", nullptr},  {"a.coco.json", "coco"}, {"a.png", "labels"}};

void CheckEachImport(const std::string& path, const char* format)
{
    std::string after;
    std::size_t count = 0;
    {
        const OpenCanvas canvas;
        Furnish(canvas.Number, 2);
        REQUIRE(vostel_regions_import(canvas.Number, path.c_str(), format, &count) == VOSTEL_OK);
        after = ContentOf(canvas.Number);
    }
    for (long n = 1; n < 20000; ++n) {
        CAPTURE(n);
        const OpenCanvas canvas;
        Furnish(canvas.Number, 2);
        const std::string before = ContentOf(canvas.Number);
        FailAt(n);
        const VostelStatus status = vostel_regions_import(canvas.Number, path.c_str(), format, nullptr);
        const bool         failed = HasAllocationFailed();
        FailAt(0);
        if (status != VOSTEL_OK)
            CHECK(status == VOSTEL_OUT_OF_MEMORY);
        // A caption that could not be measured has another place, as on every drawing context.
        if (status == VOSTEL_OK && failed) {
            CHECK(ObjectsOf(canvas.Number).size() == 2 + count);
        } else {
            REQUIRE(FirstDifference(ContentOf(canvas.Number), failed ? before : after) == "");
            CHECK(HistoryOf(canvas.Number).undo_count == (failed ? 2 : 3));
        }
        if (!failed) {
            CHECK(n > 100);
            return;
        }
    }
    FAIL("the call never came through");
}

std::map<std::string, std::vector<unsigned char>> FilesIn(const TempFolder& folder)
{
    std::map<std::string, std::vector<unsigned char>> files;
    for (const auto& entry : std::filesystem::directory_iterator(folder.Path()))
        files[entry.path().filename().string()] = ReadBytes(entry.path().string());
    return files;
}

template <typename Call>
void CheckEachExport(int32_t canvas, const char* name, Call call)
{
    const TempFolder  folder;
    const std::string path = folder.Path(name);
    const std::string content = ContentOf(canvas);
    REQUIRE(WriteText(path, "of before"));
    const auto before = FilesIn(folder);
    for (long n = 1; n < 20000; ++n) {
        CAPTURE(n);
        FailAt(n);
        const VostelStatus status = call(path);
        const bool         failed = HasAllocationFailed();
        FailAt(0);
        REQUIRE(FirstDifference(ContentOf(canvas), content) == "");
        if (!failed) {
            CHECK(status == VOSTEL_OK);
            return;
        }
        if (status == VOSTEL_OK)    // such as a caption that could not be measured
            continue;
        REQUIRE(status == VOSTEL_OUT_OF_MEMORY);
        // Of label images the first of two files may stand already.
        if (FilesIn(folder).at(name) == before.at(name))
            REQUIRE(FilesIn(folder).size() == 1);
    }
    FAIL("the call never came through");
}

}

TEST_CASE("opening on the shown image")
{
    CheckEachFailure("on image", VOSTEL_SESSION_ON_IMAGE, [](int32_t, const TempFolder&) {});
}

TEST_CASE("opening with an image of a file")
{
    CheckEachFailure("image", 0, [](int32_t canvas, const TempFolder& folder) {
        std::vector<unsigned char> bytes(40 * 30 * 2, 7);
        REQUIRE(WriteBytes(folder.Path("a.raw"), bytes));
        const VostelRawLayout layout = {sizeof layout, VOSTEL_U16, 40, 30, 0, 0};
        REQUIRE(vostel_image_open_raw(canvas, folder.Path("a.raw").c_str(), &layout, VOSTEL_KEEP_OBJECTS) ==
                VOSTEL_OK);
    });
}

TEST_CASE("saving")
{
    const TempFolder  folder;
    const std::string path = folder.Path("s.vostel.json");
    const OpenCanvas  canvas;
    Furnish(canvas.Number, 2);
    REQUIRE(vostel_session_save(canvas.Number, path.c_str(), 0) == VOSTEL_OK);
    const std::vector<unsigned char> before = ReadBytes(path);
    Add(canvas.Number, VOSTEL_ARROW, {{1, 2}, {3, 4}});
    const std::string content = ContentOf(canvas.Number);
    for (long n = 1; n < 20000; ++n) {
        CAPTURE(n);
        FailAt(n);
        const VostelStatus status = vostel_session_save(canvas.Number, path.c_str(), 0);
        const bool         failed = HasAllocationFailed();
        FailAt(0);
        REQUIRE(FirstDifference(ContentOf(canvas.Number), content) == "");
        if (!failed) {
            CHECK(status == VOSTEL_OK);
            CHECK(ReadBytes(path) != before);
            return;
        }
        REQUIRE(status == VOSTEL_OUT_OF_MEMORY);
        REQUIRE(ReadBytes(path) == before);
    }
    FAIL("the call never came through");
}

TEST_CASE("importing")
{
    for (const Leaving& format : Formats) {
        CAPTURE(format.Name);
        const TempFolder  folder;
        const std::string path = folder.Path(format.Name);
        {
            const OpenCanvas canvas;
            Furnish(canvas.Number, 5);
            REQUIRE(vostel_regions_export(canvas.Number, path.c_str(), format.Format) == VOSTEL_OK);
        }
        CheckEachImport(path, format.Format);
    }
}

TEST_CASE("exporting")
{
    for (const Leaving& format : Formats) {
        CAPTURE(format.Name);
        const OpenCanvas canvas;
        Furnish(canvas.Number, 5);
        CheckEachExport(canvas.Number, format.Name, [&](const std::string& path) {
            return vostel_regions_export(canvas.Number, path.c_str(), format.Format);
        });
    }
    for (const char* const name : {"a.svg", "a.pdf"}) {
        CAPTURE(name);
        const OpenCanvas canvas;
        Furnish(canvas.Number, 5);
        CheckEachExport(canvas.Number, name, [&](const std::string& path) {
            return vostel_picture_save(canvas.Number, path.c_str(), 1.0,
                                       VOSTEL_WITH_OBJECTS | VOSTEL_WITH_CAPTIONS);
        });
    }
}
