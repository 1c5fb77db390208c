#include "foundation/ArrayLength.h"

#include <new>

void FailArrayLength()
{
    throw std::bad_array_new_length();
}
