#include "overlay/StateArchive.h"

#include <algorithm>

namespace vostel {

void StateArchive::Expect(int value)
{
    int found = value;
    Transfer(found);
    Broken = Broken || found != value;
}

void StateArchive::Transfer(float& value)
{
    std::uint32_t bits = std::bit_cast<std::uint32_t>(value);
    Transfer(bits);
    value = std::bit_cast<float>(bits);
}

void StateArchive::Transfer(double& value)
{
    std::uint64_t bits = std::bit_cast<std::uint64_t>(value);
    Transfer(bits);
    value = std::bit_cast<double>(bits);
}

void StateArchive::Transfer(CPoint& point)
{
    Transfer(point.x);
    Transfer(point.y);
}

void StateArchive::Transfer(PointTemplateBase<double>& point)
{
    Transfer(point.x);
    Transfer(point.y);
}

// Characters take four bytes each, whatever the platform's wchar_t.
void StateArchive::Transfer(CString& text)
{
    std::vector<std::uint32_t> characters;
    for (int i = 0; i < text.GetLength(); ++i)
        characters.push_back(static_cast<std::uint32_t>(text[i]));
    Transfer(characters);
    if (!Loads || Broken)
        return;
    text.Empty();
    for (const std::uint32_t character : characters)
        text.AppendChar(static_cast<wchar_t>(character));
}

bool StateArchive::Take(std::span<unsigned char> bytes)
{
    Broken = Broken || Source.size() < bytes.size();
    if (Broken)
        return false;
    std::copy_n(Source.begin(), bytes.size(), bytes.begin());
    Source = Source.subspan(bytes.size());
    return true;
}

}
