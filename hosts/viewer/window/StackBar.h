#pragma once

#include <QWidget>

class QCheckBox;
class QLabel;
class QSlider;
class QSpinBox;

namespace vostel::viewer {

class Document;

// The pages of a stack: a slider and a number. Hidden for a single picture.
class StackBar : public QWidget {
    Q_OBJECT

public:
    explicit StackBar(Document& document, QWidget* parent = nullptr);

private:
    void ShowStack();

    Document& Content;
    QSlider*  Pages;
    QSpinBox* Number;
    QLabel*   Count;
};

}
