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

// Few digits and a small exponent, so that mantissa and power of ten are exact as doubles: then the one
// multiplication or division rounds as the conversion of the text has to. Writers make mostly such numbers.
bool ParseShortDouble(std::wstring_view text, double& value) {
    constexpr uint64_t kExactMantissa = uint64_t{1} << 53;
    constexpr int kExactPower = 22;
    static constexpr double kPowers[kExactPower + 1] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                        1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                                        1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
    constexpr int kMaxDigits = 19;  // more would overflow the mantissa
    const size_t size = text.size();
    const bool negative = size > 0 && text[0] == L'-';
    size_t at = negative;
    uint64_t mantissa = 0;
    const auto digit_at = [&](size_t place) { return static_cast<uint32_t>(text[place]) - L'0'; };
    const auto read_digits = [&] {
        const size_t first = at;
        // Four at a time, as far as they go: one multiplication then waits for the other a quarter as often.
        for (; at + 4 <= size; at += 4) {
            const uint32_t a = digit_at(at), b = digit_at(at + 1), c = digit_at(at + 2), d = digit_at(at + 3);
            if (a >= 10 || b >= 10 || c >= 10 || d >= 10) break;
            mantissa = mantissa * 10'000 + (a * 1000 + b * 100 + c * 10 + d);
        }
        for (; at < size && digit_at(at) < 10; ++at) mantissa = mantissa * 10 + digit_at(at);
        return static_cast<int>(at - first);
    };
    int digits = read_digits();
    int power = 0;
    if (at < size && text[at] == L'.') {
        ++at;
        power = -read_digits();
        digits -= power;
    }
    if (digits == 0 || digits > kMaxDigits) return false;
    // Writers fill up with zeros.
    for (; mantissa > kExactMantissa && mantissa % 10 == 0; mantissa /= 10) ++power;
    if (mantissa > kExactMantissa) return false;
    if (size - at == 4 && text[at] == L'e' && (text[at + 1] == L'+' || text[at + 1] == L'-') &&
        digit_at(at + 2) < 10 && digit_at(at + 3) < 10) {
        const auto exponent = static_cast<int>(digit_at(at + 2) * 10 + digit_at(at + 3));
        power += text[at + 1] == L'-' ? -exponent : exponent;
        at = size;
    }
    if (at != size || power < -kExactPower || power > kExactPower) return false;
    const auto exact = static_cast<double>(mantissa);
    const double magnitude = power < 0 ? exact / kPowers[-power] : exact * kPowers[power];
    value = negative ? -magnitude : magnitude;
    return true;
}

// As `parse` does; the number of characters that it took. 0 if there is no number, and `value` is unchanged.
template <class T>
size_t Scan(T (*parse)(const char*, const char**), std::wstring_view text, T& value) {
    char kept[128];
    std::string longer;
    if (text.size() >= sizeof kept) longer.resize(text.size());
    char* const narrow = text.size() < sizeof kept ? kept : longer.data();
    for (size_t i = 0; i < text.size(); ++i) {
        // No number has another character, and a NUL would hide what follows it.
        narrow[i] = text[i] > 0 && text[i] < 128 ? static_cast<char>(text[i]) : '?';
    }
    narrow[text.size()] = '\0';
    const char* end = nullptr;
    const T parsed = parse(narrow, &end);
    const auto length = static_cast<size_t>(end - narrow);
    if (length != 0) value = parsed;
    return length;
}

// The numbers that from_chars cannot be trusted with: leading white space, "+", hexadecimal, out of range,
// long ones.
bool ParseDoubleSlowly(std::wstring_view text, double& value) {
    double parsed = 0;
    const size_t length = Scan(&ParseDoubleC, text, parsed);
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
    if (ParseShortDouble(text, value)) return true;
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

bool ScanNumber(std::wstring_view text, double& value) {
    return Scan(&ParseDoubleC, text, value) != 0;
}

bool ScanNumber(std::wstring_view text, float& value) {
    return Scan(&ParseFloatC, text, value) != 0;
}

}  // namespace hx
