#pragma once

#include "documents/RawVolume.h"

#include <QDialog>

class QCheckBox;
class QComboBox;
class QDialogButtonBox;
class QFormLayout;
class QLabel;
class QSpinBox;

namespace vostel::viewer {

// Asks how data without a header lie in a file. What is typed is checked against the length of the file,
// sizes that fit the length are offered, and a file that holds several slices exactly is taken as all of
// them.
class RawLayoutDialog : public QDialog {
    Q_OBJECT

public:
    explicit RawLayoutDialog(const QString& path, QWidget* parent = nullptr);

    // Starts with another file's layout, if this one holds it exactly.
    void      Begin(const RawVolume& last);
    RawVolume Volume() const;

private:
    QSpinBox* AddNumber(QFormLayout& form, const QString& text, const char* name, int low, int high);
    void      Set(const RawVolume& volume);
    void      OfferSizes();
    void      TakeSize(int index);
    void      CountSlices();
    void      Check();

    qint64            FileBytes;
    QComboBox*        Type;
    QCheckBox*        BigEndian;
    QComboBox*        Sizes;
    QSpinBox*         Width;
    QSpinBox*         Height;
    QSpinBox*         Offset;
    QSpinBox*         Slices;
    QSpinBox*         Gap;
    QLabel*           Verdict;
    QDialogButtonBox* Buttons;
    bool              Filling = false;    // several fields at once
};

}
