#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

namespace vostel {

// What a call that succeeds has to tell all the same.
class Remarks {
public:
    void Add(std::string remark);
    // Counts what a format cannot hold, such as "text".
    void LeftOut(const std::string& what) { ++Missing[what]; }

    // Counts what is kept for a later version without being shown.
    void Kept(const std::string& what) { ++Unshown[what]; }

    // Names what a later version wrote and is kept for it, such as "view.tilt", or passed over.
    void KeptUnread(const std::string& name) { Unread.insert(name); }
    void Ignored(const std::string& name) { PassedOver.insert(name); }

    // "left out: 2 texts, 1 panel; ..."; empty for nothing.
    std::string Text() const;

private:
    std::map<std::string, int> Missing;
    std::map<std::string, int> Unshown;
    std::set<std::string>      Unread;
    std::set<std::string>      PassedOver;
    std::vector<std::string>   Others;
};

}
