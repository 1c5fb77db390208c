#pragma once

// Pictures as the codec libraries write them, of noise and of what packs well. Not on Windows.

#include "platform/PictureFiles.h"

#include <cstdio>

#include <jpeglib.h>

#include <webp/encode.h>

#include <cstdlib>
#include <random>

namespace files {

// Rows of pixels of so many bytes: even on the left, noise on the right from that share of the width on.
inline Bytes HalfNoise(int side, int channels, double noiseFrom = 0.5)
{
    std::mt19937 random(17);
    const int    from = static_cast<int>(side * noiseFrom) * channels;
    Bytes        pixels;
    pixels.reserve(static_cast<std::size_t>(side) * static_cast<std::size_t>(side * channels));
    for (int y = 0; y < side; ++y) {
        for (int i = 0; i < side * channels; ++i)
            pixels.push_back(static_cast<unsigned char>(i < from ? 40 : random()));
    }
    return pixels;
}

// Progressive, of one or three channels. Each coefficient of gray comes in a scan of its own if asked to, and
// its last bit in another one.
inline Bytes ProgressiveJpeg(const Bytes& pixels, int side, int channels, bool scanPerCoefficient = false)
{
    jpeg_compress_struct codec = {};
    jpeg_error_mgr       errors;
    codec.err = jpeg_std_error(&errors);
    jpeg_create_compress(&codec);
    unsigned char* memory = nullptr;
    unsigned long  bytes = 0;
    jpeg_mem_dest(&codec, &memory, &bytes);
    codec.image_width = codec.image_height = static_cast<JDIMENSION>(side);
    codec.input_components = channels;
    codec.in_color_space = channels == 1 ? JCS_GRAYSCALE : JCS_RGB;
    jpeg_set_defaults(&codec);
    jpeg_simple_progression(&codec);
    std::vector<jpeg_scan_info> scans;
    for (const int low : {1, 0}) {
        for (int k = 0; k < 64; ++k)
            scans.push_back({1, {0}, k, k, low == 0 ? 1 : 0, low});
    }
    if (scanPerCoefficient) {
        codec.scan_info = scans.data();
        codec.num_scans = static_cast<int>(scans.size());
    }
    jpeg_start_compress(&codec, TRUE);
    Bytes row(static_cast<std::size_t>(side * channels));
    for (int y = 0; y < side; ++y) {
        const auto from = pixels.begin() + static_cast<std::ptrdiff_t>(row.size()) * y;
        row.assign(from, from + static_cast<std::ptrdiff_t>(row.size()));
        JSAMPROW line = row.data();
        jpeg_write_scanlines(&codec, &line, 1);
    }
    jpeg_finish_compress(&codec);
    jpeg_destroy_compress(&codec);
    Bytes file(memory, memory + bytes);
    std::free(memory);
    return file;
}

// Of three or four channels.
inline Bytes Webp(const Bytes& pixels, int side, int channels, bool lossless)
{
    WebPConfig  config;
    WebPPicture picture;
    WebPConfigInit(&config);
    WebPPictureInit(&picture);
    config.lossless = lossless;
    config.method = 0;
    config.quality = 60.0f;
    picture.use_argb = 1;
    picture.width = picture.height = side;
    const auto take = channels == 4 ? WebPPictureImportRGBA : WebPPictureImportRGB;
    take(&picture, pixels.data(), side * channels);
    WebPMemoryWriter writer;
    WebPMemoryWriterInit(&writer);
    picture.writer = WebPMemoryWrite;
    picture.custom_ptr = &writer;
    WebPEncode(&config, &picture);
    Bytes file(writer.mem, writer.mem + writer.size);
    WebPMemoryWriterClear(&writer);
    WebPPictureFree(&picture);
    return file;
}

// Chunks of a WebP.
inline void WebpChunk(Bytes& file, const char* name, const Bytes& content)
{
    file.insert(file.end(), name, name + 4);
    Little(file, static_cast<std::uint32_t>(content.size()), 4);
    Append(file, content);
    if (content.size() % 2)
        file.push_back(0);
}

inline Bytes WebpOf(const Bytes& chunks)
{
    Bytes file = {'R', 'I', 'F', 'F'};
    Little(file, static_cast<std::uint32_t>(chunks.size() + 4), 4);
    Append(file, {'W', 'E', 'B', 'P'});
    Append(file, chunks);
    return file;
}

}
