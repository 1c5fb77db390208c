// Raw files of 4096 x 4096 samples on a memory file system, beside OpenCV reading the same bytes and
// converting them, and a gray picture written with 24 bits.

#include "support/PeerBench.h"

#include <VostelObj.h>
#include <vostel.h>

#include <opencv2/core.hpp>
#include <opencv2/imgcodecs.hpp>
#include <opencv2/imgproc.hpp>

#include <cstdio>
#include <cstring>
#include <filesystem>
#include <random>
#include <string>

using namespace vostel;

namespace {

constexpr int         Size = 4096;
constexpr std::size_t Pixels = static_cast<std::size_t>(Size) * Size;

cv::Mat ReadMat(const std::string& path, int type)
{
    cv::Mat          mat(Size, Size, type);
    std::FILE* const file = std::fopen(path.c_str(), "rb");
    if (!file || std::fread(mat.data, mat.elemSize(), Pixels, file) != Pixels)
        mat.release();
    if (file)
        std::fclose(file);
    return mat;
}

}

int main(int argc, char** argv)
{
    bench::PeerBench  peers(argc, argv);
    const std::string memory = std::filesystem::is_directory("/dev/shm")
                                   ? "/dev/shm"
                                   : std::filesystem::temp_directory_path().string();
    const std::string folder = memory + "/vostel-raw-" + std::to_string(std::random_device()());
    std::filesystem::create_directory(folder);
    std::string        path = folder + "/samples.raw";
    std::vector<float> samples(Pixels);
    std::mt19937       random(7);
    for (float& v : samples)
        v = static_cast<float>(random() % 65536);
    if (std::FILE* const file = std::fopen(path.c_str(), "wb")) {
        std::fwrite(samples.data(), sizeof(float), Pixels, file);
        std::fclose(file);
    }

    ClassData2DIO<unsigned short> image;
    image.Allocate(Size, Size);
    cv::Mat words;
    struct Kind {
        const char* Name;
        int         Type;
        double      Offset;
    };
    for (const Kind& kind :
         {Kind{"float", CV_32FC1, 0.0}, {"short", CV_16SC1, 32768.0}, {"char", CV_8UC1, 0.0}}) {
        bench::Contest contest;
        contest.Title = std::string("ReadUsData ") + kind.Name;
        contest.Run = [&] {
            if (kind.Type == CV_32FC1)
                ReadUsDataFloat(image, path.data(), 0.0f, 65535.0f);
            else if (kind.Type == CV_16SC1)
                ReadUsDataShort(image, path.data());
            else
                ReadUsDataChar(image, path.data());
        };
        // All samples are whole numbers in range: rounding and saturating give the same.
        // Shorts and bytes come back in new buffers, so the peer fills a new one too.
        const auto theirs = [&] {
            if (kind.Type != CV_32FC1)
                words.release();
            ReadMat(path, kind.Type).convertTo(words, CV_16U, 1.0, kind.Offset);
        };
        contest.Check = [&] {
            theirs();
            return std::memcmp(words.data, image.Ptr1D, 2 * Pixels) == 0;
        };
        contest.Peers.push_back({"opencv convertTo", theirs, {}, {}});
        contest.AtMost = 1.0;
        peers.Compare(contest);
    }
    for (const bool bytes : {true, false}) {
        // Both keep their target from file to file.
        const VostelRawLayout layout = {sizeof layout, bytes ? VOSTEL_U8 : VOSTEL_U16, Size, Size, 0, 0};
        VostelPlane           plane = {sizeof plane, VOSTEL_U16, Size, Size, 0, image.Ptr1D};
        const auto     theirs = [&] { ReadMat(path, bytes ? CV_8UC1 : CV_16UC1).convertTo(words, CV_16U); };
        bench::Contest contest;
        contest.Title = std::string("vostel_read_raw ") + (bytes ? "bytes" : "words") + " into kept words";
        contest.Run = [&] { vostel_read_raw(path.c_str(), &layout, &plane); };
        contest.Check = [&] {
            theirs();
            return std::memcmp(words.data, image.Ptr1D, 2 * Pixels) == 0;
        };
        contest.Peers.push_back({"opencv convertTo, kept target", theirs, {}, {}});
        contest.AtMost = 1.0;
        peers.Compare(contest);
    }
    {
        ClassData2DIO<unsigned char> gray;
        gray.Allocate(Size, Size);
        for (std::size_t i = 0; i < Pixels; ++i)
            gray.Ptr1D[i] = static_cast<unsigned char>(random());
        const std::string ours = folder + "/ours.bmp", theirs = folder + "/theirs.bmp";
        CString           widePath(std::filesystem::path(ours).wstring().c_str());
        bench::Contest    contest;
        contest.Title = "gSaveUcData bmp";
        contest.Run = [&] { gSaveUcData(&gray, widePath); };
        contest.Check = [&] {
            cv::Mat back = cv::imread(ours, cv::IMREAD_COLOR), channel;
            if (back.empty())
                return false;
            cv::extractChannel(back, channel, 1);
            return std::memcmp(channel.data, gray.Ptr1D, Pixels) == 0;
        };
        contest.Peers.push_back({"opencv cvtColor, imwrite",
                                 [&] {
                                     cv::Mat color;
                                     cv::cvtColor(cv::Mat(Size, Size, CV_8UC1, gray.Ptr1D), color,
                                                  cv::COLOR_GRAY2BGR);
                                     cv::imwrite(theirs, color);
                                 },
                                 {},
                                 {}});
        contest.AtMost = 1.0;
        peers.Compare(contest);
    }
    std::filesystem::remove_all(folder);
    return peers.Finish();
}
