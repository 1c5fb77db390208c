#pragma once

#include "canvas/VostelImage.h"
#include "document/Document.h"

#include <memory>
#include <optional>

namespace vostel {

// The five canvases that always stand, made when the library is loaded and torn down when it is unloaded.
// Making one creates no GDI object.
inline constexpr int CanvasCount = 5;
extern VostelImage   gCanvasTable[CanvasCount];

// The canvas of a number, null where there is none: such a number changes nothing.
VostelImage* FindCanvas(int number);

// For calls that return something: a number without a canvas reads as one without anything.
VostelImage& CanvasToRead(int number);

// A canvas that was made by its host, and what is kept beside it.
struct CreatedCanvas;

// A canvas for the length of one call, at whose end the observer hears what has changed. A canvas that is
// destroyed meanwhile lives till then.
class CanvasCall {
public:
    explicit CanvasCall(int number);
    CanvasCall(const CanvasCall&) = delete;
    CanvasCall& operator=(const CanvasCall&) = delete;

    explicit     operator bool() const { return Image != nullptr; }
    VostelImage* operator->() const { return Image; }
    VostelImage& operator*() const { return *Image; }

    // Of one of the five it is made when it is first asked for.
    Document& Notes() const;

private:
    int                                Number;
    std::shared_ptr<CreatedCanvas>     Held;
    VostelImage*                       Image;
    std::optional<VostelDC::CallScope> Scope;
};

// Makes a canvas with an area of its own; returns its number, which was never given before.
int CreateCanvas(int width, int height);
// Ends a canvas that was created; false for other numbers.
bool DestroyCanvas(int number);

}
