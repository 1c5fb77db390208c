// SceneDrawer DIRECTORY [NAME]: draws every scene, or those whose names begin with NAME, and writes each as
// a portable pixmap into the directory, which has to exist.

#include "Scenes.h"

#include <cstddef>
#include <cstdio>
#include <cstring>
#include <string>

namespace {

bool WritePicture(const SceneBitmap& picture, const std::string& path)
{
    std::vector<unsigned char> body(static_cast<std::size_t>(picture.Width) * picture.Height * 3);
    unsigned char*             target = body.data();
    for (int y = 0; y < picture.Height; ++y) {
        const unsigned char* pixel = picture.Row(y);
        for (int x = 0; x < picture.Width; ++x, pixel += picture.BitsPerPixel / 8, target += 3) {
            target[0] = pixel[2];
            target[1] = pixel[1];
            target[2] = pixel[0];
        }
    }
    std::FILE* file = std::fopen(path.c_str(), "wb");
    if (!file)
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
            if (!picture.Bits) {
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
