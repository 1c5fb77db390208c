// What listeners hear, and what they may do. The table of docs/events.md is made here and held against what
// is there: with VOSTEL_WRITE_PAGES set the page is written anew.

#include "support/OpenCanvas.h"
#include "support/TempFolder.h"

#include <cstdlib>
#include <fstream>
#include <functional>
#include <iterator>
#include <map>

namespace {

const char* EventName(uint32_t type)
{
    static const std::map<uint32_t, const char*> names = {
        {VOSTEL_OBJECT_ADDED, "OBJECT_ADDED"},           {VOSTEL_OBJECT_CHANGING, "OBJECT_CHANGING"},
        {VOSTEL_OBJECT_CHANGED, "OBJECT_CHANGED"},       {VOSTEL_OBJECT_REMOVED, "OBJECT_REMOVED"},
        {VOSTEL_SELECTION_CHANGED, "SELECTION_CHANGED"}, {VOSTEL_VIEW_CHANGED, "VIEW_CHANGED"},
        {VOSTEL_IMAGE_CHANGED, "IMAGE_CHANGED"},         {VOSTEL_CONTRAST_CHANGED, "CONTRAST_CHANGED"},
        {VOSTEL_HISTORY_CHANGED, "HISTORY_CHANGED"},     {VOSTEL_FRAME_STALE, "FRAME_STALE"},
        {VOSTEL_CANVAS_DESTROYED, "CANVAS_DESTROYED"}};
    return names.at(type);
}

constexpr uint32_t AllEvents = 2047;

// Notes what it hears.
class Ear {
public:
    std::vector<std::string> Heard;

    explicit Ear(int32_t canvas, uint32_t events = AllEvents)
    {
        REQUIRE(vostel_listen(canvas, events, &Ear::Hear, this, &Token) == VOSTEL_OK);
    }
    ~Ear() { vostel_unlisten(Token); }
    Ear(const Ear&) = delete;
    Ear& operator=(const Ear&) = delete;

    // What came since the last time, in one line.
    std::string Taken()
    {
        std::string line;
        for (const std::string& name : Heard)
            line += (line.empty() ? "" : ", ") + name;
        Heard.clear();
        return line.empty() ? "nothing" : line;
    }

private:
    int64_t Token = 0;

    static void Hear(const VostelEvent* event, void* user)
    {
        static_cast<Ear*>(user)->Heard.push_back(EventName(event->type));
    }
};

// A listener that does something at each event.
class Doer {
public:
    explicit Doer(int32_t canvas, uint32_t events, std::function<void(const VostelEvent&)> action)
        : Action(std::move(action))
    {
        REQUIRE(vostel_listen(canvas, events, &Doer::Hear, this, &Token) == VOSTEL_OK);
    }
    ~Doer() { vostel_unlisten(Token); }
    Doer(const Doer&) = delete;
    Doer& operator=(const Doer&) = delete;

    int64_t Token = 0;
    int     Calls = 0;

private:
    std::function<void(const VostelEvent&)> Action;

    static void Hear(const VostelEvent* event, void* user)
    {
        Doer& self = *static_cast<Doer*>(user);
        ++self.Calls;
        self.Action(*event);
    }
};

VostelObject Add(int32_t canvas, VostelKind kind = VOSTEL_RECTANGLE)
{
    const VostelPoint corners[] = {{20, 20}, {80, 60}};
    VostelObject      object = 0;
    REQUIRE(vostel_object_add(canvas, kind, corners, 2, &object) == VOSTEL_OK);
    return object;
}

void ShowGray(int32_t canvas, uint32_t flags)
{
    const std::vector<unsigned char> gray(200 * 150, 100);
    REQUIRE(vostel_image_show(canvas, VOSTEL_U8, gray.data(), 200, 150, 0, flags) == VOSTEL_OK);
}

struct Row {
    std::string What;
    std::string Heard;
};

// Sessions and regions, on a canvas without objects.
template <typename Note>
void NoteFiles(int32_t number, Ear& ear, const Note& note)
{
    const TempFolder  folder;
    const std::string path = folder.Path("s.vostel.json");
    VostelObject      object = Add(number);
    REQUIRE(vostel_select(number, &object, 1) == VOSTEL_OK);
    ear.Heard.clear();
    vostel_session_save(number, path.c_str(), 0);
    note("`vostel_session_save`, `vostel_regions_export`");
    vostel_regions_import(number, path.c_str(), nullptr, nullptr);
    note("`vostel_regions_import` of one object");
    const char* const arrow = R"({"format": "vostel-regions", "version": 1, "objects": [
        {"kind": "arrow", "points": [[1, 2], [30, 40]]}]})";
    vostel_regions_add_text(number, arrow, nullptr);
    note("`vostel_regions_add_text` of one object");
    vostel_view_fit(number);
    vostel_select(number, nullptr, 0);
    vostel_contrast_set(number, 10, 90);
    ear.Heard.clear();
    vostel_session_open(number, path.c_str(), VOSTEL_SESSION_ON_IMAGE);
    note("`vostel_session_open` of one selected object over three, on the shown image");
    gCVSDelAllElement(number);
    vostel_contrast_set(number, 10, 90);
    ear.Heard.clear();
}

// A canvas of 300 x 200 px with an image of 200 x 150 px, at 50, 25, and one rectangle on it.
std::vector<Row> MakeTable()
{
    std::vector<Row> rows;
    const OpenCanvas canvas;
    const int32_t    number = canvas.Number;
    ShowGray(number, 0);
    const VostelObject object = Add(number);
    Ear                ear(number);
    const auto         note = [&](const char* what) { rows.push_back({what, ear.Taken()}); };
    VostelObject       other = 0;

    vostel_event_press(number, 100, 65, 0);
    note("a press on an object that is not selected");
    vostel_event_move(number, 110, 70, VOSTEL_LEFT_BUTTON);
    note("a move that drags it");
    vostel_event_release(number, 110, 70, 0);
    note("the release");
    vostel_event_move(number, 120, 70, 0);
    note("a move without a button");
    vostel_event_press(number, 10, 10, 0);
    note("a press beside all objects");
    vostel_event_release(number, 10, 10, 0);
    note("its release");
    vostel_draw_next(number, VOSTEL_POLYGON, &other);
    note("`vostel_draw_next`, `gCVSAddPoly`");
    vostel_event_press(number, 80, 60, VOSTEL_SHIFT);
    note("a press with Shift that adds a node");
    vostel_event_release(number, 80, 60, VOSTEL_SHIFT);
    note("its release");
    vostel_event_wheel(number, 150, 100, 1.0, VOSTEL_CONTROL);
    note("a wheel step with Control");
    vostel_event_key(number, 'R', 0);
    note("the key R on a selected object");
    vostel_undo(number);
    note("`vostel_undo` of that");
    vostel_redo(number);
    note("`vostel_redo` of it");
    other = Add(number);
    note("`vostel_object_add`");
    const VostelPoint corners[] = {{0, 0}, {9, 9}};
    vostel_object_set_points(number, other, corners, 2);
    note("`vostel_object_set_points`, `_set_name`, `_set_style`, `_set_label`, `_set_flags`, `_set_text`");
    vostel_object_set_points(number, other, corners, 2);
    note("the same once more");
    vostel_object_move_to(number, other, 0);
    note("`vostel_object_move_to`");
    vostel_select(number, &object, 1);
    note("`vostel_select`");
    vostel_object_remove(number, object);
    note("`vostel_object_remove` of a selected object");
    vostel_history_begin(number, "two");
    Add(number);
    Add(number);
    ear.Heard.clear();
    vostel_history_end(number);
    note("`vostel_history_end`");
    vostel_view_fit(number);
    note("`vostel_view_fit`, `_set`, `_actual`, `_zoom`");
    vostel_contrast_set(number, 10, 90);
    note("`vostel_contrast_set`, `_percentiles`, `_gamma`, `_map`, `_marks`");
    vostel_contrast_of_object(number, other, 10, 20);
    note("`vostel_contrast_of_object`");
    vostel_set_scale(number, 0.5, "mm");
    note("`vostel_set_scale`");
    vostel_canvas_resize(number, 320, 200);
    note("`vostel_canvas_resize`");
    vostel_canvas_set_pixel_ratio(number, 1.5);
    note("`vostel_canvas_set_pixel_ratio`, `_set_language`, `vostel_view_set_smooth`");
    vostel_canvas_resize(number, 320, 200);
    vostel_canvas_set_pixel_ratio(number, 1.5);
    vostel_canvas_set_language(number, "zh");
    vostel_view_set_smooth(number, 0);
    note("these four with what holds already");
    ShowGray(number, VOSTEL_KEEP_OBJECTS | VOSTEL_KEEP_VIEW | VOSTEL_KEEP_CONTRAST);
    note("`vostel_image_show` with all KEEP flags");
    ShowGray(number, 0);
    note("`vostel_image_show` without, over three objects");
    gCVSDelAllElement(number);
    note("`gCVSDelAllElement` without objects");
    NoteFiles(number, ear, note);
    VostelFrame frame = {};
    frame.size = sizeof frame;
    vostel_frame_render(number, &frame);
    note("`vostel_frame_render`");
    vostel_object_remove(number, 12345678);
    note("a call that fails");
    gCVSShowContrastCtrl(number, true);
    note("`gCVSShowContrastCtrl`, `gCVSShowProgress`, `gCVSSetPos`, `gCVSSetCanvasColor`");
    const VostelPoint place = {10, 10};
    vostel_object_add(number, VOSTEL_PANEL, &place, 1, &other);
    ear.Heard.clear();
    vostel_event_move(number, 120, 70, 0);
    note("a move without a button over a panel's canvas");
    vostel_canvas_destroy(number);
    note("`vostel_canvas_destroy`");
    return rows;
}

std::string PageOf(const std::vector<Row>& rows)
{
    std::string page = "# Events\n\nWhat a listener of all events hears, in this order, when the call is "
                       "about to return. The table is made "
                       "by `tests/open/ListenersTest.cpp`.\n\n| Call or gesture | Events |\n|---|---|\n";
    for (const Row& row : rows)
        page += "| " + row.What + " | " + row.Heard + " |\n";
    return page;
}

}

TEST_CASE("the sequences of events are those of docs/events.md")
{
    const std::string path = VOSTEL_DOCS_FOLDER "/events.md";
    const std::string page = PageOf(MakeTable());
    if (std::getenv("VOSTEL_WRITE_PAGES"))
        std::ofstream(path, std::ios::binary) << page;
    std::ifstream     file(path, std::ios::binary);
    const std::string written{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    CHECK(FirstDifference(page, written) == "");
}

TEST_CASE("a listener hears what it asked for, until it is taken away")
{
    const OpenCanvas canvas;
    Ear              all(canvas.Number);
    {
        Ear added(canvas.Number, VOSTEL_OBJECT_ADDED);
        Add(canvas.Number);
        CHECK(added.Taken() == "OBJECT_ADDED");
        CHECK(all.Taken() == "OBJECT_ADDED, HISTORY_CHANGED, FRAME_STALE");
    }
    int64_t token = 0;
    CHECK(vostel_listen(
              canvas.Number, 4096, [](const VostelEvent*, void*) {}, nullptr, &token) ==
          VOSTEL_INVALID_ARGUMENT);
    CHECK(vostel_listen(
              canvas.Number, 0, [](const VostelEvent*, void*) {}, nullptr, &token) ==
          VOSTEL_INVALID_ARGUMENT);
    CHECK(vostel_listen(canvas.Number, 1, nullptr, nullptr, &token) == VOSTEL_INVALID_ARGUMENT);
    CHECK(vostel_listen(
              canvas.Number, 1, [](const VostelEvent*, void*) {}, nullptr, &token) == VOSTEL_OK);
    CHECK(vostel_unlisten(token) == VOSTEL_OK);
    CHECK(vostel_unlisten(token) == VOSTEL_NOT_FOUND);
    CHECK(vostel_unlisten(-1) == VOSTEL_NOT_FOUND);
}

TEST_CASE("a listener may remove the object that it hears of, and change others")
{
    const OpenCanvas   canvas;
    const VostelObject kept = Add(canvas.Number);
    const Doer         remover(canvas.Number, VOSTEL_OBJECT_ADDED, [&](const VostelEvent& event) {
        CHECK(vostel_object_remove(event.canvas, event.object) == VOSTEL_OK);
        CHECK(vostel_object_set_name(event.canvas, kept, "kept") == VOSTEL_OK);
    });
    Add(canvas.Number);
    CHECK(ObjectsOf(canvas.Number) == std::vector<VostelObject>{kept});
    CHECK(NameOf(canvas.Number, kept) == "kept");
    CHECK(HistoryOf(canvas.Number).undo_count == 4);    // two adds, a removal, a name
}

TEST_CASE("a listener may destroy its canvas, from a call and from a gesture")
{
    for (const bool gesture : {false, true}) {
        int32_t number = 0;
        REQUIRE(vostel_canvas_create(300, 200, &number) == VOSTEL_OK);
        ShowGray(number, 0);
        Add(number);
        int        destroyed = 0;
        const Doer last(number, VOSTEL_CANVAS_DESTROYED, [&](const VostelEvent&) { ++destroyed; });
        const Doer destroyer(number, VOSTEL_OBJECT_CHANGED | VOSTEL_SELECTION_CHANGED,
                             [&](const VostelEvent& event) {
                                 CHECK(vostel_canvas_destroy(event.canvas) == VOSTEL_OK);
                                 CHECK(vostel_canvas_destroy(event.canvas) == VOSTEL_NOT_FOUND);
                             });
        if (gesture)
            gCVSOnLButtonDown(number, MK_LBUTTON, CPoint(100, 65));
        else
            CHECK(vostel_object_set_name(number, ObjectsOf(number)[0], "gone") == VOSTEL_OK);
        CHECK(destroyer.Calls == 1);
        CHECK(destroyed == 1);
        CHECK(vostel_undo(number) == VOSTEL_NOT_FOUND);
        gCVSOnMouseMove(number, MK_LBUTTON, CPoint(110, 65));
    }
}

TEST_CASE("a listener may take others away and bring new ones")
{
    const OpenCanvas canvas;
    Doer             second(canvas.Number, VOSTEL_OBJECT_ADDED, [](const VostelEvent&) {});
    Ear              last(canvas.Number, VOSTEL_OBJECT_ADDED);
    {
        const Doer         first(canvas.Number, VOSTEL_OBJECT_REMOVED,
                                 [&](const VostelEvent&) { CHECK(vostel_unlisten(second.Token) == VOSTEL_OK); });
        const VostelObject object = Add(canvas.Number);
        CHECK(second.Calls == 1);
        CHECK(vostel_object_remove(canvas.Number, object) == VOSTEL_OK);
    }
    Add(canvas.Number);
    CHECK(second.Calls == 1);
    CHECK(last.Taken() == "OBJECT_ADDED, OBJECT_ADDED");
}

TEST_CASE("events of what a listener does come after those that wait")
{
    const OpenCanvas   canvas;
    const VostelObject object = Add(canvas.Number);
    Ear        ear(canvas.Number, VOSTEL_OBJECT_ADDED | VOSTEL_OBJECT_CHANGED | VOSTEL_HISTORY_CHANGED);
    bool       named = false;
    const Doer namer(canvas.Number, VOSTEL_OBJECT_ADDED, [&](const VostelEvent& event) {
        if (!named)
            CHECK(vostel_object_set_name(event.canvas, object, "first") == VOSTEL_OK);
        named = true;
    });
    Add(canvas.Number);
    CHECK(ear.Taken() == "OBJECT_ADDED, HISTORY_CHANGED, OBJECT_CHANGED, HISTORY_CHANGED");
}
