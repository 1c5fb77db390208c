using System;
using System.Runtime.InteropServices;

namespace Vostel
{
    // The functions of vostel.h, by their own names.
    internal static unsafe class Native
    {
        private const string Library = "VostelObj";

        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern IntPtr vostel_version();

        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern IntPtr vostel_status_name(Status status);

        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern IntPtr vostel_last_message();

        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern Status vostel_set_limits(ref Limits limits);

        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern Status vostel_get_limits(ref Limits limits);

        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern Status vostel_canvas_create(int width, int height, out int canvas);

        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern Status vostel_canvas_destroy(int canvas);

        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern Status vostel_canvas_resize(int canvas, int width, int height);

        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern Status vostel_canvas_set_pixel_ratio(int canvas, double ratio);

        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern Status vostel_canvas_set_language(int canvas, byte[] language);

        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern Status vostel_canvas_get(int canvas, ref CanvasInfo info);

        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern Status vostel_canvas_language(int canvas, byte* buffer, UIntPtr capacity,
            out UIntPtr length);

        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern Status vostel_image_show(int canvas, PixelType type, IntPtr data, int width,
            int height, IntPtr rowBytes, uint flags);

        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern Status vostel_image_open(int canvas, byte[] path, uint flags);

        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern Status vostel_image_pages(byte[] path, out int pages);

        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern Status vostel_image_open_page(int canvas, byte[] path, int page, uint flags);

        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern Status vostel_image_open_raw(int canvas, byte[] path, ref RawLayout layout,
            uint flags);

        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern Status vostel_image_info(int canvas, ref ImageInfo info);

        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern Status vostel_image_value(int canvas, int channel, double x, double y,
            out double value);

        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern Status vostel_image_plane(int canvas, ref NativePlane plane);

        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern Status vostel_image_copy(int canvas, PixelType type, IntPtr data, IntPtr rowBytes);

        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern Status vostel_contrast_set(int canvas, double low, double high);

        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern Status vostel_contrast_get(int canvas, out double low, out double high);

        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern Status vostel_contrast_percentiles(int canvas, double lowPercent,
            double highPercent);

        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern Status vostel_contrast_gamma(int canvas, double gamma);

        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern Status vostel_contrast_map(int canvas, byte[] name);

        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern Status vostel_contrast_map_names(byte* buffer, UIntPtr capacity, out UIntPtr length);

        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern Status vostel_contrast_marks(int canvas, uint below, uint above, uint notFinite);

        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern Status vostel_contrast_of_object(int canvas, ulong region, double low, double high);

        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern Status vostel_contrast_info(int canvas, ref ContrastInfo contrast);

        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern Status vostel_contrast_map_name(int canvas, byte* buffer, UIntPtr capacity,
            out UIntPtr length);

        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern Status vostel_contrast_window_of_object(int canvas, ulong region, out double low,
            out double high);

        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern Status vostel_histogram(int canvas, ulong regionOr0, int channel, double low,
            double high, int bins, ulong* counts);

        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern Status vostel_view_get(int canvas, ref View view);

        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern Status vostel_view_set(int canvas, ref View view);

        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern Status vostel_view_fit(int canvas);

        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern Status vostel_view_actual(int canvas);

        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern Status vostel_view_zoom(int canvas, double factor, double clientX, double clientY);

        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern Status vostel_view_to_image(int canvas, double clientX, double clientY, out double x,
            out double y);

        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern Status vostel_view_to_client(int canvas, double x, double y, out double clientX,
            out double clientY);

        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern Status vostel_view_set_smooth(int canvas, int smooth);

        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern Status vostel_view_link(int canvas, int with);

        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern Status vostel_frame_render(int canvas, ref NativeFrame frame);

        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern Status vostel_frame_render_to(int canvas, ref NativePlane target);

        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern Status vostel_picture_save(int canvas, byte[] path, double scale, uint flags);

        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern Status vostel_picture_render_to(int canvas, double scale, uint flags,
            ref NativePlane target);

        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern Status vostel_event_press(int canvas, double x, double y, uint flags);

        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern Status vostel_event_release(int canvas, double x, double y, uint flags);

        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern Status vostel_event_move(int canvas, double x, double y, uint flags);

        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern Status vostel_event_wheel(int canvas, double x, double y, double steps, uint flags);

        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern Status vostel_event_key(int canvas, uint key, uint flags);

        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern Status vostel_event_keys(int canvas, byte[] letters);

        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern Status vostel_object_add(int canvas, ObjectKind kind, Point* points, UIntPtr count,
            out ulong @object);

        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern Status vostel_object_remove(int canvas, ulong @object);

        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern Status vostel_object_list(int canvas, ulong* list, UIntPtr capacity,
            out UIntPtr count);

        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern Status vostel_object_get(int canvas, ulong @object, ref ObjectInfo info);

        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern Status vostel_object_set_flags(int canvas, ulong @object, uint flags);

        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern Status vostel_object_points(int canvas, ulong @object, Point* points,
            UIntPtr capacity, out UIntPtr count);

        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern Status vostel_object_set_points(int canvas, ulong @object, Point* points,
            UIntPtr count);

        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern Status vostel_object_outline(int canvas, ulong @object, Point* points,
            UIntPtr capacity, out UIntPtr count);

        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern Status vostel_object_name(int canvas, ulong @object, byte* buffer, UIntPtr capacity,
            out UIntPtr length);

        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern Status vostel_object_set_name(int canvas, ulong @object, byte[] name);

        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern Status vostel_object_text(int canvas, ulong @object, byte* buffer, UIntPtr capacity,
            out UIntPtr length);

        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern Status vostel_object_set_text(int canvas, ulong @object, byte[] text);

        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern Status vostel_object_style(int canvas, ulong @object, ref Style style);

        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern Status vostel_object_set_style(int canvas, ulong @object, ref Style style);

        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern Status vostel_object_set_label(int canvas, ulong @object, int label);

        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern Status vostel_object_move_to(int canvas, ulong @object, UIntPtr index);

        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern Status vostel_object_at(int canvas, double clientX, double clientY,
            out ulong @object);

        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern Status vostel_select(int canvas, ulong* objects, UIntPtr count);

        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern Status vostel_selection(int canvas, ulong* list, UIntPtr capacity,
            out UIntPtr count);

        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern Status vostel_draw_next(int canvas, ObjectKind kind, out ulong @object);

        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern Status vostel_set_scale(int canvas, double unitsPerPixel, byte[] unit);

        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern Status vostel_get_scale(int canvas, out double unitsPerPixel, byte* unit,
            UIntPtr capacity, out UIntPtr length);

        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern Status vostel_measure(int canvas, ulong @object, int channel, ref Measures measures);

        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern Status vostel_profile(int canvas, ulong line, int channel, double width,
            ref NativeProfile profile, double* values, UIntPtr capacity, out UIntPtr count);

        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern Status vostel_mask(int canvas, ulong region, byte* mask, IntPtr rowBytes);

        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern Status vostel_labels(int canvas, int* labels, IntPtr rowBytes);

        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern Status vostel_table(int canvas, byte[] format, byte* buffer, UIntPtr capacity,
            out UIntPtr length);

        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern Status vostel_session_save(int canvas, byte[] path, uint flags);

        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern Status vostel_session_open(int canvas, byte[] path, uint flags);

        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern Status vostel_regions_export(int canvas, byte[] path, byte[] format);

        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern Status vostel_regions_import(int canvas, byte[] path, byte[] format,
            out UIntPtr count);

        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern Status vostel_regions_text(int canvas, ulong* objects, UIntPtr count, byte* buffer,
            UIntPtr capacity, out UIntPtr length);

        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern Status vostel_regions_add_text(int canvas, byte[] text, out UIntPtr count);

        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern Status vostel_history_limit(int canvas, UIntPtr bytes);

        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern Status vostel_history_info(int canvas, ref HistoryInfo info);

        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern Status vostel_history_name(int canvas, int step, byte* buffer, UIntPtr capacity,
            out UIntPtr length);

        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern Status vostel_undo(int canvas);

        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern Status vostel_redo(int canvas);

        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern Status vostel_history_begin(int canvas, byte[] name);

        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern Status vostel_history_end(int canvas);

        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern Status vostel_listen(int canvas, uint events, NativeListener listener, IntPtr user,
            out long token);

        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern Status vostel_unlisten(long token);

        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern Status vostel_correlate(ref NativePlane image, ref NativePlane kernel,
            ref NativePlane result);

        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern Status vostel_gaussian(ref NativePlane image, int size, double sigma,
            ref NativePlane result);

        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern Status vostel_resize(ref NativePlane image, ref NativePlane result);

        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern Status vostel_adaptive_threshold(ref NativePlane image, int size, double constant,
            ref NativePlane result);

        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern Status vostel_stitch(ref NativePlane left, ref NativePlane right, int overlap,
            ref NativePlane result);

        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern Status vostel_ramp_filter(ref NativePlane rows, int kernelLength, double spacing,
            ref NativePlane result);

        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern Status vostel_read_raw(byte[] path, ref RawLayout layout, ref NativePlane result);

        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern Status vostel_fft(double* real, double* imaginary, UIntPtr length, int inverse);
    }

    [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
    internal delegate void NativeListener(IntPtr happened, IntPtr user);

    [StructLayout(LayoutKind.Sequential)]
    internal struct NativeEvent
    {
        internal uint Size;
        internal uint Type;
        internal int Canvas;
        internal ulong Object;
    }

    [StructLayout(LayoutKind.Sequential)]
    internal struct NativeFrame
    {
        internal uint Size;
        internal int Width;
        internal int Height;
        internal IntPtr RowBytes;
        internal IntPtr Pixels;
    }

    [StructLayout(LayoutKind.Sequential)]
    internal struct NativePlane
    {
        internal uint Size;
        internal PixelType Type;
        internal int Width;
        internal int Height;
        internal IntPtr RowBytes;
        internal IntPtr Data;
    }

    [StructLayout(LayoutKind.Sequential)]
    internal struct NativeProfile
    {
        internal uint Size;
        internal double Length;
        internal double Spacing;
        internal double Min;
        internal double Max;
        internal double Mean;
    }
}
