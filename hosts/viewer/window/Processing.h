#pragma once

#include "process/Routine.h"

#include <QObject>
#include <QTimer>

#include <memory>
#include <string>

namespace vostel::viewer {

class MainWindow;
class RoutineRun;

// The routine that a window runs, one at a time: with progress in the status bar, and its result in a
// document of its own, with the objects where the size is the same. The source stays as it is.
class Processing : public QObject {
    Q_OBJECT

public:
    explicit Processing(MainWindow& window);
    ~Processing() override;

    void Ask(const Routine& routine);    // for values, if it has any, then runs it
    bool Stop();                         // false if none runs
    bool IsRunning() const { return Run != nullptr; }

Q_SIGNALS:
    void runningChanged();

private:
    // Of the document that a run began with, which may be gone when it ends.
    struct Origin {
        QString     Title;
        std::string Regions;
        double      Low = 0.0, High = 0.0;
        double      UnitsPerPixel = 1.0;
        std::string Unit;
        int         Width = 0, Height = 0;
        bool        WasColor = false;
    };

    void Start(const Routine& routine, std::vector<double> values);
    void ShowProgress();
    void ShowResult(const Samples& result);
    void End();

    MainWindow&                 Window;
    std::unique_ptr<RoutineRun> Run;
    Origin                      From;
    QTimer                      Progress;
};

}
