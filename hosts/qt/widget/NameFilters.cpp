#include "NameFilters.h"

#include <QRegularExpression>

namespace vostel::widget {

QStringList NameFilters(const QString& filter)
{
    const QStringList parts = filter.split(u'|', Qt::SkipEmptyParts);
    QStringList       filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        QString patterns = parts[i + 1];
        patterns.replace(u';', u' ').replace(QStringLiteral("*.*"), QStringLiteral("*"));
        static const QRegularExpression inBrackets(QStringLiteral("\\([^)]*\\)"));
        QString                         text = parts[i];
        text = text.remove(inBrackets).trimmed();
        if (text.isEmpty())
            text = patterns.section(u'.', -1).toUpper();
        filters << QStringLiteral("%1 (%2)").arg(text, patterns);
    }
    return filters;
}

}
