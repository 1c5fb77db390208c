// PNG by libpng. Palette and gray pictures of 1, 4 and 8 bits keep them, 2 bits become 8; 16 bits per
// channel, and everything with transparency, become 32.

#include "platform/portable/PictureCodecs.h"
#include "platform/portable/PngReading.h"

#include <png.h>

#include <csetjmp>
#include <cstring>

namespace vostel::pictures {
namespace {

struct Source {
    const Bytes* File;
    std::size_t  At;
};

// Errors unwind to the setjmp of the call; nothing is printed.
void Fail(png_structp png, png_const_charp)
{
    longjmp(png_jmpbuf(png), 1);
}
void Ignore(png_structp, png_const_charp) {}

void ReadBytes(png_structp png, png_bytep target, png_size_t count)
{
    Source* source = static_cast<Source*>(png_get_io_ptr(png));
    if (source->File->size() - source->At < count)
        png_error(png, "cut short");
    std::memcpy(target, source->File->data() + source->At, count);
    source->At += count;
}

void WriteBytes(png_structp png, png_bytep bytes, png_size_t count)
{
    Bytes* file = static_cast<Bytes*>(png_get_io_ptr(png));
    bool   kept = true;
    try {
        file->insert(file->end(), bytes, bytes + count);
    } catch (...) {
        kept = false;
    }
    if (!kept)
        png_error(png, "no memory");
}

void Flush(png_structp) {}

// Sets the transformations up and allocates. Nothing in here owns anything when an error leaps out.
bool Prepare(png_structp png, png_infop info, const Bytes& file, PictureBuffer& picture, int& passes)
{
    png_set_user_limits(png, 1u << 28, 1u << 28);
    LimitPng(png);
    png_read_info(png, info);
    const png_uint_32 width = png_get_image_width(png, info), height = png_get_image_height(png, info);
    const int         depth = png_get_bit_depth(png, info), kind = png_get_color_type(png, info);
    if (!IsTaken(file, width, height) ||
        !IsPlausible(static_cast<long long>(png_get_rowbytes(png, info)) * height, file.size(), 1040))
        return false;

    const bool transparent = (kind & PNG_COLOR_MASK_ALPHA) || png_get_valid(png, info, PNG_INFO_tRNS);
    const bool color = (kind & PNG_COLOR_MASK_COLOR) && kind != PNG_COLOR_TYPE_PALETTE;
    int        bits = depth;
    if (depth == 16 || transparent) {
        bits = 32;
        png_set_expand(png);
        png_set_scale_16(png);
        png_set_gray_to_rgb(png);
        png_set_bgr(png);
        if (!transparent)
            png_set_filler(png, 0xFF, PNG_FILLER_AFTER);
    } else if (color) {
        bits = 24;
        png_set_bgr(png);
    } else if (depth == 2) {
        bits = 8;
        if (kind == PNG_COLOR_TYPE_GRAY)
            png_set_expand_gray_1_2_4_to_8(png);
        else
            png_set_packing(png);
    }
    passes = png_set_interlace_handling(png);
    png_read_update_info(png, info);
    if (!picture.Allocate(static_cast<int>(width), static_cast<int>(height), bits) ||
        png_get_rowbytes(png, info) > static_cast<png_size_t>(picture.RowBytes))
        return false;
    picture.HasAlpha = bits == 32 && transparent;
    png_colorp entries = nullptr;
    int        count = 0;
    if (bits <= 8 && png_get_PLTE(png, info, &entries, &count)) {
        std::memset(picture.Palette, 0, sizeof picture.Palette);
        for (int i = 0; i < count && i < 256; ++i)
            picture.Palette[i] = {entries[i].blue, entries[i].green, entries[i].red, 0};
    }
    return true;
}

bool Write(png_structp png, png_infop info, const PictureBuffer& picture)
{
    const int  bits = picture.BitsPerPixel;
    const bool gray = picture.IsGray();
    const int  kind = bits == 24 || (bits == 32 && !picture.HasAlpha) ? PNG_COLOR_TYPE_RGB
                      : bits == 32                                    ? PNG_COLOR_TYPE_RGB_ALPHA
                      : gray                                          ? PNG_COLOR_TYPE_GRAY
                                                                      : PNG_COLOR_TYPE_PALETTE;
    png_set_IHDR(png, info, static_cast<png_uint_32>(picture.Width), static_cast<png_uint_32>(picture.Height),
                 bits <= 8 ? bits : 8, kind, PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT,
                 PNG_FILTER_TYPE_DEFAULT);
    if (kind == PNG_COLOR_TYPE_PALETTE) {
        png_color entries[256];
        for (int i = 0; i < 256; ++i)
            entries[i] = {picture.Palette[i].rgbRed, picture.Palette[i].rgbGreen, picture.Palette[i].rgbBlue};
        png_set_PLTE(png, info, entries, 1 << bits);
    }
    png_write_info(png, info);
    png_set_bgr(png);
    if (bits == 32 && !picture.HasAlpha)
        png_set_filler(png, 0, PNG_FILLER_AFTER);
    for (int y = 0; y < picture.Height; ++y)
        png_write_row(png, picture.Row(y));
    png_write_end(png, info);
    return true;
}

// Interlaced pictures come in several passes over the same rows.
void ReadRows(png_structp png, int passes, PictureBuffer& picture)
{
    for (int pass = 0; pass < passes; ++pass)
        for (int y = 0; y < picture.Height; ++y)
            png_read_row(png, picture.Row(y), nullptr);
    png_read_end(png, nullptr);
}

}

bool DecodePng(const Bytes& file, PictureBuffer& picture)
{
    if (file.size() < 8 || png_sig_cmp(file.data(), 0, 8) != 0)
        return false;
    Source        source{&file, 0};
    png_structp   png = png_create_read_struct(PNG_LIBPNG_VER_STRING, nullptr, Fail, Ignore);
    png_infop     info = png ? png_create_info_struct(png) : nullptr;
    volatile bool good = false;
    if (info && setjmp(png_jmpbuf(png)) == 0) {
        int passes = 1;
        png_set_read_fn(png, &source, ReadBytes);
        if (Prepare(png, info, file, picture, passes)) {
            ReadRows(png, passes, picture);
            good = true;
        }
    }
    png_destroy_read_struct(&png, &info, nullptr);
    return good;
}

bool EncodePng(const PictureBuffer& picture, Bytes& file)
{
    png_structp   png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, Fail, Ignore);
    png_infop     info = png ? png_create_info_struct(png) : nullptr;
    volatile bool good = false;
    if (info && setjmp(png_jmpbuf(png)) == 0) {
        png_set_write_fn(png, &file, WriteBytes, Flush);
        good = Write(png, info, picture);
    }
    png_destroy_write_struct(&png, &info);
    return good;
}

}
