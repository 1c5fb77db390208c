#include "HostServices.h"

#include "CanvasKeys.h"
#include "NameFilters.h"
#include "QtText.h"
#include "dialogs/DialogScope.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QMetaObject>
#include <QSet>
#include <QStringList>
#include <QThread>
#include <QWidget>

#include <vector>

namespace vostel::widget {

namespace {

QSet<QWidget*>& Windows()
{
    static QSet<QWidget*> windows;
    return windows;
}

QWidget* FindWindow(HWND window)
{
    auto* const widget = reinterpret_cast<QWidget*>(window);
    return Windows().contains(widget) ? widget : nullptr;
}

int Painting = 0;

void ShowBox(const QString& text)
{
    QMessageBox box(QMessageBox::NoIcon, QApplication::applicationDisplayName(), text, QMessageBox::Ok,
                    DialogScope::Parent());
    box.exec();
}

void ShowMessage(const CString& text)
{
    const QString shown = ToQt(text);
    if (QThread::currentThread() == qApp->thread() && Painting == 0)
        ShowBox(shown);
    else
        QMetaObject::invokeMethod(
            qApp, [shown] { ShowBox(shown); }, Qt::QueuedConnection);
}

// The one chosen last, at first that of the file in question.
QString& Folder()
{
    static QString folder;
    if (folder.isEmpty()) {
        const QString file = DialogScope::File();
        folder = file.isEmpty() ? QDir::homePath() : QFileInfo(file).absolutePath();
    }
    return folder;
}

bool ChooseFiles(const VostelFileRequest& request, std::vector<CString>& paths)
{
    QFileDialog dialog(DialogScope::Parent());
    dialog.setAcceptMode(request.Save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    dialog.setFileMode(request.Save                           ? QFileDialog::AnyFile
                       : request.Flags & OFN_ALLOWMULTISELECT ? QFileDialog::ExistingFiles
                                                              : QFileDialog::ExistingFile);
    dialog.setOption(QFileDialog::DontConfirmOverwrite, !(request.Flags & OFN_OVERWRITEPROMPT));
    const QStringList filters = NameFilters(ToQt(request.Filter));
    if (!filters.isEmpty())
        dialog.setNameFilters(filters);
    const QString extension = ToQt(request.DefaultExtension);
    if (!extension.contains(u'*'))
        dialog.setDefaultSuffix(extension);
    // The person who picks another kind of file gets its extension.
    QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog, [&dialog](const QString& filter) {
        const QString suffix = filter.section(u'.', -1).section(u')', 0, 0);
        if (filter.contains(u'.') && !suffix.contains(u'*'))
            dialog.setDefaultSuffix(suffix);
    });
    dialog.setDirectory(Folder());
    if (!request.DefaultName.IsEmpty())
        dialog.selectFile(ToQt(request.DefaultName));
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return false;
    Folder() = dialog.directory().absolutePath();
    paths.clear();
    const QStringList chosen = dialog.selectedFiles();
    for (const QString& file : chosen)
        paths.push_back(FromQt(file));
    return true;
}

bool ChooseFolder(const CString& title, CString& folder)
{
    const QString chosen = QFileDialog::getExistingDirectory(DialogScope::Parent(), ToQt(title), Folder());
    if (chosen.isEmpty())
        return false;
    Folder() = chosen;
    folder = FromQt(chosen);
    return true;
}

}

void InstallHostServices()
{
    VostelHostServices services;
    services.ShowMessage = ShowMessage;
    services.ChooseFiles = ChooseFiles;
    services.ChooseFolder = ChooseFolder;
    services.IsKeyDown = IsKeyHeld;
    services.InvalidateWindow = [](HWND window) {
        if (QWidget* const widget = FindWindow(window))
            widget->update();
    };
    services.ScreenToWindow = [](HWND window, POINT screen) {
        if (QWidget* const widget = FindWindow(window)) {
            const double  ratio = widget->devicePixelRatioF();
            const QPointF at = widget->mapFromGlobal(QPointF(screen.x / ratio, screen.y / ratio)) * ratio;
            screen.x = qFloor(at.x());
            screen.y = qFloor(at.y());
        }
        return screen;
    };
    gSetHostServices(services);
}

HWND WindowHandle(const QWidget* widget)
{
    return reinterpret_cast<HWND>(const_cast<QWidget*>(widget));
}

void RememberWindow(QWidget* widget)
{
    Windows().insert(widget);
}

void ForgetWindow(QWidget* widget)
{
    Windows().remove(widget);
}

PaintScope::PaintScope()
{
    ++Painting;
}

PaintScope::~PaintScope()
{
    --Painting;
}

}
