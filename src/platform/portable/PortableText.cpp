// TextOutW and DrawTextW. Covered: left, centred and right lines, several lines, the single line with its
// two vertical placements, measuring, clipping, the & prefix, opaque and transparent backgrounds,
// underlined and struck out fonts. Left out: wrapping at words without DT_SINGLELINE, tab stops,
// ellipses, text from right to left as a whole, rotated fonts.

#include "platform/portable/PortableContext.h"
#include "platform/portable/TextRasteriser.h"

#include <algorithm>
#include <climits>
#include <cwchar>
#include <new>
#include <string>
#include <string_view>
#include <utility>

namespace vostel::gdi {
namespace {

// Bitmap pixels; left and top count in. Sums of client coordinates and text widths may leave 32 bits.
struct Box {
    long long Left, Top, Right, Bottom;
};

Box Shared(const Box& a, const Box& b)
{
    return {std::max(a.Left, b.Left), std::max(a.Top, b.Top), std::min(a.Right, b.Right),
            std::min(a.Bottom, b.Bottom)};
}

bool IsEmpty(const Box& box)
{
    return box.Left >= box.Right || box.Top >= box.Bottom;
}

void Fill(Bitmap& bitmap, const Box& box, COLORREF color)
{
    const std::uint32_t pixel = PixelOf(color);
    for (long long y = box.Top; y < box.Bottom; ++y) {
        unsigned char* row = bitmap.Row(static_cast<int>(y));
        if (bitmap.BitsPerPixel == 32) {
            std::uint32_t* first = reinterpret_cast<std::uint32_t*>(row) + box.Left;
            std::fill(first, first + (box.Right - box.Left), pixel);
            continue;
        }
        for (long long x = box.Left; x < box.Right; ++x) {
            row[x * 3] = static_cast<unsigned char>(pixel);
            row[x * 3 + 1] = static_cast<unsigned char>(pixel >> 8);
            row[x * 3 + 2] = static_cast<unsigned char>(pixel >> 16);
        }
    }
}

inline unsigned Mix(unsigned below, unsigned above, unsigned coverage)
{
    return (below * (255u - coverage) + above * coverage + 127u) / 255u;
}

// The image's upper left corner comes to left, top.
void Blend(Bitmap& bitmap, const Box& clip, const TextImage& image, long long left, long long top,
           COLORREF color)
{
    const Box box = Shared(clip, {left, top, left + image.Width, top + image.Height});
    if (IsEmpty(box))
        return;
    const unsigned red = color & 0xFFu, green = color >> 8 & 0xFFu, blue = color >> 16 & 0xFFu;
    const int      bytes = bitmap.BitsPerPixel / 8;
    const int      count = static_cast<int>(box.Right - box.Left);
    for (long long y = box.Top; y < box.Bottom; ++y) {
        const unsigned char* coverage =
            image.Coverage.data() +
            static_cast<std::size_t>(y - top) * static_cast<std::size_t>(image.Width) + (box.Left - left);
        unsigned char* pixel = bitmap.Row(static_cast<int>(y)) + box.Left * bytes;
        for (int i = 0; i < count; ++i, pixel += bytes) {
            const unsigned covered = coverage[i];
            if (covered == 0)
                continue;
            pixel[0] = static_cast<unsigned char>(Mix(pixel[0], blue, covered));
            pixel[1] = static_cast<unsigned char>(Mix(pixel[1], green, covered));
            pixel[2] = static_cast<unsigned char>(Mix(pixel[2], red, covered));
            if (bytes == 4)
                pixel[3] = 0;    // as with every other GDI drawing
        }
    }
}

// Width in pixels; gives up counting beyond the limit, when no more of the text can be seen.
long long WidthOf(const Font& font, const TextMetrics& metrics, std::wstring_view text,
                  long long limit = LLONG_MAX)
{
    TextRasteriser& rasteriser = TextRasteriser::Shared();
    long long       width = 0;
    for (std::size_t at = 0; at < text.size() && width <= limit; at += metrics.PieceLength)
        width += rasteriser.Advance(font, text.substr(at, metrics.PieceLength));
    return width;
}

constexpr std::size_t NoPrefix = static_cast<std::size_t>(-1);

// One line with its cell's upper left corner at left, top; the character at the prefix is underlined.
void DrawLine(Context& context, const Box& clip, std::wstring_view text, long long left, long long top,
              std::size_t prefix)
{
    Bitmap*     bitmap = context.Surface;
    const Font* font = context.SelectedFont;
    if (text.empty() || IsEmpty(clip) || !bitmap || bitmap->BitsPerPixel < 24)
        return;
    TextRasteriser&   rasteriser = TextRasteriser::Shared();
    const TextMetrics metrics = rasteriser.Metrics(*font);
    // Glyphs of stand-in faces may reach out of their cell, but never by more than a few cells.
    const long long reach = 4LL * metrics.Height;
    if (left - reach >= clip.Right || top - reach >= clip.Bottom || top + metrics.Height + reach <= clip.Top)
        return;

    const long long width = WidthOf(*font, metrics, text, clip.Right - left + reach);
    if (context.BkMode == OPAQUE) {
        const Box back = Shared(clip, {left, top, left + width, top + metrics.Height});
        if (!IsEmpty(back))
            Fill(*bitmap, back, context.BkColor);
    }
    const auto rule = [&](long long from, long long to, long long y, int thickness) {
        const Box box = Shared(clip, {from, y, to, y + thickness});
        if (!IsEmpty(box))
            Fill(*bitmap, box, context.TextColor);
    };

    const long long base = top + metrics.Ascent;
    const int       thickness = std::max(1, metrics.Height / 18);
    long long       pen = left;
    for (std::size_t at = 0; at < text.size() && pen - reach < clip.Right; at += metrics.PieceLength) {
        const std::wstring_view piece = text.substr(at, metrics.PieceLength);
        const int               advance = rasteriser.Advance(*font, piece);
        if (pen + advance + reach > clip.Left) {
            const auto image = rasteriser.Image(*font, piece);
            Blend(*bitmap, clip, *image, pen + image->Left, base + image->Top, context.TextColor);
        }
        pen += advance;
    }
    if (font->Underline)
        rule(left, left + width, base + 1, thickness);
    if (font->StrikeOut)
        rule(left, left + width, base - metrics.Ascent / 3, thickness);
    if (prefix < text.size()) {
        // Drawn as a line, whose last pixel GDI leaves out.
        const long long from = left + WidthOf(*font, metrics, text.substr(0, prefix));
        rule(from, from + WidthOf(*font, metrics, text.substr(prefix, 1)) - 1, base + 1, 1);
    }
}

// Takes the & marks out: a double one stays as one, a single one marks the character after it, and the
// last mark of a line counts. One at the very end of a text marks nothing and stays.
std::size_t TakePrefixes(std::wstring_view line, bool lastLine, std::wstring& plain)
{
    std::size_t marked = NoPrefix;
    plain.clear();
    for (std::size_t i = 0; i < line.size(); ++i) {
        if (line[i] == L'&') {
            const bool atEnd = i + 1 == line.size();
            if (!atEnd && line[i + 1] == L'&') {
                ++i;
            } else if (!atEnd) {
                marked = plain.size();
                continue;
            } else if (!lastLine) {
                continue;
            }
        }
        plain += line[i];
    }
    return marked;
}

// Cuts the next line off the text. A line ends with a return, a feed, or one of each in either order.
std::wstring_view TakeLine(std::wstring_view& rest)
{
    const std::size_t       end = rest.find_first_of(L"\r\n");
    const std::wstring_view line = rest.substr(0, end);
    if (end == std::wstring_view::npos) {
        rest = {};
        return line;
    }
    const bool pair = end + 1 < rest.size() && (rest[end + 1] == L'\r' || rest[end + 1] == L'\n') &&
                      rest[end + 1] != rest[end];
    rest.remove_prefix(end + (pair ? 2 : 1));
    return line;
}

LONG Narrowed(long long value)
{
    return static_cast<LONG>(std::clamp<long long>(value, INT_MIN, INT_MAX));
}

// The lines of a text one after the other, their & marks taken out if the format asks for it.
class LineReader {
public:
    LineReader(std::wstring_view text, UINT format) : Rest(text), Format(format) {}

    // False when there is no other line. The line is valid until the next call.
    bool Next(std::wstring_view& line, std::size_t& marked)
    {
        if (Rest.empty())
            return false;
        if (Format & DT_SINGLELINE)
            line = std::exchange(Rest, {});
        else
            line = TakeLine(Rest);
        marked = NoPrefix;
        if ((Format & DT_NOPREFIX) == 0 && line.find(L'&') != std::wstring_view::npos) {
            marked = TakePrefixes(line, Rest.empty(), Plain);
            line = Plain;
        }
        return true;
    }

private:
    std::wstring_view Rest;
    UINT              Format;
    std::wstring      Plain;
};

// What DrawTextW returns for lines of this height: 0 would mean failure.
int HeightResult(long long height)
{
    const LONG narrowed = Narrowed(height);
    return narrowed == 0 ? 1 : narrowed;
}

// Sizes the rectangle to the text.
int MeasureLines(const Font& font, const TextMetrics& metrics, std::wstring_view text, RECT& rect,
                 UINT format)
{
    LineReader        lines(text, format);
    std::wstring_view line;
    std::size_t       marked = NoPrefix;
    long long         widest = 0, bottom = rect.top;
    while (lines.Next(line, marked)) {
        widest = std::max(widest, WidthOf(font, metrics, line));
        bottom += metrics.Height;
    }
    rect.right = Narrowed(rect.left + widest);
    rect.bottom = Narrowed(bottom);
    return text.empty() ? metrics.Height : HeightResult(bottom - rect.top);
}

// The bitmap pixels that the text may touch.
Box ClipOf(const Context& context, const RECT& rect, UINT format)
{
    Box clip{0, 0, 0, 0};
    if (context.Surface)
        clip = {0, 0, context.Surface->Width, context.Surface->Height};
    if (format & DT_NOCLIP)
        return clip;
    const long long x = context.Origin.x, y = context.Origin.y;
    return Shared(clip, {std::min(rect.left, rect.right) + x, std::min(rect.top, rect.bottom) + y,
                         std::max(rect.left, rect.right) + x, std::max(rect.top, rect.bottom) + y});
}

// Where the first line begins; only a single line is placed otherwise than at the top.
long long FirstTop(const RECT& rect, UINT format, int lineHeight)
{
    if ((format & DT_SINGLELINE) && (format & DT_VCENTER))
        return (static_cast<long long>(rect.top) + rect.bottom - lineHeight) / 2;
    if ((format & DT_SINGLELINE) && (format & DT_BOTTOM))
        return static_cast<long long>(rect.bottom) - lineHeight;
    return rect.top;
}

long long LineLeft(const RECT& rect, UINT format, const Font& font, const TextMetrics& metrics,
                   std::wstring_view line)
{
    if (format & DT_CENTER)
        return (static_cast<long long>(rect.left) + rect.right - WidthOf(font, metrics, line)) / 2;
    if (format & DT_RIGHT)
        return rect.right - WidthOf(font, metrics, line);
    return rect.left;
}

// The faces in use ask for no leading between lines, so DT_EXTERNALLEADING adds none.
int DrawLines(Context& context, const TextMetrics& metrics, std::wstring_view text, const RECT& rect,
              UINT format)
{
    if (text.empty())
        return metrics.Height;
    const Font&       font = *context.SelectedFont;
    const Box         clip = ClipOf(context, rect, format);
    LineReader        lines(text, format);
    std::wstring_view line;
    std::size_t       marked = NoPrefix;
    long long         top = FirstTop(rect, format, metrics.Height);
    while (lines.Next(line, marked)) {
        const long long left = LineLeft(rect, format, font, metrics, line);
        DrawLine(context, clip, line, left + context.Origin.x, top + context.Origin.y, marked);
        top += metrics.Height;
        if ((format & DT_NOCLIP) == 0 && top > rect.bottom)
            break;    // what follows lies below the rectangle
    }
    return HeightResult(top - rect.top);
}

// Length -1: up to the terminator. False for a null pointer with a length above 0, and for a length below -1.
bool TextOf(LPCWSTR text, int length, std::wstring_view& view)
{
    if (!text)
        length = length > 0 ? -2 : 0;
    if (length < -1)
        return false;
    view = length == 0
               ? std::wstring_view()
               : std::wstring_view(text, length == -1 ? std::wcslen(text) : static_cast<std::size_t>(length));
    return true;
}

}
}

using namespace vostel::gdi;

BOOL TextOutW(HDC dc, int x, int y, LPCWSTR text, int length)
{
    Context*          context = FindContext(dc);
    std::wstring_view view;
    if (!context || !context->SelectedFont || !context->Surface || !TextOf(text, length, view))
        return FALSE;
    try {
        DrawLine(*context, {0, 0, context->Surface->Width, context->Surface->Height}, view,
                 static_cast<long long>(x) + context->Origin.x, static_cast<long long>(y) + context->Origin.y,
                 NoPrefix);
    } catch (const std::bad_alloc&) {
        return FALSE;
    }
    return TRUE;
}

int DrawTextW(HDC dc, LPCWSTR text, int length, RECT* rect, UINT format)
{
    Context*          context = FindContext(dc);
    std::wstring_view view;
    if (!context || !context->SelectedFont || !rect || !TextOf(text, length, view))
        return 0;
    try {
        const TextMetrics metrics = TextRasteriser::Shared().Metrics(*context->SelectedFont);
        return format & DT_CALCRECT ? MeasureLines(*context->SelectedFont, metrics, view, *rect, format)
                                    : DrawLines(*context, metrics, view, *rect, format);
    } catch (const std::bad_alloc&) {
        return 0;
    }
}
