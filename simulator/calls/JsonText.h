// Values as JSON, for the log of calls. Any thread; throws std::bad_alloc.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace hx::simulator {

// Whether that is a character: no surrogate, and nothing beyond U+10FFFF.
constexpr bool IsCharacter(wchar_t character) {
    const auto code = static_cast<uint32_t>(character);
    return code < 0xD800 || (code > 0xDFFF && code <= 0x10FFFF);
}

// In quotation marks. What JSON cannot have as it is gets escaped; what is no character becomes U+FFFD.
void AppendJsonText(std::wstring& json, std::wstring_view text);
// As short as it can be read back. What is no finite number becomes a text: "NaN", "Infinity", "-Infinity".
void AppendJsonNumber(std::wstring& json, double number);

}  // namespace hx::simulator
