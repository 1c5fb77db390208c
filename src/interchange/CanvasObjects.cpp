#include "interchange/CanvasObjects.h"

#include "base/Failure.h"
#include "base/Utf8.h"
#include "canvas/VostelImage.h"
#include "document/Document.h"
#include "document/KindRules.h"
#include "document/ObjectLooks.h"

#include <cmath>
#include <map>
#include <memory>
#include <set>

namespace vostel {

FileObject FileObjectOf(const VostelObj& object, const ObjectNotes& notes)
{
    FileObject left;
    left.Kind = object.TypeCode;
    left.Points = object.GivePoints();
    left.StrokeStarts = object.StrokeStarts;
    left.Name = notes.Name;
    if (object.TypeCode == OverlayTextRect) {
        const CString text = object.CaptionText();
        left.Text = Utf8Of(std::wstring_view(text, static_cast<std::size_t>(text.GetLength())));
    }
    left.Label = notes.Label;
    left.Flags = FlagsOf(object, notes);
    left.Style = StyleOf(object);
    return left;
}

namespace {

void CheckPoints(const FileObject& object)
{
    CheckPointCount(object.Kind, object.Points.size());
    for (const ImagePoint& point : object.Points) {
        NeedFinite(point.x, "x");
        NeedFinite(point.y, "y");
    }
}

// Each stroke begins behind the one before, the first with the first point.
void TakeStrokeStarts(VostelObj& object, const std::vector<int>& starts)
{
    if (object.TypeCode != OverlayMStroke || starts.empty())
        return;
    if (starts[0] != 0)
        Fail(VOSTEL_INVALID_ARGUMENT, "the first stroke does not begin with the first point");
    for (std::size_t i = 1; i < starts.size(); ++i)
        NeedRange(starts[i], starts[i - 1] + 1, static_cast<int>(object.ImagePoints.size()) - 1,
                  "the beginning of a stroke");
    object.StrokeStarts = starts;
}

}

void TakeFilePoints(VostelObj& object, const FileObject& file)
{
    CheckPoints(file);
    if (!object.TakePoints(file.Points))
        Fail(VOSTEL_INVALID_ARGUMENT, "points is not what the kind takes");
    TakeStrokeStarts(object, file.StrokeStarts);
}

void TakeFileText(VostelObj& object, const std::string& text)
{
    const std::optional<std::wstring> wide = WideOf(text);
    if (!wide)
        Fail(VOSTEL_INVALID_ARGUMENT, "text is not UTF-8");
    object.TakeText(wide->c_str());
}

void TakeFileName(ObjectNotes& notes, const std::string& name)
{
    if (!WideOf(name))
        Fail(VOSTEL_INVALID_ARGUMENT, "name is not UTF-8");
    notes.Name = name;
}

namespace {

std::unique_ptr<VostelObj> Build(VostelImage& canvas, const FileObject& object, ObjectNotes& notes)
{
    std::unique_ptr<VostelObj> made = MakeOpenObject(canvas, object.Kind);
    TakeFilePoints(*made, object);
    if (!object.Text.empty())
        TakeFileText(*made, object.Text);
    TakeFileName(notes, object.Name);
    NeedRange(object.Label, 0, INT32_MAX, "label");
    CheckFlags(*made, object.Flags);
    TakeFlags(*made, notes, object.Flags);
    if (object.Style) {
        CheckStyle(*object.Style);
        TakeStyle(*made, *object.Style);
    }
    return made;
}

std::vector<PlacedObject> BuildAll(VostelImage& canvas, const std::vector<FileObject>& objects)
{
    std::vector<PlacedObject> built(objects.size());
    for (std::size_t i = 0; i < objects.size(); ++i) {
        try {
            built[i].Object = Build(canvas, objects[i], built[i].Notes);
        } catch (const Failure& failure) {
            Fail(VOSTEL_BAD_FORMAT, "object " + std::to_string(i + 1) + ": " + failure.Message);
        }
    }
    return built;
}

// The labels that the objects get: those of the file where they are free, else the lowest free ones.
class FreeLabels {
public:
    FreeLabels(const VostelImage& canvas, const Document& notes, const std::vector<FileObject>& objects)
    {
        for (const VostelObj* const element : canvas.Elements)
            Used.insert(notes.NotesOf(*element).Label);
        for (const FileObject& object : objects) {
            if (object.Label > 0 && Used.insert(object.Label).second)
                Taken[object.Label] = object.Label;
        }
    }

    int For(int label)
    {
        if (label == 0)
            return Lowest();
        const auto found = Taken.find(label);
        return found != Taken.end() ? found->second : Taken[label] = Lowest();
    }

private:
    std::set<int>      Used;
    std::map<int, int> Taken;    // by what the file says
    int                Next = 1;

    int Lowest()
    {
        while (!Used.insert(Next).second)
            ++Next;
        return Next;
    }
};

}

std::vector<FileObject> ObjectsOf(std::span<VostelObj* const> objects, const Document& notes)
{
    std::vector<FileObject> described;
    described.reserve(objects.size());
    for (const VostelObj* const element : objects) {
        FileObject object = FileObjectOf(*element, notes.NotesOf(*element));
        if (const std::optional<Outline> outline = element->RegionOutline())
            object.Outline = outline->Flattened(OutlineTolerance);
        described.push_back(std::move(object));
    }
    return described;
}

std::vector<FileObject> ObjectsOf(const VostelImage& canvas, const Document& notes)
{
    return ObjectsOf(std::vector<VostelObj*>(canvas.Elements.begin(), canvas.Elements.end()), notes);
}

void AddObjects(VostelImage& canvas, Document& notes, const std::vector<FileObject>& objects,
                const std::string& step)
{
    std::vector<PlacedObject> built = BuildAll(canvas, objects);
    FreeLabels                labels(canvas, notes, objects);
    for (std::size_t i = 0; i < built.size(); ++i) {
        notes.Settle(*built[i].Object);
        if (IsRegion(objects[i].Kind))
            built[i].Notes.Label = labels.For(objects[i].Label);
    }
    notes.AddAll(std::move(built), step);
}

}
