#pragma once

#include "canvas/CanvasView.h"
#include "hosts/viewer/Hand.h"
#include "window/CanvasPane.h"
#include "window/CommandList.h"
#include "window/MainWindow.h"
#include "window/Workspace.h"

#include <QLabel>
#include <QSettings>

// The viewer's window of 1000 x 700 with settings of its own, on the sample picture or empty.
struct ShownWindow {
    struct FreshSettings {
        FreshSettings() { QSettings().clear(); }
    } Fresh;
    vostel::viewer::MainWindow Window;

    explicit ShownWindow(const QStringList& files = {Sample()})
    {
        hand::Show(Window, QRect(20, 20, 1000, 700));
        OpenAll(files);
    }

    // And waits until all are there.
    void OpenAll(const QStringList& files)
    {
        Window.OpenFiles(files);
        hand::Wait([&] {
            return std::none_of(Window.Area().All().begin(), Window.Area().All().end(),
                                [](auto* pane) { return pane->Shown().IsReading(); });
        });
        hand::Settle();
        View().setFocus();
        hand::Settle();
    }

    static QString Sample() { return QStringLiteral(VOSTEL_SAMPLES "/coins.png"); }

    vostel::viewer::CanvasView& View() { return Window.View(); }
    vostel::Canvas&             Open() { return Window.View().Open(); }
    QString                     Label(const char* name) { return hand::Of<QLabel>(Window, name).text(); }

    // A point of the image on the canvas.
    QPoint At(double x, double y) { return View().PositionOf({x, y}).toPoint(); }
    void   Drag(double x, double y, double toX, double toY) { hand::Drag(View(), At(x, y), At(toX, toY)); }
};
