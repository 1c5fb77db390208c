#include "canvas/BoxIndex.h"

#define BOOST_ALLOW_DEPRECATED_HEADERS    // the library includes such of its own
#include <boost/geometry/algorithms/intersects.hpp>
#include <boost/geometry/geometries/box.hpp>
#include <boost/geometry/geometries/point.hpp>
#include <boost/geometry/index/rtree.hpp>
#include <boost/iterator/function_output_iterator.hpp>

namespace vostel {

namespace {

namespace geometry = boost::geometry;

using Point = geometry::model::point<double, 2, geometry::cs::cartesian>;
using Box = geometry::model::box<Point>;

Box BoxOf(const Bounds& bounds)
{
    return Box(Point(bounds.Left, bounds.Top), Point(bounds.Right, bounds.Bottom));
}

struct BoxOfItem {
    using result_type = Box;    // NOLINT(readability-identifier-naming): the name is that library's
    Box operator()(const BoxIndex::Item& item) const { return BoxOf(item.Box); }
};

// One item is as another if it is of the same object.
struct SameObject {
    bool operator()(const BoxIndex::Item& a, const BoxIndex::Item& b) const { return a.Object == b.Object; }
};

constexpr std::size_t MostPerNode = 16;

}

struct BoxIndex::Tree
    : geometry::index::rtree<Item, geometry::index::quadratic<MostPerNode>, BoxOfItem, SameObject> {
    using rtree::rtree;
};

BoxIndex::BoxIndex() = default;

BoxIndex::~BoxIndex() = default;

void BoxIndex::Clear() noexcept
{
    Boxes.reset();
}

void BoxIndex::Build(const std::vector<Item>& items)
{
    Boxes.reset();
    Boxes = std::make_unique<Tree>(items.begin(), items.end());
}

void BoxIndex::Insert(const Item& item)
{
    if (!Boxes)
        Boxes = std::make_unique<Tree>();
    Boxes->insert(item);
}

void BoxIndex::Remove(const Item& item)
{
    if (Boxes)
        Boxes->remove(item);
}

void BoxIndex::Find(const Bounds& area, std::vector<VostelObj*>& found) const
{
    if (Boxes)
        Boxes->query(
            geometry::index::intersects(BoxOf(area)),
            boost::make_function_output_iterator([&](const Item& item) { found.push_back(item.Object); }));
}

std::size_t BoxIndex::Count() const
{
    return Boxes ? Boxes->size() : 0;
}

}
