#pragma once

// What the targets of the fuzzer share. Checks are those of doctest; one that fails ends the program, so that
// the fuzzer keeps the input.

#include "support/OpenCanvas.h"
#include "support/TempFolder.h"

#include <string>
#include <string_view>

void StopAtFailedChecks();

// One run of a target with an input.
void FuzzOne(std::string_view input);

// A file with the input, in a folder of this process.
std::string WriteInput(const std::string& name, std::string_view input);
std::string ReadBack(const std::string& path);

// A canvas of 160 x 120 px with a gray image of 64 x 48.
class FuzzCanvas : public OpenCanvas {
public:
    FuzzCanvas();

    // Without keep flags the objects and the history go.
    void         ShowImage(std::uint32_t flags) const;
    VostelObject AddRectangle() const;
};

// A PNG of that image, in the folder of WriteInput.
std::string SaveFuzzImage();

// A call of files on a canvas either succeeds or says what is wrong with the file.
void CheckStatus(VostelStatus status);
