// SceneDrawer DIRECTORY [NAME]: draws every scene, or those whose names begin with NAME, and writes each as
// a portable pixmap into the directory, which has to exist.

#include "Scenes.h"

#include <cstddef>
#include <cstdio>
#include <cstring>
#include <string>

SceneBitmap::SceneBitmap(int width, int height, int bitsPerPixel, bool topDown, COLORREF background)
    : Width(width), Height(height), bytesPerPixel(bitsPerPixel / 8),
      rowBytes((width * bytesPerPixel + 3) & ~3), topDown(topDown)
{
    BITMAPINFO info = {};
    info.bmiHeader.biSize = sizeof(info.bmiHeader);
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = topDown ? -height : height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = static_cast<WORD>(bitsPerPixel);
    void* bits = nullptr;
    Dc = CreateCompatibleDC(nullptr);
    bitmap = CreateDIBSection(Dc, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    Bits = static_cast<unsigned char*>(bits);
    before = SelectObject(Dc, bitmap);
    RECT   all = {0, 0, width, height};
    HBRUSH brush = CreateSolidBrush(background);
    FillRect(Dc, &all, brush);
    DeleteObject(brush);
}

SceneBitmap::~SceneBitmap()
{
    SelectObject(Dc, before);
    DeleteObject(bitmap);
    DeleteDC(Dc);
}

const unsigned char* SceneBitmap::Pixel(int x, int y) const
{
    std::ptrdiff_t row = topDown ? y : Height - 1 - y;
    return Bits + row * rowBytes + x * bytesPerPixel;
}

namespace {

bool WritePicture(const SceneBitmap& picture, const std::string& path)
{
    std::vector<unsigned char> body(static_cast<std::size_t>(picture.Width) * picture.Height * 3);
    unsigned char*             target = body.data();
    for (int y = 0; y < picture.Height; ++y)
        for (int x = 0; x < picture.Width; ++x, target += 3) {
            const unsigned char* pixel = picture.Pixel(x, y);
            target[0] = pixel[2];
            target[1] = pixel[1];
            target[2] = pixel[0];
        }
    std::FILE* file = std::fopen(path.c_str(), "wb");
    if (file == nullptr)
        return false;
    std::fprintf(file, "P6\n%d %d\n255\n", picture.Width, picture.Height);
    bool whole = std::fwrite(body.data(), 1, body.size(), file) == body.size();
    return std::fclose(file) == 0 && whole;
}

const char* Suffix(Agreement agreement)
{
    switch (agreement) {
    case Agreement::Glyphs:
        return ".glyphs.ppm";
    case Agreement::Quality:
        return ".quality.ppm";
    default:
        return ".exact.ppm";
    }
}

}

int main(int argc, char** argv)
{
    if (argc < 2) {
        std::fprintf(stderr, "SceneDrawer DIRECTORY [NAME]\n");
        return 2;
    }
    const char* wanted = argc > 2 ? argv[2] : "";
    int         drawn = 0;
    for (auto group : {LineScenes, WideLineScenes, ShapeScenes, FillScenes, StretchScenes, TextScenes,
                       CanvasScenes, OverlayScenes, InstrumentScenes})
        for (const Scene& scene : group()) {
            if (std::strncmp(scene.Name, wanted, std::strlen(wanted)) != 0)
                continue;
            SceneBitmap picture(scene.Width, scene.Height, scene.BitsPerPixel, scene.TopDown,
                                RGB(210, 214, 220));
            if (picture.Bits == nullptr) {
                std::fprintf(stderr, "SceneDrawer: no bitmap for %s\n", scene.Name);
                return 1;
            }
            scene.Draw(picture.Dc, scene.Width, scene.Height);
            GdiFlush();
            std::string path = std::string(argv[1]) + "/" + scene.Name + Suffix(scene.Agrees);
            if (!WritePicture(picture, path)) {
                std::fprintf(stderr, "SceneDrawer: cannot write %s\n", path.c_str());
                return 1;
            }
            ++drawn;
        }
    std::printf("%d scenes\n", drawn);
    return 0;
}
