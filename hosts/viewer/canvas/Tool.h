#pragma once

#include "canvas/Shape.h"

#include <QCoreApplication>
#include <QCursor>
#include <QString>
#include <vostel.hpp>

#include <cstddef>
#include <optional>

class QPainter;

namespace vostel::viewer {

class CanvasView;

// Where the pointer is and what is held.
struct Pointer {
    Point                 Client;    // device px of the canvas
    Point                 Image;     // image px, snapped if the view snaps
    bool                  IsDown;    // the left button
    Qt::KeyboardModifiers Modifiers;
};

// What the left button does on a canvas. A tool that draws stays armed after each object.
class Tool {
    Q_DECLARE_TR_FUNCTIONS(Tool)

public:
    explicit Tool(CanvasView& view) : View(view) {}
    virtual ~Tool() = default;
    Tool(const Tool&) = delete;
    Tool& operator=(const Tool&) = delete;

    virtual void Press(const Pointer& at) = 0;
    virtual void Move(const Pointer&) {}
    virtual void Release(const Pointer&) {}
    virtual void DoubleClick(const Pointer& at) { Press(at); }

    virtual bool IsBusy() const { return false; }    // with something half done
    virtual void Finish() {}                         // ends what is half done, as it is
    virtual void Cancel() {}                         // drops what is half done
    virtual void StepBack() {}                       // drops its last node

    virtual std::optional<Shape> Draws() const { return std::nullopt; }
    virtual QString              Hint() const = 0;    // what the mouse and the keys do now
    virtual QCursor              Cursor(const Pointer&) const { return Qt::CrossCursor; }
    virtual void                 Paint(QPainter&) const {}    // over the frame, in layout px of the view

protected:
    CanvasView& View;
};

}
