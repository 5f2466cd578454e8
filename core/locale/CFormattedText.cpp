#include "core/locale/CFormattedText.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <optional>
#include <span>

namespace hx {
namespace {

// One "%..." of a format.
struct Conversion {
    bool left = false;
    bool zeros = false;
    bool alternate = false;
    std::wstring_view sign;  // what stands before a number that is not negative
    size_t width = 0;
    std::optional<int> precision;
    bool is_64_bits = false;
    wchar_t kind = 0;
};

// Formats give widths for people's eyes; more would be a mistake, or mischief.
constexpr int64_t kWidest = 4096;

class Formatter {
public:
    Formatter(wchar_t decimal_separator, std::wstring_view format, std::span<const CFormatArgument> arguments)
        : m_separator(decimal_separator), m_format(format), m_arguments(arguments) {}

    std::wstring Run() {
        while (m_at < m_format.size()) {
            const size_t percent = std::min(m_format.find(L'%', m_at), m_format.size());
            m_text.append(m_format.substr(m_at, percent - m_at));
            m_at = percent;
            if (percent == m_format.size()) break;
            if (Convert()) continue;
            m_text += m_format[percent];
            m_at = percent + 1;
        }
        return std::move(m_text);
    }

private:
    wchar_t Peek() const { return m_at < m_format.size() ? m_format[m_at] : L'\0'; }
    bool Take(wchar_t character) {
        if (Peek() != character) return false;
        ++m_at;
        return true;
    }

    const CFormatArgument::Value* NextArgument() {
        return m_next_argument < m_arguments.size() ? &m_arguments[m_next_argument++].Get() : nullptr;
    }

    // A number in the format, or that of an argument; false for a "*" without one.
    bool ReadNumber(int64_t& number) {
        if (Take(L'*')) {
            const auto* argument = NextArgument();
            const int64_t* value = argument != nullptr ? std::get_if<int64_t>(argument) : nullptr;
            if (value != nullptr) number = std::clamp(*value, -kWidest, kWidest);
            return value != nullptr;
        }
        number = 0;
        for (; Peek() >= L'0' && Peek() <= L'9'; ++m_at)
            number = std::min(number * 10 + (Peek() - L'0'), kWidest);
        return true;
    }

    void ReadFlags(Conversion& conversion) {
        for (;; ++m_at) {
            switch (Peek()) {
                case L'-':
                    conversion.left = true;
                    break;
                case L'0':
                    conversion.zeros = true;
                    break;
                case L'#':
                    conversion.alternate = true;
                    break;
                case L'+':
                    conversion.sign = L"+";
                    break;
                case L' ':
                    if (conversion.sign.empty()) conversion.sign = L" ";
                    break;
                default:
                    return;
            }
        }
    }

    void ReadSize(Conversion& conversion) {
        static constexpr std::wstring_view k64Bits[] = {L"I64", L"ll", L"j", L"L"};
        static constexpr std::wstring_view kOthers[] = {L"I32", L"hh", L"h", L"l", L"z", L"t", L"w"};
        const auto skip = [&](std::wstring_view size) {
            if (!m_format.substr(m_at).starts_with(size)) return false;
            m_at += size.size();
            return true;
        };
        conversion.is_64_bits = std::ranges::any_of(k64Bits, skip);
        if (!conversion.is_64_bits) std::ranges::any_of(kOthers, skip);
    }

    bool Convert() {
        ++m_at;
        if (Take(L'%')) {
            m_text += L'%';
            return true;
        }
        Conversion conversion;
        ReadFlags(conversion);
        int64_t width = 0;
        if (!ReadNumber(width)) return false;
        conversion.left |= width < 0;
        conversion.width = static_cast<size_t>(std::abs(width));
        if (Take(L'.')) {
            int64_t precision = 0;
            if (!ReadNumber(precision)) return false;
            if (precision >= 0) conversion.precision = static_cast<int>(precision);
        }
        ReadSize(conversion);
        conversion.kind = Peek();
        ++m_at;
        const auto* argument = NextArgument();
        if (argument == nullptr) return false;
        switch (conversion.kind) {
            case L'd':
            case L'i':
            case L'u':
            case L'x':
            case L'X':
                return ConvertInteger(conversion, *argument);
            case L'e':
            case L'E':
            case L'f':
            case L'F':
            case L'g':
            case L'G':
                return ConvertDouble(conversion, *argument);
            case L'c':
                return ConvertCharacter(conversion, *argument);
            case L's':
                return ConvertText(conversion, *argument);
            default:
                return false;
        }
    }

    bool ConvertInteger(const Conversion& conversion, const CFormatArgument::Value& argument) {
        const int64_t* const with_sign = std::get_if<int64_t>(&argument);
        const uint64_t* const without_sign = std::get_if<uint64_t>(&argument);
        if (with_sign == nullptr && without_sign == nullptr) return false;
        uint64_t magnitude = with_sign != nullptr ? static_cast<uint64_t>(*with_sign) : *without_sign;
        const bool shows_sign = conversion.kind == L'd' || conversion.kind == L'i';
        const bool negative = with_sign != nullptr && *with_sign < 0;
        if (negative && shows_sign) magnitude = 0 - magnitude;
        if (negative && !shows_sign && !conversion.is_64_bits) magnitude &= UINT32_MAX;
        const bool hexadecimal = conversion.kind == L'x' || conversion.kind == L'X';
        char digits[24];
        std::string text(digits,
                         std::to_chars(digits, digits + sizeof digits, magnitude, hexadecimal ? 16 : 10).ptr);
        const auto precision = static_cast<size_t>(conversion.precision.value_or(1));
        if (text.size() < precision) text.insert(0, precision - text.size(), '0');
        if (precision == 0 && magnitude == 0) text.clear();
        std::wstring_view sign;
        if (shows_sign) sign = negative ? L"-" : conversion.sign;
        if (hexadecimal && conversion.alternate && magnitude != 0) sign = L"0x";
        AppendNumber(conversion, sign, text, !conversion.precision);
        return true;
    }

    bool ConvertDouble(const Conversion& conversion, const CFormatArgument::Value& argument) {
        const double* const value = std::get_if<double>(&argument);
        if (value == nullptr) return false;
        std::chars_format form = std::chars_format::fixed;
        if (conversion.kind == L'e' || conversion.kind == L'E') form = std::chars_format::scientific;
        if (conversion.kind == L'g' || conversion.kind == L'G') form = std::chars_format::general;
        constexpr size_t kLongestInteger = 320;
        const int precision = conversion.precision.value_or(6);
        std::string text(kLongestInteger + static_cast<size_t>(precision), '\0');
        const double magnitude = std::abs(*value);
        text.resize(static_cast<size_t>(
            std::to_chars(text.data(), text.data() + text.size(), magnitude, form, precision).ptr -
            text.data()));
        AppendNumber(conversion, std::signbit(*value) ? L"-" : conversion.sign, text, std::isfinite(*value));
        return true;
    }

    bool ConvertCharacter(const Conversion& conversion, const CFormatArgument::Value& argument) {
        const int64_t* const with_sign = std::get_if<int64_t>(&argument);
        const uint64_t* const without_sign = std::get_if<uint64_t>(&argument);
        if (with_sign == nullptr && without_sign == nullptr) return false;
        const auto character =
            static_cast<wchar_t>(with_sign != nullptr ? static_cast<uint64_t>(*with_sign) : *without_sign);
        AppendPadded(conversion, {&character, 1});
        return true;
    }

    bool ConvertText(const Conversion& conversion, const CFormatArgument::Value& argument) {
        const std::wstring_view* const text = std::get_if<std::wstring_view>(&argument);
        if (text == nullptr) return false;
        const auto longest = conversion.precision ? static_cast<size_t>(*conversion.precision) : text->size();
        AppendPadded(conversion, text->substr(0, longest));
        return true;
    }

    void AppendNumber(const Conversion& conversion, std::wstring_view sign, std::string_view digits,
                      bool may_have_zeros) {
        std::wstring text(sign);
        const bool upper = conversion.kind >= L'A' && conversion.kind <= L'Z';
        if (upper && sign == L"0x") text = L"0X";
        const size_t length = sign.size() + digits.size();
        if (conversion.zeros && !conversion.left && may_have_zeros && length < conversion.width) {
            text.append(conversion.width - length, L'0');
        }
        for (const char c : digits) {
            const bool is_small_letter = c >= 'a' && c <= 'z';
            text +=
                c == '.' ? m_separator : static_cast<wchar_t>(upper && is_small_letter ? c - 'a' + 'A' : c);
        }
        AppendPadded(conversion, text);
    }

    void AppendPadded(const Conversion& conversion, std::wstring_view text) {
        const size_t blanks = conversion.width > text.size() ? conversion.width - text.size() : 0;
        if (!conversion.left) m_text.append(blanks, L' ');
        m_text.append(text);
        if (conversion.left) m_text.append(blanks, L' ');
    }

    const wchar_t m_separator;
    const std::wstring_view m_format;
    const std::span<const CFormatArgument> m_arguments;
    size_t m_at = 0;
    size_t m_next_argument = 0;
    std::wstring m_text;
};

}  // namespace

std::wstring FormatText(wchar_t decimal_separator, std::wstring_view format,
                        std::initializer_list<CFormatArgument> arguments) {
    return Formatter(decimal_separator, format, {arguments.begin(), arguments.size()}).Run();
}

}  // namespace hx
