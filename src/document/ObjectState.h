#pragma once

#include "overlay/VostelObj.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace vostel {

// What is kept of an object beside the object itself.
struct ObjectNotes {
    std::string Name;               // UTF-8
    int         Label = 0;          // of a region, from 1; else 0
    bool        NoLabel = false;    // left out of the label image
    std::string Unread;             // members of a session's object that this version does not know, as JSON

    bool operator==(const ObjectNotes&) const = default;
};

// Everything that the history restores of an object, to the bit.
struct ObjectState {
    std::vector<unsigned char> Shape;
    ObjectNotes                Notes;
    // Numbers of the object that comes back. They are no state of its own, since deletions move them.
    int SerialNo = 0;
    int TypeSerial = 0;

    bool operator==(const ObjectState& other) const { return Shape == other.Shape && Notes == other.Notes; }
    std::size_t Bytes() const
    {
        return sizeof *this + Shape.capacity() + Notes.Name.capacity() + Notes.Unread.capacity();
    }
};

// The object's numbers are left out.
std::vector<unsigned char> SaveShape(VostelObj& object);
// False for bytes that are none of the object's class; it may be half loaded then.
bool LoadShape(VostelObj& object, const std::vector<unsigned char>& shape);

}
