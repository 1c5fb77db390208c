#pragma once

// How each function of the open interface runs: checks, the canvas and its document, and the status that
// comes of what was thrown. What is wrong is told in one order: no such canvas, no such object or one of
// another kind, arguments that cannot be, no image, and last what does not fit the image.

#include "base/Failure.h"
#include "canvas/exports/CanvasTable.h"
#include "open/RecordFields.h"
#include "vostel.h"

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <new>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace vostel::open {

// What vostel_last_message() returns on this thread.
void SetMessage(const std::string& message);

// The status of an exception that is being handled, whose message it keeps.
VostelStatus StatusOfException() noexcept;

template <typename Body>
VostelStatus Run(Body&& body) noexcept
{
    try {
        body();
        return VOSTEL_OK;
    } catch (...) {
        return StatusOfException();
    }
}

[[noreturn]] void FailNoCanvas(int32_t canvas);

// Runs with the image and the document of a canvas.
template <typename Body>
VostelStatus OnCanvas(int32_t canvas, Body&& body) noexcept
{
    return Run([&] {
        const CanvasCall call(canvas);
        if (!call)
            FailNoCanvas(canvas);
        body(*call, call.Notes());
    });
}

// The object of an identity; fails if it is not on the canvas.
VostelObj& ObjectOf(const Document& notes, VostelObject object);
// For calls that only look, which cost the next frame nothing.
const VostelObj& ObjectToRead(const Document& notes, VostelObject object);
// Those of a list of the caller, which has no more than the canvas.
std::vector<VostelObj*> ObjectsFrom(const VostelImage& image, const Document& notes, const VostelObject* list,
                                    std::size_t count);
// One that is a region, with points enough or not; fails with VOSTEL_INVALID_ARGUMENT for others.
VostelObj&       RegionOf(const Document& notes, VostelObject object);
const VostelObj& RegionToRead(const Document& notes, VostelObject object);

// Fails with VOSTEL_INVALID_ARGUMENT.
void NeedFlags(std::uint32_t flags, std::uint32_t known);

// A text of the caller; fails if it is null or not UTF-8.
std::string TextFrom(const char* text, const char* name);
CString     WideFrom(const char* text, const char* name);

// Memory of a caller may be aligned as it likes: it is copied, and never read as what it points to.
template <typename T>
void Give(T* target, const T& value)
{
    std::memcpy(static_cast<void*>(target), &value, sizeof value);
}

// What a record says of its size; fails for null.
std::size_t       SizeOfRecord(const void* record, const char* name);
[[noreturn]] void FailRecordSize(const char* name);

// Bytes of the whole fields that the caller's record has; fails for none.
template <typename Record>
std::size_t NeedRecord(const Record* record, const char* name)
{
    const std::size_t bytes = WholeFields<Record>(SizeOfRecord(record, name));
    if (bytes == 0)
        FailRecordSize(name);
    return bytes;
}

// A record of the caller over one with defaults.
template <typename Record>
Record RecordFrom(const Record* given, Record defaults, const char* name)
{
    const std::size_t bytes = NeedRecord(given, name);
    std::memcpy(static_cast<void*>(&defaults), static_cast<const void*>(given), bytes);
    return defaults;
}

// Fills the fields that the caller's record has and leaves its size as it stands.
template <typename Record>
void GiveRecord(Record* target, const Record& value, const char* name)
{
    const std::size_t     bytes = NeedRecord(target, name);
    constexpr std::size_t first = sizeof value.size;
    std::memcpy(reinterpret_cast<char*>(target) + first, reinterpret_cast<const char*>(&value) + first,
                bytes - first);
}

// A buffer and its capacity belong together: null with a capacity fails.
void NeedBuffer(const void* buffer, std::size_t capacity, const char* name);
// Text into a caller's buffer, as the interface gives all text.
void GiveText(const std::string& text, char* buffer, std::size_t capacity, std::size_t* length);

[[noreturn]] void FailBufferTooSmall(std::size_t needed);

template <typename Item>
void GiveList(std::span<const Item> items, Item* buffer, std::size_t capacity, std::size_t* count)
{
    NeedBuffer(buffer, capacity, "list");
    if (count)
        Give(count, items.size());
    const std::size_t copied = std::min(items.size(), capacity);
    if (copied > 0)
        std::memcpy(static_cast<void*>(buffer), items.data(), copied * sizeof(Item));
    if (buffer && copied < items.size())
        FailBufferTooSmall(items.size());
}

// Points of the caller, finite ones.
std::vector<PointTemplateBase<double>> PointsFrom(const VostelPoint* points, std::size_t count);
// To device px, truncated; fails for points that are not finite or beyond what a device can have.
CPoint DevicePoint(double x, double y);

}
