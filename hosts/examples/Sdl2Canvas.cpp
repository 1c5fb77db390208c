// A canvas in a window of SDL 2: vostel-example-sdl2 PICTURE. Shift and a drag draw a rectangle, a press
// selects, R deletes; Control pans and zooms.
#include <SDL.h>
#include <vostel.hpp>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <stdexcept>
#include <utility>

namespace {

struct Free {
    void operator()(SDL_Window* window) const { SDL_DestroyWindow(window); }
    void operator()(SDL_Renderer* renderer) const { SDL_DestroyRenderer(renderer); }
    void operator()(SDL_Texture* texture) const { SDL_DestroyTexture(texture); }
};

std::uint32_t HeldKeys()
{
    const int held = SDL_GetModState();
    return ((held & KMOD_SHIFT) != 0 ? VOSTEL_SHIFT : 0) | ((held & KMOD_CTRL) != 0 ? VOSTEL_CONTROL : 0);
}

class CanvasWindow {
public:
    explicit CanvasWindow(const char* picture)
        : Window(SDL_CreateWindow("Canvas", SDL_WINDOWPOS_CENTERED, SDL_WINDOWPOS_CENTERED, 640, 480,
                                  SDL_WINDOW_RESIZABLE | SDL_WINDOW_ALLOW_HIGHDPI)),
          Renderer(SDL_CreateRenderer(Window.get(), -1, 0))
    {
        if (!Renderer)
            throw std::runtime_error(SDL_GetError());
        TakeArea();
        Canvas.image_open(picture);
        Canvas.view_fit();
    }

    void Take(const SDL_Event& event)
    {
        switch (event.type) {
        case SDL_WINDOWEVENT:
            if (event.window.event == SDL_WINDOWEVENT_SIZE_CHANGED)
                TakeArea();
            FrameIsOld = true;
            break;
        case SDL_MOUSEBUTTONDOWN:
            if (event.button.button != SDL_BUTTON_LEFT)
                break;
            SDL_CaptureMouse(SDL_TRUE);    // or a release outside the window is lost
            if ((HeldKeys() & VOSTEL_SHIFT) != 0 && Canvas.selection().empty())
                Canvas.draw_next(VOSTEL_RECTANGLE);    // what the drag draws
            Canvas.event_press(At(event.button.x, event.button.y), HeldKeys());
            break;
        case SDL_MOUSEBUTTONUP:
            if (event.button.button != SDL_BUTTON_LEFT)
                break;
            SDL_CaptureMouse(SDL_FALSE);
            Canvas.event_release(At(event.button.x, event.button.y), HeldKeys());
            break;
        case SDL_MOUSEMOTION:
            Canvas.event_move(At(event.motion.x, event.motion.y),
                              HeldKeys() |
                                  ((event.motion.state & SDL_BUTTON_LMASK) != 0 ? VOSTEL_LEFT_BUTTON : 0));
            break;
        case SDL_MOUSEWHEEL: {
            int x = 0, y = 0;
            SDL_GetMouseState(&x, &y);
            Canvas.event_wheel(At(x, y), event.wheel.y, HeldKeys());
            break;
        }
        case SDL_KEYDOWN:
            if (event.key.keysym.sym >= 'a' && event.key.keysym.sym <= 'z' &&
                (HeldKeys() & VOSTEL_CONTROL) == 0)
                Canvas.event_key(static_cast<std::uint32_t>(event.key.keysym.sym - 'a' + 'A'));
            break;
        default:
            break;
        }
    }

    void PaintIfOld()
    {
        if (!std::exchange(FrameIsOld, false))
            return;
        void* pixels = nullptr;
        int   row_bytes = 0;
        if (SDL_LockTexture(Texture.get(), nullptr, &pixels, &row_bytes) != 0)
            throw std::runtime_error(SDL_GetError());
        Canvas.frame_render_to(pixels, Width, Height, row_bytes);
        SDL_UnlockTexture(Texture.get());
        SDL_RenderCopy(Renderer.get(), Texture.get(), nullptr, nullptr);
        SDL_RenderPresent(Renderer.get());
    }

private:
    // The canvas counts device px; SDL's mouse and window sizes may be logical.
    void TakeArea()
    {
        int logical = 0;
        SDL_GetWindowSize(Window.get(), &logical, nullptr);
        SDL_GetRendererOutputSize(Renderer.get(), &Width, &Height);
        Ratio = static_cast<double>(Width) / std::max(logical, 1);
        Canvas.set_pixel_ratio(Ratio);
        Canvas.resize(Width, Height);
        Texture.reset(SDL_CreateTexture(Renderer.get(), SDL_PIXELFORMAT_BGRA32, SDL_TEXTUREACCESS_STREAMING,
                                        Width, Height));
    }
    vostel::Point At(int x, int y) const { return {x * Ratio, y * Ratio}; }

    std::unique_ptr<SDL_Window, Free>   Window;
    std::unique_ptr<SDL_Renderer, Free> Renderer;
    std::unique_ptr<SDL_Texture, Free>  Texture;
    int                                 Width = 0, Height = 0;    // device px
    double                              Ratio = 1.0;
    bool                                FrameIsOld = true;
    vostel::Canvas                      Canvas{640, 480};
    vostel::Subscription                Repaints =
        Canvas.listen(VOSTEL_FRAME_STALE, [this](const vostel::Event&) { FrameIsOld = true; });
};

}

int main(int argc, char** argv)
try {
    if (SDL_Init(SDL_INIT_VIDEO) != 0)
        throw std::runtime_error(SDL_GetError());
    {
        CanvasWindow window(argc > 1 ? argv[1] : "samples/coins.png");
        for (SDL_Event event = {}; event.type != SDL_QUIT && SDL_WaitEvent(&event) != 0;) {
            do
                window.Take(event);
            while (event.type != SDL_QUIT && SDL_PollEvent(&event) != 0);
            window.PaintIfOld();
        }
    }
    SDL_Quit();
    return 0;
} catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
}
