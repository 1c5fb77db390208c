#pragma once

#include "geometry/ImagePoint.h"

#include <cstddef>
#include <memory>
#include <vector>

namespace vostel {

class VostelObj;

// Objects by boxes in image px. What it holds of an object is what is given here: who changes a box takes the
// object out by the former one. Everything but Clear and Find may fail by bad_alloc and leaves an index that
// is good for Clear alone.
class BoxIndex {
public:
    struct Item {
        Bounds     Box;
        VostelObj* Object;
    };

    BoxIndex();
    ~BoxIndex();
    BoxIndex(const BoxIndex&) = delete;
    BoxIndex& operator=(const BoxIndex&) = delete;

    void Clear() noexcept;
    void Build(const std::vector<Item>& items);    // in the place of what was there
    void Insert(const Item& item);
    void Remove(const Item& item);
    // Appends the objects whose boxes touch the area, in no order.
    void Find(const Bounds& area, std::vector<VostelObj*>& found) const;

    std::size_t Count() const;

private:
    struct Tree;
    std::unique_ptr<Tree> Boxes;    // null while empty
};

}
