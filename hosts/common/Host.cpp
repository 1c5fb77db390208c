#include "common/Host.h"

#include <cstdlib>
#include <cstring>

CString NameOf(const std::filesystem::path& path)
{
    return path.c_str();
}

Host::Host(int canvas, int width, int height) : Canvas(canvas), Screen(width, height)
{
    CRect client(0, 0, width, height);
    gCVSSetClient(Canvas, client, Screen.Dc);
}

void Host::Move(CPoint at)
{
    gCVSOnMouseMove(Canvas, 0, at);
}

void Host::Click(unsigned int flags, CPoint at)
{
    DragAlong(flags, {at});
}

void Host::Drag(unsigned int flags, CPoint from, CPoint to)
{
    constexpr int       Steps = 8;
    std::vector<CPoint> path;
    for (int step = 0; step <= Steps; ++step)
        path.emplace_back(from.x + (to.x - from.x) * step / Steps, from.y + (to.y - from.y) * step / Steps);
    DragAlong(flags, path);
}

void Host::DragAlong(unsigned int flags, const std::vector<CPoint>& path)
{
    gCVSOnMouseMove(Canvas, flags, path.front());
    gCVSOnLButtonDown(Canvas, flags | MK_LBUTTON, path.front());
    for (std::size_t i = 1; i < path.size(); ++i) {
        gCVSOnMouseMove(Canvas, flags | MK_LBUTTON, path[i]);
        Paint();    // a window repaints while the mouse moves, and shapes take their boxes from the last
                    // paint
    }
    gCVSOnLButtonUp(Canvas, flags, path.back());
    Paint();
}

void Host::Zoom(int steps, CPoint at)
{
    for (int step = 0; step < std::abs(steps); ++step) {
        gCVSOnMouseWheel(Canvas, MK_CONTROL, steps > 0 ? 120 : -120, at);
        Paint();    // the zoom limit looks at what the last paint showed
    }
}

void Host::Key(char key)
{
    gCVSOnKeyDown(Canvas, static_cast<unsigned int>(key), 1, 0);
}

void Host::Paint()
{
    gCVSOnDraw(Canvas, Screen.Dc);
}

CPoint Host::At(double imageX, double imageY) const
{
    CPoint at;
    gCVSGetDisplayPt(Canvas, imageX, imageY, at);
    return at;
}

bool Host::WriteFrame(const std::string& path)
{
    Paint();
    GdiFlush();
    CImage picture;
    if (!picture.Create(Screen.Width, Screen.Height, 24))
        return false;
    for (int y = 0; y < Screen.Height; ++y) {
        const unsigned char* source = Screen.Row(y);
        unsigned char*       target = static_cast<unsigned char*>(picture.GetBits()) +
                                static_cast<std::ptrdiff_t>(y) * picture.GetPitch();
        for (int x = 0; x < Screen.Width; ++x)
            std::memcpy(target + 3 * x, source + 4 * x, 3);
    }
    return picture.Save(NameOf(path)) >= 0;
}
