// A program that drives the dialogs alone, linked with their library and nothing else.
#include <Tessik.h>

int main()
{
    int           unusedOnPurpose;    // a consumer's own warnings are its own affair
    TessikDialogs dialogs;
    dialogs.ImaROIRectPara = [](tagZEKImaROIRectPara& para) {
        para.RoiRight = 12;
        return true;
    };
    gDlgSetDialogs(dialogs);
    tagZEKImaROIRectPara para;
    const bool           answer = gDlgGetImaROIRectPara(para);
    gDlgSetDialogs(TessikDialogs());
    return answer && para.RoiRight == 12 ? 0 : 1;
}
