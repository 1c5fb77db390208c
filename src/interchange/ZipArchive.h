#pragma once

// Zip archives in memory. Entries are stored or deflated. What is read is not trusted: every size and place
// is checked against the archive before anything is allocated or unpacked.

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace vostel {

// Reads the directory of an archive, which has to outlive it. Failures are VOSTEL_BAD_FORMAT,
// VOSTEL_TOO_LARGE beyond the limits, and VOSTEL_NOT_SUPPORTED for encryption, zip64, archives over several
// disks and other ways of packing.
class ZipReader {
public:
    struct Entry {
        std::string   Name;              // UTF-8, with slashes
        bool          Packed = false;    // deflated
        std::uint32_t Checksum = 0;
        std::size_t   Begin = 0;    // of its data in the archive
        std::size_t   PackedSize = 0;
        std::size_t   Size = 0;
    };

    explicit ZipReader(std::string_view archive);

    const std::vector<Entry>& Entries() const { return Found; }    // as the directory lists them
    std::string               BytesOf(const Entry& entry) const;

private:
    std::string_view   Archive;
    std::vector<Entry> Found;

    std::uint32_t Number(std::size_t place, std::size_t bytes) const;
    std::size_t   FindEnd() const;
    void          ReadDirectory(std::size_t begin, std::size_t end, std::size_t count);
    Entry         EntryAt(std::size_t place, std::size_t directory) const;
    void          CheckPlaces() const;
};

// Builds an archive. The same entries give the same bytes: there is no date in it.
class ZipWriter {
public:
    // Fails with VOSTEL_TOO_LARGE where the archive would need zip64. The name is UTF-8.
    void        Add(const std::string& name, std::string_view bytes);
    std::string Finish();

private:
    std::string   Archive;
    std::string   Directory;
    std::uint32_t Count = 0;
};

}
