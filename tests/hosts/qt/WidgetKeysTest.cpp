// Which keys the widget gives to its canvas.

#include "dialogs/ParameterDialogs.h"

#include "hosts/qt/ShownCanvas.h"

#include <doctest/doctest.h>

using namespace vostel::widget;

namespace {

// With the objects that keys act on without being selected.
struct CanvasOfBoxes : ShownCanvas {
    CanvasOfBoxes()
    {
        TessikDialogs own;
        own.ImaROIRectPara = [](tagZEKImaROIRectPara& para) {
            para = {10, 60, 20, 50};
            return true;
        };
        gDlgSetDialogs(own);
        gCVSAddCustomRectangle(0);
        InstallParameterDialogs();
        gCVSAddTextOL(0, L"7", 100, 110, FontRed22Framed, 1, 0, 0);
        Widget.refresh();
    }

    bool Changes(int key)
    {
        const QImage before = Frame();
        Key(key);
        return Frame() != before;
    }
};

}

TEST_CASE("C, I and T change the whole canvas only where the program asks for it")
{
    CanvasOfBoxes shown;
    for (const int key : {Qt::Key_C, Qt::Key_I, Qt::Key_T})
        CHECK_FALSE(shown.Changes(key));
    shown.Widget.setKeys(shown.Widget.keys() | VostelWidget::OverwriteKeys);
    CHECK(shown.Changes(Qt::Key_I));
    CHECK(shown.Changes(Qt::Key_T));
    CHECK_FALSE(shown.Changes(Qt::Key_C));
    shown.Widget.setKeys(VostelWidget::DeleteAllKey);
    CHECK(shown.Changes(Qt::Key_C));
}

TEST_CASE("each group lets its own keys through and no other")
{
    struct Group {
        VostelWidget::KeyGroup Keys;
        std::vector<int>       Members;
    };
    const Group groups[] = {{VostelWidget::DeleteKey, {Qt::Key_R}},
                            {VostelWidget::DeleteAllKey, {Qt::Key_C}},
                            {VostelWidget::PenKeys, {Qt::Key_A, Qt::Key_D}},
                            {VostelWidget::EllipseKey, {Qt::Key_E}},
                            {VostelWidget::SliderKeys, {Qt::Key_Tab, Qt::Key_X}},
                            {VostelWidget::OverwriteKeys, {Qt::Key_I, Qt::Key_T}}};
    ShownCanvas shown;
    for (const Group& allowed : groups) {
        shown.Widget.setKeys(allowed.Keys);
        for (const Group& pressed : groups)
            for (const int key : pressed.Members) {
                CAPTURE(key);
                if (key != Qt::Key_Tab || pressed.Keys == allowed.Keys)
                    CHECK(shown.Key(key) == (pressed.Keys == allowed.Keys));
            }
    }
    shown.Widget.setKeys(VostelWidget::NoKeys);
}

TEST_CASE("keys that mean nothing to a canvas go on to the parent")
{
    ShownCanvas shown;
    for (const int key : {Qt::Key_Escape, Qt::Key_Return, Qt::Key_Left, Qt::Key_F5, Qt::Key_B, Qt::Key_1})
        CHECK_FALSE(shown.Key(key));
}

TEST_CASE("R and C reach the canvas each by its own permission")
{
    ShownCanvas shown;
    shown.DrawRectangle();
    shown.Widget.setKeys(VostelWidget::DeleteAllKey);
    shown.Key(Qt::Key_R);
    CHECK(shown.HasRegion());
    shown.Key(Qt::Key_C);
    CHECK_FALSE(shown.HasRegion());
    shown.DrawRectangle();
    shown.Widget.setKeys(VostelWidget::DeleteKey);
    shown.Key(Qt::Key_C);
    CHECK(shown.HasRegion());
    shown.Key(Qt::Key_R);
    CHECK_FALSE(shown.HasRegion());
}

TEST_CASE("Tab switches the slider where the canvas has it, else it moves the focus on")
{
    ShownCanvas shown;
    gCVSShowContrastCtrl(0, true);
    gCVSSetContrastCtrlRectPos(0, 10, 10, 150, 30);
    shown.Widget.refresh();
    const QImage before = shown.Frame();
    shown.Widget.setKeys(VostelWidget::NoKeys);
    shown.Key(Qt::Key_Tab);
    CHECK(shown.Frame() == before);
    shown.Widget.setKeys(VostelWidget::UsualKeys);
    CHECK(shown.Key(Qt::Key_Tab));
    CHECK(shown.Frame() != before);
    shown.Key(Qt::Key_Tab);
    CHECK(shown.Frame() == before);
    gCVSShowContrastCtrl(0, false);
}
