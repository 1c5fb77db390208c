#include <VostelObj.h>

#include "support/HostCanvas.h"
#include "support/Planes.h"
#include "support/TempFolder.h"

#include <doctest/doctest.h>

#include <climits>
#include <cmath>
#include <cstddef>
#include <cstring>
#include <limits>
#include <new>
#include <random>
#include <type_traits>

namespace {

// A negative side, or a product that leaves 32 bits.
struct BadSize {
    int Width, Height;
};
const BadSize BadSizes[] = {{-1, 1},           {1, -1},        {-1, -1},           {0, -1},
                            {-3, -4},          {65536, 65536}, {65536, 32768},     {INT_MAX, INT_MAX},
                            {INT_MIN, 1},      {1, INT_MIN},   {INT_MIN, INT_MIN}, {INT_MAX, 2},
                            {INT_MIN, INT_MAX}};

}

TEST_CASE_TEMPLATE("a container is one chain of three types with the first virtual table in the middle", T,
                   unsigned char, short, unsigned short, int, float)
{
    CHECK(std::is_base_of_v<StructData2D<T>, ClassData2DIOGeneral<T>>);
    CHECK(std::is_base_of_v<ClassData2DIOGeneral<T>, ClassData2DIO<T>>);
    CHECK_FALSE(std::is_polymorphic_v<StructData2D<T>>);
    CHECK(std::is_polymorphic_v<ClassData2DIOGeneral<T>>);
    CHECK_FALSE(std::has_virtual_destructor_v<ClassData2DIO<T>>);
    CHECK(sizeof(ClassData2DIO<T>) == sizeof(ClassData2DIOGeneral<T>));
}

TEST_CASE("plain data holds its fields in the order that hosts rely on")
{
    using Plain = StructData2D<float>;
    CHECK(offsetof(Plain, Ptr1D) < offsetof(Plain, Ptr2D));
    CHECK(offsetof(Plain, Ptr2D) < offsetof(Plain, Width));
    CHECK(offsetof(Plain, Width) < offsetof(Plain, Height));
    CHECK(offsetof(Plain, Height) < offsetof(Plain, Region));
    CHECK(offsetof(Plain, Region) < offsetof(Plain, OwnPtr1D));
    CHECK(offsetof(Plain, OwnPtr2D) == offsetof(Plain, OwnPtr1D) + 1);
}

TEST_CASE("the 16-bit value 0x0101 at the first own flag sets both")
{
    StructData2D<int> data;
    data.OwnPtr1D = data.OwnPtr2D = false;
    const unsigned short both = 257;
    std::memcpy(reinterpret_cast<unsigned char*>(&data) + offsetof(StructData2D<int>, OwnPtr1D), &both,
                sizeof both);
    CHECK(data.OwnPtr1D);
    CHECK(data.OwnPtr2D);
}

TEST_CASE_TEMPLATE("a fresh container has no arrays, size 0 and owns what it will get", T, unsigned char,
                   short, unsigned short, int, float)
{
    CheckEmpty(ClassData2DIO<T>(), 0);
    CheckEmpty(ClassData2DIOGeneral<T>(), 0);
    CheckEmpty(StructData2D<T>(), 0);
}

TEST_CASE_TEMPLATE("Allocate makes one buffer without padding and a row table into it", T, unsigned char,
                   short, unsigned short, int, float)
{
    ClassData2DIO<T> data;
    data.Allocate(5, 3);
    CHECK(data.Width == 5);
    CHECK(data.Height == 3);
    REQUIRE(data.Ptr1D != nullptr);
    REQUIRE(data.Ptr2D != nullptr);
    for (int y = 0; y < 3; ++y) {
        CHECK(data.Ptr2D[y] == data.Ptr1D + y * 5);
        CHECK(data.GetRow(y) == data.Ptr1D + y * 5);
    }
    for (int i = 0; i < 15; ++i)
        data.Ptr1D[i] = static_cast<T>(i);
    CHECK(data.Ptr2D[2][4] == static_cast<T>(14));
    CHECK(RegionIs(data, 0, 0, 4, 2));
}

TEST_CASE("a table of four-byte pixels has the same virtual operations")
{
    ClassData2DIOGeneral<tagStructRGBA> data;
    data.Allocate(2, 2);
    data.Ptr2D[1][1].r = 7;
    CHECK(data.GetRow(1)[1].r == 7);
    ClassData2DIOGeneral<tagStructRGBA> copy;
    copy = data;
    CHECK(copy.Ptr1D[3].r == 7);
    data.Release();
    CheckEmpty(data, -1);
}

TEST_CASE("Allocate(0, 0) gives non-null empty arrays and a region that ends at -1")
{
    ClassData2DIO<short> data;
    data.Allocate(0, 0);
    CHECK(data.Ptr1D != nullptr);
    CHECK(data.Ptr2D != nullptr);
    CHECK(data.Width == 0);
    CHECK(data.Height == 0);
    CHECK(RegionIs(data, 0, 0, -1, -1));
}

TEST_CASE("a width without rows and rows without a width allocate empty buffers")
{
    ClassData2DIO<float> data;
    data.Allocate(7, 0);
    CHECK(data.Ptr1D != nullptr);
    CHECK(RegionIs(data, 0, 0, 6, -1));
    data.Allocate(0, 3);
    CHECK(data.Ptr1D != nullptr);
    CHECK(data.Ptr2D[2] == data.Ptr1D);
    CHECK(RegionIs(data, 0, 0, -1, 2));
    data.Allocate(INT_MIN, 0);    // a product of 0: nothing is asked for that could be refused
    CHECK(data.Width == INT_MIN);
    CHECK(RegionIs(data, 0, 0, INT_MAX, -1));
}

TEST_CASE("reallocating leaves the cached extents of the region alone")
{
    ClassData2DIO<unsigned char> data;
    data.Allocate(4, 4);
    data.Region.GetW();
    CHECK(data.Region.W == 4);
    data.Allocate(4, 4);
    CHECK(RegionIs(data, 0, 0, 3, 3));    // Release brings 1 back and nothing after it writes it
}

TEST_CASE("GetRow is computed from the flat buffer, not read from the table, and y is not checked")
{
    ClassData2DIO<int> data;
    Number(data, 4, 2);
    data.Ptr2D[1] = nullptr;
    CHECK(data.GetRow(1) == data.Ptr1D + 4);
    CHECK(data.GetRow(2) == data.Ptr1D + 8);    // one behind the last
}

TEST_CASE("Release frees the arrays, sets the size to -1 and may be repeated")
{
    ClassData2DIO<float> data;
    data.Allocate(3, 2);
    data.Release();
    CheckEmpty(data, -1);
    data.Release();
    CheckEmpty(data, -1);
}

TEST_CASE("Release on a fresh container leaves the size at -1")
{
    ClassData2DIO<unsigned short> data;
    data.Release();
    CheckEmpty(data, -1);
}

TEST_CASE("Release leaves a pointer that the container does not own as it was")
{
    unsigned char                pixels[4] = {1, 2, 3, 4};
    unsigned char*               rows[2] = {pixels, pixels + 2};
    ClassData2DIO<unsigned char> data;
    data.Ptr1D = pixels;
    data.Ptr2D = rows;
    data.Width = data.Height = 2;
    data.OwnPtr1D = data.OwnPtr2D = false;
    data.Release();
    CHECK(data.Ptr1D == pixels);
    CHECK(data.Ptr2D == rows);
    CHECK(data.Width == -1);
    CHECK(data.Height == -1);
    CHECK(pixels[3] == 4);
}

TEST_CASE_TEMPLATE(
    "an impossible size fails by the allocator's exception, with the size stored and no arrays", T,
    unsigned char, unsigned short, float)
{
    for (const BadSize& bad : BadSizes) {
        CAPTURE(bad.Width);
        CAPTURE(bad.Height);
        ClassData2DIO<T> data;
        data.Allocate(2, 2);
        CHECK_THROWS_AS(data.Allocate(bad.Width, bad.Height), std::bad_alloc);
        CHECK(data.Width == bad.Width);
        CHECK(data.Height == bad.Height);
        CHECK(data.Ptr1D == nullptr);
        CHECK(data.Ptr2D == nullptr);
        CHECK(RegionIs(data, 0, 0, 0, 0));
        data.Allocate(2, 2);    // usable again
        CHECK(data.Ptr2D[1] == data.Ptr1D + 2);
    }
}

TEST_CASE_TEMPLATE("AllocateBuffers with an impossible size keeps the pointers that were there", T,
                   unsigned char, int)
{
    for (const BadSize& bad : BadSizes) {
        CAPTURE(bad.Width);
        CAPTURE(bad.Height);
        ClassData2DIO<T> data;
        Number(data, 2, 2);
        T* const  before = data.Ptr1D;
        T** const rowsBefore = data.Ptr2D;
        CHECK_THROWS_AS(data.AllocateBuffers(bad.Width, bad.Height), std::bad_alloc);
        CHECK(data.Width == bad.Width);
        CHECK(data.Height == bad.Height);
        CHECK(data.Ptr1D == before);
        CHECK(data.Ptr2D == rowsBefore);
        CHECK(before[3] == 3);
        CHECK(RegionIs(data, 0, 0, 1, 1));
    }
}

TEST_CASE("AllocateBuffers makes the arrays of an empty container and does not touch the region")
{
    ClassData2DIO<short> data;
    data.Region = ZEKRECT(5, 6, 7, 9);
    data.AllocateBuffers(3, 2);
    CHECK(data.Ptr2D[1] == data.Ptr1D + 3);
    CHECK(data.Width == 3);
    CHECK(data.Height == 2);
    CHECK(data.Region.left == 5);
    CHECK(data.Region.right == 6);
    CHECK(data.Region.top == 7);
    CHECK(data.Region.bottom == 9);
    CHECK(data.Region.W == 2);
    CHECK(data.Region.H == 3);
}

TEST_CASE("AllocateBuffers releases nothing: who holds the old arrays still has them")
{
    ClassData2DIO<short> data;
    Number(data, 3, 2);
    ClassData2DIO<short> keeper;
    keeper.Ptr1D = data.Ptr1D;
    keeper.Ptr2D = data.Ptr2D;
    data.AllocateBuffers(3, 2);
    CHECK(data.Ptr1D != keeper.Ptr1D);
    CHECK(data.Ptr2D != keeper.Ptr2D);
    CHECK(keeper.Ptr2D[1][2] == 5);
}

TEST_CASE("assignment copies the elements into arrays of its own")
{
    ClassData2DIO<unsigned short> source, target;
    Number(source, 3, 2);
    target.Allocate(9, 9);
    ClassData2DIO<unsigned short>& result = target = source;
    CHECK(&result == &target);
    CHECK(target.Width == 3);
    CHECK(target.Height == 2);
    CHECK(target.Ptr1D != source.Ptr1D);
    CHECK(target.Ptr2D[1] == target.Ptr1D + 3);
    CHECK(std::memcmp(target.Ptr1D, source.Ptr1D, 6 * sizeof(unsigned short)) == 0);
    source.Ptr1D[0] = 99;
    CHECK(target.Ptr1D[0] == 0);
}

TEST_CASE("assignment sets the region as Allocate does and does not copy the source's")
{
    ClassData2DIO<float> source, target;
    Number(source, 3, 2);
    source.Region = ZEKRECT(1, 1, 1, 1);
    target = source;
    CHECK(RegionIs(target, 0, 0, 2, 1));
}

TEST_CASE("assignment through the base does the same")
{
    ClassData2DIO<int> source, target;
    Number(source, 2, 2);
    ClassData2DIOGeneral<int>&       base = target;
    const ClassData2DIOGeneral<int>& from = source;
    base = from;
    CHECK(target.Ptr2D[1][1] == 3);
}

TEST_CASE("a copy made by construction is as deep as one by assignment")
{
    ClassData2DIO<float> source;
    Number(source, 2, 2);
    const ClassData2DIO<float> copy(source);
    CHECK(copy.Ptr1D != source.Ptr1D);
    CHECK(copy.Ptr2D[1][1] == 3.0f);
}

TEST_CASE("assigning a fresh container gives empty arrays")
{
    ClassData2DIO<float> source, target;
    target.Allocate(2, 2);
    target = source;
    CHECK(target.Ptr1D != nullptr);
    CHECK(target.Width == 0);
    CHECK(target.Height == 0);
}

TEST_CASE("assigning a released container leaves no array and size -1")
{
    ClassData2DIO<float> source, target;
    source.Release();
    target.Allocate(2, 2);
    target = source;
    CheckEmpty(target, -1);
}

TEST_CASE("assigning a container to itself makes fresh arrays of its size")
{
    ClassData2DIO<float> data, keeper;
    Number(data, 3, 2);
    data.Region = ZEKRECT(1, 1, 1, 1);
    ClassData2DIO<float>& same = data;
    data = same;
    CHECK(data.Width == 3);
    CHECK(data.Height == 2);
    REQUIRE(data.Ptr1D != nullptr);
    CHECK(data.Ptr2D[1] == data.Ptr1D + 3);
    CHECK(RegionIs(data, 0, 0, 2, 1));    // it went through Allocate
}
