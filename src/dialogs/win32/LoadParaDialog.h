#pragma once

// The layout of a headerless raw file.

#include "dialogs/win32/ParameterDialog.h"
#include "dialogs/win32/ParameterFile.h"
#include "vostel/Tessik.h"

namespace vostel {

class LoadParaDialog : public ParameterDialog {
public:
    explicit LoadParaDialog(const tagZEKImaLoadPara& start);

    tagZEKImaLoadPara Para;    // what the fields start with, and the result after a confirmed Ask

    void Recall(const ParameterFile& file);    // fields the file does not know keep their values
    void Keep(const ParameterFile& file) const;

protected:
    void Fill() override;
    bool Read() override;
};

}
