#include "vostel/CanvasElements.h"

#include "canvas/exports/CanvasTable.h"
#include "instruments/VostelImaInfo.h"
#include "instruments/VostelLineProfile.h"
#include "instruments/VostelMeasureAngle3Pts.h"
#include "instruments/VostelMeasureAngle4Pts.h"
#include "instruments/VostelMeasureLine.h"
#include "instruments/VostelNeighborV.h"
#include "instruments/VostelTextRect.h"
#include "overlay/VostelCrayonMStroke.h"
#include "overlay/VostelCrayonOneStroke.h"
#include "overlay/VostelCustomRect.h"
#include "overlay/VostelSpline.h"
#include "vostel/Tessik.h"

#include <cwchar>
#include <memory>
#include <utility>

using namespace vostel;

namespace {

template <typename Shape>
void AddShape(int number)
{
    if (const CanvasCall canvas{number})
        canvas->Append(std::make_unique<Shape>());
}

// Objects that read pixel values and follow the mouse.
template <typename ReadOut>
void AddReadOut(int number)
{
    const CanvasCall canvas(number);
    if (!canvas)
        return;
    auto readOut = std::make_unique<ReadOut>();
    readOut->SetCanvasView(&canvas->View);
    readOut->SetPlacement(30.0f, 30.0f, 512.0f, 150.0f);
    readOut->SetOwnerImage(&*canvas);
    canvas->Append(std::move(readOut));
}

void SetStyle(VostelTextRect& text, FontType font, int bkMode, unsigned long color, int height)
{
    text.StyleBkMode = bkMode;
    text.StyleColor = static_cast<COLORREF>(color);
    text.StyleHeight = height;
    text.StyleFontType = font;
}

// A text box with view and context, so that it can be measured at once.
VostelTextRect& AppendTextRect(VostelImage& canvas)
{
    auto            owned = std::make_unique<VostelTextRect>();
    VostelTextRect& text = *owned;
    canvas.Append(std::move(owned));
    text.SetCanvasView(&canvas.View);
    text.Kit.Dc = canvas.ClientMemDC;
    return text;
}

void AddText(VostelImage& canvas, CString& text, CPoint at, FontType font, int bkMode, unsigned long color,
             int height)
{
    VostelTextRect& box = AppendTextRect(canvas);
    SetStyle(box, font, bkMode, color, height);
    box.SetTextAt(text, at);
}

}

void gCVSDelAllElement(int canvas)
{
    if (const CanvasCall image{canvas})
        image->DeleteAll();
}

void gCVSDelSelElement(int canvas)
{
    if (const CanvasCall image{canvas})
        image->DeleteSelected();
}

void gCVSAddMRectangle(int canvas)
{
    AddShape<VostelRect>(canvas);
}

void gCVSAddCustomRectangle(int canvas)
{
    const CanvasCall image(canvas);
    if (!image)
        return;
    tagZEKImaROIRectPara para;
    if (!gDlgGetImaROIRectPara(para))
        return;
    auto rect = std::make_unique<VostelCustomRect>();
    rect->SetPlacement(static_cast<float>(para.RoiLeft), static_cast<float>(para.RoiTop),
                       static_cast<float>(static_cast<long long>(para.RoiRight) - para.RoiLeft),
                       static_cast<float>(static_cast<long long>(para.RoiBottom) - para.RoiTop));
    image->Append(std::move(rect));
}

void gCVSAddPoly(int canvas)
{
    AddShape<VostelPolygon>(canvas);
}

void gCVSAddSpline(int canvas)
{
    AddShape<VostelSpline>(canvas);
}

void gCVSAddFreeRegion(int canvas)
{
    AddShape<VostelCrayonOneStroke>(canvas);
}

void gCVSAddFreeStroke(int canvas)
{
    AddShape<VostelCrayonMStroke>(canvas);
}

void gCVSAddTextOL(int canvas)
{
    const CanvasCall image(canvas);
    if (!image)
        return;
    tagZEKImaGeneralPara record;
    CString              section = L"TextInfo";
    CString              file = L"TextInfo.ini";
    if (!gDlgGetImaGeneralParaV2(record, section, file))
        return;
    VostelTextRect& box = AppendTextRect(*image);
    box.StyleFontType = FontRed22Framed;
    box.SetTextAt(record.Value, CPoint(200, 200));
}

void gCVSAddTextOL(int canvas, CString text, int x, int y, FontType font, int bkMode, unsigned long color,
                   int height)
{
    if (const CanvasCall image{canvas})
        AddText(*image, text, CPoint(x, y), font, bkMode, color, height);
}

void gCVSAddTextOLV2(int canvas, CString text, int x, int y, FontType font, int bkMode, unsigned long color,
                     int height)
{
    if (const CanvasCall image{canvas})
        AddText(*image, text, image->View.ImageToClient(PointTemplateBase<double>(x, y)), font, bkMode, color,
                height);
}

CRect gCVSGetTextRectOL(int canvas, CString text, int, int, FontType font, int bkMode, unsigned long color,
                        int height)
{
    const CanvasCall image(canvas);
    if (!image)
        return CRect();
    VostelTextRect probe;
    // The selection moves to the last object when a text's size is asked for; hosts count on it.
    image->SelIndex = static_cast<int>(image->Elements.size()) - 1;
    probe.SetCanvasView(&image->View);
    probe.Kit.Dc = image->ClientMemDC;
    SetStyle(probe, font, bkMode, color, height);
    return probe.MeasureText(text);
}

void gCVSAddTextML(int canvas, std::vector<CString>& lines, int x, int y)
{
    const CanvasCall image(canvas);
    if (!image)
        return;
    auto panel = std::make_unique<VostelTextML>();
    panel->SetCanvasView(&image->View);
    panel->SetPlacement(static_cast<float>(x), static_cast<float>(y), 0.0f, 0.0f);
    panel->SetTextLines(lines);
    image->Append(std::move(panel));
}

void gCVSAddMeasureLine(int canvas, double)
{
    const CanvasCall image(canvas);
    if (!image)
        return;
    auto line = std::make_unique<VostelMeasureLine>();
    line->MeasureScale = image->MeasureScale;
    image->Append(std::move(line)).Selected = false;    // the one object that starts unselected
}

void gCVSAddMeasureAngle3Pts(int canvas)
{
    AddShape<VostelMeasureAngle3Pts>(canvas);
}

void gCVSAddMeasureAngle4Pts(int canvas)
{
    AddShape<VostelMeasureAngle4Pts>(canvas);
}

void gCVSSetMeasureScale(int canvas, double scale)
{
    if (const CanvasCall image{canvas})
        image->MeasureScale = scale;
}

void gCVSSetMeasureScale(int canvas)
{
    const CanvasCall image(canvas);
    if (!image)
        return;
    tagZEKImaGeneralPara record;
    CString              section = L"MeasureScaleInfo";
    CString              file = L"MeasureScale.ini";
    if (gDlgGetImaGeneralParaV2(record, section, file))
        image->MeasureScale = std::wcstod(record.Value, nullptr);    // 0 if the text is not a number
}

void gCVSAddInfoWin(int canvas)
{
    AddReadOut<VostelImaInfo>(canvas);
}

void gCVSAddLineProfile(int canvas)
{
    AddReadOut<VostelLineProfile>(canvas);
}

void gCVSAddNeighborPV(int canvas)
{
    AddReadOut<VostelNeighborV>(canvas);
}

void gCVSAddDoubleLine(int) {}
