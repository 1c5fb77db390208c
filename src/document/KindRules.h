#pragma once

#include "geometry/Outline.h"
#include "overlay/VostelObj.h"

#include <cstddef>
#include <memory>

namespace vostel {

// The classes that lie on a canvas: the kinds, and the panel that follows the cursor.
enum class ElementClass : int { ReadOut = -1 };

ElementClass ClassOf(const VostelObj& object);
// A new object, null for a class that is none.
std::unique_ptr<VostelObj> MakeObject(ElementClass objectClass);

bool IsKind(int kind);      // whether objects of the kind lie on a canvas
bool IsRegion(int kind);    // those that cover pixels
// What a host gets that adds an object of a kind: a panel is one that follows the cursor, since it has no
// text, and a custom rectangle an ordinary one.
ElementClass AddedClass(int kind);

// How many points a kind has.
struct PointCounts {
    std::size_t Least = 0;
    std::size_t Most = 0;
};
PointCounts PointCountsOf(int kind);

// Of the exact outline, or of the points where there is none; image px.
Bounds BoundsOfObject(const VostelObj& object);

// What a kind is called in the names of steps and in tables.
const char* KindName(int kind);

}
