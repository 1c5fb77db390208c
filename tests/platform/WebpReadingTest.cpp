// What WebP asks of its codec, held against the codec itself.

#include "platform/portable/WebpReading.h"

#include "platform/CodecFiles.h"
#include "platform/SampleFiles.h"

#include <webp/decode.h>

using namespace vostel;
using namespace vostel::pictures;
using namespace files;

namespace {

// The lowest bit of a byte comes first.
class BitWriter {
public:
    void Put(unsigned value, int count)
    {
        for (int i = 0; i < count; ++i, ++Count) {
            if (Count % 8 == 0)
                Written.push_back(0);
            Written.back() = static_cast<unsigned char>(Written.back() | (value >> i & 1u) << Count % 8);
        }
    }
    const Bytes& Content() const { return Written; }

private:
    Bytes       Written;
    std::size_t Count = 0;
};

// The code of a single symbol, zero, which takes no bits.
void PutEmptyCode(BitWriter& bits)
{
    bits.Put(1, 4);
}

// A code in which the first 256 symbols have eight bits each.
void PutByteCode(BitWriter& bits, int symbols)
{
    bits.Put(0, 1);
    constexpr unsigned given = 12;    // lengths of lengths; 0 and 8 stand third and last
    bits.Put(given - 4, 4);
    for (unsigned i = 0; i < given; ++i)
        bits.Put(i == 2 || i == given - 1, 3);
    bits.Put(0, 1);    // for all symbols
    for (int i = 0; i < symbols; ++i)
        bits.Put(i < 256, 1);
}

void PutByte(BitWriter& bits, unsigned byte)
{
    for (int i = 7; i >= 0; --i)    // of a code, the highest bit comes first
        bits.Put(byte >> i & 1u, 1);
}

// Black pixels; each block of 4 x 4 has the next of so many groups of codes.
Bytes LosslessOf(int side, unsigned groups)
{
    BitWriter bits;
    bits.Put(0x2F, 8);
    bits.Put(static_cast<unsigned>(side - 1), 14);
    bits.Put(static_cast<unsigned>(side - 1), 14);
    bits.Put(0, 4);    // no alpha, version
    bits.Put(0, 1);    // no transform
    bits.Put(0, 1);    // no cache
    bits.Put(1, 1);    // several groups
    bits.Put(0, 3);    // for blocks of 4 x 4
    bits.Put(0, 1);    // no cache for their numbers
    PutByteCode(bits, 280);
    PutByteCode(bits, 256);
    for (int i = 0; i < 3; ++i)
        PutEmptyCode(bits);
    const int blocks = (side + 3) / 4 * ((side + 3) / 4);
    for (int i = 0; i < blocks; ++i) {
        const unsigned number = static_cast<unsigned>(i) % groups;
        PutByte(bits, number & 0xFF);
        PutByte(bits, number >> 8);
    }
    for (unsigned i = 0; i < 5 * groups; ++i)
        PutEmptyCode(bits);
    bits.Put(0, 32);
    return bits.Content();
}

Bytes WebpOfGroups(int side, unsigned groups)
{
    Bytes chunks;
    WebpChunk(chunks, "VP8L", LosslessOf(side, groups));
    return WebpOf(chunks);
}

// A lossy picture whose alpha is such a one.
Bytes WebpOfAlphaGroups(int side, unsigned groups)
{
    const Bytes lossy = Webp(HalfNoise(side, 3), side, 3, false);
    Bytes       header = {0x10, 0, 0, 0};    // there is alpha
    Little(header, static_cast<std::uint32_t>(side - 1), 3);
    Little(header, static_cast<std::uint32_t>(side - 1), 3);
    constexpr std::ptrdiff_t pictureHead = 5;
    const Bytes              picture = LosslessOf(side, groups);
    Bytes                    alpha = {1};
    alpha.insert(alpha.end(), picture.begin() + pictureHead, picture.end());
    Bytes chunks;
    WebpChunk(chunks, "VP8X", header);
    WebpChunk(chunks, "ALPH", alpha);
    chunks.insert(chunks.end(), lossy.begin() + 12, lossy.end());
    return WebpOf(chunks);
}

bool CodecTakes(const Bytes& file)
{
    int                  width = 0, height = 0;
    unsigned char* const pixels = WebPDecodeRGBA(file.data(), file.size(), &width, &height);
    WebPFree(pixels);
    return pixels;
}

constexpr int          Side = 568;
constexpr std::int64_t BytesPerGroup = 12400;    // without a cache

}

TEST_CASE("groups of codes are counted, and where they fit the picture loads")
{
    for (const unsigned groups : {1u, 2u, 257u, 3000u}) {
        CAPTURE(groups);
        const Bytes     file = WebpOfGroups(Side, groups);
        const WebpCodes codes = CodesOfWebp(file, Side, Side);
        CHECK(codes.Valid);
        CHECK(codes.Bytes == groups * BytesPerGroup);
        CHECK(Holds(file, SampleType::Rgb8, Bytes(3 * Side * Side, 0)));
        const Bytes alpha = WebpOfAlphaGroups(Side, groups);
        CHECK(CodesOfWebp(alpha, Side, Side).Bytes == groups * BytesPerGroup);
        CHECK(Read(alpha).Outcome == PictureOutcome::Taken);
    }
}

TEST_CASE("a picture of more groups than its budget has room for is refused, in its alpha too")
{
    const std::int64_t room = MostBytesOfCodes(std::int64_t{Side} * Side) / BytesPerGroup;
    const unsigned     most = static_cast<unsigned>(room);
    CHECK(Read(WebpOfGroups(Side, most)).Outcome == PictureOutcome::Taken);
    CHECK(Read(WebpOfGroups(Side, most + 1)).Outcome == PictureOutcome::TooLarge);
    CHECK(Read(WebpOfAlphaGroups(Side, most)).Outcome == PictureOutcome::Taken);
    CHECK(Read(WebpOfAlphaGroups(Side, most + 1)).Outcome == PictureOutcome::TooLarge);
    CHECK(CodecTakes(WebpOfGroups(Side, most + 1)));
}

TEST_CASE("groups are counted behind the end of a chunk, and in a picture without a chunk")
{
    Bytes file = WebpOfGroups(Side, 20000);
    REQUIRE(CodecTakes(file));
    file[16] = 8;    // the chunk's length, which the codec does not heed
    file[17] = file[18] = 0;
    CHECK(CodecTakes(file));
    CHECK(Read(file).Outcome == PictureOutcome::TooLarge);
    const Bytes bare = WebpOf(LosslessOf(Side, 20000));
    CHECK(CodecTakes(bare));
    CHECK(Read(bare).Outcome == PictureOutcome::TooLarge);
}

TEST_CASE("what the codec takes is valid, damaged or not")
{
    constexpr int side = 220;    // large enough for groups to be counted
    int           taken = 0, invalid = 0;
    for (const double noiseFrom : {0.0, 0.7}) {
        for (const int channels : {3, 4}) {
            for (const bool lossless : {true, false}) {
                const Bytes file = Webp(HalfNoise(side, channels, noiseFrom), side, channels, lossless);
                REQUIRE(CodecTakes(file));
                std::mt19937 random(3);
                for (int round = 0; round < 60; ++round) {
                    CAPTURE(round);
                    Bytes damaged = file;
                    // Rarely none, and most of them in the heads and the first codes.
                    for (unsigned flips = random() % 4; flips > 0; --flips)
                        damaged[16 + random() % 48] ^= static_cast<unsigned char>(1u << random() % 8);
                    WebPBitstreamFeatures features;
                    if (WebPGetFeatures(damaged.data(), damaged.size(), &features) != VP8_STATUS_OK ||
                        features.width > 4 * side || features.height > 4 * side)
                        continue;
                    const bool valid = CodesOfWebp(damaged, features.width, features.height).Valid;
                    const bool takes = CodecTakes(damaged);
                    CHECK((valid || !takes));
                    taken += takes;
                    invalid += !valid;
                }
            }
        }
    }
    CHECK(taken > 100);
    CHECK(invalid > 10);
}
