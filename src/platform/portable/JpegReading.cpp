#include "platform/portable/JpegReading.h"

#include <jerror.h>

#include <algorithm>

namespace vostel::pictures {
namespace {

void Fail(j_common_ptr codec)
{
    longjmp(reinterpret_cast<JpegErrors*>(codec->err)->Back, 1);
}

// A file that ends early is filled up with gray by the library; it counts as damaged here. Every other
// warning is about bytes that cameras get wrong and viewers put up with.
void Warn(j_common_ptr codec, int level)
{
    if (level < 0 && codec->err->msg_code == JWRN_JPEG_EOF)
        Fail(codec);
}

void Print(j_common_ptr) {}

// Before each row of blocks of a scan, and before rows of pixels, which are not counted.
void Spend(j_common_ptr common)
{
    const jpeg_decompress_struct& codec = *reinterpret_cast<j_decompress_ptr>(common);
    JpegBudget&                   budget = *reinterpret_cast<JpegBudget*>(common->progress);
    const bool counted = codec.input_scan_number == budget.Scan && codec.input_iMCU_row == budget.Row;
    if (counted || codec.input_iMCU_row >= codec.total_iMCU_rows)
        return;
    budget.Scan = codec.input_scan_number;
    budget.Row = codec.input_iMCU_row;
    // A scan of one component takes its blocks one by one, not in groups.
    const long long rows = codec.comps_in_scan == 1 ? codec.cur_comp_info[0]->v_samp_factor : 1;
    const long long visits = rows * codec.MCUs_per_row * codec.blocks_in_MCU;
    budget.Visits += visits;
    budget.Left -= visits;
    if (budget.IsSpent())
        Fail(common);
}

}

jpeg_error_mgr* UnwindingManager(JpegErrors& errors)
{
    jpeg_std_error(&errors.Manager);
    errors.Manager.error_exit = Fail;
    errors.Manager.emit_message = Warn;
    errors.Manager.output_message = Print;
    return &errors.Manager;
}

void Limit(jpeg_decompress_struct& codec, JpegBudget& budget, std::size_t fileBytes)
{
    constexpr long long visitsPerBlock = 32;
    constexpr long long visitsPerByte = 64;
    long long           blocks = 0;
    for (int i = 0; i < codec.num_components; ++i)
        blocks +=
            static_cast<long long>(codec.comp_info[i].width_in_blocks) * codec.comp_info[i].height_in_blocks;
    budget.Left = visitsPerBlock * blocks + visitsPerByte * static_cast<long long>(fileBytes);
    budget.Manager.progress_monitor = Spend;
    codec.progress = &budget.Manager;

    // Of four components 8 bytes for a pixel, and what fills sides up to whole blocks.
    constexpr long long bytesPerPixel = 9;
    constexpr long long sparedBytes = 1 << 25;
    constexpr long long mostBytes = 1 << 30;
    const long long     pixels = static_cast<long long>(codec.image_width) * codec.image_height;
    codec.mem->max_memory_to_use =
        static_cast<long>(std::min(mostBytes, sparedBytes + bytesPerPixel * pixels));
}

}
