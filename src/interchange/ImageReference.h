#pragma once

#include "canvas/ImageSource.h"
#include "geometry/PlaneView.h"
#include "interchange/JsonText.h"

#include <optional>
#include <string>

namespace vostel {

class VostelImage;

// Which image a session is about: where it lies, if it came from a file, and what it is.
struct ImageReference {
    std::optional<ImageSource> Source;
    SampleType                 Type = SampleType::U8;
    int                        Width = 0;
    int                        Height = 0;
    std::string                Hash;
};

// Of the image that a canvas shows, for a session at the absolute path.
Json JsonOfImage(const PlaneView& plane, const std::optional<ImageSource>& source,
                 const std::string& session);
// Fails with VOSTEL_BAD_FORMAT.
ImageReference ReferenceOfJson(const Json& image, const std::string& session);
Json           UnknownOfImage(const Json& image);

// Fails with VOSTEL_NOT_READ for what is missing or unreadable, VOSTEL_TOO_LARGE beyond the limits.
ImageSamples ReadReferred(const ImageSource& source);

// Whether an image has the values that the reference tells.
bool IsReferred(const PlaneView& plane, const ImageReference& reference);

}
