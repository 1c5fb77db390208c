// Images by the open interface: what comes in comes out again.

#include "platform/PictureFiles.h"
#include "support/OpenCanvas.h"
#include "support/OpenShapes.h"
#include "support/TempFolder.h"

#include <VostelObj.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <limits>
#include <random>
#include <string>
#include <vector>

namespace {

VostelImageInfo InfoOf(int32_t canvas)
{
    VostelImageInfo info = {};
    info.size = sizeof info;
    REQUIRE(vostel_image_info(canvas, &info) == VOSTEL_OK);
    return info;
}

VostelPlane PlaneOf(int32_t canvas)
{
    VostelPlane plane = {};
    plane.size = sizeof plane;
    REQUIRE(vostel_image_plane(canvas, &plane) == VOSTEL_OK);
    return plane;
}

double ValueOf(int32_t canvas, int32_t channel, double x, double y)
{
    double value = -99.0;
    REQUIRE(vostel_image_value(canvas, channel, x, y, &value) == VOSTEL_OK);
    return value;
}

template <typename Sample>
void Show(int32_t canvas, VostelPixel type, const std::vector<Sample>& values, int width, int height,
          uint32_t flags = 0)
{
    REQUIRE(vostel_image_show(canvas, type, values.data(), width, height, 0, flags) == VOSTEL_OK);
}

constexpr float NaN = std::numeric_limits<float>::quiet_NaN();
constexpr float Inf = std::numeric_limits<float>::infinity();

}

TEST_CASE("a canvas without an image says so")
{
    const OpenCanvas canvas;
    VostelImageInfo  info = {};
    info.size = sizeof info;
    VostelPlane plane = {};
    plane.size = sizeof plane;
    double value = 0.0;
    CHECK(vostel_image_info(canvas.Number, &info) == VOSTEL_NO_IMAGE);
    CHECK(vostel_image_plane(canvas.Number, &plane) == VOSTEL_NO_IMAGE);
    CHECK(vostel_image_value(canvas.Number, 0, 0.0, 0.0, &value) == VOSTEL_NO_IMAGE);
    CHECK(vostel_image_copy(canvas.Number, VOSTEL_U8, &value, 0) == VOSTEL_NO_IMAGE);
    CHECK(vostel_contrast_set(canvas.Number, 0.0, 1.0) == VOSTEL_NO_IMAGE);
    CHECK(vostel_contrast_percentiles(canvas.Number, 1.0, 99.0) == VOSTEL_NO_IMAGE);
    CHECK(vostel_contrast_gamma(canvas.Number, 2.0) == VOSTEL_NO_IMAGE);
    CHECK(vostel_contrast_map(canvas.Number, "fire") == VOSTEL_NO_IMAGE);
    CHECK(vostel_contrast_marks(canvas.Number, 0, 0, 0) == VOSTEL_NO_IMAGE);
}

TEST_CASE("arguments that cannot be are told of before a missing image")
{
    OpenCanvas    canvas;
    double        value = 0.0;
    std::uint64_t counts[2];
    std::size_t   count = 0;
    const int32_t number = canvas.Number;
    CHECK(vostel_contrast_set(number, 1.0, 1.0) == VOSTEL_INVALID_ARGUMENT);
    CHECK(vostel_contrast_get(number, &value, nullptr) == VOSTEL_INVALID_ARGUMENT);
    CHECK(vostel_contrast_percentiles(number, 99.0, 1.0) == VOSTEL_INVALID_ARGUMENT);
    CHECK(vostel_contrast_gamma(number, 0.0) == VOSTEL_INVALID_ARGUMENT);
    CHECK(vostel_contrast_map(number, nullptr) == VOSTEL_INVALID_ARGUMENT);
    CHECK(vostel_contrast_map(number, "no such map") == VOSTEL_NOT_FOUND);
    CHECK(vostel_histogram(number, 0, 0, 1.0, 0.0, 2, counts) == VOSTEL_INVALID_ARGUMENT);
    CHECK(vostel_histogram(number, 987654321, 0, 0.0, 1.0, 2, counts) == VOSTEL_NOT_FOUND);
    CHECK(vostel_image_info(number, nullptr) == VOSTEL_INVALID_ARGUMENT);
    CHECK(vostel_image_plane(number, nullptr) == VOSTEL_INVALID_ARGUMENT);
    CHECK(vostel_image_value(number, 0, 0.0, 0.0, nullptr) == VOSTEL_INVALID_ARGUMENT);
    CHECK(vostel_image_copy(number, VOSTEL_F32, nullptr, 0) == VOSTEL_INVALID_ARGUMENT);
    CHECK(vostel_image_copy(number, 0, &value, 0) == VOSTEL_INVALID_ARGUMENT);
    CHECK(vostel_labels(number, nullptr, 0) == VOSTEL_INVALID_ARGUMENT);
    CHECK(vostel_picture_save(number, "a.png", 0.0, 0) == VOSTEL_INVALID_ARGUMENT);
    const VostelObject region = Add(number, VOSTEL_RECTANGLE, {{0.0, 0.0}, {6.0, 6.0}});
    const VostelObject line = Add(number, VOSTEL_LENGTH, {{0.0, 0.0}, {6.0, 6.0}});
    CHECK(vostel_mask(number, region, nullptr, 0) == VOSTEL_INVALID_ARGUMENT);
    CHECK(vostel_profile(number, line, 0, 0.5, nullptr, nullptr, 0, &count) == VOSTEL_INVALID_ARGUMENT);
}

TEST_CASE("what is known of an image are its size, type, finite range and the number of values beside it")
{
    const OpenCanvas canvas;
    Show<float>(canvas.Number, VOSTEL_F32, {1.0f, NaN, -2.5f, Inf, 7.0f, -Inf}, 3, 2);
    const VostelImageInfo info = InfoOf(canvas.Number);
    CHECK(info.type == VOSTEL_F32);
    CHECK(info.width == 3);
    CHECK(info.height == 2);
    CHECK(info.min == -2.5);
    CHECK(info.max == 7.0);
    CHECK(info.not_finite == 3);
    Show<std::uint8_t>(canvas.Number, VOSTEL_RGB8, {255, 0, 0, 0, 255, 0}, 2, 1);
    CHECK(InfoOf(canvas.Number).min == 76.245);
    CHECK(InfoOf(canvas.Number).max == 149.685);
    Show<float>(canvas.Number, VOSTEL_F32, {NaN, Inf}, 2, 1);
    CHECK(InfoOf(canvas.Number).min == 0.0);
    CHECK(InfoOf(canvas.Number).not_finite == 2);
}

TEST_CASE("a value is that of the pixel that covers the point, in each channel")
{
    const OpenCanvas canvas;
    Show<std::int16_t>(canvas.Number, VOSTEL_I16, {-7, 300, 5, -32768}, 2, 2);
    CHECK(ValueOf(canvas.Number, 0, 0.0, 0.0) == -7.0);
    CHECK(ValueOf(canvas.Number, 0, 1.999, 0.999) == 300.0);
    CHECK(ValueOf(canvas.Number, 0, 1.0, 1.0) == -32768.0);
    double value = 4.0;
    for (const double outside : {-1e-9, 2.0, 1e300, -1e300})
        CHECK(vostel_image_value(canvas.Number, 0, outside, 0.5, &value) == VOSTEL_NOT_FOUND);
    CHECK(vostel_image_value(canvas.Number, 1, 0.5, 0.5, &value) == VOSTEL_INVALID_ARGUMENT);
    CHECK(vostel_image_value(canvas.Number, 0, static_cast<double>(NaN), 0.5, &value) ==
          VOSTEL_INVALID_ARGUMENT);
    CHECK(value == 4.0);
    const std::uint8_t bgra[] = {3, 2, 1, 9};
    REQUIRE(vostel_image_show(canvas.Number, VOSTEL_BGRA8, bgra, 1, 1, 0, 0) == VOSTEL_OK);
    CHECK(ValueOf(canvas.Number, 0, 0.5, 0.5) == 1.815);
    for (int channel = 1; channel <= 3; ++channel)
        CHECK(ValueOf(canvas.Number, channel, 0.5, 0.5) == channel);
}

TEST_CASE("the borrowed plane holds the samples as they came, in their own type")
{
    const OpenCanvas           canvas;
    std::vector<unsigned char> rows(2 * 10);    // two rows of 3 x 16 bits, ten bytes apart, bottom-up
    const std::uint16_t        values[] = {1, 2, 3, 40000, 50000, 60000};
    std::memcpy(rows.data() + 10, values, 6);
    std::memcpy(rows.data(), values + 3, 6);
    REQUIRE(vostel_image_show(canvas.Number, VOSTEL_U16, rows.data() + 10, 3, 2, -10, 0) == VOSTEL_OK);
    const VostelPlane plane = PlaneOf(canvas.Number);
    CHECK(plane.type == VOSTEL_U16);
    CHECK(plane.width == 3);
    CHECK(plane.height == 2);
    for (int y = 0; y < 2; ++y)
        CHECK(std::memcmp(static_cast<const char*>(plane.data) + y * plane.row_bytes, values + 3 * y, 6) ==
              0);
    CHECK(gCVSGetFileType(canvas.Number) == FileTypeRaw);
    CHECK(gCVSGetRawOriPtr1D(canvas.Number)[5] == 60000.0f);
}

TEST_CASE("copies are truncated and held within a byte, and gray comes three times")
{
    const OpenCanvas canvas;
    Show<float>(canvas.Number, VOSTEL_F32, {1.9f, -3.0f, 300.0f, NaN, Inf, 255.0f}, 3, 2);
    std::vector<std::uint8_t> bytes(8, 77);
    REQUIRE(vostel_image_copy(canvas.Number, VOSTEL_U8, bytes.data(), 4) == VOSTEL_OK);
    CHECK(bytes == std::vector<std::uint8_t>{1, 0, 255, 77, 0, 255, 255, 77});
    std::vector<std::uint8_t> colors(18);
    REQUIRE(vostel_image_copy(canvas.Number, VOSTEL_RGB8, colors.data(), 0) == VOSTEL_OK);
    CHECK(colors[2] == 1);
    CHECK(colors[6] == 255);
    std::vector<float> floats(6);
    REQUIRE(vostel_image_copy(canvas.Number, VOSTEL_F32, floats.data() + 3, -12) == VOSTEL_OK);
    CHECK(floats[3] == 1.9f);
    CHECK(std::isnan(floats[0]));
    const std::uint8_t bgr[] = {30, 20, 10};
    REQUIRE(vostel_image_show(canvas.Number, VOSTEL_BGR8, bgr, 1, 1, 0, 0) == VOSTEL_OK);
    REQUIRE(vostel_image_copy(canvas.Number, VOSTEL_RGB8, colors.data(), 0) == VOSTEL_OK);
    CHECK(colors[0] == 10);
    CHECK(colors[2] == 30);
    REQUIRE(vostel_image_copy(canvas.Number, VOSTEL_F32, floats.data(), 0) == VOSTEL_OK);
    CHECK(floats[0] == 18.15f);
    REQUIRE(vostel_image_copy(canvas.Number, VOSTEL_U8, bytes.data(), 0) == VOSTEL_OK);
    CHECK(bytes[0] == 18);
    CHECK(vostel_image_copy(canvas.Number, VOSTEL_U16, bytes.data(), 0) == VOSTEL_NOT_SUPPORTED);
    CHECK(vostel_image_copy(canvas.Number, 99, bytes.data(), 0) == VOSTEL_INVALID_ARGUMENT);
}

TEST_CASE("bad samples change nothing")
{
    const OpenCanvas canvas;
    Show<std::uint8_t>(canvas.Number, VOSTEL_U8, {1, 2}, 2, 1);
    const std::uint8_t data[16] = {};
    const auto         show = [&](VostelPixel type, const void* from, int32_t width, int32_t height,
                          ptrdiff_t rowBytes, uint32_t flags) {
        return vostel_image_show(canvas.Number, type, from, width, height, rowBytes, flags);
    };
    CHECK(show(0, data, 2, 2, 0, 0) == VOSTEL_INVALID_ARGUMENT);
    CHECK(show(8, data, 2, 2, 0, 0) == VOSTEL_INVALID_ARGUMENT);
    CHECK(show(VOSTEL_U8, nullptr, 2, 2, 0, 0) == VOSTEL_INVALID_ARGUMENT);
    CHECK(show(VOSTEL_U8, data, 0, 2, 0, 0) == VOSTEL_INVALID_ARGUMENT);
    CHECK(show(VOSTEL_U8, data, 2, -1, 0, 0) == VOSTEL_INVALID_ARGUMENT);
    CHECK(show(VOSTEL_U8, data, 4, 2, 3, 0) == VOSTEL_INVALID_ARGUMENT);
    CHECK(show(VOSTEL_U8, data, 2, 2, PTRDIFF_MIN, 0) == VOSTEL_INVALID_ARGUMENT);
    CHECK(show(VOSTEL_U8, data, 2, 2, PTRDIFF_MAX, 0) == VOSTEL_INVALID_ARGUMENT);
    CHECK(show(VOSTEL_U8, data, 2, 2, 0, 8) == VOSTEL_INVALID_ARGUMENT);
    CHECK(show(VOSTEL_U8, data, INT32_MAX, INT32_MAX, 0, 0) == VOSTEL_TOO_LARGE);
    CHECK(vostel_image_show(12345, VOSTEL_U8, data, 2, 2, 0, 0) == VOSTEL_NOT_FOUND);
    CHECK(InfoOf(canvas.Number).max == 2.0);
}

TEST_CASE("an image goes with the history unless the objects are kept")
{
    const OpenCanvas  canvas;
    const VostelPoint corners[] = {{1.0, 1.0}, {5.0, 5.0}};
    VostelObject      object = 0;
    Show<std::uint8_t>(canvas.Number, VOSTEL_U8, std::vector<std::uint8_t>(64), 8, 8);
    REQUIRE(vostel_object_add(canvas.Number, VOSTEL_RECTANGLE, corners, 2, &object) == VOSTEL_OK);
    Show<std::uint8_t>(canvas.Number, VOSTEL_U8, std::vector<std::uint8_t>(64, 3), 8, 8,
                       VOSTEL_KEEP_OBJECTS | VOSTEL_KEEP_VIEW);
    CHECK(ObjectsOf(canvas.Number).size() == 1);
    CHECK(HistoryOf(canvas.Number).undo_count == 1);
    Show<std::uint8_t>(canvas.Number, VOSTEL_U8, std::vector<std::uint8_t>(64, 3), 8, 8);
    CHECK(ObjectsOf(canvas.Number).empty());
    CHECK(HistoryOf(canvas.Number).undo_count == 0);
}

TEST_CASE("every image is told to listeners, once")
{
    const OpenCanvas           canvas;
    std::vector<std::uint32_t> told;
    std::int64_t               token = 0;
    const auto                 listener = [](const VostelEvent* event, void* user) {
        static_cast<std::vector<std::uint32_t>*>(user)->push_back(event->type);
    };
    REQUIRE(vostel_listen(canvas.Number, VOSTEL_IMAGE_CHANGED, listener, &told, &token) == VOSTEL_OK);
    Show<std::uint8_t>(canvas.Number, VOSTEL_U8, {1, 2}, 2, 1);
    CHECK(told.size() == 1);
    Show<std::uint8_t>(canvas.Number, VOSTEL_U8, {3, 4}, 2, 1,
                       VOSTEL_KEEP_OBJECTS | VOSTEL_KEEP_VIEW | VOSTEL_KEEP_CONTRAST);
    CHECK(told.size() == 2);
    vostel_unlisten(token);
}

TEST_CASE("files are opened by their content, and each failure has its status")
{
    const OpenCanvas canvas;
    const TempFolder folder;
    const auto       write = [&](const char* name, const files::Bytes& bytes) {
        REQUIRE(WriteBytes(folder.Path(name), bytes));
        return folder.Path(name);
    };
    const std::filesystem::path named = std::filesystem::path(folder.Path()) / u8"\u00E4.txt";
    std::filesystem::rename(write("plain.txt", files::Png(2, 1, 16, files::Gray, {0x12, 0x34, 0, 1})), named);
    const std::u8string utf8 = named.u8string();
    const std::string   picture(utf8.begin(), utf8.end());
    REQUIRE(vostel_image_open(canvas.Number, picture.c_str(), 0) == VOSTEL_OK);
    CHECK(InfoOf(canvas.Number).type == VOSTEL_U16);
    CHECK(ValueOf(canvas.Number, 0, 0.5, 0.5) == 0x1234);
    int32_t pages = 0;
    CHECK(vostel_image_pages(picture.c_str(), &pages) == VOSTEL_OK);
    CHECK(pages == 1);
    CHECK(vostel_image_open_page(canvas.Number, picture.c_str(), 1, 0) == VOSTEL_NOT_FOUND);
    CHECK(vostel_image_open_page(canvas.Number, picture.c_str(), -1, 0) == VOSTEL_INVALID_ARGUMENT);
    CHECK(vostel_image_open(canvas.Number, folder.Path("missing.png").c_str(), 0) == VOSTEL_NOT_READ);
    CHECK(vostel_image_open(canvas.Number, write("bad.png", {1, 2, 3}).c_str(), 0) == VOSTEL_BAD_FORMAT);
    CHECK(vostel_image_open(canvas.Number, nullptr, 0) == VOSTEL_INVALID_ARGUMENT);
    CHECK(vostel_image_pages(folder.Path("missing.png").c_str(), &pages) == VOSTEL_NOT_READ);
    CHECK(std::string(vostel_last_message()).find("missing.png") != std::string::npos);
    CHECK(InfoOf(canvas.Number).width == 2);
}

TEST_CASE("a GIF ends with its last whole frame, whether or not the mark of the end follows")
{
    const OpenCanvas   canvas;
    const TempFolder   folder;
    const files::Bytes one = files::Gif(3, 2, {1, 2, 3, 4, 5, 6});
    REQUIRE(one.back() == ';');
    const std::size_t head = 13 + 768;    // screen and palette
    files::Bytes      two(one.begin(), one.end() - 1);
    two.insert(two.end(), one.begin() + static_cast<std::ptrdiff_t>(head), one.end());
    const std::string path = folder.Path("a.gif");
    // The pages of the file's first bytes, of which each can be opened and none behind them; 0 if it has
    // none.
    const auto pagesOf = [&](const files::Bytes& file, std::size_t length) {
        REQUIRE(
            WriteBytes(path, files::Bytes(file.begin(), file.begin() + static_cast<std::ptrdiff_t>(length))));
        int32_t pages = 0;
        if (vostel_image_pages(path.c_str(), &pages) != VOSTEL_OK) {
            CHECK(vostel_image_open(canvas.Number, path.c_str(), 0) == VOSTEL_BAD_FORMAT);
            return 0;
        }
        for (int32_t page = 0; page < pages; ++page)
            CHECK(vostel_image_open_page(canvas.Number, path.c_str(), page, 0) == VOSTEL_OK);
        CHECK(vostel_image_open_page(canvas.Number, path.c_str(), pages, 0) == VOSTEL_NOT_FOUND);
        return static_cast<int>(pages);
    };
    CHECK(pagesOf(two, two.size()) == 2);
    CHECK(pagesOf(two, two.size() - 1) == 2);
    for (std::size_t length = one.size() - 1; length < two.size() - 1; ++length) {
        CAPTURE(length);
        CHECK(pagesOf(two, length) == 1);
    }
    CHECK(pagesOf(two, one.size() - 2) == 0);
    CHECK(pagesOf(two, head) == 0);
    files::Bytes torn = one;
    torn.back() = 7;
    CHECK(pagesOf(torn, torn.size()) == 1);
}

TEST_CASE("raw files are read by a layout")
{
    const OpenCanvas canvas;
    const TempFolder folder;
    REQUIRE(WriteBytes(folder.Path("raw"), {9, 9, 9, 0x12, 0x34, 0xFF, 0xFE}));
    const std::string path = folder.Path("raw");
    VostelRawLayout   layout = {sizeof layout, VOSTEL_U16, 2, 1, 3, 1};
    REQUIRE(vostel_image_open_raw(canvas.Number, path.c_str(), &layout, 0) == VOSTEL_OK);
    CHECK(ValueOf(canvas.Number, 0, 0.5, 0.5) == 0x1234);
    CHECK(ValueOf(canvas.Number, 0, 1.5, 0.5) == 0xFFFE);
    layout.big_endian = 0;
    layout.type = VOSTEL_I16;
    REQUIRE(vostel_image_open_raw(canvas.Number, path.c_str(), &layout, 0) == VOSTEL_OK);
    CHECK(ValueOf(canvas.Number, 0, 1.5, 0.5) == -257.0);
    layout.offset = 4;
    CHECK(vostel_image_open_raw(canvas.Number, path.c_str(), &layout, 0) == VOSTEL_BAD_FORMAT);
    layout.offset = -1;
    CHECK(vostel_image_open_raw(canvas.Number, path.c_str(), &layout, 0) == VOSTEL_INVALID_ARGUMENT);
    layout.offset = INT64_MAX;
    CHECK(vostel_image_open_raw(canvas.Number, path.c_str(), &layout, 0) == VOSTEL_BAD_FORMAT);
    layout = {sizeof layout, VOSTEL_RGB8, 2, 1, 1, 1};
    REQUIRE(vostel_image_open_raw(canvas.Number, path.c_str(), &layout, 0) == VOSTEL_OK);
    CHECK(ValueOf(canvas.Number, 3, 0.5, 0.5) == 0x12);
    CHECK(vostel_image_open_raw(canvas.Number, folder.Path("none").c_str(), &layout, 0) == VOSTEL_NOT_READ);
    CHECK(vostel_image_open_raw(canvas.Number, path.c_str(), nullptr, 0) == VOSTEL_INVALID_ARGUMENT);
}

TEST_CASE("raw samples come into the caller's rows, truncated and held within their range")
{
    const TempFolder   folder;
    const std::string  path = folder.Path("raw");
    std::vector<float> floats = {0.5f, 255.9f, 256.0f, 70000.0f, -3.0f, std::nanf(""), 65535.5f, 7.0f};
    std::string        bytes(floats.size() * 4 + 1, '!');
    std::memcpy(bytes.data() + 1, floats.data(), bytes.size() - 1);
    std::ofstream(path, std::ios::binary) << bytes;
    VostelRawLayout layout = {sizeof layout, VOSTEL_F32, 4, 2, 1, 0};

    // Rows of 4, 13 bytes apart from an odd place on; what lies between them stays.
    std::vector<unsigned char> memory(40, 0xAB);
    VostelPlane                plane = {sizeof plane, VOSTEL_U16, 4, 2, 13, memory.data() + 1};
    REQUIRE(vostel_read_raw(path.c_str(), &layout, &plane) == VOSTEL_OK);
    const unsigned short words[2][4] = {{0, 255, 256, 65535}, {0, 0, 65535, 7}};
    CHECK(std::memcmp(memory.data() + 1, words[0], 8) == 0);
    CHECK(std::memcmp(memory.data() + 14, words[1], 8) == 0);
    CHECK(memory[0] == 0xAB);
    CHECK(std::count(memory.begin() + 9, memory.begin() + 14, 0xAB) == 5);
    CHECK(std::count(memory.begin() + 22, memory.end(), 0xAB) == 18);

    plane = {sizeof plane, VOSTEL_U8, 4, 2, -4, memory.data() + 4};    // the lower row first
    REQUIRE(vostel_read_raw(path.c_str(), &layout, &plane) == VOSTEL_OK);
    CHECK(std::vector<unsigned char>(memory.begin(), memory.begin() + 8) ==
          std::vector<unsigned char>{0, 0, 255, 7, 0, 255, 255, 255});

    std::vector<float> back(8);
    plane = {sizeof plane, VOSTEL_F32, 4, 2, 0, back.data()};
    REQUIRE(vostel_read_raw(path.c_str(), &layout, &plane) == VOSTEL_OK);
    CHECK(std::memcmp(back.data(), floats.data(), 32) == 0);

    layout = {sizeof layout, VOSTEL_I16, 4, 2, 1, 1};
    REQUIRE(vostel_read_raw(path.c_str(), &layout, &plane) == VOSTEL_OK);
    const auto turned = [&](std::size_t at) {
        return static_cast<float>(
            static_cast<std::int16_t>((bytes[at] & 0xFF) << 8 | (bytes[at + 1] & 0xFF)));
    };
    for (std::size_t i = 0; i < 8; ++i)
        CHECK(back[i] == turned(1 + 2 * i));
}

TEST_CASE("raw samples of every type come into rows of every type")
{
    const TempFolder          folder;
    const std::string         path = folder.Path("raw");
    constexpr int             Wide = 701, High = 403;    // several blocks, the last one in part
    const std::size_t         count = static_cast<std::size_t>(Wide) * High;
    std::vector<std::int16_t> signedWords(count);
    std::mt19937              random(5);
    for (std::int16_t& word : signedWords)
        word = static_cast<std::int16_t>(random() % 66000 - 33000);
    const std::string bytes(reinterpret_cast<const char*>(signedWords.data()), 2 * count);
    std::ofstream(path, std::ios::binary) << bytes;
    const auto valueAt = [&](VostelPixel type, std::size_t i) {
        if (type == VOSTEL_U8)
            return static_cast<double>(static_cast<unsigned char>(bytes[i]));
        return type == VOSTEL_I16 ? static_cast<double>(signedWords[i])
                                  : static_cast<double>(static_cast<std::uint16_t>(signedWords[i]));
    };
    for (const VostelPixel type : {VOSTEL_U8, VOSTEL_U16, VOSTEL_I16}) {
        CAPTURE(type);
        const VostelRawLayout      layout = {sizeof layout, type, Wide, High, 0, 0};
        std::vector<unsigned char> small(count);
        std::vector<std::uint16_t> middle(count);
        std::vector<float>         large(count);
        VostelPlane                plane = {sizeof plane, VOSTEL_U8, Wide, High, 0, small.data()};
        REQUIRE(vostel_read_raw(path.c_str(), &layout, &plane) == VOSTEL_OK);
        plane = {sizeof plane, VOSTEL_U16, Wide, High, 0, middle.data()};
        REQUIRE(vostel_read_raw(path.c_str(), &layout, &plane) == VOSTEL_OK);
        plane = {sizeof plane, VOSTEL_F32, Wide, High, 0, large.data()};
        REQUIRE(vostel_read_raw(path.c_str(), &layout, &plane) == VOSTEL_OK);
        std::size_t wrong = 0;
        for (std::size_t i = 0; i < count; ++i) {
            const double value = valueAt(type, i);
            wrong += small[i] != std::clamp(value, 0.0, 255.0) || middle[i] != std::max(value, 0.0) ||
                     static_cast<double>(large[i]) != value;
        }
        CHECK(wrong == 0);
    }
}

TEST_CASE("raw samples that do not fit are refused and the rows stay")
{
    const TempFolder  folder;
    const std::string path = folder.Path("raw");
    REQUIRE(WriteBytes(path, {1, 2, 3, 4, 5, 6}));
    std::vector<unsigned char> memory(6, 9);
    VostelRawLayout            layout = {sizeof layout, VOSTEL_U8, 3, 2, 0, 0};
    VostelPlane                plane = {sizeof plane, VOSTEL_U8, 3, 2, 0, memory.data()};
    const auto                 read = [&] { return vostel_read_raw(path.c_str(), &layout, &plane); };
    layout.offset = 1;
    CHECK(read() == VOSTEL_BAD_FORMAT);
    layout = {sizeof layout, VOSTEL_U8, 2, 2, 0, 0};
    CHECK(read() == VOSTEL_INVALID_ARGUMENT);
    layout = {sizeof layout, VOSTEL_U8, 3, 1, 0, 0};
    CHECK(read() == VOSTEL_INVALID_ARGUMENT);
    for (const VostelPixel type : {VOSTEL_RGB8, VOSTEL_BGR8, VOSTEL_BGRA8}) {
        layout = {sizeof layout, type, 3, 2, 0, 0};
        CHECK(read() == VOSTEL_INVALID_ARGUMENT);
    }
    layout = {sizeof layout, VOSTEL_U8, 3, 2, 0, 0};
    plane.type = VOSTEL_I16;
    CHECK(read() == VOSTEL_INVALID_ARGUMENT);
    plane.type = VOSTEL_U8;
    CHECK(vostel_read_raw(folder.Path("none").c_str(), &layout, &plane) == VOSTEL_NOT_READ);
    CHECK(memory == std::vector<unsigned char>(6, 9));
    CHECK(read() == VOSTEL_OK);
    CHECK(memory == std::vector<unsigned char>{1, 2, 3, 4, 5, 6});
}

TEST_CASE("the limits hold for samples and files")
{
    const OpenCanvas canvas;
    const TempFolder folder;
    REQUIRE(WriteBytes(folder.Path("wide.png"), files::Png(5, 1, 8, files::Gray, {1, 2, 3, 4, 5})));
    VostelLimits limits = {sizeof limits, 4, 0, 0, 0, 0};
    REQUIRE(vostel_set_limits(&limits) == VOSTEL_OK);
    const std::uint8_t data[5] = {};
    CHECK(vostel_image_show(canvas.Number, VOSTEL_U8, data, 5, 1, 0, 0) == VOSTEL_TOO_LARGE);
    CHECK(vostel_image_open(canvas.Number, folder.Path("wide.png").c_str(), 0) == VOSTEL_TOO_LARGE);
    limits = {sizeof limits, 0, 0, 10, 0, 0};
    REQUIRE(vostel_set_limits(&limits) == VOSTEL_OK);
    CHECK(vostel_image_open(canvas.Number, folder.Path("wide.png").c_str(), 0) == VOSTEL_TOO_LARGE);
    // No picture is read for less than the constant of the budget.
    limits = {sizeof limits, 0, 0, 0, 0, 64 << 20};
    REQUIRE(vostel_set_limits(&limits) == VOSTEL_OK);
    CHECK(vostel_image_open(canvas.Number, folder.Path("wide.png").c_str(), 0) == VOSTEL_TOO_LARGE);
    limits = {sizeof limits, 0, 0, 0, 0, 65 << 20};
    REQUIRE(vostel_set_limits(&limits) == VOSTEL_OK);
    CHECK(vostel_image_open(canvas.Number, folder.Path("wide.png").c_str(), 0) == VOSTEL_OK);
    VostelLimits now = {sizeof now, 0, 0, 0, 0, 0};
    REQUIRE(vostel_get_limits(&now) == VOSTEL_OK);
    CHECK(now.max_memory == 65 << 20);
    // A record of before the field leaves the default there.
    limits.size = offsetof(VostelLimits, max_memory);
    REQUIRE(vostel_set_limits(&limits) == VOSTEL_OK);
    REQUIRE(vostel_get_limits(&now) == VOSTEL_OK);
    CHECK(now.max_memory == 0);
    limits = {sizeof limits, 0, 0, 0, 0, 0};
    REQUIRE(vostel_set_limits(&limits) == VOSTEL_OK);
    CHECK(vostel_image_open(canvas.Number, folder.Path("wide.png").c_str(), 0) == VOSTEL_OK);
}

TEST_CASE("the range is that of the image that is shown, however often it was asked for before")
{
    const OpenCanvas canvas;
    const auto       checkRange = [&](double min, double max, int64_t notFinite) {
        for (int again = 0; again < 2; ++again) {
            const VostelImageInfo info = InfoOf(canvas.Number);
            CHECK(info.min == min);
            CHECK(info.max == max);
            CHECK(info.not_finite == notFinite);
        }
    };
    Show<float>(canvas.Number, VOSTEL_F32, {1.0f, 2.0f, NaN, 4.0f}, 2, 2);
    checkRange(1.0, 4.0, 1);
    Show<float>(canvas.Number, VOSTEL_F32, {-3.0f, 2.0f, 5.5f, 4.0f}, 2, 2);    // into the same memory
    checkRange(-3.0, 5.5, 0);
    REQUIRE(vostel_contrast_set(canvas.Number, 0.0, 1.0) == VOSTEL_OK);
    checkRange(-3.0, 5.5, 0);
    Show<uint16_t>(canvas.Number, VOSTEL_U16, {7, 8, 9, 65535}, 2, 2);
    checkRange(7.0, 65535.0, 0);
}

TEST_CASE("the range follows what a host writes into planes and pixels of the classic calls")
{
    const OpenCanvas     canvas;
    ClassData2DIO<float> data;
    data.Allocate(2, 1);
    data.Ptr1D[0] = 10.0f;
    data.Ptr1D[1] = 20.0f;
    gCVSShowRawFloat(canvas.Number, data, true, true);
    CHECK(InfoOf(canvas.Number).max == 20.0);
    gCVSGetRawOri(canvas.Number).Ptr1D[1] = 30.0f;
    CHECK(InfoOf(canvas.Number).max == 30.0);

    unsigned char gray[] = {5, 6};
    gCVSShowUCGray(canvas.Number, gray, 2, 1, true);
    CHECK(InfoOf(canvas.Number).max == 6.0);
    gCVSGetCanvasPixelPtr(canvas.Number)[1] = 0x00C8C8C8;
    CHECK(InfoOf(canvas.Number).max == 200.0);
    unsigned char darker[] = {1, 2};
    gCVSShowUCGray(canvas.Number, darker, 2, 1, true);
    CHECK(InfoOf(canvas.Number).max == 2.0);
}
