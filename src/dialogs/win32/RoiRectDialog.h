#pragma once

// A region of an image by its four edges.

#include "dialogs/win32/ParameterDialog.h"
#include "dialogs/win32/ParameterFile.h"
#include "vostel/Tessik.h"

namespace vostel {

class RoiRectDialog : public ParameterDialog {
public:
    explicit RoiRectDialog(const tagZEKImaROIRectPara& start);

    tagZEKImaROIRectPara Para;    // what the fields start with, and the result after a confirmed Ask

    void Recall(const ParameterFile& file);    // fields the file does not know keep their values
    void Keep(const ParameterFile& file) const;

protected:
    void Fill() override;
    bool Read() override;
};

}
