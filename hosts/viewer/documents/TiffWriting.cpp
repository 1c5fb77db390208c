#include "documents/TiffWriting.h"

#include "documents/RawVolume.h"

#include <QByteArray>
#include <QIODevice>
#include <QtEndian>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <vector>

namespace vostel::viewer {

namespace {

constexpr qint64 StripBytes = 1 << 20;
constexpr qint64 HeadRoom = 1 << 16;    // header, entries and lists of strips, see FitsTiff

enum Tag : quint16 {
    TagWidth = 256,
    TagHeight = 257,
    TagBits = 258,
    TagCompression = 259,
    TagPhotometric = 262,
    TagStripOffsets = 273,
    TagSamples = 277,
    TagRowsPerStrip = 278,
    TagStripBytes = 279,
    TagResolutionX = 282,
    TagResolutionY = 283,
    TagResolutionUnit = 296,
    TagExtraSamples = 338,
    TagSampleFormat = 339
};
enum FieldType : quint16 { Short = 3, Long = 4, Rational = 5 };

// The directory of a file: entries in the order of their tags, lists behind them.
class Directory {
public:
    void Add(Tag tag, FieldType type, const std::vector<quint32>& values)
    {
        Entries.push_back({tag, type, values});
    }

    qint64 Bytes() const
    {
        qint64 bytes = 2 + 12 * static_cast<qint64>(Entries.size()) + 4;
        for (const Entry& entry : Entries)
            bytes += entry.ListBytes();
        return bytes;
    }

    QByteArray Written(qint64 at) const
    {
        QByteArray head, lists;
        Put<quint16>(head, static_cast<quint16>(Entries.size()));
        const qint64 listsAt = at + 2 + 12 * static_cast<qint64>(Entries.size()) + 4;
        for (const Entry& entry : Entries) {
            Put<quint16>(head, entry.Name);
            Put<quint16>(head, entry.Type);
            Put<quint32>(head, static_cast<quint32>(entry.Values.size() / (entry.Type == Rational ? 2 : 1)));
            QByteArray& target = entry.ListBytes() > 0 ? lists : head;
            if (entry.ListBytes() > 0)
                Put<quint32>(head, static_cast<quint32>(listsAt + lists.size()));
            const qsizetype before = target.size();
            for (const quint32 value : entry.Values)
                if (entry.Type == Short)
                    Put<quint16>(target, static_cast<quint16>(value));
                else
                    Put<quint32>(target, value);
            if (entry.ListBytes() == 0)
                target.append(QByteArray(4 - (target.size() - before), '\0'));
            else
                target.append(QByteArray(before + entry.ListBytes() - target.size(), '\0'));
        }
        Put<quint32>(head, 0);    // no further page
        return head + lists;
    }

private:
    struct Entry {
        Tag                  Name;
        FieldType            Type;
        std::vector<quint32> Values;

        // 0 of what stands in the entry itself; lists begin at even places.
        qint64 ListBytes() const
        {
            const qint64 bytes = static_cast<qint64>(Values.size()) * (Type == Short ? 2 : 4);
            return bytes > 4 ? bytes + bytes % 2 : 0;
        }
    };
    std::vector<Entry> Entries;

    template <typename Number>
    static void Put(QByteArray& bytes, Number value)
    {
        char little[sizeof value];
        qToLittleEndian(value, little);
        bytes.append(little, sizeof value);
    }
};

// A row as the file holds it: little-endian, red before blue.
void PutRow(const char* row, const VostelPlane& plane, char* target)
{
    const int         pixelBytes = BytesOfPixel(plane.type);
    const std::size_t bytes = static_cast<std::size_t>(plane.width) * static_cast<std::size_t>(pixelBytes);
    std::memcpy(target, row, bytes);
    if (plane.type == VOSTEL_BGR8 || plane.type == VOSTEL_BGRA8)
        for (char* pixel = target; pixel != target + bytes; pixel += pixelBytes)
            std::swap(pixel[0], pixel[2]);
    if constexpr (Q_BYTE_ORDER == Q_BIG_ENDIAN)
        if (!IsColor(plane.type))
            for (char* sample = target; sample != target + bytes; sample += pixelBytes)
                std::reverse(sample, sample + pixelBytes);
}

Directory DirectoryOf(const VostelPlane& plane, double pixelsPerCentimetre, qint64 rowsPerStrip,
                      qint64 dataAt)
{
    const bool           color = IsColor(plane.type);
    const auto           samples = static_cast<std::size_t>(color ? BytesOfPixel(plane.type) : 1);
    const auto           bits = static_cast<quint32>(color ? 8 : 8 * BytesOfPixel(plane.type));
    const auto           format = plane.type == VOSTEL_F32 ? 3U : plane.type == VOSTEL_I16 ? 2U : 1U;
    const auto           rowBytes = static_cast<qint64>(plane.width) * BytesOfPixel(plane.type);
    std::vector<quint32> offsets, counts;
    for (qint64 row = 0; row < plane.height; row += rowsPerStrip) {
        offsets.push_back(static_cast<quint32>(dataAt + row * rowBytes));
        counts.push_back(static_cast<quint32>(std::min<qint64>(rowsPerStrip, plane.height - row) * rowBytes));
    }
    constexpr quint32 Unit = 1000;    // a resolution in thousandths
    const bool        known = pixelsPerCentimetre > 0.0 && pixelsPerCentimetre < 4e6;
    const auto resolution = known ? static_cast<quint32>(std::lround(pixelsPerCentimetre * Unit)) : Unit;
    Directory  directory;
    directory.Add(TagWidth, Long, {static_cast<quint32>(plane.width)});
    directory.Add(TagHeight, Long, {static_cast<quint32>(plane.height)});
    directory.Add(TagBits, Short, std::vector<quint32>(samples, bits));
    directory.Add(TagCompression, Short, {1});
    directory.Add(TagPhotometric, Short, {color ? 2U : 1U});
    directory.Add(TagStripOffsets, Long, offsets);
    directory.Add(TagSamples, Short, {static_cast<quint32>(samples)});
    directory.Add(TagRowsPerStrip, Long, {static_cast<quint32>(rowsPerStrip)});
    directory.Add(TagStripBytes, Long, counts);
    directory.Add(TagResolutionX, Rational, {resolution, Unit});
    directory.Add(TagResolutionY, Rational, {resolution, Unit});
    directory.Add(TagResolutionUnit, Short, {known ? 3U : 1U});
    if (samples == 4)
        directory.Add(TagExtraSamples, Short, {2});
    directory.Add(TagSampleFormat, Short, std::vector<quint32>(samples, format));
    return directory;
}

}

bool FitsTiff(const VostelPlane& plane)
{
    const qint64 row = static_cast<qint64>(plane.width) * BytesOfPixel(plane.type);
    return row * plane.height + 8 * static_cast<qint64>(plane.height) + HeadRoom < (qint64{1} << 32);
}

bool WriteTiff(QIODevice& file, const VostelPlane& plane, double pixelsPerCentimetre)
{
    constexpr qint64 DirectoryAt = 8;
    const qint64     rowBytes = static_cast<qint64>(plane.width) * BytesOfPixel(plane.type);
    const qint64     rowsPerStrip = std::clamp<qint64>(StripBytes / rowBytes, 1, plane.height);
    const qint64     dataAt =
        DirectoryAt + DirectoryOf(plane, pixelsPerCentimetre, rowsPerStrip, 0).Bytes();    // the same size
    const QByteArray head =
        QByteArray("II\x2A\0\x08\0\0\0", DirectoryAt) +
        DirectoryOf(plane, pixelsPerCentimetre, rowsPerStrip, dataAt).Written(DirectoryAt);
    if (file.write(head) != head.size())
        return false;
    QByteArray strip;
    for (qint64 first = 0; first < plane.height; first += rowsPerStrip) {
        const qint64 rows = std::min<qint64>(rowsPerStrip, plane.height - first);
        strip.resize(rows * rowBytes);
        for (qint64 row = 0; row < rows; ++row)
            PutRow(static_cast<const char*>(plane.data) + (first + row) * plane.row_bytes, plane,
                   strip.data() + row * rowBytes);
        if (file.write(strip) != strip.size())
            return false;
    }
    return true;
}

}
