// A canvas in a window of Dear ImGui, on SDL 2 and OpenGL: vostel-example-imgui PICTURE. Shift and a drag
// draw a rectangle, a press selects, R deletes; Control pans and zooms.
#include <SDL.h>
#include <SDL_opengl.h>
#include <backends/imgui_impl_opengl3.h>
#include <backends/imgui_impl_sdl.h>
#include <imgui.h>
#include <vostel.hpp>

#include <algorithm>
#include <cctype>
#include <cstdint>
#include <cstdio>
#include <stdexcept>
#include <utility>
#include <vector>

namespace {

// An item as large as what is left of its window. The pixel ratio stays 1: ImGui's pixels are those of the
// display.
class CanvasItem {
public:
    explicit CanvasItem(const char* picture)
    {
        Canvas.image_open(picture);
        glGenTextures(1, &Texture);
        glBindTexture(GL_TEXTURE_2D, Texture);
        glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
        glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_NEAREST);
    }
    ~CanvasItem() { glDeleteTextures(1, &Texture); }
    CanvasItem(const CanvasItem&) = delete;
    CanvasItem& operator=(const CanvasItem&) = delete;

    void Show()
    {
        TakeArea(ImGui::GetContentRegionAvail());
        const ImVec2 origin = ImGui::GetCursorScreenPos();
        ImGui::InvisibleButton("canvas", ImVec2(static_cast<float>(Width), static_cast<float>(Height)));
        TakeEvents(origin);
        if (std::exchange(FrameIsOld, false))
            Upload();
        const auto texture = reinterpret_cast<ImTextureID>(static_cast<std::uintptr_t>(Texture));
        ImGui::GetWindowDrawList()->AddImage(texture, ImGui::GetItemRectMin(), ImGui::GetItemRectMax());
    }

private:
    void TakeArea(ImVec2 area)
    {
        const int width = std::max(static_cast<int>(area.x), 1),
                  height = std::max(static_cast<int>(area.y), 1);
        if (width == Width && height == Height)
            return;
        Canvas.resize(width, height);
        if (Width == 0)
            Canvas.view_fit();
        Width = width;
        Height = height;
        FrameIsOld = true;
    }
    void TakeEvents(ImVec2 origin)
    {
        const ImGuiIO&      io = ImGui::GetIO();
        const vostel::Point at = {io.MousePos.x - origin.x, io.MousePos.y - origin.y};
        const std::uint32_t flags = (io.KeyShift ? VOSTEL_SHIFT : 0) | (io.KeyCtrl ? VOSTEL_CONTROL : 0);
        const bool          moved = io.MouseDelta.x != 0.0f || io.MouseDelta.y != 0.0f;
        if (moved && (ImGui::IsItemHovered() || ImGui::IsItemActive()))
            Canvas.event_move(at, flags | (ImGui::IsItemActive() ? VOSTEL_LEFT_BUTTON : 0));
        if (ImGui::IsItemActivated()) {
            if (io.KeyShift && Canvas.selection().empty())
                Canvas.draw_next(VOSTEL_RECTANGLE);    // what the drag draws
            Canvas.event_press(at, flags);
        }
        if (ImGui::IsItemDeactivated())
            Canvas.event_release(at, flags);
        if (!ImGui::IsItemHovered())
            return;
        if (io.MouseWheel != 0.0f)
            Canvas.event_wheel(at, static_cast<double>(io.MouseWheel), flags);
        for (const ImWchar letter : io.InputQueueCharacters)
            if (letter < 128 && std::isalpha(letter) != 0)
                Canvas.event_key(static_cast<std::uint32_t>(std::toupper(letter)));
    }
    void Upload()
    {
        Pixels.resize(static_cast<std::size_t>(Width) * static_cast<std::size_t>(Height));
        Canvas.frame_render_to(Pixels.data(), Width, Height);
        glBindTexture(GL_TEXTURE_2D, Texture);
        glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA, Width, Height, 0, GL_BGRA, GL_UNSIGNED_BYTE, Pixels.data());
    }

    GLuint                     Texture = 0;
    int                        Width = 0, Height = 0;
    std::vector<std::uint32_t> Pixels;
    bool                       FrameIsOld = true;
    vostel::Canvas             Canvas{640, 480};
    vostel::Subscription       Repaints =
        Canvas.listen(VOSTEL_FRAME_STALE, [this](const vostel::Event&) { FrameIsOld = true; });
};

void Run(SDL_Window* window, const char* picture)
{
    CanvasItem canvas(picture);
    for (;;) {
        SDL_Event event = {};
        SDL_WaitEventTimeout(&event, 100);
        do {
            if (event.type == SDL_QUIT)
                return;
            ImGui_ImplSDL2_ProcessEvent(&event);
        } while (SDL_PollEvent(&event) != 0);
        ImGui_ImplOpenGL3_NewFrame();
        ImGui_ImplSDL2_NewFrame();
        ImGui::NewFrame();
        ImGui::SetNextWindowPos(ImVec2(10, 10), ImGuiCond_FirstUseEver);
        ImGui::SetNextWindowSize(ImVec2(620, 460), ImGuiCond_FirstUseEver);
        ImGui::Begin("Canvas");
        canvas.Show();
        ImGui::End();
        ImGui::Render();
        glViewport(0, 0, static_cast<int>(ImGui::GetIO().DisplaySize.x),
                   static_cast<int>(ImGui::GetIO().DisplaySize.y));
        glClear(GL_COLOR_BUFFER_BIT);
        ImGui_ImplOpenGL3_RenderDrawData(ImGui::GetDrawData());
        SDL_GL_SwapWindow(window);
    }
}

}

int main(int argc, char** argv)
try {
    if (SDL_Init(SDL_INIT_VIDEO) != 0)
        throw std::runtime_error(SDL_GetError());
    SDL_Window* window = SDL_CreateWindow("Canvas", SDL_WINDOWPOS_CENTERED, SDL_WINDOWPOS_CENTERED, 640, 480,
                                          SDL_WINDOW_OPENGL | SDL_WINDOW_RESIZABLE);
    SDL_GLContext context = window ? SDL_GL_CreateContext(window) : nullptr;
    if (!context)
        throw std::runtime_error(SDL_GetError());
    ImGui::CreateContext();
    ImGui::GetIO().IniFilename = nullptr;
    ImGui_ImplSDL2_InitForOpenGL(window, context);
    ImGui_ImplOpenGL3_Init("#version 130");
    Run(window, argc > 1 ? argv[1] : "samples/coins.png");
    ImGui_ImplOpenGL3_Shutdown();
    ImGui_ImplSDL2_Shutdown();
    ImGui::DestroyContext();
    SDL_GL_DeleteContext(context);
    SDL_DestroyWindow(window);
    SDL_Quit();
    return 0;
} catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
}
