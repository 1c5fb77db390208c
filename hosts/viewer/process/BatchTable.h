#pragma once

#include <QByteArray>
#include <QJsonArray>
#include <QString>

namespace vostel::viewer {

// The tables of vostel_table() of many pictures as one, with the name of the file before each row.
class BatchTable {
public:
    explicit BatchTable(QByteArray format);    // "csv", "tsv" or "json"

    void       Add(const QString& file, const QByteArray& table);
    QByteArray Whole() const;

private:
    QByteArray Format;
    QByteArray Lines;
    QJsonArray Rows;
};

}
