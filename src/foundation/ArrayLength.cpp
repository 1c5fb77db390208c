#include "foundation/ArrayLength.h"

#include <new>

namespace vostel {

void FailArrayLength()
{
    throw std::bad_array_new_length();
}

}
