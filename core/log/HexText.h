// A number in hexadecimal digits, lower-case, as dumps and logs show addresses. Any thread.
#pragma once

#include <charconv>
#include <cstdint>
#include <string_view>

namespace hx {

class HexText {
public:
    explicit HexText(uint64_t number) {
        char digits[kDigits];
        const char* const end = std::to_chars(digits, digits + kDigits, number, 16).ptr;
        for (const char* digit = digits; digit != end; ++digit) {
            m_text[m_length++] = static_cast<wchar_t>(*digit);
        }
    }
    std::wstring_view View() const { return {m_text, m_length}; }

private:
    static constexpr size_t kDigits = 16;
    wchar_t m_text[kDigits] = {};
    size_t m_length = 0;
};

}  // namespace hx
