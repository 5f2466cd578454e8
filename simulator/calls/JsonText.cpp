#include "simulator/calls/JsonText.h"

#include <charconv>
#include <cmath>

namespace hx::simulator {
namespace {

constexpr wchar_t kHexDigits[] = L"0123456789abcdef";
constexpr wchar_t kReplacement = L'\xFFFD';

}  // namespace

void AppendJsonText(std::wstring& json, std::wstring_view text) {
    json += L'"';
    for (const wchar_t character : text) {
        if (character == L'"' || character == L'\\') {
            json.append(1, L'\\').append(1, character);
        } else if (static_cast<uint32_t>(character) < 0x20) {
            const auto code = static_cast<size_t>(character);
            json.append(L"\\u00").append(1, kHexDigits[code >> 4]).append(1, kHexDigits[code & 15]);
        } else {
            json += IsCharacter(character) ? character : kReplacement;
        }
    }
    json += L'"';
}

void AppendJsonNumber(std::wstring& json, double number) {
    if (!std::isfinite(number)) {
        json += std::isnan(number) ? L"\"NaN\"" : number > 0 ? L"\"Infinity\"" : L"\"-Infinity\"";
        return;
    }
    char digits[32];
    const auto end = std::to_chars(std::begin(digits), std::end(digits), number).ptr;
    json.append(digits, end);
}

}  // namespace hx::simulator
