// GIF by giflib: the first image of a file, 8 bits with its indices. Color pictures are quantised to 256
// colors when written.

#include "platform/portable/PictureCodecs.h"

#include <gif_lib.h>

#include <algorithm>
#include <cstring>
#include <memory>

namespace vostel::pictures {
namespace {

struct Source {
    const Bytes* File;
    std::size_t  At;
};

int ReadBytes(GifFileType* gif, GifByteType* target, int count)
{
    Source*           source = static_cast<Source*>(gif->UserData);
    const std::size_t taken = std::min(source->File->size() - source->At, static_cast<std::size_t>(count));
    std::memcpy(target, source->File->data() + source->At, taken);
    source->At += taken;
    return static_cast<int>(taken);
}

int WriteBytes(GifFileType* gif, const GifByteType* bytes, int count)
{
    Bytes* file = static_cast<Bytes*>(gif->UserData);
    try {
        file->insert(file->end(), bytes, bytes + count);
    } catch (...) {
        return 0;
    }
    return count;
}

struct CloseReader {
    void operator()(GifFileType* gif) const { DGifCloseFile(gif, nullptr); }
};
struct CloseWriter {
    void operator()(GifFileType* gif) const { EGifCloseFile(gif, nullptr); }
};
struct FreeColors {
    void operator()(ColorMapObject* colors) const { GifFreeMapObject(colors); }
};

// The image lies somewhere on the screen that the file declares; what it leaves free has the background's
// index.
bool ReadImage(GifFileType* gif, const Bytes& file, PictureBuffer& picture)
{
    if (DGifGetImageDesc(gif) == GIF_ERROR)
        return false;
    const GifImageDesc& image = gif->Image;
    const long long     width = std::max(gif->SWidth, image.Left + image.Width);
    const long long     height = std::max(gif->SHeight, image.Top + image.Height);
    if (image.Width <= 0 || image.Height <= 0 || image.Left < 0 || image.Top < 0 ||
        !IsTaken(file, width, height) || !IsPlausible(width * height, file.size(), 4096))
        return false;
    const ColorMapObject* colors = image.ColorMap ? image.ColorMap : gif->SColorMap;
    if (!colors || !picture.Allocate(static_cast<int>(width), static_cast<int>(height), 8))
        return false;
    std::memset(picture.Palette, 0, sizeof picture.Palette);
    for (int i = 0; i < colors->ColorCount && i < 256; ++i)
        picture.Palette[i] = {colors->Colors[i].Blue, colors->Colors[i].Green, colors->Colors[i].Red, 0};
    if (width != image.Width || height != image.Height)
        for (int y = 0; y < picture.Height; ++y)
            std::fill_n(picture.Row(y), picture.Width, static_cast<unsigned char>(gif->SBackGroundColor));

    const int starts[] = {0, 4, 2, 1}, steps[] = {8, 8, 4, 2};
    for (int pass = 0; pass < (image.Interlace ? 4 : 1); ++pass)
        for (int y = image.Interlace ? starts[pass] : 0; y < image.Height;
             y += image.Interlace ? steps[pass] : 1)
            if (DGifGetLine(gif, picture.Row(image.Top + y) + image.Left, image.Width) == GIF_ERROR)
                return false;
    return true;
}

// The indices of a picture of up to 8 bits, or those of the nearest of 256 chosen colors.
bool Quantise(const PictureBuffer& picture, Bytes& indices, ColorMapObject& colors)
{
    const std::size_t width = static_cast<std::size_t>(picture.Width);
    const std::size_t count = width * static_cast<std::size_t>(picture.Height);
    indices.resize(count);
    if (picture.BitsPerPixel <= 8) {
        for (int y = 0; y < picture.Height; ++y)
            IndexRow(picture, y, indices.data() + static_cast<std::size_t>(y) * width);
        for (int i = 0; i < colors.ColorCount; ++i)
            colors.Colors[i] = {picture.Palette[i].rgbRed, picture.Palette[i].rgbGreen,
                                picture.Palette[i].rgbBlue};
        return true;
    }
    Bytes planes(count * 3), triples(width * 3);
    for (int y = 0; y < picture.Height; ++y) {
        ColorRow(picture, y, triples.data());
        const std::size_t first = static_cast<std::size_t>(y) * width;
        for (std::size_t x = 0; x < width; ++x) {
            planes[first + x] = triples[x * 3 + 2];
            planes[count + first + x] = triples[x * 3 + 1];
            planes[2 * count + first + x] = triples[x * 3];
        }
    }
    int size = colors.ColorCount;
    return GifQuantizeBuffer(static_cast<unsigned>(picture.Width), static_cast<unsigned>(picture.Height),
                             &size, planes.data(), planes.data() + count, planes.data() + 2 * count,
                             indices.data(), colors.Colors) != GIF_ERROR;
}

}

bool DecodeGif(const Bytes& file, PictureBuffer& picture)
{
    if (file.size() < 13 || std::memcmp(file.data(), "GIF8", 4) != 0)
        return false;
    Source                                    source{&file, 0};
    int                                       error = 0;
    std::unique_ptr<GifFileType, CloseReader> gif(DGifOpen(&source, ReadBytes, &error));
    if (!gif)
        return false;
    for (;;) {
        GifRecordType record = UNDEFINED_RECORD_TYPE;
        if (DGifGetRecordType(gif.get(), &record) == GIF_ERROR)
            return false;
        if (record == IMAGE_DESC_RECORD_TYPE)
            return ReadImage(gif.get(), file, picture);
        if (record != EXTENSION_RECORD_TYPE)
            return false;
        int          code = 0;
        GifByteType* block = nullptr;
        if (DGifGetExtension(gif.get(), &code, &block) == GIF_ERROR)
            return false;
        while (block)
            if (DGifGetExtensionNext(gif.get(), &block) == GIF_ERROR)
                return false;
    }
}

bool EncodeGif(const PictureBuffer& picture, Bytes& file)
{
    if (picture.Width > 65535 || picture.Height > 65535)
        return false;
    const int colorBits = picture.BitsPerPixel <= 8 ? picture.BitsPerPixel : 8;
    const std::unique_ptr<ColorMapObject, FreeColors> colors(GifMakeMapObject(1 << colorBits, nullptr));
    Bytes                                             indices;
    int                                               error = 0;
    if (!colors || !Quantise(picture, indices, *colors))
        return false;
    std::unique_ptr<GifFileType, CloseWriter> gif(EGifOpen(&file, WriteBytes, &error));
    if (!gif)
        return false;
    EGifSetGifVersion(gif.get(), false);
    if (EGifPutScreenDesc(gif.get(), picture.Width, picture.Height, colorBits, 0, colors.get()) ==
            GIF_ERROR ||
        EGifPutImageDesc(gif.get(), 0, 0, picture.Width, picture.Height, false, nullptr) == GIF_ERROR)
        return false;
    for (int y = 0; y < picture.Height; ++y)
        if (EGifPutLine(gif.get(),
                        indices.data() +
                            static_cast<std::size_t>(y) * static_cast<std::size_t>(picture.Width),
                        picture.Width) == GIF_ERROR)
            return false;
    return EGifCloseFile(gif.release(), &error) != GIF_ERROR;
}

}
