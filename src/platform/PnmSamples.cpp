// PBM, PGM and PPM, plain and raw, and the float PFM. Counts up to 255 are scaled to bytes, those of deeper
// gray stay as they are. The first picture of a file counts.

#include "platform/SampleCodecs.h"

#include <bit>
#include <cstdlib>
#include <cstring>
#include <string>

namespace vostel::pictures {

namespace {

class PnmText {
public:
    PnmText(std::span<const unsigned char> file, std::size_t at) : File(file), At(at) {}

    bool                           IsAtEnd() const { return At >= File.size(); }
    std::size_t                    Place() const { return At; }
    std::span<const unsigned char> Rest() const { return File.subspan(At); }
    // The one white space that ends a header.
    void SkipOne() { At += At < File.size() ? 1 : 0; }

    void SkipSpace()
    {
        while (!IsAtEnd()) {
            if (File[At] == '#') {
                while (!IsAtEnd() && File[At] != '\n' && File[At] != '\r')
                    ++At;
            } else if (File[At] == ' ' || (File[At] >= '\t' && File[At] <= '\r')) {
                ++At;
            } else {
                return;
            }
        }
    }

    // -1 where there is no number, or one beyond 32 bits.
    long long Number()
    {
        SkipSpace();
        long long value = -1;
        while (!IsAtEnd() && File[At] >= '0' && File[At] <= '9') {
            value = (value < 0 ? 0 : value) * 10 + (File[At++] - '0');
            if (value > INT32_MAX)
                return -1;
        }
        return value;
    }

    // Of a plain bitmap, whose digits need no space between them; -1 for anything else.
    int Bit()
    {
        SkipSpace();
        return !IsAtEnd() && (File[At] == '0' || File[At] == '1') ? File[At++] - '0' : -1;
    }

    double Scale()
    {
        SkipSpace();
        std::string text;
        while (!IsAtEnd() && File[At] > ' ' && text.size() < 40)
            text += static_cast<char>(File[At++]);
        return std::strtod(text.c_str(), nullptr);
    }

private:
    std::span<const unsigned char> File;
    std::size_t                    At;
};

struct PnmHeader {
    char      Kind = '1';
    long long Width = 0;
    long long Height = 0;
    long long Top = 1;    // the largest count

    bool      IsPlain() const { return Kind <= '3'; }
    bool      IsBitmap() const { return Kind == '1' || Kind == '4'; }
    bool      IsColor() const { return Kind == '3' || Kind == '6'; }
    long long RowBytes() const
    {
        return Kind == '4' ? (Width + 7) / 8 : Width * (IsColor() ? 3 : 1) * (Top > 255 ? 2 : 1);
    }
};

// One count as a sample; Index counts samples of the whole picture.
void Store(ImageSamples& samples, std::size_t index, const PnmHeader& header, std::uint32_t count)
{
    if (samples.Type == SampleType::U16) {
        const std::uint16_t value = static_cast<std::uint16_t>(count);
        std::memcpy(samples.Data() + 2 * index, &value, sizeof value);
    } else {
        const std::uint32_t top = static_cast<std::uint32_t>(header.Top);
        samples.Data()[index] = ScaledByte(count < top ? count : top, top);
    }
}

PictureOutcome ReadPlain(PnmText& text, const PnmHeader& header, std::size_t count, ImageSamples& samples)
{
    for (std::size_t i = 0; i < count; ++i) {
        const long long value = header.IsBitmap() ? text.Bit() : text.Number();
        if (value < 0 || value > header.Top)
            return PictureOutcome::BadFormat;
        // Of bitmaps, 1 is black.
        Store(samples, i, header, static_cast<std::uint32_t>(header.IsBitmap() ? 1 - value : value));
    }
    return PictureOutcome::Taken;
}

void ReadRaw(std::span<const unsigned char> bytes, const PnmHeader& header, std::size_t count,
             ImageSamples& samples)
{
    if (header.IsBitmap()) {
        const std::size_t width = static_cast<std::size_t>(header.Width);
        for (std::size_t i = 0; i < count; ++i) {
            const std::size_t   at = i / width * static_cast<std::size_t>(header.RowBytes()) + i % width / 8;
            const std::uint32_t bit = bytes[at] >> (7 - i % width % 8) & 1u;
            Store(samples, i, header, 1 - bit);
        }
        return;
    }
    for (std::size_t i = 0; i < count; ++i)
        Store(samples, i, header,
              header.Top > 255 ? static_cast<std::uint32_t>(bytes[2 * i] << 8 | bytes[2 * i + 1]) : bytes[i]);
}

// Rows lie bottom-up; a negative scale means that the lowest byte comes first.
PictureOutcome DecodeFloats(PnmText& text, const SampleFile& file, ImageSamples& samples)
{
    const long long width = text.Number();
    const long long height = text.Number();
    const double    scale = text.Scale();
    text.SkipOne();
    if (width < 1 || height < 1 || scale == 0.0 || scale != scale)
        return PictureOutcome::BadFormat;
    if (!IsWithin(file, width, height))
        return PictureOutcome::TooLarge;
    const std::span<const unsigned char> bytes = text.Rest();
    if (static_cast<unsigned long long>(width) * static_cast<unsigned long long>(height) > bytes.size() / 4)
        return PictureOutcome::BadFormat;
    const PictureOutcome outcome = MakeSamples(file, SampleType::F32, width, height, samples);
    if (outcome != PictureOutcome::Taken)
        return outcome;
    file.CountWork(static_cast<std::int64_t>(samples.Bytes()));
    std::size_t at = 0;
    for (int y = samples.Height - 1; y >= 0; --y) {
        float* const row = samples.Row<float>(y);
        for (int x = 0; x < samples.Width; ++x, at += 4) {
            std::uint32_t bits = 0;
            for (std::size_t i = 0; i < 4; ++i)
                bits = bits << 8 | bytes[at + (scale < 0.0 ? 3 - i : i)];
            row[x] = std::bit_cast<float>(bits);
        }
    }
    return PictureOutcome::Taken;
}

}

PictureOutcome DecodePnmSamples(const SampleFile& file, ImageSamples& samples)
{
    PnmText   text(file.Bytes, 2);
    PnmHeader header;
    header.Kind = static_cast<char>(file.Bytes[1]);
    if (header.Kind == 'F')
        return PictureOutcome::NotSupported;    // colors of floats have no type here
    if (header.Kind == 'f')
        return DecodeFloats(text, file, samples);
    header.Width = text.Number();
    header.Height = text.Number();
    header.Top = header.IsBitmap() ? 1 : text.Number();
    if (header.Width < 1 || header.Height < 1 || header.Top < 1 || header.Top > 65535)
        return PictureOutcome::BadFormat;
    if (!IsWithin(file, header.Width, header.Height))
        return PictureOutcome::TooLarge;
    if (!header.IsPlain())
        text.SkipOne();
    // Plain counts take a digit each at least.
    const long long least = header.IsPlain() ? header.Width * (header.IsColor() ? 3 : 1) : header.RowBytes();
    if (least > static_cast<long long>(text.Rest().size()) / header.Height)
        return PictureOutcome::BadFormat;
    const SampleType     type = header.IsColor()   ? SampleType::Rgb8
                                : header.Top > 255 ? SampleType::U16
                                                   : SampleType::U8;
    const PictureOutcome made = MakeSamples(file, type, header.Width, header.Height, samples);
    if (made != PictureOutcome::Taken)
        return made;
    const std::size_t count = samples.Bytes() / (type == SampleType::U16 ? 2 : 1);
    PictureOutcome    outcome = PictureOutcome::Taken;
    if (header.IsPlain())
        outcome = ReadPlain(text, header, count, samples);
    else
        ReadRaw(text.Rest(), header, count, samples);
    file.CountWork(static_cast<std::int64_t>(text.Place() + count));
    return outcome;
}

}
