#include "vostel/RawDataFiles.h"

#include "base/Truncate.h"
#include "fileio/InterleaveRows.h"
#include "platform/FileReading.h"
#include "platform/PictureSaving.h"
#include "vostel/BmpFiles.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <memory>
#include <utility>

using namespace vostel;

namespace {

using WordPlane = ClassData2DIO<unsigned short>;

// Samples pass through a block that stays in the processor's cache.
constexpr std::size_t BlockSamples = 65536;

// Samples of a file in order; zeros where it has none.
class SampleFile {
public:
    explicit SampleFile(const char* path) : File(OpenOrTell(path))
    {
        if (File)
            std::setvbuf(File.get(), nullptr, _IONBF, 0);
    }

    template <typename T>
    void Read(T* samples, std::size_t count)
    {
        std::size_t got = 0;
        if (File)
            got = std::fread(samples, sizeof(T), count, File.get());
        if (got < count) {
            File.reset();
            std::memset(samples + got, 0, (count - got) * sizeof(T));
        }
    }

private:
    OwnedFile File;
};

bool HasElements(const WordPlane& image)
{
    return image.Width > 0 && image.Height > 0 && image.Ptr1D;
}

std::size_t Elements(const WordPlane& image)
{
    return static_cast<std::size_t>(image.Width) * static_cast<std::size_t>(image.Height);
}

// Whole blocks of fixed length, so that the conversion takes vectors.
template <typename T, typename Convert>
void ReadConverted(SampleFile& file, unsigned short* target, std::size_t count, Convert convert)
{
    const std::unique_ptr<T[]> block(new T[BlockSamples]);
    for (std::size_t at = 0; at < count; at += BlockSamples) {
        const std::size_t run = std::min(BlockSamples, count - at);
        file.Read(block.get(), run);
        const T* const        from = block.get();
        unsigned short* const to = target + at;
        if (run == BlockSamples) {
            for (std::size_t i = 0; i < BlockSamples; ++i)
                to[i] = convert(from[i]);
        } else {
            for (std::size_t i = 0; i < run; ++i)
                to[i] = convert(from[i]);
        }
    }
}

// Reads into new buffers and hands them over when nothing can fail any more. Region stays, as it does when
// ConvertFrom makes the buffers.
template <typename T, typename Convert>
void ReadIntoNewBuffers(WordPlane& image, const char* path, Convert convert)
{
    SampleFile file(path);
    if (!HasElements(image))
        return;
    WordPlane fresh;
    fresh.AllocateBuffers(image.Width, image.Height);
    ReadConverted<T>(file, fresh.Ptr1D, Elements(image), convert);
    // The old ones go with fresh, as far as they are the image's.
    std::swap(image.Ptr1D, fresh.Ptr1D);
    std::swap(image.Ptr2D, fresh.Ptr2D);
    std::swap(image.OwnPtr1D, fresh.OwnPtr1D);
    std::swap(image.OwnPtr2D, fresh.OwnPtr2D);
}

}

bool ReadUsDataFloat(ClassData2DIO<unsigned short>& image, char* path, float low, float high)
{
    SampleFile  file(path);
    const float range = high - low;
    if (std::fabs(static_cast<double>(range)) < 0.0001)
        return false;
    if (!HasElements(image))
        return true;
    const float k = static_cast<float>(65535.0 / static_cast<double>(range));
    ReadConverted<float>(file, image.Ptr1D, Elements(image), [low, k](float sample) {
        return static_cast<unsigned short>(TruncToInt64((sample - low) * k));
    });
    return true;
}

bool ReadUsDataShort(ClassData2DIO<unsigned short>& image, char* path)
{
    // The sums are whole numbers from 0 to 65535: float arithmetic would give the same.
    ReadIntoNewBuffers<short>(image, path,
                              [](short sample) { return static_cast<unsigned short>(sample + 32768); });
    return true;
}

bool ReadUsDataChar(ClassData2DIO<unsigned short>& image, char* path)
{
    ReadIntoNewBuffers<unsigned char>(
        image, path, [](unsigned char sample) { return static_cast<unsigned short>(sample); });
    return true;
}

bool gSaveUcData(ClassData2DIO<unsigned char>* image, CString& path)
{
    if (!image || image->Width < 1 || image->Height < 1 || !image->Ptr1D)
        return true;
    ATL::CImage picture;
    if (!picture.Create(image->Width, image->Height, 24))
        return true;
    unsigned char** const rows = Create2DList(&picture);
    if (!rows)
        return true;
    const InterleaveVariant& variant = ActiveInterleaveVariant();
    const std::size_t        width = static_cast<std::size_t>(image->Width);
    for (int y = 0; y < image->Height; ++y) {
        const unsigned char* const from = image->GetRow(y);
        variant.InterleaveTriples(from, from, from, rows[y], width);
    }
    Release2DList(rows);
    SavePicture(picture, path);
    return true;
}
