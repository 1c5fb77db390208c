#ifndef VOSTEL_H
#define VOSTEL_H

/// @file
/// The open interface: canvases with an image, a view and objects drawn over it, by plain C calls of plain
/// types. It stands on the same engine and the same canvases as the gCVS calls; both see what the other does.
///
/// Every function returns a status, but the three that return text. After a failure vostel_last_message()
/// says what was wrong, and nothing has changed. No argument harms memory: null pointers, canvases and
/// objects that are gone, numbers that are not finite or outside an enumeration get a status.
///
/// - A canvas is its number. 0 to 4 always exist; vostel_canvas_create() counts up from 5 and never gives a
///   number twice. An object is a number that is never 0 and never used again while the library is loaded.
/// - Records begin with `size`, which the caller sets to `sizeof`; a shorter record of an older header is
///   understood, and reading calls fill as many fields as `size` covers.
/// - Text is UTF-8 with a terminator. It comes out into the caller's buffer: `length`, which may be null,
/// gets
///   the whole length without the terminator. A null buffer with the capacity 0 asks for the length alone.
///   Too small a buffer gets what fits, cut between characters and terminated, and VOSTEL_BUFFER_TOO_SMALL.
///   Lists come out likewise, with counts.
/// - Points are image pixels in double: pixel (i, j) covers [i, i+1) x [j, j+1), y grows downwards. Client
///   points are device pixels of the canvas's area.
/// - Row 0 of data, masks, labels and frames is the top row. `row_bytes` is the distance from a row to the
/// one
///   below; it may be negative, and 0 means that the rows lie tightly packed.
/// - A canvas is used by one thread at a time; different canvases may be used by different threads at once.
///   Routines may be called from any thread.

#include <stddef.h>
#include <stdint.h>

#if defined(VOSTEL_STATIC)
#    define VOSTEL_CALL
#elif defined(_WIN32)
#    if defined(VOSTEL_BUILDING)
#        define VOSTEL_CALL __declspec(dllexport)
#    else
#        define VOSTEL_CALL __declspec(dllimport)
#    endif
#else
/// Marks the functions of the open interface.
#    define VOSTEL_CALL __attribute__((visibility("default")))
#endif

#ifdef __cplusplus
extern "C" {
#endif

/// @name Types
/// @{
typedef int32_t  VostelStatus;    ///< outcome of a call: VOSTEL_OK or a negative number
typedef int32_t  VostelKind;      ///< kind of an object
typedef int32_t  VostelPixel;     ///< type of samples
typedef uint64_t VostelObject;    ///< identity of an object; 0 stands for none
/// @}

/// Outcomes of calls.
enum {
    VOSTEL_OK = 0,                    ///< done
    VOSTEL_INVALID_ARGUMENT = -1,     ///< an argument cannot be what was meant
    VOSTEL_NOT_FOUND = -2,            ///< no such canvas, object, step, name or pixel
    VOSTEL_NO_IMAGE = -3,             ///< the canvas shows no image
    VOSTEL_OUT_OF_MEMORY = -4,        ///< not enough memory
    VOSTEL_NOT_READ = -5,             ///< a file is missing or cannot be read
    VOSTEL_NOT_WRITTEN = -6,          ///< a file cannot be written
    VOSTEL_BAD_FORMAT = -7,           ///< the content is not what it claims to be
    VOSTEL_TOO_LARGE = -8,            ///< beyond the limits
    VOSTEL_NOT_SUPPORTED = -9,        ///< known, but not done
    VOSTEL_BUFFER_TOO_SMALL = -10,    ///< the buffer holds a part only
    VOSTEL_INTERNAL = -11             ///< a fault of the library
};

/// Types of samples; the colors are interleaved, in the order of their names.
enum {
    VOSTEL_U8 = 1,    ///< gray, 8 bits
    VOSTEL_U16,       ///< gray, 16 bits
    VOSTEL_I16,       ///< gray, 16 bits, signed
    VOSTEL_F32,       ///< gray, float
    VOSTEL_RGB8,      ///< red, green, blue, 8 bits each
    VOSTEL_BGR8,      ///< blue, green, red
    VOSTEL_BGRA8      ///< blue, green, red and a byte that is not shown
};

/// Kinds of objects, and the points that they take.
enum {
    VOSTEL_RECTANGLE = 0,    ///< region; 2 opposite corners, with VOSTEL_ELLIPSE the ellipse in that box
    VOSTEL_CUSTOM_RECTANGLE = 1,    ///< region; 2 corners; told of what gCVSAddCustomRectangle() made
    VOSTEL_POLYGON = 3,             ///< region; 3 corners or more
    VOSTEL_SPLINE = 4,              ///< region; 3 to 198 nodes of a closed curve
    VOSTEL_FREE_REGION = 5,         ///< region; 3 points or more
    VOSTEL_TEXT = 6,                ///< 1 point: its upper left corner
    VOSTEL_FREE_STROKES = 7,        ///< 2 points or more: one stroke
    VOSTEL_LENGTH = 8,              ///< 2 ends
    VOSTEL_ANGLE = 9,               ///< 3 points: end, vertex, end
    VOSTEL_ANGLE_LINES = 10,        ///< 4 points: two lines, from first to second point
    VOSTEL_PANEL = 14,              ///< 1 client point: the upper left corner
    VOSTEL_NEIGHBOURS = 15,         ///< 1 client point: the upper left corner
    VOSTEL_PROFILE = 16,            ///< 2 ends
    VOSTEL_POINTS = 20,             ///< 1 point or more: counted marks
    VOSTEL_POLYLINE = 21,           ///< 2 points or more
    VOSTEL_ARROW = 22               ///< 2 points: tail, head
};

/// Flags of objects.
enum {
    VOSTEL_HIDDEN = 1,     ///< not drawn, not hit, not in vostel_labels(); still measured and masked
    VOSTEL_LOCKED = 2,     ///< not hit by gestures and not changed by keys; calls change it
    VOSTEL_ELLIPSE = 4,    ///< of rectangles
    VOSTEL_NO_LABEL = 8    ///< of regions: not in vostel_labels()
};

/// Flags of calls that show an image. Without VOSTEL_KEEP_OBJECTS the objects go and the history is empty.
enum {
    VOSTEL_KEEP_OBJECTS = 1,    ///< the objects stay
    VOSTEL_KEEP_VIEW = 2,       ///< the view stays, if the size is the same
    VOSTEL_KEEP_CONTRAST = 4    ///< window, gamma, map and marks stay
};

/// Flags of vostel_picture_save().
enum {
    VOSTEL_WITH_OBJECTS = 1,     ///< objects
    VOSTEL_WITH_CAPTIONS = 2,    ///< captions of measures
    VOSTEL_WITH_HANDLES = 4      ///< handles of nodes
};

/// Flags of vostel_session_open().
enum {
    VOSTEL_SESSION_ON_IMAGE = 1    ///< the shown image stays
};

/// Flags of events from a window system.
enum {
    VOSTEL_LEFT_BUTTON = 1,    ///< the left button is down
    VOSTEL_SHIFT = 4,          ///< Shift is held
    VOSTEL_CONTROL = 8         ///< Control is held
};

/// What listeners can hear of.
enum {
    VOSTEL_OBJECT_ADDED = 1,          ///< an object came
    VOSTEL_OBJECT_CHANGING = 2,       ///< a gesture goes on changing an object; at most once a call
    VOSTEL_OBJECT_CHANGED = 4,        ///< an object has another state: points, name, label, order, style
    VOSTEL_OBJECT_REMOVED = 8,        ///< an object went
    VOSTEL_SELECTION_CHANGED = 16,    ///< other objects are selected
    VOSTEL_VIEW_CHANGED = 32,         ///< scale or place of the image
    VOSTEL_IMAGE_CHANGED = 64,        ///< another image is shown
    VOSTEL_CONTRAST_CHANGED = 128,    ///< window, gamma, map, marks or the window of a region
    VOSTEL_HISTORY_CHANGED = 256,     ///< steps came or went
    VOSTEL_FRAME_STALE = 512,         ///< the picture is not what it was; at most once a call
    VOSTEL_CANVAS_DESTROYED = 1024    ///< the canvas is gone
};

/// Bits of VostelMeasures::valid.
enum {
    VOSTEL_HAS_PIXELS = 1,     ///< pixels, not_finite
    VOSTEL_HAS_AREA = 2,       ///< area, perimeter, circularity
    VOSTEL_HAS_LENGTH = 4,     ///< length
    VOSTEL_HAS_ANGLE = 8,      ///< angle
    VOSTEL_HAS_VALUES = 16,    ///< mean, sd, min, max, sum, median
    VOSTEL_HAS_SHAPE = 32      ///< centroid, bounds, feret
};

/// A point in image or client px. It has no size field: lists of it are dense.
typedef struct VostelPoint {
    double x;    ///< to the right
    double y;    ///< downwards
} VostelPoint;

/// Limits of what is taken from files and callers. 0 keeps the default.
typedef struct VostelLimits {
    uint32_t size;              ///< sizeof(VostelLimits)
    int32_t  max_side;          ///< px, width or height of an image
    int64_t  max_pixels;        ///< of an image
    int64_t  max_file_bytes;    ///< of a file that is opened
    int32_t  max_threads;       ///< that a routine uses at once
    int64_t  max_memory;        ///< bytes that reading a picture may take, see docs/reliability.md
} VostelLimits;

/// How samples lie in a file without a header of its own.
typedef struct VostelRawLayout {
    uint32_t    size;          ///< sizeof(VostelRawLayout)
    VostelPixel type;          ///< of the samples
    int32_t     width;         ///< px
    int32_t     height;        ///< rows
    int64_t     offset;        ///< bytes before the first sample
    int32_t     big_endian;    ///< not 0: the higher byte first
} VostelRawLayout;

/// What holds for all that a canvas draws.
typedef struct VostelCanvasInfo {
    uint32_t size;           ///< sizeof(VostelCanvasInfo)
    int32_t  width;          ///< device px of the area; 0 of one that has none yet
    int32_t  height;         ///< device px
    int32_t  smooth;         ///< 1: pixels are averaged and interpolated
    double   pixel_ratio;    ///< device px per unit of the host's layout
} VostelCanvasInfo;

/// How values become shades, beside the color map.
typedef struct VostelContrastInfo {
    uint32_t size;          ///< sizeof(VostelContrastInfo)
    uint32_t below;         ///< 0xAARRGGBB of values below the window; alpha 0: none
    uint32_t above;         ///< of values above the window
    uint32_t not_finite;    ///< of values that are not finite
    double   low;           ///< becomes the darkest shade
    double   high;          ///< becomes the brightest shade
    double   gamma;         ///< above 0
} VostelContrastInfo;

/// What is shown.
typedef struct VostelImageInfo {
    uint32_t    size;          ///< sizeof(VostelImageInfo)
    VostelPixel type;          ///< of the samples as they came
    int32_t     width;         ///< px
    int32_t     height;        ///< px
    double      min;           ///< lowest finite value, of channel 0; 0 where there is none
    double      max;           ///< highest finite value
    int64_t     not_finite;    ///< number of samples that are not finite
} VostelImageInfo;

/// Where the image lies in the canvas's area.
typedef struct VostelView {
    uint32_t size;     ///< sizeof(VostelView)
    double   scale;    ///< client px per image px, above 0
    double   left;     ///< client x of image point 0,0; whole, since the image lies on whole device px
    double   top;      ///< client y of image point 0,0; whole. Setting comes within one of what was asked
} VostelView;

/// A rendered frame, valid until the next call on the canvas.
typedef struct VostelFrame {
    uint32_t        size;         ///< sizeof(VostelFrame)
    int32_t         width;        ///< device px
    int32_t         height;       ///< device px
    ptrdiff_t       row_bytes;    ///< from a row to the one below
    const uint32_t* pixels;       ///< the top row; 0x00RRGGBB each
} VostelFrame;

/// How an object is drawn.
typedef struct VostelStyle {
    uint32_t size;              ///< sizeof(VostelStyle)
    uint32_t line_color;        ///< 0xRRGGBB
    uint32_t selected_color;    ///< 0xRRGGBB, of the lines while it is selected
    uint32_t handle_color;      ///< 0xRRGGBB, selected or not; the blue of a new object is red while selected
    uint32_t fill_color;        ///< 0xAARRGGBB, of a region's inside; alpha 0: none
    double   line_width;        ///< px, above 0
    double   text_height;       ///< px, from 1, rounded to a whole one; of texts and captions
} VostelStyle;

/// What is to be said of an object in a few numbers.
typedef struct VostelObjectInfo {
    uint32_t   size;           ///< sizeof(VostelObjectInfo)
    VostelKind kind;           ///< VOSTEL_RECTANGLE ...
    uint32_t   flags;          ///< VOSTEL_HIDDEN ...
    int32_t    label;          ///< number of a region in vostel_labels(), from 1; 0 for other kinds
    int32_t    selected;       ///< 1 if it is
    uint64_t   index;          ///< in drawing order; the last lies on top
    uint64_t   point_count;    ///< number of points
    double     left;           ///< bounds of the exact outline, image px
    double     top;            ///< bounds
    double     right;          ///< bounds
    double     bottom;         ///< bounds
} VostelObjectInfo;

/// What can be measured of an object. Lengths and areas are in units of the scale, places in image px.
typedef struct VostelMeasures {
    uint32_t size;           ///< sizeof(VostelMeasures)
    uint32_t valid;          ///< VOSTEL_HAS_... of the fields that have a meaning for the kind
    int64_t  pixels;         ///< centres inside the region and the image; number of counted marks
    int64_t  not_finite;     ///< values left out of the statistics
    double   area;           ///< of the even-odd interior of the exact outline
    double   perimeter;      ///< of the exact outline
    double   length;         ///< of lines
    double   angle;          ///< degrees, 0 to 180
    double   centroid_x;     ///< of the even-odd interior; of lines and marks, their mean place
    double   centroid_y;     ///< centroid
    double   left;           ///< bounds of the exact outline
    double   top;            ///< bounds
    double   right;          ///< bounds
    double   bottom;         ///< bounds
    double   mean;           ///< of the finite values at the pixels inside
    double   sd;             ///< standard deviation with n - 1 in the denominator; 0 for one value
    double   min;            ///< lowest value
    double   max;            ///< highest value
    double   sum;            ///< of the values
    double   median;         ///< the middle value, or the mean of the middle two
    double   feret_max;      ///< widest caliper
    double   feret_min;      ///< narrowest caliper
    double   circularity;    ///< 4 pi area / perimeter^2; 0 without a perimeter
} VostelMeasures;

/// What is to be said of a profile beside its samples.
typedef struct VostelProfile {
    uint32_t size;       ///< sizeof(VostelProfile)
    double   length;     ///< image px
    double   spacing;    ///< image px between samples; 0 for a single one
    double   min;        ///< of the finite samples; not a number where there is none
    double   max;        ///< of the finite samples
    double   mean;       ///< of the finite samples
} VostelProfile;

/// What the history holds.
typedef struct VostelHistoryInfo {
    uint32_t size;          ///< sizeof(VostelHistoryInfo)
    uint32_t undo_count;    ///< steps that can be taken back
    uint32_t redo_count;    ///< steps that can be brought again
    uint64_t bytes;         ///< what the steps hold
    uint64_t limit;         ///< bytes beyond which the oldest steps go; 0: no history is kept
} VostelHistoryInfo;

/// What a listener hears.
typedef struct VostelEvent {
    uint32_t     size;      ///< sizeof(VostelEvent)
    uint32_t     type;      ///< one of VOSTEL_OBJECT_ADDED ...
    int32_t      canvas;    ///< where it happened
    VostelObject object;    ///< of events of objects, else 0
} VostelEvent;

/// Hears of events, on the thread of the call that caused them. It may call anything.
typedef void (*VostelListener)(const VostelEvent* event, void* user);

/// Samples in the caller's memory.
typedef struct VostelPlane {
    uint32_t    size;         ///< sizeof(VostelPlane)
    VostelPixel type;         ///< of the samples
    int32_t     width;        ///< px
    int32_t     height;       ///< rows
    ptrdiff_t   row_bytes;    ///< from a row to the one below; 0: tightly packed
    void*       data;         ///< the top row
} VostelPlane;

/// @defgroup library Library
/// @{

/// The version of the library, such as "1.1.0". Never null; lives as long as the library.
VOSTEL_CALL const char* vostel_version(void);

/// The name of a status, such as "VOSTEL_NOT_FOUND"; "VOSTEL_UNKNOWN" for other numbers. Never null.
VOSTEL_CALL const char* vostel_status_name(VostelStatus status);

/// What the calling thread's last failure was about, in English; after some successes what was left out.
/// Never null; valid until the thread's next call.
VOSTEL_CALL const char* vostel_last_message(void);

/// Sets the limits of the process. Fields of 0 get their default; negative ones are VOSTEL_INVALID_ARGUMENT.
VOSTEL_CALL VostelStatus vostel_set_limits(const VostelLimits* limits);

/// Reads the limits in force.
VOSTEL_CALL VostelStatus vostel_get_limits(VostelLimits* limits);
/// @}

/// @defgroup canvases Canvases
/// @{

/// Makes a canvas with an area of its own that needs no window. Both sides are 1 or more and within max_side.
VOSTEL_CALL VostelStatus vostel_canvas_create(int32_t width, int32_t height, int32_t* canvas);

/// Ends a canvas with everything on it. 0 to 4 always stand: VOSTEL_INVALID_ARGUMENT.
VOSTEL_CALL VostelStatus vostel_canvas_destroy(int32_t canvas);

/// Gives the area another size; scale and the image point in the middle stay.
VOSTEL_CALL VostelStatus vostel_canvas_resize(int32_t canvas, int32_t width, int32_t height);

/// Device pixels per unit of the host's layout, 1 at first, 0.25 to 16: pens, handles, hit radius, fonts and
/// controls grow with it.
VOSTEL_CALL VostelStatus vostel_canvas_set_pixel_ratio(int32_t canvas, double ratio);

/// Language of captions and read-outs: "zh", as at first, or "en". VOSTEL_NOT_FOUND for others.
VOSTEL_CALL VostelStatus vostel_canvas_set_language(int32_t canvas, const char* language);

/// Size of the area, smoothing, pixel ratio.
VOSTEL_CALL VostelStatus vostel_canvas_get(int32_t canvas, VostelCanvasInfo* info);

/// The language of captions and read-outs.
VOSTEL_CALL VostelStatus vostel_canvas_language(int32_t canvas, char* buffer, size_t capacity,
                                                size_t* length);
/// @}

/// @defgroup image Image
/// @{

/// Shows samples, which are copied.
/// @param flags VOSTEL_KEEP_...
VOSTEL_CALL VostelStatus vostel_image_show(int32_t canvas, VostelPixel type, const void* data, int32_t width,
                                           int32_t height, ptrdiff_t row_bytes, uint32_t flags);

/// Shows a picture file, told by its content: PNG, JPEG, TIFF, BMP, GIF, PNM, WebP. Gray of 16 bits and float
/// stay so; palettes become what they show, gray if all their colors are gray; CMYK becomes RGB; orientation
/// tags are followed; RGB of 16 bits becomes 8. An alpha channel beside colors stays in the samples, as
/// VOSTEL_BGRA8, and is not shown; that of gray pictures and transparent palette entries is dropped.
/// @param path UTF-8
VOSTEL_CALL VostelStatus vostel_image_open(int32_t canvas, const char* path, uint32_t flags);

/// Number of pages of a TIFF or frames of a GIF; 1 of other pictures.
VOSTEL_CALL VostelStatus vostel_image_pages(const char* path, int32_t* pages);

/// Shows one page or frame, counted from 0; VOSTEL_NOT_FOUND beyond the last.
VOSTEL_CALL VostelStatus vostel_image_open_page(int32_t canvas, const char* path, int32_t page,
                                                uint32_t flags);

/// Shows samples of a file without a header. VOSTEL_BAD_FORMAT if the file is shorter than the layout says.
VOSTEL_CALL VostelStatus vostel_image_open_raw(int32_t canvas, const char* path,
                                               const VostelRawLayout* layout, uint32_t flags);

/// Size, type and range of the image.
VOSTEL_CALL VostelStatus vostel_image_info(int32_t canvas, VostelImageInfo* info);

/// The value of the pixel that covers a point; VOSTEL_NOT_FOUND outside the image.
/// @param channel 0 the value, or the luma (299 R + 587 G + 114 B) / 1000; 1, 2, 3 red, green, blue of colors
VOSTEL_CALL VostelStatus vostel_image_value(int32_t canvas, int32_t channel, double x, double y,
                                            double* value);

/// The samples as they came, borrowed and to be read only, until the next image.
VOSTEL_CALL VostelStatus vostel_image_plane(int32_t canvas, VostelPlane* plane);

/// Copies the values as they came.
/// @param type VOSTEL_F32 and VOSTEL_U8 (channel 0; truncated, and held within 0 and 255 for bytes) or
///             VOSTEL_RGB8 (gray three times)
VOSTEL_CALL VostelStatus vostel_image_copy(int32_t canvas, VostelPixel type, void* data, ptrdiff_t row_bytes);
/// @}

/// @defgroup contrast Contrast
/// How values become shades, in the image's own values; the data never change. Colors go through the same
/// window, each channel alike.
/// @{

/// Low becomes the darkest and high the brightest shade; low is below high and both are finite.
VOSTEL_CALL VostelStatus vostel_contrast_set(int32_t canvas, double low, double high);

/// Reads the window.
VOSTEL_CALL VostelStatus vostel_contrast_get(int32_t canvas, double* low, double* high);

/// Sets the window to two percentiles of the finite values, 0 to 100, linear between ranks.
VOSTEL_CALL VostelStatus vostel_contrast_percentiles(int32_t canvas, double low_percent, double high_percent);

/// shown = ((v - low) / (high - low))^(1 / gamma); gamma is above 0.
VOSTEL_CALL VostelStatus vostel_contrast_gamma(int32_t canvas, double gamma);

/// The color map, by a name of vostel_contrast_map_names(); "gray" at first.
VOSTEL_CALL VostelStatus vostel_contrast_map(int32_t canvas, const char* name);

/// The names of the color maps, one a line.
VOSTEL_CALL VostelStatus vostel_contrast_map_names(char* buffer, size_t capacity, size_t* length);

/// Colors of values below and above the window and of those that are not finite, 0xAARRGGBB; alpha 0: none.
VOSTEL_CALL VostelStatus vostel_contrast_marks(int32_t canvas, uint32_t below, uint32_t above,
                                               uint32_t not_finite);

/// A window that holds inside a region alone; low equal to high ends it.
VOSTEL_CALL VostelStatus vostel_contrast_of_object(int32_t canvas, VostelObject region, double low,
                                                   double high);

/// Window, gamma and marks.
VOSTEL_CALL VostelStatus vostel_contrast_info(int32_t canvas, VostelContrastInfo* contrast);

/// The name of the color map.
VOSTEL_CALL VostelStatus vostel_contrast_map_name(int32_t canvas, char* buffer, size_t capacity,
                                                  size_t* length);

/// The window that holds inside a region alone; both are 0 where there is none.
VOSTEL_CALL VostelStatus vostel_contrast_window_of_object(int32_t canvas, VostelObject region, double* low,
                                                          double* high);

/// Counts values of the image, or of a region if it is not 0. With w = (high - low) / bins, bin k counts
/// low + k w <= v < low + (k + 1) w, and v equal to high falls into the last.
/// @param bins 1 to 16777216
VOSTEL_CALL VostelStatus vostel_histogram(int32_t canvas, VostelObject region_or_0, int32_t channel,
                                          double low, double high, int32_t bins, uint64_t* counts);
/// @}

/// @defgroup view View
/// @{

/// Reads scale and place.
VOSTEL_CALL VostelStatus vostel_view_get(int32_t canvas, VostelView* view);

/// Sets scale and place; the scale is above 0 and finite.
VOSTEL_CALL VostelStatus vostel_view_set(int32_t canvas, const VostelView* view);

/// Shows the whole image, centred, as large as the area allows.
VOSTEL_CALL VostelStatus vostel_view_fit(int32_t canvas);

/// Scale 1, centred.
VOSTEL_CALL VostelStatus vostel_view_actual(int32_t canvas);

/// Multiplies the scale; the client point keeps its image point.
VOSTEL_CALL VostelStatus vostel_view_zoom(int32_t canvas, double factor, double client_x, double client_y);

/// The image point under a client point.
VOSTEL_CALL VostelStatus vostel_view_to_image(int32_t canvas, double client_x, double client_y, double* x,
                                              double* y);

/// The client point of an image point.
VOSTEL_CALL VostelStatus vostel_view_to_client(int32_t canvas, double x, double y, double* client_x,
                                               double* client_y);

/// 0 shows the nearest pixel, else pixels are averaged and interpolated.
VOSTEL_CALL VostelStatus vostel_view_set_smooth(int32_t canvas, int32_t smooth);

/// Links two canvases and their groups: they keep the same scale and the same image point in the middle, at
/// first those of the second one. With itself a canvas leaves its group. Linked canvases are used by one
/// thread at a time, as a single one is.
VOSTEL_CALL VostelStatus vostel_view_link(int32_t canvas, int32_t with);
/// @}

/// @defgroup pictures Frames and pictures
/// @{

/// Draws what the canvas's area shows.
VOSTEL_CALL VostelStatus vostel_frame_render(int32_t canvas, VostelFrame* frame);

/// Draws into the caller's memory: VOSTEL_BGRA8 of the area's size, alpha 255.
VOSTEL_CALL VostelStatus vostel_frame_render_to(int32_t canvas, VostelPlane* target);

/// Writes the whole image at a scale, in the format of the ending: png bmp jpg tif svg pdf. Needs no window.
/// Panels and the plots of profiles belong to the canvas's area and are left out. A save that fails, on
/// Windows also because someone holds the old file open, leaves the file that was there.
///
/// Svg and pdf hold the image in its own size and the objects as shapes and text, in the places of the
/// picture at that scale; a pdf page has image px times scale in points. The same canvas gives the same
/// bytes.
/// @param scale above 0. No side of the picture may have more px than max_side; beside that pictures of
/// pixels are limited, drawings are not
/// @param flags VOSTEL_WITH_...
VOSTEL_CALL VostelStatus vostel_picture_save(int32_t canvas, const char* path, double scale, uint32_t flags);

/// Draws the whole image, as vostel_picture_save() does, into the caller's memory: VOSTEL_BGRA8, alpha 255.
/// The target's size is the image's times the scale, rounded, and 1 or more; another is
/// VOSTEL_INVALID_ARGUMENT.
/// @param flags VOSTEL_WITH_...
VOSTEL_CALL VostelStatus vostel_picture_render_to(int32_t canvas, double scale, uint32_t flags,
                                                  VostelPlane* target);
/// @}

/// @defgroup events Events from a window system
/// Client points; flags are VOSTEL_SHIFT, VOSTEL_CONTROL and, of moves, VOSTEL_LEFT_BUTTON. Points are
/// truncated to whole device px.
/// @{

/// The left button went down.
VOSTEL_CALL VostelStatus vostel_event_press(int32_t canvas, double x, double y, uint32_t flags);

/// The left button went up.
VOSTEL_CALL VostelStatus vostel_event_release(int32_t canvas, double x, double y, uint32_t flags);

/// The pointer moved.
VOSTEL_CALL VostelStatus vostel_event_move(int32_t canvas, double x, double y, uint32_t flags);

/// The wheel turned, forwards for positive steps.
VOSTEL_CALL VostelStatus vostel_event_wheel(int32_t canvas, double x, double y, double steps, uint32_t flags);

/// A key went down; the codes are those of gCVSOnKeyDown().
VOSTEL_CALL VostelStatus vostel_event_key(int32_t canvas, uint32_t key, uint32_t flags);

/// Which letter keys act: "ACDERS" at first on created canvases, "ACDEIRSTX" on 0 to 4.
VOSTEL_CALL VostelStatus vostel_event_keys(int32_t canvas, const char* letters);
/// @}

/// @defgroup objects Objects
/// In drawing order: the last lies on top.
/// @{

/// Makes an object on top of all others. Points outside the image are taken as they are.
VOSTEL_CALL VostelStatus vostel_object_add(int32_t canvas, VostelKind kind, const VostelPoint* points,
                                           size_t count, VostelObject* object);

/// Takes an object away.
VOSTEL_CALL VostelStatus vostel_object_remove(int32_t canvas, VostelObject object);

/// The objects in drawing order.
VOSTEL_CALL VostelStatus vostel_object_list(int32_t canvas, VostelObject* list, size_t capacity,
                                            size_t* count);

/// Kind, flags, label, selection, index, number of points, bounds.
VOSTEL_CALL VostelStatus vostel_object_get(int32_t canvas, VostelObject object, VostelObjectInfo* info);

/// Sets all flags. VOSTEL_ELLIPSE is for rectangles and VOSTEL_NO_LABEL for regions.
VOSTEL_CALL VostelStatus vostel_object_set_flags(int32_t canvas, VostelObject object, uint32_t flags);

/// The points, as vostel_object_add() takes them.
VOSTEL_CALL VostelStatus vostel_object_points(int32_t canvas, VostelObject object, VostelPoint* points,
                                              size_t capacity, size_t* count);

/// Gives an object other points, as many as its kind takes.
VOSTEL_CALL VostelStatus vostel_object_set_points(int32_t canvas, VostelObject object,
                                                  const VostelPoint* points, size_t count);

/// The closed outline of a region; curves are flattened to 0.01 px.
VOSTEL_CALL VostelStatus vostel_object_outline(int32_t canvas, VostelObject object, VostelPoint* points,
                                               size_t capacity, size_t* count);

/// The name, empty at first.
VOSTEL_CALL VostelStatus vostel_object_name(int32_t canvas, VostelObject object, char* buffer,
                                            size_t capacity, size_t* length);

/// Gives an object a name.
VOSTEL_CALL VostelStatus vostel_object_set_name(int32_t canvas, VostelObject object, const char* name);

/// The text of a text object or a panel, or the caption of a measure; empty of other kinds.
VOSTEL_CALL VostelStatus vostel_object_text(int32_t canvas, VostelObject object, char* buffer,
                                            size_t capacity, size_t* length);

/// Sets the text of a text object; VOSTEL_NOT_SUPPORTED of other kinds.
VOSTEL_CALL VostelStatus vostel_object_set_text(int32_t canvas, VostelObject object, const char* text);

/// Colors, widths, heights.
VOSTEL_CALL VostelStatus vostel_object_style(int32_t canvas, VostelObject object, VostelStyle* style);

/// Sets the style. A shorter record leaves the fields that it lacks.
VOSTEL_CALL VostelStatus vostel_object_set_style(int32_t canvas, VostelObject object,
                                                 const VostelStyle* style);

/// Sets the number of a region in vostel_labels(), 1 or more.
VOSTEL_CALL VostelStatus vostel_object_set_label(int32_t canvas, VostelObject object, int32_t label);

/// Moves an object to a place in the drawing order, counted from 0.
VOSTEL_CALL VostelStatus vostel_object_move_to(int32_t canvas, VostelObject object, size_t index);

/// The object that a press at a client point would find; 0 for none.
VOSTEL_CALL VostelStatus vostel_object_at(int32_t canvas, double client_x, double client_y,
                                          VostelObject* object);

/// Replaces the selection.
VOSTEL_CALL VostelStatus vostel_select(int32_t canvas, const VostelObject* objects, size_t count);

/// The selected objects, in drawing order.
VOSTEL_CALL VostelStatus vostel_selection(int32_t canvas, VostelObject* list, size_t capacity, size_t* count);

/// Makes an empty, selected object that the next presses with Shift draw.
VOSTEL_CALL VostelStatus vostel_draw_next(int32_t canvas, VostelKind kind, VostelObject* object);
/// @}

/// @defgroup numbers Numbers
/// @{

/// The scale of all measures, also of those that stand; 1 and "px" at first. Units are above 0 and finite.
VOSTEL_CALL VostelStatus vostel_set_scale(int32_t canvas, double units_per_pixel, const char* unit);

/// Reads the scale of all measures.
/// @param units_per_pixel may be null
VOSTEL_CALL VostelStatus vostel_get_scale(int32_t canvas, double* units_per_pixel, char* unit,
                                          size_t capacity, size_t* length);

/// Measures an object.
/// @param channel 0 the value, or the luma (299 R + 587 G + 114 B) / 1000; 1, 2, 3 red, green, blue of colors
VOSTEL_CALL VostelStatus vostel_measure(int32_t canvas, VostelObject object, int32_t channel,
                                        VostelMeasures* measures);

/// Samples from the first to the last point of an object of 2 points or a polyline's ends: one a pixel of the
/// length, both ends included, bilinear between pixel centres. Samples outside the image are not a number.
/// @param width number of lines one pixel apart across the line whose mean is taken; whole, from 1
/// @param profile may be null
VOSTEL_CALL VostelStatus vostel_profile(int32_t canvas, VostelObject line, int32_t channel, double width,
                                        VostelProfile* profile, double* values, size_t capacity,
                                        size_t* count);

/// 255 inside the region and 0 outside, for the whole image. A pixel belongs to the region when its centre
/// lies inside the outline by the even-odd rule; of centres on the outline those on left and upper edges do.
VOSTEL_CALL VostelStatus vostel_mask(int32_t canvas, VostelObject region, uint8_t* mask, ptrdiff_t row_bytes);

/// The labels of all regions, for the whole image; 0 is background, and later objects lie over earlier ones.
VOSTEL_CALL VostelStatus vostel_labels(int32_t canvas, int32_t* labels, ptrdiff_t row_bytes);

/// Every object with every measure, of channel 0.
/// @param format "csv", "tsv" or "json"; VOSTEL_NOT_SUPPORTED for others
VOSTEL_CALL VostelStatus vostel_table(int32_t canvas, const char* format, char* buffer, size_t capacity,
                                      size_t* length);
/// @}

/// @defgroup files Files
/// What stands on a canvas leaves for files and returns. A file is written beside its path and moved over it:
/// what fails, VOSTEL_NOT_WRITTEN, leaves the one that was there. On Windows a file that someone holds open
/// cannot be moved over. After a success vostel_last_message() says what there is to say, such as what a
/// format could not hold; empty for nothing. docs/formats.md describes the files.
/// @{

/// Saves objects, names, styles, labels, scale, view, contrast and selection as a session, by convention
/// "NAME.vostel.json", and by its path, relative to the file where it can be, the image that is shown. An
/// image from memory is not written. The same canvas gives the same bytes.
/// @param flags 0
VOSTEL_CALL VostelStatus vostel_session_save(int32_t canvas, const char* path, uint32_t flags);

/// Puts a session and its image in the place of what the canvas shows, all of it or nothing. Objects get new
/// numbers, and the history is empty. An image that cannot be read is VOSTEL_NOT_READ; one whose values have
/// changed is shown, and vostel_last_message() says so. A session whose image came from memory opens on a
/// shown image alone, else VOSTEL_NO_IMAGE.
/// @param flags VOSTEL_SESSION_ON_IMAGE or 0. On the shown image, which stays, the objects, the selection and
/// the scale are taken, and view and contrast where it has the values of the session's; VOSTEL_NO_IMAGE
/// without one.
VOSTEL_CALL VostelStatus vostel_session_open(int32_t canvas, const char* path, uint32_t flags);

/// Writes the objects in a format of region files. What it cannot hold is left out, which
/// vostel_last_message() tells.
/// @param format "json", which takes all kinds, or another one of docs/formats.md; null: by the ending of the
/// path; VOSTEL_NOT_SUPPORTED for an unknown one
VOSTEL_CALL VostelStatus vostel_regions_export(int32_t canvas, const char* path, const char* format);

/// Adds the objects of a file on top of those that are there, as one step, all or none. Labels stay where
/// they are free.
/// @param format as for vostel_regions_export(); "json" also takes the objects of a session
/// @param count of the objects that were added; may be null
VOSTEL_CALL VostelStatus vostel_regions_import(int32_t canvas, const char* path, const char* format,
                                               size_t* count);

/// Some objects as the text that vostel_regions_export() writes as "json", in drawing order: for a clipboard.
/// @param objects each is taken once
VOSTEL_CALL VostelStatus vostel_regions_text(int32_t canvas, const VostelObject* objects, size_t count,
                                             char* buffer, size_t capacity, size_t* length);

/// Adds the objects of such a text, or of a session's, as vostel_regions_import() adds those of a file.
/// @param count of the objects that were added; may be null
VOSTEL_CALL VostelStatus vostel_regions_add_text(int32_t canvas, const char* text, size_t* count);
/// @}

/// @defgroup history History
/// A drag from press to release, one call, or what lies between begin and end is one step. Steps hold what
/// changes objects, their order, names, texts, styles, flags and labels, the contrast and the scale of
/// measures; selection, view and image make none.
/// @{

/// What the steps may hold. Created canvases start with 64 MiB, 0 to 4 with 0, which keeps no history.
VOSTEL_CALL VostelStatus vostel_history_limit(int32_t canvas, size_t bytes);

/// Number of steps and what they hold.
VOSTEL_CALL VostelStatus vostel_history_info(int32_t canvas, VostelHistoryInfo* info);

/// The name of a step: -1 what undo would take back, 1 what redo would bring; VOSTEL_NOT_FOUND for none.
VOSTEL_CALL VostelStatus vostel_history_name(int32_t canvas, int32_t step, char* buffer, size_t capacity,
                                             size_t* length);

/// Takes the last step back; VOSTEL_NOT_FOUND if there is none.
VOSTEL_CALL VostelStatus vostel_undo(int32_t canvas);

/// Brings again what undo took back; VOSTEL_NOT_FOUND if there is nothing.
VOSTEL_CALL VostelStatus vostel_redo(int32_t canvas);

/// Makes one step of everything up to the end. Nests: the outermost pair counts.
VOSTEL_CALL VostelStatus vostel_history_begin(int32_t canvas, const char* name);

/// Ends what vostel_history_begin() began; VOSTEL_NOT_FOUND without it.
VOSTEL_CALL VostelStatus vostel_history_end(int32_t canvas);
/// @}

/// @defgroup listeners Listeners
/// @{

/// Has a function called for the events of a canvas, when the outermost call on the canvas is about to return
/// and in the order in which things happened.
/// @param events VOSTEL_OBJECT_ADDED ..., combined
/// @param token for vostel_unlisten()
VOSTEL_CALL VostelStatus vostel_listen(int32_t canvas, uint32_t events, VostelListener listener, void* user,
                                       int64_t* token);

/// Ends what vostel_listen() began. The listener is not called again.
VOSTEL_CALL VostelStatus vostel_unlisten(int64_t token);
/// @}

/// @defgroup routines Routines
/// On planes of type VOSTEL_U8, VOSTEL_U16 or VOSTEL_F32. Other types are converted to float, and the type of
/// the result decides what comes back, truncated and held within its range. The result gives its own size and
/// memory; the wrong size is VOSTEL_INVALID_ARGUMENT.
/// @{

/// Correlates an image with a kernel; the result has the image's size.
VOSTEL_CALL VostelStatus vostel_correlate(const VostelPlane* image, const VostelPlane* kernel,
                                          VostelPlane* result);

/// Smooths by a Gaussian kernel of size x size.
VOSTEL_CALL VostelStatus vostel_gaussian(const VostelPlane* image, int32_t size, double sigma,
                                         VostelPlane* result);

/// Scales an image to the result's size.
VOSTEL_CALL VostelStatus vostel_resize(const VostelPlane* image, VostelPlane* result);

/// 255 where a pixel is brighter than the constant times the mean of the size x size around it, else 0. Works
/// on bytes: other samples are truncated and held within 0 and 255.
VOSTEL_CALL VostelStatus vostel_adaptive_threshold(const VostelPlane* image, int32_t size, double constant,
                                                   VostelPlane* result);

/// Joins two images that overlap by so many columns, equalised there; 0, or 2 and more.
VOSTEL_CALL VostelStatus vostel_stitch(const VostelPlane* left, const VostelPlane* right, int32_t overlap,
                                       VostelPlane* result);

/// Filters each row by the ramp of a reconstruction, cut to so many taps; twice the width less 1 are all.
VOSTEL_CALL VostelStatus vostel_ramp_filter(const VostelPlane* rows, int32_t kernel_length, double spacing,
                                            VostelPlane* result);

/// Reads gray samples of a file without a header into the result, which has the size of the layout and gives
/// the memory, so that one plane serves for many files. VOSTEL_BAD_FORMAT if the file is shorter than the
/// layout says. A file that breaks off while it is read is VOSTEL_NOT_READ; the result then holds its first
/// rows.
/// @param path UTF-8
/// @param layout of type VOSTEL_U8, VOSTEL_U16, VOSTEL_I16 or VOSTEL_F32
VOSTEL_CALL VostelStatus vostel_read_raw(const char* path, const VostelRawLayout* layout,
                                         VostelPlane* result);

/// Transforms in place; the length is a power of two and the inverse is scaled by 1 / length.
VOSTEL_CALL VostelStatus vostel_fft(double* real, double* imaginary, size_t length, int32_t inverse);
/// @}

#ifdef __cplusplus
}
#endif

#endif
