#include "support/TempFolder.h"

#include <VostelObj.h>

#include <doctest/doctest.h>

#if !defined(_WIN32)
#    include <sys/stat.h>
#endif

namespace {

using Map = std::map<std::string, std::string>;

Map Read(const TempFolder& folder, const std::string& text)
{
    std::string path = folder.Path("read.ini");
    WriteBytes(path, std::vector<unsigned char>(text.begin(), text.end()));
    ZEKIODisk disk;
    disk.OpenRead(path.data());
    disk.ReadMap();
    return disk.ParaMap;
}

std::string Text(const std::string& path)
{
    std::string text;
    for (const unsigned char byte : ReadBytes(path))
        if (byte != '\r')
            text += static_cast<char>(byte);
    return text;
}

}

TEST_CASE("parameters are written one a line, other types not at all")
{
    TempFolder  folder;
    std::string path = folder.Path("IODisk.ini"), name = "height", other = "sod";
    int         height = 45;
    float       sod = 89.1234567f;
    ZEKIODisk   disk;
    disk.OpenWriteEmpty(path.data());
    disk.WritePara(name.data(), &height, 0);
    disk.WritePara(name.data(), &height, 2);
    disk.WritePara(other.data(), &sod, 1);
    disk.WritePara(nullptr, &height, 0);
    disk.WritePara(name.data(), nullptr, 0);
    disk.WriteChar(name.data());
    disk.WriteChar(nullptr);
    disk.WriteString(" end");
    disk.NextLine();
    disk.CloseWrite();
    CHECK(Text(path) == "height = 45\nsod = 89.1235\nheight end\n");
}

TEST_CASE("OpenWrite appends and OpenWriteEmpty starts afresh")
{
    TempFolder  folder;
    std::string path = folder.Path("a.ini");
    for (int i = 0; i < 2; ++i) {
        ZEKIODisk disk;
        disk.OpenWrite(path.data());
        disk.WriteString("x");
    }
    CHECK(Text(path) == "xx");
    ZEKIODisk disk;
    disk.OpenWriteEmpty(path.data());
    disk.WriteString("y");
    disk.CloseWrite();
    CHECK(Text(path) == "y");
}

TEST_CASE("a line is split by kinds of character")
{
    TempFolder folder;
    CHECK(Read(folder, "height = 45\nsod = 89\n") == Map{{"height", "45"}, {"sod", "89"}});
    CHECK(Read(folder, "sigma = 2.5") == Map{{"sigma.", "2.5"}});
    CHECK(Read(folder, "x = -1") == Map{{"x-", "-1"}});
    CHECK(Read(folder, "gain2 = 7") == Map{{"gain", "27"}});
    CHECK(Read(folder, "e = 1e-005") == Map{{"ee-", "1-005"}});
    CHECK(Read(folder, "text only") == Map{{"textonly", ""}});
    CHECK(Read(folder, "123") == Map{{"", "123"}});
}

TEST_CASE("the first value of a name stays, empty lines add nothing, the last line needs no end")
{
    TempFolder folder;
    CHECK(Read(folder, "a = 1\na = 2\n") == Map{{"a", "1"}});
    CHECK(Read(folder, "a = 1\n\n\nb = 2") == Map{{"a", "1"}, {"b", "2"}});
    CHECK(Read(folder, "") == Map{});
}

TEST_CASE("the map only grows, and the getters look nothing up")
{
    TempFolder  folder;
    std::string path = folder.Path("grow.ini");
    WriteBytes(path, {'h', '=', '4'});
    ZEKIODisk disk;
    disk.OpenRead(path.data());
    disk.ReadMap();
    disk.CloseRead();
    WriteBytes(path, {'h', '=', '5', '\n', 'w', '=', '6'});
    disk.OpenRead(path.data());
    disk.ReadMap();
    CHECK(disk.ParaMap == Map{{"h", "4"}, {"w", "6"}});
    CHECK(disk.ReadInt("h") == 0);
    CHECK(disk.ReadFlt("h") == 0.0f);
}

TEST_CASE("of a line the first 99 characters count, and the next line is read")
{
    TempFolder folder;
    for (const int length : {98, 99, 100, 101, 198, 199, 5000}) {
        CAPTURE(length);
        const std::string longLine(static_cast<std::size_t>(length), 'n');
        const std::string kept(static_cast<std::size_t>(std::min(length, 99)), 'n');
        CHECK(Read(folder, longLine + "\nb = 2\n") == Map{{kept, ""}, {"b", "2"}});
        CHECK(Read(folder, longLine) == Map{{kept, ""}});
    }
}

TEST_CASE("ReadMap ends on streams that are closed, missing or a directory")
{
    TempFolder  folder;
    std::string missing = folder.Path("missing.ini"), directory = folder.Path();
    ZEKIODisk   disk;
    disk.ReadMap();
    CHECK(disk.In.fail());
    CHECK_FALSE(disk.In.eof());
    disk.In.clear();
    disk.OpenRead(missing.data());
    CHECK(disk.In.fail());
    CHECK_FALSE(disk.In.eof());
    disk.ReadMap();
    disk.OpenRead(nullptr);
    disk.ReadMap();
    ZEKIODisk other;
    other.OpenRead(directory.data());
    other.ReadMap();
    CHECK(other.ParaMap.empty());
    CHECK(disk.ParaMap.empty());
    disk.OpenWrite(directory.data());
    CHECK(disk.Out.fail());
    disk.WriteString("nowhere");
}

#if !defined(_WIN32)

TEST_CASE("a pipe, whose other end nobody opens, and a device without an end are not opened")
{
    TempFolder  folder;
    std::string pipe = folder.Path("pipe"), zeros = "/dev/zero", nothing = "/dev/null";
    REQUIRE(mkfifo(pipe.c_str(), 0600) == 0);
    ZEKIODisk disk;
    disk.OpenRead(pipe.data());
    CHECK(disk.In.fail());
    disk.ReadMap();
    ZEKIODisk appended, emptied, endless;
    appended.OpenWrite(pipe.data());
    CHECK(appended.Out.fail());
    emptied.OpenWriteEmpty(pipe.data());
    CHECK(emptied.Out.fail());
    endless.OpenRead(zeros.data());
    CHECK(endless.In.fail());
    endless.ReadMap();
    CHECK(endless.ParaMap.empty());
    // What is written to a device does get there, and a link to a plain file is one.
    ZEKIODisk device;
    device.OpenWrite(nothing.data());
    CHECK(device.Out.good());
    CHECK(Read(folder, "a = 1") == Map{{"a", "1"}});
    std::string link = folder.Path("link.ini");
    std::filesystem::create_symlink(folder.Path("read.ini"), link);
    ZEKIODisk linked;
    linked.OpenRead(link.data());
    linked.ReadMap();
    CHECK(linked.ParaMap == Map{{"a", "1"}});
}

#endif
