#pragma once

#include <QLabel>
#include <QObject>
#include <QPointF>

#include <optional>

class QStatusBar;

namespace vostel::viewer {

class CanvasModel;

// A line of text that ends in an ellipsis where its room ends, whole in its tool tip.
class ShortLabel : public QLabel {
    Q_OBJECT

public:
    using QLabel::QLabel;
    void  SetWhole(const QString& text);
    QSize minimumSizeHint() const override { return QSize(0, QLabel::minimumSizeHint().height()); }

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    QString Whole;
};

// The status bar: the hint of the tool or what was done last, the pointer with its values, size, zoom, scale.
class StatusLine : public QObject {
    Q_OBJECT

public:
    explicit StatusLine(QStatusBar& bar);

    void ShowHint(const QString& hint);
    void ShowResult(const QString& text);    // stays until the next hint of another tool
    void ShowCursor(const CanvasModel& canvas, QPointF image);
    void ShowNoCursor();
    void ShowCanvas(const CanvasModel& canvas);    // size, zoom, scale

private:
    ShortLabel* Hint;
    QLabel*     Cursor;
    QLabel*     Values;
    QLabel*     Size;
    QLabel*     Zoom;
    QLabel*     Scale;
};

}
