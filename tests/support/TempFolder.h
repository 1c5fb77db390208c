#pragma once

#include <vostel/platform.h>

#include <cstdio>
#include <filesystem>
#include <random>
#include <string>
#include <vector>

// A folder of its own under the system's temporary folder, gone with all that is in it at the end of the
// scope. Its names are plain ASCII, so that the narrow and the wide form of a path agree everywhere.
class TempFolder {
public:
    TempFolder()
    {
        std::random_device random;
        do
            Root = std::filesystem::temp_directory_path() / ("vostel-test-" + std::to_string(random()));
        while (!std::filesystem::create_directory(Root));
    }
    ~TempFolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(Root, ignored);
    }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    // A path inside the folder, in the platform's own notation; the folder itself for an empty name.
    std::string Path(const std::string& name = std::string()) const { return Native(name).string(); }
    CString     WidePath(const std::string& name = std::string()) const
    {
        return CString(Native(name).wstring().c_str());
    }
    void MakeFolder(const std::string& name) const { std::filesystem::create_directory(Root / name); }
    // Files and folders right in the folder.
    std::size_t EntryCount() const
    {
        std::size_t count = 0;
        for ([[maybe_unused]] const auto& entry : std::filesystem::directory_iterator(Root))
            ++count;
        return count;
    }

private:
    std::filesystem::path Root;

    std::filesystem::path Native(const std::string& name) const
    {
        std::filesystem::path path = name.empty() ? Root : Root / name;
        return path.make_preferred();
    }
};

// As a new file: some file systems wait for the disk when one that has bytes is cut and written anew.
inline bool WriteBytes(const std::string& path, const std::vector<unsigned char>& bytes)
{
    std::remove(path.c_str());
    std::FILE* const file = std::fopen(path.c_str(), "wb");
    if (!file)
        return false;
    const bool written = bytes.empty() || std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size();
    return std::fclose(file) == 0 && written;
}

inline bool WriteText(const std::string& path, const std::string& text)
{
    return WriteBytes(path, std::vector<unsigned char>(text.begin(), text.end()));
}

// Empty for a file that cannot be opened.
inline std::vector<unsigned char> ReadBytes(const std::string& path)
{
    std::vector<unsigned char> bytes;
    std::FILE* const           file = std::fopen(path.c_str(), "rb");
    if (!file)
        return bytes;
    unsigned char block[4096];
    for (std::size_t got = 0; (got = std::fread(block, 1, sizeof block, file)) > 0;)
        bytes.insert(bytes.end(), block, block + got);
    std::fclose(file);
    return bytes;
}
