#include "canvas/StepNames.h"

#include <QCoreApplication>
#include <vostel.hpp>

namespace vostel::viewer {

namespace {

constexpr const char* Actions[] = {
    QT_TRANSLATE_NOOP("Steps", "Add %1"),      QT_TRANSLATE_NOOP("Steps", "Remove %1"),
    QT_TRANSLATE_NOOP("Steps", "Change %1"),   QT_TRANSLATE_NOOP("Steps", "Move %1"),
    QT_TRANSLATE_NOOP("Steps", "Cut %1"),      QT_TRANSLATE_NOOP("Steps", "Paste %1"),
    QT_TRANSLATE_NOOP("Steps", "Duplicate %1")};
constexpr const char* Things[] = {
    QT_TRANSLATE_NOOP("Steps", "rectangle"),   QT_TRANSLATE_NOOP("Steps", "ellipse"),
    QT_TRANSLATE_NOOP("Steps", "polygon"),     QT_TRANSLATE_NOOP("Steps", "spline"),
    QT_TRANSLATE_NOOP("Steps", "free region"), QT_TRANSLATE_NOOP("Steps", "text"),
    QT_TRANSLATE_NOOP("Steps", "strokes"),     QT_TRANSLATE_NOOP("Steps", "length"),
    QT_TRANSLATE_NOOP("Steps", "angle"),       QT_TRANSLATE_NOOP("Steps", "panel"),
    QT_TRANSLATE_NOOP("Steps", "profile"),     QT_TRANSLATE_NOOP("Steps", "points"),
    QT_TRANSLATE_NOOP("Steps", "polyline"),    QT_TRANSLATE_NOOP("Steps", "arrow"),
    QT_TRANSLATE_NOOP("Steps", "object"),      QT_TRANSLATE_NOOP("Steps", "objects"),
    QT_TRANSLATE_NOOP("Steps", "contrast"),    QT_TRANSLATE_NOOP("Steps", "order"),
    QT_TRANSLATE_NOOP("Steps", "node"),        QT_TRANSLATE_NOOP("Steps", "mark"),
    QT_TRANSLATE_NOOP("Steps", "scale"),       QT_TRANSLATE_NOOP("Steps", "name"),
    QT_TRANSLATE_NOOP("Steps", "style")};

QString Translated(const char* english)
{
    return QCoreApplication::translate("Steps", english);
}

QString NameOf(int canvas, int step)
{
    std::string name(256, '\0');
    std::size_t length = 0;
    if (vostel_history_name(canvas, step, name.data(), name.size(), &length) != VOSTEL_OK)
        return {};
    name.resize(length);
    return StepName(name);
}

}

QString StepName(const std::string& english)
{
    const QString name = QString::fromStdString(english);
    for (const char* const action : Actions) {
        const QString verb = QString::fromLatin1(action).section(QLatin1Char('%'), 0, 0);
        if (!name.startsWith(verb))
            continue;
        const QString thing = name.mid(verb.size());
        for (const char* const known : Things)
            if (thing == QLatin1String(known))
                return Translated(action).arg(Translated(known));
    }
    return Translated(english.c_str());
}

QString UndoName(int canvas)
{
    return NameOf(canvas, -1);
}

QString RedoName(int canvas)
{
    return NameOf(canvas, 1);
}

}
