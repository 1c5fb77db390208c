#pragma once

// Regions as the annotations of one image in COCO's format for object detection; docs/formats.md says what
// becomes what.

#include "interchange/FileObject.h"
#include "interchange/Remarks.h"

#include <string>
#include <vector>

namespace vostel {

// The name is that of the image's file, UTF-8; empty if it came from memory.
std::string CocoOf(const std::vector<FileObject>& objects, ImageSize image, const std::string& imageName,
                   Remarks& remarks);
std::vector<FileObject> ObjectsOfCoco(const std::string& text, ImageSize image, Remarks& remarks);

}
