#include "dialogs/ParameterDialogs.h"

#include "QtText.h"
#include "dialogs/DialogScope.h"
#include "dialogs/RawLayoutDialog.h"
#include "dialogs/RegionDialog.h"
#include "dialogs/ValueDialog.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

#include <utility>

namespace {

bool AskRawLayout(tagZEKImaLoadPara& para)
{
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
    dialogs.ImaLoadPara = AskRawLayout;
    dialogs.ImaROIRectPara = AskRegion;
    dialogs.ImaGeneralPara = AskValue;
    gDlgSetDialogs(dialogs);
}

QSettings AnswersIn(const QString& file)
{
    const QDir folder(QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation));
    QString    name = file;
    name.replace(u'\\', u'/');
    return QSettings(folder.filePath(QFileInfo(name).fileName()), QSettings::IniFormat);
}
