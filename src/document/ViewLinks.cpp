#include "document/ViewLinks.h"

#include <algorithm>
#include <atomic>
#include <mutex>
#include <vector>

namespace vostel {

namespace {

using Group = std::vector<int>;

struct Links {
    std::mutex         Lock;
    std::vector<Group> Groups;    // each of two canvases or more; no canvas is in two of them
    std::atomic<bool>  AreThere{false};
    ShowOnCanvas       Show = nullptr;

    std::vector<Group>::iterator Find(int canvas)
    {
        return std::find_if(Groups.begin(), Groups.end(), [&](const Group& group) {
            return std::find(group.begin(), group.end(), canvas) != group.end();
        });
    }
    Group GroupOf(int canvas)
    {
        const auto found = Find(canvas);
        return found == Groups.end() ? Group{canvas} : *found;
    }
};

Links gLinks;

}

void LinkCanvas(int canvas, int with, ShowOnCanvas show)
{
    const std::lock_guard<std::mutex> hold(gLinks.Lock);
    Group                             joined = gLinks.GroupOf(with);
    if (std::find(joined.begin(), joined.end(), canvas) != joined.end())
        return;
    const Group own = gLinks.GroupOf(canvas);
    joined.insert(joined.end(), own.begin(), own.end());
    gLinks.Groups.reserve(gLinks.Groups.size() + 1);
    for (const int member : {canvas, with}) {
        const auto found = gLinks.Find(member);
        if (found != gLinks.Groups.end())
            gLinks.Groups.erase(found);
    }
    gLinks.Groups.push_back(std::move(joined));
    gLinks.Show = show;
    gLinks.AreThere = true;
}

void UnlinkCanvas(int canvas) noexcept
{
    if (!gLinks.AreThere)
        return;
    const std::lock_guard<std::mutex> hold(gLinks.Lock);
    const auto                        found = gLinks.Find(canvas);
    if (found == gLinks.Groups.end())
        return;
    std::erase(*found, canvas);
    if (found->size() < 2)
        gLinks.Groups.erase(found);
    gLinks.AreThere = !gLinks.Groups.empty();
}

void ShowOnLinked(int canvas, const MiddleView& view)
{
    if (!gLinks.AreThere)
        return;
    Group        members;
    ShowOnCanvas show = nullptr;
    {
        const std::lock_guard<std::mutex> hold(gLinks.Lock);
        members = gLinks.GroupOf(canvas);
        show = gLinks.Show;
    }
    for (const int member : members) {
        if (member != canvas)
            show(member, view);
    }
}

}
