#include "document/LabelImage.h"

#include "canvas/VostelImage.h"
#include "document/Document.h"
#include "document/KindRules.h"
#include "document/ObjectMeasures.h"

namespace vostel {

std::vector<LabelledRegion> LabelledRegions(const VostelImage& canvas, const Document& notes, int width,
                                            int height)
{
    std::vector<LabelledRegion> regions;
    for (const VostelObj* const object : canvas.Elements) {
        const ObjectNotes& kept = notes.NotesOf(*object);
        if (IsRegion(object->TypeCode) && !object->Hidden && !kept.NoLabel)
            regions.push_back({object, RunsOfRegion(*object, width, height), kept.Label});
    }
    return regions;
}

}
