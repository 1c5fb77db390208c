#include "platform/PictureSaving.h"

#if defined(VOSTEL_HAS_FRAMEWORK_CLASSES)
#    include "platform/FileSaving.h"
#endif

namespace vostel {

HRESULT SavePicture(const ATL::CImage& picture, const CString& path)
{
#if defined(VOSTEL_HAS_FRAMEWORK_CLASSES)
    FileReplacement target(path);
    const CString   name = target.CloseToName();
    const HRESULT   saved = name.IsEmpty() ? E_FAIL : picture.Save(name);
    return saved >= 0 && !target.Keep() ? E_FAIL : saved;
#else
    return picture.Save(path);
#endif
}

}
