#pragma once

#include <QFrame>

class QLabel;
class QPushButton;

namespace vostel::viewer {

// A card over the canvases that tells in a few steps how to work, at the first start or when asked for.
class Tour : public QFrame {
    Q_OBJECT

public:
    explicit Tour(QWidget* over);    // gone when it ends

    static bool WasSeen();    // kept in the settings

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void ShowStep();
    void Place();
    void End();

    int          Step = 0;
    QLabel*      Title;
    QLabel*      Text;
    QPushButton* Back;
    QPushButton* Next;
};

}
