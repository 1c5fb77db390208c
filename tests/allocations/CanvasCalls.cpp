#include "allocations/ClassicCalls.h"

namespace {

using W = ClassicWorld;

const CString Text = L"a text that is longer than a short one";

// With the answer to the dialog that asks for a name.
template <void (*Operation)(int)>
void Save(W&)
{
    Operation(0);
}

template <void (*Operation)(int)>
void Draw(W& w)
{
    Operation(0);
    w.Host.Drag(CPoint(20, 20), CPoint(40, 30), MK_LBUTTON | MK_SHIFT);
    w.Host.Drag(CPoint(40, 10), CPoint(50, 40), MK_LBUTTON | MK_SHIFT);
    w.Host.Paint();
}

void AddMeasureLine(int canvas)
{
    gCVSAddMeasureLine(canvas, 1.0);
}

template <auto Get>
void Ask(W&)
{
    Get(0);
}

}

const std::map<std::string, ClassicCall>& CanvasCalls()
{
    static const std::map<std::string, ClassicCall> calls = {
        {"gCVSAddCustomRectangle(int)", Draw<gCVSAddCustomRectangle>},
        {"gCVSAddDoubleLine(int)", Draw<gCVSAddDoubleLine>},
        {"gCVSAddFreeRegion(int)", Draw<gCVSAddFreeRegion>},
        {"gCVSAddFreeStroke(int)", Draw<gCVSAddFreeStroke>},
        {"gCVSAddInfoWin(int)", Draw<gCVSAddInfoWin>},
        {"gCVSAddLineProfile(int)", Draw<gCVSAddLineProfile>},
        {"gCVSAddMRectangle(int)", Draw<gCVSAddMRectangle>},
        {"gCVSAddMeasureAngle3Pts(int)", Draw<gCVSAddMeasureAngle3Pts>},
        {"gCVSAddMeasureAngle4Pts(int)", Draw<gCVSAddMeasureAngle4Pts>},
        {"gCVSAddMeasureLine(int, double)", Draw<AddMeasureLine>},
        {"gCVSAddNeighborPV(int)", Draw<gCVSAddNeighborPV>},
        {"gCVSAddPoly(int)", Draw<gCVSAddPoly>},
        {"gCVSAddSpline(int)", Draw<gCVSAddSpline>},
        {"gCVSAddTextML(int, std::vector<CString, std::allocator<CString> >&, int, int)",
         [](W& w) { gCVSAddTextML(0, w.Lines, 5, 5); }},
        {"gCVSAddTextOL(int)", Draw<gCVSAddTextOL>},
        {"gCVSAddTextOL(int, CString, int, int, FontType, int, unsigned long, int)",
         [](W&) { gCVSAddTextOL(0, Text, 5, 5, FontCustom, TRANSPARENT, 0xFF, 20); }},
        {"gCVSAddTextOLV2(int, CString, int, int, FontType, int, unsigned long, int)",
         [](W&) { gCVSAddTextOLV2(0, Text, 5, 5, FontCustom, TRANSPARENT, 0xFF, 20); }},
        {"gCVSCreateCanvasPixelPtr2D(int)", Ask<gCVSCreateCanvasPixelPtr2D>},
        {"gCVSCreateClientPixelPtr2D(int)", Ask<gCVSCreateClientPixelPtr2D>},
        {"gCVSDelAllElement(int)", Ask<gCVSDelAllElement>},
        {"gCVSDelSelElement(int)", Ask<gCVSDelSelElement>},
        {"gCVSGenerateLabel(int, bool)", [](W&) { gCVSGenerateLabel(0, false); }},
        {"gCVSGetCanvasHDC(int)", Ask<gCVSGetCanvasHDC>},
        {"gCVSGetCanvasHeight(int)", Ask<gCVSGetCanvasHeight>},
        {"gCVSGetCanvasPixelPtr(int)", Ask<gCVSGetCanvasPixelPtr>},
        {"gCVSGetCanvasRegion(int)", Ask<gCVSGetCanvasRegion>},
        {"gCVSGetCanvasWidth(int)", Ask<gCVSGetCanvasWidth>},
        {"gCVSGetClientHeight(int)", Ask<gCVSGetClientHeight>},
        {"gCVSGetClientMemDC(int)", Ask<gCVSGetClientMemDC>},
        {"gCVSGetClientPixelPtr(int)", Ask<gCVSGetClientPixelPtr>},
        {"gCVSGetClientWidth(int)", Ask<gCVSGetClientWidth>},
        {"gCVSGetDisplayPt(int, PointTemplateBase<double>, CPoint&)",
         [](W&) {
             CPoint point;
             gCVSGetDisplayPt(0, PointTemplateBase<double>(), point);
         }},
        {"gCVSGetDisplayPt(int, double, double, CPoint&)",
         [](W&) {
             CPoint point;
             gCVSGetDisplayPt(0, 3.0, 4.0, point);
         }},
        {"gCVSGetFileType(int)", Ask<gCVSGetFileType>},
        {"gCVSGetImaPixelValue(int, CPoint)", [](W&) { gCVSGetImaPixelValue(0, CPoint(20, 20)); }},
        {"gCVSGetLabelIma(int)", Ask<gCVSGetLabelIma>},
        {"gCVSGetLabelImaPtr1D(int)", Ask<gCVSGetLabelImaPtr1D>},
        {"gCVSGetLabelImaPtr2D(int)", Ask<gCVSGetLabelImaPtr2D>},
        {"gCVSGetOriPt(int, CPoint, PointTemplateBase<double>&)",
         [](W&) {
             PointTemplateBase<double> point;
             gCVSGetOriPt(0, CPoint(20, 20), point);
         }},
        {"gCVSGetOriPt(int, CPoint, double&, double&)",
         [](W&) {
             double x = 0.0, y = 0.0;
             gCVSGetOriPt(0, CPoint(20, 20), x, y);
         }},
        {"gCVSGetRaw(int)", Ask<gCVSGetRaw>},
        {"gCVSGetRawOri(int)", Ask<gCVSGetRawOri>},
        {"gCVSGetRawOriPtr1D(int)", Ask<gCVSGetRawOriPtr1D>},
        {"gCVSGetRawOriPtr2D(int)", Ask<gCVSGetRawOriPtr2D>},
        {"gCVSGetRawPtr1D(int)", Ask<gCVSGetRawPtr1D>},
        {"gCVSGetRawPtr2D(int)", Ask<gCVSGetRawPtr2D>},
        {"gCVSGetTextRectOL(int, CString, int, int, FontType, int, unsigned long, int)",
         [](W&) { gCVSGetTextRectOL(0, Text, 5, 5, FontCustom, TRANSPARENT, 0xFF, 20); }},
        {"gCVSOnDraw(int, HDC__*)", [](W&) { gCVSOnDraw(0, nullptr); }},
        {"gCVSOnKeyDown(int, unsigned int, unsigned int, unsigned int)",
         [](W& w) {
             w.Host.Desktop.KeysDown = {'C'};
             gCVSOnKeyDown(0, 'C', 1, 0);
         }},
        {"gCVSOnLButtonDown(int, unsigned int, CPoint)",
         [](W&) {
             gCVSAddPoly(0);
             gCVSOnLButtonDown(0, MK_LBUTTON | MK_SHIFT, CPoint(20, 20));
         }},
        {"gCVSOnLButtonUp(int, unsigned int, CPoint)", [](W&) { gCVSOnLButtonUp(0, 0, CPoint(20, 20)); }},
        {"gCVSOnMouseMove(int, unsigned int, CPoint)",
         [](W&) { gCVSOnMouseMove(0, MK_LBUTTON | MK_SHIFT, CPoint(25, 20)); }},
        {"gCVSOnMouseWheel(int, unsigned int, short, CPoint)",
         [](W& w) {
             w.Host.Wheel(20, 20, 1);
             w.Host.Wheel(20, 20, -1);
             w.Host.Paint();
         }},
        {"gCVSOnTimer(int, unsigned long long)", [](W&) { gCVSOnTimer(0, 1); }},
        {"gCVSPrepareCanvas(int, int, int)", [](W&) { gCVSPrepareCanvas(0, 30, 20); }},
        {"gCVSReadFile(int, CString&, bool)",
         [](W& w) {
             for (const char* name : {"a.png", "a.raw"}) {
                 CString path = w.WidePath(name);
                 gCVSReadFile(0, path, true);
             }
         }},
        {"gCVSReleaseCanvasPixelPtr2D(int)", Ask<gCVSReleaseCanvasPixelPtr2D>},
        {"gCVSReleaseClientPixelPtr2D(int)", Ask<gCVSReleaseClientPixelPtr2D>},
        {"gCVSRespondToMessage(MSG*, int)",
         [](W&) {
             MSG message = {};
             message.message = WM_MOUSEMOVE;
             gCVSRespondToMessage(&message, 0);
         }},
        {"gCVSSave8bit(int)", Save<gCVSSave8bit>},
        {"gCVSSaveClient(int)", Save<gCVSSaveClient>},
        {"gCVSSaveImaWithOverlap(int)", Save<gCVSSaveImaWithOverlap>},
        {"gCVSSaveLabel(int)", Save<gCVSSaveLabel>},
        {"gCVSSaveNowShowIma(int)", Save<gCVSSaveNowShowIma>},
        {"gCVSSaveRaw(int)", Save<gCVSSaveRaw>},
        {"gCVSSetCanvasColor(int, unsigned int)", [](W&) { gCVSSetCanvasColor(0, 0x123456); }},
        {"gCVSSetCanvasFastDisplayMode(int, bool)",
         [](W& w) {
             gCVSSetCanvasFastDisplayMode(0, false);
             w.Host.Paint();
         }},
        {"gCVSSetCanvasMoveMode(int, DisplayMode)", [](W&) { gCVSSetCanvasMoveMode(0, DisplayZoomCentre); }},
        {"gCVSSetClient(int, CRect&, HDC__*)", [](W& w) { w.Host.SetClient(50, 40); }},
        {"gCVSSetContrastCtrlRectPos(int, int, int, int, int)",
         [](W&) { gCVSSetContrastCtrlRectPos(0, 0, 0, 40, 20); }},
        {"gCVSSetFileType(int, FileType)", [](W&) { gCVSSetFileType(0, FileTypeByte); }},
        {"gCVSSetLutPara(int, float, float)", [](W&) { gCVSSetLutPara(0, 0.2f, 0.7f); }},
        {"gCVSSetMeasureScale(int)", [](W&) { gCVSSetMeasureScale(0); }},
        {"gCVSSetMeasureScale(int, double)",
         [](W& w) {
             gCVSSetMeasureScale(0, 0.5);
             w.Host.Paint();
         }},
        {"gCVSSetPos(int, int)", [](W&) { gCVSSetPos(0, 120); }},
        {"gCVSSetProgressRectPos(int, int, int, int, int)",
         [](W&) { gCVSSetProgressRectPos(0, 0, 0, 40, 20); }},
        {"gCVSSetRange(int, int, int)", [](W&) { gCVSSetRange(0, 10, 20); }},
        {"gCVSSetUseClientMemDCPixelDirect(int, bool)",
         [](W&) { gCVSSetUseClientMemDCPixelDirect(0, true); }},
        {"gCVSShowContrastCtrl(int, bool)",
         [](W& w) {
             gCVSShowContrastCtrl(0, true);
             w.Host.Paint();
         }},
        {"gCVSShowProgress(int, bool)",
         [](W& w) {
             gCVSShowProgress(0, true);
             w.Host.Paint();
         }},
        {"gCVSShowRawFloat(int, ClassData2DIO<float>&, bool, bool)",
         [](W& w) { gCVSShowRawFloat(0, w.Floats, true, true); }},
        {"gCVSShowRawFloat(int, float*, int, int, bool, bool)",
         [](W& w) { gCVSShowRawFloat(0, w.Floats.Ptr1D, 20, 10, true, false); }},
        {"gCVSShowUCColor(int, ClassData2DIO<unsigned char>&, ClassData2DIO<unsigned char>&, "
         "ClassData2DIO<unsigned char>&, bool)",
         [](W& w) { gCVSShowUCColor(0, w.Bytes, w.Bytes, w.Bytes, true); }},
        {"gCVSShowUCColor(int, unsigned char*, unsigned char*, unsigned char*, int, int, bool)",
         [](W& w) { gCVSShowUCColor(0, w.Bytes.Ptr1D, w.Bytes.Ptr1D, w.Bytes.Ptr1D, 10, 9, false); }},
        {"gCVSShowUCGray(int, ClassData2DIO<unsigned char>&, bool)",
         [](W& w) { gCVSShowUCGray(0, w.Bytes, true); }},
        {"gCVSShowUCGray(int, unsigned char*, int, int, bool)",
         [](W& w) { gCVSShowUCGray(0, w.Bytes.Ptr1D, 10, 9, false); }},
    };
    return calls;
}
