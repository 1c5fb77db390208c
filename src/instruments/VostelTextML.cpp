#include "instruments/VostelTextML.h"

#include "base/Truncate.h"
#include "instruments/TextExtent.h"
#include "overlay/StateArchive.h"

#include <algorithm>

namespace vostel {

namespace {

constexpr int TextHeight = 20;

}

VostelTextML::VostelTextML()
{
    TypeCode = OverlayPanel;
}

void VostelTextML::OnDraw(HDC dc)
{
    BindKit(dc);
    const int lineHeight = FitToLines();
    const int margin = Scaled(Margin);
    SetBkMode(dc, TRANSPARENT);
    int top = WrapAdd(ClientBox.top, margin);
    for (const CString& line : Lines) {
        CRect place(WrapAdd(ClientBox.left, margin), top, WrapSub(ClientBox.right, margin),
                    WrapAdd(top, WrapAdd(margin, lineHeight)));
        DrawTextW(dc, line, line.GetLength(), &place, DT_CENTER | DT_SINGLELINE);
        top = WrapAdd(top, WrapAdd(margin, lineHeight));
    }
}

void VostelTextML::DerivePainted()
{
    const MeasuringContext context(Kit);
    FitToLines();
}

// The line measured last gives the height: the lines are taken to be of equal height.
int VostelTextML::FitToLines()
{
    Kit.TextBoxBack = Kit.BkMode == OPAQUE;
    Kit.SelectTextStyle(Scaled(StyleHeight > 0 ? StyleHeight : TextHeight), Kit.BkMode, Red);
    if (Lines.empty())
        return 0;
    int       widest = 0;
    int       lineHeight = 0;
    const int margin = Scaled(Margin);
    int       total = margin;
    for (const CString& line : Lines) {
        const CRect extent = TextExtent(Kit.Dc, line);
        widest = std::max(widest, extent.Width());
        lineHeight = extent.Height();
        total = WrapAdd(total, WrapAdd(margin, lineHeight));
    }
    ClientBox.right = WrapAdd(ClientBox.left, WrapAdd(widest, 2 * margin));
    ClientBox.bottom = WrapAdd(ClientBox.top, total);
    return lineHeight;
}

void VostelTextML::SetTextLines(std::vector<CString>& lines)
{
    Lines = lines;
}

void VostelTextML::AddTextLine(CString line)
{
    Lines.push_back(line);
}

void VostelTextML::ClearLines()
{
    Lines.clear();
}

CString VostelTextML::CaptionText() const
{
    CString text;
    for (std::size_t i = 0; i < Lines.size(); ++i) {
        if (i > 0)
            text.AppendChar(L'\n');
        text.Append(Lines[i]);
    }
    return text;
}

bool VostelTextML::TakeText(const CString& text)
{
    Lines.clear();
    for (int start = 0; start <= text.GetLength();) {
        const int found = text.Find(L'\n', start);
        const int end = found == -1 ? text.GetLength() : found;
        Lines.push_back(text.Mid(start, end - start));
        start = end + 1;
    }
    DerivePainted();
    return true;
}

void VostelTextML::Persist(StateArchive& archive)
{
    VostelMovableRect::Persist(archive);
    archive(Lines, Margin);
}

}
