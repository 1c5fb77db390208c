#pragma once

#include "canvas/CanvasModel.h"
#include "canvas/Tool.h"

#include <QBasicTimer>
#include <QImage>
#include <QPointF>
#include <QWidget>

#include <functional>
#include <memory>
#include <optional>

namespace vostel::viewer {

// Where drawn points are put.
enum class Snap { None, PixelCentres, PixelEdges };

// The look of drawn objects.
struct DrawingStyle {
    std::uint32_t Line = 0xFFD21E;        // 0xRRGGBB
    std::uint32_t Selected = 0xFF4D2E;    // of the lines while selected
    std::uint32_t Handle = 0x29A3FF;      // seen on black, gray and white
    double        Width = 1.5;            // layout px
    double        TextHeight = 16;        // layout px
};

// One canvas as a widget: shows its frame, hands the mouse to a tool, and moves the view: the wheel zooms,
// the middle button and, on the background, the left one pan.
class CanvasView : public QWidget {
    Q_OBJECT

public:
    explicit CanvasView(CanvasModel& model, QWidget* parent = nullptr);
    ~CanvasView() override;

    CanvasModel& Model() const { return Shown; }
    Canvas&      Open() const { return Shown.Open(); }

    // The tool that draws; without one the mouse selects and moves. What it has half done is dropped.
    void  Arm(std::unique_ptr<Tool> tool);
    void  Disarm() { Arm(nullptr); }
    bool  IsArmed() const { return Armed != nullptr; }
    Tool& Current() const { return Armed ? *Armed : *Selecting; }
    // Esc: drops what is half drawn, else disarms, else deselects.
    void StepOut();

    // Any gesture of the library's own grammar instead: Shift draws, Control pans and zooms.
    void SetClassic(bool classic);
    bool IsClassic() const { return Classic; }

    void SetSnap(Snap snap) { Snapping = snap; }
    Snap Snapped() const { return Snapping; }
    void SetGrid(bool shown);    // one line a pixel where pixels are large, else wider apart
    bool HasGrid() const { return Grid; }
    void SetScaleBar(bool shown);
    bool HasScaleBar() const { return ScaleBar; }
    // The pointer on a linked canvas, in image px.
    void ShowCross(std::optional<QPointF> image);

    void                SetDrawingStyle(const DrawingStyle& style) { Look = style; }
    const DrawingStyle& Drawn() const { return Look; }
    void                Dress(Object object) const;    // gives it the look of drawn objects

    // While a picture is on its way: says so, and takes no input.
    // Who is asked first when Esc is pressed, and returns whether it was meant for him.
    void SetEscapeFirst(std::function<bool()> takes) { TakesEscape = std::move(takes); }
    void SetWaiting(bool waiting);
    void ShowPreview(const QImage& picture);             // while it waits
    bool ShowsPicture() const { return PictureSeen; }    // the last frame had the image or its preview

    // The view. A fitted one stays so when the widget takes another size.
    void   Fit();
    void   ShowActual();
    void   Zoom(double factor);    // about the middle
    void   ZoomAt(double factor, Point client);
    void   Pan(QPointF by);    // layout px
    void   ShowArea(QRectF image);
    bool   ShowSelection();    // false without one
    bool   IsFitted() const { return Fitted; }
    void   SetFitted(bool fitted) { Fitted = fitted; }
    double Scale() const;    // device px per image px

    Point   ClientAt(QPointF position) const;    // layout px of the widget to device px of the canvas
    QPointF ImageAt(QPointF position) const;
    QPointF PositionOf(Point image) const;    // in layout px

    // A change of the selection by keys, as one step; false without a selection.
    bool MoveSelection(double x, double y);    // image px
    bool RemoveSelection();
    void SnapSelection();    // puts its points where points snap to

    void TellHint();

    QSize sizeHint() const override { return QSize(640, 480); }
    QSize minimumSizeHint() const override { return QSize(80, 60); }

Q_SIGNALS:
    void cursorMoved(QPointF image);
    void cursorLeft();
    void toolChanged();
    void hintChanged(const QString& hint);
    void menuWanted(QPoint global);
    void activated();

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;

private:
    void    GiveArea();
    void    PaintWithoutImage(QPainter& painter);
    void    FollowChanges();
    void    Render();
    void    PaintStandIn(QPainter& painter) const;
    Pointer PointerOf(QPointF position, Qt::KeyboardModifiers modifiers, bool down) const;
    Point   SnappedTo(Point image) const;
    bool    MoveByArrow(int key, Qt::KeyboardModifiers modifiers);

    CanvasModel&          Shown;
    std::unique_ptr<Tool> Selecting;
    std::unique_ptr<Tool> Armed;    // null: select
    QImage                Frame;
    View                  FrameView = {};    // that Frame shows
    qint64                FrameCost = 0;     // ms
    // While a view moves whose frames take longer than the screen waits, the last one is shown where it would
    // lie, and the next one comes when the hand rests.
    bool                   StandsIn = false;
    QBasicTimer            Rest;
    DrawingStyle           Look;
    Snap                   Snapping = Snap::None;
    bool                   Classic = false;
    bool                   Grid = false;
    bool                   ScaleBar = false;
    bool                   Fitted = true;
    bool                   Waiting = false;
    bool                   PictureSeen = false;
    QImage                 Preview;    // of the picture that it waits for
    std::function<bool()>  TakesEscape;
    std::optional<QPointF> Cross;      // image px
    std::optional<QPointF> PanFrom;    // layout px, while the middle button is down
};

}
