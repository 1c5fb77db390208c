#pragma once

#include "process/Routine.h"

#include <QElapsedTimer>
#include <QObject>
#include <QString>

#include <functional>
#include <memory>
#include <vector>

namespace vostel::viewer {

// One routine at work in a thread of the pool. Goes on to its end, unheard, if this is destroyed before.
class RoutineRun : public QObject {
    Q_OBJECT

public:
    RoutineRun(const Routine& routine, std::shared_ptr<const Samples> image, std::vector<double> values,
               QObject* parent = nullptr);
    ~RoutineRun() override;

    const Routine& What() const { return Line; }
    int            Permille() const { return State->Permille; }
    void           Stop() { State->Stop(); }
    bool           IsStopping() const { return State->StopWanted; }

Q_SIGNALS:
    // One of them, once, on the thread of this. A result may be taken.
    void done(vostel::viewer::Samples& result);
    void failed(const QString& reason);
    void stopped();

private:
    struct Ended;

    void Tell(Ended& ended);

    const Routine&            Line;
    std::shared_ptr<RunState> State = std::make_shared<RunState>();
};

}
