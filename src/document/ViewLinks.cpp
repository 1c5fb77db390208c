#include "document/ViewLinks.h"

#include <algorithm>
#include <atomic>
#include <cstdint>
#include <mutex>
#include <utility>
#include <vector>

namespace vostel {

namespace {

struct Group {
    std::vector<int> Members;    // two or more; no canvas is in two groups
    std::uint64_t    LastShow = 0;

    bool Has(int canvas) const { return std::find(Members.begin(), Members.end(), canvas) != Members.end(); }
};

struct Links {
    std::mutex         Lock;
    std::vector<Group> Groups;
    std::atomic<bool>  AreThere{false};
    ShowOnCanvas       Show = nullptr;
    std::uint64_t      Shows = 0;    // so far, of all groups

    // Null for a canvas that is in none.
    Group* Find(int canvas)
    {
        const auto found = std::find_if(Groups.begin(), Groups.end(),
                                        [canvas](const Group& group) { return group.Has(canvas); });
        return found == Groups.end() ? nullptr : &*found;
    }
    std::vector<int> MembersBeside(int canvas)
    {
        const Group* const group = Find(canvas);
        return group ? group->Members : std::vector<int>{canvas};
    }
    void Drop(int canvas)
    {
        std::erase_if(Groups, [canvas](const Group& group) { return group.Has(canvas); });
    }
};

Links gLinks;

}

void LinkCanvas(int canvas, int with, ShowOnCanvas show)
{
    const std::lock_guard<std::mutex> hold(gLinks.Lock);
    Group                             joined{gLinks.MembersBeside(with)};
    if (joined.Has(canvas))
        return;
    const std::vector<int> own = gLinks.MembersBeside(canvas);
    joined.Members.insert(joined.Members.end(), own.begin(), own.end());
    gLinks.Groups.reserve(gLinks.Groups.size() + 1);
    gLinks.Drop(canvas);
    gLinks.Drop(with);
    gLinks.Groups.push_back(std::move(joined));
    gLinks.Show = show;
    gLinks.AreThere = true;
}

void UnlinkCanvas(int canvas) noexcept
{
    if (!gLinks.AreThere)
        return;
    const std::lock_guard<std::mutex> hold(gLinks.Lock);
    Group* const                      group = gLinks.Find(canvas);
    if (!group)
        return;
    std::erase(group->Members, canvas);
    if (group->Members.size() < 2)
        gLinks.Drop(group->Members.front());
    gLinks.AreThere = !gLinks.Groups.empty();
}

void ShowOnLinked(int canvas, const MiddleView& view)
{
    if (!gLinks.AreThere)
        return;
    std::vector<int> members;
    std::uint64_t    number = 0;
    ShowOnCanvas     show = nullptr;
    {
        const std::lock_guard<std::mutex> hold(gLinks.Lock);
        Group* const                      group = gLinks.Find(canvas);
        if (!group)
            return;
        members = group->Members;
        number = group->LastShow = ++gLinks.Shows;
        show = gLinks.Show;
    }
    // A listener may move the group on meanwhile, or change it: then the rest has seen a later view.
    const auto isLatest = [&] {
        const std::lock_guard<std::mutex> hold(gLinks.Lock);
        const Group* const                group = gLinks.Find(canvas);
        return group && group->LastShow == number;
    };
    for (const int member : members) {
        if (!isLatest())
            return;
        if (member != canvas)
            show(member, view);
    }
}

}
