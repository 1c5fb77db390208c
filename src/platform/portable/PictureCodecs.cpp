#include "platform/portable/PictureCodecs.h"

#include "platform/PictureLimits.h"

namespace vostel::pictures {

bool IsTaken(const Bytes& file, long long width, long long height, long long storedBytes)
{
    return width > 0 && height > 0 && IsWithin(LimitsOfCImage(), file.size(), width, height, storedBytes);
}

void IndexRow(const PictureBuffer& picture, int y, unsigned char* indices)
{
    const unsigned char* row = picture.Row(y);
    for (int x = 0; x < picture.Width; ++x) {
        if (picture.BitsPerPixel == 8)
            indices[x] = row[x];
        else if (picture.BitsPerPixel == 4)
            indices[x] = static_cast<unsigned char>(row[x / 2] >> (x % 2 ? 0 : 4) & 15);
        else
            indices[x] = static_cast<unsigned char>(row[x / 8] >> (7 - x % 8) & 1);
    }
}

void ColorRow(const PictureBuffer& picture, int y, unsigned char* triples)
{
    const unsigned char* row = picture.Row(y);
    if (picture.BitsPerPixel >= 24) {
        const int bytes = picture.BitsPerPixel / 8;
        for (int x = 0; x < picture.Width; ++x, triples += 3, row += bytes) {
            triples[0] = row[0];
            triples[1] = row[1];
            triples[2] = row[2];
        }
        return;
    }
    if (picture.BitsPerPixel == 16) {
        for (int x = 0; x < picture.Width; ++x, triples += 3, row += 2) {
            const int word = row[0] | row[1] << 8;
            triples[0] = static_cast<unsigned char>((word & 31) * 255 / 31);
            triples[1] = static_cast<unsigned char>((word >> 5 & 31) * 255 / 31);
            triples[2] = static_cast<unsigned char>((word >> 10 & 31) * 255 / 31);
        }
        return;
    }
    // The indices go to the end of the row of triples and are overtaken by none of them.
    unsigned char* indices = triples + static_cast<std::size_t>(picture.Width) * 2;
    IndexRow(picture, y, indices);
    for (int x = 0; x < picture.Width; ++x, triples += 3) {
        const RGBQUAD color = picture.Palette[indices[x]];
        triples[0] = color.rgbBlue;
        triples[1] = color.rgbGreen;
        triples[2] = color.rgbRed;
    }
}

}
