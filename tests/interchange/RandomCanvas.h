#pragma once

// Canvases in states of all kinds, made at random by both interfaces and by gestures.

#include "support/OpenShapes.h"

#include "VostelObj.h"
#include "vostel.h"

#include <cstdint>
#include <random>
#include <string>
#include <vector>

class RandomCanvas {
public:
    RandomCanvas(int32_t canvas, unsigned seed) : Canvas(canvas), Random(seed) {}

    // Does a few things to the canvas.
    void Change()
    {
        for (int steps = Below(12); steps > 0; --steps)
            Step();
    }

private:
    int32_t      Canvas;
    std::mt19937 Random;

    int Below(int count) { return static_cast<int>(Random() % static_cast<unsigned>(count)); }

    uint32_t Bits() { return static_cast<uint32_t>(Random()); }

    double Coordinate()
    {
        switch (Below(6)) {
        case 0:
            return Below(90);
        case 1:
            return Below(90) + 0.1;
        case 2:
            return -1.0 / (1 + Below(9));
        case 3:
            return (Below(2) ? 2e4 : -2e4) + Below(1000) / 3.0;
        default:
            return std::uniform_real_distribution<double>(0.0, 90.0)(Random);
        }
    }

    Points SomePoints(int count)
    {
        Points points;
        for (int i = 0; i < count; ++i)
            points.push_back({Coordinate(), Coordinate()});
        return points;
    }

    const char* Text()
    {
        static const char* const texts[] = {"",
                                            "a",
                                            "edge \"3\" \\ left",
                                            "\xe6\xb5\x8b\xe9\x87\x8f",    // two Chinese characters
                                            "line\nline\ttab",
                                            "\xf0\x9f\x94\xac mm\xc2\xb2",
                                            "{\"kind\": 1}",
                                            "\x01 control"};
        return texts[Below(static_cast<int>(std::size(texts)))];
    }

    // 0 for none.
    VostelObject Any()
    {
        VostelObject list[64];
        std::size_t  count = 0;
        if (vostel_object_list(Canvas, list, 64, &count) != VOSTEL_OK || count == 0)
            return 0;
        return list[Below(static_cast<int>(count))];
    }

    void AddByNumbers()
    {
        struct KindCount {
            VostelKind Kind;
            int        Least, More;
        };
        static const KindCount kinds[] = {
            {VOSTEL_RECTANGLE, 2, 0},    {VOSTEL_POLYGON, 3, 6},    {VOSTEL_SPLINE, 3, 6},
            {VOSTEL_FREE_REGION, 3, 20}, {VOSTEL_TEXT, 1, 0},       {VOSTEL_FREE_STROKES, 2, 9},
            {VOSTEL_LENGTH, 2, 0},       {VOSTEL_ANGLE, 3, 0},      {VOSTEL_ANGLE_LINES, 4, 0},
            {VOSTEL_PANEL, 1, 0},        {VOSTEL_NEIGHBOURS, 1, 0}, {VOSTEL_PROFILE, 2, 0},
            {VOSTEL_POINTS, 1, 5},       {VOSTEL_POLYLINE, 2, 5},   {VOSTEL_ARROW, 2, 0}};
        const KindCount& kind = kinds[Below(static_cast<int>(std::size(kinds)))];
        const Points     points = SomePoints(kind.Least + (kind.More > 0 ? Below(kind.More) : 0));
        VostelObject     object = 0;
        // A panel whose corner lies far outside is refused by nobody, and drawn by nobody.
        vostel_object_add(Canvas, kind.Kind, points.data(), points.size(), &object);
        if (object != 0 && kind.Kind == VOSTEL_TEXT)
            vostel_object_set_text(Canvas, object, Text());
    }

    void AddByCalls()
    {
        std::vector<CString> lines = {L"one", L"", L"\x4e09"};
        switch (Below(13)) {
        case 0:
            return gCVSAddMRectangle(Canvas);
        case 1:
            return gCVSAddPoly(Canvas);
        case 2:
            return gCVSAddSpline(Canvas);
        case 3:
            return gCVSAddFreeRegion(Canvas);
        case 4:
            return gCVSAddFreeStroke(Canvas);
        case 5:
            return gCVSAddTextOL(Canvas, L"text", Below(80), Below(60), FontCustom, Below(3), 0x123456,
                                 10 + Below(30));
        case 6:
            return gCVSAddTextOL(Canvas, L"\x6587", Below(80), Below(60), static_cast<FontType>(Below(4)), 1,
                                 0, 18);
        case 7:
            return gCVSAddTextML(Canvas, lines, Below(80), Below(60));
        case 8:
            return gCVSAddMeasureLine(Canvas, 0.0);
        case 9:
            return gCVSAddMeasureAngle3Pts(Canvas);
        case 10:
            return gCVSAddMeasureAngle4Pts(Canvas);
        case 11:
            return gCVSAddLineProfile(Canvas);
        default:
            return Below(2) ? gCVSAddInfoWin(Canvas) : gCVSAddNeighborPV(Canvas);
        }
    }

    // Presses that draw, with Shift, or drag.
    void Gesture()
    {
        const unsigned shift = Below(3) > 0 ? VOSTEL_SHIFT : 0;
        for (int presses = 1 + Below(4); presses > 0; --presses) {
            vostel_event_press(Canvas, Below(120), Below(90), shift);
            for (int moves = Below(4); moves > 0; --moves)
                vostel_event_move(Canvas, Below(120), Below(90), shift | VOSTEL_LEFT_BUTTON);
            vostel_event_release(Canvas, Below(120), Below(90), shift);
        }
    }

    void ChangeObject()
    {
        const VostelObject object = Any();
        if (object == 0)
            return;
        const VostelStyle style = {sizeof style, Bits() & 0xFFFFFF,     Bits() & 0xFFFFFF, Bits() & 0xFFFFFF,
                                   Bits(),       0.5 + Below(40) / 7.0, 1.0 + Below(60)};
        const uint32_t    flags[] = {0, VOSTEL_HIDDEN, VOSTEL_LOCKED, VOSTEL_ELLIPSE,
                                     VOSTEL_NO_LABEL | VOSTEL_HIDDEN};
        switch (Below(9)) {
        case 0:
            vostel_object_set_name(Canvas, object, Text());
            return;
        case 1:
            vostel_object_set_text(Canvas, object, Text());
            return;
        case 2:
            vostel_object_set_style(Canvas, object, &style);
            return;
        case 3:
            vostel_object_set_flags(Canvas, object, flags[Below(5)]);
            return;
        case 4:
            vostel_object_set_label(Canvas, object, 1 + Below(40));
            return;
        case 5:
            vostel_object_move_to(Canvas, object, static_cast<std::size_t>(Below(6)));
            return;
        case 6:
            vostel_contrast_of_object(Canvas, object, Below(100), 100.0 + Below(100));
            return;
        case 7:
            vostel_object_remove(Canvas, object);
            return;
        default:
            vostel_select(Canvas, &object, 1);
            return;
        }
    }

    void ChangeCanvas()
    {
        const char* const maps[] = {"gray", "inverted", "fire", "viridis"};
        const VostelView  view = {sizeof view, 0.2 + Below(50) / 9.0, Coordinate(), Coordinate()};
        switch (Below(14)) {
        case 0:
            vostel_set_scale(Canvas, 0.001 * (1 + Below(5000)), Below(2) ? "\xc2\xb5m" : "mm");
            return;
        case 1:
            vostel_contrast_set(Canvas, Below(100) / 3.0, 100.0 + Below(100));
            return;
        case 2:
            vostel_contrast_gamma(Canvas, 0.1 + Below(30) / 11.0);
            return;
        case 3:
            vostel_contrast_map(Canvas, maps[Below(4)]);
            return;
        case 4:
            vostel_contrast_marks(Canvas, Bits(), 0xFF00FF00, 0x80112233);
            return;
        case 5:
            vostel_view_set(Canvas, &view);
            return;
        case 6:
            vostel_view_zoom(Canvas, 0.5 + Below(10) / 7.0, Below(120), Below(90));
            return;
        case 7:
            vostel_event_wheel(Canvas, Below(120), Below(90), Below(2) ? 1.0 : -1.0, VOSTEL_CONTROL);
            return;
        case 8:
            vostel_view_set_smooth(Canvas, Below(2));
            return;
        case 9:
            vostel_canvas_set_language(Canvas, Below(2) ? "en" : "zh");
            return;
        case 10:
            vostel_select(Canvas, nullptr, 0);
            return;
        case 11:
            Below(2) ? vostel_undo(Canvas) : vostel_redo(Canvas);
            return;
        case 12:
            vostel_event_key(Canvas, static_cast<uint32_t>("EARD"[Below(4)]), 0);
            return;
        default:
            gCVSSetMeasureScale(Canvas, 0.25 * Below(9));
            gCVSDelSelElement(Canvas);
            return;
        }
    }

    void Step()
    {
        switch (Below(5)) {
        case 0:
            return AddByNumbers();
        case 1:
            AddByCalls();
            return Gesture();
        case 2:
            return Gesture();
        case 3:
            return ChangeObject();
        default:
            return ChangeCanvas();
        }
    }
};
