#pragma once

#include "documents/Saves.h"

#include <QFileDialog>

class QLabel;
class QSpinBox;

namespace vostel::viewer {

// Asks where to save, in which format and, for pictures, at what scale.
class SaveDialog : public QFileDialog {
    Q_OBJECT

public:
    SaveDialog(const SaveKind& kind, const Document& document, QWidget* parent = nullptr);

    double Scale() const;

private:
    void AddScale(const Document& document);
    void TakeSuffix();

    const SaveKind& Kind;
    QSpinBox*       Percent = nullptr;
};

}
