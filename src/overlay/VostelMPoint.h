#pragma once

#include "overlay/VostelObj.h"

namespace vostel {

// A shape made of a list of points, with the whole interaction grammar that its descendants build on: Shift
// presses add points, a press on a handle drags that node, a press inside moves the shape, a clamp keeps the
// points on the image, and after every change the client geometry is derived anew from the image points.
//
// Nothing ends or cancels a shape: drawing stops when the user stops pressing.
class VostelMPoint : public VostelObj {
public:
    void OnLButtonDown(unsigned int flags, CPoint point) override;
    void OnMouseMove(unsigned int flags, CPoint point) override;
    void OnKeyDown(unsigned int key, unsigned int repeat, unsigned int keyFlags) override;
    void RefreshClientGeometry() override;
    bool Covers(CPoint point) const override;
    bool HitTest(CPoint point) override;    // writes Selected
    void OnDraw(HDC dc) override;           // handles only; outlines are the descendants'
    void SetClickPerPoint(int mode) override;
    void SetMaxPoints(int count) override;
    bool
    GetImagePoints(std::vector<PointTemplateBase<int>>& out) override;    // truncated; true also for none
    bool GetImagePolygon(std::vector<PointTemplateBase<int>>& out) override;    // false below three points
    bool TakePoints(std::span<const PointTemplateBase<double>> points) override;

    // Appends the client point plus an offset in image px; the client list is not touched.
    void AddImagePoint(CPoint point, PointTemplateBase<double> offset = {});
    void MoveNode(CPoint point);     // drag step of ActiveNode since LastPoint
    void MoveShape(CPoint point);    // the same of all nodes
    void ClampImagePoints();
    // Of what a drag moves, if one is under way. Points that calls have set off the image stay there.
    void ClampDragged();
    void BuildClientPoints();

protected:
    // How many points TakePoints takes.
    struct PointCounts {
        std::size_t Fewest = 1;
        std::size_t Most = SIZE_MAX;
    };
    virtual PointCounts CountsTaken() const;

    // Whether a press at the client point falls inside the exact outline of an open-made region; none for
    // all other objects.
    std::optional<bool> ExactInterior(CPoint point) const;
    // Draws the exact outline of an open-made region, on the screen through whole client px; false for all
    // other objects.
    bool DrawExactOutline(COLORREF color);
    // Lays the fill color over the interior of a region.
    void FillRegion();

    // Empties the lists; their storage stays for the shape that begins again.
    void StartOver();
    // The client point moved to the nearest one that lies on the image.
    CPoint SnapIntoImage(CPoint point) const;
    // The image points as corners of a region.
    static constexpr std::size_t FewestCorners = 3;
    std::optional<Outline>       OutlineOfCorners() const;
    // Image points of a shape as its outline.
    void TruncateImagePoints(std::vector<PointTemplateBase<int>>& out) const;

private:
    void ClampNode(PointTemplateBase<double>& node) const;
    void StepSince(CPoint point);
};

// The box of two corners, left not above right and top not above bottom.
CRect NormalisedBox(CPoint a, CPoint b);

}
