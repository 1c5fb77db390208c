#pragma once

#include "canvas/CanvasView.h"

#include <QDialog>

class QDoubleSpinBox;
class QPushButton;

namespace vostel::viewer {

// The look of objects that are drawn from now on.
class StyleDialog : public QDialog {
    Q_OBJECT

public:
    StyleDialog(const DrawingStyle& style, QWidget* parent);

    DrawingStyle Chosen() const { return Style; }

    static DrawingStyle Kept();    // in the settings
    static void         Keep(const DrawingStyle& style);

private:
    QPushButton* ColorButton(const QString& name, std::uint32_t DrawingStyle::*color);
    void         ShowColor(QPushButton& button, std::uint32_t color);

    DrawingStyle Style;
};

}
