// A canvas in a drawing area of GTK 4: vostel-example-gtk4 PICTURE. Shift and a drag draw a rectangle, a
// press selects, R deletes; Control pans and zooms.
#include <gtk/gtk.h>
#include <vostel.hpp>

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <utility>

namespace {

class CanvasArea {
public:
    CanvasArea(GtkWidget* area, const char* picture) : Area(area)
    {
        Canvas.image_open(picture);
        gtk_drawing_area_set_draw_func(GTK_DRAWING_AREA(area), Draw, this, nullptr);
        g_signal_connect(area, "resize", G_CALLBACK(Resized), this);
        g_signal_connect(area, "notify::scale-factor", G_CALLBACK(ScaleChanged), this);

        GtkGesture* drag = gtk_gesture_drag_new();    // from the press to the release, wherever it falls
        g_signal_connect(drag, "drag-begin", G_CALLBACK(Pressed), this);
        g_signal_connect(drag, "drag-end", G_CALLBACK(Released), this);
        gtk_widget_add_controller(area, GTK_EVENT_CONTROLLER(drag));
        GtkEventController* motion = gtk_event_controller_motion_new();
        g_signal_connect(motion, "motion", G_CALLBACK(Moved), this);
        gtk_widget_add_controller(area, motion);
        GtkEventController* scroll = gtk_event_controller_scroll_new(GTK_EVENT_CONTROLLER_SCROLL_VERTICAL);
        g_signal_connect(scroll, "scroll", G_CALLBACK(Scrolled), this);
        gtk_widget_add_controller(area, scroll);
        GtkEventController* key = gtk_event_controller_key_new();
        g_signal_connect(key, "key-pressed", G_CALLBACK(KeyPressed), this);
        gtk_widget_add_controller(area, key);
        gtk_widget_set_focusable(area, TRUE);
    }

private:
    // The canvas counts device px, GTK logical ones.
    int           Ratio() const { return gtk_widget_get_scale_factor(Area); }
    vostel::Point At(double x, double y) const { return {x * Ratio(), y * Ratio()}; }

    static std::uint32_t Flags(gpointer controller)
    {
        const unsigned state = gtk_event_controller_get_current_event_state(GTK_EVENT_CONTROLLER(controller));
        return ((state & GDK_SHIFT_MASK) != 0 ? VOSTEL_SHIFT : 0) |
               ((state & GDK_CONTROL_MASK) != 0 ? VOSTEL_CONTROL : 0) |
               ((state & GDK_BUTTON1_MASK) != 0 ? VOSTEL_LEFT_BUTTON : 0);
    }

    static void Draw(GtkDrawingArea*, cairo_t* context, int width, int height, gpointer self)
    {
        auto&            area = *static_cast<CanvasArea*>(self);
        const int        ratio = area.Ratio();
        cairo_surface_t* frame =
            cairo_image_surface_create(CAIRO_FORMAT_RGB24, width * ratio, height * ratio);
        area.Canvas.frame_render_to(cairo_image_surface_get_data(frame), width * ratio, height * ratio,
                                    cairo_image_surface_get_stride(frame));
        cairo_surface_mark_dirty(frame);
        cairo_surface_set_device_scale(frame, ratio, ratio);
        cairo_set_source_surface(context, frame, 0, 0);
        cairo_paint(context);
        cairo_surface_destroy(frame);
    }
    static void Resized(GtkDrawingArea*, int width, int height, CanvasArea* self)
    {
        self->Canvas.set_pixel_ratio(self->Ratio());
        self->Canvas.resize(width * self->Ratio(), height * self->Ratio());
        if (!std::exchange(self->Fitted, true))
            self->Canvas.view_fit();
    }
    static void ScaleChanged(GtkWidget* area, GParamSpec*, CanvasArea* self)
    {
        Resized(nullptr, gtk_widget_get_width(area), gtk_widget_get_height(area), self);
    }
    static void Pressed(GtkGestureDrag* drag, double x, double y, CanvasArea* self)
    {
        gtk_widget_grab_focus(self->Area);
        if ((Flags(drag) & VOSTEL_SHIFT) != 0 && self->Canvas.selection().empty())
            self->Canvas.draw_next(VOSTEL_RECTANGLE);    // what the drag draws
        self->Canvas.event_press(self->At(x, y), Flags(drag) & ~1u);
    }
    static void Released(GtkGestureDrag* drag, double from_start_x, double from_start_y, CanvasArea* self)
    {
        double x = 0.0, y = 0.0;
        gtk_gesture_drag_get_start_point(drag, &x, &y);
        self->Canvas.event_release(self->At(x + from_start_x, y + from_start_y), Flags(drag) & ~1u);
    }
    static void Moved(GtkEventControllerMotion* motion, double x, double y, CanvasArea* self)
    {
        self->Pointer = self->At(x, y);
        self->Canvas.event_move(self->Pointer, Flags(motion));
    }
    static gboolean Scrolled(GtkEventControllerScroll* scroll, double, double down, CanvasArea* self)
    {
        self->WheelRest -= down;    // touch pads send parts of a step, the canvas takes whole ones
        const double steps = std::trunc(self->WheelRest);
        self->WheelRest -= steps;
        self->Canvas.event_wheel(self->Pointer, steps, Flags(scroll) & ~1u);
        return TRUE;
    }
    static gboolean KeyPressed(GtkEventControllerKey*, guint key, guint, GdkModifierType held,
                               CanvasArea* self)
    {
        const guint letter = gdk_keyval_to_upper(key);
        if (letter < 'A' || letter > 'Z' || (held & GDK_CONTROL_MASK) != 0)
            return FALSE;
        self->Canvas.event_key(letter);
        return TRUE;
    }

    GtkWidget*           Area;
    vostel::Canvas       Canvas{640, 480};
    vostel::Point        Pointer = {};    // device px
    double               WheelRest = 0.0;
    bool                 Fitted = false;
    vostel::Subscription Repaints =
        Canvas.listen(VOSTEL_FRAME_STALE, [this](const vostel::Event&) { gtk_widget_queue_draw(Area); });
};

void Open(GtkApplication* application, const char* picture)
try {
    GtkWidget* window = gtk_application_window_new(application);
    GtkWidget* area = gtk_drawing_area_new();
    gtk_window_set_default_size(GTK_WINDOW(window), 640, 480);
    gtk_window_set_child(GTK_WINDOW(window), area);
    g_object_set_data_full(G_OBJECT(area), "canvas", new CanvasArea(area, picture),
                           [](gpointer canvas) { delete static_cast<CanvasArea*>(canvas); });
    gtk_window_present(GTK_WINDOW(window));
} catch (const vostel::Error& error) {
    std::fprintf(stderr, "%s\n", error.what());
}

}

int main(int argc, char** argv)
{
    GtkApplication* application = gtk_application_new(nullptr, G_APPLICATION_NON_UNIQUE);
    const char*     picture = argc > 1 ? argv[1] : "samples/coins.png";
    g_signal_connect(application, "activate", G_CALLBACK(Open), const_cast<char*>(picture));
    const int result = g_application_run(G_APPLICATION(application), 1, argv);
    g_object_unref(application);
    return result;
}
