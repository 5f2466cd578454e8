#include "core/filer/CNumberText.h"

#include <charconv>
#include <limits>
#include <string>
#include <type_traits>

#include "platform/system/c_numbers.h"

namespace hx {
namespace {

constexpr bool IsStreamSpace(wchar_t c) {
    return c == L' ' || (c >= L'\t' && c <= L'\r');
}

size_t SkipSpace(std::wstring_view text, size_t at) {
    while (at < text.size() && IsStreamSpace(text[at])) ++at;
    return at;
}

template <class T>
bool ParseInteger(std::wstring_view text, T& value) {
    size_t at = SkipSpace(text, 0);
    bool negative = false;
    if (at < text.size() && (text[at] == L'-' || text[at] == L'+')) negative = text[at++] == L'-';
    // The magnitude may reach the maximum, and one more for the most negative number of a signed type.
    const uint64_t limit =
        static_cast<uint64_t>(std::numeric_limits<T>::max()) + (std::is_signed_v<T> && negative);
    const size_t first_digit = at;
    uint64_t magnitude = 0;
    for (; at < text.size() && text[at] >= L'0' && text[at] <= L'9'; ++at) {
        const auto digit = static_cast<uint64_t>(text[at] - L'0');
        if (magnitude > (limit - digit) / 10) return false;
        magnitude = magnitude * 10 + digit;
    }
    if (at == first_digit) return false;
    value = static_cast<T>(negative ? 0 - magnitude : magnitude);
    return true;
}

// The numbers that from_chars cannot be trusted with: leading white space, "+", hexadecimal, out of range,
// long ones.
bool ParseDoubleSlowly(std::wstring_view text, double& value) {
    std::string narrow;
    for (const wchar_t c : text) {
        // No number has such a character, and a NUL would hide what follows it.
        narrow += c > 0 && c < 128 ? static_cast<char>(c) : '?';
    }
    const char* end = nullptr;
    const double parsed = ParseDoubleC(narrow.c_str(), &end);
    const auto length = static_cast<size_t>(end - narrow.c_str());
    if (length == 0 || SkipSpace(text, length) != text.size()) return false;
    value = parsed;
    return true;
}

}  // namespace

CNumberText::CNumberText(uint64_t value) {
    char text[24];
    Widen(text, std::to_chars(text, text + sizeof text, value).ptr);
}

CNumberText::CNumberText(int64_t value) {
    char text[24];
    Widen(text, std::to_chars(text, text + sizeof text, value).ptr);
}

CNumberText::CNumberText(double value, int precision) {
    char text[sizeof m_text / sizeof *m_text];
    Widen(text, std::to_chars(text, text + sizeof text, value, std::chars_format::scientific, precision).ptr);
}

void CNumberText::Widen(const char* begin, const char* end) {
    m_length = 0;
    while (begin != end) m_text[m_length++] = static_cast<wchar_t>(*begin++);
}

bool ParseNumber(std::wstring_view text, uint16_t& value) {
    return ParseInteger(text, value);
}

bool ParseNumber(std::wstring_view text, int16_t& value) {
    return ParseInteger(text, value);
}

bool ParseNumber(std::wstring_view text, uint32_t& value) {
    return ParseInteger(text, value);
}

bool ParseNumber(std::wstring_view text, int32_t& value) {
    return ParseInteger(text, value);
}

bool ParseNumber(std::wstring_view text, uint64_t& value) {
    return ParseInteger(text, value);
}

bool ParseNumber(std::wstring_view text, double& value) {
    char narrow[48];
    if (text.size() > sizeof narrow) return ParseDoubleSlowly(text, value);
    bool ascii = true;
    for (size_t i = 0; i < text.size(); ++i) {
        narrow[i] = static_cast<char>(text[i]);
        ascii &= static_cast<uint32_t>(text[i]) < 128;
    }
    const char* const end = narrow + text.size();
    double parsed = 0;
    const auto [behind, error] = std::from_chars(narrow, end, parsed);
    if (!ascii || error != std::errc() || behind != end) return ParseDoubleSlowly(text, value);
    value = parsed;
    return true;
}

}  // namespace hx
