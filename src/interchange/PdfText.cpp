#include "interchange/PdfText.h"

#include "base/Utf8.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <initializer_list>
#include <utility>

namespace vostel {

namespace {

constexpr std::size_t MostNumbers = 0xFFFF;
constexpr int         UnitsPerEm = 1000;
constexpr int         Ascent = 800;
constexpr int         Descent = -200;
constexpr char32_t    FirstWide = 0x2E80;    // from the CJK radicals on

int UnitsOf(char32_t character)
{
    return character < FirstWide ? UnitsPerEm / 2 : UnitsPerEm;
}

void AppendHex(std::string& text, std::uint32_t value)
{
    for (int shift = 12; shift >= 0; shift -= 4)
        text += "0123456789ABCDEF"[value >> shift & 0xF];
}

void AppendUtf16(std::string& text, char32_t character)
{
    if (character < 0x10000) {
        AppendHex(text, character);
        return;
    }
    AppendHex(text, 0xD800 + ((character - 0x10000) >> 10));
    AppendHex(text, 0xDC00 + ((character - 0x10000) & 0x3FF));
}

// Numbers of a TrueType file, high byte first.
std::string Shorts(std::initializer_list<int> values)
{
    std::string bytes;
    for (const int value : values) {
        bytes += static_cast<char>(value >> 8 & 0xFF);
        bytes += static_cast<char>(value & 0xFF);
    }
    return bytes;
}

std::string Long(std::uint32_t value)
{
    return Shorts({static_cast<int>(value >> 16), static_cast<int>(value & 0xFFFF)});
}

std::uint32_t SumOf(std::string_view bytes)
{
    std::uint32_t sum = 0;
    for (std::size_t i = 0; i < bytes.size(); ++i)
        sum += static_cast<std::uint32_t>(static_cast<unsigned char>(bytes[i])) << (24 - 8 * (i % 4));
    return sum;
}

void Pad(std::string& bytes)
{
    bytes.append((4 - bytes.size() % 4) % 4, '\0');
}

// A glyph that fills its cell. Some programs overlook unseen text of glyphs without an extent.
std::string BoxGlyph(int width)
{
    std::string outline = Shorts({1, 0, Descent, width, Ascent, 3, 0}) +
                          std::string(4, '\x01') /* points on the curve */ + Shorts({0, 0, width, 0}) +
                          Shorts({Descent, Ascent - Descent, 0, Descent - Ascent});
    Pad(outline);
    return outline;
}

}

std::string PdfTextFont::NumbersOf(std::wstring_view line)
{
    std::string digits;
    for (const char32_t character : CharactersOf(line)) {
        const auto known = Numbers.find(character);
        if (known == Numbers.end() && Characters.size() == MostNumbers)
            continue;
        if (known == Numbers.end()) {
            Characters.push_back(character);
            Numbers.emplace(character, Characters.size());
        }
        AppendHex(digits, static_cast<std::uint32_t>(Numbers.at(character)));
    }
    return digits;
}

double PdfTextFont::WidthOf(std::wstring_view line) const
{
    double units = 0.0;
    for (const char32_t character : CharactersOf(line))
        units += Numbers.contains(character) ? UnitsOf(character) : 0;
    return units / UnitsPerEm;
}

std::string PdfTextFont::Widths() const
{
    std::string widths = "[1 [";
    for (const char32_t character : Characters)
        widths += std::to_string(UnitsOf(character)) + ' ';
    return widths + "]]";
}

std::string PdfTextFont::GlyphsOfNumbers() const
{
    std::string glyphs = Shorts({0});
    for (const char32_t character : Characters)
        glyphs += Shorts({UnitsOf(character) == UnitsPerEm ? 1 : 2});
    return glyphs;
}

std::string PdfTextFont::ToUnicode() const
{
    constexpr std::size_t MostOfBlock = 100;
    std::string           map = "/CIDInit /ProcSet findresource begin\n12 dict begin\nbegincmap\n"
                                "/CIDSystemInfo << /Registry (Adobe) /Ordering (UCS) /Supplement 0 >> def\n"
                                "/CMapName /Adobe-Identity-UCS def\n/CMapType 2 def\n"
                                "1 begincodespacerange\n<0000> <FFFF>\nendcodespacerange\n";
    for (std::size_t begin = 0; begin < Characters.size(); begin += MostOfBlock) {
        const std::size_t end = std::min(Characters.size(), begin + MostOfBlock);
        map += std::to_string(end - begin) + " beginbfchar\n";
        for (std::size_t i = begin; i < end; ++i) {
            map += '<';
            AppendHex(map, static_cast<std::uint32_t>(i + 1));
            map += "> <";
            AppendUtf16(map, Characters[i]);
            map += ">\n";
        }
        map += "endbfchar\n";
    }
    return map + "endcmap\nCMapName currentdict /CMap defineresource pop\nend\nend\n";
}

// Glyph 0 stands for what is missing, 1 is of full and 2 of half width.
std::string PdfTextFont::TrueTypeFile()
{
    const std::string glyf = BoxGlyph(UnitsPerEm) + BoxGlyph(UnitsPerEm / 2);
    const int         halves = static_cast<int>(glyf.size()) / 4;    // of a glyph; places count by twos
    const auto        head = [](std::uint32_t adjustment) {
        return Long(0x10000) + Long(0x10000) + Long(adjustment) + Long(0x5F0F3CF5) + Shorts({0, UnitsPerEm}) +
               std::string(16, '\0') /* dates */ + Shorts({0, Descent, UnitsPerEm, Ascent, 0, 8, 2, 0, 0});
    };
    const std::string hhea = Long(0x10000) +
                             Shorts({Ascent, Descent, 0, UnitsPerEm, 0, 0, UnitsPerEm, 1, 0, 0}) +
                             Shorts({0, 0, 0, 0, 0, 3});
    const std::string hmtx = Shorts({UnitsPerEm, 0, UnitsPerEm, 0, UnitsPerEm / 2, 0});
    const std::string maxp = Long(0x10000) + Shorts({3, 4, 1, 0, 0, 2, 0, 0, 0, 0, 0, 0, 0, 0});
    const auto        fileOf = [&](std::uint32_t adjustment) {
        const std::array<std::pair<const char*, std::string>, 6> tables = {
            {{"glyf", glyf},
             {"head", head(adjustment)},
             {"hhea", hhea},
             {"hmtx", hmtx},
             {"loca", Shorts({0, 0, halves, 2 * halves})},
             {"maxp", maxp}}};
        std::string directory = Long(0x10000) + Shorts({6, 64, 2, 32});
        std::string body;
        for (const auto& [tag, table] : tables) {
            const std::size_t place = 12 + 16 * tables.size() + body.size();
            // The sum of the head is that without its adjustment.
            directory += tag + Long(SumOf(std::string_view(tag) == "head" ? head(0) : table)) +
                         Long(static_cast<std::uint32_t>(place)) +
                         Long(static_cast<std::uint32_t>(table.size()));
            body += table;
            Pad(body);
        }
        return directory + body;
    };
    return fileOf(0xB1B0AFBA - SumOf(fileOf(0)));
}

}
