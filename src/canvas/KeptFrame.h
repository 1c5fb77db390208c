#pragma once

#include "vostel/platform.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>

namespace vostel {

// What a frame shows apart from objects that do not rest: while this stays the same, so do those pixels.
struct FrameStamp {
    CRect               Client;     // client px
    CRect               Display;    // client px
    double              Scale = 0.0;
    double              PixelRatio = 1.0;
    bool                AnyScale = false;
    bool                Handles = true;
    int                 StretchMode = 0;
    const unsigned int* Image = nullptr;
    int                 ImageWidth = 0;
    int                 ImageHeight = 0;
    std::uint64_t       ImageChanges = 0;
    std::uint64_t       Resting = 0;    // of the list of objects

    bool operator==(const FrameStamp&) const = default;
};

// The frame of a canvas as it is without the objects that somebody has in hand: while one of them is dragged,
// paints copy the rest. Kept are two pictures, of all that rests and of what of it lies below the lowest
// object that does not. In the areas where such objects draw, a paint begins with the lower picture and draws
// whatever lies there above it; everywhere else it copies the whole one. Nothing is clipped: what is drawn
// beyond the areas is copied over at last.
class KeptFrame {
public:
    // So many resting objects are drawn about as fast as copied.
    static constexpr std::size_t FewResting = 256;
    std::size_t                  Fewest = FewResting;

    // Whether the frame's pixels are the whole picture outside of Shown, where objects in motion lie.
    bool        IsShown = false;
    CRect       Shown;
    CRect       SourceRect;          // of the view after the image was drawn
    std::size_t LowestMoving = 0;    // place on the list

    // Notes what a paint shows. True if the one before has shown the same.
    bool Follows(const FrameStamp& stamp);
    // Whether the pictures are those of the last stamp.
    bool IsTaken() const { return Taken; }
    // Memory for pictures of that size; false if there is none.
    bool Reserve(int width, int height) noexcept;
    // The pictures from and to the pixels of the frame, rows bottom-up. Areas lie within it, each apart from
    // the others, in ascending order of their left edges.
    void TakeBelow(const unsigned int* pixels);
    void TakeAll(const unsigned int* pixels);
    void CopyBelow(std::span<const CRect> areas, unsigned int* pixels) const;
    // Of the whole picture what lies in a box and in none of the areas.
    void CopyAround(std::span<const CRect> areas, const CRect& box, unsigned int* pixels) const;
    void Free();

private:
    FrameStamp                      Last;
    bool                            Taken = false;
    int                             Width = 0;
    int                             Height = 0;
    std::unique_ptr<unsigned int[]> All;
    std::unique_ptr<unsigned int[]> Below;

    std::size_t RowStart(int y) const;    // y downwards
};

}    // namespace vostel
