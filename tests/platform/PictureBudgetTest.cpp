// Memory and work of reading pictures: both linear in the file and the picture.

#include "platform/CodecFiles.h"
#include "platform/PeakMemory.h"
#include "platform/SampleCodecs.h"
#include "platform/SampleFiles.h"

#include <VostelObj.h>

#include <cmath>

using namespace vostel;
using namespace vostel::pictures;

namespace {

struct Written {
    std::string  Name;
    std::int64_t Pixels;
    std::int64_t Bytes;
};

// What packs well on the left and badly on the right. Of 8 bits it is gray.
Written Write(const TempFolder& folder, const char* name, int side, int bits)
{
    CImage       picture;
    std::mt19937 random(5);
    REQUIRE(picture.Create(side, side, bits));
    for (int y = 0; y < side; ++y) {
        auto* const row = static_cast<unsigned char*>(picture.GetPixelAddress(0, y));
        for (int i = side * bits / 16; i < side * bits / 8; ++i)
            row[i] = static_cast<unsigned char>(random());
    }
    REQUIRE(picture.Save(folder.WidePath(name)) >= 0);
    const std::string path = folder.Path(name);
    return {path, std::int64_t{side} * side, static_cast<std::int64_t>(std::filesystem::file_size(path))};
}

Written Keep(const TempFolder& folder, const char* name, int side, const files::Bytes& bytes)
{
    REQUIRE(WriteBytes(folder.Path(name), bytes));
    return {folder.Path(name), std::int64_t{side} * side, static_cast<std::int64_t>(bytes.size())};
}

using Decoder = PictureOutcome (*)(const SampleFile&, ImageSamples&);

struct Format {
    const char* Name;
    Decoder     Decode;
};
const Format Formats[] = {{"a.bmp", DecodeBmpSamples},
                          {"a.png", DecodePngSamples},
                          {"a.jpg", DecodeJpegSamples},
                          {"a.tif", DecodeTiffSamples},
                          {"a.gif", DecodeGifSamples}};

// What CImage does not write, of that many channels.
using Maker = files::Bytes (*)(int side, int channels);

files::Bytes MakeProgressive(int side, int channels)
{
    return files::ProgressiveJpeg(files::HalfNoise(side, channels), side, channels);
}

files::Bytes MakeLossless(int side, int channels)
{
    return files::Webp(files::HalfNoise(side, channels), side, channels, true);
}

files::Bytes MakeLossy(int side, int channels)
{
    return files::Webp(files::HalfNoise(side, channels), side, channels, false);
}

files::Bytes PnmHead(char kind, int side, const char* top)
{
    const std::string size = std::to_string(side);
    const std::string head = std::string("P") + kind + "\n" + size + " " + size + "\n" + top + "\n";
    return {head.begin(), head.end()};
}

files::Bytes MakeRawPnm(int side, int channels)
{
    files::Bytes file = PnmHead(channels == 1 ? '5' : '6', side, "255");
    files::Append(file, files::HalfNoise(side, channels));
    return file;
}

files::Bytes MakeDeepPnm(int side, int)
{
    files::Bytes file = PnmHead('5', side, "65535");
    files::Append(file, files::HalfNoise(side, 2));
    return file;
}

files::Bytes MakeFloatPnm(int side, int)
{
    files::Bytes file = PnmHead('f', side, "-1.0");
    files::Append(file, files::HalfNoise(side, 4));
    return file;
}

files::Bytes MakePlainPnm(int side, int channels)
{
    files::Bytes file = PnmHead(channels == 1 ? '2' : '3', side, "255");
    for (const unsigned char value : files::HalfNoise(side, channels)) {
        const std::string text = std::to_string(value) + " ";
        file.insert(file.end(), text.begin(), text.end());
    }
    return file;
}

files::Bytes MakeRawBitmap(int side, int)
{
    files::Bytes file = PnmHead('4', side, "");
    file.pop_back();
    files::Append(file, files::Bytes(static_cast<std::size_t>(side) * files::RowBytes(side, 1), 0x5A));
    return file;
}

files::Bytes MakePlainBitmap(int side, int)
{
    files::Bytes file = PnmHead('1', side, "");
    for (const unsigned char value : files::HalfNoise(side, 1))
        file.push_back(value & 1 ? '1' : '0');
    return file;
}

struct MadeFormat {
    const char* Name;
    Maker       Make;
    int         Channels;
    Decoder     Decode;
};
const MadeFormat MadeFormats[] = {{"progressive gray", MakeProgressive, 1, DecodeJpegSamples},
                                  {"progressive colors", MakeProgressive, 3, DecodeJpegSamples},
                                  {"lossless WebP", MakeLossless, 3, DecodeWebpSamples},
                                  {"lossless WebP with alpha", MakeLossless, 4, DecodeWebpSamples},
                                  {"lossy WebP", MakeLossy, 3, DecodeWebpSamples},
                                  {"lossy WebP with alpha", MakeLossy, 4, DecodeWebpSamples},
                                  {"raw gray PNM", MakeRawPnm, 1, DecodePnmSamples},
                                  {"raw colors PNM", MakeRawPnm, 3, DecodePnmSamples},
                                  {"raw gray PNM of 16 bits", MakeDeepPnm, 1, DecodePnmSamples},
                                  {"PNM of floats", MakeFloatPnm, 1, DecodePnmSamples},
                                  {"plain gray PNM", MakePlainPnm, 1, DecodePnmSamples},
                                  {"plain colors PNM", MakePlainPnm, 3, DecodePnmSamples},
                                  {"raw PNM of one bit", MakeRawBitmap, 1, DecodePnmSamples},
                                  {"plain PNM of one bit", MakePlainBitmap, 1, DecodePnmSamples}};

// Kibibytes without the constant of the budget.
long MostKiB(const Written& file)
{
    return static_cast<long>(4 * std::max(file.Bytes, 4 * file.Pixels) / 1024);
}

// Visits of a decoder, which have to be linear in the file and the picture.
double WorkOf(Decoder decode, const Written& file)
{
    const auto   bytes = ReadBytes(file.Name);
    std::int64_t work = 0;
    ImageSamples samples;
    REQUIRE(decode({.Bytes = bytes, .Limits = {}, .Work = &work}, samples) == PictureOutcome::Taken);
    CHECK(work >= file.Pixels);
    CHECK(work <= 16 * (file.Pixels + file.Bytes));
    return static_cast<double>(work);
}

bool LoadsAsPicture(const Written& file)
{
    CImage image;
    return image.Load(CString(std::wstring(file.Name.begin(), file.Name.end()).c_str())) >= 0;
}

}

TEST_CASE("reading a picture takes at most four times the larger of the file and the picture")
{
    constexpr int side = 3000;    // so that the constant of the budget does not count
    for (const Format& format : Formats) {
        for (const int bits : {8, 24, 32}) {
            CAPTURE(format.Name);
            CAPTURE(bits);
            const TempFolder folder;
            const Written    file = Write(folder, format.Name, side, bits);
            {
                const PeakMemory peak;
                REQUIRE(LoadsAsPicture(file));
                CHECK(peak.KiB() <= MostKiB(file));
                CHECK(peak.KiB() >= file.Pixels / 1024);
            }
            const PeakMemory peak;
            ImageSamples     samples;
            REQUIRE(ReadPicture(file.Name.c_str(), 0, {}, samples) == PictureOutcome::Taken);
            CHECK(peak.KiB() <= MostKiB(file));
        }
    }
}

TEST_CASE("reading progressive JPEG, WebP and PNM takes no more")
{
    constexpr int side = 1500;
    for (const MadeFormat& format : MadeFormats) {
        CAPTURE(format.Name);
        const TempFolder folder;
        const Written    file = Keep(folder, "a", side, format.Make(side, format.Channels));
        if (format.Decode == DecodeJpegSamples) {
            const PeakMemory peak;
            REQUIRE(LoadsAsPicture(file));
            CHECK(peak.KiB() <= MostKiB(file));
        }
        const PeakMemory peak;
        ImageSamples     samples;
        REQUIRE(ReadPicture(file.Name.c_str(), 0, {}, samples) == PictureOutcome::Taken);
        CHECK(peak.KiB() <= MostKiB(file));
        CHECK(peak.KiB() >= file.Pixels / 1024);
    }
}

TEST_CASE("four times the pixels are four times the work")
{
    const auto check = [](auto&& work) {
        double before = work(256);
        for (const int side : {512, 1024}) {
            const double now = work(side);
            CHECK(std::abs(now / before - 4.0) < 0.4);
            before = now;
        }
    };
    const TempFolder folder;
    for (const Format& format : Formats) {
        for (const int bits : {8, 24}) {
            CAPTURE(format.Name);
            CAPTURE(bits);
            check([&](int side) { return WorkOf(format.Decode, Write(folder, format.Name, side, bits)); });
        }
    }
    for (const MadeFormat& format : MadeFormats) {
        CAPTURE(format.Name);
        check([&](int side) {
            return WorkOf(format.Decode, Keep(folder, "a", side, format.Make(side, format.Channels)));
        });
    }
}
