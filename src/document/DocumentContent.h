#pragma once

#include "canvas/ElementCounts.h"
#include "document/ObjectState.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace vostel {

// What a session's file said that this version does not know: JSON as text, which is written again.
struct UnreadParts {
    // An object of an unknown kind, between the others.
    struct Object {
        std::size_t Below = 0;    // how many known ones lie below it
        std::string Text;
    };
    // A word in the place of which another one stands, until that changes.
    struct Word {
        const char* Part = "";    // of the session; empty for its top
        const char* Member = "";
        std::string StandIn;
        std::string Text;
        bool        OfImage = false;    // goes with the image
    };
    std::int64_t        Version = 1;
    std::string         Members;         // an object in the shape of the session; empty for nothing
    std::string         ImageMembers;    // of the image, with which they go
    std::vector<Object> Objects;
    std::vector<Word>   Words;
};

// An object with its numbers and its selection, and what is kept beside it. Label 0 of a region stands for
// the lowest free one.
struct PlacedObject {
    std::unique_ptr<VostelObj> Object;
    ObjectNotes                Notes;
};

// All that stands on a canvas.
struct DocumentContent {
    std::vector<PlacedObject> Objects;    // in drawing order
    ElementCounts             Counts;
    int                       SelIndex = -1;
    UnreadParts               Unread;
};

}
