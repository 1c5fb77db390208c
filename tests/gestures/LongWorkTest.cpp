// A person who works on two canvases for long, by gestures and paints at random: what the process holds stays
// what it was after the first rounds. VOSTEL_GESTURES in the environment is how many gestures there are.

#include "support/GdiObjectCount.h"
#include "support/HostCanvas.h"
#include "support/OpenCanvas.h"

#include <malloc.h>

#include <chrono>
#include <cstdlib>
#include <random>

#if defined(VOSTEL_SANITIZED)
#    include <sanitizer/allocator_interface.h>
#endif

namespace {

constexpr int GesturesOfRound = 100;
constexpr int GesturesPerPaint = 10;

std::size_t BytesHeld()
{
#if defined(VOSTEL_SANITIZED)
    return __sanitizer_get_current_allocated_bytes();
#else
    return mallinfo2().uordblks;
#endif
}

int GesturesWanted()
{
    const char* const text = std::getenv("VOSTEL_GESTURES");
    return text ? std::atoi(text) : 10000;
}

class Person {
public:
    int Gestures = 0;
    int Paints = 0;

    Person() : Dialogs(Answers()) { Begin(); }

    // Draws, moves and deletes, and leaves both canvases as they were.
    void Work()
    {
        for (int i = 1; i <= GesturesOfRound; ++i) {
            Number = Random() % 2 == 0 ? Open.Number : Host.Number;
            Gesture();
            ++Gestures;
            if (i % GesturesPerPaint == 0)
                Paint();
        }
        Begin();
    }

private:
    std::mt19937 Random{13};
    TestDialogs  Dialogs;
    HostCanvas   Host{3, 160, 120};
    OpenCanvas   Open{160, 120};
    int          Number = 0;

    static TessikDialogs Answers()
    {
        TessikDialogs dialogs = CancelledDialogs();
        dialogs.ImaROIRectPara = [](tagZEKImaROIRectPara& para) {
            para.RoiRight = 20;
            para.RoiBottom = 10;
            return true;
        };
        dialogs.ImaGeneralPara = [](tagZEKImaGeneralPara& para, CString&, CString&) {
            para.Value = L"7";
            return true;
        };
        return dialogs;
    }

    void Begin()
    {
        Host.Release(-1, -1);
        REQUIRE(vostel_event_release(Open.Number, -1, -1, 0) == VOSTEL_OK);
        Host.Desktop.Messages = {};
        Host.Desktop.Invalidated = {};
        Host.Desktop.Asked = {};
        gCVSDelAllElement(Host.Number);
        gCVSDelAllElement(Open.Number);
        Host.ShowGray(80, 60, Noise);
        std::vector<std::uint16_t> values(80 * 60);
        for (std::uint16_t& value : values)
            value = static_cast<std::uint16_t>(Random());
        REQUIRE(vostel_image_show(Open.Number, VOSTEL_U16, values.data(), 80, 60, 0, 0) == VOSTEL_OK);
        for (const int number : {Host.Number, Open.Number})
            REQUIRE(vostel_view_actual(number) == VOSTEL_OK);
        REQUIRE(vostel_history_limit(Open.Number, 0) == VOSTEL_OK);
        REQUIRE(vostel_history_limit(Open.Number, 64 << 20) == VOSTEL_OK);
    }

    int Below(int count) { return static_cast<int>(Random() % static_cast<unsigned>(count)); }

    CPoint Place()
    {
        const int x = Below(180) - 10;
        return CPoint(x, Below(140) - 10);
    }

    void Paint()
    {
        VostelFrame frame = {};
        frame.size = sizeof frame;
        REQUIRE(vostel_frame_render(Open.Number, &frame) == VOSTEL_OK);
        Host.Paint();
        Paints += 2;
    }

    void Drag(unsigned int flags)
    {
        const CPoint from = Place(), by = Place(), to = Place();
        gCVSOnLButtonDown(Number, flags | MK_LBUTTON, from);
        gCVSOnMouseMove(Number, flags | MK_LBUTTON, by);
        gCVSOnMouseMove(Number, flags | MK_LBUTTON, to);
        gCVSOnLButtonUp(Number, flags, to);
    }

    void AddClassic()
    {
        static void (*const adds[])(int) = {
            gCVSAddMRectangle,       gCVSAddCustomRectangle, gCVSAddPoly,    gCVSAddSpline,
            gCVSAddFreeRegion,       gCVSAddFreeStroke,      gCVSAddInfoWin, gCVSAddLineProfile,
            gCVSAddMeasureAngle3Pts, gCVSAddNeighborPV,      gCVSAddTextOL,  gCVSAddMeasureAngle4Pts,
        };
        adds[Random() % std::size(adds)](Number);
    }

    void ChangeObject()
    {
        const std::vector<VostelObject> objects = ObjectsOf(Number);
        if (objects.empty())
            return;
        const VostelObject object = objects[Random() % objects.size()];
        switch (Below(4)) {
        case 0:
            vostel_select(Number, &object, 1);
            return;
        case 1:
            vostel_object_set_name(Number, object, Below(2) == 0 ? "a name" : "\xe6\xb5\x8b\xe9\x87\x8f");
            return;
        case 2:
            vostel_object_set_flags(Number, object, static_cast<uint32_t>(Below(16)));
            return;
        default:
            vostel_object_remove(Number, object);
            return;
        }
    }

    void Gesture()
    {
        static const unsigned int flags[] = {0, MK_SHIFT, MK_CONTROL};
        static const unsigned int keys[] = {VK_LEFT,   VK_RIGHT, VK_UP, VK_DOWN, VK_TAB, VK_ESCAPE,
                                            VK_DELETE, 'C',      'I',   'T',     'A'};
        switch (Below(9)) {
        case 0:
            AddClassic();
            return Drag(MK_SHIFT);
        case 1: {
            VostelObject object = 0;
            vostel_draw_next(Number, Below(23), &object);
            return Drag(MK_SHIFT);
        }
        case 2:
        case 3:
            return Drag(flags[Random() % std::size(flags)]);
        case 4: {
            const CPoint at = Place();
            gCVSOnMouseWheel(Number, MK_CONTROL, Below(2) == 0 ? 1 : -1, at);
            return;
        }
        case 5:
            Host.Desktop.KeysDown = {static_cast<int>(keys[Random() % std::size(keys)])};
            gCVSOnKeyDown(Number, static_cast<unsigned int>(*Host.Desktop.KeysDown.begin()), 1, 0);
            Host.Desktop.KeysDown.clear();
            return;
        case 6:
            Below(3) == 0 ? vostel_redo(Number) : vostel_undo(Number);
            return;
        case 7:
            return ChangeObject();
        default:
            return gCVSOnMouseMove(Number, 0, Place());
        }
    }
};

}

TEST_CASE("handles and memory stay flat however many gestures and paints there are")
{
    using Clock = std::chrono::steady_clock;
    const int               rounds = GesturesWanted() / GesturesOfRound;
    const Clock::time_point start = Clock::now();
    Person                  person;
    // Shapes of text are kept from paint to paint, up to a bound, and lists keep the room that they had.
    for (int round = 0; round < rounds / 2; ++round)
        person.Work();
    const unsigned    handles = GdiObjectCount();
    const std::size_t bytes = BytesHeld();
    std::size_t       most = bytes;
    for (int round = rounds / 2; round < rounds; ++round) {
        person.Work();
        REQUIRE(GdiObjectCount() == handles);
        most = std::max(most, BytesHeld());
    }
    MESSAGE(person.Gestures, " gestures and ", person.Paints, " paints in ",
            std::chrono::duration_cast<std::chrono::seconds>(Clock::now() - start).count(), " s; ", handles,
            " handles; ", bytes / 1024, " KiB after half of them, then at most ", most / 1024,
            " KiB, at the end ", BytesHeld() / 1024, " KiB");
    CHECK(person.Gestures >= rounds * GesturesOfRound);
    CHECK(most <= bytes + (3 << 20));
}
