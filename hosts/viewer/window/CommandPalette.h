#pragma once

#include <QDialog>

class QLineEdit;
class QListWidget;

namespace vostel::viewer {

class CommandList;

// Finds a command by any part of its name and runs it.
class CommandPalette : public QDialog {
    Q_OBJECT

public:
    CommandPalette(CommandList& commands, QWidget* parent);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Filter(const QString& words);
    void Run();

    CommandList& Commands;
    QLineEdit*   Words;
    QListWidget* Found;
};

}
