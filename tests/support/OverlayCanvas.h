#pragma once

// A canvas with a gray image of 100 x 80 in the middle of a window of 200 x 160, at scale 1: image point
// (x, y) lies at client point (x + 50, y + 40). Gestures go through the exports. Inner tests only.

#include "support/ObjectCanvas.h"

#include <algorithm>

namespace vostel {

class OverlayCanvas : public ObjectCanvas {
public:
    static constexpr int ImageLeft = 50;
    static constexpr int ImageTop = 40;

    explicit OverlayCanvas(int number = 0) : ObjectCanvas(number, 200, 160)
    {
        ShowFlatGray(100, 80, 0x40);
        REQUIRE(IsScaleOne());
        REQUIRE(Region().left == ImageLeft);
        REQUIRE(Region().top == ImageTop);
    }

    // Image points as client points.
    static CPoint At(int x, int y) { return CPoint(x + ImageLeft, y + ImageTop); }

    // A press and release of image points with Shift.
    void Node(int x, int y)
    {
        const CPoint p = At(x, y);
        Press(p.x, p.y, DrawFlags);
        Release(p.x, p.y, MK_SHIFT);
    }
    void PressAt(int x, int y, unsigned int flags = MK_LBUTTON) { Press(At(x, y).x, At(x, y).y, flags); }
    void MoveTo(int x, int y, unsigned int flags = MK_LBUTTON) { Move(At(x, y).x, At(x, y).y, flags); }
    void ReleaseAt(int x, int y, unsigned int flags = 0) { Release(At(x, y).x, At(x, y).y, flags); }
    // A mouse move without a button: hands the view to objects just added.
    void Hover() { Move(1, 1); }

    // A gesture in image points.
    void DragOf(CPoint from, CPoint to, unsigned int flags = MK_LBUTTON)
    {
        Drag(At(from.x, from.y), At(to.x, to.y), flags);
    }

    // A polygon, 20,20 to 60,50 by default, clockwise.
    template <typename Add>
    void AddNodes(Add&& add, const std::vector<CPoint>& nodes)
    {
        add(Number);
        Hover();
        for (const CPoint& node : nodes)
            Node(node.x, node.y);
    }

    // Pixels of the label image, of selected objects or all.
    int CountLabels(int label, bool selectedOnly = false)
    {
        gCVSGenerateLabel(Number, selectedOnly);
        const ClassData2DIO<int>& plane = gCVSGetLabelIma(Number);
        return static_cast<int>(std::count(plane.Ptr1D, plane.Ptr1D + plane.Width * plane.Height, label));
    }

    // Frame pixels of a color, 0x00RRGGBB.
    int CountPixels(unsigned int color)
    {
        const Frame frame = PaintAndCapture();
        return static_cast<int>(std::count(frame.Pixels.begin(), frame.Pixels.end(), color));
    }
};

inline bool IsAt(PointTemplateBase<double> p, double x, double y)
{
    return p.x == x && p.y == y;
}

}
