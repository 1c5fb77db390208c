#include "interchange/ZipArchive.h"

#include "base/Failure.h"
#include "base/LittleEndian.h"
#include "base/Utf8.h"
#include "foundation/Limits.h"

#define ZLIB_CONST
#include <zlib.h>

#include <algorithm>
#include <array>
#include <limits>
#include <memory>
#include <new>
#include <span>

namespace vostel {

namespace {

constexpr std::uint32_t LocalSignature = 0x04034b50;
constexpr std::uint32_t DirectorySignature = 0x02014b50;
constexpr std::uint32_t EndSignature = 0x06054b50;
constexpr std::size_t   LocalSize = 30;
constexpr std::size_t   DirectorySize = 46;
constexpr std::size_t   EndSize = 22;
constexpr std::size_t   MostComment = 0xFFFF;
constexpr std::uint32_t NeedsZip64 = 0xFFFFFFFF;
constexpr std::uint32_t ManyNeedZip64 = 0xFFFF;

constexpr std::uint32_t EncryptedFlag = 0x0001;
constexpr std::uint32_t Utf8Flag = 0x0800;
constexpr std::uint32_t Stored = 0;
constexpr std::uint32_t Deflated = 8;
constexpr std::uint32_t Version = 20;       // 2.0, the first with deflate
constexpr std::uint32_t FirstDay = 0x21;    // 1 January 1980, as there is no zero

// Deflate packs up to 1032 to 1, but only what is all alike.
constexpr std::size_t  MostRatio = 1000;
constexpr std::int64_t MostUnpacked = std::int64_t(1) << 30;    // of all entries together

[[noreturn]] void FailDamaged(const std::string& what)
{
    Fail(VOSTEL_BAD_FORMAT, "the zip archive is damaged: " + what);
}

std::string Quoted(const std::string& name)
{
    return "entry \"" + name + "\"";
}

std::span<const unsigned char> BytesIn(std::string_view text)
{
    return {reinterpret_cast<const unsigned char*>(text.data()), text.size()};
}

// Names of old archives are in a code page that the archive does not name.
std::string NameFrom(std::string_view bytes)
{
    if (WideOf(bytes))
        return std::string(bytes);
    std::string name;
    for (const char byte : bytes) {
        const auto character = static_cast<unsigned char>(byte);
        AppendUtf8(name, character < 0x80 ? character : 0xFFFD);
    }
    return name;
}

// Names that would leave the folder into which an archive is unpacked.
bool LeavesFolder(const std::string& name)
{
    if (name.empty() || name[0] == '/' ||
        name.find_first_of(std::string_view("\\\0", 2)) != std::string::npos)
        return true;
    for (std::size_t begin = 0; begin < name.size();) {
        const std::size_t end = std::min(name.find('/', begin), name.size());
        if (std::string_view(name).substr(begin, end - begin) == "..")
            return true;
        begin = end + 1;
    }
    return false;
}

std::uint32_t ChecksumOf(std::string_view bytes)
{
    const std::span<const unsigned char> data = BytesIn(bytes);
    return static_cast<std::uint32_t>(crc32_z(0, data.data(), data.size()));
}

struct InflateEnd {
    void operator()(z_stream* stream) const { inflateEnd(stream); }
};
struct DeflateEnd {
    void operator()(z_stream* stream) const { deflateEnd(stream); }
};

constexpr int RawDeflate = -MAX_WBITS;    // without a header of zlib's own

// Whether the packed bytes hold exactly as many as the target takes.
bool Inflate(std::string_view packed, std::string& target)
{
    z_stream stream = {};
    if (inflateInit2(&stream, RawDeflate) != Z_OK)
        throw std::bad_alloc();
    const std::unique_ptr<z_stream, InflateEnd> ended(&stream);
    unsigned char                               none = 0;    // zlib wants a place even for no bytes
    stream.next_in = BytesIn(packed).data();
    stream.avail_in = static_cast<uInt>(packed.size());
    stream.next_out = target.empty() ? &none : reinterpret_cast<unsigned char*>(target.data());
    stream.avail_out = static_cast<uInt>(target.size());
    const int result = inflate(&stream, Z_FINISH);
    if (result == Z_MEM_ERROR)
        throw std::bad_alloc();
    return result == Z_STREAM_END && stream.avail_out == 0 && stream.avail_in == 0;
}

std::string Deflate(std::string_view bytes)
{
    z_stream stream = {};
    if (deflateInit2(&stream, Z_DEFAULT_COMPRESSION, Z_DEFLATED, RawDeflate, MAX_MEM_LEVEL - 1,
                     Z_DEFAULT_STRATEGY) != Z_OK)
        throw std::bad_alloc();
    const std::unique_ptr<z_stream, DeflateEnd> ended(&stream);
    std::string packed(deflateBound(&stream, static_cast<uLong>(bytes.size())), '\0');
    stream.next_in = BytesIn(bytes).data();
    stream.avail_in = static_cast<uInt>(bytes.size());
    stream.next_out = reinterpret_cast<unsigned char*>(packed.data());
    stream.avail_out = static_cast<uInt>(packed.size());
    if (deflate(&stream, Z_FINISH) != Z_STREAM_END)
        throw std::bad_alloc();
    packed.resize(packed.size() - stream.avail_out);
    return packed;
}

// Appends a number of 2 or 4 bytes.
template <std::size_t Bytes>
void Append(std::string& text, std::uint32_t value)
{
    std::array<unsigned char, Bytes> bytes{};
    WriteLittleEndian(bytes, value);
    text.append(bytes.begin(), bytes.end());
}

}

ZipReader::ZipReader(std::string_view archive) : Archive(archive)
{
    const std::size_t   end = FindEnd();
    const std::uint32_t count = Number(end + 10, 2);
    const std::uint32_t size = Number(end + 12, 4);
    const std::uint32_t begin = Number(end + 16, 4);
    if (count == ManyNeedZip64 || size == NeedsZip64 || begin == NeedsZip64)
        Fail(VOSTEL_NOT_SUPPORTED, "zip64 archives are not supported");
    if (Number(end + 4, 2) != 0 || Number(end + 6, 2) != 0 || Number(end + 8, 2) != count)
        Fail(VOSTEL_NOT_SUPPORTED, "zip archives over several disks are not supported");
    if (begin > end || size != end - begin)
        FailDamaged("the directory does not lie before the end");
    ReadDirectory(begin, end, count);
    CheckPlaces();
}

std::uint32_t ZipReader::Number(std::size_t place, std::size_t bytes) const
{
    return ReadLittleEndian(BytesIn(Archive.substr(place, bytes)));
}

// The record at the end of the archive, behind which only a comment stands.
std::size_t ZipReader::FindEnd() const
{
    for (std::size_t comment = 0; comment <= MostComment && EndSize + comment <= Archive.size(); ++comment) {
        const std::size_t place = Archive.size() - EndSize - comment;
        if (Number(place, 4) == EndSignature && Number(place + 20, 2) == comment)
            return place;
    }
    Fail(VOSTEL_BAD_FORMAT, "the file is not a zip archive, or its end is missing");
}

void ZipReader::ReadDirectory(std::size_t begin, std::size_t end, std::size_t count)
{
    if (count > (end - begin) / DirectorySize)
        FailDamaged("the directory is too short for its entries");
    Found.reserve(count);
    std::size_t place = begin;
    for (std::size_t i = 0; i < count; ++i) {
        if (end - place < DirectorySize || Number(place, 4) != DirectorySignature)
            FailDamaged("entry " + std::to_string(i + 1) + " is missing in the directory");
        const std::size_t size =
            DirectorySize + Number(place + 28, 2) + Number(place + 30, 2) + Number(place + 32, 2);
        if (size > end - place)
            FailDamaged("entry " + std::to_string(i + 1) + " reaches beyond the directory");
        Found.push_back(EntryAt(place, begin));
        place += size;
    }
    if (place != end)
        FailDamaged("the directory has more than its entries");
}

ZipReader::Entry ZipReader::EntryAt(std::size_t place, std::size_t directory) const
{
    const std::string_view name = Archive.substr(place + DirectorySize, Number(place + 28, 2));
    Entry                  entry;
    entry.Name = NameFrom(name);
    const std::uint32_t flags = Number(place + 8, 2);
    const std::uint32_t method = Number(place + 10, 2);
    const std::uint32_t packedSize = Number(place + 20, 4);
    const std::uint32_t size = Number(place + 24, 4);
    const std::size_t   header = Number(place + 42, 4);
    if (LeavesFolder(entry.Name))
        FailDamaged(Quoted(entry.Name) + " has a name outside the archive");
    if (packedSize == NeedsZip64 || size == NeedsZip64 || header == NeedsZip64)
        Fail(VOSTEL_NOT_SUPPORTED, Quoted(entry.Name) + " is of zip64, which is not supported");
    if ((flags & EncryptedFlag) != 0)
        Fail(VOSTEL_NOT_SUPPORTED, Quoted(entry.Name) + " is encrypted");
    if (method != Stored && method != Deflated)
        Fail(VOSTEL_NOT_SUPPORTED, Quoted(entry.Name) + " is packed in a way that is not supported");
    entry.Packed = method == Deflated;
    entry.Checksum = Number(place + 16, 4);
    entry.PackedSize = packedSize;
    entry.Size = size;
    if (header > directory || directory - header < LocalSize || Number(header, 4) != LocalSignature)
        FailDamaged(Quoted(entry.Name) + " does not lie where the directory says");
    const std::size_t ahead = LocalSize + Number(header + 26, 2) + Number(header + 28, 2);
    if (ahead > directory - header || entry.PackedSize > directory - header - ahead)
        FailDamaged(Quoted(entry.Name) + " reaches into the directory");
    if (Archive.substr(header + LocalSize, Number(header + 26, 2)) != name || Number(header + 8, 2) != method)
        FailDamaged(Quoted(entry.Name) + " is not what the directory says");
    if (!entry.Packed && entry.Size != entry.PackedSize)
        FailDamaged(Quoted(entry.Name) + " is stored and has two sizes");
    if (entry.Size / MostRatio > entry.PackedSize)
        FailDamaged(Quoted(entry.Name) + " claims to be more than " + std::to_string(MostRatio) +
                    " times its packed size");
    entry.Begin = header + ahead;
    return entry;
}

// No two entries share a byte, and all together stay within the limits.
void ZipReader::CheckPlaces() const
{
    std::vector<const Entry*> inOrder;
    inOrder.reserve(Found.size());
    std::int64_t total = 0;
    for (const Entry& entry : Found) {
        inOrder.push_back(&entry);
        total += static_cast<std::int64_t>(entry.Size);
    }
    if (total > std::min(MostUnpacked, LimitsInForce().MaxFileBytes))
        Fail(VOSTEL_TOO_LARGE, "the zip archive unpacks to more than the limit");
    std::sort(inOrder.begin(), inOrder.end(),
              [](const Entry* a, const Entry* b) { return a->Begin < b->Begin; });
    for (std::size_t i = 1; i < inOrder.size(); ++i) {
        const Entry& before = *inOrder[i - 1];
        if (inOrder[i]->Begin - before.Begin < before.PackedSize + LocalSize)
            FailDamaged(Quoted(inOrder[i]->Name) + " overlaps " + Quoted(before.Name));
    }
}

std::string ZipReader::BytesOf(const Entry& entry) const
{
    const std::string_view packed = Archive.substr(entry.Begin, entry.PackedSize);
    std::string            bytes;
    if (entry.Packed) {
        bytes.resize(entry.Size);
        if (!Inflate(packed, bytes))
            FailDamaged(Quoted(entry.Name) + " does not unpack to its size");
    } else {
        bytes = packed;
    }
    if (ChecksumOf(bytes) != entry.Checksum)
        FailDamaged(Quoted(entry.Name) + " does not have its checksum");
    return bytes;
}

void ZipWriter::Add(const std::string& name, std::string_view bytes)
{
    constexpr std::size_t Most = std::numeric_limits<std::uint32_t>::max() / 2;
    if (Archive.size() + Directory.size() > Most || bytes.size() > Most / 2 || Count + 1 == ManyNeedZip64 ||
        name.size() > MostComment)
        Fail(VOSTEL_TOO_LARGE, "the zip archive would need zip64");
    const std::string packed = Deflate(bytes);
    const bool        isPacked = packed.size() < bytes.size();
    std::string       shared;    // by both headers
    Append<2>(shared, Version);
    Append<2>(shared, Utf8Flag);
    Append<2>(shared, isPacked ? Deflated : Stored);
    Append<2>(shared, 0);    // time
    Append<2>(shared, FirstDay);
    Append<4>(shared, ChecksumOf(bytes));
    Append<4>(shared, static_cast<std::uint32_t>(isPacked ? packed.size() : bytes.size()));
    Append<4>(shared, static_cast<std::uint32_t>(bytes.size()));
    Append<2>(shared, static_cast<std::uint32_t>(name.size()));
    Append<2>(shared, 0);    // extra fields

    Append<4>(Directory, DirectorySignature);
    Append<2>(Directory, Version);
    Directory += shared;
    Append<2>(Directory, 0);    // comment
    Append<2>(Directory, 0);    // disk
    Append<2>(Directory, 0);    // attributes of the content
    Append<4>(Directory, 0);    // attributes of the file
    Append<4>(Directory, static_cast<std::uint32_t>(Archive.size()));
    Directory += name;

    Append<4>(Archive, LocalSignature);
    Archive += shared;
    Archive += name;
    Archive += isPacked ? std::string_view(packed) : bytes;
    ++Count;
}

std::string ZipWriter::Finish()
{
    const auto begin = static_cast<std::uint32_t>(Archive.size());
    Archive += Directory;
    Append<4>(Archive, EndSignature);
    Append<2>(Archive, 0);    // disk
    Append<2>(Archive, 0);    // disk of the directory
    Append<2>(Archive, Count);
    Append<2>(Archive, Count);
    Append<4>(Archive, static_cast<std::uint32_t>(Directory.size()));
    Append<4>(Archive, begin);
    Append<2>(Archive, 0);    // comment
    return std::move(Archive);
}

}
