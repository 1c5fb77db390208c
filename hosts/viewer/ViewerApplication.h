#pragma once

#include <QApplication>
#include <QString>

namespace vostel::viewer {

// The program around the window. A call of the library that fails where nobody expects it, as for want of
// memory, is told in a box, and the program goes on.
class ViewerApplication : public QApplication {
    Q_OBJECT

public:
    // language: "en", "zh_CN"; empty for that of the system.
    ViewerApplication(int& argc, char** argv, const QString& language);

    bool notify(QObject* receiver, QEvent* event) override;

private:
    void Tell(const QString& reason);

    bool IsTelling = false;
};

// Whether there is a screen to show a window on.
bool HasScreen();

}
