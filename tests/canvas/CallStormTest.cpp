// Random sequences of all calls of the canvas interface, with values from hostile lists.

#include "support/HostCanvas.h"
#include "support/TempFolder.h"

#include <climits>
#include <cmath>
#include <limits>
#include <new>
#include <random>

namespace {

class Storm {
public:
    explicit Storm(unsigned int seed) : Random(seed), Dialogs(Answers())
    {
        FillPlane(Gray, 40, 30, [](int x, int y) { return x * y; });
        FillPlane(Wide, 41, 29, [](int x, int y) { return x + y; });
        FillPlane(Raw, 40, 30, [](int x, int y) { return x * 100.5 - y; });
        Raw.Ptr2D[3][3] = std::nanf("");
        Raw.Ptr2D[4][3] = std::numeric_limits<float>::infinity();
        WriteBytes(Folder.Path("a.raw"), std::vector<unsigned char>(500, 77));
        WriteBytes(Folder.Path("a.bmp"), {'B', 'M', 1, 2, 3});
    }
    ~Storm()
    {
        for (int canvas = 0; canvas < 5; ++canvas)
            Calm(canvas);
    }

    void Run(int calls)
    {
        for (int i = 0; i < calls; ++i) {
            try {
                Call();
            } catch (const std::bad_alloc&) {
                ++Refused;
            }
        }
    }

    int Paints = 0;
    int Refused = 0;

private:
    std::mt19937                 Random;
    TestDesktop                  Desktop;
    MemoryWindow                 Window{64, 48};
    TempFolder                   Folder;
    ClassData2DIO<unsigned char> Gray, Wide;
    ClassData2DIO<float>         Raw;
    TestDialogs                  Dialogs;

    template <typename T, std::size_t N>
    T Of(const T (&values)[N])
    {
        return values[Random() % N];
    }
    int Canvas()
    {
        static const int numbers[] = {4, 4, 4, 4, 4, 4, 4, 4, -1, 5, INT_MIN, INT_MAX};
        return Of(numbers);
    }
    int Number()
    {
        static const int numbers[] = {0,   1,  2,   5,     10,     20,      33,      60,     100,
                                      300, -1, -20, 32767, -32768, 1 << 20, INT_MAX, INT_MIN};
        return Of(numbers);
    }
    // Sizes of pictures that are small or that nobody has.
    int Size()
    {
        static const int sizes[] = {0, 1, 2, 3, 17, 40, 64, 100, -1, -100, INT_MIN, 50000};
        return Of(sizes);
    }
    float Fraction()
    {
        static const float values[] = {0.0f, 1.0f, 0.5f, 0.25f, -1.0f, 2.0f, 1e30f, -1e30f, 1e-30f};
        return Random() % 10 == 0 ? std::nanf("") : Of(values);
    }
    unsigned int Flags()
    {
        static const unsigned int flags[] = {0, 1, 4, 5, 8, 9, 12, 13, 0xFFFFFFFF};
        return Of(flags);
    }
    CPoint Point()
    {
        return Random() % 4 == 0 ? CPoint(Number(), Number())
                                 : CPoint(static_cast<int>(Random() % 70), static_cast<int>(Random() % 50));
    }
    // The engine returns 32 bits in a wider type.
    unsigned int Bits() { return static_cast<unsigned int>(Random()); }
    bool         Coin() { return Random() % 2 == 0; }

    TessikDialogs Answers()
    {
        TessikDialogs dialogs;
        dialogs.ImaLoadPara = [this](tagZEKImaLoadPara& para) {
            para.Width = Size();
            para.Height = Size();
            para.DataType = static_cast<int>(Random() % 6) - 1;
            para.HeaderBytes = static_cast<unsigned int>(Number());
            para.MapToByte = static_cast<int>(Random() % 3);
            para.InLow = Fraction();
            para.InHigh = Fraction() * 100.0f;
            para.OutLow = Fraction() * 100.0f;
            para.OutHigh = Fraction() * 300.0f;
            return Random() % 5 != 0;
        };
        return dialogs;
    }

    void Calm(int canvas)
    {
        CRect none(0, 0, 0, 0);
        gCVSSetUseClientMemDCPixelDirect(canvas, false);
        gCVSShowContrastCtrl(canvas, false);
        gCVSShowProgress(canvas, false);
        gCVSDelAllElement(canvas);
        gCVSPrepareCanvas(canvas, 0, 0);
        gCVSReleaseCanvasPixelPtr2D(canvas);
        gCVSReleaseClientPixelPtr2D(canvas);
        gCVSSetClient(canvas, none, nullptr);
    }

    void Call()
    {
        const int n = Canvas();
        switch (Random() % 48) {
        case 0: {
            CRect client(0, 0, static_cast<int>(Random() % 80), static_cast<int>(Random() % 60));
            if (Random() % 8 == 0)
                client = CRect(Size(), Size(), Size(), Size());
            if (static_cast<long long>(client.right) - client.left > 1000 ||
                static_cast<long long>(client.bottom) - client.top > 1000)
                client = CRect(9, 9, 0, 0);
            gCVSSetClient(n, client, Random() % 6 == 0 ? nullptr : Window.Dc);
            break;
        }
        case 1:
        case 2:
        case 3:
            gCVSOnDraw(n, nullptr);
            ++Paints;
            break;
        case 4:
        case 5:
            gCVSOnLButtonDown(n, Flags(), Point());
            break;
        case 6:
        case 7:
            gCVSOnLButtonUp(n, Flags(), Point());
            break;
        case 8:
        case 9:
        case 10:
            gCVSOnMouseMove(n, Flags(), Point());
            break;
        case 11:
        case 12:
            gCVSOnMouseWheel(n, Flags(), static_cast<short>(Random()), Point());
            break;
        case 13: {
            static const unsigned int keys[] = {'C', 'R', 'X', 9, 'S', 0, 27, 0xFFFFFFFF};
            gCVSOnKeyDown(n, Of(keys), Bits(), Bits());
            break;
        }
        case 14:
            gCVSOnTimer(n, Random() % 3);
            break;
        case 15: {
            static const UINT messages[] = {0x100, 0x200, 0x201, 0x202, 0x20A, 0, 0xFFFFFFFF};
            MSG               message = {};
            message.message = Of(messages);
            message.wParam = static_cast<WPARAM>(Random()) << 16 ^ Random();
            message.lParam = static_cast<LPARAM>(static_cast<unsigned long long>(Random()) << 32 | Random());
            gCVSRespondToMessage(Random() % 9 == 0 ? nullptr : &message, n);
            break;
        }
        case 16:
            gCVSSetCanvasMoveMode(n, static_cast<DisplayMode>(Random() % 5));
            break;
        case 17:
            gCVSGetCanvasRegion(n);
            gCVSGetClientWidth(n);
            gCVSGetClientHeight(n);
            break;
        case 18: {
            double x = 0.0;
            double y = 0.0;
            gCVSGetOriPt(n, Point(), x, y);
            CPoint point;
            gCVSGetDisplayPt(n, x, y, point);
            PointTemplateBase<double> image;
            gCVSGetOriPt(n, Point(), image);
            gCVSGetDisplayPt(n, image, point);
            break;
        }
        case 19:
            gCVSDelAllElement(n);
            break;
        case 20:
            gCVSDelSelElement(n);
            break;
        case 21:
            gCVSPrepareCanvas(n, Size(), Size());
            break;
        case 22:
            gCVSSetCanvasColor(n, Bits());
            break;
        case 23:
            gCVSGetCanvasHDC(n);
            gCVSGetClientMemDC(n);
            break;
        case 24: {
            // The rows that a table has may be written.
            unsigned int** rows = gCVSCreateCanvasPixelPtr2D(n);
            if (rows && gCVSGetCanvasPixelPtr(n))
                rows[gCVSGetCanvasHeight(n) - 1][gCVSGetCanvasWidth(n) - 1] = Bits();
            break;
        }
        case 25: {
            unsigned int** rows = gCVSCreateClientPixelPtr2D(n);
            if (rows && gCVSGetClientPixelPtr(n))
                rows[gCVSGetClientHeight(n) - 1][gCVSGetClientWidth(n) - 1] = Bits();
            break;
        }
        case 26:
            gCVSReleaseCanvasPixelPtr2D(n);
            break;
        case 27:
            gCVSReleaseClientPixelPtr2D(n);
            break;
        case 28:
            gCVSSetCanvasFastDisplayMode(n, Coin());
            break;
        case 29:
            gCVSSetUseClientMemDCPixelDirect(n, Coin());
            break;
        case 30:
            gCVSShowContrastCtrl(n, Coin());
            break;
        case 31:
            gCVSSetContrastCtrlRectPos(n, Number(), Number(), Number(), Number());
            break;
        case 32:
            gCVSShowProgress(n, Coin());
            break;
        case 33:
            gCVSSetProgressRectPos(n, Number(), Number(), Number(), Number());
            break;
        case 34:
            gCVSSetRange(n, Number(), Number());
            gCVSSetPos(n, Number());
            break;
        case 35:
            gCVSShowUCGray(n, Coin() ? Gray : Wide, Coin());
            break;
        case 36:
            gCVSShowUCColor(n, Coin() ? Gray : Wide, Coin() ? Gray : Wide, Gray, Coin());
            break;
        case 37:
            gCVSShowRawFloat(n, Raw, Coin(), Coin());
            break;
        case 38:
            gCVSShowUCGray(n, Gray.Ptr1D, static_cast<int>(Random() % 41),
                           static_cast<int>(Random() % 33) - 2, Coin());
            break;
        case 39:
            gCVSShowUCColor(n, Gray.Ptr1D, Coin() ? nullptr : Gray.Ptr1D, Gray.Ptr1D, 40, 30, Coin());
            break;
        case 40:
            gCVSShowRawFloat(n, Coin() ? nullptr : Raw.Ptr1D, 40, static_cast<int>(Random() % 33) - 2, Coin(),
                             Coin());
            break;
        case 41: {
            static const char* names[] = {"a.raw", "a.bmp", "none.raw", "none.png", ""};
            CString            path = Folder.WidePath(Of(names));
            gCVSReadFile(n, path, Coin());
            break;
        }
        case 42:
            gCVSSetLutPara(n, Fraction(), Fraction());
            break;
        case 43:
            gCVSGetImaPixelValue(n, Point());
            break;
        case 44:
            gCVSShowRawFloat(n, Coin() ? gCVSGetRaw(n) : gCVSGetRawOri(n), Coin(), Coin());
            break;
        case 45:
            gCVSSetFileType(n, static_cast<FileType>(Random() % 6));
            gCVSGetFileType(n);
            gCVSGetCanvasWidth(n);
            gCVSGetCanvasHeight(n);
            break;
        case 46:
            gCVSGenerateLabel(n, Coin());
            break;
        default:
            // A host may empty what it can reach.
            if (Coin())
                gCVSGetRaw(n).Release();
            else if (Coin())
                gCVSGetRawOri(n).Release();
            else
                gCVSGetLabelIma(n).Release();
            break;
        }
    }
};

}

TEST_CASE("random calls in any order with hostile values run to their end")
{
    int paints = 0;
    int refused = 0;
    for (unsigned int seed = 1; seed <= 12; ++seed) {
        CAPTURE(seed);
        Storm storm(seed);
        storm.Run(4000);
        paints += storm.Paints;
        refused += storm.Refused;
    }
    CHECK(paints > 1000);
    CHECK(refused > 10);
    HostCanvas host(0, 30, 30);
    host.ShowFlatGray(40, 40, 0x42);
    CHECK(FrameDifference(host.PaintAndCapture(), Frame(30, 30, 0x424242)) == "");
}
