#include "commands/FilePaths.h"

#include <memory>
#include <system_error>
#include <type_traits>

namespace vostel::viewer {

std::filesystem::path PathOf(const CString& name)
{
    CString text(name);
    if constexpr (std::is_same_v<std::filesystem::path::value_type, wchar_t>)
        return text.GetString();
    const std::unique_ptr<char, void (*)(char*)> narrow(gCStringToChar(&text), gDLLDelete);
    return narrow.get();
}

std::wstring WideName(const std::filesystem::path& path)
{
    return CString(path.c_str()).GetString();
}

std::wstring AbsolutePath(const std::wstring& name)
{
    std::error_code             failed;
    const std::filesystem::path path = std::filesystem::absolute(PathOf(name.c_str()), failed);
    return failed ? name : WideName(path.lexically_normal());
}

}
