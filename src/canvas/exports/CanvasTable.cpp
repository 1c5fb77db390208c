#include "canvas/exports/CanvasTable.h"

#include <mutex>
#include <shared_mutex>
#include <unordered_map>
#include <utility>

namespace vostel {

VostelImage gCanvasTable[CanvasCount];

struct CreatedCanvas {
    VostelImage Image;
    Document    Notes;

    explicit CreatedCanvas(int number) : Notes(Image, number, true) {}
};

namespace {

// Made after the canvases, and so gone before them.
std::unique_ptr<Document> gNotes[CanvasCount];

// Canvases come and go on any thread.
struct CreatedCanvases {
    std::shared_mutex                                       Lock;
    std::unordered_map<int, std::shared_ptr<CreatedCanvas>> All;
    int                                                     Next = CanvasCount;
};

CreatedCanvases gCreated;

bool AlwaysStands(int number)
{
    return number >= 0 && number < CanvasCount;
}

std::shared_ptr<CreatedCanvas> FindCreated(int number)
{
    if (number < CanvasCount)
        return nullptr;
    const std::shared_lock<std::shared_mutex> hold(gCreated.Lock);
    const auto                                found = gCreated.All.find(number);
    return found == gCreated.All.end() ? nullptr : found->second;
}

}

VostelImage* FindCanvas(int number)
{
    if (AlwaysStands(number))
        return &gCanvasTable[number];
    const std::shared_ptr<CreatedCanvas> created = FindCreated(number);
    return created ? &created->Image : nullptr;
}

VostelImage& CanvasToRead(int number)
{
    if (VostelImage* const canvas = FindCanvas(number))
        return *canvas;
    // A host may have written through a reference that it got from here; the next one starts afresh.
    static VostelImage nothing;
    nothing.Raw.Release();
    nothing.RawOri.Release();
    nothing.LabelIma.Release();
    return nothing;
}

CanvasCall::CanvasCall(int number)
    : Number(number), Held(FindCreated(number)), Image(AlwaysStands(number) ? &gCanvasTable[number]
                                                       : Held               ? &Held->Image
                                                                            : nullptr)
{
    if (Image)
        Scope.emplace(*Image);
}

Document& CanvasCall::Notes() const
{
    if (!Held && !gNotes[Number])
        gNotes[Number] = std::make_unique<Document>(*Image, Number, false);
    Document& notes = Held ? Held->Notes : *gNotes[Number];
    if (notes.HasStrays)
        notes.AdoptStrays();
    return notes;
}

int CreateCanvas(int width, int height)
{
    int number = 0;
    {
        const std::unique_lock<std::shared_mutex> hold(gCreated.Lock);
        number = gCreated.Next++;
    }
    auto made = std::make_shared<CreatedCanvas>(number);
    made->Image.UseOwnArea(width, height);
    made->Image.KeyLetters = "ACDERS";    // without those that change every object at once
    made->Notes.SetStepLimit(std::size_t(64) << 20);
    const std::unique_lock<std::shared_mutex> hold(gCreated.Lock);
    gCreated.All.emplace(number, std::move(made));
    return number;
}

bool DestroyCanvas(int number)
{
    std::shared_ptr<CreatedCanvas> last;
    {
        const std::unique_lock<std::shared_mutex> hold(gCreated.Lock);
        const auto                                found = gCreated.All.find(number);
        if (found == gCreated.All.end())
            return false;
        last = std::move(found->second);
        gCreated.All.erase(found);
    }
    const VostelDC::CallScope scope(last->Image);
    last->Notes.TellDestruction();
    return true;
}

}
