#pragma once

#include "VostelWidget.h"

#include <QString>
#include <QWidget>

class QLabel;

namespace vostel::viewer {

// A canvas in the window: the widget, a caption with its number and file, and a hint while it is empty.
class CanvasTile : public QWidget {
    Q_OBJECT

public:
    CanvasTile(int canvas, QWidget* parent);

    VostelWidget* Canvas() const { return Widget; }
    QString       File() const { return FilePath; }    // empty without an image from a file

    void SetFile(const QString& path);
    void ShowCaption(bool shown);
    void SetCurrent(bool current);

Q_SIGNALS:
    void areaChanged();    // the canvas has an image and another size

protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void PlaceParts();
    void ShowTexts();

    VostelWidget* Widget;
    QLabel*       Caption;
    QLabel*       Hint;
    QString       FilePath;
    bool          Captioned = false;
    bool          Current = false;
};

}
