#include <Tessik.h>

#include <doctest/doctest.h>

TEST_CASE("without a desktop each dialog returns false and leaves its record")
{
    gDlgSetDialogs(TessikDialogs());
    tagZEKImaLoadPara layout;
    layout.Width = 5;
    CHECK_FALSE(gDlgGetImaLoadPara(layout));
    CHECK(layout.Width == 5);

    tagZEKImaROIRectPara rectangle;
    rectangle.RoiRight = 6;
    CHECK_FALSE(gDlgGetImaROIRectPara(rectangle));
    CHECK(rectangle.RoiRight == 6);

    tagZEKImaGeneralPara general;
    general.Value = L"kept";
    CString section(L"TextInfo"), file(L"TextInfo.ini");
    CHECK_FALSE(gDlgGetImaGeneralParaV2(general, section, file));
    CHECK(general.Value == L"kept");
}

TEST_CASE("an empty member keeps the library's own dialog, a filled one beside it is used")
{
    TessikDialogs dialogs;
    dialogs.ImaROIRectPara = [](tagZEKImaROIRectPara& para) {
        para.RoiLeft = 9;
        return true;
    };
    gDlgSetDialogs(dialogs);
    tagZEKImaLoadPara    layout;
    tagZEKImaROIRectPara rectangle;
    CHECK_FALSE(gDlgGetImaLoadPara(layout));
    CHECK(gDlgGetImaROIRectPara(rectangle));
    CHECK(rectangle.RoiLeft == 9);

    gDlgSetDialogs(TessikDialogs());
    CHECK_FALSE(gDlgGetImaROIRectPara(rectangle));
}
