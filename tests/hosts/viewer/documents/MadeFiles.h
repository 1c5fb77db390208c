#pragma once

#include <QByteArray>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QTemporaryDir>

#include <cstdint>

// Files that the tests of documents open, in a folder that goes with the test.
class MadeFiles {
public:
    QString Folder() const { return Place.path(); }
    QString Path(const char* name) const { return Place.filePath(QString::fromUtf8(name)); }

    QString Bytes(const char* name, const QByteArray& bytes) const
    {
        const QString path = Path(name);
        QFile         file(path);
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            throw std::runtime_error(name);
        return path;
    }

    // A 16-bit PNG whose pixel (x, y) is first + x + y * width.
    QString Deep(const char* name, int width, int height, int first = 0) const
    {
        QImage image(width, height, QImage::Format_Grayscale16);
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x)
                reinterpret_cast<std::uint16_t*>(image.scanLine(y))[x] =
                    static_cast<std::uint16_t>(first + x + y * width);
        const QString path = Path(name);
        if (!image.save(path))
            throw std::runtime_error(name);
        return path;
    }

private:
    QTemporaryDir Place;
};

inline QByteArray BytesOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}
