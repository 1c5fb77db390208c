#include "vostel/ParameterFiles.h"

#include "platform/Files.h"

#include <cctype>
#include <limits>

using namespace vostel;

namespace {

template <typename Stream>
void Open(Stream& stream, const char* path, std::ios_base::openmode mode)
{
    if (OpenStream(*stream.rdbuf(), path, mode))
        stream.clear();
    else
        stream.setstate(std::ios_base::failbit);
}

// What is left of a line without white space, '=' and the characters of one kind.
template <typename Kind>
std::string Without(const std::string& line, Kind kind)
{
    std::string left;
    for (const char character : line) {
        const unsigned char code = static_cast<unsigned char>(character);
        if (!kind(code) && !std::isspace(code) && character != '=')
            left += character;
    }
    return left;
}

}

ZEKIODisk::ZEKIODisk() = default;
ZEKIODisk::~ZEKIODisk() = default;

void ZEKIODisk::OpenWrite(char* path)
{
    Open(Out, path, std::ios_base::out | std::ios_base::app);
}

void ZEKIODisk::OpenWriteEmpty(char* path)
{
    Open(Out, path, std::ios_base::out | std::ios_base::ate);
}

void ZEKIODisk::OpenRead(char* path)
{
    // What is no file, as a device, may have no end.
    if (IsPlainFile(path))
        Open(In, path, std::ios_base::in);
    else
        In.setstate(std::ios_base::failbit);
}

void ZEKIODisk::CloseWrite()
{
    Out.close();
}

void ZEKIODisk::CloseRead()
{
    In.close();
}

void ZEKIODisk::WritePara(char* name, void* value, int type)
{
    if (!name || !value)
        return;
    if (type == 0)
        Out << name << " = " << *static_cast<const int*>(value) << std::endl;
    else if (type == 1)
        Out << name << " = " << *static_cast<const float*>(value) << std::endl;
}

void ZEKIODisk::WriteChar(char* text)
{
    if (text)
        Out << text;
}

void ZEKIODisk::WriteString(std::string text)
{
    Out << text;
}

void ZEKIODisk::NextLine()
{
    Out << std::endl;
}

void ZEKIODisk::ReadMap()
{
    // Without a file a read would report its end.
    if (!In.is_open())
        In.setstate(std::ios_base::failbit);
    char buffer[100];
    while (In.good()) {
        In.getline(buffer, sizeof buffer);
        // Full without a line end: the rest of the line is passed over, or no read would get further.
        if (In.fail() && !In.eof() && !In.bad()) {
            In.clear();
            In.ignore(std::numeric_limits<std::streamsize>::max(), '\n');
        }
        const std::string line(buffer);
        if (line.empty())
            continue;
        ParaMap.emplace(Without(line, [](int code) { return std::isdigit(code) != 0; }),
                        Without(line, [](int code) { return std::isalpha(code) != 0; }));
    }
}

int ZEKIODisk::ReadInt(const char*)
{
    return 0;
}

float ZEKIODisk::ReadFlt(const char*)
{
    return 0.0f;
}
