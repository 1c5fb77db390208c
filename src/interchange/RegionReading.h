#pragma once

// What readers of JSON files of regions share.

#include "interchange/FileObject.h"
#include "interchange/JsonText.h"
#include "interchange/Remarks.h"

#include <cstddef>
#include <span>
#include <string>
#include <vector>

namespace vostel {

// Objects that are the parts of one thing.
struct PartRange {
    std::size_t First = 0;
    std::size_t End = 0;
};

// Regions of one thing that have no label get one that no other of the file has.
void ShareLabels(std::vector<FileObject>& objects, std::span<const PartRange> things);

// Tells of a width and a height that the shown image does not have.
void CompareSize(const Json& said, ImageSize image, Remarks& remarks);

// x, y, x, y ... and back. What is wrong begins with where it stands.
Json                    FlatPoints(const std::vector<ImagePoint>& points);
std::vector<ImagePoint> PointsOfFlat(const Json& flat, const std::string& where);

}
