#include "vostel/BmpFiles.h"

#include "base/LittleEndian.h"
#include "fileio/InterleaveRows.h"
#include "foundation/RowThreads.h"
#include "platform/FileSaving.h"
#include "platform/Files.h"
#include "platform/PictureLimits.h"

#include <algorithm>
#include <climits>
#include <cstdint>
#include <cstring>
#include <memory>
#include <new>

using namespace vostel;

namespace {

using BytePlane = ClassData2DIO<unsigned char>;

constexpr int HeaderBytes = 54;    // file header and information header
constexpr int PaletteBytes = 1024;
// Pixels pass between planes and file through a block that stays in the processor's cache.
constexpr std::size_t BlockBytes = 128 * 1024;
constexpr std::size_t BytesForThreads = 1024 * 1024;

// All transfers are large, so that the stream's own buffer would only be one more copy.
std::FILE* Unbuffered(std::FILE* file)
{
    if (file)
        std::setvbuf(file, nullptr, _IONBF, 0);
    return file;
}

OwnedFile OpenUnbuffered(const char* path)
{
    OwnedFile file = OpenFile(path, "rb");
    Unbuffered(file.get());
    return file;
}

std::int64_t FileRowBytes(std::int64_t bits, std::int64_t width)
{
    return (bits * width / 8 + 3) / 4 * 4;
}

struct Layout {
    std::int32_t Width = 0;
    std::int32_t Height = 0;
    int          Bits = 0;

    // The only depths whose pixels are read.
    bool         HasPixels() const { return Bits == 8 || Bits == 24 || Bits == 32; }
    std::int64_t RowBytes() const { return FileRowBytes(Bits, Width); }
    std::int64_t PixelsAt() const { return HeaderBytes + (Bits == 8 ? PaletteBytes : 0); }
    std::size_t  PixelCount() const
    {
        return static_cast<std::size_t>(Width) * static_cast<std::size_t>(Height);
    }
};

// A file may have lost its last rows, but a header alone must not lead to large allocations. Rejected: more
// rows are missing than present, and the missing rows would need more than this, with their row table.
constexpr std::int64_t LostBytesAllowed = 32 * 1024 * 1024;

bool IsPlausible(const Layout& layout, std::int64_t fileBytes)
{
    if (layout.Width < 0 || layout.Height < 0)
        return false;
    const std::int64_t width = layout.Width, height = layout.Height;
    if (width * height > INT_MAX || !IsWithinLimitsOfPlanes(fileBytes, width * height))
        return false;
    const std::int64_t held = std::max<std::int64_t>(fileBytes - layout.PixelsAt(), 0);
    const std::int64_t rowBytes = layout.RowBytes();
    const std::int64_t rowsHeld = rowBytes > 0 ? std::min(held / rowBytes, height) : 0;
    const std::int64_t rowsLost = height - rowsHeld;
    const std::int64_t bytesOfRow = width + static_cast<std::int64_t>(sizeof(unsigned char*));
    return rowsLost <= rowsHeld || rowsLost * bytesOfRow <= LostBytesAllowed;
}

// Leaves the file at its first pixel. Marks, positions and sizes in the header are ignored; what is
// missing of a short file's header is zero, as its missing pixels are.
bool ReadLayout(std::FILE* file, Layout& layout)
{
    unsigned char      header[HeaderBytes];
    const std::int64_t fileBytes = FileLength(file);
    const std::size_t  got = std::fread(header, 1, sizeof header, file);
    std::memset(header + got, 0, sizeof header - got);
    layout.Width = static_cast<std::int32_t>(ReadLittleEndian({header + 18, 4}));
    layout.Height = static_cast<std::int32_t>(ReadLittleEndian({header + 22, 4}));
    layout.Bits = static_cast<int>(ReadLittleEndian({header + 28, 2}));
    if (!IsPlausible(layout, fileBytes))
        return false;
    // Beyond the end of a file cut short in its palette there are no pixels to read.
    return layout.Bits != 8 || std::fseek(file, HeaderBytes + PaletteBytes, SEEK_SET) == 0;
}

// Calls take(filePixels, first, pixels) for runs of pixels that are contiguous in the file as in a plane,
// first being the place in the plane. Pixels that the file has lost are zero. Of a large file several threads
// read and take at once: a copy by the system takes longer than what is done with it.
template <typename Take>
void ForEachRun(std::FILE* file, const Layout& layout, Take take)
{
    if (layout.PixelCount() == 0)
        return;
    const std::size_t width = static_cast<std::size_t>(layout.Width);
    const std::size_t height = static_cast<std::size_t>(layout.Height);
    const std::size_t rowBytes = static_cast<std::size_t>(layout.RowBytes());
    const std::size_t pixelBytes = static_cast<std::size_t>(layout.Bits / 8);
    const std::size_t blockRows = std::min(std::max<std::size_t>(BlockBytes / rowBytes, 1), height);
    const auto        forEachBlock = [&](RowRun blocks, auto read) {
        const auto block = std::make_unique_for_overwrite<unsigned char[]>(blockRows * rowBytes);
        for (int i = blocks.First; i < blocks.End; ++i) {
            const std::size_t y = static_cast<std::size_t>(i) * blockRows;
            const std::size_t rows = std::min(blockRows, height - y);
            const std::size_t got = read(y, block.get(), rows * rowBytes);
            std::memset(block.get() + got, 0, rows * rowBytes - got);
            if (rowBytes == width * pixelBytes) {
                take(block.get(), y * width, rows * width);
                continue;
            }
            for (std::size_t row = 0; row < rows; ++row)
                take(block.get() + row * rowBytes, (y + row) * width, width);
        }
    };
    const int blocks = static_cast<int>((height + blockRows - 1) / blockRows);
    if (height * rowBytes < BytesForThreads || FileLength(file) < 0) {
        forEachBlock({0, blocks}, [&](std::size_t, unsigned char* to, std::size_t bytes) {
            return std::fread(to, 1, bytes, file);
        });
        return;
    }
    ForEachRowRun(blocks, [&](RowRun run) {
        forEachBlock(run, [&](std::size_t y, unsigned char* to, std::size_t bytes) {
            return ReadFileAt(file, layout.PixelsAt() + static_cast<long long>(y * rowBytes), to, bytes);
        });
    });
}

void Clear(BytePlane& plane, std::size_t pixels)
{
    std::memset(plane.Ptr1D, 0, pixels);
}

// A row of a plane in a row of another one's width. Hosts may hand over planes that do not match: what
// lies outside a plane is zero.
class RowReader {
public:
    RowReader(const BytePlane& plane, std::size_t width)
        : Plane(plane), Width(width),
          Held(plane.Ptr1D && plane.Width > 0 ? static_cast<std::size_t>(plane.Width) : 0)
    {
    }

    const unsigned char* Row(std::int32_t y)
    {
        if (Held >= Width && y < Plane.Height)
            return Plane.Ptr1D + static_cast<std::size_t>(y) * Held;
        if (!Padded)
            Padded = std::make_unique_for_overwrite<unsigned char[]>(Width);
        const std::size_t copied = y < Plane.Height ? std::min(Held, Width) : 0;
        if (copied > 0)
            std::memcpy(Padded.get(), Plane.Ptr1D + static_cast<std::size_t>(y) * Held, copied);
        std::memset(Padded.get() + copied, 0, Width - copied);
        return Padded.get();
    }

private:
    const BytePlane&                 Plane;
    std::size_t                      Width;
    std::size_t                      Held;    // pixels of the plane's rows
    std::unique_ptr<unsigned char[]> Padded;
};

struct OutputLayout {
    std::int32_t  Width;
    std::int32_t  Height;
    int           Bits;
    std::uint32_t PixelsAt;
    std::uint32_t PixelsPerMetre;
};

// The sizes in bytes are the low 32 bits. The stream remembers a write that fails.
void WriteHeader(std::FILE* file, const OutputLayout& layout)
{
    const std::uint32_t pixelBytes =
        static_cast<std::uint32_t>(layout.Height * FileRowBytes(layout.Bits, layout.Width));
    unsigned char header[HeaderBytes] = {'B', 'M'};
    WriteLittleEndian({header + 2, 4}, pixelBytes + layout.PixelsAt);
    WriteLittleEndian({header + 10, 4}, layout.PixelsAt);
    WriteLittleEndian({header + 14, 4}, 40);    // size of the information header
    WriteLittleEndian({header + 18, 4}, static_cast<std::uint32_t>(layout.Width));
    WriteLittleEndian({header + 22, 4}, static_cast<std::uint32_t>(layout.Height));
    WriteLittleEndian({header + 26, 2}, 1);    // planes
    WriteLittleEndian({header + 28, 2}, static_cast<std::uint32_t>(layout.Bits));
    WriteLittleEndian({header + 34, 4}, pixelBytes);
    WriteLittleEndian({header + 38, 4}, layout.PixelsPerMetre);
    WriteLittleEndian({header + 42, 4}, layout.PixelsPerMetre);
    std::fwrite(header, 1, sizeof header, file);
}

// Writes the rows that put(y, fileRow) fills, their padding zero.
template <typename Put>
void WriteRows(std::FILE* file, const OutputLayout& layout, Put put)
{
    if (layout.Width <= 0 || layout.Height <= 0)
        return;
    const std::size_t rowBytes = static_cast<std::size_t>(FileRowBytes(layout.Bits, layout.Width));
    const std::size_t height = static_cast<std::size_t>(layout.Height);
    const std::size_t blockRows = std::min(std::max<std::size_t>(BlockBytes / rowBytes, 1), height);
    const auto        block = std::make_unique<unsigned char[]>(blockRows * rowBytes);    // zeros
    for (std::size_t y = 0; y < height; y += blockRows) {
        const std::size_t rows = std::min(blockRows, height - y);
        for (std::size_t row = 0; row < rows; ++row)
            put(static_cast<std::int32_t>(y + row), block.get() + row * rowBytes);
        if (std::fwrite(block.get(), 1, rows * rowBytes, file) != rows * rowBytes)
            return;
    }
}

}

bool ZEKReadColorBmp(char* path, ClassData2DIO<unsigned char>* red, ClassData2DIO<unsigned char>* green,
                     ClassData2DIO<unsigned char>* blue, ClassData2DIO<unsigned char>* alpha)
{
    if (!red || !green || !blue || !alpha)
        return false;
    const OwnedFile file = OpenUnbuffered(path);
    if (!file)
        return false;
    BytePlane* const planes[] = {red, green, blue, alpha};
    Layout           layout;
    if (!ReadLayout(file.get(), layout)) {
        for (BytePlane* plane : planes)
            plane->Release();
        return false;
    }
    for (BytePlane* plane : planes)
        plane->Allocate(layout.Width, layout.Height);
    Clear(*alpha, layout.PixelCount());
    if (!layout.HasPixels()) {
        for (BytePlane* plane : planes)
            Clear(*plane, layout.PixelCount());
        return true;
    }
    const InterleaveVariant& variant = ActiveInterleaveVariant();
    unsigned char*           r = red->Ptr1D;
    unsigned char*           g = green->Ptr1D;
    unsigned char*           b = blue->Ptr1D;
    ForEachRun(file.get(), layout, [&](const unsigned char* from, std::size_t first, std::size_t pixels) {
        if (layout.Bits == 24) {
            variant.DeinterleaveTriples(from, r + first, g + first, b + first, pixels);
        } else if (layout.Bits == 32) {
            variant.DeinterleaveQuads(from, r + first, g + first, b + first, pixels);
        } else {
            std::memcpy(r + first, from, pixels);
            std::memcpy(g + first, from, pixels);
            std::memcpy(b + first, from, pixels);
        }
    });
    return true;
}

bool ZEKReadGrayBmp(char* path, ClassData2DIO<unsigned char>* gray)
{
    if (!gray)
        return true;
    const OwnedFile file = OpenUnbuffered(path);
    Layout          layout;
    if (!file || !ReadLayout(file.get(), layout)) {
        gray->Allocate(0, 0);
        return true;
    }
    gray->Allocate(layout.Width, layout.Height);
    if (!layout.HasPixels()) {
        Clear(*gray, layout.PixelCount());
        return true;
    }
    // What reading into planes and turning those into gray gives, without the planes.
    const InterleaveVariant& variant = ActiveInterleaveVariant();
    unsigned char*           target = gray->Ptr1D;
    ForEachRun(file.get(), layout, [&](const unsigned char* from, std::size_t first, std::size_t pixels) {
        if (layout.Bits == 8) {
            variant.LevelToGray(from, target + first, pixels);
            return;
        }
        const std::size_t pieceLength = 2048;
        unsigned char     red[pieceLength], green[pieceLength], blue[pieceLength];
        for (std::size_t x = 0; x < pixels; x += pieceLength) {
            const std::size_t piece = std::min(pieceLength, pixels - x);
            if (layout.Bits == 24)
                variant.DeinterleaveTriples(from + 3 * x, red, green, blue, piece);
            else
                variant.DeinterleaveQuads(from + 4 * x, red, green, blue, piece);
            variant.ColorToGray(red, green, blue, target + first + x, piece);
        }
    });
    return true;
}

bool ZEKSaveGrayBmp(char* path, ClassData2DIO<unsigned char>& gray)
{
    const OutputLayout layout = {gray.Width, gray.Height, 8, HeaderBytes + PaletteBytes, 47244};
    FileReplacement    target{CString(path)};
    std::FILE* const   file = Unbuffered(target.Stream());
    if (!file)
        return false;
    unsigned char palette[PaletteBytes] = {};
    for (int i = 0; i < 256; ++i)
        std::memset(palette + 4 * i, i, 3);
    WriteHeader(file, layout);
    std::fwrite(palette, 1, sizeof palette, file);
    if (gray.Ptr1D && gray.Width > 0 && gray.Height > 0 && gray.Width % 4 == 0) {
        // Rows without padding lie in the file as they lie in the plane.
        const std::size_t bytes =
            static_cast<std::size_t>(gray.Width) * static_cast<std::size_t>(gray.Height);
        std::fwrite(gray.Ptr1D, 1, bytes, file);
        target.Keep();    // a failure is not reported
        return true;
    }
    const std::size_t width = static_cast<std::size_t>(std::max(gray.Width, 0));
    RowReader         source(gray, width);
    WriteRows(file, layout,
              [&](std::int32_t y, unsigned char* row) { std::memcpy(row, source.Row(y), width); });
    target.Keep();
    return true;
}

bool ZEKSaveColorBmp(const char* path, ClassData2DIO<unsigned char>* red, ClassData2DIO<unsigned char>* green,
                     ClassData2DIO<unsigned char>* blue)
{
    if (!red || !green || !blue)
        return false;
    const OutputLayout layout = {red->Width, red->Height, 24, HeaderBytes, 0};
    FileReplacement    target{CString(path)};
    std::FILE* const   file = Unbuffered(target.Stream());
    if (!file)
        return false;
    WriteHeader(file, layout);
    const InterleaveVariant& variant = ActiveInterleaveVariant();
    const std::size_t        width = static_cast<std::size_t>(std::max(red->Width, 0));
    RowReader                redRows(*red, width), greenRows(*green, width), blueRows(*blue, width);
    WriteRows(file, layout, [&](std::int32_t y, unsigned char* row) {
        variant.InterleaveTriples(redRows.Row(y), greenRows.Row(y), blueRows.Row(y), row, width);
    });
    target.Keep();    // a failure is not reported
    return true;
}

bool ZEKColorToGray(ClassData2DIO<unsigned char>* red, ClassData2DIO<unsigned char>* green,
                    ClassData2DIO<unsigned char>* blue, ClassData2DIO<unsigned char>* gray)
{
    if (!red || !green || !blue || !gray)
        return true;
    // A released plane has a size of -1.
    const std::int32_t width = std::max(red->Width, 0), height = std::max(red->Height, 0);
    gray->Allocate(width, height);
    // Allocating has taken the values of a channel that is also the target.
    if (gray == red || gray == green || gray == blue)
        Clear(*gray, static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
    const InterleaveVariant& variant = ActiveInterleaveVariant();
    const std::size_t        rowLength = static_cast<std::size_t>(width);
    RowReader redRows(*red, rowLength), greenRows(*green, rowLength), blueRows(*blue, rowLength);
    for (std::int32_t y = 0; y < height; ++y)
        variant.ColorToGray(redRows.Row(y), greenRows.Row(y), blueRows.Row(y),
                            gray->Ptr1D + static_cast<std::size_t>(y) * rowLength, rowLength);
    return true;
}

void GetImageParament(ATL::CImage* image, IMAGEPARAMENT* params)
{
    if (!image || !params || image->IsNull())
        return;
    params->Width = image->GetWidth();
    params->Height = image->GetHeight();
    params->BitCount = image->GetBPP();
    const std::int64_t lineBytes =
        (static_cast<std::int64_t>(params->BitCount) * params->Width + 31) / 32 * 4;
    params->BytesPerLine = static_cast<std::int32_t>(lineBytes);
    params->BytesPerPixel = params->BitCount / 8;
    params->PaletteEntries = params->BitCount < 9 ? 1 << params->BitCount : 0;
    params->ImageBytes = static_cast<std::int32_t>(lineBytes * params->Height);
}

unsigned char** Create2DList(ATL::CImage* image)
{
    if (!image || image->IsNull())
        return nullptr;
    const std::size_t     height = static_cast<std::size_t>(image->GetHeight());
    unsigned char** const list = new (std::nothrow) unsigned char*[height];
    if (!list)
        return nullptr;
    unsigned char* const topRow = static_cast<unsigned char*>(image->GetBits());
    const std::ptrdiff_t pitch = image->GetPitch();
    for (std::size_t y = 0; y < height; ++y)
        list[y] = topRow + static_cast<std::ptrdiff_t>(y) * pitch;
    return list;
}

void Release2DList(unsigned char** list)
{
    delete[] list;
}
