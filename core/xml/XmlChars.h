// What the single characters of a document mean: delimiters, white space, what may start a tag name.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace hx {

namespace detail {

enum CharClass : uint8_t { kDelimiter = 1, kWhite = 2, kTagStart = 4, kNotWritable = 8 };

constexpr std::array<uint8_t, 128> MakeCharClasses() {
    std::array<uint8_t, 128> classes{};
    for (const char c : std::string_view(" \t\n\r<>=\\/?!")) classes[static_cast<uint8_t>(c)] |= kDelimiter;
    for (const char c : std::string_view(" \t\n\r")) classes[static_cast<uint8_t>(c)] |= kWhite;
    for (size_t c = 'A'; c <= 'Z'; ++c) classes[c] |= kTagStart;
    for (size_t c = 'a'; c < classes.size(); ++c) classes[c] |= kTagStart;
    for (const char c : std::string_view("\t\n\r<>=\\/?!\"'"))
        classes[static_cast<uint8_t>(c)] |= kNotWritable;
    for (const char c : std::string_view("_:")) classes[static_cast<uint8_t>(c)] |= kTagStart;
    return classes;
}

inline constexpr std::array<uint8_t, 128> kCharClasses = MakeCharClasses();

}  // namespace detail

// Ends a name or an unquoted value inside a tag.
constexpr bool IsDelimiter(wchar_t c) {
    const auto code = static_cast<uint32_t>(c);
    return code < 128 && (detail::kCharClasses[code] & detail::kDelimiter) != 0;
}

constexpr bool IsWhite(wchar_t c) {
    const auto code = static_cast<uint32_t>(c);
    return code < 128 && (detail::kCharClasses[code] & detail::kWhite) != 0;
}

// Letters, "_", ":" and everything above "z".
constexpr bool IsTagStart(wchar_t c) {
    const auto code = static_cast<uint32_t>(c);
    return code >= 128 || (detail::kCharClasses[code] & detail::kTagStart) != 0;
}

// May not stand in a name that is written. A blank may: what is behind it then reads as an attribute.
constexpr bool IsNotWritable(wchar_t c) {
    const auto code = static_cast<uint32_t>(c);
    return code < 128 && (detail::kCharClasses[code] & detail::kNotWritable) != 0;
}

constexpr bool IsQuote(wchar_t c) {
    return c == L'"' || c == L'\'';
}

// "00" to "33": the cells of a 4 by 4 transform in old records. They break the rule for tag names, and yet
// such documents have to load.
constexpr bool IsTransformCell(std::wstring_view name) {
    return name.size() == 2 && name[0] >= L'0' && name[0] <= L'3' && name[1] >= L'0' && name[1] <= L'3';
}

// Offset of the first character at or behind `from` that is no part of a name; `end` if there is none.
inline uint32_t NameEnd(const wchar_t* text, uint32_t from, uint32_t end) {
    while (from < end && !IsDelimiter(text[from])) ++from;
    return from;
}

}  // namespace hx
