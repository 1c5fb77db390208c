#pragma once

#include "common/MemoryBitmap.h"

#include <VostelObj.h>

#include <filesystem>
#include <string>
#include <vector>

// A file name as the library takes it. Not through the locale, which may know ASCII only.
CString NameOf(const std::filesystem::path& path);

// A host without a window: a memory bitmap takes the place of the screen. It hands the canvas the events that
// a window would get, and writes frames as pictures.
class Host {
public:
    Host(int canvas, int width, int height);
    Host(const Host&) = delete;
    Host& operator=(const Host&) = delete;

    // Gestures, as a user makes them. Points are client px.
    void Move(CPoint at);
    void Click(unsigned int flags, CPoint at);
    void Drag(unsigned int flags, CPoint from, CPoint to);
    void DragAlong(unsigned int flags, const std::vector<CPoint>& path);
    void Zoom(int steps, CPoint at);    // Control and the wheel; negative steps zoom out
    void Key(char key);
    void Paint();

    // Client px of an image position.
    CPoint At(double imageX, double imageY) const;

    HDC Context() const { return Screen.Dc; }    // what the last paint left

    // Paints and writes the frame; false when the file cannot be written.
    bool WriteFrame(const std::string& path);

private:
    int          Canvas;
    MemoryBitmap Screen;
};
