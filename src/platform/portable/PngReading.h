#pragma once

// What every use of libpng that reads shares.

#include <png.h>

namespace vostel::pictures {

// Holds the memory beside the pixels down: text and profiles, which show nothing and can be packed a
// thousandfold, are skipped. To be called before anything is read.
void LimitPng(png_structp png);

}
