// CompareScenes DIRECTORY DIRECTORY: compares two sets of scenes, picture by picture. Exact scenes have to
// agree in every pixel. Prints the count of differing pixels of each and fails unless every scene keeps its
// bound and both directories hold the same scenes.

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace {

struct SceneImage {
    int                        Width = 0, Height = 0;
    std::vector<unsigned char> Body;    // red, green, blue
};

bool ReadPicture(const std::filesystem::path& path, SceneImage& picture)
{
    std::FILE* file = std::fopen(path.string().c_str(), "rb");
    if (!file)
        return false;
    int  highest = 0;
    bool whole = std::fscanf(file, "P6 %d %d %d", &picture.Width, &picture.Height, &highest) == 3 &&
                 std::fgetc(file) != EOF && highest == 255 && picture.Width > 0 && picture.Height > 0 &&
                 picture.Width <= 16384 && picture.Height <= 16384;
    if (whole) {
        picture.Body.resize(static_cast<std::size_t>(picture.Width) * picture.Height * 3);
        whole = std::fread(picture.Body.data(), 1, picture.Body.size(), file) == picture.Body.size();
    }
    std::fclose(file);
    return whole;
}

struct Box {
    int Left = 1 << 30, Top = 1 << 30, Right = -1, Bottom = -1;    // right and bottom included
};

// Where a picture differs from its background, which is the color of its last pixel.
Box InkBox(const SceneImage& picture)
{
    Box                  box;
    const unsigned char* background = picture.Body.data() + picture.Body.size() - 3;
    const unsigned char* pixel = picture.Body.data();
    for (int y = 0; y < picture.Height; ++y)
        for (int x = 0; x < picture.Width; ++x, pixel += 3)
            if (!std::equal(pixel, pixel + 3, background)) {
                box.Left = std::min(box.Left, x);
                box.Right = std::max(box.Right, x);
                box.Top = std::min(box.Top, y);
                box.Bottom = std::max(box.Bottom, y);
            }
    return box;
}

// How far a picture is from its background, over all channels.
double Ink(const SceneImage& picture)
{
    const unsigned char* background = picture.Body.data() + picture.Body.size() - 3;
    double               sum = 0;
    for (std::size_t i = 0; i < picture.Body.size(); ++i)
        sum += std::abs(picture.Body[i] - background[i % 3]);
    return sum;
}

struct Difference {
    long long Pixels = 0;
    int       Largest = 0;
    double    Mean = 0;    // of all channels, 0..255
};

Difference Compare(const SceneImage& a, const SceneImage& b)
{
    Difference difference;
    double     sum = 0;
    for (std::size_t i = 0; i < a.Body.size(); i += 3) {
        int largest = 0;
        for (std::size_t c = i; c < i + 3; ++c) {
            int delta = std::abs(a.Body[c] - b.Body[c]);
            largest = std::max(largest, delta);
            sum += delta;
        }
        difference.Pixels += largest != 0;
        difference.Largest = std::max(difference.Largest, largest);
    }
    difference.Mean = sum / static_cast<double>(a.Body.size());
    return difference;
}

// Text is rasterised by the platform with the platform's fonts: the same words have to stand in the same
// place and leave a like amount of ink, but glyphs and their widths are free within these bounds.
constexpr double GlyphMean = 6.0;
constexpr int    GlyphReach = 40;     // px between the edges of the two inks
constexpr double GlyphRatio = 1.7;    // of the two amounts of ink

// A smoothed stretch may differ by the rounding of its weights, not by a shift of the picture.
constexpr double QualityMean = 0.5;
constexpr int    QualityMax = 4;

bool KeepsBound(const std::string& name, const SceneImage& a, const SceneImage& b,
                const Difference& difference)
{
    if (name.ends_with(".glyphs.ppm")) {
        Box    p = InkBox(a), q = InkBox(b);
        double inkA = Ink(a), inkB = Ink(b);
        return difference.Mean <= GlyphMean && inkA > 0 && inkB > 0 && inkA <= inkB * GlyphRatio &&
               inkB <= inkA * GlyphRatio && std::abs(p.Left - q.Left) <= GlyphReach &&
               std::abs(p.Top - q.Top) <= GlyphReach && std::abs(p.Right - q.Right) <= GlyphReach &&
               std::abs(p.Bottom - q.Bottom) <= GlyphReach;
    }
    if (name.ends_with(".quality.ppm"))
        return difference.Mean <= QualityMean && difference.Largest <= QualityMax;
    return difference.Pixels == 0;
}

std::map<std::string, std::filesystem::path> Pictures(const char* directory)
{
    std::map<std::string, std::filesystem::path> pictures;
    std::error_code                              error;
    for (const auto& entry : std::filesystem::directory_iterator(directory, error))
        if (entry.path().extension() == ".ppm")
            pictures[entry.path().filename().string()] = entry.path();
    return pictures;
}

}

int main(int argc, char** argv)
{
    if (argc != 3) {
        std::fprintf(stderr, "CompareScenes DIRECTORY DIRECTORY\n");
        return 2;
    }
    auto first = Pictures(argv[1]), second = Pictures(argv[2]);
    int  failures = 0;
    for (const auto& [name, path] : second)
        if (!first.contains(name)) {
            std::printf("%-48s only in %s\n", name.c_str(), argv[2]);
            ++failures;
        }
    for (const auto& [name, path] : first) {
        auto other = second.find(name);
        if (other == second.end()) {
            std::printf("%-48s only in %s\n", name.c_str(), argv[1]);
            ++failures;
            continue;
        }
        SceneImage a, b;
        if (!ReadPicture(path, a) || !ReadPicture(other->second, b) || a.Width != b.Width ||
            a.Height != b.Height) {
            std::printf("%-48s unreadable or of another size\n", name.c_str());
            ++failures;
            continue;
        }
        Difference difference = Compare(a, b);
        bool       kept = KeepsBound(name, a, b, difference);
        std::printf("%-48s %8lld pixels differ, by %3d at most, mean %.3f%s\n", name.c_str(),
                    difference.Pixels, difference.Largest, difference.Mean, kept ? "" : "   FAILED");
        failures += kept ? 0 : 1;
    }
    std::printf("%zu scenes, %d failures\n", first.size(), failures);
    return failures == 0 && !first.empty() ? 0 : 1;
}
