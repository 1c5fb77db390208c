#include "vostel/platform.h"

#if !defined(VOSTEL_HAS_FRAMEWORK_CLASSES)

#    include "platform/Files.h"

#    include <cstdarg>

using namespace vostel;

namespace {

// A format as the Windows text functions read it, in the notation of the C library: a conversion without a
// size takes wide texts and characters as it stands, narrow ones as a capital, and I64 is the size of a
// long long. A conversion that the end of the format cuts off is left out.
std::wstring StandardFormat(const wchar_t* format)
{
    std::wstring standard;
    while (*format != 0) {
        if (*format != L'%') {
            standard += *format++;
            continue;
        }
        std::size_t  length = 1 + std::wcsspn(format + 1, L"-+ #0123456789.*");
        std::wstring one(format, length);
        format += length;
        if (std::wcsncmp(format, L"I64", 3) == 0 || std::wcsncmp(format, L"I32", 3) == 0) {
            one += format[1] == L'6' ? L"ll" : L"";
            format += 3;
        }
        length = std::wcsspn(format, L"hljztL");
        const std::wstring size(format, length);
        format += length;
        if (*format == 0)
            break;
        const wchar_t conversion = *format++;
        const bool    narrow = size == L"h" || (size.empty() && (conversion == L'S' || conversion == L'C'));
        if (conversion == L's' || conversion == L'S')
            one += narrow ? L"hs" : L"ls";
        else if (conversion == L'c' || conversion == L'C')
            one += narrow ? L"c" : L"lc";
        else
            one += size + conversion;
        standard += one;
    }
    return standard;
}

// The C library does not give the length beforehand. A text that is too long for the room fails like a bad
// format, or is cut to fill it.
std::wstring Formatted(const wchar_t* format, std::va_list values)
{
    constexpr std::size_t MaxRoom = std::size_t{1} << 24;
    const std::wstring    standard = StandardFormat(format ? format : L"");
    for (std::size_t room = 256; room <= MaxRoom; room *= 16) {
        std::wstring text(room, L'\0');
        std::va_list again;
        va_copy(again, values);
        const int length = std::vswprintf(text.data(), room, standard.c_str(), again);
        va_end(again);
        if (length >= 0 && static_cast<std::size_t>(length) + 1 < room) {
            text.resize(static_cast<std::size_t>(length));
            return text;
        }
    }
    return std::wstring();
}

}

void CString::Format(const wchar_t* format, ...)
{
    std::va_list values;
    va_start(values, format);
    std::wstring text = Formatted(format, values);
    va_end(values);
    Text = std::move(text);
}

void CString::AppendFormat(const wchar_t* format, ...)
{
    std::va_list values;
    va_start(values, format);
    const std::wstring text = Formatted(format, values);
    va_end(values);
    Text += text;
}

std::wstring CString::Widened(const char* text)
{
    return WidenAnsi(text);
}

#endif
