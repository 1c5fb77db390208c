#include "interchange/ZipArchive.h"

#include "base/Failure.h"
#include "base/LittleEndian.h"

#include <doctest/doctest.h>

#include <optional>
#include <random>
#include <string>
#include <vector>

using namespace vostel;

namespace {

struct Item {
    std::string Name;
    std::string Bytes;
};

std::string Packed(const std::vector<Item>& items)
{
    ZipWriter zip;
    for (const Item& item : items)
        zip.Add(item.Name, item.Bytes);
    return zip.Finish();
}

// The failure of taking everything out, none if there is none.
std::optional<Failure> FailureOf(const std::string& archive)
{
    try {
        const ZipReader zip(archive);
        for (const ZipReader::Entry& entry : zip.Entries())
            zip.BytesOf(entry);
        return std::nullopt;
    } catch (const Failure& failure) {
        return failure;
    }
}

VostelStatus StatusOf(const std::string& archive)
{
    const std::optional<Failure> failure = FailureOf(archive);
    return failure ? failure->Status : VOSTEL_OK;
}

std::string Random(std::mt19937& random, std::size_t count)
{
    std::string bytes;
    for (std::size_t i = 0; i < count; ++i)
        bytes += static_cast<char>(random());
    return bytes;
}

const std::vector<Item> Mixed = {
    {"a.roi", "Iout and more, more, more, more, more"}, {"empty", ""}, {"folder/b\xC3\xA9.roi", "x"}};

// A number of an archive of one entry, replaced in the local header and in the directory.
constexpr std::size_t Local = 0;
void Set(std::string& archive, std::size_t inLocal, std::size_t inDirectory, std::size_t bytes,
         std::uint32_t value)
{
    const std::size_t directory = archive.find("PK\1\2");
    REQUIRE(directory != std::string::npos);
    unsigned char number[4];
    WriteLittleEndian(std::span(number).first(bytes), value);
    archive.replace(Local + inLocal, bytes, reinterpret_cast<const char*>(number), bytes);
    archive.replace(directory + inDirectory, bytes, reinterpret_cast<const char*>(number), bytes);
}

}

TEST_CASE("what is put into an archive comes out")
{
    std::mt19937      random(3);
    std::vector<Item> items = Mixed;
    items.push_back({"noise", Random(random, 5000)});
    items.push_back({"alike", std::string(70000, 'a') + std::string(70000, 'b')});
    const std::string archive = Packed(items);
    const ZipReader   zip(archive);
    REQUIRE(zip.Entries().size() == items.size());
    for (std::size_t i = 0; i < items.size(); ++i) {
        CHECK(zip.Entries()[i].Name == items[i].Name);
        CHECK(zip.BytesOf(zip.Entries()[i]) == items[i].Bytes);
    }
    CHECK(archive.size() < 8000);
    CHECK_FALSE(zip.Entries()[3].Packed);    // noise does not get smaller
    CHECK(zip.Entries()[4].Packed);
}

TEST_CASE("an archive of nothing has no entries, and one may end in a comment")
{
    std::string archive = Packed({});
    CHECK(archive.size() == 22);
    CHECK(ZipReader(archive).Entries().empty());
    archive = Packed(Mixed);
    archive[archive.size() - 2] = 5;
    CHECK(StatusOf(archive) == VOSTEL_BAD_FORMAT);
    CHECK(StatusOf(archive + "words") == VOSTEL_OK);
    CHECK(StatusOf(archive + "words.") == VOSTEL_BAD_FORMAT);
}

TEST_CASE("the same entries give the same bytes")
{
    CHECK(Packed(Mixed) == Packed(Mixed));
}

TEST_CASE("an archive cut anywhere is damaged")
{
    const std::string archive = Packed(Mixed);
    for (std::size_t length = 0; length < archive.size(); ++length) {
        CAPTURE(length);
        CHECK(StatusOf(archive.substr(0, length)) == VOSTEL_BAD_FORMAT);
    }
}

TEST_CASE("an archive with any bit changed is refused or gives the same bytes")
{
    const std::string archive = Packed(Mixed);
    for (std::size_t i = 0; i < archive.size(); ++i) {
        for (int bit = 0; bit < 8; ++bit) {
            CAPTURE(i);
            CAPTURE(bit);
            std::string changed = archive;
            changed[i] = static_cast<char>(changed[i] ^ 1 << bit);
            if (StatusOf(changed) != VOSTEL_OK)
                continue;
            const ZipReader zip(changed);
            REQUIRE(zip.Entries().size() == Mixed.size());
            for (std::size_t entry = 0; entry < Mixed.size(); ++entry)
                CHECK(zip.BytesOf(zip.Entries()[entry]) == Mixed[entry].Bytes);
        }
    }
}

TEST_CASE("an entry that claims more than a thousand times its size is refused unread")
{
    CHECK(StatusOf(Packed({{"a", std::string(40 * 1000, 'a')}})) == VOSTEL_OK);
    std::string bomb = Packed({{"a", std::string(64 * 1000 * 1000, 'a')}});
    CHECK(StatusOf(bomb) == VOSTEL_BAD_FORMAT);
    bomb = Packed({{"a", "one or two"}});
    Set(bomb, 22, 24, 4, 0xFFFFFFF0);
    CHECK(StatusOf(bomb) == VOSTEL_BAD_FORMAT);
}

TEST_CASE("an entry that unpacks to more or less than it says is damaged")
{
    for (const std::uint32_t size : {899u, 901u, 0u, 30000u}) {
        std::string archive = Packed({{"a", std::string(900, 'a')}});
        Set(archive, 22, 24, 4, size);
        CHECK(StatusOf(archive) == VOSTEL_BAD_FORMAT);
    }
}

TEST_CASE("entries that share bytes are refused")
{
    // The second entry of the directory points to the first one's place, whose name it has too.
    std::string       archive = Packed({{"a", std::string(900, 'a')}, {"a", std::string(900, 'a')}});
    const std::size_t first = archive.find("PK\1\2");
    const std::size_t second = archive.find("PK\1\2", first + 4);
    REQUIRE(StatusOf(archive) == VOSTEL_OK);
    archive.replace(second + 42, 4, 4, '\0');
    const std::optional<Failure> failure = FailureOf(archive);
    REQUIRE(failure);
    CHECK(failure->Status == VOSTEL_BAD_FORMAT);
    CHECK(failure->Message == "the zip archive is damaged: entry \"a\" overlaps entry \"a\"");
}

TEST_CASE("names that lead out of a folder are refused, dots within a name are not")
{
    for (const char* const name : {"../a.roi", "b/../../a.roi", "/a.roi", "..", "..\\a.roi", ""})
        CHECK(StatusOf(Packed({{name, "x"}})) == VOSTEL_BAD_FORMAT);
    for (const char* const name : {"a..b.roi", "..a", "b/...", "a./b"})
        CHECK(StatusOf(Packed({{name, "x"}})) == VOSTEL_OK);
}

TEST_CASE("names of another code page keep their ASCII letters")
{
    std::string archive = Packed({{"caf__", "x"}});
    for (std::size_t at = 0; (at = archive.find("caf__", at)) != std::string::npos; at += 5)
        archive.replace(at, 5, "caf\x82!");
    REQUIRE(StatusOf(archive) == VOSTEL_OK);
    CHECK(ZipReader(archive).Entries()[0].Name == "caf\xEF\xBF\xBD!");
}

TEST_CASE("encryption, zip64, disks and other ways of packing are named")
{
    const auto message = [](const std::string& archive) {
        const std::optional<Failure> failure = FailureOf(archive);
        REQUIRE(failure);
        CHECK(failure->Status == VOSTEL_NOT_SUPPORTED);
        return failure->Message;
    };
    const std::string plain = Packed({{"a", "one"}});
    std::string       archive = plain;
    Set(archive, 6, 8, 2, 1);
    CHECK(message(archive) == "entry \"a\" is encrypted");
    archive = plain;
    Set(archive, 8, 10, 2, 14);
    CHECK(message(archive) == "entry \"a\" is packed in a way that is not supported");
    archive = plain;
    Set(archive, 18, 20, 4, 0xFFFFFFFF);
    CHECK(message(archive) == "entry \"a\" is of zip64, which is not supported");
    archive = plain;
    archive.replace(archive.size() - 12, 2, "\xFF\xFF");
    CHECK(message(archive) == "zip64 archives are not supported");
    archive = plain;
    archive[archive.size() - 18] = 1;
    CHECK(message(archive) == "zip archives over several disks are not supported");
}
