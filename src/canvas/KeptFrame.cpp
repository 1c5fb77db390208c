#include "canvas/KeptFrame.h"

#include <algorithm>
#include <cstring>
#include <new>

namespace vostel {

bool KeptFrame::Follows(const FrameStamp& stamp)
{
    if (stamp == Last)
        return true;
    Last = stamp;
    Taken = IsShown = false;
    return false;
}

bool KeptFrame::Reserve(int width, int height) noexcept
{
    if (All && Width == width && Height == height)
        return true;
    Taken = false;
    All.reset();
    Below.reset();
    const std::size_t count = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
    Width = width;
    Height = height;
    Below.reset(new (std::nothrow) unsigned int[count]);
    if (Below)
        All.reset(new (std::nothrow) unsigned int[count]);
    if (!All)
        Below.reset();
    return All != nullptr;
}

void KeptFrame::TakeBelow(const unsigned int* pixels)
{
    std::memcpy(Below.get(), pixels, RowStart(-1) * sizeof *pixels);
}

void KeptFrame::TakeAll(const unsigned int* pixels)
{
    std::memcpy(All.get(), pixels, RowStart(-1) * sizeof *pixels);
    Taken = true;
}

void KeptFrame::CopyBelow(std::span<const CRect> areas, unsigned int* pixels) const
{
    for (const CRect& area : areas) {
        const std::size_t bytes = static_cast<std::size_t>(area.right - area.left) * sizeof *pixels;
        for (int y = area.top; y < area.bottom; ++y) {
            const std::size_t start = RowStart(y) + static_cast<std::size_t>(area.left);
            std::memcpy(pixels + start, Below.get() + start, bytes);
        }
    }
}

void KeptFrame::CopyAround(std::span<const CRect> areas, const CRect& box, unsigned int* pixels) const
{
    for (int y = box.top; y < box.bottom; ++y) {
        int        left = box.left;
        const auto copyTo = [&](int right) {
            if (left >= right)
                return;
            const std::size_t start = RowStart(y) + static_cast<std::size_t>(left);
            std::memcpy(pixels + start, All.get() + start,
                        static_cast<std::size_t>(right - left) * sizeof *pixels);
        };
        for (const CRect& area : areas) {
            if (y < area.top || y >= area.bottom)
                continue;
            copyTo(std::min<int>(area.left, box.right));
            left = std::max<int>(left, area.right);
        }
        copyTo(box.right);
    }
}

void KeptFrame::Free()
{
    Taken = IsShown = false;
    All.reset();
    Below.reset();
    Last = FrameStamp();
}

std::size_t KeptFrame::RowStart(int y) const
{
    return static_cast<std::size_t>(Height - 1 - y) * static_cast<std::size_t>(Width);
}

}    // namespace vostel
