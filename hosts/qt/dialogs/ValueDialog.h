#pragma once

#include <QDialog>
#include <QString>

class QLineEdit;

namespace vostel::widget {

// Asks for one text value. The last answer is remembered under the section in the file that the caller names.
class ValueDialog : public QDialog {
    Q_OBJECT

public:
    ValueDialog(const QString& section, const QString& file, QWidget* parent = nullptr);

    QString Value() const;
    void    Remember() const;

private:
    bool IsScale() const;
    bool IsAnswer() const;    // a scale is a number above 0

    QString    Section;
    QString    File;
    QLineEdit* Edit = nullptr;
};

}
