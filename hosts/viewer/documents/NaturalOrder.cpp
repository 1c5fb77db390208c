#include "documents/NaturalOrder.h"

#include <QStringView>

namespace vostel::viewer {

namespace {

// The digits that begin at a place, without zeros in front.
QStringView NumberAt(const QString& text, qsizetype& at)
{
    while (at < text.size() && text[at] == QLatin1Char('0'))
        ++at;
    const qsizetype first = at;
    while (at < text.size() && text[at].isDigit())
        ++at;
    return QStringView(text).mid(first, at - first);
}

}

bool NaturallyBefore(const QString& a, const QString& b)
{
    qsizetype atA = 0, atB = 0;
    while (atA < a.size() && atB < b.size()) {
        if (a[atA].isDigit() && b[atB].isDigit()) {
            const QStringView one = NumberAt(a, atA), other = NumberAt(b, atB);
            if (one.size() != other.size())
                return one.size() < other.size();
            if (const int order = one.compare(other); order != 0)
                return order < 0;
            continue;
        }
        const QChar one = a[atA++].toCaseFolded(), other = b[atB++].toCaseFolded();
        if (one != other)
            return one < other;
    }
    const bool endsA = atA >= a.size(), endsB = atB >= b.size();
    return endsA == endsB ? a < b : endsA;
}

}
