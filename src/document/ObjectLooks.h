#pragma once

// What the open interface and files say of an object beside its points: flags and style; and the checks of
// what they give, which fail with VOSTEL_INVALID_ARGUMENT.

#include "document/ObjectState.h"
#include "vostel.h"

#include <cstddef>
#include <cstdint>
#include <memory>

namespace vostel {

class VostelImage;

// Flattening of curves that leave the canvas, image px.
constexpr double OutlineTolerance = 0.01;

void CheckPointCount(int kind, std::size_t count);

// An object without points, made through the open interface, with the canvas's view. Fails for a kind that
// is none.
std::unique_ptr<VostelObj> MakeOpenObject(VostelImage& canvas, int kind);

// VOSTEL_HIDDEN ..., combined.
std::uint32_t FlagsOf(const VostelObj& object, const ObjectNotes& notes);
void          CheckFlags(const VostelObj& object, std::uint32_t flags);
void          TakeFlags(VostelObj& object, ObjectNotes& notes, std::uint32_t flags);

VostelStyle StyleOf(const VostelObj& object);
void        CheckStyle(const VostelStyle& style);
void        TakeStyle(VostelObj& object, const VostelStyle& style);

}
