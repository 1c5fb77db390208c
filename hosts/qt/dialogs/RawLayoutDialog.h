#pragma once

#include <VostelObj.h>

#include <QDialog>

class QComboBox;
class QDialogButtonBox;
class QDoubleSpinBox;
class QGroupBox;
class QLabel;
class QSpinBox;

namespace vostel::widget {

// Asks for the layout of a headerless raw file. Width, height and header are checked against the length of
// the file while they are typed, and sizes that fit the length are offered. Without a file, or with one that
// is not there, nothing is checked or offered.
//
// It starts with the last answer where that fits the file to the byte, else with the likeliest size.
class RawLayoutDialog : public QDialog {
    Q_OBJECT

public:
    explicit RawLayoutDialog(const QString& file, QWidget* parent = nullptr);

    tagZEKImaLoadPara Layout() const;
    void              Remember() const;

private:
    void   BuildFields(const QString& file);
    void   Recall();
    void   OfferSizes();
    void   TakeSize(int index);
    void   Check();
    qint64 BytesWanted() const;
    int    DataType() const;

    qint64            FileBytes = -1;    // -1: unknown
    QComboBox*        Sizes = nullptr;
    QSpinBox*         WidthBox = nullptr;
    QSpinBox*         HeightBox = nullptr;
    QComboBox*        TypeBox = nullptr;
    QSpinBox*         HeaderBox = nullptr;
    QLabel*           Verdict = nullptr;
    QGroupBox*        Mapping = nullptr;
    QDoubleSpinBox*   Limits[4] = {};    // of the samples low and high, of the gray levels low and high
    QDialogButtonBox* Buttons = nullptr;
};

}
