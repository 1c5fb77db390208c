#include "open/BadArguments.h"

#include "support/OpenCanvas.h"

#include <algorithm>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <limits>
#include <utility>

namespace {

constexpr std::int32_t  Width = 64;
constexpr std::int32_t  Height = 48;
constexpr unsigned char Guard = 0xA5;
constexpr unsigned char Idle = 0x11;

std::string KindOf(const std::string& argument)
{
    return argument.substr(0, argument.find('='));
}

double NumberOf(const std::string& argument)
{
    const std::size_t sign = argument.find('=');
    return sign == std::string::npos ? 0.0 : std::strtod(argument.c_str() + sign + 1, nullptr);
}

Value Whole(std::int64_t number)
{
    Value value;
    value.Whole = number;
    value.Real = static_cast<double>(number);
    return value;
}

Value Real(double number)
{
    Value value;
    value.Real = number;
    return value;
}

Value Address(void* pointer)
{
    Value value;
    value.Pointer = pointer;
    return value;
}

BadValue BadWhole(std::int64_t number, bool mustFail)
{
    return {std::to_string(number), mustFail, [=] { return Whole(number); }};
}

BadValue BadReal(double number, bool mustFail)
{
    return {std::to_string(number), mustFail, [=] { return Real(number); }};
}

VostelObject AddObject(std::int32_t canvas, VostelKind kind, const std::vector<VostelPoint>& points)
{
    VostelObject object = 0;
    REQUIRE(vostel_object_add(canvas, kind, points.data(), points.size(), &object) == VOSTEL_OK);
    return object;
}

template <typename Record>
std::vector<unsigned char> BytesOf(Record record)
{
    record.size = sizeof record;
    const auto* bytes = reinterpret_cast<const unsigned char*>(&record);
    return {bytes, bytes + sizeof record};
}

VostelPlane PlaneOf(VostelPixel type, std::int32_t width, std::int32_t height, void* data)
{
    return {sizeof(VostelPlane), type, width, height, 0, data};
}

}

BadInputWorld::BadInputWorld(bool aligned)
    : Memory(Places * (PlaceBytes + 2 * GuardBytes), Guard), Shift(aligned ? 0 : 1)
{
    Texts.reserve(16);
    for (std::size_t place = 0; place < Places; ++place)
        std::memset(PlaceOf(place), Idle, PlaceBytes - 1);
    REQUIRE(vostel_canvas_create(80, 60, &Dead) == VOSTEL_OK);
    REQUIRE(vostel_canvas_destroy(Dead) == VOSTEL_OK);
    REQUIRE(vostel_canvas_create(80, 60, &First) == VOSTEL_OK);
    REQUIRE(vostel_canvas_create(50, 40, &Second) == VOSTEL_OK);
    std::vector<std::uint8_t> pixels(Width * Height);
    for (std::size_t i = 0; i < pixels.size(); ++i)
        pixels[i] = static_cast<std::uint8_t>(i * 7);
    REQUIRE(vostel_image_show(First, VOSTEL_U8, pixels.data(), Width, Height, 0, 0) == VOSTEL_OK);
    Region = AddObject(First, VOSTEL_POLYGON, {{2.0, 3.0}, {40.0, 5.0}, {20.0, 30.0}});
    Line = AddObject(First, VOSTEL_LENGTH, {{2.0, 3.0}, {40.0, 5.0}});
    Text = AddObject(First, VOSTEL_TEXT, {{5.0, 5.0}});
    Gone = AddObject(First, VOSTEL_ARROW, {{2.0, 3.0}, {40.0, 5.0}});
    REQUIRE(vostel_object_remove(First, Gone) == VOSTEL_OK);
    REQUIRE(vostel_object_set_name(First, Region, "region") == VOSTEL_OK);
    REQUIRE(vostel_undo(First) == VOSTEL_OK);    // so that there is something to redo
    Foreign = AddObject(Second, VOSTEL_POLYGON, {{2.0, 3.0}, {40.0, 5.0}, {20.0, 30.0}});
    REQUIRE(vostel_listen(First, VOSTEL_OBJECT_ADDED, HearNothing, nullptr, &Token) == VOSTEL_OK);
}

BadInputWorld::~BadInputWorld()
{
    vostel_canvas_destroy(First);
    vostel_canvas_destroy(Second);
    VostelLimits defaults = {};
    defaults.size = sizeof defaults;
    vostel_set_limits(&defaults);
}

unsigned char* BadInputWorld::PlaceOf(std::size_t place)
{
    return Memory.data() + place * (PlaceBytes + 2 * GuardBytes) + GuardBytes + Shift;
}

void BadInputWorld::Fill(const void* bytes, std::size_t count, std::size_t place)
{
    std::memcpy(PlaceOf(place), bytes, count);
}

std::vector<unsigned char> BadInputWorld::RecordOf(const std::string& kind, std::size_t place)
{
    unsigned char* const samples = PlaceOf(place) + 256 - Shift;    // aligned, behind the record
    if (kind == "limits")
        return BytesOf(VostelLimits{});
    if (kind == "layout")
        return BytesOf(VostelRawLayout{0, VOSTEL_U8, Width, Height, 0, 0});
    if (kind == "info")
        return BytesOf(VostelImageInfo{});
    if (kind == "canvas-info")
        return BytesOf(VostelCanvasInfo{});
    if (kind == "contrast")
        return BytesOf(VostelContrastInfo{});
    if (kind == "view")
        return BytesOf(VostelView{0, 2.0, 3.0, 4.0});
    if (kind == "frame")
        return BytesOf(VostelFrame{});
    if (kind == "object-info")
        return BytesOf(VostelObjectInfo{});
    if (kind == "style")
        return BytesOf(VostelStyle{0, 1, 2, 3, 0x40112233, 2.0, 20.0});
    if (kind == "measures")
        return BytesOf(VostelMeasures{});
    if (kind == "profile")
        return BytesOf(VostelProfile{});
    if (kind == "history")
        return BytesOf(VostelHistoryInfo{});
    if (kind == "plane")
        return BytesOf(VostelPlane{});
    if (kind == "target")
        return BytesOf(PlaneOf(VOSTEL_BGRA8, 80, 60, samples));
    if (kind == "picture-target")
        return BytesOf(PlaneOf(VOSTEL_BGRA8, Width / 2, Height / 2, samples));
    if (kind == "image-plane")
        return BytesOf(PlaneOf(VOSTEL_U8, 32, 16, samples));
    if (kind == "kernel-plane")
        return BytesOf(PlaneOf(VOSTEL_U8, 3, 3, samples));
    if (kind == "result-plane")
        return BytesOf(PlaneOf(VOSTEL_U16, 32, 16, samples));
    if (kind == "layout-plane")
        return BytesOf(PlaneOf(VOSTEL_U8, Width, Height, samples));
    if (kind == "joined-plane")
        return BytesOf(PlaneOf(VOSTEL_F32, 56, 16, samples));
    return {};
}

const std::string* BadInputWorld::TextOfKind(const std::string& kind)
{
    const auto keep = [&](std::string text) {
        Texts.push_back(std::move(text));
        return &Texts.back();
    };
    const auto file = [&](const char* name) {
        if (!std::ifstream(Folder.Path(name)).good() && std::string(name) == "raw.bin")
            std::ofstream(Folder.Path(name), std::ios::binary) << std::string(Width * Height, 'x');
        return keep(Folder.Path(name));
    };
    if (kind == "picture") {
        const std::string* const path = file("given.png");
        REQUIRE(vostel_picture_save(First, path->c_str(), 1.0, 0) == VOSTEL_OK);
        return path;
    }
    if (kind == "session") {
        const std::string* const path = file("given.vostel.json");
        REQUIRE(vostel_session_save(First, path->c_str(), 0) == VOSTEL_OK);
        return path;
    }
    if (kind == "regions") {
        const std::string* const path = file("given.json");
        REQUIRE(vostel_regions_export(First, path->c_str(), "json") == VOSTEL_OK);
        return path;
    }
    if (kind == "region-text")
        return keep(R"({"format": "vostel-regions", "version": 1, "objects": [
            {"kind": "polygon", "name": "a name longer than a short one", "points": [[1, 2], [30, 4], [9, 40]]}]})");
    if (kind == "new-session" || kind == "new-regions")
        return file("new.json");
    if (kind == "region-format")
        return keep("json");
    if (kind == "new-picture")
        return file("new.png");
    if (kind == "raw")
        return file("raw.bin");
    if (kind == "language")
        return keep("en");
    if (kind == "map")
        return keep("fire");
    if (kind == "letters")
        return keep("ACD");
    if (kind == "format")
        return keep("csv");
    if (kind == "text")
        return keep("mm");
    return nullptr;
}

Value BadInputWorld::Good(const std::string& argument, std::size_t place)
{
    const std::string kind = KindOf(argument);
    if (kind == "canvas")
        return Whole(place == 0 ? First : Second);
    if (kind == "region")
        return Whole(static_cast<std::int64_t>(Region));
    if (kind == "line")
        return Whole(static_cast<std::int64_t>(Line));
    if (kind == "text-object")
        return Whole(static_cast<std::int64_t>(Text));
    if (kind == "token")
        return Whole(Token);
    if (kind == "finite" || kind == "positive")
        return Real(NumberOf(argument));
    if (kind == "capacity")
        return Whole(1200);
    if (kind == "length")
        return Whole(16);
    if (argument != kind)
        return Whole(static_cast<std::int64_t>(NumberOf(argument)));
    if (kind == "points") {
        const VostelPoint points[] = {{1.0, 1.0}, {20.0, 2.0}, {25.0, 25.0}, {3.0, 20.0}};
        Fill(points, sizeof points, place);
    } else if (kind == "objects") {
        const VostelObject objects[] = {Region, Line};
        Fill(objects, sizeof objects, place);
    } else if (kind == "reals") {
        const double reals[16] = {};
        Fill(reals, sizeof reals, place);
    } else if (const std::vector<unsigned char> record = RecordOf(kind, place); !record.empty()) {
        Fill(record.data(), record.size(), place);
    } else if (const std::string* const text = TextOfKind(kind)) {
        std::memcpy(PlaceOf(place), text->c_str(), text->size() + 1);
    }
    return Address(PlaceOf(place));
}

std::vector<BadValue> BadInputWorld::Bad(const std::string& argument, std::size_t place)
{
    const std::string     kind = KindOf(argument);
    const double          nan = std::numeric_limits<double>::quiet_NaN();
    const double          infinite = std::numeric_limits<double>::infinity();
    const BadValue        null = {"null", true, [] { return Value(); }};
    std::vector<BadValue> bad;
    if (kind == "canvas") {
        for (const std::int64_t number : {std::int64_t(-1), std::int64_t(Dead), std::int64_t(1000000000),
                                          std::int64_t(INT32_MAX), std::int64_t(INT32_MIN)})
            bad.push_back(BadWhole(number, true));
    } else if (kind == "region" || kind == "line" || kind == "text-object") {
        for (const VostelObject object : {Foreign, Gone, VostelObject(UINT64_MAX), VostelObject(1) << 63})
            bad.push_back(BadWhole(static_cast<std::int64_t>(object), true));
        bad.push_back(BadWhole(0, false));    // a histogram takes it for the whole image
        bad.push_back(BadWhole(static_cast<std::int64_t>(kind == "region" ? Text : Region), false));
    } else if (kind == "token") {
        for (const std::int64_t number : {std::int64_t(0), std::int64_t(-1), INT64_MAX, INT64_MIN})
            bad.push_back(BadWhole(number, true));
    } else if (kind == "finite" || kind == "positive") {
        for (const double number : {nan, infinite, -infinite})
            bad.push_back(BadReal(number, true));
        for (const double number : {0.0, -1.0})
            bad.push_back(BadReal(number, kind == "positive"));
        for (const double number : {1e300, -1e300, 1e-300, 1e10})
            bad.push_back(BadReal(number, false));
    } else if (kind == "side") {
        for (const std::int64_t number : {std::int64_t(0), std::int64_t(-1), std::int64_t(INT32_MIN)})
            bad.push_back(BadWhole(number, true));
        bad.push_back(BadWhole(INT32_MAX, false));
    } else if (kind == "type" || kind == "kind") {
        for (const std::int64_t number : {-1, 100, INT32_MAX, INT32_MIN})
            bad.push_back(BadWhole(number, true));
        bad.push_back(BadWhole(kind == "type" ? 0 : 2, true));
    } else if (kind == "distance") {
        for (const std::int64_t number :
             {std::int64_t(1), std::int64_t(-1), std::int64_t(PTRDIFF_MAX), std::int64_t(PTRDIFF_MIN)})
            bad.push_back(BadWhole(number, true));
    } else if (kind == "bits") {
        for (const std::int64_t number : {std::int64_t(0x80000000), std::int64_t(0xFFFFFFFF)})
            bad.push_back(BadWhole(number, false));
    } else if (kind == "whole") {
        for (const std::int64_t number : {std::int64_t(0), std::int64_t(-1), std::int64_t(INT32_MAX),
                                          std::int64_t(INT32_MIN), INT64_MAX, INT64_MIN})
            bad.push_back(BadWhole(number, false));
    } else if (kind == "count-in") {
        bad.push_back(BadWhole(0, false));
        bad.push_back(BadWhole(1, false));
        bad.push_back(BadWhole(-1, true));    // the largest there is
    } else if (kind == "capacity") {
        for (const std::int64_t number : {0, 1, -1})
            bad.push_back(BadWhole(number, false));
    } else if (kind == "length") {
        for (const std::int64_t number : {std::int64_t(0), std::int64_t(3), std::int64_t(-1), INT64_MIN})
            bad.push_back(BadWhole(number, true));
    } else if (kind == "user") {
        bad.push_back({"null", false, [] { return Value(); }});
    } else if (const std::vector<unsigned char> record = RecordOf(kind, place); !record.empty()) {
        bad.push_back({"null", kind != "profile", [] { return Value(); }});
        const auto spoilt = [&](const std::string& what, std::size_t at, std::uint32_t word, bool mustFail) {
            bad.push_back({what, mustFail, [this, record, place, at, word] {
                               Fill(record.data(), record.size(), place);
                               std::memcpy(PlaceOf(place) + at, &word, sizeof word);
                               return Address(PlaceOf(place));
                           }});
        };
        for (const std::uint32_t size : {0u, 1u, 4u})
            spoilt("size " + std::to_string(size), 0, size, true);
        spoilt("huge size", 0, UINT32_MAX, false);
        const bool        isPlane = kind.find("plane") != std::string::npos || kind.ends_with("target");
        const std::size_t numbers = isPlane ? offsetof(VostelPlane, data) : record.size();
        for (std::size_t at = 4; at < numbers; at += 4) {
            for (const std::uint32_t word : {0u, 0x80000000u, 0xFFFFFFFFu, 0x7FF00000u, 0x7F7F7F7Fu})
                spoilt("word " + std::to_string(word) + " at " + std::to_string(at), at, word, false);
        }
        if (isPlane && kind != "plane")
            bad.push_back({"null data", true, [this, record, place] {
                               Fill(record.data(), record.size(), place);
                               std::memset(PlaceOf(place) + offsetof(VostelPlane, data), 0, sizeof(void*));
                               return Address(PlaceOf(place));
                           }});
    } else if (kind == "count") {
        bad.push_back({"null", false, [] { return Value(); }});
    } else if (const std::string* const text = TextOfKind(kind)) {
        const bool isPath = text->starts_with(Folder.Path());
        const bool isFree = kind == "text";
        const bool isNew = kind == "new-session" || kind == "new-regions";    // may have any name
        bad.push_back({"null", kind != "region-format", [] { return Value(); }});
        const auto other = [&](const std::string& what, const std::string& given, bool mustFail) {
            bad.push_back({what, mustFail, [this, given, place] {
                               std::memcpy(PlaceOf(place), given.c_str(), given.size() + 1);
                               return Address(PlaceOf(place));
                           }});
        };
        other("not UTF-8", *text + "\xff", true);
        other("cut UTF-8", "\xe4\xbd", true);
        other("empty", "", !isFree && kind != "letters");
        other("long", std::string(10000, 'x'), !isFree);
        if (!isNew)
            other("control characters", "\x01\n\r\t", !isFree);
        if (isPath)
            other("no such folder", Folder.Path("none") + "/" + "file.png", true);
    } else {
        bad.push_back(null);
        if (kind == "points")
            for (const double number : {nan, infinite})
                bad.push_back({"point " + std::to_string(number), true, [this, place, number] {
                                   std::memcpy(PlaceOf(place) + 3 * sizeof number, &number, sizeof number);
                                   return Address(PlaceOf(place));
                               }});
        if (kind == "objects")
            bad.push_back({"foreign", true, [this, place] {
                               std::memcpy(PlaceOf(place) + sizeof Foreign, &Foreign, sizeof Foreign);
                               return Address(PlaceOf(place));
                           }});
    }
    return bad;
}

std::string BadInputWorld::Snapshot() const
{
    VostelView view = {};
    view.size = sizeof view;
    REQUIRE(vostel_view_get(First, &view) == VOSTEL_OK);
    double low = 0.0, high = 0.0;
    REQUIRE(vostel_contrast_get(First, &low, &high) == VOSTEL_OK);
    const VostelHistoryInfo history = HistoryOf(First);
    VostelObject            selected[16] = {};
    std::size_t             count = 0;
    REQUIRE(vostel_selection(First, selected, 16, &count) == VOSTEL_OK);
    char numbers[512];
    std::snprintf(numbers, sizeof numbers, "%a %a %a, %a %a, %u %u %llu %llu, %d", view.scale, view.left,
                  view.top, low, high, history.undo_count, history.redo_count,
                  static_cast<unsigned long long>(history.bytes),
                  static_cast<unsigned long long>(history.limit), static_cast<int>(count));
    return StateOf(First) + StateOf(Second) + numbers +
           std::string(reinterpret_cast<const char*>(Memory.data()), Memory.size());
}

bool BadInputWorld::GuardsStand() const
{
    for (std::size_t place = 0; place < Places; ++place) {
        const auto first =
            Memory.begin() + static_cast<std::ptrdiff_t>(place * (PlaceBytes + 2 * GuardBytes));
        const auto isGuard = [](unsigned char byte) { return byte == Guard; };
        if (!std::all_of(first, first + GuardBytes, isGuard) ||
            !std::all_of(first + GuardBytes + PlaceBytes, first + 2 * GuardBytes + PlaceBytes, isGuard))
            return false;
    }
    return true;
}
