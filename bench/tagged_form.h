// Values in the tagged form, for the contenders on narrow text: type words, numbers to text and back.
#pragma once

#include <charconv>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <system_error>

namespace hx::bench {

inline constexpr char kRoot[] = "MFilerTaggedXml";
inline constexpr char kType[] = "type";

template <class T>
inline constexpr const char* kTypeWord = nullptr;
template <>
inline constexpr const char* kTypeWord<std::string> = "string";
template <>
inline constexpr const char* kTypeWord<double> = "float";
template <>
inline constexpr const char* kTypeWord<uint32_t> = "uint";
template <>
inline constexpr const char* kTypeWord<int32_t> = "int";
template <>
inline constexpr const char* kTypeWord<bool> = "bool";

// The text of one number, kept in place, with a zero behind it.
class NumberText {
public:
    explicit NumberText(double value) {
        *std::to_chars(m_text, m_text + sizeof m_text, value, std::chars_format::scientific, 15).ptr = '\0';
    }
    explicit NumberText(uint32_t value) { *std::to_chars(m_text, m_text + sizeof m_text, value).ptr = '\0'; }
    explicit NumberText(int32_t value) { *std::to_chars(m_text, m_text + sizeof m_text, value).ptr = '\0'; }
    explicit NumberText(bool value) : m_text{value ? '1' : '0'} {}

    const char* Text() const { return m_text; }

private:
    char m_text[32];
};

// False for text that is no such value.
template <class T>
bool ParseValue(const char* text, T& value) {
    const char* const end = text + std::strlen(text);
    const auto [behind, error] = std::from_chars(text, end, value);
    return error == std::errc() && behind == end;
}

inline bool ParseValue(const char* text, bool& value) {
    unsigned number = 0;
    if (!ParseValue(text, number)) return false;
    value = number != 0;
    return true;
}

inline bool ParseValue(const char* text, std::string& value) {
    value = text;
    return true;
}

}  // namespace hx::bench
