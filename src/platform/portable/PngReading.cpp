#include "platform/portable/PngReading.h"

namespace vostel::pictures {

void LimitPng(png_structp png)
{
    // Names of chunks, each with its terminator.
    static constexpr png_byte skipped[] = "tEXt\0zTXt\0iTXt\0iCCP\0sPLT\0eXIf\0hIST\0pCAL\0sCAL";
    constexpr int             nameBytes = 5;
    png_set_keep_unknown_chunks(png, PNG_HANDLE_CHUNK_NEVER, skipped, sizeof skipped / nameBytes);
    png_set_chunk_malloc_max(png, 8u << 20);
    png_set_chunk_cache_max(png, 64);
}

}
