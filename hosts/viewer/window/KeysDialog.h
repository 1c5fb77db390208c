#pragma once

#include <QDialog>

class QAction;
class QKeySequenceEdit;
class QTreeWidget;

namespace vostel::viewer {

class CommandList;

// Every command with its key, which can be changed here.
class KeysDialog : public QDialog {
    Q_OBJECT

public:
    KeysDialog(CommandList& commands, QWidget* parent);

private:
    void     Fill();
    void     ShowKey();
    void     TakeKey();
    QAction* Chosen() const;

    CommandList&      Commands;
    QTreeWidget*      List;
    QKeySequenceEdit* Key;
};

}
