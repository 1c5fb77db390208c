// Sessions and the files around them: which image they bring, where they find it, and what a failure leaves.

#include "base/Utf8.h"
#include "interchange/CanvasContent.h"
#include "support/OpenCanvas.h"
#include "support/OpenShapes.h"
#include "support/TempFolder.h"

#include "VostelObj.h"

#include <filesystem>
#include <fstream>

namespace {

namespace fs = std::filesystem;

fs::path PathOfUtf8(const std::string& path)
{
    return fs::path(std::u8string(path.begin(), path.end()));
}

std::string TextOfFile(const std::string& path)
{
    std::ifstream file(PathOfUtf8(path), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

bool Has(const std::string& text, const std::string& part)
{
    return text.find(part) != std::string::npos;
}

// A PNG of 40 x 30 gray values.
void WritePicture(const std::string& path, int factor = 1)
{
    const OpenCanvas painter(40, 30);
    ShowBytes(painter.Number, 40, 30, [&](int x, int y) { return factor * x + y; });
    REQUIRE(vostel_picture_save(painter.Number, path.c_str(), 1.0, 0) == VOSTEL_OK);
}

void AddSome(int32_t canvas)
{
    Add(canvas, VOSTEL_POLYGON, {{5, 5}, {25, 6}, {14.5, 22}});
    Add(canvas, VOSTEL_LENGTH, {{3, 4}, {30, 20}});
}

VostelStatus Save(int32_t canvas, const std::string& path)
{
    return vostel_session_save(canvas, path.c_str(), 0);
}

VostelStatus Open(int32_t canvas, const std::string& path, uint32_t flags = 0)
{
    return vostel_session_open(canvas, path.c_str(), flags);
}

std::string Message()
{
    return vostel_last_message();
}

// An image file, a session about it and what the canvas held.
struct SavedSession {
    TempFolder  Folder;
    std::string Content;

    SavedSession()
    {
        const OpenCanvas canvas;
        WritePicture(Folder.Path("image.png"));
        REQUIRE(vostel_image_open(canvas.Number, Folder.Path("image.png").c_str(), 0) == VOSTEL_OK);
        AddSome(canvas.Number);
        REQUIRE(Save(canvas.Number, Path()) == VOSTEL_OK);
        Content = ContentOf(canvas.Number);
    }
    std::string Path() const { return Folder.Path("a.vostel.json"); }
};

// Another canvas, whose content a failure leaves.
class Bystander : public OpenCanvas {
public:
    Bystander()
    {
        ShowFloats(Number, 50, 20, [](int x, int y) { return x - y / 3.0; });
        AddSome(Number);
        Before = ContentOf(Number);
    }
    void CheckUntouched() const
    {
        CHECK(FirstDifference(ContentOf(Number), Before) == "");
        CHECK(HistoryOf(Number).undo_count == 2);
    }

private:
    std::string Before;
};

}

TEST_CASE("a session and its image move to another folder together")
{
    const SavedSession saved;
    saved.Folder.MakeFolder("moved");
    for (const char* const name : {"image.png", "a.vostel.json"})
        fs::rename(saved.Folder.Path(name), saved.Folder.Path(std::string("moved/") + name));
    CHECK(Has(TextOfFile(saved.Folder.Path("moved/a.vostel.json")), "\"path\": \"image.png\""));
    const OpenCanvas canvas;
    CHECK(Open(canvas.Number, saved.Folder.Path("moved/a.vostel.json")) == VOSTEL_OK);
    CHECK(Message() == "");
    CHECK(FirstDifference(ContentOf(canvas.Number), saved.Content) == "");
}

TEST_CASE("an image in another folder is found from the session's, with forward slashes")
{
    const TempFolder folder;
    const OpenCanvas canvas;
    folder.MakeFolder("images");
    folder.MakeFolder("sessions");
    WritePicture(folder.Path("images/a.png"));
    REQUIRE(vostel_image_open(canvas.Number, folder.Path("images/a.png").c_str(), 0) == VOSTEL_OK);
    REQUIRE(Save(canvas.Number, folder.Path("sessions/s.json")) == VOSTEL_OK);
    CHECK(Has(TextOfFile(folder.Path("sessions/s.json")), "\"path\": \"../images/a.png\""));
    CHECK(Open(canvas.Number, folder.Path("sessions/s.json")) == VOSTEL_OK);
}

TEST_CASE("paths may have spaces and any letters, also through the canvas calls")
{
    const TempFolder  folder;
    const std::string name = "\xe6\xb5\x8b\xe9\x87\x8f image";    // two Chinese characters
    const std::string picture = folder.Path() + "/" + name + ".png";
    const std::string session = folder.Path() + "/" + name + ".vostel.json";
    WritePicture(folder.Path("plain.png"));
    fs::rename(folder.Path("plain.png"), PathOfUtf8(picture));
    const OpenCanvas canvas;
    REQUIRE(vostel_image_open(canvas.Number, picture.c_str(), 0) == VOSTEL_OK);
    REQUIRE(Save(canvas.Number, session) == VOSTEL_OK);
    CHECK(Has(TextOfFile(session), "\"path\": \"" + name + ".png\""));
    CHECK(Open(canvas.Number, session) == VOSTEL_OK);

    CString wide(vostel::WideOf(picture)->c_str());
    gCVSReadFile(canvas.Number, wide, true);
    REQUIRE(Save(canvas.Number, session) == VOSTEL_OK);
    CHECK(Has(TextOfFile(session), "\"path\": \"" + name + ".png\""));
    CHECK(Open(canvas.Number, session) == VOSTEL_OK);
    CHECK(Message() == "");
}

TEST_CASE("a missing image is VOSTEL_NOT_READ, and so is one that is none; nothing changes")
{
    const SavedSession saved;
    const Bystander    canvas;
    REQUIRE(WriteText(saved.Folder.Path("image.png"), "no picture"));
    CHECK(Open(canvas.Number, saved.Path()) == VOSTEL_NOT_READ);
    CHECK(Has(Message(), "image.png"));
    canvas.CheckUntouched();
    fs::remove(saved.Folder.Path("image.png"));
    CHECK(Open(canvas.Number, saved.Path()) == VOSTEL_NOT_READ);
    canvas.CheckUntouched();
    CHECK(Open(canvas.Number, saved.Folder.Path("none.json")) == VOSTEL_NOT_READ);
    CHECK(Open(canvas.Number, saved.Folder.Path()) == VOSTEL_NOT_READ);
    canvas.CheckUntouched();
}

TEST_CASE("an image whose values have changed is shown, and a message tells")
{
    const SavedSession saved;
    const OpenCanvas   canvas;
    WritePicture(saved.Folder.Path("image.png"), 2);
    CHECK(Open(canvas.Number, saved.Path()) == VOSTEL_OK);
    CHECK(Has(Message(), "other values"));
    CHECK(ObjectsOf(canvas.Number).size() == 2);
    double value = 0.0;
    CHECK(vostel_image_value(canvas.Number, 0, 3.5, 0.5, &value) == VOSTEL_OK);
    CHECK(value == 6.0);
}

TEST_CASE("a session of an image from memory opens on a shown image alone")
{
    const TempFolder folder;
    const OpenCanvas canvas;
    ShowBytes(canvas.Number, 40, 30, [](int x, int y) { return x + y; });
    AddSome(canvas.Number);
    REQUIRE(vostel_contrast_set(canvas.Number, 3, 77) == VOSTEL_OK);
    REQUIRE(Save(canvas.Number, folder.Path("s.json")) == VOSTEL_OK);
    CHECK_FALSE(Has(TextOfFile(folder.Path("s.json")), "\"path\""));
    const std::string content = ContentOf(canvas.Number);

    const OpenCanvas empty;
    CHECK(Open(empty.Number, folder.Path("s.json")) == VOSTEL_NO_IMAGE);
    CHECK(Has(Message(), "VOSTEL_SESSION_ON_IMAGE"));
    CHECK(Open(empty.Number, folder.Path("s.json"), VOSTEL_SESSION_ON_IMAGE) == VOSTEL_NO_IMAGE);
    CHECK(ObjectsOf(empty.Number).empty());
    ShowBytes(empty.Number, 40, 30, [](int x, int y) { return x + y; });
    CHECK(Open(empty.Number, folder.Path("s.json")) == VOSTEL_NO_IMAGE);
    CHECK(Open(empty.Number, folder.Path("s.json"), VOSTEL_SESSION_ON_IMAGE) == VOSTEL_OK);
    CHECK(Message() == "");
    CHECK(FirstDifference(ContentOf(empty.Number), content) == "");
}

TEST_CASE("on another shown image the objects and the scale are taken, view and contrast stay")
{
    const SavedSession saved;
    const OpenCanvas   canvas;
    ShowFloats(canvas.Number, 60, 50, [](int x, int y) { return x * y; });
    REQUIRE(vostel_contrast_set(canvas.Number, 5, 500) == VOSTEL_OK);
    VostelView view = {sizeof view, 2.5, -7, 9};
    REQUIRE(vostel_view_set(canvas.Number, &view) == VOSTEL_OK);
    REQUIRE(vostel_set_scale(canvas.Number, 3.0, "mm") == VOSTEL_OK);
    CHECK(Open(canvas.Number, saved.Path(), VOSTEL_SESSION_ON_IMAGE) == VOSTEL_OK);
    CHECK(Has(Message(), "other values"));
    CHECK(ObjectsOf(canvas.Number).size() == 2);
    double low = 0.0, high = 0.0;
    REQUIRE(vostel_contrast_get(canvas.Number, &low, &high) == VOSTEL_OK);
    CHECK(low == 5.0);
    CHECK(high == 500.0);
    VostelView now = {sizeof now, 0, 0, 0};
    REQUIRE(vostel_view_get(canvas.Number, &now) == VOSTEL_OK);
    CHECK(now.scale == 2.5);
    CHECK(now.left == -7.0);
    CHECK(HistoryOf(canvas.Number).undo_count == 0);
    CHECK(vostel_undo(canvas.Number) == VOSTEL_NOT_FOUND);
    VostelImageInfo info = {};
    info.size = sizeof info;
    REQUIRE(vostel_image_info(canvas.Number, &info) == VOSTEL_OK);
    CHECK(info.width == 60);
}

TEST_CASE("a session without an image opens anywhere")
{
    const TempFolder folder;
    const OpenCanvas canvas;
    AddSome(canvas.Number);
    REQUIRE(Save(canvas.Number, folder.Path("s.json")) == VOSTEL_OK);
    const Bystander other;
    CHECK(Open(other.Number, folder.Path("s.json")) == VOSTEL_OK);
    CHECK(ObjectsOf(other.Number).size() == 2);
    VostelImageInfo info = {};
    info.size = sizeof info;
    CHECK(vostel_image_info(other.Number, &info) == VOSTEL_OK);
    CHECK(info.width == 50);
}

TEST_CASE("an area of another size looks at the same point in its middle")
{
    const TempFolder folder;
    const OpenCanvas canvas(300, 200);
    WritePicture(folder.Path("image.png"));
    REQUIRE(vostel_image_open(canvas.Number, folder.Path("image.png").c_str(), 0) == VOSTEL_OK);
    const VostelView view = {sizeof view, 12.5, -100, -60};
    REQUIRE(vostel_view_set(canvas.Number, &view) == VOSTEL_OK);
    REQUIRE(Save(canvas.Number, folder.Path("s.json")) == VOSTEL_OK);
    double x = 0.0, y = 0.0, otherX = 0.0, otherY = 0.0;
    REQUIRE(vostel_view_to_image(canvas.Number, 150, 100, &x, &y) == VOSTEL_OK);
    const OpenCanvas other(500, 120);
    REQUIRE(Open(other.Number, folder.Path("s.json")) == VOSTEL_OK);
    REQUIRE(vostel_view_to_image(other.Number, 250, 60, &otherX, &otherY) == VOSTEL_OK);
    CHECK(std::fabs(x - otherX) < 1.0 / 12.5);
    CHECK(std::fabs(y - otherY) < 1.0 / 12.5);
}

TEST_CASE("images of every origin but a file are from memory")
{
    const SavedSession saved;
    const OpenCanvas   canvas;
    const auto         named = [&] {
        REQUIRE(Save(canvas.Number, saved.Folder.Path("t.json")) == VOSTEL_OK);
        return Has(TextOfFile(saved.Folder.Path("t.json")), "\"path\"");
    };
    const auto open = [&] {
        REQUIRE(vostel_image_open(canvas.Number, saved.Folder.Path("image.png").c_str(), 0) == VOSTEL_OK);
        CHECK(named());
    };
    ClassData2DIO<unsigned char> gray;
    ClassData2DIO<float>         floats;
    gray.Allocate(40, 30);
    floats.Allocate(40, 30);
    std::fill_n(gray.Ptr1D, 40 * 30, static_cast<unsigned char>(7));
    std::fill_n(floats.Ptr1D, 40 * 30, 0.5f);
    open();
    ShowBytes(canvas.Number, 40, 30, [](int x, int y) { return x + y; });
    CHECK_FALSE(named());
    open();
    gCVSShowUCGray(canvas.Number, gray, true);
    CHECK_FALSE(named());
    open();
    gCVSShowUCColor(canvas.Number, gray, gray, gray, true);
    CHECK_FALSE(named());
    open();
    gCVSShowRawFloat(canvas.Number, floats, true, true);
    CHECK_FALSE(named());
    open();
    gCVSPrepareCanvas(canvas.Number, 40, 30);
    REQUIRE(Save(canvas.Number, saved.Folder.Path("t.json")) == VOSTEL_OK);
    CHECK_FALSE(Has(TextOfFile(saved.Folder.Path("t.json")), "\"path\""));
}

TEST_CASE("what cannot be written leaves the file that was there, and nothing beside it")
{
    const SavedSession saved;
    const OpenCanvas   canvas;
    saved.Folder.MakeFolder("folder.json");
    CHECK(Save(canvas.Number, saved.Folder.Path("none/s.json")) == VOSTEL_NOT_WRITTEN);
    CHECK(Save(canvas.Number, saved.Folder.Path("folder.json")) == VOSTEL_NOT_WRITTEN);
    CHECK(Message() != "");
    std::size_t files = 0;
    for ([[maybe_unused]] const auto& entry : fs::directory_iterator(saved.Folder.Path()))
        ++files;
    CHECK(files == 3);    // image, session, folder
    CHECK(vostel_session_save(canvas.Number, nullptr, 0) == VOSTEL_INVALID_ARGUMENT);
    CHECK(vostel_session_save(canvas.Number, saved.Path().c_str(), 1) == VOSTEL_INVALID_ARGUMENT);
    CHECK(vostel_session_save(canvas.Number, saved.Path().c_str(), 0) == VOSTEL_OK);
    CHECK(std::string(vostel_last_message()) == "");
    CHECK(Open(canvas.Number, saved.Path(), 2) == VOSTEL_INVALID_ARGUMENT);
    CHECK(Open(4711, saved.Path()) == VOSTEL_NOT_FOUND);
}

TEST_CASE("a file that another program holds is replaced or stays whole")
{
    const SavedSession saved;
    const OpenCanvas   canvas;
    const std::string  before = TextOfFile(saved.Path());
    std::ifstream      held(saved.Path(), std::ios::binary);
    REQUIRE(held.good());
    const VostelStatus status = Save(canvas.Number, saved.Path());    // as the system has it
    held.close();
    CHECK((status == VOSTEL_OK || status == VOSTEL_NOT_WRITTEN));
    CHECK((TextOfFile(saved.Path()) == before) == (status == VOSTEL_NOT_WRITTEN));
    const fs::directory_iterator folder(saved.Folder.Path());
    CHECK(std::distance(fs::begin(folder), fs::end(folder)) == 2);    // image, session
}

TEST_CASE("opening tells listeners what came and went, gives new numbers and empties the history")
{
    const SavedSession    saved;
    const Bystander       canvas;
    const auto            before = ObjectsOf(canvas.Number);
    std::vector<uint32_t> heard;
    int64_t               token = 0;
    const auto            hear = [](const VostelEvent* event, void* user) {
        static_cast<std::vector<uint32_t>*>(user)->push_back(event->type);
    };
    REQUIRE(vostel_listen(canvas.Number, 2047, hear, &heard, &token) == VOSTEL_OK);
    REQUIRE(Open(canvas.Number, saved.Path()) == VOSTEL_OK);
    CHECK(std::count(heard.begin(), heard.end(), static_cast<uint32_t>(VOSTEL_OBJECT_REMOVED)) == 2);
    CHECK(std::count(heard.begin(), heard.end(), static_cast<uint32_t>(VOSTEL_OBJECT_ADDED)) == 2);
    for (const uint32_t once : {VOSTEL_IMAGE_CHANGED, VOSTEL_CONTRAST_CHANGED, VOSTEL_HISTORY_CHANGED,
                                VOSTEL_VIEW_CHANGED, VOSTEL_FRAME_STALE})
        CHECK(std::count(heard.begin(), heard.end(), once) == 1);
    const auto now = ObjectsOf(canvas.Number);
    CHECK(std::find(now.begin(), now.end(), before[0]) == now.end());
    CHECK(vostel_undo(canvas.Number) == VOSTEL_NOT_FOUND);
    vostel_unlisten(token);
    // What is done next makes steps as ever.
    REQUIRE(vostel_object_set_name(canvas.Number, now[0], "named") == VOSTEL_OK);
    REQUIRE(vostel_undo(canvas.Number) == VOSTEL_OK);
    CHECK(NameOf(canvas.Number, now[0]) == "");
    REQUIRE(vostel_object_remove(canvas.Number, now[1]) == VOSTEL_OK);
    REQUIRE(vostel_undo(canvas.Number) == VOSTEL_OK);
    CHECK(ObjectsOf(canvas.Number) == now);
}

TEST_CASE("pages and raw layouts come back")
{
    const TempFolder           folder;
    const OpenCanvas           canvas;
    std::vector<unsigned char> bytes(5 + 4 * 20 * 10);
    for (std::size_t i = 0; i < bytes.size(); ++i)
        bytes[i] = static_cast<unsigned char>(i * 7 % 61);
    REQUIRE(WriteBytes(folder.Path("a.raw"), bytes));
    for (const VostelPixel type :
         {VOSTEL_U8, VOSTEL_U16, VOSTEL_I16, VOSTEL_F32, VOSTEL_RGB8, VOSTEL_BGR8, VOSTEL_BGRA8}) {
        CAPTURE(type);
        const VostelRawLayout layout = {sizeof layout, type, 20, 10, 5, type % 2};
        REQUIRE(vostel_image_open_raw(canvas.Number, folder.Path("a.raw").c_str(), &layout, 0) == VOSTEL_OK);
        REQUIRE(Save(canvas.Number, folder.Path("s.json")) == VOSTEL_OK);
        const OpenCanvas other;
        REQUIRE(Open(other.Number, folder.Path("s.json")) == VOSTEL_OK);
        CHECK(Message() == "");
        double one = 0.0, two = 0.0;
        CHECK(vostel_image_value(canvas.Number, 0, 7.5, 3.5, &one) == VOSTEL_OK);
        CHECK(vostel_image_value(other.Number, 0, 7.5, 3.5, &two) == VOSTEL_OK);
        CHECK(one == two);
    }
    fs::resize_file(folder.Path("a.raw"), 100);
    CHECK(Open(canvas.Number, folder.Path("s.json")) == VOSTEL_NOT_READ);
}
