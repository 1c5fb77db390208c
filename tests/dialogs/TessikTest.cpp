#include <Tessik.h>

#include <cstddef>

#include <doctest/doctest.h>

namespace {
// Brings the library's own dialogs back, whatever the case did.
struct OwnDialogsAgain {
    ~OwnDialogsAgain() { gDlgSetDialogs(TessikDialogs()); }
};
}

TEST_CASE("the raw layout record is 40 bytes with its fields at fixed offsets")
{
    CHECK(sizeof(tagZEKImaLoadPara) == 40);
    CHECK(offsetof(tagZEKImaLoadPara, Width) == 0);
    CHECK(offsetof(tagZEKImaLoadPara, Height) == 4);
    CHECK(offsetof(tagZEKImaLoadPara, DataType) == 8);
    CHECK(offsetof(tagZEKImaLoadPara, HeaderBytes) == 16);
    CHECK(offsetof(tagZEKImaLoadPara, MapToByte) == 20);
    CHECK(offsetof(tagZEKImaLoadPara, InLow) == 24);
    CHECK(offsetof(tagZEKImaLoadPara, InHigh) == 28);
    CHECK(offsetof(tagZEKImaLoadPara, OutLow) == 32);
    CHECK(offsetof(tagZEKImaLoadPara, OutHigh) == 36);
}

TEST_CASE("the rectangle record starts with left, right, top and bottom")
{
    CHECK(sizeof(tagZEKImaROIRectPara) >= 16);
    CHECK(offsetof(tagZEKImaROIRectPara, RoiLeft) == 0);
    CHECK(offsetof(tagZEKImaROIRectPara, RoiRight) == 4);
    CHECK(offsetof(tagZEKImaROIRectPara, RoiTop) == 8);
    CHECK(offsetof(tagZEKImaROIRectPara, RoiBottom) == 12);
}

TEST_CASE("the text is first in the general record")
{
    CHECK(offsetof(tagZEKImaGeneralPara, Value) == 0);
}

TEST_CASE("a replaced layout dialog fills the caller's record and its result is passed on")
{
    const OwnDialogsAgain again;
    TessikDialogs         dialogs;
    bool                  result = true;
    dialogs.ImaLoadPara = [&result](tagZEKImaLoadPara& para) {
        para.Width += 640;
        para.OutHigh = 255.0f;
        return result;
    };
    dialogs.ImaROIRectPara = [](tagZEKImaROIRectPara&) { return false; };
    gDlgSetDialogs(dialogs);

    tagZEKImaLoadPara para;
    para.Width = 2;
    CHECK(gDlgGetImaLoadPara(para));
    CHECK(para.Width == 642);
    CHECK(para.OutHigh == 255.0f);
    result = false;
    CHECK_FALSE(gDlgGetImaLoadPara(para));
    CHECK(para.Width == 1282);
}

TEST_CASE("a replaced rectangle dialog fills the caller's record and its result is passed on")
{
    const OwnDialogsAgain again;
    TessikDialogs         dialogs;
    bool                  result = true;
    dialogs.ImaROIRectPara = [&result](tagZEKImaROIRectPara& para) {
        para = {1, 30, 2, 40};
        return result;
    };
    gDlgSetDialogs(dialogs);

    tagZEKImaROIRectPara para;
    CHECK(gDlgGetImaROIRectPara(para));
    CHECK(para.RoiLeft == 1);
    CHECK(para.RoiRight == 30);
    CHECK(para.RoiTop == 2);
    CHECK(para.RoiBottom == 40);
    result = false;
    CHECK_FALSE(gDlgGetImaROIRectPara(para));
}

TEST_CASE("a replaced text dialog sees the section and the file and its result is passed on")
{
    const OwnDialogsAgain again;
    TessikDialogs         dialogs;
    bool                  result = true;
    CString               seen;
    dialogs.ImaGeneralPara = [&](tagZEKImaGeneralPara& para, CString& section, CString& file) {
        seen = section + L"|" + file;
        para.Value = L"0.25 毫米";
        return result;
    };
    gDlgSetDialogs(dialogs);

    tagZEKImaGeneralPara para;
    CString              section(L"TextInfo"), file(L"TextInfo.ini");
    CHECK(gDlgGetImaGeneralParaV2(para, section, file));
    CHECK(seen == L"TextInfo|TextInfo.ini");
    CHECK(para.Value == L"0.25 毫米");
    result = false;
    CHECK_FALSE(gDlgGetImaGeneralParaV2(para, section, file));
}

TEST_CASE("the record of replacements is copied")
{
    const OwnDialogsAgain again;
    TessikDialogs         dialogs;
    dialogs.ImaLoadPara = [](tagZEKImaLoadPara& para) {
        para.Width = 7;
        return true;
    };
    gDlgSetDialogs(dialogs);
    dialogs.ImaLoadPara = [](tagZEKImaLoadPara&) { return false; };

    tagZEKImaLoadPara para;
    CHECK(gDlgGetImaLoadPara(para));
    CHECK(para.Width == 7);
}

TEST_CASE("a replacement may install another one while it runs")
{
    const OwnDialogsAgain again;
    TessikDialogs         first, second;
    second.ImaLoadPara = [](tagZEKImaLoadPara& para) {
        para.Width = 2;
        return true;
    };
    const CString kept(L"still here after the record that held it is gone");
    first.ImaLoadPara = [&second, kept](tagZEKImaLoadPara& para) {
        gDlgSetDialogs(second);
        para.Width = kept.GetLength();
        return true;
    };
    gDlgSetDialogs(first);

    tagZEKImaLoadPara para;
    CHECK(gDlgGetImaLoadPara(para));
    CHECK(para.Width == kept.GetLength());
    CHECK(gDlgGetImaLoadPara(para));
    CHECK(para.Width == 2);
}
