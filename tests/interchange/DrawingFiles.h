#pragma once

// Drawings that tests save, and what their files hold. The readers take what the writers make, strictly.

#include "support/LoadedFrame.h"
#include "support/OpenCanvas.h"
#include "support/OpenShapes.h"
#include "support/TempFolder.h"

#include "vostel.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <utility>
#include <vector>
#include <zlib.h>

constexpr std::uint32_t AllParts = VOSTEL_WITH_OBJECTS | VOSTEL_WITH_CAPTIONS | VOSTEL_WITH_HANDLES;

inline std::string SaveBytes(int32_t canvas, const std::string& ending, double scale, std::uint32_t flags)
{
    TempFolder        folder;
    const std::string path = folder.Path("drawing" + ending);
    REQUIRE(vostel_picture_save(canvas, path.c_str(), scale, flags) == VOSTEL_OK);
    const std::vector<unsigned char> bytes = ReadBytes(path);
    return {bytes.begin(), bytes.end()};
}

inline Frame SaveFrame(int32_t canvas, double scale, std::uint32_t flags)
{
    TempFolder        folder;
    const std::string path = folder.Path("picture.png");
    REQUIRE(vostel_picture_save(canvas, path.c_str(), scale, flags) == VOSTEL_OK);
    return LoadFrame(path);
}

inline Frame FrameOfPng(const std::string& bytes)
{
    TempFolder        folder;
    const std::string path = folder.Path("held.png");
    REQUIRE(WriteBytes(path, {bytes.begin(), bytes.end()}));
    return LoadFrame(path);
}

inline void SetLook(int32_t canvas, VostelObject object, double width, std::uint32_t line, std::uint32_t fill)
{
    VostelStyle style = {};
    style.size = sizeof style;
    REQUIRE(vostel_object_style(canvas, object, &style) == VOSTEL_OK);
    style.line_width = width;
    style.line_color = line;
    style.fill_color = fill;
    REQUIRE(vostel_object_set_style(canvas, object, &style) == VOSTEL_OK);
}

// One object of every kind that lies on the image, of several widths and colors, on an image of 400 x 300.
inline void AddEveryKind(int32_t canvas, double widest = 4.0)
{
    const auto add = [&](VostelKind kind, const Points& points, double width = 1.0, std::uint32_t line = 0xFF,
                         std::uint32_t fill = 0) {
        const VostelObject object = Add(canvas, kind, points);
        SetLook(canvas, object, std::min(width, widest), line, fill);
        return object;
    };
    add(VOSTEL_RECTANGLE, {{10.3, 12.6}, {70.2, 50.9}}, 1.0, 0x008000, 0x80FF8000);
    const VostelObject ellipse =
        add(VOSTEL_RECTANGLE, {{80.0, 10.0}, {150.0, 60.0}}, 2.0, 0xC00000, 0x4000FF00);
    REQUIRE(vostel_object_set_flags(canvas, ellipse, VOSTEL_ELLIPSE) == VOSTEL_OK);
    add(VOSTEL_POLYGON, {{170.0, 15.0}, {230.0, 20.0}, {215.0, 64.0}, {180.0, 30.0}}, 3.0, 0xFF, 0xFFFFFF00);
    add(VOSTEL_SPLINE, {{250.0, 20.0}, {300.0, 10.0}, {320.0, 55.0}, {260.0, 70.0}}, 1.0, 0x800080,
        0x600000FF);
    add(VOSTEL_FREE_REGION, {{335.0, 15.0}, {380.0, 18.0}, {390.0, 50.0}, {350.0, 66.0}, {340.0, 40.0}});
    add(VOSTEL_FREE_STROKES, {{20.0, 80.0}, {40.0, 95.0}, {70.0, 85.0}, {60.0, 110.0}}, 4.0);
    add(VOSTEL_POLYLINE, {{100.0, 90.0}, {130.0, 120.0}, {160.0, 95.0}}, 2.0, 0x008080);
    add(VOSTEL_ARROW, {{180.0, 110.0}, {230.0, 80.0}});
    add(VOSTEL_ARROW, {{240.0, 80.0}, {290.0, 112.0}}, 4.0, 0x404040);
    add(VOSTEL_POINTS, {{300.5, 90.5}, {310.0, 105.0}, {320.0, 85.0}}, 1.0, 0xC00000);
    add(VOSTEL_PROFILE, {{20.0, 140.0}, {90.0, 150.0}});
    add(VOSTEL_LENGTH, {{20.0, 250.0}, {110.0, 280.0}});
    add(VOSTEL_ANGLE, {{200.0, 200.0}, {160.0, 250.0}, {230.0, 260.0}}, 2.0);
    add(VOSTEL_ANGLE_LINES, {{260.0, 200.0}, {300.0, 280.0}, {250.0, 280.0}, {330.0, 210.0}});
    const VostelObject text = add(VOSTEL_TEXT, {{280.0, 150.0}});
    REQUIRE(vostel_object_set_text(canvas, text, "Probe 孔 A") == VOSTEL_OK);
}

// A start tag of an XML document with the text up to the next tag.
struct XmlElement {
    std::string                        Name;
    std::map<std::string, std::string> Attributes;
    std::string                        Text;

    double Number(const std::string& attribute) const
    {
        const auto found = Attributes.find(attribute);
        INFO(Name, " ", attribute);
        REQUIRE(found != Attributes.end());
        return std::stod(found->second);
    }
};

inline std::string WithoutEntities(std::string text)
{
    const std::vector<std::pair<std::string, std::string>> entities = {
        {"&lt;", "<"}, {"&gt;", ">"}, {"&quot;", "\""}, {"&#13;", "\r"}, {"&amp;", "&"}};
    for (const auto& [entity, character] : entities) {
        for (std::size_t at = 0; (at = text.find(entity, at)) != std::string::npos; at += character.size())
            text.replace(at, entity.size(), character);
    }
    return text;
}

// All elements in their order; fails unless every one is closed.
inline std::vector<XmlElement> ElementsOf(const std::string& xml)
{
    std::vector<XmlElement>  elements;
    std::vector<std::string> open;
    std::size_t              at = xml.find("?>");
    REQUIRE(at != std::string::npos);
    for (at = xml.find('<', at); at != std::string::npos; at = xml.find('<', at)) {
        const std::size_t end = xml.find('>', at);
        REQUIRE(end != std::string::npos);
        const std::string tag = xml.substr(at + 1, end - at - 1);
        at = end + 1;
        if (tag[0] == '/') {
            REQUIRE(!open.empty());
            REQUIRE(open.back() == tag.substr(1));
            open.pop_back();
            continue;
        }
        XmlElement  element;
        std::size_t place = tag.find_first_of(" /");
        element.Name = tag.substr(0, place);
        while (place < tag.size() && tag[place] == ' ') {
            const std::size_t equals = tag.find("=\"", place);
            const std::size_t quote = tag.find('"', equals + 2);
            REQUIRE(quote != std::string::npos);
            const std::string name = tag.substr(place + 1, equals - place - 1);
            REQUIRE(element.Attributes.emplace(name, tag.substr(equals + 2, quote - equals - 2)).second);
            place = quote + 1;
        }
        if (tag.back() != '/')
            open.push_back(element.Name);
        element.Text = WithoutEntities(xml.substr(at, xml.find('<', at) - at));
        elements.push_back(element);
    }
    REQUIRE(open.empty());
    return elements;
}

inline std::vector<XmlElement> Named(const std::vector<XmlElement>& elements, const std::string& name)
{
    std::vector<XmlElement> found;
    for (const XmlElement& element : elements) {
        if (element.Name == name)
            found.push_back(element);
    }
    return found;
}

inline std::string BytesOfBase64(const std::string& text)
{
    const std::string digits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string       bytes;
    unsigned int      held = 0;
    int               bits = 0;
    for (const char digit : text) {
        if (digit == '=')
            break;
        const std::size_t value = digits.find(digit);
        REQUIRE(value != std::string::npos);
        held = held << 6 | static_cast<unsigned int>(value);
        bits += 6;
        if (bits >= 8)
            bytes += static_cast<char>(held >> (bits -= 8) & 0xFF);
    }
    return bytes;
}

inline Frame ImageOfSvg(const std::vector<XmlElement>& elements)
{
    const std::string prefix = "data:image/png;base64,";
    const std::string link = Named(elements, "image").at(0).Attributes.at("xlink:href");
    REQUIRE(link.substr(0, prefix.size()) == prefix);
    return FrameOfPng(BytesOfBase64(link.substr(prefix.size())));
}

inline std::string Inflated(const std::string& bytes)
{
    std::string made;
    z_stream    stream = {};
    REQUIRE(inflateInit(&stream) == Z_OK);
    stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(bytes.data()));
    stream.avail_in = static_cast<uInt>(bytes.size());
    int result = Z_OK;
    while (result == Z_OK) {
        char block[4096];
        stream.next_out = reinterpret_cast<Bytef*>(block);
        stream.avail_out = sizeof block;
        result = inflate(&stream, Z_NO_FLUSH);
        made.append(block, sizeof block - stream.avail_out);
    }
    inflateEnd(&stream);
    REQUIRE(result == Z_STREAM_END);
    REQUIRE(stream.avail_in == 0);
    return made;
}

// A PDF file by its table of objects. Fails unless every entry of it leads to its object.
class PdfReader {
public:
    explicit PdfReader(std::string bytes) : Bytes(std::move(bytes))
    {
        REQUIRE(Bytes.substr(0, 8) == "%PDF-1.4");
        const std::size_t start = Bytes.rfind("startxref\n");
        REQUIRE(start != std::string::npos);
        std::size_t at = std::stoul(Bytes.substr(start + 10));
        REQUIRE(Bytes.substr(at, 7) == "xref\n0 ");
        const std::size_t count = std::stoul(Bytes.substr(at + 7));
        at = Bytes.find('\n', at + 7) + 1;
        CHECK(Bytes.substr(at, 20) == "0000000000 65535 f \n");
        for (std::size_t i = 1; i < count; ++i) {
            const std::string entry = Bytes.substr(at + 20 * i, 20);
            REQUIRE(entry.substr(10) == " 00000 n \n");
            const std::size_t place = std::stoul(entry);
            const std::string head = std::to_string(i) + " 0 obj\n";
            REQUIRE(Bytes.substr(place, head.size()) == head);
            Places.push_back(place + head.size());
        }
        Trailer = Bytes.substr(at + 20 * count, start - at - 20 * count);
        REQUIRE(Trailer.substr(0, 8) == "trailer\n");
    }

    std::string Trailer;

    std::size_t Count() const { return Places.size(); }

    // The dictionary of an object.
    std::string Dictionary(std::size_t number) const
    {
        const std::size_t place = Places.at(number - 1);
        const std::size_t stream = Bytes.find("\nstream\n", place);
        const std::size_t end = Bytes.find("\nendobj\n", place);
        return Bytes.substr(place, std::min(stream, end) - place);
    }

    std::string Stream(std::size_t number) const
    {
        const std::string dictionary = Dictionary(number);
        const std::size_t length = std::stoul(dictionary.substr(dictionary.rfind("/Length ") + 8));
        const std::size_t begin = Places.at(number - 1) + dictionary.size() + 8;
        REQUIRE(Bytes.substr(begin + length, 18) == "\nendstream\nendobj\n");
        return Bytes.substr(begin, length);
    }

    // The number of the one object whose dictionary says that.
    std::size_t Find(const std::string& entry) const
    {
        std::size_t found = 0;
        for (std::size_t number = 1; number <= Count(); ++number) {
            if (Dictionary(number).find(entry) == std::string::npos)
                continue;
            REQUIRE(found == 0);
            found = number;
        }
        INFO(entry);
        REQUIRE(found != 0);
        return found;
    }

    // What a reference behind a name leads to.
    std::size_t Follow(std::size_t number, const std::string& name) const
    {
        const std::string dictionary = Dictionary(number);
        const std::size_t at = dictionary.find(name + " ");
        INFO(dictionary);
        REQUIRE(at != std::string::npos);
        return std::stoul(dictionary.substr(dictionary.find_first_of("0123456789", at + name.size())));
    }

    std::string Content() const { return Inflated(Stream(Follow(Find("/Type /Page "), "/Contents"))); }

private:
    std::string              Bytes;
    std::vector<std::size_t> Places;
};

inline void AppendPngChunk(std::string& png, const std::string& body)
{
    const auto append = [&](std::size_t value) {
        for (int shift = 24; shift >= 0; shift -= 8)
            png += static_cast<char>(value >> shift & 0xFF);
    };
    append(body.size() - 4);
    png += body;
    append(crc32(0, reinterpret_cast<const Bytef*>(body.data()), static_cast<uInt>(body.size())));
}

// Predictor 15 is what rows of a PNG file have: the stream of the image is put into one.
inline Frame ImageOfPdf(const PdfReader& pdf)
{
    const std::size_t number = pdf.Find("/Subtype /Image");
    const std::string dictionary = pdf.Dictionary(number);
    REQUIRE(dictionary.find("/Filter /FlateDecode /DecodeParms << /Predictor 15 ") != std::string::npos);
    const bool  gray = dictionary.find("/DeviceGray") != std::string::npos;
    const auto  width = pdf.Follow(number, "/Width");
    const auto  height = pdf.Follow(number, "/Height");
    std::string header = "IHDR";
    for (const std::size_t side : {width, height}) {
        for (int shift = 24; shift >= 0; shift -= 8)
            header += static_cast<char>(side >> shift & 0xFF);
    }
    header += {'\x08', gray ? '\x00' : '\x02', '\0', '\0', '\0'};
    std::string png = "\x89PNG\r\n\x1A\n";
    AppendPngChunk(png, header);
    AppendPngChunk(png, "IDAT" + pdf.Stream(number));
    AppendPngChunk(png, "IEND");
    return FrameOfPng(png);
}
