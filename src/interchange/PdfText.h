#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace vostel {

// The font of a PDF file's unseen text: its glyphs are boxes of full and of half width, and each character
// that occurs has a number and a line in the table that turns numbers back into text.
class PdfTextFont {
public:
    // The numbers of a line's characters in hexadecimal digits, as a string operand holds them.
    std::string NumbersOf(std::wstring_view line);
    // Of the line in a font of size 1.
    double WidthOf(std::wstring_view line) const;

    bool IsEmpty() const { return Characters.empty(); }

    // What the objects of the font hold.
    std::string        Widths() const;             // array of widths from number 1 on
    std::string        GlyphsOfNumbers() const;    // two bytes for each number from 0 on
    std::string        ToUnicode() const;
    static std::string TrueTypeFile();

private:
    std::map<char32_t, std::size_t> Numbers;
    std::vector<char32_t>           Characters;    // of numbers from 1 on
};

}
