#pragma once

#include "commands/Routines.h"

#include <QObject>

#include <atomic>
#include <thread>
#include <vector>

// Runs one routine at a time on a thread of its own. Its signals arrive on the thread of the runner.
class RoutineRunner : public QObject {
    Q_OBJECT

public:
    explicit RoutineRunner(QObject* parent);
    ~RoutineRunner() override;    // cancels, and waits for the step under way

    bool IsRunning() const { return Worker.joinable(); }

    // False while another one runs.
    bool Start(const Routine& routine, std::vector<ImagePointer> inputs, std::vector<double> values);
    void Cancel() { Cancelled = true; }

Q_SIGNALS:
    void progressed(int done, int total);
    void finished(const RoutineResult& result);

private:
    void Finish(const RoutineResult& result);

    std::thread       Worker;
    std::atomic<bool> Cancelled = false;
};
