#pragma once

/// @file
/// The open interface in C++17, header-only over vostel.h: canvases and objects by their own names,
/// exceptions for failures, std::optional where there may be nothing, the caller's containers for points and
/// planes.
///
/// Names are those of C without their prefix: vostel_image_show() of a canvas is Canvas::image_show(), and
/// vostel_object_set_name() is Object::set_name(). A failure throws Error; what a call may find missing, such
/// as a step to take back, it returns as false or as nothing.

#include "vostel.h"
#include "vostel/cpp/Canvas.hpp"
#include "vostel/cpp/Object.hpp"
#include "vostel/cpp/Routines.hpp"
#include "vostel/cpp/Scopes.hpp"
#include "vostel/cpp/Values.hpp"

/// The open interface in C++.
namespace vostel {
/// Sets the names apart from those that the library itself has.
inline namespace cpp {
}
}
