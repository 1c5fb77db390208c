#include "dialogs/win32/GeneralParaDialog.h"

#include "dialogs/win32/FieldIds.h"

namespace vostel {

namespace {

// What the field asks for, for the sections that the canvases use; others stand for themselves.
const wchar_t* CaptionOf(const std::wstring& section)
{
    if (section == L"TextInfo")
        return L"文字";
    if (section == L"MeasureScaleInfo")
        return L"每像素的长度";
    return section.c_str();
}

}

GeneralParaDialog::GeneralParaDialog(const std::wstring& section, const std::wstring& start)
    : ParameterDialog(L"参数输入"), Value(start)
{
    AddEditRow(CaptionOf(section), field::Value);
}

void GeneralParaDialog::Fill()
{
    SetText(field::Value, Value);
}

bool GeneralParaDialog::Read()
{
    Value = GetText(field::Value);
    return true;
}

}
