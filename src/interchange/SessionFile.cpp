#include "interchange/SessionFile.h"

#include "base/Failure.h"
#include "canvas/VostelImage.h"
#include "document/Document.h"
#include "fileio/FilePaths.h"
#include "interchange/FileBytes.h"
#include "interchange/ImageReference.h"
#include "interchange/ObjectJson.h"
#include "interchange/SessionObjects.h"
#include "interchange/SessionParts.h"

#include <algorithm>
#include <utility>

namespace vostel {

namespace {

constexpr const char*  SessionFormat = "vostel-session";
constexpr std::int64_t Version = 1;

int SelIndexOf(const VostelImage& canvas)
{
    for (std::size_t i = canvas.Elements.size(); i > 0; --i) {
        if (canvas.Elements[i - 1]->Selected)
            return static_cast<int>(i) - 1;
    }
    return -1;
}

const char* WordOfLanguage(bool english)
{
    return english ? "en" : "zh";
}

void PutWordsBack(Json& json, const std::vector<UnreadParts::Word>& words)
{
    for (const UnreadParts::Word& word : words) {
        const auto  part = json.find(word.Part);
        Json* const holder = *word.Part == '\0' ? &json : part == json.end() ? nullptr : &*part;
        if (holder && IsText(*holder, word.Member, word.StandIn))
            (*holder)[word.Member] = word.Text;
    }
}

Json JsonOfSession(VostelImage& canvas, const Document& notes, const std::string& path)
{
    Json json;
    json["format"] = SessionFormat;
    json["version"] = std::max(Version, notes.Unread.Version);
    const PlaneView plane = canvas.ShownPlane();
    if (plane.Data) {
        json["image"] = JsonOfImage(plane, canvas.Source, path);
        if (!notes.Unread.ImageMembers.empty())
            PutBack(json["image"], ParseJson(notes.Unread.ImageMembers));
    }
    json["view"] = JsonOfView(canvas.View);
    if (plane.Data)
        json["contrast"] = JsonOfContrast(canvas.Contrast());
    json["scale"] = JsonOfScale(canvas.View.Settings, canvas.MeasureScale);
    json["smooth"] = canvas.CanvasSurface.StretchMode == HALFTONE;
    json["language"] = WordOfLanguage(canvas.View.Settings.English);
    ElementCounts counts;
    json["objects"] = JsonOfObjects(canvas, notes, counts);
    if (!(counts == canvas))
        json["counts"] = JsonOfCounts(canvas);
    if (canvas.SelIndex != SelIndexOf(canvas))
        json["current"] = canvas.SelIndex;
    if (!notes.Unread.Members.empty())
        PutBack(json, ParseJson(notes.Unread.Members));
    PutWordsBack(json, notes.Unread.Words);
    return json;
}

// A session's file, as far as it needs no canvas.
struct SessionContent {
    Json                          File;
    std::optional<ImageReference> Image;
    std::optional<SavedView>      View;
    std::optional<SavedContrast>  Contrast;
    std::optional<SavedScale>     Scale;
    std::optional<bool>           Smooth;
    std::optional<bool>           English;
    std::string                   LaterLanguage;    // empty, or of a later version
    UnreadParts                   Unread;
};

std::string TextOfUnknown(const Json& unknown, const std::string& place, Remarks& told)
{
    for (const std::string& name : NamesOfUnknown(unknown, place))
        told.KeptUnread(name);
    return unknown.empty() ? std::string() : JsonTextOf(unknown);
}

UnreadParts UnreadOf(const Json& file, Remarks& told)
{
    UnreadParts unread;
    unread.Version = WholeNumber(*Member(file, "version"), 1, INT64_MAX, "version");
    Json members = UnknownMembers(file, {"format", "version", "image", "view", "contrast", "scale", "smooth",
                                         "language", "objects", "counts", "current"});
    PutBack(members, UnknownOfParts(file));
    unread.Members = TextOfUnknown(members, "", told);
    if (const Json* const image = Member(file, "image"))
        unread.ImageMembers = TextOfUnknown(UnknownOfImage(*image), "image", told);
    return unread;
}

void ReadLanguage(const Json& file, SessionContent& content, Remarks& told)
{
    const Json* const language = Member(file, "language");
    if (!language)
        return;
    const std::string name = TextValue(*language, "language");
    if (name == "zh" || name == "en") {
        content.English = name == "en";
        return;
    }
    content.LaterLanguage = name;
    told.Add("the language \"" + name + "\" is unknown: that of the canvas stays");
}

SessionContent ReadContent(const std::string& text, const std::string& path, Remarks& told)
{
    SessionContent content;
    content.File = ParseJson(text);
    const Json& file = content.File;
    if (!IsText(file, "format", SessionFormat) || !Member(file, "version"))
        Fail(VOSTEL_BAD_FORMAT, "the file is no session");
    content.Unread = UnreadOf(file, told);
    if (const Json* const image = ObjectMember(file, "image", ""))
        content.Image = ReferenceOfJson(*image, path);
    if (const Json* const view = ObjectMember(file, "view", ""))
        content.View = ViewOfJson(*view);
    if (const Json* const contrast = ObjectMember(file, "contrast", ""))
        content.Contrast = ContrastOfJson(*contrast, told);
    if (const Json* const scale = ObjectMember(file, "scale", ""))
        content.Scale = ScaleOfJson(*scale);
    if (Member(file, "smooth"))
        content.Smooth = TruthOf(file, "smooth", "");
    ReadLanguage(file, content, told);
    return content;
}

// The canvas's view in the place of another one for the length of a scope.
class ViewExchange {
public:
    ViewExchange(CanvasView& shown, CanvasView& other) : Shown(shown), Other(other)
    {
        std::swap(Shown, Other);
    }
    ~ViewExchange() { std::swap(Shown, Other); }
    ViewExchange(const ViewExchange&) = delete;
    ViewExchange& operator=(const ViewExchange&) = delete;

private:
    CanvasView& Shown;
    CanvasView& Other;
};

class SessionOpening {
public:
    SessionOpening(VostelImage& canvas, Document& notes, SessionContent content, Remarks& told)
        : Canvas(canvas), Notes(notes), Content(std::move(content)), Told(told)
    {
    }

    void OnShownImage()
    {
        const PlaneView plane = Canvas.ShownPlane();
        if (!plane.Data)
            Fail(VOSTEL_NO_IMAGE, "the canvas shows no image to open the session on");
        const bool same = Content.Image && IsReferred(plane, *Content.Image);
        if (!same) {
            Told.Add("the shown image has other values than the session's: its view and contrast stay");
            Content.View.reset();
            Content.Contrast.reset();
            Content.Smooth.reset();
        }
        Stage(CanvasView(Canvas.View), same);
        Commit([&] { TakeContrastAndClear(); });
    }

    // In the place of whatever image is shown.
    void WithItsImage()
    {
        ImageSource     source = *Content.Image->Source;
        ImageSamples    samples = ReadReferred(source);
        const PlaneView plane = ViewOf(samples);
        if (!IsReferred(plane, *Content.Image))
            Told.Add("the image \"" + source.Path + "\" has other values than when the session was saved");
        const bool sameSize = plane.Width == Content.Image->Width && plane.Height == Content.Image->Height;
        CanvasView view = Canvas.View;
        view.ImageWidth = plane.Width;
        view.ImageHeight = plane.Height;
        view.SetClientRect(view.ClientRect);
        Stage(std::move(view), sameSize);
        Commit([&] {
            ShowKeeps keeps;
            keeps.Beginning = Content.Contrast ? &Content.Contrast->State : nullptr;
            Canvas.ShowSamples(std::move(samples), keeps);
            Canvas.Source = std::move(source);
        });
    }

    // Of a canvas that showed none. An image that is shown now stays as it is.
    void WithoutImage()
    {
        if (Canvas.ShownPlane().Data)
            Content.View.reset();
        Content.Contrast.reset();
        Stage(CanvasView(Canvas.View), true);
        Commit([&] { TakeContrastAndClear(); });
    }

private:
    VostelImage&    Canvas;
    Document&       Notes;
    SessionContent  Content;
    Remarks&        Told;
    CanvasView      View;    // that is to come
    double          DrawnScale = 1.0;
    DocumentContent Objects;

    // Builds the objects on the view that is to come.
    void Stage(CanvasView view, bool sameImageSize)
    {
        View = std::move(view);
        DrawnScale = Canvas.MeasureScale;
        View.Settings.English = Content.English.value_or(View.Settings.English);
        if (Content.Scale) {
            View.Settings.UnitsPerPixel = Content.Scale->UnitsPerPixel;
            View.Settings.Unit = Content.Scale->Unit;
            DrawnScale = Content.Scale->DrawnScale;
        }
        if (Content.View)
            TakeView(View, *Content.View, sameImageSize);
        Objects.Unread = std::move(Content.Unread);
        NoteWords();
        const ViewExchange exchange(Canvas.View, View);
        if (const Json* const list = Member(Content.File, "objects"))
            ReadObjects(*list, Canvas, Objects, Told);
        if (const Json* const counts = ObjectMember(Content.File, "counts", ""))
            TakeCounts(*counts, Objects.Counts);
        if (const Json* const current = Member(Content.File, "current"))
            Objects.SelIndex = static_cast<int>(WholeNumber(*current, INT32_MIN, INT32_MAX, "current"));
        for (const PlacedObject& placed : Objects.Objects)
            Notes.Settle(*placed.Object);
    }

    void NoteWords()
    {
        if (Content.Contrast && !Content.Contrast->LaterMap.empty())
            Objects.Unread.Words.push_back(
                {"contrast", "map", Content.Contrast->State.Map, Content.Contrast->LaterMap, true});
        if (!Content.LaterLanguage.empty())
            Objects.Unread.Words.push_back(
                {"", "language", WordOfLanguage(View.Settings.English), Content.LaterLanguage, false});
    }

    template <typename Clear>
    void Commit(Clear clear)
    {
        Notes.Replace(std::move(Objects), [&] {
            clear();
            std::swap(Canvas.View, View);
            Canvas.MeasureScale = DrawnScale;
            if (Content.Smooth)
                Canvas.CanvasSurface.StretchMode = *Content.Smooth ? HALFTONE : COLORONCOLOR;
        });
    }

    void TakeContrastAndClear()
    {
        Canvas.ReserveDeletion();
        const ContrastState before = Canvas.Contrast();
        if (Content.Contrast && !(Content.Contrast->State == before)) {
            try {
                Canvas.ApplyContrast(Content.Contrast->State);
            } catch (...) {
                Canvas.ApplyContrast(before);
                throw;
            }
        }
        Canvas.DeleteAll();
    }
};

}

std::string SessionTextOf(VostelImage& canvas, const Document& notes, const std::string& path)
{
    return JsonTextOf(JsonOfSession(canvas, notes, path));
}

void SaveSession(VostelImage& canvas, const Document& notes, const std::string& path)
{
    WriteWholeFile(path.c_str(), SessionTextOf(canvas, notes, AbsolutePath(path)));
}

void OpenSession(VostelImage& canvas, Document& notes, const std::string& path, bool onImage, Remarks& told)
{
    SessionContent content = ReadContent(ReadWholeFile(path.c_str()), AbsolutePath(path), told);
    const bool     hasImage = content.Image.has_value();
    const bool     hasFile = hasImage && content.Image->Source;
    if (hasImage && !hasFile && !onImage)
        Fail(VOSTEL_NO_IMAGE,
             "the session's image came from memory: it opens on an image alone that is shown, "
             "with VOSTEL_SESSION_ON_IMAGE");
    SessionOpening opening(canvas, notes, std::move(content), told);
    if (onImage)
        opening.OnShownImage();
    else if (hasFile)
        opening.WithItsImage();
    else
        opening.WithoutImage();
}

}
