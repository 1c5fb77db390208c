#include "documents/FileWriting.h"

#include "documents/FileReasons.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QSaveFile>

namespace vostel::viewer {

QString SavedText(const QString& path)
{
    return QCoreApplication::translate("Files", "Saved %1").arg(QFileInfo(path).fileName());
}

Outcome WriteFile(const QString& path, const std::function<bool(QIODevice&)>& write)
{
    QSaveFile  file(path);
    const auto failed = [&] { return Failed(WhyNotWritten(file.errorString(), path)); };
    if (!file.open(QIODevice::WriteOnly))
        return failed();
    if (!write(file) || !file.flush()) {    // the commit does not look whether the last bytes were taken
        const Outcome outcome = failed();
        file.cancelWriting();
        return outcome;
    }
    return file.commit() ? Done(SavedText(path)) : failed();
}

}
