#pragma once

/// @file
/// Painting, mouse, keys and timers of a canvas. A host forwards them as its window gets them, either one by
/// one or as whole messages (gCVSRespondToMessage), never both for one event.
///
/// Nothing repaints by itself: after an event a host invalidates its window and calls gCVSOnDraw when the
/// window paints. Paint after each event: several objects place their parts at a paint only, see
/// CanvasElements.h.
///
/// ### Mouse
///
/// Flags are those of mouse messages: MK_LBUTTON 1, MK_SHIFT 4, MK_CONTROL 8; others do not count. There is
/// no right button, middle button or double click.
///
/// | Gesture | Does |
/// |---|---|
/// | Control+drag | pans the image, unless the mode is DisplayFixed |
/// | Control+wheel | zooms by 1.2 a step, unless the mode is DisplayFixed |
/// | press on the contrast slider | goes to the slider alone; its release does gCVSSetLutPara |
/// | press | selects the topmost object under it, or none, and begins its drag |
/// | Shift+press | goes to the selected object wherever it falls: shapes draw |
/// | drag without Control | moves the selected object, or the node that was pressed |
///
/// Zooming in ends when no more than four image rows are visible, zooming out when the image is no more than
/// four client pixels wide or high.
///
/// ### Keys
///
/// A key is a virtual key code: letters are their capitals. Objects get every key, selected or not.
///
/// | Key | Acts on | Does |
/// |---|---|---|
/// | C | the canvas | gCVSDelAllElement |
/// | R | the canvas | gCVSDelSelElement |
/// | E | every rectangle | draws an ellipse in its box, or the box again (1) |
/// | I | every rectangle of gCVSAddCustomRectangle | goes to 50, 50, sides of 50: image pixels |
/// | I | every text box, the plot of every profile | goes to 50, 50, sides of 50: client pixels |
/// | T | the objects of key I | does what I does; text boxes get the text "这是一个测试" |
/// | A, D | selected drawings of gCVSAddFreeStroke | makes the pen a pixel wider, thinner; 1 to 40 |
/// | Tab | the contrast slider, while shown | switches it off, or on again |
/// | X | the contrast slider, while shown | goes 20 from the left and from below, 400 x 30 client pixels |
/// | S, held while the wheel turns | the canvas | changes an opacity by 5, which no drawing reads |
///
/// (1) The label image follows for rectangles of gCVSAddCustomRectangle alone.
///
/// Keys I and T change objects of the whole canvas: forward them only if users expect that.
///
/// ### Timers
///
/// | Id | Acts on | Does |
/// |---|---|---|
/// | 1 | the contrast slider, while shown | steps the phase of a dash pattern; no drawing reads it |
/// | others | nothing | nothing |

#include "vostel/export.h"
#include "vostel/platform.h"

/// Composes a frame in the client surface and copies it to the context of gCVSSetClient; the context given
/// here is not used. From back to front: hatched background, image, contrast slider, progress bar, objects in
/// the order of their creation. Nothing is composed while gCVSSetUseClientMemDCPixelDirect is on. Objects
/// that find no client surface show the message "No bmp".
VOSTEL_API void gCVSOnDraw(int canvas, HDC dc);

/// The left button went down at a client point. Only MK_SHIFT counts of the flags.
VOSTEL_API void gCVSOnLButtonDown(int canvas, unsigned int flags, CPoint point);

/// The left button went up at a client point.
VOSTEL_API void gCVSOnLButtonUp(int canvas, unsigned int flags, CPoint point);

/// The mouse moved to a client point, with or without a button. Also gives new objects their view and updates
/// the read-outs that follow the mouse: forward all moves, not drags alone.
VOSTEL_API void gCVSOnMouseMove(int canvas, unsigned int flags, CPoint point);

/// The wheel turned at a client point; wheel messages of Windows carry a screen point, which the host
/// converts first. Only the sign of delta counts: above 0 zooms in, below 0 out. Nothing zooms without
/// MK_CONTROL.
VOSTEL_API void gCVSOnMouseWheel(int canvas, unsigned int flags, short delta, CPoint point);

/// A key went down: a virtual key code. See the table of keys; repeat and keyFlags are not used.
VOSTEL_API void gCVSOnKeyDown(int canvas, unsigned int key, unsigned int repeat, unsigned int keyFlags);

/// A timer of the host ran out. See the table of timers: no host needs one.
VOSTEL_API void gCVSOnTimer(int canvas, unsigned long long timerId);

/// Takes mouse moves, left presses and releases, wheel steps and key presses out of a message, routes them as
/// the calls above do, and invalidates the message's window after each but the key. All other messages and a
/// null pointer are ignored. Always true.
///
/// Flags are the low 16 bits of wParam. The point of WM_MOUSEMOVE, WM_LBUTTONDOWN and WM_LBUTTONUP is taken
/// without its sign: a captured mouse left of or above the window area arrives as a large positive
/// coordinate.
VOSTEL_API bool gCVSRespondToMessage(MSG* message, int canvas);
