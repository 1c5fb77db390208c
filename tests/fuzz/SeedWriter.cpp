// SeedWriter FOLDER: writes small files of every format, from which the targets of the fuzzer begin, to a
// folder for each target. Those in tests/fuzz/seeds came from here; text files that the library cannot write
// lie beside them.

#include "fuzz/Fuzzing.h"
#include "platform/PictureFiles.h"
#include "support/OpenShapes.h"

#include <VostelObj.h>

#include <doctest/doctest.h>

#include <array>
#include <cstdlib>
#include <filesystem>
#include <iterator>
#include <webp/encode.h>

namespace {

namespace fs = std::filesystem;

void Need(bool done, const char* what)
{
    if (done)
        return;
    std::fprintf(stderr, "%s: %s\n", what, vostel_last_message());
    std::exit(1);
}

class SeedFolder {
public:
    explicit SeedFolder(fs::path root) : Root(std::move(root)) {}

    std::string Path(const std::string& target, const std::string& name) const
    {
        fs::create_directories(Root / target);
        return (Root / target / name).string();
    }
    void Write(const std::string& target, const std::string& name, const files::Bytes& bytes) const
    {
        Need(WriteBytes(Path(target, name), bytes), name.c_str());
    }

private:
    fs::path Root;
};

// Objects of every kind, with names, texts, styles and flags.
void AddObjects(std::int32_t canvas)
{
    static const struct {
        VostelKind  Kind;
        const char* Name;
        Points      Where;
    } objects[] = {{VOSTEL_RECTANGLE, "box", {{3, 4}, {20.5, 17.25}}},
                   {VOSTEL_POLYGON, "edge \"3\"", {{30, 5}, {50, 9.5}, {41, 20}}},
                   {VOSTEL_SPLINE, "", {{10, 30}, {20, 28}, {24, 40}, {12, 42}}},
                   {VOSTEL_FREE_REGION, "\xe5\xad\x94", {{40, 30}, {44, 29}, {47, 33}, {42, 38}}},
                   {VOSTEL_TEXT, "note", {{2, 2}}},
                   {VOSTEL_FREE_STROKES, "", {{5, 5}, {9, 8}, {14, 6}}},
                   {VOSTEL_LENGTH, "bore", {{1, 46}, {60, 40}}},
                   {VOSTEL_ANGLE, "", {{50, 20}, {40, 25}, {60, 30}}},
                   {VOSTEL_ANGLE_LINES, "", {{1, 1}, {9, 9}, {1, 9}, {9, 1}}},
                   {VOSTEL_PANEL, "", {{100, 40}}},
                   {VOSTEL_NEIGHBOURS, "", {{20, 90}}},
                   {VOSTEL_PROFILE, "", {{4, 4}, {33, 41}}},
                   {VOSTEL_POINTS, "marks", {{7, 7}, {8.5, 31}, {55, 12}}},
                   {VOSTEL_POLYLINE, "", {{60, 1}, {50, 11}, {62, 22}}},
                   {VOSTEL_ARROW, "", {{33, 3}, {22, 11}}}};
    for (const auto& each : objects) {
        const VostelObject object = Add(canvas, each.Kind, each.Where);
        Need(vostel_object_set_name(canvas, object, each.Name) == VOSTEL_OK, "name");
        if (each.Kind == VOSTEL_TEXT)
            Need(vostel_object_set_text(canvas, object, "two\nlines") == VOSTEL_OK, "text");
    }
    const VostelObject ellipse = Add(canvas, VOSTEL_RECTANGLE, {{30.5, 20}, {44, 33}});
    Need(vostel_object_set_flags(canvas, ellipse, VOSTEL_ELLIPSE | VOSTEL_LOCKED) == VOSTEL_OK, "flags");
    Need(vostel_object_set_label(canvas, ellipse, 9) == VOSTEL_OK, "label");
    VostelStyle style = {};
    style.size = sizeof style;
    Need(vostel_object_style(canvas, ellipse, &style) == VOSTEL_OK, "style");
    style.fill_color = 0x80112233;
    style.line_width = 2.5;
    Need(vostel_object_set_style(canvas, ellipse, &style) == VOSTEL_OK, "style");
    Need(vostel_contrast_of_object(canvas, ellipse, 20, 90) == VOSTEL_OK, "contrast");
    Need(vostel_set_scale(canvas, 0.25, "mm") == VOSTEL_OK, "scale");
    Need(vostel_contrast_gamma(canvas, 1.5) == VOSTEL_OK, "gamma");
    Need(vostel_contrast_map(canvas, "fire") == VOSTEL_OK, "map");
}

void WriteRegions(const SeedFolder& seeds, std::int32_t canvas)
{
    static const struct {
        const char* Target;
        const char* Name;
        const char* Format;
    } exports[] = {{"json", "all.json", "json"},      {"geojson", "all.geojson", "geojson"},
                   {"coco", "all.coco.json", "coco"}, {"csv", "all.csv", "csv"},
                   {"labels", "all.png", "labels"},   {"imagej-zip", "all.zip", "imagej"}};
    for (const auto& each : exports)
        Need(vostel_regions_export(canvas, seeds.Path(each.Target, each.Name).c_str(), each.Format) ==
                 VOSTEL_OK,
             each.Name);
    fs::remove(seeds.Path("labels", "all.labels.json"));    // an input is one file
    // One selection a file.
    std::vector<VostelObject> objects(64);
    std::size_t               count = 0;
    Need(vostel_object_list(canvas, objects.data(), objects.size(), &count) == VOSTEL_OK, "list");
    for (std::size_t i = 0; i < count; ++i) {
        VostelObjectInfo info = {};
        info.size = sizeof info;
        Need(vostel_object_get(canvas, objects[i], &info) == VOSTEL_OK, "object");
        Points points(static_cast<std::size_t>(info.point_count));
        Need(vostel_object_points(canvas, objects[i], points.data(), points.size(), &count) == VOSTEL_OK,
             "points");
        const FuzzCanvas single;
        Add(single.Number, info.kind, points);
        // Panels are none.
        const std::string path = seeds.Path("imagej-roi", "kind-" + std::to_string(info.kind) + ".roi");
        if (vostel_regions_export(single.Number, path.c_str(), "imagej") != VOSTEL_OK)
            fs::remove(path);
    }
}

// A session with its image beside it and one whose image came from memory.
void WriteSessions(const SeedFolder& seeds)
{
    const FuzzCanvas memory;
    AddObjects(memory.Number);
    Need(vostel_session_save(memory.Number, seeds.Path("session", "memory.vostel.json").c_str(), 0) ==
             VOSTEL_OK,
         "session");
    const OpenCanvas canvas;
    Need(vostel_image_open(canvas.Number, SaveFuzzImage().c_str(), 0) == VOSTEL_OK, "image");
    AddObjects(canvas.Number);
    const std::string path = WriteInput("seed.vostel.json", "");
    Need(vostel_session_save(canvas.Number, path.c_str(), 0) == VOSTEL_OK, "session");
    seeds.Write("session", "image.vostel.json", ReadBytes(path));
}

files::Bytes Packed(std::size_t bytes, std::uint8_t* packed)
{
    files::Bytes file(packed, packed + bytes);
    WebPFree(packed);
    return file;
}

// Pictures as the library saves them, and the depths that it reads but does not save.
void WritePictures(const SeedFolder& seeds, std::int32_t canvas)
{
    using namespace files;
    const Bytes rows = {1, 2, 3, 40, 50, 60, 170, 180, 190, 200, 210, 250};
    for (const char* const ending : {"png", "jpg", "tif", "bmp"})
        Need(vostel_picture_save(canvas, seeds.Path(ending, std::string("saved.") + ending).c_str(), 0.25,
                                 VOSTEL_WITH_OBJECTS) == VOSTEL_OK,
             ending);
    for (const int bits : {1, 4, 8, 24, 32})
        seeds.Write("bmp", "bits-" + std::to_string(bits) + ".bmp",
                    Bmp(12 / std::max(bits, 8), 8, bits, Bytes(100, 0x5A)));
    for (const int bits : {1, 2, 4, 8})
        seeds.Write("png", "palette-" + std::to_string(bits) + ".png",
                    Png(3, 4, bits, Indexed, Bytes(4 * RowBytes(3, bits), 0), true));
    seeds.Write("png", "gray-16.png", Png(2, 3, 16, Gray, rows));
    seeds.Write("png", "gray-alpha.png", Png(3, 2, 8, GrayAlpha, rows));
    seeds.Write("png", "color-alpha.png", Png(3, 1, 8, ColorAlpha, rows));
    seeds.Write("tif", "gray-8.tif", Tiff(4, 3, 8, 1, false, rows));
    seeds.Write("tif", "gray-16.tif", Tiff(2, 3, 16, 1, false, rows));
    seeds.Write("tif", "color.tif", Tiff(2, 2, 8, 3, false, rows));
    seeds.Write("tif", "alpha.tif", Tiff(3, 1, 8, 4, false, rows));
    seeds.Write("tif", "palette.tif", Tiff(4, 3, 8, 1, true, rows));
    seeds.Write("gif", "indices.gif", Gif(4, 3, rows));
    std::uint8_t* packed = nullptr;
    std::size_t   bytes = WebPEncodeLosslessBGRA(rows.data(), 3, 1, 12, &packed);
    seeds.Write("webp", "lossless.webp", Packed(bytes, packed));
    bytes = WebPEncodeRGB(rows.data(), 2, 2, 6, 60.0f, &packed);
    seeds.Write("webp", "lossy.webp", Packed(bytes, packed));
    const auto text = [&](const std::string& name, std::string file) {
        file.append(rows.begin(), rows.end());
        seeds.Write("pnm", name, Bytes(file.begin(), file.end()));
    };
    text("plain.pbm", "P1\n# bits\n3 2\n1 0 1 010\n");
    text("plain.pgm", "P2 2 2 999\n1 22 333 999\n");
    text("plain.ppm", "P3 1 2 15\n1 2 3 4 5 15\n");
    text("raw.pbm", "P4 9 6\n");
    text("raw.pgm", "P5 3 2 65535\n");
    text("raw.ppm", "P6 2 2 255\n");
    text("gray.pfm", "Pf 1 3 -1.0\n");
    text("color.pfm", "PF 1 1 1.0\n");
}

}

int main(int count, char** arguments)
{
    if (count != 2) {
        std::fprintf(stderr, "SeedWriter FOLDER\n");
        return 2;
    }
    StopAtFailedChecks();
    const SeedFolder seeds(arguments[1]);
    const FuzzCanvas canvas;
    AddObjects(canvas.Number);
    WriteRegions(seeds, canvas.Number);
    WriteSessions(seeds);
    WritePictures(seeds, canvas.Number);
    return 0;
}
