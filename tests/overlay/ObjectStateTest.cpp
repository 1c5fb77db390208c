#include "overlay/StateArchive.h"
#include "support/EveryObject.h"

#include <doctest/doctest.h>

#include <random>

using namespace vostel;

namespace {

// An object in a state that differs from a new one wherever its class has state.
std::unique_ptr<VostelObj> Changed(const ObjectClass& kind, CanvasView& view)
{
    std::unique_ptr<VostelObj> object = kind.Make();
    object->SetCanvasView(&view);
    if (kind.Fewest > 0)
        REQUIRE(object->TakePoints(SomePoints(kind.Fewest)));
    object->TakeText(L"第一行\nsecond");
    object->TypeSerial = 3;
    object->SerialNo = -1;
    object->StyleFontType = FontCustom;
    object->StyleColor = RGB(1, 2, 3);
    object->StyleHeight = 31;
    object->LineColorIdle = RGB(10, 20, 30);
    object->LineWidth = 2.5;
    object->FillColor = 0x80FF0001;
    object->WindowLow = -0.0;
    object->WindowHigh = 1e300;
    object->Hidden = true;
    object->EllipseMode = true;
    object->MeasureScale = 0.1;
    if (auto* const slider = dynamic_cast<VostelSlider*>(object.get()))
        slider->Low = 0.25f;
    if (auto* const progress = dynamic_cast<VostelProgress*>(object.get()))
        progress->Pos = 170;
    if (auto* const stroke = dynamic_cast<VostelCrayonOneStroke*>(object.get()))
        stroke->StrokeDone = false;
    object->DerivePainted();    // a text fits its new style
    return object;
}

}

TEST_CASE("the state of an object of each class comes back in a new one to the byte")
{
    for (const ObjectClass& kind : EveryClass()) {
        CAPTURE(kind.Name);
        CanvasView                       view = SomeView();
        const std::unique_ptr<VostelObj> object = Changed(kind, view);
        const std::vector<unsigned char> state = object->SaveState();
        const std::unique_ptr<VostelObj> other = kind.Make();
        other->SetCanvasView(&view);
        CHECK(other->SaveState() != state);
        REQUIRE(other->LoadState(state));
        CHECK(other->SaveState() == state);
        CHECK(other->ClientPoints == object->ClientPoints);
        CHECK(other->ClientBox == object->ClientBox);
        CHECK(other->CaptionText() == object->CaptionText());
        CHECK(other->LineWidth == 2.5);
        CHECK(other->Hidden);
    }
}

TEST_CASE("what a gesture leaves and what a paint derives is no state")
{
    for (const ObjectClass& kind : EveryClass()) {
        CAPTURE(kind.Name);
        CanvasView                       view = SomeView();
        const std::unique_ptr<VostelObj> object = kind.Make();
        object->SetCanvasView(&view);
        if (kind.Fewest > 0)
            REQUIRE(object->TakePoints(SomePoints(kind.Fewest)));
        const std::vector<unsigned char> state = object->SaveState();
        object->Identity = 7;
        object->Selected = !object->Selected;
        object->ButtonDown = true;
        object->ActiveNode = 1;
        object->LastPoint = CPoint(5, 6);
        object->HoverPoint = CPoint(7, 8);
        object->HitTest(CPoint(70, 80));
        view.Scale = 3.0;
        object->SetCanvasView(&view);
        object->DerivePainted();
        CHECK(object->SaveState() == state);
    }
}

TEST_CASE("each field of the common state shows in the bytes")
{
    const std::vector<void (*)(VostelObj&)> changes = {
        [](VostelObj& o) { o.TypeSerial = 1; },
        [](VostelObj& o) { o.SerialNo = 1; },
        [](VostelObj& o) { o.ImagePoints.emplace_back(1.0, 2.0); },
        [](VostelObj& o) { o.StrokeStarts.push_back(0); },
        [](VostelObj& o) { o.StyleFontType = FontRed22; },
        [](VostelObj& o) { o.StyleColor = 1; },
        [](VostelObj& o) { o.StyleBkMode = OPAQUE; },
        [](VostelObj& o) { o.StyleHeight = 1; },
        [](VostelObj& o) { o.LineColorIdle = 1; },
        [](VostelObj& o) { o.LineColorSel = 1; },
        [](VostelObj& o) { o.LineWidth = 1.0 + 0x1p-52; },
        [](VostelObj& o) { o.StrokeWidth = 2; },
        [](VostelObj& o) { o.FillColor = 1; },
        [](VostelObj& o) { o.HandleShape = SquareHandles; },
        [](VostelObj& o) { o.HandleColorSel = 1; },
        [](VostelObj& o) { o.HandleColorIdle = 1; },
        [](VostelObj& o) { o.HandleColorAlt = 1; },
        [](VostelObj& o) { o.HandleRadius = 5; },
        [](VostelObj& o) { o.Hidden = true; },
        [](VostelObj& o) { o.Locked = true; },
        [](VostelObj& o) { o.OpenMade = true; },
        [](VostelObj& o) { o.EllipseMode = true; },
        [](VostelObj& o) { o.FixedSize = true; },
        [](VostelObj& o) { o.ClampToImage = false; },
        [](VostelObj& o) { o.ControlOn = false; },
        [](VostelObj& o) { o.ClickPerPoint = 0; },
        [](VostelObj& o) { o.MaxPoints = 2; },
        [](VostelObj& o) { o.MeasureScale = -1.0; },
        [](VostelObj& o) { o.MeasureArmed = true; },
        [](VostelObj& o) { o.WindowLow = -0.0; },
        [](VostelObj& o) { o.WindowHigh = 1.0; },
    };
    std::vector<std::vector<unsigned char>> states = {VostelPolygon().SaveState()};
    for (const auto change : changes) {
        VostelPolygon polygon;
        change(polygon);
        states.push_back(polygon.SaveState());
    }
    std::sort(states.begin(), states.end());
    CHECK(std::adjacent_find(states.begin(), states.end()) == states.end());
}

TEST_CASE("bytes that end early are refused at every length, and so are bytes too many")
{
    for (const ObjectClass& kind : EveryClass()) {
        CAPTURE(kind.Name);
        CanvasView                 view = SomeView();
        std::vector<unsigned char> state = Changed(kind, view)->SaveState();
        for (std::size_t length = 0; length < state.size(); ++length) {
            // Of their own, so that a read beyond them shows.
            const std::vector<unsigned char> start(state.begin(), state.begin() + static_cast<long>(length));
            CHECK_FALSE(kind.Make()->LoadState(start));
        }
        state.push_back(0);
        CHECK_FALSE(kind.Make()->LoadState(state));
    }
}

TEST_CASE("damaged bytes are taken or refused without harm")
{
    std::mt19937 random(20);
    for (const ObjectClass& kind : EveryClass()) {
        CAPTURE(kind.Name);
        CanvasView                       view = SomeView();
        const std::vector<unsigned char> state = Changed(kind, view)->SaveState();
        for (int round = 0; round < 300; ++round) {
            std::vector<unsigned char> damaged = state;
            for (int i = 0; i < 3; ++i)
                damaged[random() % damaged.size()] =
                    static_cast<unsigned char>(random() % 2 ? 0xFF : random());
            const std::unique_ptr<VostelObj> object = kind.Make();
            object->LoadState(damaged);
            CHECK(object->TypeCode == kind.Make()->TypeCode);
        }
    }
}

TEST_CASE("the state of another kind is refused")
{
    VostelSpline spline;
    CHECK_FALSE(spline.LoadState(VostelPolygon().SaveState()));
    CHECK(spline.TypeCode == OverlaySpline);
}
