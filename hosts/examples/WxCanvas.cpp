// A canvas in a window of wxWidgets: vostel-example-wx PICTURE. Shift and a drag draw a rectangle, a press
// selects, R deletes; Control pans and zooms.
#include <vostel.hpp>
#include <wx/dcclient.h>
#include <wx/wx.h>

#include <cstdint>
#include <cstdio>
#include <string>

namespace {

class CanvasWindow : public wxWindow {
public:
    CanvasWindow(wxWindow* parent, const std::string& picture) : wxWindow(parent, wxID_ANY)
    {
        SetBackgroundStyle(wxBG_STYLE_PAINT);    // every pixel is painted here
        Canvas.image_open(picture);
        Bind(wxEVT_SIZE, &CanvasWindow::OnResize, this);
        Bind(wxEVT_PAINT, &CanvasWindow::OnRepaint, this);
        Bind(wxEVT_LEFT_DOWN, &CanvasWindow::OnPress, this);
        Bind(wxEVT_LEFT_DCLICK, &CanvasWindow::OnPress, this);    // the second press is one like others
        Bind(wxEVT_LEFT_UP, &CanvasWindow::OnRelease, this);
        Bind(wxEVT_MOTION, &CanvasWindow::OnMove, this);
        Bind(wxEVT_MOUSEWHEEL, &CanvasWindow::OnWheel, this);
        Bind(wxEVT_KEY_DOWN, &CanvasWindow::OnLetter, this);
        Bind(wxEVT_MOUSE_CAPTURE_LOST, [](wxMouseCaptureLostEvent&) {});
    }

private:
    // The canvas counts device px, the events' points are logical ones.
    double        Ratio() const { return GetContentScaleFactor(); }
    vostel::Point At(const wxMouseEvent& event) const
    {
        return {event.GetX() * Ratio(), event.GetY() * Ratio()};
    }

    static std::uint32_t Flags(const wxMouseEvent& event)
    {
        return (event.ShiftDown() ? VOSTEL_SHIFT : 0) | (event.ControlDown() ? VOSTEL_CONTROL : 0);
    }

    void OnResize(wxSizeEvent&)
    {
        const wxSize area = GetClientSize() * Ratio();
        if (area.x < 1 || area.y < 1)
            return;
        Canvas.set_pixel_ratio(Ratio());
        Canvas.resize(area.x, area.y);
        if (!Fitted)
            Canvas.view_fit();
        Fitted = true;
        Refresh(false);
    }
    void OnRepaint(wxPaintEvent&)
    {
        wxPaintDC            context(this);
        const vostel::Frame  frame = Canvas.frame_render();
        wxImage              image(frame.width, frame.height, false);
        unsigned char*       rgb = image.GetData();
        const unsigned char* row = reinterpret_cast<const unsigned char*>(frame.pixels);
        for (int y = 0; y < frame.height; ++y, row += frame.row_bytes)
            for (int x = 0; x < frame.width; ++x, rgb += 3) {
                rgb[0] = row[4 * x + 2];
                rgb[1] = row[4 * x + 1];
                rgb[2] = row[4 * x];
            }
        context.DrawBitmap(wxBitmap(image, -1, Ratio()), 0, 0);
    }
    void OnPress(wxMouseEvent& event)
    {
        SetFocus();
        if (!HasCapture())
            CaptureMouse();    // or a release outside the window is lost
        if (event.ShiftDown() && Canvas.selection().empty())
            Canvas.draw_next(VOSTEL_RECTANGLE);    // what the drag draws
        Canvas.event_press(At(event), Flags(event));
    }
    void OnRelease(wxMouseEvent& event)
    {
        if (HasCapture())
            ReleaseMouse();
        Canvas.event_move(At(event), Flags(event) | VOSTEL_LEFT_BUTTON);    // wxGTK may drop the last moves
        Canvas.event_release(At(event), Flags(event));
    }
    void OnMove(wxMouseEvent& event)
    {
        Canvas.event_move(At(event), Flags(event) | (event.LeftIsDown() ? VOSTEL_LEFT_BUTTON : 0));
    }
    void OnWheel(wxMouseEvent& event)
    {
        WheelRest +=
            event.GetWheelRotation();    // touch pads send parts of a step, the canvas takes whole ones
        const int steps = WheelRest / event.GetWheelDelta();
        WheelRest -= steps * event.GetWheelDelta();
        Canvas.event_wheel(At(event), steps, Flags(event));
    }
    void OnLetter(wxKeyEvent& event)
    {
        const int key = event.GetKeyCode();    // of letters the capital, as the canvas counts them
        if (key >= 'A' && key <= 'Z' && !event.ControlDown())
            Canvas.event_key(static_cast<std::uint32_t>(key));
        else
            event.Skip();
    }

    vostel::Canvas       Canvas{640, 480};
    int                  WheelRest = 0;
    bool                 Fitted = false;
    vostel::Subscription Repaints =
        Canvas.listen(VOSTEL_FRAME_STALE, [this](const vostel::Event&) { Refresh(false); });
};

class Program : public wxApp {
public:
    bool OnInit() override
    try {
        auto* frame = new wxFrame(nullptr, wxID_ANY, "Canvas", wxDefaultPosition, wxSize(640, 480));
        new CanvasWindow(frame, argc > 1 ? argv[1].utf8_string() : "samples/coins.png");
        return frame->Show();
    } catch (const vostel::Error& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return false;
    }
};

}

wxIMPLEMENT_APP(Program);
