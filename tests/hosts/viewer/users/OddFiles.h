#pragma once

#include "hosts/viewer/documents/MadeFiles.h"
#include "platform/PictureFiles.h"
#include "platform/TiffFiles.h"

#include <QBuffer>

#include <bitset>
#include <string>

// Pictures of kinds that other programs write, made here.
namespace odd {

inline QByteArray Raw(const files::Bytes& bytes)
{
    return QByteArray(reinterpret_cast<const char*>(bytes.data()), qsizetype(bytes.size()));
}

// Rows of 4 white and 28 black pixels in the code of fax machines: of group 3 each row by itself, of group 4
// each after the first as the one above it.
inline files::Bytes FaxRows(int group, int rows)
{
    const std::string white4 = "1011", black28 = "000011001100", endOfLine = "000000000001";
    std::string       bits;
    for (int y = 0; y < rows; ++y) {
        if (group == 3)
            bits += endOfLine + white4 + black28;
        else
            bits += y == 0 ? "001" + white4 + black28 : "11";
    }
    if (group == 4)
        bits += endOfLine + endOfLine;
    bits.resize((bits.size() + 7) / 8 * 8, '0');
    files::Bytes packed;
    for (std::size_t at = 0; at < bits.size(); at += 8)
        packed.push_back(static_cast<unsigned char>(std::bitset<8>(bits.substr(at, 8)).to_ulong()));
    return packed;
}

inline QByteArray FaxTiff(int group)
{
    files::TiffPage page;
    page.Width = 32;
    page.Height = 8;
    page.Bits = 1;
    page.Photometric = 0;
    page.Compression = group;
    page.Blocks = {FaxRows(group, page.Height)};
    return Raw(files::TiffOf(page));
}

// A JPEG of 48 x 24, white at the upper left and black elsewhere, with a note of how the camera was held.
inline QByteArray TurnedJpeg(int orientation)
{
    QImage image(48, 24, QImage::Format_Grayscale8);
    image.fill(0);
    for (int y = 0; y < 8; ++y)
        for (int x = 0; x < 8; ++x)
            image.setPixel(x, y, qRgb(255, 255, 255));
    QByteArray bytes;
    QBuffer    buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "JPEG", 100);
    files::Bytes tags = {'E', 'x', 'i', 'f', 0, 0, 'I', 'I', 42, 0};
    files::Little(tags, 8, 4);
    files::Little(tags, 1, 2);
    files::Little(tags, 274, 2);
    files::Little(tags, 3, 2);
    files::Little(tags, 1, 4);
    files::Little(tags, static_cast<std::uint32_t>(orientation), 4);
    files::Little(tags, 0, 4);
    files::Bytes mark = {0xFF, 0xE1};
    files::Big(mark, static_cast<std::uint32_t>(tags.size() + 2), 2);
    files::Append(mark, tags);
    return bytes.insert(2, Raw(mark));    // behind the start of the picture
}

// A lossless WebP of 6 x 4 pixels of red 10, green 20, blue 30, as its library packs it.
inline QByteArray Webp()
{
    return QByteArray::fromHex("524946461e000000574542505650384c11000000"
                               "2f05c0000007508a2ad4a3ff8188e87f0000");
}

}
