#include "document/DocumentContent.h"

#include "canvas/VostelImage.h"
#include "document/Document.h"
#include "document/KindRules.h"
#include "vostel.h"

#include <utility>

namespace vostel {

void Document::AddAll(std::vector<PlacedObject> objects, std::string step)
{
    std::unordered_map<std::uint64_t, Entry> entries;
    LabelNumbers                             labels = Labels;
    for (PlacedObject& placed : objects) {
        labels.Use(placed.Notes.Label);
        placed.Object->Identity = NewIdentity();
        entries.emplace(placed.Object->Identity, Entry{placed.Object.get(), std::move(placed.Notes)});
    }
    Entries.reserve(Entries.size() + entries.size());
    Canvas.Elements.reserve(Canvas.Elements.size() + objects.size());
    // From here on nothing fails.
    if (Current.Name.empty())
        Current.Name = std::move(step);
    Entries.merge(entries);
    std::swap(Labels, labels);
    const int index = Canvas.SelectedElement() ? Canvas.SelIndex : -1;
    for (PlacedObject& placed : objects)
        Canvas.Append(std::move(placed.Object)).Selected = false;
    Canvas.SelIndex = index;
}

void Document::Replace(DocumentContent content, const std::function<void()>& clear)
{
    std::unordered_map<std::uint64_t, Entry> entries;
    LabelNumbers                             labels;
    ElementList                              list(Canvas.View);
    list.reserve(content.Objects.size());
    for (const PlacedObject& placed : content.Objects)
        labels.Use(placed.Notes.Label);
    for (PlacedObject& placed : content.Objects) {
        VostelObj& object = *placed.Object;
        if (placed.Notes.Label == 0 && IsRegion(object.TypeCode)) {
            placed.Notes.Label = labels.Lowest();
            labels.Use(placed.Notes.Label);
        }
        object.Identity = NewIdentity();
        entries.emplace(object.Identity, Entry{&object, std::move(placed.Notes)});
        list.push_back(&object);
    }
    clear();
    // From here on nothing fails.
    for (PlacedObject& placed : content.Objects)
        static_cast<void>(placed.Object.release());
    Entries.swap(entries);
    std::swap(Labels, labels);
    Canvas.Elements.Exchange(list);
    static_cast<ElementCounts&>(Canvas) = content.Counts;
    Canvas.SelIndex = content.SelIndex;
    Unread = std::move(content.Unread);
    StartsAfresh = SelectionMoved = Stale = true;
    for (VostelObj* const object : Canvas.Elements) {
        Events.Tell(VOSTEL_OBJECT_ADDED, object->Identity);
        NoteWindow(*object);
        SettleIfItCan(*object);
    }
}

// The object has its place already; what it says of the image it says again when it is next drawn or moved.
void Document::SettleIfItCan(VostelObj& object) noexcept
{
    try {
        Settle(object);
    } catch (...) {
        Stale = true;
    }
}

}
