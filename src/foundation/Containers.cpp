#include "vostel/Containers.h"

#include "base/CacheLimits.h"
#include "base/Reflect.h"
#include "base/Truncate.h"
#include "foundation/ArrayLength.h"
#include "foundation/Planes.h"
#include "platform/FileReading.h"
#include "platform/System.h"

#include <cmath>
#include <cstdint>
#include <cstring>

using namespace vostel;

namespace {

// Elements of a width x height array. A product outside 32 bits would give a buffer that is smaller than
// its rows, so it fails as a negative side does: by the exception of an array that no allocator can serve.
// An instrumented allocator ends the process over such a request, so none is made.
std::size_t ElementCount(int width, int height)
{
    const std::int64_t product = static_cast<std::int64_t>(width) * height;
    if (height < 0 || product < 0 || product > INT32_MAX)
        FailArrayLength();
    // Rows without columns hold nothing; a table of more of them than this would be gigabytes for nothing.
    if (product == 0 && height > (1 << 24))
        FailArrayLength();
    return static_cast<std::size_t>(product);
}

template <typename T>
void MakeArrays(StructData2D<T>& data)
{
    const std::size_t elements = ElementCount(data.Width, data.Height);
    T* const          buffer = new T[elements];
    T**               table = nullptr;
    try {
        table = new T*[static_cast<std::size_t>(data.Height)];
    } catch (...) {
        delete[] buffer;
        throw;
    }
    for (int y = 0; y < data.Height; ++y)
        table[y] = buffer + static_cast<std::ptrdiff_t>(y) * data.Width;
    // First touches of a buffer beyond the caches cost more than what is done with it.
    if (elements * sizeof(T) >= CoreCacheBytes)
        PreferLargePages(buffer, elements * sizeof(T));
    data.Ptr1D = buffer;
    data.Ptr2D = table;
}

void ReadElements(const char* path, unsigned int offset, void* target, std::size_t elementBytes,
                  std::size_t count)
{
    const OwnedFile file = OpenOrTell(path);
    if (!file)
        return;
    // Offsets reach 32 unsigned bits, more than long holds everywhere; two steps always fit.
    const long half = static_cast<long>(offset / 2);
    if (target && std::fseek(file.get(), half, SEEK_SET) == 0 &&
        std::fseek(file.get(), half + static_cast<long>(offset % 2), SEEK_CUR) == 0) {
        // A short file leaves the tail as it was.
        [[maybe_unused]] const std::size_t read = std::fread(target, elementBytes, count, file.get());
    }
}

inline void StoreConverted(float& target, float sum)
{
    target = sum;
}
inline void StoreConverted(unsigned short& target, float sum)
{
    target = TruncToUShort(sum);
}

}

template <typename T>
void StructData2D<T>::AllocateBuffers(int width, int height)
{
    Width = width;
    Height = height;
    MakeArrays(*this);
}

template <typename T>
template <typename S>
void StructData2D<T>::ConvertFrom(StructData2D<S>& source, float offset)
{
    AllocateBuffers(source.Width, source.Height);
    const std::size_t count = source.Ptr1D ? CountOf(*this) : 0;
    for (std::size_t i = 0; i < count; ++i)
        StoreConverted(Ptr1D[i], static_cast<float>(source.Ptr1D[i]) + offset);
}

template <>
void StructData2D<float>::GetMinMax(float& minValue, float& maxValue)
{
    if (!Ptr2D || CountOf(*this) == 0) {
        minValue = maxValue = 0.0f;
        return;
    }
    minValue = maxValue = Ptr2D[0][0];
    for (int y = 0; y < Height; ++y) {
        for (int x = 0; x < Width; ++x) {
            const float v = Ptr2D[y][x];
            if (v < minValue)
                minValue = v;
            if (v > maxValue)
                maxValue = v;
        }
    }
}

template <typename T>
ClassData2DIOGeneral<T>::ClassData2DIOGeneral(const ClassData2DIOGeneral& other) : StructData2D<T>()
{
    *this = other;
}

template <typename T>
ClassData2DIOGeneral<T>::~ClassData2DIOGeneral()
{
    ClassData2DIOGeneral::Release();
}

template <typename T>
void ClassData2DIOGeneral<T>::Allocate(int width, int height)
{
    ClassData2DIOGeneral::Release();
    this->AllocateBuffers(width, height);
    // The cached extents stay: nothing reads them until GetW and GetH are called.
    this->Region.left = 0;
    this->Region.top = 0;
    this->Region.right = WrapSub(width, 1);
    this->Region.bottom = WrapSub(height, 1);
}

template <typename T>
void ClassData2DIOGeneral<T>::Release()
{
    if (this->OwnPtr1D) {
        delete[] this->Ptr1D;
        this->Ptr1D = nullptr;
    }
    if (this->OwnPtr2D) {
        delete[] this->Ptr2D;
        this->Ptr2D = nullptr;
    }
    this->Width = -1;
    this->Height = -1;
    this->Region = ZEKRECT();
}

template <typename T>
T* ClassData2DIOGeneral<T>::GetRow(int y)
{
    return this->Ptr1D + static_cast<std::ptrdiff_t>(y) * this->Width;
}

template <typename T>
ClassData2DIOGeneral<T>& ClassData2DIOGeneral<T>::operator=(const ClassData2DIOGeneral& other)
{
    // An empty source asks for -1 x -1 or 0 x 0; both become an array without elements.
    const bool empty = !other.Ptr1D || &other == this;
    const int  width = other.Width;
    const int  height = other.Height;
    if (!other.Ptr1D && width < 0) {
        Release();
        return *this;
    }
    Allocate(width, height);
    if (!empty)
        std::memcpy(static_cast<void*>(this->Ptr1D), other.Ptr1D, CountOf(*this) * sizeof(T));
    return *this;
}

template <typename T>
ClassData2DIO<T>& ClassData2DIO<T>::operator=(const ClassData2DIO& other)
{
    ClassData2DIOGeneral<T>::operator=(other);
    return *this;
}

template <>
unsigned char ClassData2DIO<unsigned char>::MirrorValue(PointTemplateBase<int> p)
{
    // A failed allocation leaves a size without rows.
    if (!Ptr2D || CountOf(*this) == 0)
        return 0;
    return Ptr2D[ReflectRepeatingEdge(p.y, Height)][ReflectRepeatingEdge(p.x, Width)];
}

template <>
void ClassData2DIO<short>::ReadFile(const char* path, unsigned int offset)
{
    ReadElements(path, offset, Ptr1D, sizeof *Ptr1D, CountOf(*this));
}

template <>
void ClassData2DIO<float>::ReadFile(const char* path, unsigned int offset)
{
    ReadElements(path, offset, Ptr1D, sizeof *Ptr1D, CountOf(*this));
}

template <>
void ClassData2DIO<unsigned char>::ReadFile(const char* path)
{
    ReadElements(path, 0, Ptr1D, sizeof *Ptr1D, CountOf(*this));
}

template <>
void ClassData2DIO<float>::NormalizeSum()
{
    const std::size_t count = CountOf(*this);
    float             sum = 0.0f;
    for (std::size_t i = 0; i < count; ++i)
        sum += Ptr1D[i];
    if (!(std::fabs(static_cast<double>(sum)) > 1e-10) || Height < 1)
        return;
    for (std::size_t i = 0; i < count; ++i)
        Ptr1D[i] /= sum;
}

template struct StructData2D<unsigned char>;
template struct StructData2D<short>;
template struct StructData2D<unsigned short>;
template struct StructData2D<int>;
template struct StructData2D<float>;
template struct StructData2D<tagStructRGBA>;
template class ClassData2DIOGeneral<unsigned char>;
template class ClassData2DIOGeneral<short>;
template class ClassData2DIOGeneral<unsigned short>;
template class ClassData2DIOGeneral<int>;
template class ClassData2DIOGeneral<float>;
template class ClassData2DIOGeneral<tagStructRGBA>;
template class ClassData2DIO<unsigned char>;
template class ClassData2DIO<short>;
template class ClassData2DIO<unsigned short>;
template class ClassData2DIO<int>;
template class ClassData2DIO<float>;
template void StructData2D<float>::ConvertFrom(StructData2D<unsigned short>&, float);
template void StructData2D<float>::ConvertFrom(StructData2D<short>&, float);
template void StructData2D<float>::ConvertFrom(StructData2D<unsigned char>&, float);
template void StructData2D<unsigned short>::ConvertFrom(StructData2D<float>&, float);
template void StructData2D<unsigned short>::ConvertFrom(StructData2D<short>&, float);
template void StructData2D<unsigned short>::ConvertFrom(StructData2D<unsigned char>&, float);
