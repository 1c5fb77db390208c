#include "canvas/CountTool.h"

#include "canvas/CanvasView.h"
#include "canvas/DrawTools.h"

namespace vostel::viewer {

std::vector<Point> CountTool::Standing() const
{
    VostelObjectInfo info = {};
    info.size = sizeof info;
    const bool stands = Marks.id() != 0 && vostel_object_get(Marks.canvas(), Marks.id(), &info) == VOSTEL_OK;
    return stands ? Marks.points() : std::vector<Point>();
}

void CountTool::Press(const Pointer& at)
{
    std::vector<Point> marks = Standing();
    const bool         first = marks.empty();
    marks.push_back(at.Image);
    View.Model().Try([&](Canvas& canvas) {
        const Step one = canvas.step("Add mark");
        if (first)
            Marks = AddDrawn(View, canvas, Shape::Points, marks);
        else
            canvas.object_set_points(Marks, marks);
    });
}

void CountTool::StepBack()
{
    std::vector<Point> marks = Standing();
    if (marks.size() < 2)
        return;
    marks.pop_back();
    View.Model().Try([&](Canvas& canvas) {
        const Step one = canvas.step("Remove mark");
        canvas.object_set_points(Marks, marks);
    });
}

QString CountTool::Hint() const
{
    return tr("Click what is to be counted, Backspace takes one back, Enter begins another count, Esc ends");
}

}
