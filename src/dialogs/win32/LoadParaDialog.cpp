#include "dialogs/win32/LoadParaDialog.h"

#include "dialogs/win32/FieldIds.h"
#include "dialogs/win32/NumberText.h"

namespace vostel {

namespace {

// Every number of the record with its key in the file.
template <typename Para, typename Visit>
void ForEachField(Para& para, Visit visit)
{
    visit(L"Width", para.Width);
    visit(L"Height", para.Height);
    visit(L"DataType", para.DataType);
    visit(L"HeaderBytes", para.HeaderBytes);
    visit(L"MapToByte", para.MapToByte);
    visit(L"InLow", para.InLow);
    visit(L"InHigh", para.InHigh);
    visit(L"OutLow", para.OutLow);
    visit(L"OutHigh", para.OutHigh);
}

}

LoadParaDialog::LoadParaDialog(const tagZEKImaLoadPara& start) : ParameterDialog(L"打开原始数据"), Para(start)
{
    AddEditRow(L"宽度", field::Width);
    AddEditRow(L"高度", field::Height);
    AddComboRow(L"数据类型", field::DataType);
    AddEditRow(L"文件头字节数", field::HeaderBytes);
    AddCheckRow(L"映射到8位", field::MapToByte);
    AddEditRow(L"输入下限", field::InLow);
    AddEditRow(L"输入上限", field::InHigh);
    AddEditRow(L"输出下限", field::OutLow);
    AddEditRow(L"输出上限", field::OutHigh);
}

void LoadParaDialog::Recall(const ParameterFile& file)
{
    ForEachField(Para, [&file](const wchar_t* key, auto& number) {
        std::wstring text;
        if (file.Read(key, text))
            ParseNumber(text, number);
    });
}

void LoadParaDialog::Keep(const ParameterFile& file) const
{
    ForEachField(Para,
                 [&file](const wchar_t* key, const auto& number) { file.Write(key, NumberText(number)); });
}

void LoadParaDialog::Fill()
{
    SetText(field::Width, NumberText(Para.Width));
    SetText(field::Height, NumberText(Para.Height));
    // In the order of the data types' numbers.
    SetChoices(field::DataType, {L"16位无符号整数", L"32位浮点数", L"16位有符号整数", L"8位无符号整数"},
               Para.DataType);
    SetText(field::HeaderBytes, NumberText(Para.HeaderBytes));
    SetCheck(field::MapToByte, Para.MapToByte != 0);
    SetText(field::InLow, NumberText(Para.InLow));
    SetText(field::InHigh, NumberText(Para.InHigh));
    SetText(field::OutLow, NumberText(Para.OutLow));
    SetText(field::OutHigh, NumberText(Para.OutHigh));
}

bool LoadParaDialog::Read()
{
    tagZEKImaLoadPara read = Para;
    if (!GetNumber(field::Width, read.Width) || !GetNumber(field::Height, read.Height) ||
        !GetNumber(field::HeaderBytes, read.HeaderBytes) || !GetNumber(field::InLow, read.InLow) ||
        !GetNumber(field::InHigh, read.InHigh) || !GetNumber(field::OutLow, read.OutLow) ||
        !GetNumber(field::OutHigh, read.OutHigh))
        return false;
    read.DataType = GetChoice(field::DataType);
    read.MapToByte = GetCheck(field::MapToByte) ? 1 : 0;
    Para = read;
    return true;
}

}
