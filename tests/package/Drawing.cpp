// Draws a canvas with an object on it, and writes the frame to the file that the argument names. Once it is
// built alone, once together with HostNames.c.
#include <VostelObj.h>

#include <algorithm>
#include <cstdio>
#include <vector>

int main(int argc, char** argv)
{
    const int width = 200;
    const int height = 100;
    CRect     client(0, 0, width, height);
    gCVSSetClient(0, client, nullptr);
    std::vector<unsigned char> gray(64 * 64, 100);
    gCVSShowUCGray(0, gray.data(), 64, 64, true);    // in the middle, with background on both sides

    gCVSAddMRectangle(0);
    gCVSOnMouseMove(0, 0, CPoint(70, 20));
    gCVSOnLButtonDown(0, MK_SHIFT | MK_LBUTTON, CPoint(70, 20));
    gCVSOnMouseMove(0, MK_SHIFT | MK_LBUTTON, CPoint(120, 70));
    gCVSOnLButtonUp(0, MK_SHIFT, CPoint(120, 70));
    gCVSOnDraw(0, nullptr);

    const std::vector<unsigned> frame(gCVSGetClientPixelPtr(0), gCVSGetClientPixelPtr(0) + width * height);
    const bool                  drawn = frame[height / 2 * width + width / 2] == 0x646464 &&    // gray 100
                       std::count(frame.begin(), frame.end(), 0xFF0000u) > 0 &&    // the red outline
                       std::count(frame.begin(), frame.end(), 0x000000u) == 0;     // nothing is black
    std::FILE* file = argc > 1 ? std::fopen(argv[1], "wb") : nullptr;
    const bool saved =
        file && std::fwrite(frame.data(), sizeof(unsigned), frame.size(), file) == frame.size();
    if (file)
        std::fclose(file);
    std::printf("drawn: %d, saved: %d\n", drawn, saved);
    return drawn && saved ? 0 : 1;
}
