#include "platform/FileReading.h"

#include "platform/Files.h"
#include "platform/HostServices.h"

namespace vostel {

OwnedFile OpenOrTell(const char* path)
{
    OwnedFile file = OpenFile(path, "rb");
    if (!file && !PathExists(path))
        ShowMessage(L"文件不存在");
    return file;
}

bool ReadToEnd(std::FILE* file, void* bytes, std::size_t count)
{
    return std::fread(bytes, 1, count, file) == count && std::fgetc(file) == EOF;
}

}
