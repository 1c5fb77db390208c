#include "interchange/SessionObjects.h"

#include "base/Failure.h"
#include "base/Utf8.h"
#include "canvas/VostelImage.h"
#include "document/Document.h"
#include "document/KindRules.h"
#include "document/ObjectLooks.h"
#include "interchange/Base64.h"
#include "interchange/CanvasObjects.h"
#include "interchange/ObjectJson.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

namespace vostel {

namespace {

// A panel with a text of its own; "panel" follows the cursor.
constexpr const char* TextPanel = "text_panel";

const char* WordOf(const VostelObj& object)
{
    return object.TypeCode == OverlayPanel && ClassOf(object) != ElementClass::ReadOut
               ? TextPanel
               : KindConstant(object.TypeCode);
}

std::optional<ElementClass> ClassOfWord(const std::string& word)
{
    if (word == TextPanel)
        return static_cast<ElementClass>(OverlayPanel);
    const int kind = KindOfConstant(word);
    if (kind == OverlayPanel)
        return ElementClass::ReadOut;
    return kind < 0 ? std::nullopt : std::optional(static_cast<ElementClass>(kind));
}

int KindOfClass(ElementClass one)
{
    return one == ElementClass::ReadOut ? static_cast<int>(OverlayPanel) : static_cast<int>(one);
}

bool HasText(const VostelObj& object)
{
    return object.TypeCode == OverlayTextRect ||
           (object.TypeCode == OverlayPanel && ClassOf(object) != ElementClass::ReadOut);
}

// A press beside a polygon hides its handles until it is found again.
bool HidesHandles(const VostelObj& object)
{
    return object.TypeCode == OverlayPolygon && !object.ShowHandles;
}

std::string TextOf(const VostelObj& object)
{
    const CString text = object.CaptionText();
    return Utf8Of(std::wstring_view(text, static_cast<std::size_t>(text.GetLength())));
}

bool AreSame(const VostelStyle& a, const VostelStyle& b)
{
    return a.line_color == b.line_color && a.selected_color == b.selected_color &&
           a.handle_color == b.handle_color && a.fill_color == b.fill_color && a.line_width == b.line_width &&
           a.text_height == b.text_height;
}

// What the readable members say of an object.
struct Readable {
    SaidObject Said;
    double     WindowLow = 0.0;    // of the contrast inside; none while equal
    double     WindowHigh = 0.0;

    bool HasWindow() const { return WindowLow != WindowHigh; }
};

bool HasWindow(const VostelObj& object)
{
    return object.WindowLow != object.WindowHigh;
}

void TakePoints(VostelObj& object, const SaidObject& said)
{
    const FileObject& file = said.Object;
    const bool points = said.SaysPoints && !std::ranges::equal(file.Points, object.GivePoints(), SamePlace);
    const bool strokes = object.TypeCode == OverlayMStroke && !file.StrokeStarts.empty() &&
                         file.StrokeStarts != object.StrokeStarts;
    if (points || strokes)
        TakeFilePoints(object, file);
}

// Changes what the object says otherwise, and nothing else. Fails with VOSTEL_INVALID_ARGUMENT.
void TakeReadable(VostelObj& object, ObjectNotes& notes, const Readable& readable)
{
    const FileObject& file = readable.Said.Object;
    TakePoints(object, readable.Said);
    if (readable.Said.SaysText && HasText(object) && TextOf(object) != file.Text)
        TakeFileText(object, file.Text);
    TakeFileName(notes, file.Name);
    CheckFlags(object, file.Flags);
    TakeFlags(object, notes, file.Flags);
    if (file.Style && !AreSame(StyleOf(object), *file.Style)) {
        CheckStyle(*file.Style);
        TakeStyle(object, *file.Style);
    }
    if (HasWindow(object) != readable.HasWindow() || readable.HasWindow()) {
        object.WindowLow = readable.WindowLow;
        object.WindowHigh = readable.WindowHigh;
    }
}

// A new object of the class that has what the readable members say. It has no view yet: what depends on one
// is no part of it.
std::unique_ptr<VostelObj> MakeReadable(ElementClass one, ObjectNotes& notes, const Readable& readable)
{
    std::unique_ptr<VostelObj> made = MakeObject(one);
    made->OpenMade = true;
    TakeReadable(*made, notes, readable);
    return made;
}

// Empty where the readable members say all.
std::vector<unsigned char> StateBeside(VostelObj& object, const Readable& readable)
{
    std::vector<unsigned char> state = SaveShape(object);
    try {
        ObjectNotes notes;
        if (SaveShape(*MakeReadable(ClassOf(object), notes, readable)) == state)
            state.clear();
    } catch (const Failure&) {
        return state;    // such as one that a gesture has not finished yet
    }
    return state;
}

Json JsonOfElement(VostelObj& object, const ObjectNotes& notes, ElementNumbers expected)
{
    Readable readable;
    readable.Said = {FileObjectOf(object, notes), true, true};
    readable.Said.Object.Text = HasText(object) ? TextOf(object) : std::string();
    if (HasWindow(object)) {
        readable.WindowLow = object.WindowLow;
        readable.WindowHigh = object.WindowHigh;
    }
    Json json = JsonOfObject(readable.Said.Object);
    json["kind"] = WordOf(object);
    if (readable.HasWindow())
        json["window"] = {readable.WindowLow, readable.WindowHigh};
    if (object.Selected)
        json["selected"] = true;
    if (HidesHandles(object))
        json["handles"] = false;
    const ElementNumbers numbers = {object.SerialNo, object.TypeSerial};
    if (!(numbers == expected))
        json["numbers"] = {numbers.SerialNo, numbers.TypeSerial};
    const std::vector<unsigned char> state = StateBeside(object, readable);
    if (!state.empty())
        json["state"] = Base64Of(state);
    if (!notes.Unread.empty())
        PutBack(json, ParseJson(notes.Unread));
    return json;
}

Readable ReadableOfJson(const Json& json, int kind, const std::string& place)
{
    Readable          readable = {ObjectOfJson(json, kind, place)};
    const Json* const window = Member(json, "window");
    if (!window)
        return readable;
    if (!window->is_array() || window->size() != 2)
        Fail(VOSTEL_BAD_FORMAT, place + ".window is not a pair");
    readable.WindowLow = FiniteNumber((*window)[0], place + ".window");
    readable.WindowHigh = FiniteNumber((*window)[1], place + ".window");
    if (!(readable.WindowLow < readable.WindowHigh) || !IsRegion(kind))
        Fail(VOSTEL_BAD_FORMAT, place + ".window is no window of a region");
    return readable;
}

// Whether a state from a file says what an object can be.
bool IsSound(const VostelObj& object)
{
    const bool        client = object.TypeCode == OverlayPanel || object.TypeCode == OverlayNeighbours;
    const std::size_t most = client                               ? 0
                             : object.TypeCode == OverlayTextRect ? 2
                                                                  : PointCountsOf(object.TypeCode).Most;
    const bool        finite = std::all_of(object.ImagePoints.begin(), object.ImagePoints.end(),
                                           [](ImagePoint p) { return std::isfinite(p.x) && std::isfinite(p.y); });
    return finite && object.ImagePoints.size() <= most;
}

void StandOn(VostelObj& object, VostelImage& canvas)
{
    object.SetOwnerImage(&canvas);
    object.SetCanvasView(&canvas.View);
    object.Kit.Dc = canvas.ClientMemDC;
}

// Null for a state that is none of the class.
std::unique_ptr<VostelObj> MakeFromState(ElementClass one, const std::string& text, VostelImage& canvas)
{
    const std::optional<std::vector<unsigned char>> state = BytesOfBase64(text);
    if (!state)
        return nullptr;
    // Without a view nothing is derived from what is not known to be sound.
    std::unique_ptr<VostelObj> made = MakeObject(one);
    if (!LoadShape(*made, *state) || !IsSound(*made))
        return nullptr;
    made = MakeObject(one);
    StandOn(*made, canvas);
    LoadShape(*made, *state);
    return made;
}

// One that the readable members say alone, with its caption in the place of a new one.
std::unique_ptr<VostelObj> MakeFromMembers(ElementClass one, ObjectNotes& notes, const Readable& readable,
                                           VostelImage& canvas)
{
    std::unique_ptr<VostelObj> made = MakeReadable(one, notes, readable);
    StandOn(*made, canvas);
    const FileObject& file = readable.Said.Object;
    if (!file.Points.empty())
        TakeFilePoints(*made, file);
    if (HasText(*made) && !file.Text.empty())
        TakeFileText(*made, file.Text);
    return made;
}

std::unique_ptr<VostelObj> MakeFromJson(const Json& json, ElementClass one, const std::string& place,
                                        VostelImage& canvas, ObjectNotes& notes, Remarks& told)
{
    const Readable             readable = ReadableOfJson(json, KindOfClass(one), place);
    std::unique_ptr<VostelObj> made;
    if (const Json* const state = Member(json, "state")) {
        made = MakeFromState(one, TextValue(*state, place + ".state"), canvas);
        if (!made)
            told.Add(place + ".state is none of the kind and was passed over");
    }
    try {
        if (made)
            TakeReadable(*made, notes, readable);
        else
            made = MakeFromMembers(one, notes, readable, canvas);
    } catch (const Failure& failure) {
        Fail(VOSTEL_BAD_FORMAT, place + ": " + failure.Message);
    }
    notes.Label = IsRegion(made->TypeCode) ? readable.Said.Object.Label : 0;
    return made;
}

void TakeNumbers(const Json& json, const std::string& place, ElementNumbers numbers, VostelObj& object)
{
    if (const Json* const both = Member(json, "numbers")) {
        if (!both->is_array() || both->size() != 2)
            Fail(VOSTEL_BAD_FORMAT, place + ".numbers is not a pair");
        numbers.SerialNo =
            static_cast<int>(WholeNumber((*both)[0], INT32_MIN, INT32_MAX, place + ".numbers"));
        numbers.TypeSerial =
            static_cast<int>(WholeNumber((*both)[1], INT32_MIN, INT32_MAX, place + ".numbers"));
    }
    object.SerialNo = numbers.SerialNo;
    object.TypeSerial = numbers.TypeSerial;
}

}

Json JsonOfObjects(const VostelImage& canvas, const Document& notes, ElementCounts& numbers)
{
    Json       list = Json::array();
    auto       unread = notes.Unread.Objects.begin();
    const auto putUnread = [&](std::size_t below) {
        for (; unread != notes.Unread.Objects.end() && unread->Below <= below; ++unread)
            list.push_back(ParseJson(unread->Text));
    };
    numbers = ElementCounts();
    for (std::size_t i = 0; i < canvas.Elements.size(); ++i) {
        putUnread(i);
        VostelObj& object = *canvas.Elements[i];
        list.push_back(JsonOfElement(object, notes.NotesOf(object), numbers.Next(object.TypeCode)));
    }
    putUnread(SIZE_MAX);
    return list;
}

void ReadObjects(const Json& list, VostelImage& canvas, DocumentContent& content, Remarks& told)
{
    if (!list.is_array())
        Fail(VOSTEL_BAD_FORMAT, "objects is not a list");
    for (std::size_t i = 0; i < list.size(); ++i) {
        const Json&                       json = list[i];
        const std::string                 place = "objects[" + std::to_string(i) + "]";
        const std::string                 word = KindOfJson(json, place);
        const std::optional<ElementClass> one = ClassOfWord(word);
        if (!one) {
            content.Unread.Objects.push_back({content.Objects.size(), JsonTextOf(json)});
            told.Kept(word);
            continue;
        }
        PlacedObject placed;
        placed.Object = MakeFromJson(json, *one, place, canvas, placed.Notes, told);
        placed.Object->Selected = TruthOf(json, "selected", place);
        placed.Object->ShowHandles = !Member(json, "handles") || TruthOf(json, "handles", place);
        const Json unknown = UnknownOfObject(json);
        if (!unknown.empty())
            placed.Notes.Unread = JsonTextOf(unknown);
        for (const std::string& name : NamesOfUnknown(unknown, word))
            told.KeptUnread(name);
        TakeNumbers(json, place, content.Counts.Next(placed.Object->TypeCode), *placed.Object);
        if (placed.Object->Selected)
            content.SelIndex = static_cast<int>(content.Objects.size());
        content.Objects.push_back(std::move(placed));
    }
}

}
