#include "document/ObjectState.h"

namespace vostel {

namespace {

// An object without its numbers, for the length of a scope.
class Unnumbered {
public:
    explicit Unnumbered(VostelObj& object)
        : Object(object), SerialNo(object.SerialNo), TypeSerial(object.TypeSerial)
    {
        Object.SerialNo = Object.TypeSerial = 0;
    }
    ~Unnumbered()
    {
        Object.SerialNo = SerialNo;
        Object.TypeSerial = TypeSerial;
    }
    Unnumbered(const Unnumbered&) = delete;
    Unnumbered& operator=(const Unnumbered&) = delete;

private:
    VostelObj& Object;
    int        SerialNo;
    int        TypeSerial;
};

}

std::vector<unsigned char> SaveShape(VostelObj& object)
{
    const Unnumbered scope(object);
    return object.SaveState();
}

bool LoadShape(VostelObj& object, const std::vector<unsigned char>& shape)
{
    const Unnumbered scope(object);
    return object.LoadState(shape);
}

}
