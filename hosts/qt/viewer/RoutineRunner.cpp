#include "RoutineRunner.h"

#include <QMetaObject>

#include <utility>

RoutineRunner::RoutineRunner(QObject* parent) : QObject(parent) {}

RoutineRunner::~RoutineRunner()
{
    Cancel();
    if (Worker.joinable())
        Worker.join();
}

bool RoutineRunner::Start(const Routine& routine, std::vector<ImagePointer> inputs,
                          std::vector<double> values)
{
    if (IsRunning())
        return false;
    Cancelled = false;
    Worker = std::thread([this, &routine, inputs = std::move(inputs), values = std::move(values)] {
        const RoutineResult result = RunRoutine(routine, inputs, values, [this](int done, int total) {
            QMetaObject::invokeMethod(
                this, [this, done, total] { Q_EMIT progressed(done, total); }, Qt::QueuedConnection);
            return !Cancelled;
        });
        QMetaObject::invokeMethod(
            this, [this, result] { Finish(result); }, Qt::QueuedConnection);
    });
    return true;
}

void RoutineRunner::Finish(const RoutineResult& result)
{
    Worker.join();    // it has nothing left to do
    Q_EMIT finished(result);
}
