#pragma once

#include "commands/Commands.h"

#include <QList>
#include <QPointF>
#include <QString>
#include <QTimer>

namespace vostel::viewer {

class MainWindow;

// Works in the window as a person would, by events of the mouse and the keys, and leaves pictures of it in a
// folder: shapes, measures, contrast, a routine, the canvases side by side, a dialog and the help page. As
// long as it lives it confirms every dialog with the values that it starts with.
class ViewerTour {
public:
    ViewerTour(MainWindow& window, const QString& folder);

    // False when there is no image on the current canvas or a picture cannot be written.
    bool Run();

private:
    void DrawShapes();
    void Measure();
    void Process();
    void ShowPages();

    void    Press(QPointF image, Qt::KeyboardModifiers modifiers);
    void    Drag(const QList<QPointF>& image, Qt::KeyboardModifiers modifiers);
    void    DragOnCanvas(const QList<QPointF>& path, Qt::KeyboardModifiers modifiers);
    void    Zoom(int steps, QPointF image);
    void    Write(const char* name);
    void    Write(const char* name, class QWidget& widget);
    void    ConfirmDialog();
    void    WaitForRoutine();
    QPointF At(double x, double y) const;    // image px of fractions of the image

    MainWindow& Window;
    QString     Folder;
    QTimer      Dialogs;
    const char* PictureOfDialog = nullptr;    // of the next one
    int         Pictures = 0;
    bool        Failed = false;
};

}
