// BMP files of 4096 x 4096 pixels on a memory file system, so that no disk is timed: separate planes to a
// file and back. Planes and pictures that a read makes are new each time, ours as the peers'.

#include "support/PeerBench.h"

#include <VostelObj.h>

#include <QImage>
#include <opencv2/core.hpp>
#include <opencv2/imgcodecs.hpp>

#include <cstring>
#include <filesystem>
#include <random>
#include <string>

using namespace vostel;

namespace {

using Plane = ClassData2DIO<unsigned char>;

constexpr int         Size = 4096;
constexpr std::size_t Pixels = static_cast<std::size_t>(Size) * Size;

bool SamePixels(const Plane& a, const Plane& b)
{
    return a.Width == b.Width && a.Height == b.Height && std::memcmp(a.Ptr1D, b.Ptr1D, Pixels) == 0;
}

cv::Mat View(Plane& plane)
{
    return cv::Mat(Size, Size, CV_8UC1, plane.Ptr1D);
}

struct Files {
    std::string Folder;
    std::string Gray, Color, Color32;    // what is read
    std::string Ours, Theirs;            // what is written
    Files()
    {
        const char* const memory = "/dev/shm";
        const auto        root = std::filesystem::is_directory(memory) ? std::filesystem::path(memory)
                                                                       : std::filesystem::temp_directory_path();
        Folder = (root / ("vostel-bench-" + std::to_string(std::random_device()()))).string();
        std::filesystem::create_directory(Folder);
        Gray = Folder + "/gray.bmp";
        Color = Folder + "/color.bmp";
        Color32 = Folder + "/color32.bmp";
        Ours = Folder + "/ours.bmp";
        Theirs = Folder + "/theirs.bmp";
    }
    ~Files() { std::filesystem::remove_all(Folder); }
};

}

int main(int argc, char** argv)
{
    bench::PeerBench peers(argc, argv);
    Files            files;
    std::mt19937     random(4096);
    Plane            red, green, blue, grayOfRed, grayOfColor;
    for (Plane* plane : {&red, &green, &blue}) {
        plane->Allocate(Size, Size);
        for (std::size_t i = 0; i < Pixels; ++i)
            plane->Ptr1D[i] = static_cast<unsigned char>(random());
    }
    grayOfRed.Allocate(Size, Size);
    grayOfColor.Allocate(Size, Size);
    for (std::size_t i = 0; i < Pixels; ++i) {
        int gray = 0;
        ColorToGrayPixel(red.Ptr1D[i], red.Ptr1D[i], red.Ptr1D[i], gray);
        grayOfRed.Ptr1D[i] = static_cast<unsigned char>(gray);
        ColorToGrayPixel(red.Ptr1D[i], green.Ptr1D[i], blue.Ptr1D[i], gray);
        grayOfColor.Ptr1D[i] = static_cast<unsigned char>(gray);
    }
    const cv::Mat channels[] = {View(blue), View(green), View(red)};
    // imwrite stores the last row first; turned over, the file holds our row 0 first.
    cv::Mat turned;
    cv::flip(View(red), turned, 0);
    cv::imwrite(files.Gray, turned);
    cv::Mat merged, merged32;
    cv::merge(channels, 3, merged);
    cv::flip(merged, turned, 0);
    cv::imwrite(files.Color, turned);
    const cv::Mat channels32[] = {View(blue), View(green), View(red), View(red)};
    cv::merge(channels32, 4, merged32);
    cv::flip(merged32, turned, 0);
    cv::imwrite(files.Color32, turned);
    // With a longer information header the 32-bit file is none of ours.
    const bool plain32 = std::filesystem::file_size(files.Color32) == 54 + 4 * Pixels;

    // Over a file of the same size, and to a new one: there all the time goes into the file system.
    for (const bool fresh : {false, true}) {
        const std::string           suffix = fresh ? ", new file" : ", over the last one";
        const std::function<void()> prepare = [&, fresh] {
            if (fresh) {
                std::filesystem::remove(files.Ours);
                std::filesystem::remove(files.Theirs);
            }
        };
        bench::Contest contest;
        contest.Title = "gray write" + suffix;
        contest.Prepare = prepare;
        contest.Run = [&] { ZEKSaveGrayBmp(files.Ours.data(), red); };
        contest.Check = [&] {
            Plane r, g, b, a;
            return ZEKReadColorBmp(files.Ours.data(), &r, &g, &b, &a) && SamePixels(g, red);
        };
        contest.Peers.push_back(
            {"opencv imwrite", [&] { cv::imwrite(files.Theirs, View(red)); }, prepare, {}});
        contest.AtMost = 0.85;
        peers.Compare(contest);

        contest.Title = "color write" + suffix;
        contest.Run = [&] { ZEKSaveColorBmp(files.Ours.c_str(), &red, &green, &blue); };
        contest.Check = [&] {
            Plane r, g, b, a;
            return ZEKReadColorBmp(files.Ours.data(), &r, &g, &b, &a) && SamePixels(r, red) &&
                   SamePixels(g, green) && SamePixels(b, blue);
        };
        contest.Peers = {{"opencv merge + imwrite",
                          [&] {
                              cv::Mat image;
                              cv::merge(channels, 3, image);
                              cv::imwrite(files.Theirs, image);
                          },
                          prepare,
                          {}}};
        contest.AtMost = 0.8;
        peers.Compare(contest);
    }

    bool                        sameGray = false;
    const std::function<void()> readGray = [&] {
        Plane gray;
        ZEKReadGrayBmp(files.Gray.data(), &gray);
        sameGray =
            gray.Width == Size && gray.Ptr2D[Size - 1][Size - 1] == grayOfRed.Ptr2D[Size - 1][Size - 1];
    };
    const std::function<bool()> checkGray = [&] {
        Plane gray;
        ZEKReadGrayBmp(files.Gray.data(), &gray);
        return sameGray && SamePixels(gray, grayOfRed);
    };
    {
        bench::Contest contest;
        contest.Title = "gray read";
        contest.Run = readGray;
        contest.Check = checkGray;
        contest.Peers.push_back({"opencv imread",
                                 [&] { const cv::Mat image = cv::imread(files.Gray, cv::IMREAD_GRAYSCALE); },
                                 {},
                                 {}});
        contest.AtMost = 0.5;
        peers.Compare(contest);
    }
    {
        bench::Contest contest;
        contest.Title = "gray read, no gray made by the peer";
        contest.Run = readGray;
        contest.Check = checkGray;
        bool indexed = false;
        contest.Peers.push_back({"QImage",
                                 [&] {
                                     const QImage image(QString::fromStdString(files.Gray));
                                     indexed = image.format() == QImage::Format_Indexed8;
                                 },
                                 {},
                                 [&] { return indexed; }});
        contest.AtMost = 1.0;
        peers.Compare(contest);
    }

    bool       sameColor = false;
    const auto readColor = [&](std::string& path) {
        Plane r, g, b, a;
        ZEKReadColorBmp(path.data(), &r, &g, &b, &a);
        sameColor = r.Width == Size && r.Ptr2D[Size - 1][Size - 1] == red.Ptr2D[Size - 1][Size - 1];
    };
    const auto checkColor = [&](std::string& path) {
        Plane r, g, b, a;
        return ZEKReadColorBmp(path.data(), &r, &g, &b, &a) && sameColor && SamePixels(r, red) &&
               SamePixels(g, green) && SamePixels(b, blue);
    };
    {
        bench::Contest contest;
        contest.Title = "color read";
        contest.Run = [&] { readColor(files.Color); };
        contest.Check = [&] { return checkColor(files.Color); };
        contest.Peers.push_back({"opencv imread + split",
                                 [&] {
                                     std::vector<cv::Mat> planes;
                                     cv::split(cv::imread(files.Color, cv::IMREAD_COLOR), planes);
                                 },
                                 {},
                                 {}});
        contest.AtMost = 0.5;
        peers.Compare(contest);
    }
    if (plain32) {
        bench::Contest contest;
        contest.Title = "color read, 32 bits";
        contest.Run = [&] { readColor(files.Color32); };
        contest.Check = [&] { return checkColor(files.Color32); };
        contest.Peers.push_back({"opencv imread + split",
                                 [&] {
                                     std::vector<cv::Mat> planes;
                                     cv::split(cv::imread(files.Color32, cv::IMREAD_COLOR), planes);
                                 },
                                 {},
                                 {}});
        peers.Compare(contest);
    }
    {
        bench::Contest contest;
        contest.Title = "color file read as gray";
        bool sameSize = false;
        contest.Run = [&] {
            Plane gray;
            ZEKReadGrayBmp(files.Color.data(), &gray);
            sameSize = gray.Width == Size;
        };
        contest.Check = [&] {
            Plane gray;
            ZEKReadGrayBmp(files.Color.data(), &gray);
            return sameSize && SamePixels(gray, grayOfColor);
        };
        contest.Peers.push_back({"opencv imread",
                                 [&] { const cv::Mat image = cv::imread(files.Color, cv::IMREAD_GRAYSCALE); },
                                 {},
                                 {}});
        peers.Compare(contest);
    }
    return peers.Finish();
}
