// Memory and work of reading pictures: both linear in the file and the picture.

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
            const long       most = static_cast<long>(4 * std::max(file.Bytes, 4 * file.Pixels) / 1024);
            {
                const PeakMemory peak;
                CImage           image;
                REQUIRE(image.Load(CString(std::wstring(file.Name.begin(), file.Name.end()).c_str())) >= 0);
                CHECK(peak.KiB() <= most);
                CHECK(peak.KiB() >= file.Pixels / 1024);
            }
            const PeakMemory peak;
            ImageSamples     samples;
            REQUIRE(ReadPicture(file.Name.c_str(), 0, {}, samples) == PictureOutcome::Taken);
            CHECK(peak.KiB() <= most);
        }
    }
}

TEST_CASE("four times the pixels are four times the work")
{
    for (const Format& format : Formats) {
        for (const int bits : {8, 24}) {
            CAPTURE(format.Name);
            CAPTURE(bits);
            double before = 0.0;
            for (const int side : {256, 512, 1024}) {
                const TempFolder folder;
                const Written    file = Write(folder, format.Name, side, bits);
                const auto       bytes = ReadBytes(file.Name);
                std::int64_t     work = 0;
                ImageSamples     samples;
                REQUIRE(format.Decode({.Bytes = bytes, .Limits = {}, .Work = &work}, samples) ==
                        PictureOutcome::Taken);
                CHECK(work >= file.Pixels);
                CHECK(work <= 16 * (file.Pixels + file.Bytes));
                const double now = static_cast<double>(work);
                if (before > 0.0)
                    CHECK(std::abs(now / before - 4.0) < 0.4);
                before = now;
            }
        }
    }
}
