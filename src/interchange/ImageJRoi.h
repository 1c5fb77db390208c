#pragma once

// One selection of ImageJ as its .roi files hold it: a header of 64 bytes, coordinates, a second header and
// the name, with numbers highest byte first. docs/formats.md says where a coordinate lies in a pixel.

#include "interchange/FileObject.h"

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace vostel {

// How often something has been said of the objects of a file, by its words.
using Tally = std::map<std::string, int>;

bool IsImageJRoi(std::string_view bytes);

// The selections that stand for an object: none for what ImageJ lacks, one for each of several strokes.
struct ImageJRois {
    std::vector<std::string> Files;
    std::string              Missing;    // what ImageJ lacks, if there are none
};
ImageJRois ImageJRoisOf(const FileObject& object, ImageSize image, Tally& changed);

// Fails with VOSTEL_BAD_FORMAT, and with VOSTEL_NOT_SUPPORTED for composite shapes and the like; `source`
// begins the message. A selection of an age without names is named by `fallbackName`.
FileObject ObjectOfImageJRoi(std::string_view bytes, const std::string& source,
                             const std::string& fallbackName, Tally& ignored);

}
