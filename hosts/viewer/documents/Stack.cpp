#include "documents/Stack.h"

#include "canvas/CanvasModel.h"
#include "documents/FileReasons.h"

#include <QScopedValueRollback>

#include <algorithm>

namespace vostel::viewer {

Stack::Stack(CanvasModel& model, QObject* parent) : QObject(parent), Model(model)
{
    connect(&Reader, &PageReader::read, this, &Stack::HearRead);
}

const PageSource* Stack::Current() const
{
    return Sources.empty() ? nullptr : &Sources[static_cast<std::size_t>(Shown)];
}

bool Stack::IsQuickPage(int index) const
{
    const PageSource& source = Sources[static_cast<std::size_t>(index)];
    const bool        ofOneFile = Sources.size() > 1 && Sources.front().Path == Sources.back().Path;
    return IsQuick(source, ofOneFile ? Sources.size() : 1);
}

std::uint32_t Stack::Keeps() const
{
    return VOSTEL_KEEP_OBJECTS | VOSTEL_KEEP_VIEW |
           (ContrastStays ? std::uint32_t{VOSTEL_KEEP_CONTRAST} : 0U);
}

void Stack::Go(int index)
{
    if (index < 0 || index >= Count())
        return;
    Wanted = index;
    if (index == Shown)
        return;
    Direction = index < Shown ? -1 : 1;
    if (const auto ready = Ready.find(index); ready != Ready.end())
        return ShowRead(index, *ready->second);
    if (!IsQuickPage(index))
        return ReadMore();
    const PageSource& source = Sources[static_cast<std::size_t>(index)];
    try {
        const QScopedValueRollback<bool> going(Going, true);
        ShowPage(Model.Open(), source, Keeps());
    } catch (const Error& error) {
        return HearRead(index, {nullptr, WhyNotOpened(error, source.Path)});
    }
    TakeShown(index, true);
}

void Stack::HearRead(int index, const ReadPage& page)
{
    if (page.Page)
        Ready[index] = page.Page;
    if (index != Wanted || index == Shown)
        return ReadMore();
    if (page.Page)
        return ShowRead(index, *page.Page);
    Wanted = Shown;
    Q_EMIT changed();    // whoever shows the wanted page goes back
    Q_EMIT Model.failed(page.Reason);
}

void Stack::ShowRead(int index, const Canvas& page)
{
    try {
        const QScopedValueRollback<bool> going(Going, true);
        const VostelPlane                plane = page.image_plane();
        Model.Open().image_show(plane.type, plane.data, plane.width, plane.height, plane.row_bytes, Keeps());
        const auto window = page.contrast_get();    // its first one
        if (!ContrastStays && Model.Open().contrast_get() != window)
            Model.Open().contrast_set(window.first, window.second);
    } catch (const Error& error) {
        return HearRead(index, {nullptr, QString::fromStdString(error.message())});
    }
    TakeShown(index, false);
    ReadMore();
}

void Stack::TakeShown(int index, bool named)
{
    Shown = Wanted = index;
    Named = named;
    std::erase_if(Ready, [this](const auto& one) { return std::abs(one.first - Shown) > 1; });
    Q_EMIT changed();
}

// The page that is waited for, else the neighbours of the shown one.
void Stack::ReadMore()
{
    if (Reader.IsReading())
        return;
    for (const int index : {Wanted, Shown + Direction, Shown - Direction})
        if (index != Shown && index >= 0 && index < Count() && !Ready.contains(index) && !IsQuickPage(index))
            return Reader.Read(index, Sources[static_cast<std::size_t>(index)]);
}

Outcome Stack::Start(std::vector<PageSource> sources, int first)
{
    const PageSource&                source = sources[static_cast<std::size_t>(first)];
    const QScopedValueRollback<bool> going(Going, true);
    try {
        ShowPage(Model.Open(), source, 0);
    } catch (const Error& error) {
        return Failed(WhyNotOpened(error, source.Path));
    }
    Take(std::move(sources), first);
    return Done();
}

void Stack::Take(std::vector<PageSource> sources, int shown)
{
    Reader.Drop();
    Ready.clear();
    Sources = std::move(sources);
    Shown = Wanted = shown;
    Named = true;
    Q_EMIT changed();
}

void Stack::Clear()
{
    Take({}, 0);
}

}
