#pragma once

#include "VostelWidget.h"

#include <QApplication>
#include <QImage>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>

#include <vector>

// A widget of 200 x 150 that shows an image of 100 x 80.
struct ShownCanvas {
    VostelWidget Widget{0};

    ShownCanvas()
    {
        Widget.resize(200, 150);
        Widget.show();
        QApplication::processEvents();
        std::vector<float> ramp(100 * 80);
        for (std::size_t i = 0; i < ramp.size(); ++i)
            ramp[i] = static_cast<float>(i);
        gCVSShowRawFloat(0, ramp.data(), 100, 80, true, true);
        Widget.refresh();
        QApplication::processEvents();
    }
    ~ShownCanvas() { gCVSDelAllElement(0); }

    void Wheel(int delta, Qt::KeyboardModifiers modifiers)
    {
        const QPointF at(100, 75);
        QWheelEvent   event(at, Widget.mapToGlobal(at), QPoint(), QPoint(0, delta), Qt::NoButton, modifiers,
                            Qt::NoScrollPhase, false);
        QApplication::sendEvent(&Widget, &event);
    }
    void Mouse(QEvent::Type type, QPointF at, Qt::KeyboardModifiers modifiers)
    {
        QMouseEvent event(type, at, Widget.mapToGlobal(at),
                          type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton,
                          type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton, modifiers);
        QApplication::sendEvent(&Widget, &event);
    }
    void DrawRectangle()
    {
        gCVSAddMRectangle(0);
        Mouse(QEvent::MouseButtonPress, {60, 50}, Qt::ShiftModifier);
        Mouse(QEvent::MouseMove, {90, 80}, Qt::ShiftModifier);
        Mouse(QEvent::MouseButtonRelease, {90, 80}, Qt::ShiftModifier);
    }
    // Whether the widget kept the key for itself.
    bool Key(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QKeyEvent event(QEvent::KeyPress, key, modifiers);
        QApplication::sendEvent(&Widget, &event);
        return event.isAccepted();
    }
    QImage Frame() { return Widget.grab().toImage(); }
    bool   HasRegion()
    {
        gCVSGenerateLabel(0, false);
        return gCVSGetLabelImaPtr2D(0)[0][0] == 0;    // without a region every pixel is 1
    }
};
