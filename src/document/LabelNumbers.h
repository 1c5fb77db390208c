#pragma once

#include <algorithm>
#include <unordered_map>

namespace vostel {

// Labels of regions. Several may have the same one, if a host wants so.
class LabelNumbers {
public:
    int Lowest()
    {
        while (Uses.contains(Free))
            ++Free;
        return Free;
    }
    void Use(int label)
    {
        if (label > 0)
            ++Uses[label];
    }
    void Release(int label)
    {
        const auto found = Uses.find(label);
        if (found == Uses.end() || --found->second > 0)
            return;
        Uses.erase(found);
        Free = std::min(Free, label);
    }

private:
    std::unordered_map<int, int> Uses;
    int                          Free = 1;    // no lower one is free
};

}
