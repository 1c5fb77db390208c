#pragma once

// An overlay object that writes down its calls and may act on them. Inner tests only.

#include "overlay/VostelObj.h"

#include <functional>
#include <string>
#include <vector>

namespace vostel {

class Probe : public VostelObj {
public:
    static inline int Alive = 0;

    std::string                             Name;
    std::vector<std::string>&               Log;
    CRect                                   Hit;
    CRect                                   Fill;    // what OnDraw fills with Color
    COLORREF                                Color = 0;
    HDC                                     Target = nullptr;
    std::function<void(const std::string&)> OnEvent;    // "down", "up", "move", "key", "view", ...
    std::function<void()>                   OnEnd;

    Probe(const char* name, std::vector<std::string>& log, CRect hit = CRect(), int kind = OverlayRect)
        : Name(name), Log(log), Hit(hit)
    {
        TypeCode = kind;
        ++Alive;
    }
    ~Probe() override
    {
        --Alive;
        if (OnEnd)
            OnEnd();
    }

    void OnLButtonDown(unsigned int flags, CPoint point) override { Tell("down " + Text(flags, point)); }
    void OnLButtonUp(unsigned int flags, CPoint point) override { Tell("up " + Text(flags, point)); }
    void OnMouseMove(unsigned int flags, CPoint point) override { Tell("move " + Text(flags, point)); }
    void OnKeyDown(unsigned int key, unsigned int repeat, unsigned int keyFlags) override
    {
        Tell("key " + std::to_string(key) + " " + std::to_string(repeat) + " " + std::to_string(keyFlags));
    }
    void OnTimer(std::uint64_t) override { Tell("timer"); }
    void SetCanvasView(CanvasView* view) override
    {
        View = view;
        Tell("view");
    }
    void RefreshClientGeometry() override { Tell("refresh"); }
    bool HitTest(CPoint point) override
    {
        Tell("hit? " + std::to_string(point.x) + "," + std::to_string(point.y));
        return Hit.PtInRect(point);
    }
    void OnDraw(HDC dc) override
    {
        Target = dc;
        if (!Fill.IsRectEmpty()) {
            const HBRUSH brush = CreateSolidBrush(Color);
            FillRect(dc, &Fill, brush);
            DeleteObject(brush);
        }
        Tell("draw");
    }

private:
    static std::string Text(unsigned int flags, CPoint point)
    {
        return std::to_string(flags) + " " + std::to_string(point.x) + "," + std::to_string(point.y);
    }
    void Tell(const std::string& event)
    {
        Log.push_back(Name + " " + event);
        if (OnEvent) {
            const auto act = OnEvent;    // may end this object
            act(event);
        }
    }
};

}
