#pragma once

// What formats of polygons need to tell our kinds of objects apart.

#include "geometry/Outline.h"
#include "interchange/FileObject.h"

#include <optional>
#include <string>
#include <string_view>

namespace vostel {

// As in tables, and "ellipse".
std::string KindWord(const FileObject& object);

// The kind of a word and, for "ellipse", its flag. The two angles share a word: one has 3 points, the
// other 4.
struct NamedKind {
    int           Kind = VOSTEL_POLYGON;
    std::uint32_t Flags = 0;
};
std::optional<NamedKind> KindOfWord(std::string_view word, std::size_t points);

// Whether it has the points of its kind, which one that is still being drawn may lack, and none of them lies
// beyond all bounds.
bool IsWhole(const FileObject& object);

// The exact outline of a region.
Outline ExactOutline(const FileObject& region);

// Makes a polygon the region that it was before it left: of the kind and the points that the file remembers,
// if its ring still is what they make. A program that changed the ring is right, and the region stays a
// polygon.
void RestoreRegion(FileObject& polygon, const NamedKind& kind, const std::vector<ImagePoint>& points);

// The corners of a box with upright sides if the ring is one; else nothing.
std::optional<Bounds> BoxOf(const std::vector<ImagePoint>& ring);

}
