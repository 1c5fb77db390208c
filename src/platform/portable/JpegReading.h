#pragma once

// What every use of libjpeg shares: errors that unwind, and limits of work and memory for a file that is
// read.

#include <cstdio>

#include <jpeglib.h>

#include <csetjmp>
#include <cstddef>

namespace vostel::pictures {

struct JpegErrors {
    jpeg_error_mgr Manager;
    std::jmp_buf   Back;
};

// For a codec. Errors unwind to the setjmp of its owner, and so does a file that ends early; nothing is
// printed.
jpeg_error_mgr* UnwindingManager(JpegErrors& errors);

// A scan takes about twelve bytes of a file and may hold nothing, yet each walks over all blocks of the
// picture. So visits of blocks are counted: 32 of each, three times what writers of pictures ask for, and 64
// more for each byte of the file, which scans with something in them always have.
struct JpegBudget {
    jpeg_progress_mgr Manager = {};    // the codec's only way back to this
    long long         Left = 0;        // visits
    long long         Visits = 0;
    int               Scan = -1;    // what was counted last
    JDIMENSION        Row = 0;

    bool IsSpent() const { return Left < 0; }
};

// Holds a codec that has read its header to a budget, which has to outlive its work; one that goes beyond
// unwinds as errors do. Memory for coefficients is held to what the size of the picture asks for.
void Limit(jpeg_decompress_struct& codec, JpegBudget& budget, std::size_t fileBytes);

}
