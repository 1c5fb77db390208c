// GIF. Frames are laid over each other as a viewer does it, up to the one asked for. Where nothing was drawn
// the screen has its background color. A file ends with its last whole frame, whether or not the mark of the
// end follows.

#include "platform/PictureBuffer.h"
#include "platform/SampleCodecs.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

namespace vostel::pictures {
namespace {

enum Disposal : int { DisposeToBackground = 2, DisposeToPrevious = 3 };

using Palette = std::vector<unsigned>;    // 0x00RRGGBB

// A place in the file. Bytes behind the end are zero, and then the file is broken.
class Cursor {
public:
    explicit Cursor(std::span<const unsigned char> file) : File(file) {}

    bool          IsBroken() const { return Broken; }
    unsigned char Byte()
    {
        if (At < File.size())
            return File[At++];
        Broken = true;
        return 0;
    }
    int Word()
    {
        const int low = Byte();
        return low | Byte() << 8;
    }
    void Fail() { Broken = true; }
    void Skip(std::size_t bytes)
    {
        Broken = Broken || bytes > File.size() - At;
        At += Broken ? 0 : bytes;
    }
    Palette Colors(int count)
    {
        Palette colors;
        for (int i = 0; i < count && !Broken; ++i) {
            const unsigned red = Byte(), green = Byte();
            colors.push_back(red << 16 | green << 8 | Byte());
        }
        return colors;
    }
    // A chain of blocks, each behind its length, up to the empty one.
    void SkipBlocks()
    {
        for (unsigned char length = Byte(); length != 0 && !Broken; length = Byte())
            Skip(length);
    }

private:
    std::span<const unsigned char> File;
    std::size_t                    At = 0;
    bool                           Broken = false;
};

struct Frame {
    int     Left = 0, Top = 0, Width = 0, Height = 0;
    bool    Interlaced = false;
    Palette Colors;
    int     Transparent = -1;
    int     Disposal = 0;
};

// Codes of growing length out of a chain of blocks, the low bits first.
class CodeReader {
public:
    explicit CodeReader(Cursor& cursor) : From(cursor) {}

    // -1 at the end of the chain.
    int Next(int length)
    {
        while (Held < length) {
            if (Left == 0)
                Left = Ended ? 0 : From.Byte();
            if (Left == 0) {
                Ended = true;
                return -1;
            }
            Bits |= static_cast<std::uint32_t>(From.Byte()) << Held;
            Held += 8;
            --Left;
        }
        const int code = static_cast<int>(Bits & ((1u << length) - 1));
        Bits >>= length;
        Held -= length;
        return code;
    }
    // Whatever follows the pixels in their chain.
    void SkipRest()
    {
        From.Skip(Left);
        if (!Ended)
            From.SkipBlocks();
    }

private:
    Cursor&       From;
    std::uint32_t Bits = 0;
    int           Held = 0;
    unsigned      Left = 0;    // bytes of the present block
    bool          Ended = false;
};

// The indices of a frame, row by row as stored. False for codes that make no sense or end early.
bool Decompress(Cursor& cursor, std::size_t count, std::vector<unsigned char>& indices)
{
    constexpr int mostCodes = 4096;
    const int     firstLength = cursor.Byte();
    if (firstLength < 1 || firstLength > 8)
        return false;
    const int clear = 1 << firstLength;
    const int end = clear + 1;

    std::array<std::uint16_t, mostCodes> prefix = {};
    std::array<unsigned char, mostCodes> suffix = {};
    std::array<unsigned char, mostCodes> string = {};    // backwards
    for (int i = 0; i < clear; ++i)
        suffix[static_cast<std::size_t>(i)] = static_cast<unsigned char>(i);

    CodeReader codes(cursor);
    int        length = firstLength + 1;
    int        next = end + 1;
    int        before = -1;
    indices.clear();
    indices.reserve(count);
    while (indices.size() < count) {
        const int code = codes.Next(length);
        if (code < 0 || code == end || cursor.IsBroken())
            return false;
        if (code == clear) {
            length = firstLength + 1;
            next = end + 1;
            before = -1;
            continue;
        }
        if (code > next || (before < 0 && code >= clear) || (code == next && before < 0))
            return false;
        // A code that is just being made is the one before with its own first index behind it.
        const bool  fresh = code == next;
        int         walk = fresh ? before : code;
        std::size_t depth = 0;
        while (walk >= clear) {
            string[depth++] = suffix[static_cast<std::size_t>(walk)];
            walk = prefix[static_cast<std::size_t>(walk)];
        }
        const unsigned char first = static_cast<unsigned char>(walk);
        if (before >= 0 && next < mostCodes) {
            prefix[static_cast<std::size_t>(next)] = static_cast<std::uint16_t>(before);
            suffix[static_cast<std::size_t>(next)] = first;
            if (++next == 1 << length && length < 12)
                ++length;
        }
        indices.push_back(first);
        while (depth > 0)
            indices.push_back(string[--depth]);
        if (fresh)
            indices.push_back(first);
        before = code;
    }
    indices.resize(count);
    codes.SkipRest();
    return !cursor.IsBroken();
}

// The picture as it grows frame by frame.
class Screen {
public:
    long long Visits;    // of pixels, so far

    Screen(int width, int height, unsigned background)
        : Visits(static_cast<long long>(width) * height), Width(width), Height(height),
          Background(background),
          Pixels(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), background)
    {
    }

    // Pixels of a frame that may reach beyond.
    long long MostOfFrame() const
    {
        constexpr long long spared = 1 << 24;
        return std::max(static_cast<long long>(Width) * Height, spared);
    }

    void Draw(const Frame& frame, const std::vector<unsigned char>& indices)
    {
        Shown = frame;
        if (frame.Disposal == DisposeToPrevious) {
            Before.clear();
            const Box box = BoxOf(frame);
            for (int y = box.Top; y < box.Bottom; ++y)
                Before.insert(Before.end(), &PixelAt(box.Left, y), &PixelAt(box.Left, y) + box.Width());
            Visits += box.Area();
        }
        Visits += BoxOf(frame).Area();
        AllGray = AllGray && IsGrayPalette(frame.Colors);
        const int   starts[] = {0, 4, 2, 1}, steps[] = {8, 8, 4, 2};
        std::size_t stored = 0;
        for (int pass = 0; pass < (frame.Interlaced ? 4 : 1); ++pass) {
            for (int y = frame.Interlaced ? starts[pass] : 0; y < frame.Height;
                 y += frame.Interlaced ? steps[pass] : 1, stored += static_cast<std::size_t>(frame.Width))
                DrawLine(frame, y, std::span(indices).subspan(stored, static_cast<std::size_t>(frame.Width)));
        }
    }

    // What the frame asked to happen before the next one.
    void Dispose()
    {
        if (Shown.Disposal != DisposeToPrevious && Shown.Disposal != DisposeToBackground)
            return;
        const Box       box = BoxOf(Shown);
        const unsigned* kept = Before.data();
        for (int y = box.Top; y < box.Bottom; ++y) {
            unsigned* const row = &PixelAt(box.Left, y);
            if (Shown.Disposal == DisposeToBackground) {
                std::fill_n(row, box.Width(), Background);
            } else {
                std::copy_n(kept, box.Width(), row);
                kept += box.Width();
            }
        }
        Visits += box.Area();
    }

    PictureOutcome Give(const SampleFile& file, ImageSamples& samples) const
    {
        const bool           gray = AllGray && IsGrayPalette(std::span(&Background, 1));
        const PictureOutcome made =
            MakeSamples(file, gray ? SampleType::U8 : SampleType::Rgb8, Width, Height, samples);
        if (made != PictureOutcome::Taken)
            return made;
        unsigned char* target = samples.Data();
        for (const unsigned pixel : Pixels) {
            if (!gray) {
                *target++ = static_cast<unsigned char>(pixel >> 16);
                *target++ = static_cast<unsigned char>(pixel >> 8);
            }
            *target++ = static_cast<unsigned char>(pixel);
        }
        return made;
    }

private:
    int                   Width;
    int                   Height;
    unsigned              Background;
    std::vector<unsigned> Pixels;    // 0x00RRGGBB
    std::vector<unsigned> Before;    // what the shown frame covers
    Frame                 Shown;
    bool                  AllGray = true;    // every color that a frame could have used

    // The part of a frame that lies on the screen.
    struct Box {
        int Left, Top, Right, Bottom;

        int       Width() const { return Right - Left; }
        long long Area() const { return static_cast<long long>(Width()) * (Bottom - Top); }
    };
    Box BoxOf(const Frame& frame) const
    {
        const int left = std::min(Width, frame.Left), top = std::min(Height, frame.Top);
        return {left, top, std::min(Width, frame.Left + frame.Width),
                left < Width ? std::min(Height, frame.Top + frame.Height) : top};
    }
    unsigned& PixelAt(int x, int y)
    {
        return Pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(Width) +
                      static_cast<std::size_t>(x)];
    }
    void DrawLine(const Frame& frame, int row, std::span<const unsigned char> indices)
    {
        const int y = frame.Top + row;
        if (y >= Height)
            return;
        for (int x = frame.Left; x < std::min(Width, frame.Left + frame.Width); ++x) {
            const std::size_t index = indices[static_cast<std::size_t>(x - frame.Left)];
            if (static_cast<int>(index) != frame.Transparent)
                PixelAt(x, y) = index < frame.Colors.size() ? frame.Colors[index] : 0;
        }
    }
};

class GifFile {
public:
    int      Width = 0;
    int      Height = 0;
    unsigned Background = 0;
    Cursor   Place;

    explicit GifFile(std::span<const unsigned char> file) : Place(file)
    {
        Place.Skip(6);
        Width = Place.Word();
        Height = Place.Word();
        const int flags = Place.Byte();
        const int background = Place.Byte();
        Place.Skip(1);
        if ((flags & 0x80) != 0)
            Colors = Place.Colors(2 << (flags & 7));
        if (static_cast<std::size_t>(background) < Colors.size())
            Background = Colors[static_cast<std::size_t>(background)];
    }

    // Goes on to the pixels of the next frame. False where none follows.
    bool Next(Frame& frame)
    {
        frame = Frame();
        while (!Place.IsBroken()) {
            switch (Place.Byte()) {
            case 0x2C:
                ReadFrame(frame);
                return !Place.IsBroken() && frame.Width >= 1 && frame.Height >= 1;
            case 0x21:
                ReadExtension(frame);
                break;
            default:    // the mark of the end among them
                return false;
            }
        }
        return false;
    }

private:
    Palette Colors;

    void ReadFrame(Frame& frame)
    {
        frame.Left = Place.Word();
        frame.Top = Place.Word();
        frame.Width = Place.Word();
        frame.Height = Place.Word();
        const int flags = Place.Byte();
        frame.Interlaced = (flags & 0x40) != 0;
        frame.Colors = (flags & 0x80) != 0 ? Place.Colors(2 << (flags & 7)) : Colors;
    }
    void ReadExtension(Frame& frame)
    {
        constexpr int graphicControl = 0xF9;
        if (Place.Byte() == graphicControl) {
            const std::size_t length = Place.Byte();
            const int         flags = Place.Byte();
            Place.Skip(2);
            const int transparent = Place.Byte();
            if (length < 4)
                Place.Fail();
            else
                Place.Skip(length - 4);
            frame.Disposal = flags >> 2 & 7;
            frame.Transparent = (flags & 1) != 0 ? transparent : -1;
        }
        Place.SkipBlocks();
    }
};

}

PictureOutcome DecodeGifSamples(const SampleFile& file, ImageSamples& samples)
{
    constexpr long long        mostExpansion = 4096;
    GifFile                    gif(file.Bytes);
    std::optional<Screen>      screen;
    std::vector<unsigned char> indices;
    for (int number = 0;; ++number) {
        Frame frame;
        if (!gif.Next(frame))
            return number > 0 ? PictureOutcome::NoSuchPage : PictureOutcome::BadFormat;
        if (!screen) {
            // A first frame that is larger than the screen makes it larger.
            const int width = std::max(gif.Width, frame.Left + frame.Width);
            const int height = std::max(gif.Height, frame.Top + frame.Height);
            if (!IsWithin(file, width, height))
                return PictureOutcome::TooLarge;
            if (!IsPlausible(static_cast<long long>(width) * height, file.Bytes.size(), mostExpansion))
                return PictureOutcome::BadFormat;
            screen.emplace(width, height, gif.Background);
        } else {
            screen->Dispose();
        }
        const long long count = static_cast<long long>(frame.Width) * frame.Height;
        if (!IsPlausible(count, file.Bytes.size(), mostExpansion) || count > screen->MostOfFrame() ||
            !Decompress(gif.Place, static_cast<std::size_t>(count), indices))
            return number > 0 && gif.Place.IsBroken() ? PictureOutcome::NoSuchPage
                                                      : PictureOutcome::BadFormat;
        screen->Draw(frame, indices);
        file.CountWork(count);
        if (number == file.Page) {
            file.CountWork(screen->Visits);
            return screen->Give(file, samples);
        }
    }
}

PictureOutcome CountGifPages(const SampleFile& file, int& pages)
{
    GifFile gif(file.Bytes);
    int     frames = 0;
    Frame   frame;
    while (gif.Next(frame)) {
        gif.Place.Skip(1);
        gif.Place.SkipBlocks();
        if (gif.Place.IsBroken())
            break;
        ++frames;
    }
    if (frames == 0)
        return PictureOutcome::BadFormat;
    pages = frames;
    return PictureOutcome::Taken;
}

}
