#include "dialogs/win32/GeneralParaDialog.h"

#include "dialogs/win32/FieldIds.h"

GeneralParaDialog::GeneralParaDialog(const wchar_t* name, const std::wstring& start)
    : ParameterDialog(L"参数输入"), Value(start)
{
    AddEditRow(name, field::Value);
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
