// Pictures of tests/hostile, which ask for far more work or memory than they are worth, and their twins that
// ask for what pictures do.

#include "platform/CodecFiles.h"
#include "platform/PeakMemory.h"
#include "platform/SampleCodecs.h"
#include "platform/SampleFiles.h"
#include "platform/TiffFiles.h"

#include <string>

using namespace vostel;
using namespace vostel::pictures;
using namespace files;

namespace {

Bytes Hostile(const char* name)
{
    const Bytes bytes = ReadBytes(std::string(VOSTEL_HOSTILE_FOLDER "/") + name);
    REQUIRE(!bytes.empty());
    return bytes;
}

bool Loads(const Bytes& file)
{
    const TempFolder folder;
    REQUIRE(WriteBytes(folder.Path("picture"), file));
    ATL::CImage image;
    return image.Load(folder.WidePath("picture")) >= 0;
}

// Reads a file in both ways, and takes the outcome of open images.
PictureOutcome ReadBoth(const Bytes& file)
{
    const PictureOutcome outcome = Read(file).Outcome;
    CHECK(Loads(file) == (outcome == PictureOutcome::Taken));
    return outcome;
}

// The picture ends that many scans earlier; the file stays as long, since its length says what it may hold.
Bytes WithoutLastScans(const Bytes& file, std::size_t scans)
{
    constexpr std::size_t scanBytes = 10, endBytes = 2;
    Bytes shorter(file.begin(), file.end() - static_cast<std::ptrdiff_t>(scans * scanBytes + endBytes));
    Append(shorter, {0xFF, 0xD9});
    shorter.resize(file.size(), 0);
    return shorter;
}

}

TEST_CASE("a JPEG of thousands of empty scans is refused, one of ten loads")
{
    const Bytes file = Hostile("progressive-of-2000-empty-scans.jpg");
    CHECK(Read(file).Outcome == PictureOutcome::TooLarge);
    CHECK_FALSE(Loads(file));
    const Bytes twin = WithoutLastScans(file, 1990);
    CHECK(Read(twin).Outcome == PictureOutcome::Taken);
    CHECK(Loads(twin));
}

TEST_CASE("a JPEG of as many scans as there are bits of coefficients loads where they hold something")
{
    for (const bool scanPerCoefficient : {false, true}) {
        const Bytes file = ProgressiveJpeg(HalfNoise(256, 1, 0.0), 256, 1, scanPerCoefficient);
        CHECK(Read(file).Outcome == PictureOutcome::Taken);
        CHECK(Loads(file));
    }
}

TEST_CASE("a tile far larger than its picture takes no memory, one of a usual size loads")
{
    const Bytes      file = Hostile("tile-larger-than-its-picture.tif");
    const PeakMemory peak;
    CHECK(ReadBoth(file) == PictureOutcome::BadFormat);
    CHECK(peak.MiB() < 64);
    const Bytes twin = TiffOf({.Width = 16,
                               .Height = 16,
                               .TileWidth = 1024,
                               .TileHeight = 1024,
                               .Blocks = {Bytes(1024 * 1024, 7)}});
    CHECK(Holds(twin, SampleType::U8, std::vector<std::uint8_t>(256, 7)));
    CHECK(Loads(twin));
}

TEST_CASE("a row in thousands of tall tiles is refused, one in tall tiles that it has pixels for loads")
{
    CHECK(ReadBoth(Hostile("tall-tiles-for-one-row.tif")) == PictureOutcome::BadFormat);
    TiffPage page = {.Width = 60, .Height = 1, .TileWidth = 16, .TileHeight = 1024, .Blocks = {}};
    page.Blocks.assign(4, Bytes(16 * 1024, 7));
    CHECK(Holds(TiffOf(page), SampleType::U8, std::vector<std::uint8_t>(60, 7)));
    CHECK(Loads(TiffOf(page)));
}

TEST_CASE("strips that each hold the whole file are refused, strips of a row each load")
{
    CHECK(ReadBoth(Hostile("strips-that-each-hold-the-whole-file.tif")) == PictureOutcome::BadFormat);
    TiffPage page = {.Width = 1, .Height = 4000, .RowsPerStrip = 1, .Blocks = {}};
    page.Blocks.assign(4000, Bytes(1, 7));
    CHECK(Holds(TiffOf(page), SampleType::U8, std::vector<std::uint8_t>(4000, 7)));
    CHECK(Loads(TiffOf(page)));
}

TEST_CASE("tags that each hold the whole file take no memory, on the first page and behind it")
{
    const Bytes      file = Hostile("tags-that-each-hold-the-whole-file.tif");
    const PeakMemory peak;
    CHECK(ReadBoth(file) == PictureOutcome::BadFormat);
    CHECK(peak.MiB() < 32);

    // A page before it, whose link leads there.
    const TiffPage page = {.Width = 1, .Height = 1, .Blocks = {{7}}};
    Bytes          second = TiffOf(page);
    const auto     directory = static_cast<std::uint32_t>(second.size());
    for (int i = 0; i < 4; ++i)
        second[second.size() - 4 + static_cast<std::size_t>(i)] =
            static_cast<unsigned char>(directory >> 8 * i);
    second.insert(second.end(), file.begin() + 8, file.end());
    CHECK(Read(second).Outcome == PictureOutcome::Taken);
    CHECK(Read(second, 1).Outcome == PictureOutcome::BadFormat);
    CHECK(peak.MiB() < 32);
    CHECK(Holds(TiffOf({page, page}), SampleType::U8, std::vector<std::uint8_t>{7}, 1));
}

TEST_CASE("texts of a PNG that unpack to megabytes take no memory, and its pixels load")
{
    const Bytes      file = Hostile("png-of-six-swollen-texts.png");
    const PeakMemory peak;
    CHECK(Holds(file, SampleType::U8, std::vector<std::uint8_t>{7}));
    CHECK(Loads(file));
    CHECK(peak.MiB() < 32);
}

TEST_CASE("frames of a GIF that restore a large screen cost what they cover")
{
    const Bytes  file = Hostile("gif-of-2000-frames-that-restore.gif");
    std::int64_t work = 0;
    ImageSamples samples;
    REQUIRE(DecodeGifSamples({.Bytes = file, .Page = 1999, .Limits = {}, .Work = &work}, samples) ==
            PictureOutcome::Taken);
    CHECK(work >= 4096 * 4096);
    CHECK(work < 2 * 4096 * 4096);
    CHECK(samples.Data()[0] == 255);
    CHECK(samples.Data()[1] == 0);
}

TEST_CASE("a strip of JBIG is refused before its decoder ends the process, a plain one loads")
{
    CHECK(ReadBoth(Hostile("strip-of-jbig-far-larger-than-its-picture.tif")) == PictureOutcome::NotSupported);
    const TiffPage plain = {
        .Width = 64, .Height = 64, .Bits = 1, .Photometric = 0, .Blocks = {Bytes(64 * 8, 0xF0)}};
    CHECK(ReadBoth(TiffOf(plain)) == PictureOutcome::Taken);
}

TEST_CASE("a strip of 20164 groups of codes takes no memory, a strip of WebP loads")
{
    constexpr int    side = 568;
    const Bytes      file = Hostile("strip-of-20164-groups-of-codes.tif");
    const TiffPage   twin = {.Width = side,
                             .Height = side,
                             .Samples = 3,
                             .Photometric = 2,
                             .Compression = 50001,
                             .Blocks = {Webp(HalfNoise(side, 3), side, 3, true)}};
    const PeakMemory peak;
    CHECK(ReadBoth(file) == PictureOutcome::BadFormat);
    CHECK(peak.MiB() < 32);
    CHECK(ReadBoth(TiffOf(twin)) == PictureOutcome::Taken);
    TiffPage larger = twin;
    larger.Blocks = {Webp(HalfNoise(side + 1, 3), side + 1, 3, true)};
    CHECK(ReadBoth(TiffOf(larger)) == PictureOutcome::BadFormat);
}

TEST_CASE("a frame of a GIF far larger than its screen takes no memory, one that reaches beyond loads")
{
    const Bytes      file = Hostile("gif-of-a-frame-beyond-its-screen.gif");
    const PeakMemory peak;
    CHECK(Read(file).Outcome == PictureOutcome::Taken);
    CHECK(Read(file, 1).Outcome == PictureOutcome::BadFormat);
    CHECK(peak.MiB() < 32);

    Bytes twin(file.begin(), file.begin() + 34);    // the first frame
    Append(twin, {0x2C, 0, 0, 0, 0, 2, 0, 2, 0, 0, 2, 2, 0x84, 0x51, 0, ';'});
    CHECK(Read(twin, 1).Outcome == PictureOutcome::Taken);
}

TEST_CASE("a WebP of 20164 groups of codes is refused before its codec takes their memory")
{
    const Bytes      file = Hostile("webp-of-20164-groups-of-codes.webp");
    const Bytes      twin = Webp(HalfNoise(568, 3), 568, 3, true);
    const PeakMemory peak;
    CHECK(Read(file).Outcome == PictureOutcome::TooLarge);
    CHECK(peak.MiB() < 32);
    CHECK(Read(twin).Outcome == PictureOutcome::Taken);
}
