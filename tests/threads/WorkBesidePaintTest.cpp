// A canvas paints while other threads run routines, write and read pictures and files of regions, and hear
// events. ThreadSanitizer finds what they share; here each thread checks that it gets what it would get
// alone.

#include "support/AtOnce.h"
#include "support/OpenCanvas.h"
#include "support/TempFolder.h"

#include <VostelObj.h>

#include <atomic>
#include <fstream>
#include <iterator>

namespace {

constexpr int Turns = 6;

using Work = std::function<std::string()>;

template <typename Value>
std::string BytesOf(const Value* values, std::size_t count)
{
    return {reinterpret_cast<const char*>(values), count * sizeof(Value)};
}

std::string BytesOfFile(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::vector<float> Ramp(int width, int height)
{
    std::vector<float> ramp(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
    for (std::size_t i = 0; i < ramp.size(); ++i)
        ramp[i] = static_cast<float>(i * 7 % 251);
    return ramp;
}

void Show(int32_t canvas)
{
    const std::vector<float> ramp = Ramp(96, 64);
    CHECK(vostel_image_show(canvas, VOSTEL_F32, ramp.data(), 96, 64, 0, 0) == VOSTEL_OK);
    const VostelPoint points[] = {{10, 10}, {80, 14}, {40, 50}, {12, 44}};
    for (const auto& [kind, count] : {std::pair{VOSTEL_POLYGON, 4}, {VOSTEL_SPLINE, 4}, {VOSTEL_LENGTH, 2}}) {
        VostelObject object = 0;
        CHECK(vostel_object_add(canvas, kind, points, static_cast<std::size_t>(count), &object) == VOSTEL_OK);
    }
}

// Frames while a node is dragged and the contrast moves.
std::string Paint()
{
    const OpenCanvas canvas(160, 120);
    Show(canvas.Number);
    std::string frames;
    gCVSOnLButtonDown(canvas.Number, MK_LBUTTON, CPoint(40, 35));
    for (int i = 0; i < 8; ++i) {
        gCVSOnMouseMove(canvas.Number, MK_LBUTTON, CPoint(40 + 3 * i, 35 + i));
        CHECK(vostel_contrast_set(canvas.Number, i, 250 - i) == VOSTEL_OK);
        gCVSOnDraw(canvas.Number, nullptr);
        frames += BytesOf(gCVSGetClientPixelPtr(canvas.Number), 160 * 120);
    }
    gCVSOnLButtonUp(canvas.Number, 0, CPoint(70, 45));
    return frames;
}

// Those that share their work among threads of their own.
std::string RunRoutines()
{
    ClassData2DIO<float> image, kernel, larger;
    image.Allocate(180, 120);
    std::copy_n(Ramp(180, 120).data(), 180 * 120, image.Ptr1D);
    kernel.Allocate(5, 5);
    std::fill_n(kernel.Ptr1D, 25, 0.04f);
    gConv2(&image, &kernel);
    gGauss(&image, 7, 1.5f, 0.3f);
    larger.Allocate(300, 200);
    ResizeMC(&image, &larger);
    return BytesOf(larger.Ptr1D, 300 * 200);
}

std::string WritePictures()
{
    const OpenCanvas canvas(160, 120), other(80, 60);
    const TempFolder folder;
    Show(canvas.Number);
    std::string written;
    for (const char* name : {"a.png", "a.bmp", "a.jpg", "a.tif", "a.svg", "a.pdf"}) {
        const std::string path = folder.Path(name);
        CHECK(vostel_picture_save(canvas.Number, path.c_str(), 1.0, VOSTEL_WITH_OBJECTS) == VOSTEL_OK);
        written += BytesOfFile(path);
        if (name[2] != 's' && name[3] != 'd')
            CHECK(vostel_image_open(other.Number, path.c_str(), 0) == VOSTEL_OK);
    }
    return written;
}

std::string KeepRegions()
{
    const OpenCanvas canvas(160, 120), other(160, 120);
    const TempFolder folder;
    Show(canvas.Number);
    Show(other.Number);
    const std::string session = folder.Path("a.vostel.json");
    CHECK(vostel_session_save(canvas.Number, session.c_str(), 0) == VOSTEL_OK);
    CHECK(vostel_session_open(other.Number, session.c_str(), VOSTEL_SESSION_ON_IMAGE) == VOSTEL_OK);
    std::string written = BytesOfFile(session);
    for (const char* name : {"a.json", "a.geojson", "a.coco.json", "a.csv"}) {
        const std::string path = folder.Path(name);
        CHECK(vostel_regions_export(other.Number, path.c_str(), nullptr) == VOSTEL_OK);
        CHECK(vostel_regions_import(other.Number, path.c_str(), nullptr, nullptr) == VOSTEL_OK);
        written += BytesOfFile(path);
    }
    return written;
}

void Hear(const VostelEvent* event, void* user)
{
    static_cast<std::string*>(user)->append(std::to_string(event->type)).append(" ");
}

std::string Listen()
{
    const OpenCanvas canvas(160, 120);
    std::string      heard;
    for (int i = 0; i < 8; ++i) {
        int64_t token = 0;
        CHECK(vostel_listen(canvas.Number, ~0U, Hear, &heard, &token) == VOSTEL_OK);
        Show(canvas.Number);
        CHECK(vostel_undo(canvas.Number) == VOSTEL_OK);
        CHECK(vostel_redo(canvas.Number) == VOSTEL_OK);
        CHECK(vostel_unlisten(token) == VOSTEL_OK);
        Show(canvas.Number);
    }
    return heard;
}

}

TEST_CASE("routines, pictures, files and listeners work beside a paint")
{
    const std::vector<Work>  works = {Paint, RunRoutines, WritePictures, KeepRegions, Listen};
    std::vector<std::string> alone;
    for (const Work& work : works) {
        alone.push_back(work());
        CHECK(!alone.back().empty());
    }
    std::vector<std::atomic<int>> different(works.size());
    AtOnce(
        [&](int thread) {
            const std::size_t own = static_cast<std::size_t>(thread);
            for (int i = 0; i < Turns; ++i) {
                if (works[own]() != alone[own])
                    ++different[own];
            }
        },
        static_cast<int>(works.size()));
    for (std::size_t i = 0; i < works.size(); ++i) {
        CAPTURE(i);
        CHECK(different[i] == 0);
    }
}
