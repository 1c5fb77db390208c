#pragma once

namespace vostel {

// The cosines and sines of all length angles of a transform, each rounded to float: those of the C library.
void FillFourierTables(int length, float* cosines, float* sines) noexcept;

}
