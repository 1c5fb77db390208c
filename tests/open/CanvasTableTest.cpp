// Canvases come and go, on any thread.

#include "support/OpenCanvas.h"

#include <algorithm>
#include <atomic>
#include <thread>

namespace {

int32_t Create()
{
    int32_t number = -1;
    CHECK(vostel_canvas_create(64, 48, &number) == VOSTEL_OK);
    return number;
}

}

TEST_CASE("created canvases count up from 5 and are never used again")
{
    const int32_t first = Create();
    CHECK(first >= 5);
    CHECK(vostel_canvas_destroy(first) == VOSTEL_OK);
    CHECK(vostel_canvas_destroy(first) == VOSTEL_NOT_FOUND);
    const int32_t second = Create();
    CHECK(second > first);
    CHECK(vostel_canvas_destroy(second) == VOSTEL_OK);
    for (int32_t always = 0; always < 5; ++always)
        CHECK(vostel_canvas_destroy(always) == VOSTEL_INVALID_ARGUMENT);
    CHECK(vostel_canvas_destroy(-1) == VOSTEL_NOT_FOUND);
    int32_t number = 77;
    CHECK(vostel_canvas_create(0, 48, &number) == VOSTEL_INVALID_ARGUMENT);
    CHECK(vostel_canvas_create(64, 2000000000, &number) == VOSTEL_TOO_LARGE);
    CHECK(vostel_canvas_create(64, 48, nullptr) == VOSTEL_INVALID_ARGUMENT);
    CHECK(number == 77);
}

TEST_CASE("the canvas calls take created numbers, and others read as an empty canvas")
{
    const int32_t number = Create();
    gCVSAddPoly(number);
    CHECK(ObjectsOf(number).size() == 1);
    CHECK(gCVSGetClientWidth(number) == 64);
    CHECK(vostel_canvas_destroy(number) == VOSTEL_OK);
    gCVSAddPoly(number);
    CHECK(gCVSGetClientWidth(number) == 0);
    CHECK(gCVSGetFileType(number) == FileTypeNone);
}

TEST_CASE("what is drawn on one of the five is on the open interface, under one identity")
{
    gCVSAddPoly(2);
    const std::vector<VostelObject> before = ObjectsOf(2);
    REQUIRE(before.size() == 1);
    const VostelPoint corners[] = {{1, 2}, {3, 4}};
    VostelObject      rectangle = 0;
    CHECK(vostel_object_add(2, VOSTEL_RECTANGLE, corners, 2, &rectangle) == VOSTEL_OK);
    CHECK(ObjectsOf(2) == std::vector<VostelObject>{before[0], rectangle});
    CHECK(HistoryOf(2).limit == 0);
    CHECK(HistoryOf(2).undo_count == 0);
    gCVSDelAllElement(2);
    CHECK(ObjectsOf(2).empty());
    CHECK(vostel_object_remove(2, rectangle) == VOSTEL_NOT_FOUND);
}

TEST_CASE("labels take the lowest number that is free")
{
    const OpenCanvas  canvas;
    const VostelPoint corners[] = {{1, 2}, {3, 4}};
    const auto        add = [&] {
        VostelObject object = 0;
        REQUIRE(vostel_object_add(canvas.Number, VOSTEL_RECTANGLE, corners, 2, &object) == VOSTEL_OK);
        return object;
    };
    const auto label = [&](VostelObject object) {
        VostelObjectInfo info = {};
        info.size = sizeof info;
        REQUIRE(vostel_object_get(canvas.Number, object, &info) == VOSTEL_OK);
        return info.label;
    };
    const VostelObject first = add(), second = add(), third = add();
    CHECK(label(first) == 1);
    CHECK(label(second) == 2);
    CHECK(label(third) == 3);
    CHECK(vostel_object_remove(canvas.Number, second) == VOSTEL_OK);
    CHECK(label(third) == 3);
    CHECK(label(add()) == 2);
    CHECK(vostel_object_set_label(canvas.Number, first, 9) == VOSTEL_OK);
    CHECK(label(add()) == 1);
    CHECK(label(add()) == 4);
    CHECK(vostel_object_set_label(canvas.Number, first, 0) == VOSTEL_INVALID_ARGUMENT);
}

TEST_CASE("canvases come and go on several threads at once, and each is its thread's own")
{
    std::atomic<int>         wrong{0};
    std::vector<std::thread> threads;
    for (int t = 0; t < 4; ++t) {
        threads.emplace_back([&wrong, t] {
            for (int i = 0; i < 100; ++i) {
                int32_t number = -1;
                if (vostel_canvas_create(32 + t, 24, &number) != VOSTEL_OK)
                    ++wrong;
                const VostelPoint corners[] = {{1.0 * t, 2}, {30, 20}};
                VostelObject      object = 0;
                if (vostel_object_add(number, VOSTEL_RECTANGLE, corners, 2, &object) != VOSTEL_OK)
                    ++wrong;
                VostelPoint points[2] = {};
                std::size_t count = 0;
                if (vostel_object_points(number, object, points, 2, &count) != VOSTEL_OK || points[0].x != t)
                    ++wrong;
                if (vostel_undo(number) != VOSTEL_OK || vostel_canvas_destroy(number) != VOSTEL_OK)
                    ++wrong;
            }
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    CHECK(wrong == 0);
}
