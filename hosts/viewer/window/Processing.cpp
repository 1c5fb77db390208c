#include "window/Processing.h"

#include "canvas/CanvasView.h"
#include "documents/Document.h"
#include "documents/FirstContrast.h"
#include "documents/Mnemonics.h"
#include "documents/RawVolume.h"
#include "process/RoutineDialog.h"
#include "process/RoutineRun.h"
#include "window/CanvasPane.h"
#include "window/MainWindow.h"
#include "window/StatusLine.h"
#include "window/Workspace.h"

#include <QCoreApplication>

#include <algorithm>

namespace vostel::viewer {

namespace {

constexpr int PreviewSide = 240;    // px

QString NameOf(const Routine& routine)
{
    return TitleOf(QCoreApplication::translate("Routines", routine.Title));
}

Samples SamplesOf(const Canvas& canvas)
{
    ImageOf<float> copy = canvas.image_copy<float>();
    Samples        image;
    image.Width = copy.width;
    image.Height = copy.height;
    image.Values = std::move(copy.values);
    return image;
}

// What lies in the middle of the canvas.
Samples MiddleOf(const CanvasView& view, const Samples& image)
{
    const QPointF middle = view.ImageAt(QPointF(view.width() / 2.0, view.height() / 2.0));
    Samples       part(std::min(image.Width, PreviewSide), std::min(image.Height, PreviewSide));
    const int left = std::clamp(static_cast<int>(middle.x()) - part.Width / 2, 0, image.Width - part.Width);
    const int top = std::clamp(static_cast<int>(middle.y()) - part.Height / 2, 0, image.Height - part.Height);
    for (int y = 0; y < part.Height; ++y)
        std::copy_n(image.Values.begin() + static_cast<std::ptrdiff_t>(top + y) * image.Width + left,
                    part.Width, part.Values.begin() + static_cast<std::ptrdiff_t>(y) * part.Width);
    return part;
}

}

Processing::Processing(MainWindow& window) : QObject(&window), Window(window)
{
    constexpr int Often = 50;    // ms
    Progress.setInterval(Often);
    connect(&Progress, &QTimer::timeout, this, &Processing::ShowProgress);
}

Processing::~Processing() = default;

void Processing::Ask(const Routine& routine)
{
    if (routine.Parameters.empty())
        return Start(routine, {});
    PreviewSource source;
    if (routine.HasPreview) {
        const Canvas& canvas = Window.View().Open();
        source.Part = std::make_shared<Samples>(MiddleOf(Window.View(), SamplesOf(canvas)));
        const ContrastInfo contrast = canvas.contrast_info();
        source.Low = contrast.low;
        source.High = contrast.high;
    }
    RoutineDialog dialog(routine, source, &Window);
    if (dialog.exec() == QDialog::Accepted)
        Start(routine, dialog.Values());
}

void Processing::Start(const Routine& routine, std::vector<double> values)
{
    const Canvas&      canvas = Window.View().Open();
    const ContrastInfo contrast = canvas.contrast_info();
    const auto [units, unit] = canvas.scale();
    const std::optional<VostelPlane> plane = Window.View().Model().Image();
    if (!plane || Run)
        return;
    From = {Window.Shown().Title(),
            canvas.regions_text(canvas.object_list()),
            contrast.low,
            contrast.high,
            units,
            unit,
            plane->width,
            plane->height,
            IsColor(plane->type)};
    Run = std::make_unique<RoutineRun>(routine, std::make_shared<Samples>(SamplesOf(canvas)),
                                       std::move(values));
    connect(Run.get(), &RoutineRun::done, this, &Processing::ShowResult);
    connect(Run.get(), &RoutineRun::failed, this, [this](const QString& reason) {
        const QString name = NameOf(Run->What());
        End();
        Window.Report(Failed(QStringLiteral("%1: %2").arg(name, reason)));
    });
    connect(Run.get(), &RoutineRun::stopped, this, [this] {
        const QString name = NameOf(Run->What());
        End();
        Window.Report(Done(tr("%1 was stopped; nothing has changed").arg(name)));
    });
    Progress.start();
    ShowProgress();
    Q_EMIT runningChanged();
}

bool Processing::Stop()
{
    if (!Run)
        return false;
    Run->Stop();
    ShowProgress();
    return true;
}

void Processing::ShowProgress()
{
    const QString name = NameOf(Run->What());
    Window.Status().ShowResult(Run->IsStopping()
                                   ? tr("%1: stopping ...").arg(name)
                                   : tr("%1: %2 % - Esc stops it").arg(name).arg(Run->Permille() / 10));
}

void Processing::End()
{
    Progress.stop();
    Run.release()->deleteLater();    // it is telling
    Q_EMIT runningChanged();
}

void Processing::ShowResult(const Samples& result)
{
    const Routine& routine = Run->What();
    const QString  name = NameOf(routine);
    End();
    CanvasPane&  pane = Window.Area().AddPane();
    CanvasModel& model = pane.Shown().Model();
    const bool   shown = model.Try([&](Canvas& canvas) {
        if (routine.IsMask) {
            const std::vector<std::uint8_t> bytes(result.Values.begin(), result.Values.end());
            canvas.image_show(VOSTEL_U8, bytes.data(), result.Width, result.Height);
        } else {
            canvas.image_show(VOSTEL_F32, result.Values.data(), result.Width, result.Height);
            if (routine.KeepsRange)
                canvas.contrast_set(From.Low, From.High);
            else
                SetFirstContrast(canvas, false);
        }
        if (result.Width != From.Width || result.Height != From.Height)
            return;
        canvas.set_scale(From.UnitsPerPixel, From.Unit);
        if (!From.Regions.empty())
            canvas.regions_add_text(From.Regions);
        canvas.select({});
    });
    if (!shown)
        return;
    pane.Shown().Name(tr("%1, %2").arg(From.Title, name));
    pane.View().Fit();
    pane.View().setFocus();
    Window.Report(
        Done(From.WasColor ? tr("%1 done, of the gray of the colors").arg(name) : tr("%1 done").arg(name)));
}

}
