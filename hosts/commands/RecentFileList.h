#pragma once

#include <functional>
#include <string>
#include <vector>

namespace vostel::viewer {

// The files that were open last, newest first, without doubles.
class RecentFileList {
public:
    static constexpr std::size_t MaxFiles = 9;    // one digit each in the menu

    using Save = std::function<void(const std::vector<std::wstring>&)>;

    // known: of earlier runs. Every change is handed to save.
    RecentFileList(std::vector<std::wstring> known, Save save);

    const std::vector<std::wstring>& Paths() const { return Files; }

    void Add(const std::wstring& path);
    void Remove(const std::wstring& path);
    void Clear();

private:
    void Changed();

    std::vector<std::wstring> Files;
    Save                      SaveFiles;
};

}
