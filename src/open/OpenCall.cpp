#include "open/OpenCall.h"

#include "base/Utf8.h"
#include "document/KindRules.h"

#include <algorithm>
#include <cmath>

namespace vostel::open {

namespace {

// Without a destructor: threads end in whatever order with the library.
thread_local char gMessage[512] = "";

// Bytes of the text that fit, cut between characters.
std::size_t FittingBytes(const std::string& text, std::size_t most)
{
    if (text.size() <= most)
        return text.size();
    while (most > 0 && (static_cast<unsigned char>(text[most]) & 0xC0) == 0x80)
        --most;
    return most;
}

}

void SetMessage(const std::string& message)
{
    const std::size_t bytes = FittingBytes(message, sizeof gMessage - 1);
    std::memcpy(gMessage, message.data(), bytes);
    gMessage[bytes] = '\0';
}

VostelStatus StatusOfException() noexcept
{
    try {
        throw;
    } catch (const Failure& failure) {
        SetMessage(failure.Message);
        return failure.Status;
    } catch (const std::bad_alloc&) {
        std::strcpy(gMessage, "out of memory");
        return VOSTEL_OUT_OF_MEMORY;
    } catch (...) {
        std::strcpy(gMessage, "a fault of the library");
        return VOSTEL_INTERNAL;
    }
}

void FailNoCanvas(int32_t canvas)
{
    Fail(VOSTEL_NOT_FOUND, "there is no canvas " + std::to_string(canvas));
}

namespace {

template <typename Object>
Object& Needed(Object* found, VostelObject object)
{
    if (!found)
        Fail(VOSTEL_NOT_FOUND, "there is no object " + std::to_string(object) + " on the canvas");
    return *found;
}

template <typename Object>
Object& NeededRegion(Object& found, VostelObject object)
{
    if (!IsRegion(found.TypeCode))
        Fail(VOSTEL_INVALID_ARGUMENT, "object " + std::to_string(object) + " is not a region");
    return found;
}

}

VostelObj& ObjectOf(const Document& notes, VostelObject object)
{
    return Needed(notes.Find(object), object);
}

const VostelObj& ObjectToRead(const Document& notes, VostelObject object)
{
    return Needed(notes.FindToRead(object), object);
}

std::vector<VostelObj*> ObjectsFrom(const VostelImage& image, const Document& notes, const VostelObject* list,
                                    std::size_t count)
{
    if (count > 0)
        NeedPointer(list, "objects");
    if (count > image.Elements.size())
        Fail(VOSTEL_INVALID_ARGUMENT, "count is larger than the number of objects");
    std::vector<VostelObj*> objects;
    for (std::size_t i = 0; i < count; ++i) {
        VostelObject identity = 0;
        std::memcpy(&identity, reinterpret_cast<const char*>(list) + i * sizeof identity, sizeof identity);
        objects.push_back(&ObjectOf(notes, identity));
    }
    return objects;
}

VostelObj& RegionOf(const Document& notes, VostelObject object)
{
    return NeededRegion(ObjectOf(notes, object), object);
}

const VostelObj& RegionToRead(const Document& notes, VostelObject object)
{
    return NeededRegion(ObjectToRead(notes, object), object);
}

void NeedFlags(std::uint32_t flags, std::uint32_t known)
{
    if ((flags & ~known) != 0)
        Fail(VOSTEL_INVALID_ARGUMENT, "flags has unknown bits");
}

std::string TextFrom(const char* text, const char* name)
{
    NeedPointer(text, name);
    std::string copy = text;
    if (!WideOf(copy))
        Fail(VOSTEL_INVALID_ARGUMENT, std::string(name) + " is not UTF-8");
    return copy;
}

CString WideFrom(const char* text, const char* name)
{
    NeedPointer(text, name);
    const std::optional<std::wstring> wide = WideOf(text);
    if (!wide)
        Fail(VOSTEL_INVALID_ARGUMENT, std::string(name) + " is not UTF-8");
    return CString(wide->c_str());
}

std::size_t SizeOfRecord(const void* record, const char* name)
{
    NeedPointer(record, name);
    std::uint32_t size = 0;
    std::memcpy(&size, record, sizeof size);
    return size;
}

void FailRecordSize(const char* name)
{
    Fail(VOSTEL_INVALID_ARGUMENT, std::string(name) + "->size covers no field");
}

void NeedBuffer(const void* buffer, std::size_t capacity, const char* name)
{
    if (!buffer && capacity > 0)
        Fail(VOSTEL_INVALID_ARGUMENT, std::string(name) + " is null");
}

void FailBufferTooSmall(std::size_t needed)
{
    Fail(VOSTEL_BUFFER_TOO_SMALL, "the buffer is too small for " + std::to_string(needed));
}

void GiveText(const std::string& text, char* buffer, std::size_t capacity, std::size_t* length)
{
    NeedBuffer(buffer, capacity, "buffer");
    if (length)
        Give(length, text.size());
    if (!buffer)
        return;
    if (capacity == 0)
        FailBufferTooSmall(text.size() + 1);
    const std::size_t bytes = FittingBytes(text, capacity - 1);
    std::memcpy(buffer, text.data(), bytes);
    buffer[bytes] = '\0';
    if (bytes < text.size())
        FailBufferTooSmall(text.size() + 1);
}

std::vector<PointTemplateBase<double>> PointsFrom(const VostelPoint* points, std::size_t count)
{
    NeedPointer(points, "points");
    NeedRange(static_cast<std::int64_t>(std::min<std::size_t>(count, INT64_MAX)), 0, INT32_MAX, "count");
    std::vector<PointTemplateBase<double>> copy(count);
    for (std::size_t i = 0; i < count; ++i) {
        VostelPoint point;
        std::memcpy(&point, reinterpret_cast<const char*>(points) + i * sizeof point, sizeof point);
        if (!std::isfinite(point.x) || !std::isfinite(point.y))
            Fail(VOSTEL_INVALID_ARGUMENT, "points[" + std::to_string(i) + "] is not finite");
        copy[i] = {point.x, point.y};
    }
    return copy;
}

CPoint DevicePoint(double x, double y)
{
    constexpr double Farthest = 1e9;
    NeedFinite(x, "x");
    NeedFinite(y, "y");
    if (std::fabs(x) > Farthest || std::fabs(y) > Farthest)
        Fail(VOSTEL_INVALID_ARGUMENT, "a client point lies farther than 1e9 px");
    return CPoint(static_cast<int>(x), static_cast<int>(y));
}

}

const char* vostel_last_message(void)
{
    return vostel::open::gMessage;
}
