#pragma once

// A canvas whose save dialogs a test replaces, and the files that came of them. The image fills the client
// area at scale 1, so that client and image pixels agree.

#include "support/HostCanvas.h"
#include "support/TempFolder.h"

#include <VostelObj.h>

#include <doctest/doctest.h>

#include <cstring>
#include <filesystem>
#include <string>
#include <vector>

inline constexpr int          Width = 200;
inline constexpr int          Height = 150;
inline constexpr unsigned int Red = 0xFF0000;

// A canvas whose user types a name into every dialog, and remembers what was asked.
struct SavingHost {
    HostCanvas                     Host{0, Width, Height};
    TempFolder                     Folder;
    std::vector<VostelFileRequest> Requests;
    CString                        Name;
    bool                           Accept = true;

    SavingHost()
    {
        Host.Desktop.ChooseFiles = [this](const VostelFileRequest& request, std::vector<CString>& paths) {
            Requests.push_back(request);
            paths.assign(1, Name);
            return Accept;
        };
    }

    // A picture in which every pixel encodes its place.
    void ShowPicture()
    {
        Host.ShowGray(Width, Height, [](int x, int y) { return (x * 3 + y * 7) & 0xFF; });
        REQUIRE(Host.IsScaleOne());
        REQUIRE(Host.Region() == CRect(0, 0, Width, Height));
    }
    static unsigned int PictureWord(int x, int y)
    {
        return static_cast<unsigned int>((x * 3 + y * 7) & 0xFF) * 0x010101u;
    }
    static Frame Picture()
    {
        Frame frame(Width, Height);
        for (int y = 0; y < Height; ++y)
            for (int x = 0; x < Width; ++x)
                frame.At(x, y) = PictureWord(x, y);
        return frame;
    }

    std::string Save(void (*operation)(int), const char* file)
    {
        Name = Folder.WidePath(file);
        operation(Host.Number);
        return Folder.Path(file);
    }
    bool Exists(const char* file) const { return std::filesystem::exists(Folder.Path(file)); }

    void DrawRect(CPoint from, CPoint to)
    {
        gCVSAddMRectangle(Host.Number);
        Host.Move(from.x, from.y);
        Host.Drag(from, to, MK_LBUTTON | MK_SHIFT);
        Host.Paint();    // the boxes are those of the last paint
    }
    void Deselect()
    {
        Host.Press(Width - 1, Height - 1);
        Host.Release(Width - 1, Height - 1);
    }
};

// Colors of a picture file; the depth goes to *depth. A picture with an alpha channel has to be opaque.
inline Frame Load(const std::string& path, int* depth = nullptr)
{
    CImage        picture;
    const HRESULT loaded = picture.Load(std::filesystem::path(path).wstring().c_str());
    CHECK(loaded >= 0);
    if (loaded < 0)
        return Frame();
    if (depth)
        *depth = picture.GetBPP();
    const int bytes = picture.GetBPP() / 8;
    CHECK(bytes >= 3);
    if (bytes < 3)
        return Frame();
    Frame frame(picture.GetWidth(), picture.GetHeight());
    for (int y = 0; y < frame.Height; ++y) {
        const unsigned char* pixel = static_cast<const unsigned char*>(picture.GetBits()) +
                                     static_cast<std::ptrdiff_t>(y) * picture.GetPitch();
        for (int x = 0; x < frame.Width; ++x, pixel += bytes)
            frame.At(x, y) = pixel[0] | pixel[1] << 8 | pixel[2] << 16;
    }
    return frame;
}

inline Frame Part(const Frame& whole, const CRect& box)
{
    Frame part(box.Width(), box.Height());
    for (int y = 0; y < part.Height; ++y)
        for (int x = 0; x < part.Width; ++x)
            part.At(x, y) = whole.At(box.left + x, box.top + y);
    return part;
}

inline int Count(const Frame& frame, unsigned int value)
{
    int count = 0;
    for (const unsigned int pixel : frame.Pixels)
        count += pixel == value ? 1 : 0;
    return count;
}

inline unsigned int Word32(const std::vector<unsigned char>& bytes, std::size_t at)
{
    unsigned int value = 0;
    std::memcpy(&value, bytes.data() + at, sizeof value);
    return value;
}
