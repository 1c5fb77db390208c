#pragma once

#include <cstddef>

namespace vostel {

struct ElementCounts;
class VostelObj;

// What a canvas reports of itself to whoever keeps a history of it or tells others. Without an observer each
// report costs one branch. An observer lets nothing out that it throws.
class CanvasObserver {
public:
    virtual void CallBegins() noexcept = 0;    // the outermost call on the canvas
    virtual void CallEnds() noexcept = 0;      // it is about to return; may call anything but end the canvas

    // The left button, before the objects get to know.
    virtual void GestureBegins() noexcept = 0;
    virtual void GestureEnds() noexcept = 0;    // after they did

    // An object on the list is about to get something that may change it.
    virtual void WillChange(VostelObj& object) noexcept = 0;
    // It lies on top, with its numbers.
    virtual void WasAdded(VostelObj& object, const ElementCounts& before) noexcept = 0;
    virtual void WillRemove(std::size_t index) noexcept = 0;    // the gap in the numbers is closed
    virtual void WillRemoveAll() noexcept = 0;
    virtual void WillChangeContrast() noexcept = 0;
    virtual void ImageChanged() noexcept = 0;
    virtual void PictureChanged() noexcept = 0;

protected:
    ~CanvasObserver() = default;
};

}
