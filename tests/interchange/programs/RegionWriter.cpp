// Writes regions in every format that other programs read, and beside them what the library itself says of
// them: RegionWriter FOLDER

#include "vostel.h"

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>
#include <vector>

namespace {

constexpr int Width = 90;
constexpr int Height = 70;

void Need(VostelStatus status)
{
    if (status == VOSTEL_OK)
        return;
    std::fprintf(stderr, "%s: %s\n", vostel_status_name(status), vostel_last_message());
    std::exit(1);
}

using Points = std::vector<VostelPoint>;

VostelObject Add(int32_t canvas, VostelKind kind, const Points& points, const char* name, uint32_t flags = 0)
{
    VostelObject object = 0;
    Need(vostel_object_add(canvas, kind, points.data(), points.size(), &object));
    Need(vostel_object_set_name(canvas, object, name));
    if (flags != 0)
        Need(vostel_object_set_flags(canvas, object, flags));
    return object;
}

void Draw(int32_t canvas)
{
    Points star;
    for (int i = 0; i < 10; ++i) {
        const double radius = i % 2 == 0 ? 13.3 : 6.1;
        star.push_back({70.4 + radius * std::cos(0.6283 * i), 20.7 + radius * std::sin(0.6283 * i)});
    }
    Add(canvas, VOSTEL_RECTANGLE, {{2.25, 3.1}, {20.7, 14.9}}, "plate");
    Add(canvas, VOSTEL_RECTANGLE, {{25.2, 2.3}, {48.9, 19.4}}, "disc", VOSTEL_ELLIPSE);
    Add(canvas, VOSTEL_POLYGON, star, "star");
    Add(canvas, VOSTEL_SPLINE, {{5.3, 30.2}, {20.6, 28.1}, {24.8, 44.7}, {11.4, 50.9}}, "blob, \"soft\"");
    // A ring with a hole, joined by a bridge.
    Add(canvas, VOSTEL_FREE_REGION,
        {{30.2, 30.3},
         {60.7, 31.1},
         {58.4, 60.2},
         {31.6, 58.8},
         {30.2, 30.3},
         {38.3, 38.2},
         {40.1, 50.4},
         {50.2, 49.3},
         {47.6, 39.7},
         {38.3, 38.2}},
        "ring");
    Add(canvas, VOSTEL_LENGTH, {{1.5, 60.5}, {20.25, 66.0}}, "length");
    Add(canvas, VOSTEL_POINTS, {{63.5, 60.5}, {70.0, 61.0}, {80.0, 66.125}}, "marks");
}

void Write(const std::string& path, const void* bytes, std::size_t count)
{
    std::ofstream file(path, std::ios::binary);
    file.write(static_cast<const char*>(bytes), static_cast<std::streamsize>(count));
}

void WriteWhatWeSay(int32_t canvas, const std::string& folder)
{
    std::vector<int32_t> labels(Width * Height);
    Need(vostel_labels(canvas, labels.data(), 0));
    Write(folder + "labels.i32", labels.data(), labels.size() * sizeof labels[0]);

    VostelObject objects[16] = {};
    std::size_t  count = 0;
    Need(vostel_object_list(canvas, objects, 16, &count));
    std::vector<std::uint8_t> masks;
    for (std::size_t i = 0; i < count; ++i) {
        std::vector<std::uint8_t> mask(Width * Height);
        if (vostel_mask(canvas, objects[i], mask.data(), 0) == VOSTEL_OK)
            masks.insert(masks.end(), mask.begin(), mask.end());
    }
    Write(folder + "masks.u8", masks.data(), masks.size());

    std::size_t length = 0;
    Need(vostel_table(canvas, "json", nullptr, 0, &length));
    std::string table(length + 1, '\0');
    Need(vostel_table(canvas, "json", table.data(), table.size(), &length));
    Write(folder + "table.json", table.data(), length);
}

}

int main(int count, char** arguments)
{
    if (count != 2)
        return 2;
    const std::string folder = std::string(arguments[1]) + "/";
    int32_t           canvas = 0;
    Need(vostel_canvas_create(200, 200, &canvas));
    const std::vector<std::uint8_t> image(Width * Height);
    Need(vostel_image_show(canvas, VOSTEL_U8, image.data(), Width, Height, 0, 0));
    Draw(canvas);
    Need(vostel_regions_export(canvas, (folder + "regions.geojson").c_str(), nullptr));
    Need(vostel_regions_export(canvas, (folder + "coco.json").c_str(), "coco"));
    Need(vostel_regions_export(canvas, (folder + "labels.png").c_str(), nullptr));
    Need(vostel_regions_export(canvas, (folder + "points.csv").c_str(), nullptr));
    WriteWhatWeSay(canvas, folder);
    return 0;
}
