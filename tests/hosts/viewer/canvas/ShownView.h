#pragma once

#include "canvas/CanvasView.h"
#include "canvas/DrawTools.h"
#include "hosts/viewer/Hand.h"

#include <vector>

// A canvas of 400 x 300 in a window, with an image of 200 x 150 at twice its size: image point x lies at 2 x.
struct ShownView {
    vostel::viewer::CanvasModel Model;
    vostel::viewer::CanvasView  View{Model};

    ShownView()
    {
        std::vector<float> ramp(200 * 150);
        for (std::size_t i = 0; i < ramp.size(); ++i)
            ramp[i] = static_cast<float>(i % 200);
        Model.Open().image_show(VOSTEL_F32, ramp.data(), 200, 150);
        hand::Show(View, QRect(50, 40, 400, 300));
        View.setFocus();
        hand::Settle();
    }

    vostel::Canvas& Open() { return Model.Open(); }
    void            Arm(vostel::viewer::Shape shape) { View.Arm(vostel::viewer::MakeDrawTool(View, shape)); }

    std::vector<vostel::Object> Objects() { return Open().object_list(); }
    std::size_t                 Count() { return Objects().size(); }
    std::vector<vostel::Point>  Points(std::size_t index) { return Objects().at(index).points(); }
    std::uint32_t               Undos() { return Open().history_info().undo_count; }
};
