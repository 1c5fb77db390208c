#pragma once

/// @file
/// The two-dimensional array of the whole library. Every image, kernel, label image and plane of raw data is
/// one: row-major, reachable as one flat buffer and through a table of row pointers, so that Ptr2D[y][x] and
/// Ptr1D[y * Width + x] are the same element. A color image is three 8-bit planes.
///
/// Element types: unsigned char, short, unsigned short, int and float; for ClassData2DIOGeneral also
/// tagStructRGBA. Containers of other types do not link. No container may be used by two threads while one of
/// them changes it.

#include "vostel/Colour.h"
#include "vostel/Geometry.h"
#include "vostel/export.h"

#include <cstdint>

// The destructors are not virtual: the virtual table that hosts know has no place for one. A container is not
// deleted through a pointer to its base.
#if defined(__GNUC__)
#    pragma GCC diagnostic push
#    pragma GCC diagnostic ignored "-Wnon-virtual-dtor"
#endif

/// The fields of a container, and what works on them alone.
///
/// A host may let a container look at a buffer of its own: it sets Ptr1D, Width and Height, Ptr2D too where a
/// call needs it, and clears OwnPtr1D and OwnPtr2D, so that Release does not free what it did not make.
template <typename T>
struct VOSTEL_API StructData2D {
    T*           Ptr1D = nullptr;    ///< Width * Height elements, row after row, no padding
    T**          Ptr2D = nullptr;    ///< Height row pointers into Ptr1D
    std::int32_t Width = 0;          ///< columns; -1 after Release
    std::int32_t Height = 0;         ///< rows; -1 after Release
    ZEKRECT      Region;    ///< the whole image, kept up by Allocate and Release only; nothing reads it
    bool         OwnPtr1D = true;    ///< Release frees Ptr1D
    bool         OwnPtr2D = true;    ///< Release frees Ptr2D

    /// Stores the size and makes both arrays, without releasing what was there before and without touching
    /// Region. The elements are undefined. A product of the sizes that leaves 31 bits, or is negative, fails
    /// with the allocator's exception; the size is then stored and the pointers are as they were.
    void AllocateBuffers(int width, int height);

    /// Becomes the source, converted element by element: the sum of the element, as float, and the offset,
    /// formed in 32-bit float; for an integer truncated towards zero, its low bits stored, not saturated. The
    /// size and the buffers come from AllocateBuffers: the container must be empty before, or its buffers are
    /// lost.
    ///
    /// Pairs: float from unsigned short, short, unsigned char; unsigned short from float, short, unsigned
    /// char.
    template <typename S>
    void ConvertFrom(StructData2D<S>& source, float offset);

    /// Returns the smallest and the largest element, of float containers; both 0 from an empty one.
    void GetMinMax(float& minValue, float& maxValue) = delete;
};

/// A container with the four operations that hosts may override.
template <typename T>
class VOSTEL_API ClassData2DIOGeneral : public StructData2D<T> {
public:
    /// An empty container of 0 x 0.
    ClassData2DIOGeneral() = default;
    // Not inline: a Windows host that does not inline looks for these in the library.
    /// A deep copy, as by assignment.
    ClassData2DIOGeneral(const ClassData2DIOGeneral& other);
    /// Frees what is owned.
    ~ClassData2DIOGeneral();

    /// Releases, then makes a fresh buffer and row table, also when the size does not change. The elements
    /// are undefined. Errors as for AllocateBuffers; Allocate(0, 0) gives non-null empty arrays.
    virtual void Allocate(int width, int height);

    /// Frees what is owned; Width and Height become -1. Safe to repeat.
    virtual void Release();

    /// Returns Ptr1D + y * Width; y is not checked.
    virtual T* GetRow(int y);

    /// Makes a deep copy through Allocate. Assigning a container to itself destroys its data.
    virtual ClassData2DIOGeneral& operator=(const ClassData2DIOGeneral& other);
};

/// The container that the interface names.
template <typename T>
class VOSTEL_API ClassData2DIO : public ClassData2DIOGeneral<T> {
public:
    /// An empty container of 0 x 0.
    ClassData2DIO() = default;
    /// A deep copy, as by assignment.
    ClassData2DIO(const ClassData2DIO&) = default;
    /// Makes a deep copy through Allocate. Assigning a container to itself destroys its data.
    ClassData2DIO& operator=(const ClassData2DIO& other);

    /// Returns the pixel of an 8-bit image at coordinates that may lie outside of it: the image is reflected
    /// with the edge sample repeated, so -1 reads 0 and Width reads Width - 1. 0 from an empty container.
    unsigned char MirrorValue(PointTemplateBase<int> p) = delete;

    /// Fills the allocated buffer from a file of plain elements, starting offset bytes into it, of short and
    /// float containers. A short file leaves the tail as it was, and one that cannot be read all of it. Shows
    /// "文件不存在" if the path does not exist.
    void ReadFile(const char* path, unsigned int offset) = delete;

    /// Fills the allocated buffer of an 8-bit container from the first byte of a file on; else as with an
    /// offset.
    void ReadFile(const char* path) = delete;

    /// Scales a float kernel so that its elements, added in row-major order in 32-bit float, sum to one. Left
    /// alone when the sum is not above 1e-10 in magnitude.
    void NormalizeSum() = delete;
};

#if !defined(DOXYGEN)

// The operations that containers of one element type have.
template <>
VOSTEL_API void StructData2D<float>::GetMinMax(float& minValue, float& maxValue);
template <>
VOSTEL_API unsigned char ClassData2DIO<unsigned char>::MirrorValue(PointTemplateBase<int> p);
template <>
VOSTEL_API void ClassData2DIO<short>::ReadFile(const char* path, unsigned int offset);
template <>
VOSTEL_API void ClassData2DIO<float>::ReadFile(const char* path, unsigned int offset);
template <>
VOSTEL_API void ClassData2DIO<unsigned char>::ReadFile(const char* path);
template <>
VOSTEL_API void ClassData2DIO<float>::NormalizeSum();

// The element types that the library brings.
extern template struct StructData2D<unsigned char>;
extern template struct StructData2D<short>;
extern template struct StructData2D<unsigned short>;
extern template struct StructData2D<int>;
extern template struct StructData2D<float>;
extern template struct VOSTEL_API StructData2D<tagStructRGBA>;
extern template class ClassData2DIOGeneral<unsigned char>;
extern template class ClassData2DIOGeneral<short>;
extern template class ClassData2DIOGeneral<unsigned short>;
extern template class ClassData2DIOGeneral<int>;
extern template class ClassData2DIOGeneral<float>;
extern template class VOSTEL_API ClassData2DIOGeneral<tagStructRGBA>;
extern template class ClassData2DIO<unsigned char>;
extern template class ClassData2DIO<short>;
extern template class ClassData2DIO<unsigned short>;
extern template class ClassData2DIO<int>;
extern template class ClassData2DIO<float>;
extern template VOSTEL_API void StructData2D<float>::ConvertFrom(StructData2D<unsigned short>&, float);
extern template VOSTEL_API void StructData2D<float>::ConvertFrom(StructData2D<short>&, float);
extern template VOSTEL_API void StructData2D<float>::ConvertFrom(StructData2D<unsigned char>&, float);
extern template VOSTEL_API void StructData2D<unsigned short>::ConvertFrom(StructData2D<float>&, float);
extern template VOSTEL_API void StructData2D<unsigned short>::ConvertFrom(StructData2D<short>&, float);
extern template VOSTEL_API void StructData2D<unsigned short>::ConvertFrom(StructData2D<unsigned char>&,
                                                                          float);

#endif

#if defined(__GNUC__)
#    pragma GCC diagnostic pop
#endif
