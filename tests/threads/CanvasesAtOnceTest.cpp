// Different canvases on different threads at once: objects, text, pictures, routines, canvases that come and
// go. ThreadSanitizer finds what they share; here each thread checks that it gets what it would get alone.

#include "support/AtOnce.h"
#include "support/OpenCanvas.h"
#include "support/TempFolder.h"

#include <VostelObj.h>

#include <atomic>

namespace {

constexpr int Rounds = 8;

// What a person does on a canvas in a short while.
std::string WorkOn(int32_t canvas)
{
    std::vector<float> ramp(96 * 64);
    for (std::size_t i = 0; i < ramp.size(); ++i)
        ramp[i] = static_cast<float>(i % 96);
    gCVSShowRawFloat(canvas, ramp.data(), 96, 64, true, true);
    const VostelPoint points[] = {{10, 10}, {80, 14}, {40, 50}, {12, 44}};
    VostelObject      object = 0;
    vostel_object_add(canvas, VOSTEL_POLYGON, points, 4, &object);
    vostel_object_add(canvas, VOSTEL_SPLINE, points, 4, &object);
    vostel_object_add(canvas, VOSTEL_LENGTH, points, 2, &object);
    vostel_object_add(canvas, VOSTEL_ANGLE, points, 3, &object);
    vostel_object_add(canvas, VOSTEL_TEXT, points, 1, &object);
    vostel_object_set_text(canvas, object, "文字 text");
    gCVSAddMRectangle(canvas);
    gCVSOnLButtonDown(canvas, MK_LBUTTON | MK_SHIFT, CPoint(60, 60));
    gCVSOnMouseMove(canvas, MK_LBUTTON | MK_SHIFT, CPoint(90, 90));
    gCVSOnLButtonUp(canvas, 0, CPoint(90, 90));
    gCVSOnDraw(canvas, nullptr);
    vostel_undo(canvas);
    gCVSSetLutPara(canvas, 0.25f, 0.75f);
    gCVSGenerateLabel(canvas, false);
    gCVSOnDraw(canvas, nullptr);
    std::string               frame;
    const unsigned int* const pixels = gCVSGetClientPixelPtr(canvas);
    for (int i = 0; i < gCVSGetClientWidth(canvas) * gCVSGetClientHeight(canvas); ++i)
        frame += static_cast<char>(pixels[i] * 31 % 127);
    return frame;
}

}

TEST_CASE("canvases on several threads draw what they draw alone")
{
    std::string alone;
    {
        const OpenCanvas canvas(160, 120);
        alone = WorkOn(canvas.Number);
    }
    std::atomic<int> different{0};
    AtOnce([&](int) {
        for (int i = 0; i < Rounds; ++i) {
            int32_t canvas = -1;
            if (vostel_canvas_create(160, 120, &canvas) != VOSTEL_OK || WorkOn(canvas) != alone)
                ++different;
            vostel_canvas_destroy(canvas);
        }
    });
    CHECK(different == 0);
}

TEST_CASE("pictures are written and read on several threads")
{
    const TempFolder folder;
    std::atomic<int> different{0};
    AtOnce([&](int thread) {
        ClassData2DIO<unsigned char> gray;
        gray.Allocate(40 + thread, 30);
        for (int i = 0; i < gray.Width * gray.Height; ++i)
            gray.Ptr1D[i] = static_cast<unsigned char>(i * (thread + 3));
        for (int i = 0; i < Rounds; ++i) {
            CString name = folder.WidePath("gray" + std::to_string(thread) + ".bmp");
            gSaveUcData(&gray, name);
            ATL::CImage picture;
            if (picture.Load(name) < 0 || picture.GetWidth() != gray.Width)
                ++different;
        }
    });
    CHECK(different == 0);
}

TEST_CASE("routines run on several threads at once")
{
    std::atomic<int> different{0};
    const auto       smooth = [] {
        ClassData2DIO<float> image, kernel;
        image.Allocate(120, 90);
        for (int i = 0; i < 120 * 90; ++i)
            image.Ptr1D[i] = static_cast<float>(i % 251);
        kernel.Allocate(5, 5);
        std::fill_n(kernel.Ptr1D, 25, 0.04f);
        gConv2(&image, &kernel);
        return std::vector<float>(image.Ptr1D, image.Ptr1D + image.Width * image.Height);
    };
    const std::vector<float> alone = smooth();
    AtOnce([&](int) {
        for (int i = 0; i < Rounds; ++i) {
            if (smooth() != alone)
                ++different;
        }
    });
    CHECK(different == 0);
}

TEST_CASE("linked canvases of one thread follow each other beside those of others")
{
    std::atomic<int> wrong{0};
    const auto       viewOf = [](int32_t canvas) {
        VostelView view = {};
        view.size = sizeof view;
        vostel_view_get(canvas, &view);
        return view;
    };
    const auto count = [](const VostelEvent*, void* user) { ++*static_cast<int*>(user); };
    AtOnce([&](int thread) {
        const std::vector<unsigned char> gray(90 * 60, 7);
        for (int i = 0; i < Rounds; ++i) {
            int32_t pair[2] = {-1, -1};
            int     heard = 0;
            int64_t token = 0;
            for (int32_t& canvas : pair) {
                vostel_canvas_create(160, 120, &canvas);
                vostel_image_show(canvas, VOSTEL_U8, gray.data(), 90, 60, 0, 0);
            }
            vostel_view_link(pair[0], pair[1]);
            vostel_listen(pair[1], VOSTEL_VIEW_CHANGED, count, &heard, &token);
            for (int step = 0; step < 5; ++step)
                vostel_view_zoom(pair[0], 1.1 + 0.1 * thread, 80.0, 60.0);
            if (heard != 5 || viewOf(pair[0]).scale != viewOf(pair[1]).scale)
                ++wrong;
            vostel_view_link(pair[0], pair[0]);
            vostel_view_fit(pair[0]);
            if (heard != 5)
                ++wrong;
            vostel_canvas_destroy(pair[0]);
            vostel_canvas_destroy(pair[1]);
        }
    });
    CHECK(wrong == 0);
}

TEST_CASE("messages and limits belong to their thread and to the process")
{
    std::atomic<int> wrong{0};
    AtOnce([&](int thread) {
        for (int i = 0; i < 100; ++i) {
            vostel_undo(1000000 + thread);
            if (vostel_last_message() != "there is no canvas " + std::to_string(1000000 + thread))
                ++wrong;
            VostelLimits limits = {};
            limits.size = sizeof limits;
            if (vostel_set_limits(&limits) != VOSTEL_OK || vostel_get_limits(&limits) != VOSTEL_OK)
                ++wrong;
        }
    });
    CHECK(wrong == 0);
}
