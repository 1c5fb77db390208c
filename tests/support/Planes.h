#pragma once

// What the tests of the containers say about planes.

#include <VostelObj.h>

#include <doctest/doctest.h>

// A plane whose elements are their own index.
template <typename T>
void Number(ClassData2DIO<T>& data, int width, int height)
{
    data.Allocate(width, height);
    for (int i = 0; i < width * height; ++i)
        data.Ptr1D[i] = static_cast<T>(i);
}

template <typename T>
bool RegionIs(const StructData2D<T>& data, int left, int top, int right, int bottom)
{
    const ZEKRECT& r = data.Region;
    return r.left == left && r.top == top && r.right == right && r.bottom == bottom && r.W == 1 && r.H == 1;
}

template <typename T>
void CheckEmpty(const StructData2D<T>& data, int size)
{
    CHECK(data.Ptr1D == nullptr);
    CHECK(data.Ptr2D == nullptr);
    CHECK(data.Width == size);
    CHECK(data.Height == size);
    CHECK(RegionIs(data, 0, 0, 0, 0));
    CHECK(data.OwnPtr1D);
    CHECK(data.OwnPtr2D);
}
