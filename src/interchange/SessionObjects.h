#pragma once

// The objects of a session. What the readable members do not say of one stands in its member "state", to the
// bit; it is left out where they say all. On opening the readable members have the last word, so that a file
// can be edited by hand.

#include "document/DocumentContent.h"
#include "interchange/JsonText.h"
#include "interchange/Remarks.h"

namespace vostel {

class Document;
class VostelImage;

// All objects in drawing order, those of unknown kinds in their places; numbers counts as if the objects had
// been made one after the other.
Json JsonOfObjects(const VostelImage& canvas, const Document& notes, ElementCounts& numbers);

// The objects of a file, on the canvas's view. Fails with VOSTEL_BAD_FORMAT.
void ReadObjects(const Json& list, VostelImage& canvas, DocumentContent& content, Remarks& told);

}
