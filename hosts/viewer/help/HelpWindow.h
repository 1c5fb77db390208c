#pragma once

#include <QDialog>

class QLineEdit;
class QListWidget;
class QTextBrowser;

namespace vostel::viewer {

// The guides that the program carries along, in the language of the interface where they have been
// translated, with search through all of them.
class HelpWindow : public QDialog {
    Q_OBJECT

public:
    explicit HelpWindow(QWidget* parent);

    static QString PathOf(const char* page);    // "viewer.md", in the language of the interface or in English

private:
    void Fill(const QString& words);
    void ShowPage();
    void Follow(const QUrl& link);

    QLineEdit*    Words;
    QListWidget*  Pages;
    QTextBrowser* Text;
};

}
