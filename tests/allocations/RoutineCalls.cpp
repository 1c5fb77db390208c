#include "allocations/ClassicCalls.h"

#include "support/ResizeOwned.h"

namespace {

using W = ClassicWorld;
using Corners = std::vector<PointTemplateBase<int>>;

Corners SomeCorners()
{
    return {{2, 2}, {25, 4}, {28, 20}, {6, 25}, {14, 14}};
}

// A context with a picture that objects are selected in.
struct Drawing {
    HDC     Context = CreateCompatibleDC(nullptr);
    HBITMAP Bitmap = nullptr;
    HGDIOBJ Before = nullptr;

    Drawing()
    {
        BITMAPINFO info = {};
        info.bmiHeader.biSize = sizeof info.bmiHeader;
        info.bmiHeader.biWidth = 40;
        info.bmiHeader.biHeight = 30;
        info.bmiHeader.biPlanes = 1;
        info.bmiHeader.biBitCount = 32;
        void* bits = nullptr;
        Bitmap = CreateDIBSection(Context, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
        Before = SelectObject(Context, Bitmap);
    }
    ~Drawing()
    {
        SelectObject(Context, Before);
        DeleteObject(Bitmap);
        DeleteDC(Context);
    }
};

template <typename Call>
void OnDrawing(HGDIOBJ tool, Call call)
{
    const Drawing drawing;
    const HGDIOBJ before = SelectObject(drawing.Context, tool);
    try {
        call(drawing.Context);
    } catch (...) {
        SelectObject(drawing.Context, before);
        DeleteObject(tool);
        throw;
    }
    SelectObject(drawing.Context, before);
    DeleteObject(tool);
}

}

const std::map<std::string, ClassicCall>& RoutineCalls()
{
    static const std::map<std::string, ClassicCall> calls = {
        {"CStringToString[abi:cxx11](CString&)", [](W& w) { CStringToString(w.Lines[0]); }},
        {"ComputeFFTN(int)", [](W&) { ComputeFFTN(100); }},
        {"ConFltMC(ClassData2DIO<float>*, ClassData2DIO<float>*)",
         [](W& w) { ConFltMC(&w.Floats, &w.Kernel); }},
        {"ConvFltVer0(ClassData2DIO<float>*, ClassData2DIO<float>*)",
         [](W& w) { ConvFltVer0(&w.Floats, &w.Kernel); }},
        {"ConvFltVer1(ClassData2DIO<float>*, ClassData2DIO<float>*)",
         [](W& w) { ConvFltVer1(&w.Floats, &w.Kernel); }},
        {"ConvFltVer2(ClassData2DIO<float>*, ClassData2DIO<float>*)",
         [](W& w) { ConvFltVer2(&w.Floats, &w.Kernel); }},
        {"Create2DList(ATL::CImage*)", [](W& w) { Release2DList(Create2DList(&w.Picture)); }},
        {"DrawEcllipse(ClassData2DIO<int>&, int, int, int, int, bool, int)",
         [](W& w) { DrawEcllipse(w.Labels, 2, 3, 25, 20, true, 4); }},
        {"FillPolygon(ClassData2DIO<int>&, std::vector<PointTemplateBase<int>, "
         "std::allocator<PointTemplateBase<int> > >&, int)",
         [](W& w) {
             Corners corners = SomeCorners();
             FillPolygon(w.Labels, corners, 3);
         }},
        {"FillSpline(ClassData2DIO<int>&, std::vector<PointTemplateBase<int>, "
         "std::allocator<PointTemplateBase<int> > >&, int)",
         [](W& w) {
             Corners corners = SomeCorners();
             FillSpline(w.Labels, corners, 3);
         }},
        {"GetBlobOutRect(ClassData2DIO<int>&, ZEKRECT&, int)",
         [](W& w) {
             ZEKRECT rect;
             GetBlobOutRect(w.Labels, rect, 1);
         }},
        {"GetImageParament(ATL::CImage*, IMAGEPARAMENT*)",
         [](W& w) {
             IMAGEPARAMENT params;
             GetImageParament(&w.Picture, &params);
         }},
        {"GetKernerlFFT(ZEKPP1DFFT&, int, int, float)",
         [](W& w) { GetKernerlFFT(w.Transform, 64, 21, 0.5f); }},
        {"KernelGenerate(ClassData2DIO<float>&, float, int)", [](W& w) { KernelGenerate(w.Kernel, 0.5f); }},
        {"LAT_Constant(ClassData2DIO<unsigned char>&, int)", [](W& w) { LAT_Constant(w.Bytes, 5); }},
        {"MatrixMul(ClassData2DIO<float>&, ClassData2DIO<float>&, ClassData2DIO<float>&)",
         [](W& w) {
             ClassData2DIO<float> product;
             MatrixMul(w.Kernel, w.Kernel, product);
         }},
        {"OSGetFileListFromDir(std::__cxx11::basic_string<char, std::char_traits<char>, "
         "std::allocator<char> >, std::vector<std::__cxx11::basic_string<char, std::char_traits<char>, "
         "std::allocator<char> >, std::allocator<std::__cxx11::basic_string<char, std::char_traits<char>, "
         "std::allocator<char> > > >&)",
         [](W& w) {
             std::vector<std::string> names;
             OSGetFileListFromDir(w.Path("*.raw"), names);
         }},
        {"ReadUsDataChar(ClassData2DIO<unsigned short>&, char*)",
         [](W& w) {
             std::string path = w.Path("a.raw");
             ReadUsDataChar(w.Words, path.data());
         }},
        {"ReadUsDataFloat(ClassData2DIO<unsigned short>&, char*, float, float)",
         [](W& w) {
             std::string path = w.Path("a.raw");
             ReadUsDataFloat(w.Words, path.data(), 0.0f, 50.0f);
         }},
        {"ReadUsDataShort(ClassData2DIO<unsigned short>&, char*)",
         [](W& w) {
             std::string path = w.Path("none");
             ReadUsDataShort(w.Words, path.data());
         }},
        {"Resize(ClassData2DIO<float>&, int, int)", [](W& w) { Resize(w.Floats, 9, 8); }},
        {"Resize(ClassData2DIO<unsigned short>&, int, int)", [](W& w) { ResizeOwned(w.Words, 4, 19); }},
        {"ResizeMC(ClassData2DIO<float>*, ClassData2DIO<float>*)",
         [](W& w) { ResizeMC(&w.Floats, &w.Result); }},
        {"ResizeSC(ClassData2DIO<float>*, ClassData2DIO<float>*)",
         [](W& w) { ResizeSC(&w.Floats, &w.Result); }},
        {"TwoDGaussian_LSE(ClassData2DIO<float>*, int, float, int, float, float)",
         [](W& w) { TwoDGaussian_LSE(&w.Kernel, 9, 2, 7, 1, 0.3f); }},
        {"ZEKBChar(char*)",
         [](W&) {
             char text[] = "a text that is longer than a short one";
             ZEKBChar(text);
         }},
        {"ZEKBFloat(float)", [](W&) { ZEKBFloat(1.5f); }},
        {"ZEKBFloat(float, float)", [](W&) { ZEKBFloat(1.5f, 2.5f); }},
        {"ZEKBInt(int)", [](W&) { ZEKBInt(1); }},
        {"ZEKBInt(int, int)", [](W&) { ZEKBInt(1, 2); }},
        {"ZEKColorToGray(ClassData2DIO<unsigned char>*, ClassData2DIO<unsigned char>*, "
         "ClassData2DIO<unsigned char>*, ClassData2DIO<unsigned char>*)",
         [](W& w) { ZEKColorToGray(&w.Bytes, &w.Bytes, &w.Bytes, &w.Red); }},
        {"ZEKFilter1DForRec(ClassData2DIO<float>*, float)", [](W& w) { ZEKFilter1DForRec(&w.Floats, 0.7f); }},
        {"ZEKReadColorBmp(char*, ClassData2DIO<unsigned char>*, ClassData2DIO<unsigned char>*, "
         "ClassData2DIO<unsigned char>*, ClassData2DIO<unsigned char>*)",
         [](W& w) {
             std::string path = w.Path("a.bmp");
             ZEKReadColorBmp(path.data(), &w.Red, &w.Green, &w.Blue, &w.Bytes);
         }},
        {"ZEKReadGrayBmp(char*, ClassData2DIO<unsigned char>*)",
         [](W& w) {
             std::string path = w.Path("gray.bmp");
             ZEKReadGrayBmp(path.data(), &w.Red);
         }},
        {"ZEKSaveColorBmp(char const*, ClassData2DIO<unsigned char>*, ClassData2DIO<unsigned char>*, "
         "ClassData2DIO<unsigned char>*)",
         [](W& w) { ZEKSaveColorBmp(w.Path("b.bmp").c_str(), &w.Bytes, &w.Bytes, &w.Bytes); }},
        {"ZEKSaveGrayBmp(char*, ClassData2DIO<unsigned char>&)",
         [](W& w) {
             std::string path = w.Path("b.bmp");
             ZEKSaveGrayBmp(path.data(), w.Bytes);
         }},
        {"gCStringToChar(CString*)", [](W& w) { gDLLDelete(gCStringToChar(&w.Lines[0])); }},
        {"gConv2(ClassData2DIO<float>*, ClassData2DIO<float>*)", [](W& w) { gConv2(&w.Floats, &w.Kernel); }},
        {"gGauss(ClassData2DIO<float>*, int, float, float)", [](W& w) { gGauss(&w.Floats, 5, 1.5f, 0.2f); }},
        {"gImaConcate(ClassData2DIO<float>*, ClassData2DIO<float>*, int, int, bool)",
         [](W& w) { gImaConcate(&w.Floats, &w.Result, 4, 1, true); }},
        {"gSaveUcData(ClassData2DIO<unsigned char>*, CString&)",
         [](W& w) {
             CString path = w.WidePath("b.png");
             gSaveUcData(&w.Bytes, path);
         }},
        {"gGetPictureLimits()", [](W&) { gGetPictureLimits(); }},
        {"gSetHostServices(VostelHostServices const&)",
         [](W&) {
             VostelHostServices services;
             services.ShowMessage = [text = std::string(100, 'x')](const CString&) {};
             gSetHostServices(services);
         }},
        {"gSetPictureLimits(VostelPictureLimits const&)",
         [](W&) { gSetPictureLimits(VostelPictureLimits()); }},
        {"mB3Line(std::vector<PointTemplateBase<int>, std::allocator<PointTemplateBase<int> > > const&, "
         "std::vector<PointTemplateBase<int>, std::allocator<PointTemplateBase<int> > >&, "
         "std::vector<PointTemplateBase<int>, std::allocator<PointTemplateBase<int> > >&)",
         [](W&) {
             Corners line, more;
             mB3Line(SomeCorners(), line, more);
         }},
        {"BitBlt",
         [](W& w) {
             OnDrawing(CreatePen(PS_SOLID, 1, 0xFF),
                       [&](HDC dc) { BitBlt(dc, 0, 0, 20, 20, w.Host.Window.Dc, 0, 0, SRCCOPY); });
         }},
        {"StretchBlt",
         [](W& w) {
             OnDrawing(CreatePen(PS_SOLID, 1, 0xFF), [&](HDC dc) {
                 SetStretchBltMode(dc, HALFTONE);
                 StretchBlt(dc, 0, 0, 33, 21, w.Host.Window.Dc, 0, 0, 20, 20, SRCCOPY);
             });
         }},
        {"CreateCompatibleDC", [](W&) { const Drawing drawing; }},
        {"CreateDIBSection", [](W&) { const Drawing drawing; }},
        {"CreateFontW",
         [](W&) {
             OnDrawing(CreateFontW(20, 0, 0, 0, FW_NORMAL, 0, 0, 0, DEFAULT_CHARSET, 0, 0, 0, 0, L"Arial"),
                       [](HDC dc) { TextOutW(dc, 2, 3, L"text", 4); });
         }},
        {"CreateHatchBrush",
         [](W&) {
             OnDrawing(CreateHatchBrush(HS_CROSS, 0xFF), [](HDC dc) { Rectangle(dc, 2, 2, 20, 20); });
         }},
        {"CreatePen", [](W&) { OnDrawing(CreatePen(PS_DASH, 1, 0xFF), [](HDC dc) { LineTo(dc, 30, 20); }); }},
        {"CreateSolidBrush",
         [](W&) { OnDrawing(CreateSolidBrush(0xFF), [](HDC dc) { Ellipse(dc, 2, 2, 20, 20); }); }},
        {"DrawTextW",
         [](W&) {
             OnDrawing(CreatePen(PS_SOLID, 1, 0xFF), [](HDC dc) {
                 RECT rect = {0, 0, 40, 30};
                 DrawTextW(dc, L"a text that is longer", 21, &rect, DT_LEFT);
             });
         }},
        {"TextOutW",
         [](W&) { OnDrawing(CreatePen(PS_SOLID, 1, 0xFF), [](HDC dc) { TextOutW(dc, 2, 3, L"text", 4); }); }},
        {"LineTo", [](W&) { OnDrawing(CreatePen(PS_SOLID, 7, 0xFF), [](HDC dc) { LineTo(dc, 30, 20); }); }},
        {"Rectangle",
         [](W&) { OnDrawing(CreatePen(PS_SOLID, 7, 0xFF), [](HDC dc) { Rectangle(dc, 2, 2, 20, 20); }); }},
        {"Ellipse",
         [](W&) { OnDrawing(CreatePen(PS_SOLID, 7, 0xFF), [](HDC dc) { Ellipse(dc, 2, 2, 20, 20); }); }},
    };
    return calls;
}
