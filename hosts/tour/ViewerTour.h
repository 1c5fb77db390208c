#pragma once

#include <QList>
#include <QPointF>
#include <QString>
#include <QTimer>

#include <functional>

class QWidget;

namespace vostel::viewer {

class MainWindow;

// Works in the window as a person would, by commands and events of the mouse and the keys, and leaves
// pictures of it in a folder: regions, measures with their table, contrast, a routine with its dialog, two
// documents side by side and the guide. As long as it lives it confirms every dialog with the values that it
// starts with.
class ViewerTour {
public:
    ViewerTour(MainWindow& window, const QString& folder);

    // False when the file cannot be shown or a picture cannot be written.
    bool Run(const QString& file);

private:
    void DrawRegions();
    void Measure();
    void SetContrast();
    void Process();
    void ShowSideBySide();
    void ShowGuide();

    void    Carry(const char* command);
    void    Click(const QList<QPointF>& image);
    void    Drag(const QList<QPointF>& image);    // pressed at the first, released at the last
    void    Press(int key);
    void    WaitWhile(const std::function<bool()>& busy);
    void    Write(const char* name);
    void    Write(const char* name, QWidget& widget);
    void    ConfirmDialog();
    QPointF At(double x, double y) const;    // image px of fractions of the image

    MainWindow& Window;
    QString     Folder;
    QTimer      Dialogs;
    const char* PictureOfDialog = nullptr;    // of the next one
    int         Pictures = 0;
    bool        Failed = false;
};

}
