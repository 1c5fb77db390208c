#pragma once

#include <VostelObj.h>

#include <QDialog>
#include <QSize>

class QDialogButtonBox;
class QLabel;
class QSpinBox;

namespace vostel::widget {

// Asks for the edges of a rectangle in image pixels, within the image where its size is known. All four edges
// belong to the rectangle, as they do in the label image. It starts with the last values, or with the middle
// of the image where that does not fit.
class RegionDialog : public QDialog {
    Q_OBJECT

public:
    explicit RegionDialog(QSize image, QWidget* parent = nullptr);

    tagZEKImaROIRectPara Region() const;
    void                 Remember() const;

private:
    void Recall(QSize image);
    void Check();

    QSpinBox *        Left = nullptr, *Right = nullptr, *Top = nullptr, *Bottom = nullptr;
    QLabel*           Size = nullptr;
    QDialogButtonBox* Buttons = nullptr;
};

}
