#include "process/BatchTable.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <utility>

namespace vostel::viewer {

namespace {

// A line may go on behind a line break within quotes.
QList<QByteArray> LinesOf(const QByteArray& table)
{
    QList<QByteArray> lines;
    QByteArray        line;
    bool              isQuoted = false;
    for (const char letter : table) {
        line += letter;
        if (letter == '"')
            isQuoted = !isQuoted;
        if (letter == '\n' && !isQuoted)
            lines.append(std::exchange(line, {}));
    }
    if (!line.isEmpty())
        lines.append(line + '\n');
    return lines;
}

// In quotes where it has to be.
QByteArray Cell(const QString& text, char separator)
{
    QByteArray cell = text.toUtf8();
    if (!cell.contains(separator) && !cell.contains('"') && !cell.contains('\n') && !cell.contains('\r'))
        return cell;
    return '"' + cell.replace("\"", "\"\"") + '"';
}

}

BatchTable::BatchTable(QByteArray format) : Format(std::move(format)) {}

void BatchTable::Add(const QString& file, const QByteArray& table)
{
    if (Format == "json") {
        Rows.append(QJsonObject{
            {QStringLiteral("file"), file},
            {QStringLiteral("measures"), QJsonDocument::fromJson(table).isArray()
                                             ? QJsonValue(QJsonDocument::fromJson(table).array())
                                             : QJsonValue(QJsonDocument::fromJson(table).object())}});
        return;
    }
    const char              separator = Format == "tsv" ? '\t' : ',';
    const QList<QByteArray> lines = LinesOf(table);
    for (qsizetype i = 0; i < lines.size(); ++i)
        if (i > 0)
            Lines += Cell(file, separator) + separator + lines[i];
        else if (Lines.isEmpty())
            Lines += QByteArrayLiteral("file") + separator + lines[i];
}

QByteArray BatchTable::Whole() const
{
    return Format == "json" ? QJsonDocument(Rows).toJson() : Lines;
}

}
