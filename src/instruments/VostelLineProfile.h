#pragma once

#include "overlay/VostelCanvas.h"
#include "overlay/VostelSingleLine.h"

#include <vector>

namespace vostel {

// A line on the image with a plot window beside it: while the mouse moves, the samples under the line are
// read from the image and plotted, one per image pixel of length, from the first end on. The values are those
// of the data as it came, whatever the contrast.
class VostelLineProfile : public VostelSingleLine {
public:
    VostelCanvas ProfilePlot;
    bool         PlotHit = false;    // the last HitTest fell in the plot

    VostelLineProfile();

    void OnLButtonDown(unsigned int flags, CPoint point) override;
    void OnLButtonUp(unsigned int flags, CPoint point) override;
    void OnMouseMove(unsigned int flags, CPoint point) override;
    void SetCanvasView(CanvasView* view) override;
    bool Covers(CPoint point) const override;
    bool HitTest(CPoint point) override;
    void SetPlacement(float x, float y, float w, float h) override;    // of the plot, client px
    void OnDraw(HDC dc) override;
    void DerivePainted() override;    // the plot too, which classic paints leave alone

    bool    TakePoints(std::span<const PointTemplateBase<double>> points) override;
    CString CaptionText() const override;    // of the plot
    void    Persist(StateArchive& archive) override;

private:
    void                 PlotSamples();
    void                 PlacePlot();    // where it is at first
    ClassData2DIO<float> Samples() const;
    std::vector<double>  ExactSamples() const;
    ClassData2DIO<float> PlottedSamples() const;
};

}
