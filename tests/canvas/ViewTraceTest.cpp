// Long random traces of events, images and windows against a model of the view that this file keeps for
// itself: where the image lies, and both conversions, after every event.

#include "support/HostCanvas.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <random>

namespace {

int Trunc(double v)
{
    return v > -2147483649.0 && v < 2147483648.0 ? static_cast<int>(v) : INT_MIN;
}

// The view as its rules describe it. It starts from where a reset canvas stands: scale 1, centred, no image.
struct ModelView {
    int    ImageW = 0;
    int    ImageH = 0;
    double Scale = 1.0;
    int    ClientW = 0;    // client areas start at the origin
    int    ClientH = 0;
    int    Left = 0;
    int    Top = 0;
    int    Right = 0;
    int    Bottom = 0;
    int    CentreX = 0;
    int    CentreY = 0;
    double AnchorX = 0.0;
    double AnchorY = 0.0;
    int    SourceRows = 0;
    int    Mode = 2;
    bool   Down = false;
    CPoint Last;

    void PlaceRegion()
    {
        const double w = ImageW * Scale;
        const double h = ImageH * Scale;
        Left = Trunc(CentreX - w * 0.5);
        Top = Trunc(CentreY - h * 0.5);
        Right = Trunc((CentreX - w * 0.5) + w);
        Bottom = Trunc((CentreY - h * 0.5) + h);
    }
    void RefreshAnchors()
    {
        // A window without a width or height keeps the fraction that it had.
        if (ClientW != 0)
            AnchorX =
                static_cast<double>(static_cast<float>(CentreX - ClientW / 2) / static_cast<float>(ClientW));
        if (ClientH != 0)
            AnchorY =
                static_cast<double>(static_cast<float>(CentreY - ClientH / 2) / static_cast<float>(ClientH));
    }
    void Window(int w, int h)
    {
        ClientW = w;
        ClientH = h;
        CentreX = Trunc(w * AnchorX + w / 2);
        CentreY = Trunc(h * AnchorY + h / 2);
        SourceRows = ImageH;
        PlaceRegion();
    }
    void Image(int w, int h)
    {
        ImageW = w;
        ImageH = h;
        Window(ClientW, ClientH);
    }
    void Press(CPoint p)
    {
        Down = true;
        Last = p;
    }
    void Release() { Down = false; }
    void Move(unsigned int flags, CPoint p)
    {
        if (Down && (flags & 8) != 0) {
            if (Mode != 0) {
                CentreX += p.x - Last.x;
                CentreY += p.y - Last.y;
            }
            Last = p;
            PlaceRegion();
        }
        RefreshAnchors();
    }
    void Wheel(unsigned int flags, int delta, CPoint p)
    {
        if ((flags & 8) == 0)
            return;
        const double old = Scale;
        if (Mode != 0) {
            if (delta > 0 && SourceRows > 4)
                Scale *= 1.2;
            if (delta < 0 && Right - Left > 4 && Bottom - Top > 4)
                Scale /= 1.2;
        }
        if (Mode == 2) {
            CentreX = Trunc(p.x - (p.x - CentreX) * Scale / old);
            CentreY = Trunc(p.y - (p.y - CentreY) * Scale / old);
        }
        PlaceRegion();
        RefreshAnchors();
    }
    // What a paint leaves behind for the next step in: the rows that it took.
    void Paint()
    {
        const int extent = Bottom - Top;
        if (extent <= 0 || Right <= Left)
            return;
        const float low = static_cast<float>(0 - Top) / static_cast<float>(extent);
        const float high = static_cast<float>(ClientH - Bottom) / static_cast<float>(extent);
        const int   first = low < 0.0f ? 0 : Trunc(static_cast<float>(ImageH) * low);
        const int last = high < 0.0f ? Trunc((1.0 - static_cast<double>(std::fabs(high))) * ImageH) : ImageH;
        SourceRows = last - first;
    }
    PointTemplateBase<double> ToImage(CPoint p) const
    {
        return PointTemplateBase<double>((p.x - Left) / Scale, (p.y - Top) / Scale);
    }
    CPoint ToClient(double x, double y) const
    {
        return CPoint(Trunc(x * Scale + Left), Trunc(y * Scale + Top));
    }
};

class Trace {
public:
    // The canvas's scale goes on from one trace to the next.
    Trace(unsigned int seed, int canvas, double scale) : Seed(seed), Random(seed), Host(canvas, 120, 90)
    {
        Model.Scale = scale;
        Model.Window(120, 90);
    }

    HostCanvas& Canvas() { return Host; }

    // Empty, or what went wrong and when.
    std::string Run(int events)
    {
        std::string wrong = Mismatch();
        for (Event = 0; Event < events && wrong.empty(); ++Event) {
            Step();
            wrong = Mismatch();
        }
        return wrong.empty() ? wrong
                             : "seed " + std::to_string(Seed) + " event " + std::to_string(Event) + " (" +
                                   What + "): " + wrong;
    }

    // Takes the scale to about 1 and returns it.
    double ComeBack()
    {
        gCVSSetCanvasMoveMode(Host.Number, DisplayZoomCentre);
        Model.Mode = 1;
        gCVSPrepareCanvas(Host.Number, 100, 100);
        Model.Image(100, 100);
        for (int step = 0; step < 200 && (Model.Scale > 1.1 || Model.Scale < 0.9); ++step) {
            const int delta = Model.Scale > 1.0 ? -1 : 1;
            Host.Wheel(0, 0, delta);
            Model.Wheel(8, delta, CPoint(0, 0));
        }
        return Model.Scale;
    }

    int    Zooms = 0;
    double Smallest = 1.0;
    double Largest = 1.0;

private:
    unsigned int Seed;
    std::mt19937 Random;
    HostCanvas   Host;
    ModelView    Model;
    int          Event = 0;
    std::string  What = "start";

    int Pick(int low, int high)
    {
        return low + static_cast<int>(Random() % static_cast<unsigned int>(high - low + 1));
    }
    CPoint Somewhere() { return CPoint(Pick(-60, 200), Pick(-60, 180)); }

    void Step()
    {
        static const unsigned int flagSets[] = {0, 8, 8, 9, 9, 1, 4, 12, 13, 5};
        const unsigned int        flags = flagSets[Random() % 10];
        const CPoint              p = Somewhere();
        const int                 kind = Pick(0, 999);
        if (kind < 300) {
            What = "move";
            Host.Move(p.x, p.y, flags);
            Model.Move(flags, p);
        } else if (kind < 400) {
            What = "press";
            Host.Press(p.x, p.y, flags);
            Model.Press(p);
        } else if (kind < 500) {
            What = "release";
            Host.Release(p.x, p.y, flags);
            Model.Release();
        } else if (kind < 780) {
            What = "wheel";
            const int    delta = Model.Scale > 1000.0 ? -1
                                 : Pick(0, 9) == 0    ? 0
                                 : Pick(0, 1) == 0    ? Pick(-32768, -1)
                                                      : Pick(1, 32767);
            const double before = Model.Scale;
            Host.Wheel(p.x, p.y, delta, flags);
            Model.Wheel(flags, delta, p);
            Zooms += Model.Scale != before ? 1 : 0;
            Smallest = Model.Scale < Smallest ? Model.Scale : Smallest;
            Largest = Model.Scale > Largest ? Model.Scale : Largest;
        } else if (kind < 930) {
            What = "paint";
            Host.Paint();
            Model.Paint();
        } else if (kind < 945) {
            What = "mode";
            Model.Mode = Pick(0, 2);
            gCVSSetCanvasMoveMode(Host.Number, static_cast<DisplayMode>(Model.Mode));
        } else if (kind < 970) {
            const int w = Pick(0, 8) == 0 ? 0 : Pick(1, 220);
            const int h = Pick(0, 8) == 0 ? 0 : Pick(1, 160);
            What = "window " + std::to_string(w) + "x" + std::to_string(h);
            Host.SetClient(w, h);
            Model.Window(w, h);
        } else if (kind < 995) {
            NewImage();
        } else {
            BringBack();
        }
    }

    void NewImage()
    {
        const int w = Pick(0, 12) == 0 ? Pick(0, 3) : Pick(1, 150);
        const int h = Pick(0, 12) == 0 ? Pick(0, 3) : Pick(1, 150);
        What = "image " + std::to_string(w) + "x" + std::to_string(h);
        switch (Pick(0, 2)) {
        case 0:
            Host.ShowGray(w, h, [](int x, int) { return x; });
            break;
        case 1:
            Host.ShowFloat(w, h, [](int x, int y) { return x + y; });
            break;
        default:
            gCVSPrepareCanvas(Host.Number, w, h);
            break;
        }
        Model.Image(w, h);
    }

    // Keeps the trace where things happen: no event but this brings an image back that was zoomed far away.
    void BringBack()
    {
        What = "drag back";
        const CPoint to(60 - Model.CentreX, 45 - Model.CentreY);
        Host.Press(0, 0);
        Model.Press(CPoint(0, 0));
        Host.Move(to.x, to.y, 8);
        Model.Move(8, to);
        Host.Release(0, 0);
        Model.Release();
    }

    std::string Mismatch()
    {
        const CRect region = Host.Region();
        if (!(region == CRect(Model.Left, Model.Top, Model.Right, Model.Bottom)))
            return "region " + Text(region) + ", expected " +
                   Text(CRect(Model.Left, Model.Top, Model.Right, Model.Bottom));
        const CPoint              p = Somewhere();
        PointTemplateBase<double> image;
        gCVSGetOriPt(Host.Number, p, image);
        const PointTemplateBase<double> expected = Model.ToImage(p);
        if (image.x != expected.x || image.y != expected.y)
            return "image point " + std::to_string(image.x) + ", " + std::to_string(image.y) + ", expected " +
                   std::to_string(expected.x) + ", " + std::to_string(expected.y);
        CPoint client;
        gCVSGetDisplayPt(Host.Number, p.x * 0.37, p.y * 0.73, client);
        const CPoint expectedClient = Model.ToClient(p.x * 0.37, p.y * 0.73);
        if (client.x != expectedClient.x || client.y != expectedClient.y)
            return "client point " + std::to_string(client.x) + ", " + std::to_string(client.y) +
                   ", expected " + std::to_string(expectedClient.x) + ", " + std::to_string(expectedClient.y);
        if (gCVSGetClientWidth(Host.Number) != Model.ClientW ||
            gCVSGetClientHeight(Host.Number) != Model.ClientH)
            return "client size";
        return std::string();
    }
    static std::string Text(const CRect& r)
    {
        return std::to_string(r.left) + ", " + std::to_string(r.top) + ", " + std::to_string(r.right) + ", " +
               std::to_string(r.bottom);
    }
};

}

TEST_CASE("after each of 100,000 random events the view lies where its rules put it")
{
    int    zooms = 0;
    double smallest = 1.0;
    double largest = 1.0;
    double scale = 1.0;
    {
        const HostCanvas host(3, 10, 10);
        REQUIRE(host.IsScaleOne());
    }
    for (unsigned int seed = 1; seed <= 20; ++seed) {
        Trace             trace(seed, 3, scale);
        const std::string wrong = trace.Run(5000);
        if (!wrong.empty())
            FAIL(wrong);
        zooms += trace.Zooms;
        smallest = std::min(smallest, trace.Smallest);
        largest = std::max(largest, trace.Largest);
        scale = trace.ComeBack();
    }
    // The traces went somewhere.
    CHECK(zooms > 2000);
    CHECK(smallest < 0.2);
    CHECK(largest > 5.0);
}
