#pragma once

#include <QDialog>

namespace vostel::viewer {

// How the mouse and the keys work, as a page that may stay open beside the work.
class GesturePage : public QDialog {
    Q_OBJECT

public:
    explicit GesturePage(QWidget* parent);
};

}
