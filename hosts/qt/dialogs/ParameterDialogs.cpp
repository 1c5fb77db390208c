#include "dialogs/ParameterDialogs.h"

#include "QtText.h"
#include "common/CanvasFacts.h"
#include "dialogs/DialogScope.h"
#include "dialogs/RawLayoutDialog.h"
#include "dialogs/RegionDialog.h"
#include "dialogs/ValueDialog.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

#include <memory>
#include <utility>

using vostel::hosts::IsRawFile;

namespace vostel::widget {

namespace {

std::weak_ptr<int> Installed;    // held by the dialogs, so it expires when a program replaces them

bool AskRawLayout(tagZEKImaLoadPara& para)
{
    if (const DialogScope* const scope = DialogScope::Current(); scope && scope->RawLayout) {
        para = *scope->RawLayout;
        return true;
    }
    RawLayoutDialog dialog(DialogScope::File(), DialogScope::Parent());
    if (dialog.exec() != QDialog::Accepted)
        return false;
    para = dialog.Layout();
    dialog.Remember();
    return true;
}

bool AskRegion(tagZEKImaROIRectPara& para)
{
    RegionDialog dialog(DialogScope::Image(), DialogScope::Parent());
    if (dialog.exec() != QDialog::Accepted)
        return false;
    para = dialog.Region();
    dialog.Remember();
    return true;
}

bool AskValue(tagZEKImaGeneralPara& para, CString& section, CString& file)
{
    ValueDialog dialog(ToQt(section), ToQt(file), DialogScope::Parent());
    if (dialog.exec() != QDialog::Accepted)
        return false;
    para.Value = FromQt(dialog.Value());
    dialog.Remember();
    return true;
}

}

void InstallParameterDialogs()
{
    TessikDialogs dialogs;
    const auto    mark = std::make_shared<int>();
    Installed = mark;
    dialogs.ImaLoadPara = [mark](tagZEKImaLoadPara& para) { return AskRawLayout(para); };
    dialogs.ImaROIRectPara = AskRegion;
    dialogs.ImaGeneralPara = AskValue;
    gDlgSetDialogs(dialogs);
}

bool AskRawLayoutBefore(DialogScope& scope)
{
    const QString path = DialogScope::File();
    if (!IsRawFile(FromQt(path)) || !QFileInfo(path).isFile() || Installed.expired())
        return true;
    tagZEKImaLoadPara layout;
    if (!gDlgGetImaLoadPara(layout))
        return false;
    scope.RawLayout = layout;
    return true;
}

QSettings AnswersIn(const QString& file)
{
    const QDir folder(QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation));
    QString    name = file;
    name.replace(u'\\', u'/');
    return QSettings(folder.filePath(QFileInfo(name).fileName()), QSettings::IniFormat);
}

}
