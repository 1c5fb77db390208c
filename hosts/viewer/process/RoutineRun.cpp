#include "process/RoutineRun.h"

#include <QCoreApplication>
#include <QPointer>
#include <QThreadPool>
#include <vostel.hpp>

#include <new>
#include <optional>

namespace vostel::viewer {

struct RoutineRun::Ended {
    std::optional<Samples> Result;
    QString                Reason;    // empty of what was stopped
};

RoutineRun::RoutineRun(const Routine& routine, std::shared_ptr<const Samples> image,
                       std::vector<double> values, QObject* parent)
    : QObject(parent), Line(routine)
{
    const QPointer<RoutineRun> self = this;
    QThreadPool::globalInstance()->start(
        [self, state = State, image = std::move(image), values = std::move(values), run = routine.Run] {
            const auto ended = std::make_shared<Ended>();
            try {
                ended->Result = run(*image, values, *state);
            } catch (const Stopped&) {
            } catch (const Error& error) {
                ended->Reason = QString::fromStdString(error.message());
            } catch (const std::bad_alloc&) {
                ended->Reason = tr("There is not enough memory.");
            }
            QMetaObject::invokeMethod(
                QCoreApplication::instance(),
                [self, ended] {
                    if (self)
                        self->Tell(*ended);
                },
                Qt::QueuedConnection);
        });
}

RoutineRun::~RoutineRun()
{
    Stop();
}

void RoutineRun::Tell(Ended& ended)
{
    if (ended.Result && !IsStopping())
        Q_EMIT done(*ended.Result);
    else if (!ended.Reason.isEmpty())
        Q_EMIT failed(ended.Reason);
    else
        Q_EMIT stopped();
}

}
