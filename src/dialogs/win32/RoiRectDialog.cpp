#include "dialogs/win32/RoiRectDialog.h"

#include "dialogs/win32/FieldIds.h"
#include "dialogs/win32/NumberText.h"

namespace vostel {

namespace {

// Every number of the record with its key in the file and its field.
template <typename Para, typename Visit>
void ForEachField(Para& para, Visit visit)
{
    visit(L"RoiLeft", field::RoiLeft, para.RoiLeft);
    visit(L"RoiRight", field::RoiRight, para.RoiRight);
    visit(L"RoiTop", field::RoiTop, para.RoiTop);
    visit(L"RoiBottom", field::RoiBottom, para.RoiBottom);
}

}

RoiRectDialog::RoiRectDialog(const tagZEKImaROIRectPara& start) : ParameterDialog(L"矩形区域"), Para(start)
{
    AddEditRow(L"左", field::RoiLeft);
    AddEditRow(L"右", field::RoiRight);
    AddEditRow(L"上", field::RoiTop);
    AddEditRow(L"下", field::RoiBottom);
}

void RoiRectDialog::Recall(const ParameterFile& file)
{
    ForEachField(Para, [&file](const wchar_t* key, WORD, std::int32_t& number) {
        std::wstring text;
        if (file.Read(key, text))
            ParseNumber(text, number);
    });
}

void RoiRectDialog::Keep(const ParameterFile& file) const
{
    ForEachField(Para, [&file](const wchar_t* key, WORD, std::int32_t number) {
        file.Write(key, NumberText(number));
    });
}

void RoiRectDialog::Fill()
{
    ForEachField(Para,
                 [this](const wchar_t*, WORD id, std::int32_t number) { SetText(id, NumberText(number)); });
}

bool RoiRectDialog::Read()
{
    tagZEKImaROIRectPara read = Para;
    bool                 parsed = true;
    ForEachField(read, [this, &parsed](const wchar_t*, WORD id, std::int32_t& number) {
        parsed = parsed && GetNumber(id, number);
    });
    if (parsed)
        Para = read;
    return parsed;
}

}
