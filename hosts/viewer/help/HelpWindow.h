#pragma once

#include <QDialog>

class QLineEdit;
class QListWidget;
class QTextBrowser;

namespace vostel::viewer {

// The guides that the program carries along, with search through all of them.
class HelpWindow : public QDialog {
    Q_OBJECT

public:
    explicit HelpWindow(QWidget* parent);

private:
    void Fill(const QString& words);
    void ShowPage();
    void Follow(const QUrl& link);

    QLineEdit*    Words;
    QListWidget*  Pages;
    QTextBrowser* Text;
};

}
