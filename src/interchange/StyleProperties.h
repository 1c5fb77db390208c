#pragma once

// Styles as the flat properties that web maps use for them (stroke, stroke-width, fill, fill-opacity), and
// ours beside them.

#include "interchange/FileObject.h"
#include "interchange/JsonText.h"

#include <span>

namespace vostel {

void PutStyle(const VostelStyle& style, Json& properties);

// The style of a new object of the kind with what the properties say; nothing where they say nothing of it.
// What is no style's value is left out.
std::optional<VostelStyle> StyleOfProperties(const Json& properties, int kind);

bool IsStyleProperty(const std::string& name);

}
