#pragma once

#include "interchange/FileObject.h"

#include <span>
#include <string>
#include <vector>

namespace vostel {

class Document;
class VostelImage;
class VostelObj;
struct ObjectNotes;

// What a file can say of an object, but for its outline.
FileObject FileObjectOf(const VostelObj& object, const ObjectNotes& notes);

// In drawing order; of some objects, or of all.
std::vector<FileObject> ObjectsOf(std::span<VostelObj* const> objects, const Document& notes);
std::vector<FileObject> ObjectsOf(const VostelImage& canvas, const Document& notes);

// The parts of an object that come from a file. Each fails with VOSTEL_INVALID_ARGUMENT for what is none.
void TakeFilePoints(VostelObj& object, const FileObject& file);    // and strokes
void TakeFileText(VostelObj& object, const std::string& text);
void TakeFileName(ObjectNotes& notes, const std::string& name);

// Puts objects on top, as one step of that name, all or none of them. A label stays where it is free, else
// the lowest free one is taken; objects of one label in the file share theirs. Fails with VOSTEL_BAD_FORMAT
// and the object's place for what is not an object's.
void AddObjects(VostelImage& canvas, Document& notes, const std::vector<FileObject>& objects,
                const std::string& step);

}
