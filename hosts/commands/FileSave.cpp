#include "commands/FileSave.h"

#include "commands/FilePaths.h"
#include "commands/Texts.h"

#include <filesystem>
#include <system_error>

namespace vostel::viewer {

namespace {

namespace files = std::filesystem;

// With the same ending, by which the format is chosen. A file of someone else's is not taken.
std::wstring NameBeside(const std::wstring& wanted)
{
    const std::size_t dot = wanted.find_last_of(L"./\\");
    const bool        hasEnding = dot != std::wstring::npos && wanted[dot] == L'.';
    const std::size_t stem = hasEnding ? dot : wanted.size();
    std::wstring      name;
    std::error_code   failed;
    for (int number = 1; name.empty() || files::exists(PathOf(name.c_str()), failed); ++number)
        name = wanted.substr(0, stem) + L"~" + std::to_wstring(number) + wanted.substr(stem);
    return name;
}

}

std::wstring FileSave::Begin(const std::wstring& wanted)
{
    Target = wanted;
    Beside = NameBeside(wanted);
    return Beside;
}

const char* FileSave::End()
{
    const files::path beside = PathOf(Beside.c_str()), target = PathOf(Target.c_str());
    std::error_code   failed;
    if (!files::is_regular_file(beside, failed))
        return files::is_directory(target.parent_path(), failed)
                   ? Words("The file cannot be written. The folder may be write-protected or the disk full.")
                   : Words("The file cannot be written: there is no such folder.");
    const bool isFolder = files::is_directory(target, failed);
    if (!isFolder) {
        files::rename(beside, target, failed);
        if (!failed)
            return nullptr;
    }
    files::remove(beside, failed);
    return isFolder ? Words("This is a folder, not a file.")
                    : Words("The file that is there cannot be replaced. It may be open in another program.");
}

}
