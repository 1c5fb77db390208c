#pragma once

#include "common/Host.h"

#include <VostelObj.h>

#include <string>

// A white page for documents: frames of canvases with their names below.
class Sheet {
public:
    static constexpr int NameHeight = 30;

    Sheet(int width, int height);
    ~Sheet();
    Sheet(const Sheet&) = delete;
    Sheet& operator=(const Sheet&) = delete;

    // Copies what the host's last paint left, width by height px, and writes the name.
    void Place(const Host& host, int x, int y, int width, int height, const wchar_t* name);

    // Writes the page in the format that the extension names; false when that fails.
    bool Save(const std::string& path);

private:
    CImage Page;
    HDC    Context = nullptr;
};
