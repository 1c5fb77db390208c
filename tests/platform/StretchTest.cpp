#include "common/MemoryBitmap.h"

#include <VostelObj.h>

#include <doctest/doctest.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <random>
#include <string>
#include <vector>

namespace {

using Wide = long long;

// A bitmap whose rows run either way.
class Canvas : public MemoryBitmap {
public:
    Canvas(int width, int height, int bits = 32, bool topDown = true)
        : MemoryBitmap(width, height, bits, topDown)
    {
    }

    // Every pixel of its own color, and with a high byte.
    void Number()
    {
        for (int y = 0; y < Height; ++y)
            for (int x = 0; x < Width; ++x)
                SetPixelAt(x, y,
                           0xA5000000u | static_cast<unsigned>(y + 1) << 8 | static_cast<unsigned>(x + 1));
    }
};

// One axis of a stretch.
struct Axis {
    int Target = 0, TargetExtent = 1, Source = 0, SourceExtent = 1;
};

// GDI's rule for one axis. The source pixels whose centres fall on a target pixel, or for a target pixel
// that none falls on the one that holds its centre (on a border the one before it). Of a run columns keep
// the last pixel, rows the first, counted in walking direction, among those of the bitmap. -1: not drawn.
void RunOf(const Axis& axis, int target, int size, std::vector<int>& run)
{
    run.clear();
    const Wide targetLength = std::abs(Wide{axis.TargetExtent});
    const Wide sourceLength = std::abs(Wide{axis.SourceExtent});
    const Wide i = axis.TargetExtent > 0 ? Wide{target} - axis.Target : Wide{axis.Target} - target;
    if (i < 0 || i >= targetLength)
        return;
    Wide first = i, last = i;
    if (sourceLength < targetLength)
        first = last = ((2 * i + 1) * sourceLength - 1) / (2 * targetLength);
    if (sourceLength > targetLength) {
        first = i == 0 ? 0 : (2 * i * sourceLength - targetLength) / (2 * targetLength) + 1;
        last = (2 * (i + 1) * sourceLength - targetLength) / (2 * targetLength);
        if (axis.TargetExtent == 1 && axis.SourceExtent > 0)
            last = sourceLength - 2;
    }
    for (Wide j = first; j <= last; ++j) {
        const Wide at = axis.SourceExtent > 0 ? axis.Source + j : axis.Source - j;
        if (at >= 0 && at < size)
            run.push_back(static_cast<int>(at));
    }
}

std::uint32_t Expected(const Canvas& source, const Axis& columns, const Axis& rows, int x, int y, int mode,
                       std::uint32_t before)
{
    static std::vector<int> across, down;
    RunOf(columns, x, source.Width, across);
    RunOf(rows, y, source.Height, down);
    if (across.empty() || down.empty())
        return before;
    if (mode == COLORONCOLOR)
        return source.PixelAt(across.back(), down.front());
    std::uint32_t joined = source.PixelAt(across.front(), down.front());
    for (int row : down)
        for (int column : across)
            joined = mode == 1 ? joined & source.PixelAt(column, row) : joined | source.PixelAt(column, row);
    return joined;
}

std::string Text(const Axis& columns, const Axis& rows)
{
    const auto one = [](const Axis& axis) {
        return std::to_string(axis.Target) + "+" + std::to_string(axis.TargetExtent) + " from " +
               std::to_string(axis.Source) + "+" + std::to_string(axis.SourceExtent);
    };
    return "columns " + one(columns) + ", rows " + one(rows);
}

bool Stretch(const Canvas& target, const Axis& columns, const Axis& rows, const Canvas& source)
{
    const BOOL done =
        StretchBlt(target.Dc, columns.Target, rows.Target, columns.TargetExtent, rows.TargetExtent, source.Dc,
                   columns.Source, rows.Source, columns.SourceExtent, rows.SourceExtent, SRCCOPY);
    GdiFlush();
    return done != FALSE;
}

int CountWrong(const Canvas& target, const Canvas& source, const Axis& columns, const Axis& rows, int mode,
               std::uint32_t before)
{
    int wrong = 0;
    for (int y = 0; y < target.Height; ++y)
        for (int x = 0; x < target.Width; ++x)
            wrong += target.PixelAt(x, y) != Expected(source, columns, rows, x, y, mode, before);
    return wrong;
}

// Anywhere in and around the bitmaps; a mirrored axis stays within the source, where GDI's rule is clear.
Axis RandomAxis(std::mt19937& random, int targetSize, int sourceSize)
{
    const auto between = [&random](int low, int high) {
        return low + static_cast<int>(random() % static_cast<unsigned>(high - low + 1));
    };
    Axis axis;
    do {
        axis.TargetExtent = between(0, 7) == 0 ? 1 : between(-2 * targetSize, 2 * targetSize);
        axis.SourceExtent = between(-2 * sourceSize, 2 * sourceSize);
    } while (axis.TargetExtent == 0 || axis.SourceExtent == 0);
    axis.Target = between(-targetSize, targetSize);
    const bool mirrored = (axis.TargetExtent < 0) != (axis.SourceExtent < 0);
    if (mirrored || between(0, 2) != 0) {
        const int length = std::min(std::abs(axis.SourceExtent), sourceSize);
        axis.Source = between(0, sourceSize - length) + (axis.SourceExtent < 0 ? length - 1 : 0);
        axis.SourceExtent = axis.SourceExtent < 0 ? -length : length;
    } else {
        axis.Source = between(-sourceSize, sourceSize);
    }
    return axis;
}

void CheckRandomStretches(int mode, int count, unsigned seed)
{
    CAPTURE(mode);
    CAPTURE(seed);
    std::mt19937 random(seed);
    for (int order = 0; order < 4; ++order) {
        Canvas source(13, 9, 32, (order & 1) != 0);
        Canvas target(17, 14, 32, (order & 2) != 0);
        source.Number();
        SetStretchBltMode(target.Dc, mode);
        int drawn = 0;
        for (int i = 0; i < count; ++i) {
            const Axis columns = RandomAxis(random, target.Width, source.Width);
            const Axis rows = RandomAxis(random, target.Height, source.Height);
            target.Fill(0x11223344);
            Stretch(target, columns, rows, source);
            const std::string what = Text(columns, rows);
            CAPTURE(what);
            CHECK(CountWrong(target, source, columns, rows, mode, 0x11223344) == 0);
            for (int y = 0; y < target.Height; ++y)
                for (int x = 0; x < target.Width; ++x)
                    drawn += target.PixelAt(x, y) != 0x11223344;
        }
        CHECK(drawn > count * 10);
    }
}

}

TEST_CASE("the fast stretch keeps the last column and the first row of those that fall on a pixel")
{
    Canvas source(10, 10);
    Canvas target(4, 4);
    source.Number();
    SetStretchBltMode(target.Dc, COLORONCOLOR);
    CHECK(StretchBlt(target.Dc, 0, 0, 3, 3, source.Dc, 0, 0, 10, 10, SRCCOPY));
    GdiFlush();
    const int columns[] = {2, 6, 9};
    const int rows[] = {0, 3, 7};
    for (int y = 0; y < 3; ++y)
        for (int x = 0; x < 3; ++x)
            CHECK(target.PixelAt(x, y) == source.PixelAt(columns[x], rows[y]));
    CHECK(target.PixelAt(3, 0) == 0);
    CHECK(target.PixelAt(0, 3) == 0);
}

TEST_CASE("the fast stretch enlarges 2 pixels to 5 as 3 and 2")
{
    Canvas source(2, 2);
    Canvas target(5, 5);
    source.Number();
    SetStretchBltMode(target.Dc, COLORONCOLOR);
    CHECK(StretchBlt(target.Dc, 0, 0, 5, 5, source.Dc, 0, 0, 2, 2, SRCCOPY));
    GdiFlush();
    for (int y = 0; y < 5; ++y)
        for (int x = 0; x < 5; ++x)
            CHECK(target.PixelAt(x, y) == source.PixelAt(x < 3 ? 0 : 1, y < 3 ? 0 : 1));
}

TEST_CASE("a negative extent starts at its corner and mirrors")
{
    Canvas source(4, 1);
    Canvas target(6, 1);
    source.Number();
    SetStretchBltMode(target.Dc, COLORONCOLOR);
    CHECK(StretchBlt(target.Dc, 4, 0, -4, 1, source.Dc, 0, 0, 4, 1, SRCCOPY));
    GdiFlush();
    CHECK(target.PixelAt(0, 0) == 0);
    for (int x = 0; x < 4; ++x)
        CHECK(target.PixelAt(4 - x, 0) == source.PixelAt(x, 0));
    CHECK(target.PixelAt(5, 0) == 0);
}

TEST_CASE("fast stretches of any size, place and direction follow GDI's rule")
{
    CheckRandomStretches(COLORONCOLOR, 400, 20240611);
}

TEST_CASE("stretch mode 1 keeps the AND of all pixels that fall on one")
{
    CheckRandomStretches(1, 150, 77);
}

TEST_CASE("stretch mode 2 keeps the OR of all pixels that fall on one")
{
    CheckRandomStretches(2, 150, 78);
}

TEST_CASE("a target of millions of pixels is stretched where it can be seen")
{
    Canvas source(50, 40, 32, false);
    Canvas target(64, 48);
    source.Number();
    SetStretchBltMode(target.Dc, COLORONCOLOR);
    const Axis views[][2] = {{{-1000000, 3000000, 0, 50}, {-1500000, 2400000, 0, 40}},
                             {{-2000000, 2000064, 0, 50}, {-30, 4000000, 0, 40}},
                             {{-1234567, 4096000, 3, 44}, {-2222222, 4096000, 1, 39}},
                             {{60, 5000000, 0, 50}, {40, 5000000, 0, 40}}};
    for (const auto& view : views) {
        target.Fill(0x55667788);
        CHECK(Stretch(target, view[0], view[1], source));
        const std::string what = Text(view[0], view[1]);
        CAPTURE(what);
        CHECK(CountWrong(target, source, view[0], view[1], COLORONCOLOR, 0x55667788) == 0);
        CHECK(target.PixelAt(63, 47) != 0x55667788);
    }
}

TEST_CASE("stretches and copies with the largest coordinates end and stay inside")
{
    Canvas    source(4, 4);
    Canvas    target(4, 4);
    const int largest = 2147483647;
    source.Number();
    for (int mode = 1; mode <= 4; ++mode) {
        SetStretchBltMode(target.Dc, mode);
        StretchBlt(target.Dc, -2000000000, -2000000000, largest, largest, source.Dc, 0, 0, 4, 4, SRCCOPY);
        StretchBlt(target.Dc, 0, 0, 4, 4, source.Dc, -2000000000, -2000000000, largest, largest, SRCCOPY);
        StretchBlt(target.Dc, 0, 0, largest, largest, source.Dc, 0, 0, largest - 1, largest - 1, SRCCOPY);
        StretchBlt(target.Dc, 2000000000, 0, -largest, 4, source.Dc, 0, 0, 4, 4, SRCCOPY);
        BitBlt(target.Dc, 0, 0, largest, largest, source.Dc, 0, 0, SRCCOPY);
        BitBlt(target.Dc, -largest, 0, largest, 4, source.Dc, -largest, 0, SRCCOPY);
    }
    BitBlt(target.Dc, 0, 0, largest, largest, source.Dc, 0, 0, SRCCOPY);
    GdiFlush();
    for (int y = 0; y < 4; ++y)
        for (int x = 0; x < 4; ++x)
            CHECK(target.PixelAt(x, y) == source.PixelAt(x, y));
}

TEST_CASE("an extent of zero copies nothing and is not a failure")
{
    Canvas source(4, 4);
    Canvas target(4, 4);
    source.Number();
    SetStretchBltMode(target.Dc, COLORONCOLOR);
    CHECK(StretchBlt(target.Dc, 0, 0, 0, 4, source.Dc, 0, 0, 4, 4, SRCCOPY));
    CHECK(StretchBlt(target.Dc, 0, 0, 4, 4, source.Dc, 0, 0, 4, 0, SRCCOPY));
    CHECK(BitBlt(target.Dc, 0, 0, 4, 0, source.Dc, 0, 0, SRCCOPY));
    GdiFlush();
    CHECK(target.PixelAt(0, 0) == 0);
    CHECK(StretchBlt(target.Dc, 0, 0, 4, 4, source.Dc, 0, 0, 3, 3, SRCCOPY));
    GdiFlush();
    CHECK(target.PixelAt(0, 0) == source.PixelAt(0, 0));
}

TEST_CASE("copies with an invalid context fail and change nothing")
{
    Canvas source(4, 4);
    Canvas target(4, 4);
    source.Number();
    CHECK_FALSE(BitBlt(nullptr, 0, 0, 4, 4, source.Dc, 0, 0, SRCCOPY));
    CHECK_FALSE(BitBlt(target.Dc, 0, 0, 4, 4, nullptr, 0, 0, SRCCOPY));
    CHECK_FALSE(StretchBlt(nullptr, 0, 0, 4, 4, source.Dc, 0, 0, 2, 2, SRCCOPY));
    CHECK_FALSE(StretchBlt(target.Dc, 0, 0, 4, 4, nullptr, 0, 0, 2, 2, SRCCOPY));
    CHECK(SetStretchBltMode(nullptr, COLORONCOLOR) == 0);
    GdiFlush();
    CHECK(target.PixelAt(0, 0) == 0);
    CHECK(BitBlt(target.Dc, 0, 0, 4, 4, source.Dc, 0, 0, SRCCOPY));
    GdiFlush();
    CHECK(target.PixelAt(3, 3) == source.PixelAt(3, 3));
}

TEST_CASE("SetStretchBltMode returns the previous mode and takes 1 to 4 only")
{
    Canvas canvas(1, 1);
    CHECK(SetStretchBltMode(canvas.Dc, COLORONCOLOR) == 1);
    CHECK(SetStretchBltMode(canvas.Dc, HALFTONE) == COLORONCOLOR);
    CHECK(SetStretchBltMode(canvas.Dc, 0) == 0);
    CHECK(SetStretchBltMode(canvas.Dc, 5) == 0);
    CHECK(SetStretchBltMode(canvas.Dc, -1) == 0);
    CHECK(SetStretchBltMode(canvas.Dc, 2) == HALFTONE);
    CHECK(SetStretchBltMode(canvas.Dc, 1) == 2);
}

TEST_CASE("BitBlt clips at every side of both bitmaps")
{
    Canvas source(6, 5, 32, false);
    Canvas target(7, 6);
    source.Number();
    for (int y = -4; y <= 4; y += 2)
        for (int x = -4; x <= 4; x += 2)
            for (int sourceX = -3; sourceX <= 3; sourceX += 3)
                for (int width = -5; width <= 5; width += 2) {
                    const int  sourceY = 1 - sourceX;
                    const Axis columns{x, width, sourceX, width};
                    const Axis rows{y, 4, sourceY, 4};
                    target.Fill(0x01020304);
                    CHECK(BitBlt(target.Dc, x, y, width, 4, source.Dc, sourceX, sourceY, SRCCOPY));
                    GdiFlush();
                    const std::string what = Text(columns, rows);
                    CAPTURE(what);
                    CHECK(CountWrong(target, source, columns, rows, COLORONCOLOR, 0x01020304) == 0);
                }
}

TEST_CASE("BitBlt within one bitmap reads every pixel before it is overwritten")
{
    for (int bits : {24, 32})
        for (int topDown = 0; topDown < 2; ++topDown)
            for (int dy = -2; dy <= 2; ++dy)
                for (int dx = -2; dx <= 2; ++dx) {
                    Canvas canvas(9, 8, bits, topDown != 0);
                    Canvas before(9, 8, bits, topDown != 0);
                    canvas.Number();
                    before.Number();
                    CHECK(BitBlt(canvas.Dc, 2 + dx, 2 + dy, 5, 4, canvas.Dc, 2, 2, SRCCOPY));
                    GdiFlush();
                    int wrong = 0;
                    for (int y = 0; y < 8; ++y)
                        for (int x = 0; x < 9; ++x) {
                            const bool inside = x >= 2 + dx && x < 7 + dx && y >= 2 + dy && y < 6 + dy;
                            wrong += canvas.PixelAt(x, y) !=
                                     (inside ? before.PixelAt(x - dx, y - dy) : before.PixelAt(x, y));
                        }
                    CAPTURE(bits);
                    CAPTURE(dx);
                    CAPTURE(dy);
                    CHECK(wrong == 0);
                }
}

TEST_CASE("StretchBlt within one bitmap reads the picture as it was before")
{
    Canvas canvas(8, 6);
    Canvas before(8, 6);
    canvas.Number();
    before.Number();
    SetStretchBltMode(canvas.Dc, COLORONCOLOR);
    const Axis columns{1, 7, 0, 4};
    const Axis rows{2, 3, 0, 6};
    CHECK(Stretch(canvas, columns, rows, canvas));
    int wrong = 0;
    for (int y = 0; y < 6; ++y)
        for (int x = 0; x < 8; ++x)
            wrong += canvas.PixelAt(x, y) !=
                     Expected(before, columns, rows, x, y, COLORONCOLOR, before.PixelAt(x, y));
    CHECK(wrong == 0);
}

TEST_CASE("32-bit pixels are copied with their high byte")
{
    Canvas source(3, 3);
    Canvas target(6, 6);
    source.Number();
    CHECK(BitBlt(target.Dc, 0, 0, 3, 3, source.Dc, 0, 0, SRCCOPY));
    GdiFlush();
    CHECK(target.PixelAt(1, 2) == 0xA5000302u);
    SetStretchBltMode(target.Dc, COLORONCOLOR);
    target.Fill(0);
    CHECK(StretchBlt(target.Dc, 0, 0, 6, 6, source.Dc, 0, 0, 3, 3, SRCCOPY));
    GdiFlush();
    CHECK(target.PixelAt(5, 0) == 0xA5000103u);
}

TEST_CASE("pixels of 24 bits become 32 with a high byte of zero, and back lose it")
{
    for (int mode : {int{COLORONCOLOR}, int{HALFTONE}}) {
        CAPTURE(mode);
        Canvas narrow(5, 4, 24, false);
        Canvas wide(5, 4);
        narrow.Number();
        wide.Fill(0xEEEEEEEE);
        SetStretchBltMode(wide.Dc, mode);
        CHECK(BitBlt(wide.Dc, 0, 0, 5, 4, narrow.Dc, 0, 0, SRCCOPY));
        GdiFlush();
        CHECK(wide.PixelAt(4, 3) == 0x000405u);
        wide.Number();
        SetStretchBltMode(narrow.Dc, mode);
        CHECK(BitBlt(narrow.Dc, 0, 0, 4, 4, wide.Dc, 1, 0, SRCCOPY));
        GdiFlush();
        CHECK(narrow.PixelAt(3, 3) == 0x000405u);
        CHECK(narrow.PixelAt(4, 3) == 0x000405u);
    }
    Canvas narrow(5, 4, 24, false);
    Canvas wide(10, 8);
    narrow.Number();
    wide.Fill(0xEEEEEEEE);
    SetStretchBltMode(wide.Dc, COLORONCOLOR);
    CHECK(StretchBlt(wide.Dc, 0, 0, 10, 8, narrow.Dc, 0, 0, 5, 4, SRCCOPY));
    GdiFlush();
    CHECK(wide.PixelAt(9, 7) == 0x000405u);
    wide.Number();
    SetStretchBltMode(narrow.Dc, COLORONCOLOR);
    CHECK(StretchBlt(narrow.Dc, 4, 0, -5, 4, wide.Dc, 0, 0, 10, 8, SRCCOPY));
    GdiFlush();
    CHECK(narrow.PixelAt(0, 0) == 0x00010Au);
    CHECK(narrow.PixelAt(4, 3) == 0x000702u);
}

TEST_CASE("the pixel of a fresh context shows in text color, and takes the background's color as 1")
{
    HDC    fresh = CreateCompatibleDC(nullptr);
    Canvas canvas(2, 2);
    canvas.Fill(0x01020304);
    SetTextColor(canvas.Dc, 0x112233);
    SetBkColor(canvas.Dc, 0x445566);
    CHECK(BitBlt(canvas.Dc, 0, 0, 2, 2, fresh, 0, 0, SRCCOPY));
    GdiFlush();
    CHECK(canvas.PixelAt(0, 0) == 0x332211u);
    CHECK(canvas.PixelAt(1, 0) == 0x01020304u);
    canvas.SetPixelAt(0, 0, 0x665544);    // the background of this context
    CHECK(BitBlt(fresh, 0, 0, 1, 1, canvas.Dc, 0, 0, SRCCOPY));
    canvas.Fill(0);
    SetStretchBltMode(canvas.Dc, COLORONCOLOR);
    CHECK(StretchBlt(canvas.Dc, 0, 0, 2, 2, fresh, 0, 0, 1, 1, SRCCOPY));
    GdiFlush();
    CHECK(canvas.PixelAt(1, 1) == 0x665544u);
    DeleteDC(fresh);
}

TEST_CASE("copies count from the viewport origins of both contexts")
{
    Canvas source(4, 4);
    Canvas target(4, 4);
    source.Number();
    SetViewportOrgEx(source.Dc, 2, 1, nullptr);
    SetViewportOrgEx(target.Dc, 1, 3, nullptr);
    CHECK(BitBlt(target.Dc, 0, 0, 1, 1, source.Dc, 0, 0, SRCCOPY));
    GdiFlush();
    CHECK(target.PixelAt(1, 3) == source.PixelAt(2, 1));
    SetStretchBltMode(target.Dc, COLORONCOLOR);
    CHECK(StretchBlt(target.Dc, 1, -3, 2, 1, source.Dc, -2, -1, 1, 1, SRCCOPY));
    GdiFlush();
    CHECK(target.PixelAt(2, 0) == source.PixelAt(0, 0));
    CHECK(target.PixelAt(3, 0) == source.PixelAt(0, 0));
}

TEST_CASE("the smooth stretch of an even color gives that color, with a high byte of zero")
{
    Canvas source(40, 30, 32, false);
    Canvas target(33, 21);
    SetStretchBltMode(target.Dc, HALFTONE);
    const int sizes[][2] = {{10, 7}, {33, 21}, {60, 45}, {33, 8}, {7, 60}, {3000, 2000}};
    for (std::uint32_t colour : {0xFFFFFFu, 0x000001u, 0x7F3DC8u})
        for (const auto& size : sizes) {
            source.Fill(0xA5000000u | colour);
            target.Fill(0x12345678);
            CHECK(StretchBlt(target.Dc, 0, 0, size[0], size[1], source.Dc, 0, 0, 40, 30, SRCCOPY));
            GdiFlush();
            int wrong = 0;
            for (int y = 0; y < target.Height; ++y)
                for (int x = 0; x < target.Width; ++x)
                    wrong += target.PixelAt(x, y) != (x < size[0] && y < size[1] ? colour : 0x12345678u);
            CAPTURE(size[0]);
            CAPTURE(size[1]);
            CHECK(wrong == 0);
        }
}

TEST_CASE("the smooth stretch that changes no size copies")
{
    Canvas source(12, 9);
    Canvas target(8, 7);
    source.Number();
    SetStretchBltMode(target.Dc, HALFTONE);
    const Axis columns{-2, 12, 0, 12};
    const Axis rows{1, 9, 0, 9};
    CHECK(Stretch(target, columns, rows, source));
    CHECK(CountWrong(target, source, columns, rows, COLORONCOLOR, 0) == 0);
}
