#include "documents/Clipboard.h"

#include "documents/Document.h"
#include "documents/FileReasons.h"
#include "documents/ObjectsSvg.h"

#include <QApplication>
#include <QClipboard>
#include <QImage>
#include <QMimeData>
#include <QUrl>

#include <algorithm>
#include <cmath>
#include <set>

namespace vostel::viewer {

namespace {

constexpr double Beside = 10.0;                  // client px from an object to its copy
constexpr qint64 MostPicturePixels = 1 << 25;    // of a picture for other programs

const QString RegionsType = QStringLiteral("application/x-vostel-regions+json");
const QString OriginType = QStringLiteral("application/x-vostel-origin");    // process, canvas, pastes there

QString ClipText(const char* english)
{
    return QCoreApplication::translate("Clipboard", english);
}

QString CountText(const char* english, std::size_t count)
{
    return QCoreApplication::translate("Clipboard", english, nullptr, static_cast<int>(count));
}

const QMimeData* Held()
{
    return QApplication::clipboard()->mimeData();
}

// The objects on the clipboard as text; empty if there are none.
std::string HeldObjects()
{
    const QMimeData* const data = Held();
    if (data && data->hasFormat(RegionsType))
        return data->data(RegionsType).toStdString();
    const QString text = data ? data->text() : QString();
    const bool    ours =
        text.startsWith(QLatin1Char('{')) && (text.contains(QLatin1String("\"vostel-regions\"")) ||
                                              text.contains(QLatin1String("\"vostel-session\"")));
    return ours ? text.toStdString() : std::string();
}

QString OriginOf(const Canvas& canvas, int pastes)
{
    return QStringLiteral("%1 %2 %3")
        .arg(QCoreApplication::applicationPid())
        .arg(canvas.number())
        .arg(pastes);
}

// Records of a table with tabs; line ends inside quotes belong to their record.
QStringList RecordsOf(const QString& table)
{
    QStringList records;
    QString     record;
    bool        quoted = false;
    for (const QChar c : table) {
        quoted ^= c == QLatin1Char('"');
        if (c == QLatin1Char('\n') && !quoted) {
            records << record.remove(QLatin1Char('\r'));
            record.clear();
        } else {
            record += c;
        }
    }
    return records;
}

// The measures of some objects under their header.
QString TableOf(const Canvas& canvas, const std::vector<Object>& objects)
{
    const QStringList         records = RecordsOf(QString::fromStdString(canvas.table("tsv")));
    const std::vector<Object> all = canvas.object_list();
    QStringList               chosen = records.mid(0, 1);
    for (std::size_t i = 0; i < all.size(); ++i)
        if (std::find(objects.begin(), objects.end(), all[i]) != objects.end())
            chosen << records.value(static_cast<qsizetype>(i) + 1);
    return chosen.join(QLatin1Char('\n')) + QLatin1Char('\n');
}

// The picture as it is shown, with its objects or without; null where there is none or it is very large.
QImage PictureOf(Canvas& canvas, std::uint32_t flags)
{
    const auto info = canvas.image_info();
    if (!info || qint64{info->width} * info->height > MostPicturePixels)
        return {};
    QImage picture(info->width, info->height, QImage::Format_RGB32);
    canvas.picture_render_to(picture.bits(), info->width, info->height, 1.0, flags, picture.bytesPerLine());
    return picture;
}

QRect BoundsOf(const std::vector<Object>& objects)
{
    QRectF bounds;
    for (const Object& object : objects) {
        const ObjectInfo info = object.info();
        bounds |= QRectF(QPointF(info.left - Beside, info.top - Beside),
                         QPointF(info.right + Beside, info.bottom + Beside));
    }
    return bounds.toAlignedRect();
}

void CopyObjects(Canvas& canvas, const std::vector<Object>& objects)
{
    auto* const       data = new QMimeData;    // the clipboard owns it
    const std::string text = canvas.regions_text(objects);
    data->setData(RegionsType, QByteArray::fromStdString(text));
    data->setData(OriginType, OriginOf(canvas, 0).toLatin1());
    data->setData(QStringLiteral("image/svg+xml"), SvgOf(objects));
    data->setText(TableOf(canvas, objects));
    const QImage picture = PictureOf(canvas, VOSTEL_WITH_OBJECTS | VOSTEL_WITH_CAPTIONS);
    const QRect  part = BoundsOf(objects) & picture.rect();
    if (!part.isEmpty())
        data->setImageData(picture.copy(part));
    QApplication::clipboard()->setMimeData(data);
}

// Adds objects of a text, moved, and selects them.
std::size_t AddMoved(Canvas& canvas, const std::string& text, double move)
{
    std::set<Object> before;
    for (const Object& object : canvas.object_list())
        before.insert(object);
    canvas.regions_add_text(text);
    std::vector<Object> added;
    for (const Object& object : canvas.object_list())
        if (!before.contains(object))
            added.push_back(object);
    for (Object& object : added) {
        if (move == 0.0)
            break;
        std::vector<Point> points = object.points();
        for (Point& point : points)
            point = {point.x + move, point.y + move};
        object.set_points(points);
    }
    canvas.select(added);
    return added.size();
}

// Whole image px that look like the distance of a copy at the present scale.
double MoveAt(const Canvas& canvas)
{
    const CanvasInfo info = canvas.info();
    return std::max(1.0, std::round(Beside * info.pixel_ratio / canvas.view_get().scale));
}

// How far pasted objects lie from where they were: further with each paste on the canvas that they come from.
double PasteMove(const Canvas& canvas)
{
    const QStringList origin = QString::fromLatin1(Held()->data(OriginType)).split(QLatin1Char(' '));
    const bool        same =
        origin.size() == 3 && OriginOf(canvas, origin[2].toInt()) == origin.join(QLatin1Char(' '));
    return same ? MoveAt(canvas) * (origin[2].toInt() + 1) : 0.0;
}

void CountPaste(const Canvas& canvas)
{
    const QStringList origin = QString::fromLatin1(Held()->data(OriginType)).split(QLatin1Char(' '));
    if (origin.size() != 3)
        return;
    auto* const data = new QMimeData;
    for (const QString& format : Held()->formats())
        data->setData(format, Held()->data(format));
    if (Held()->hasImage())
        data->setImageData(Held()->imageData());
    data->setData(OriginType, OriginOf(canvas, origin[2].toInt() + 1).toLatin1());
    QApplication::clipboard()->setMimeData(data);
}

Outcome PasteObjects(Canvas& canvas, const std::string& text)
{
    const double move = PasteMove(canvas);
    const Step   one = canvas.step("Paste objects");
    const auto   count = AddMoved(canvas, text, move);
    if (move != 0.0)
        CountPaste(canvas);
    return Done(CountText(QT_TRANSLATE_N_NOOP("Clipboard", "Pasted %n objects"), count));
}

template <typename Change>
Outcome OnSelection(CanvasModel& model, Change change)
{
    try {
        const std::vector<Object> selected = model.Open().selection();
        return selected.empty() ? Failed(ClipText(QT_TRANSLATE_NOOP("Clipboard", "No object is selected.")))
                                : change(model.Open(), selected);
    } catch (const Error& error) {
        return Failed(QString::fromStdString(error.message()));
    }
}

}

Clipboard::Content Clipboard::Held()
{
    const QMimeData* const data = viewer::Held();
    if (!HeldObjects().empty())
        return Content::Objects;
    if (data && data->hasUrls() && data->urls().constFirst().isLocalFile())
        return Content::Files;
    return data && data->hasImage() ? Content::Picture : Content::Nothing;
}

Outcome Clipboard::Copy(CanvasModel& model)
{
    if (!model.Open().selection().empty())
        return OnSelection(model, [](Canvas& canvas, const std::vector<Object>& selected) {
            CopyObjects(canvas, selected);
            return Done(CountText(QT_TRANSLATE_N_NOOP("Clipboard", "Copied %n objects"), selected.size()));
        });
    const QImage picture = PictureOf(model.Open(), 0);
    if (picture.isNull())
        return Failed(
            model.HasImage()
                ? ClipText(QT_TRANSLATE_NOOP("Clipboard", "The picture is too large for the clipboard."))
                : ClipText(QT_TRANSLATE_NOOP("Clipboard", "There is nothing to copy.")));
    QApplication::clipboard()->setImage(picture);
    return Done(ClipText(QT_TRANSLATE_NOOP("Clipboard", "Copied the picture")));
}

Outcome Clipboard::Cut(CanvasModel& model)
{
    return OnSelection(model, [](Canvas& canvas, const std::vector<Object>& selected) {
        CopyObjects(canvas, selected);
        const Step one = canvas.step("Cut objects");
        for (const Object& object : selected)
            canvas.object_remove(object);
        return Done(CountText(QT_TRANSLATE_N_NOOP("Clipboard", "Cut %n objects"), selected.size()));
    });
}

Outcome Clipboard::Paste(Document& document)
{
    try {
        const std::string objects = HeldObjects();
        if (!objects.empty())
            return PasteObjects(document.Model().Open(), objects);
        switch (Held()) {
        case Content::Files:
            return document.Open(viewer::Held()->urls().constFirst().toLocalFile());
        case Content::Picture:
            return document.ShowPicture(QApplication::clipboard()->image());
        default:
            return Failed(ClipText(
                QT_TRANSLATE_NOOP("Clipboard", "The clipboard holds neither objects nor a picture.")));
        }
    } catch (const Error& error) {
        return Failed(QString::fromStdString(error.message()));
    }
}

Outcome Clipboard::Duplicate(CanvasModel& model)
{
    return OnSelection(model, [](Canvas& canvas, const std::vector<Object>& selected) {
        const Step one = canvas.step("Duplicate objects");
        const auto count = AddMoved(canvas, canvas.regions_text(selected), MoveAt(canvas));
        return Done(CountText(QT_TRANSLATE_N_NOOP("Clipboard", "Duplicated %n objects"), count));
    });
}

}
